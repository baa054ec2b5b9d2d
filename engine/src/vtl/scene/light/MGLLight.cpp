#include "vtl/scene/light/MGLLight.h"

#include "vtl/geometry/IndexedGeometrySphere.h"
#include "vtl/gl/DebugView.h"
#include "vtl/scene/camera/Camera.h"

namespace Vantrel {

MGLLight::MGLLight(WO* parent) : MGL(parent), marker(IndexedGeometrySphere::New(1.0F, 10, 10, false, false)) {
    skins.list.push_back(shapeSkin());
    skins.current().setColor(1.0F, 0.0F, 0.0F, 0.75F);
}

MGLLight::~MGLLight() = default;

void MGLLight::render(Camera* camera) {
    if (debugViewEnabled) {
        renderGeometry(*camera, *marker);
    }
}

void MGLLight::renderSelection(Camera* camera, std::uint8_t r, std::uint8_t g, std::uint8_t b) {
    if (debugViewEnabled) {
        renderGeometrySelection(*camera, *marker, r, g, b);
    }
}

} // namespace Vantrel
