#pragma once

#include "vtl/scene/object/WO.h"

#include <cstdint>
#include <memory>
#include <string>

namespace Vantrel {

/** A cylinder or cone, closed at both ends. */
class WOCylinder : public WO {
public:
    static std::string getClassName() { return "WOCylinder"; }
    /** The arguments are those of `MGLCylinder`. */
    static std::unique_ptr<WOCylinder> New(float radiusAtTop, float radiusAtBottom, float height,
                                           std::uint32_t slices, std::uint32_t stacks, bool useNormals = true,
                                           bool useTextureCoords = false);

    using WO::onCreate;
    virtual void onCreate(float radiusAtTop, float radiusAtBottom, float height, std::uint32_t slices,
                          std::uint32_t stacks, bool useNormals, bool useTextureCoords);
};

} // namespace Vantrel
