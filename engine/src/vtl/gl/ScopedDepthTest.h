#pragma once

#include "vtl/gl/ManagerOpenGLState.h"

namespace Vantrel {

/** Sets the depth test while it lives. */
class ScopedDepthTest {
public:
    explicit ScopedDepthTest(bool enabled) { ManagerOpenGLState::pushDepthTest(enabled); }
    ScopedDepthTest(const ScopedDepthTest&) = delete;
    ScopedDepthTest& operator=(const ScopedDepthTest&) = delete;
    ~ScopedDepthTest() { ManagerOpenGLState::popDepthTest(); }
};

} // namespace Vantrel
