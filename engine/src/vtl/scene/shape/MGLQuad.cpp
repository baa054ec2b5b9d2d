#include "vtl/scene/shape/MGLQuad.h"

#include "vtl/geometry/IndexedGeometryQuad.h"
#include "vtl/gl/ManagerOpenGLState.h"
#include "vtl/gl/SetEnabled.h"
#include "vtl/gl/texture/ManagerTexture.h"
#include "vtl/scene/camera/Camera.h"

namespace Vantrel {

std::unique_ptr<MGLQuad> MGLQuad::New(WO* parent, std::uint8_t orientation, const std::string& imageFile,
                                      float width, float height) {
    return std::make_unique<MGLQuad>(parent, orientation, imageFile, width, height);
}

MGLQuad::MGLQuad(WO* parent, std::uint8_t orientation, const std::string& imageFile, float width,
                 float height)
    : MGL(parent)
    , quad(IndexedGeometryQuad::New(orientation, width, height, Vector(1, 1, 1), true, true, false)) {
    skins.list.push_back(shapeSkin(ModelMeshSkin(ManagerTexture::loadTexture(imageFile))));
    mglBoundingBox.addPoint(Vector());
    mglBoundingBox.addPoint(Vector(width, height, 0));
}

MGLQuad::~MGLQuad() = default;

void MGLQuad::render(Camera* camera) {
    setEnabled(GL_BLEND, blendEnabled);
    setEnabled(GL_DEPTH_TEST, depthTestEnabled);
    renderGeometry(*camera, *quad, place());
    renderBoundingBox(*camera, place());
    setEnabled(GL_BLEND, ManagerOpenGLState::isBlendEnabled());
    glEnable(GL_DEPTH_TEST);
}

void MGLQuad::renderSelection(Camera* camera, std::uint8_t r, std::uint8_t g, std::uint8_t b) {
    renderGeometrySelection(*camera, *quad, r, g, b, place());
}

} // namespace Vantrel
