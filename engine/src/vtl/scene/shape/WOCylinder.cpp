#include "vtl/scene/shape/WOCylinder.h"

#include "vtl/scene/shape/MGLCylinder.h"

namespace Vantrel {

std::unique_ptr<WOCylinder> WOCylinder::New(float radiusAtTop, float radiusAtBottom, float height,
                                            std::uint32_t slices, std::uint32_t stacks, bool useNormals,
                                            bool useTextureCoords) {
    auto object = std::make_unique<WOCylinder>();
    object->onCreate(radiusAtTop, radiusAtBottom, height, slices, stacks, useNormals, useTextureCoords);
    return object;
}

void WOCylinder::onCreate(float radiusAtTop, float radiusAtBottom, float height, std::uint32_t slices,
                          std::uint32_t stacks, bool useNormals, bool useTextureCoords) {
    setModel(MGLCylinder::New(this, radiusAtTop, radiusAtBottom, height, slices, stacks, useNormals,
                              useTextureCoords));
}

} // namespace Vantrel
