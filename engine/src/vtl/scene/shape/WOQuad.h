#pragma once

#include "vtl/scene/object/WO.h"

#include <cstdint>
#include <memory>
#include <string>

namespace Vantrel {

/** A rectangle with an image on it. */
class WOQuad : public WO {
public:
    static std::string getClassName() { return "WOQuad"; }
    /** The arguments are those of `MGLQuad`. */
    static std::unique_ptr<WOQuad> New(std::uint8_t orientation, const std::string& fileName, float width,
                                       float height);

    using WO::onCreate;
    virtual void onCreate(std::uint8_t orientation, const std::string& fileName, float width, float height);
};

} // namespace Vantrel
