#include "vtl/scene/shape/WOQuad.h"

#include "vtl/scene/shape/MGLQuad.h"

namespace Vantrel {

std::unique_ptr<WOQuad> WOQuad::New(std::uint8_t orientation, const std::string& fileName, float width,
                                    float height) {
    auto object = std::make_unique<WOQuad>();
    object->onCreate(orientation, fileName, width, height);
    return object;
}

void WOQuad::onCreate(std::uint8_t orientation, const std::string& fileName, float width, float height) {
    setModel(MGLQuad::New(this, orientation, fileName, width, height));
}

} // namespace Vantrel
