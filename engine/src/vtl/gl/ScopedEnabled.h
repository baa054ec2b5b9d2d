#pragma once

#include "vtl/gl/SetEnabled.h"

namespace Vantrel {

/** Switches a capability of GL on or off while it lives, and then back to what it was. */
class ScopedEnabled {
public:
    ScopedEnabled(GLenum capability_, bool enabled)
        : capability(capability_), wasEnabled(glIsEnabled(capability_) != GL_FALSE) {
        setEnabled(capability, enabled);
    }
    ScopedEnabled(const ScopedEnabled&) = delete;
    ScopedEnabled& operator=(const ScopedEnabled&) = delete;
    ~ScopedEnabled() { setEnabled(capability, wasEnabled); }

private:
    GLenum capability;
    bool wasEnabled;
};

} // namespace Vantrel
