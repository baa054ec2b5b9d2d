#include "vtl/scene/model/MGL.h"

#include "vtl/geometry/IndexedGeometry.h"
#include "vtl/gl/ScopedModelMatrix.h"
#include "vtl/gl/ScopedSelectionColor.h"
#include "vtl/scene/camera/Camera.h"
#include "vtl/scene/model/ModelDataShared.h"

namespace Vantrel {

void MGL::renderSelection(Camera* camera, std::uint8_t r, std::uint8_t g, std::uint8_t b) {
    const ScopedSelectionColor color(camera->getShaderCamera(), getModelMatrix(), r, g, b);
    getBoundingBox().renderSolid(camera->getShaderCamera(), r, g, b);
}

BoundingBox& MGL::getBoundingBox() {
    ModelDataShared* const data = getModelDataShared();
    return data != nullptr ? data->boundingBox : mglBoundingBox;
}

void MGL::setBoundingBoxLengths(const Vector& lengths) {
    mglBoundingBox.setLxLyLz(lengths, Vector());
}

ModelMeshSkin MGL::shapeSkin(ModelMeshSkin skin) {
    // The colour takes the place of both in the fixed functions; the shader multiplies it by them.
    skin.ambient = skin.diffuse = vtlColor4f();
    return skin;
}

void MGL::renderGeometry(const Camera& camera, IndexedGeometry& geometry, const Mat4& place) {
    renderGeometryIn(skins.current(), camera, geometry, getModelMatrix() * place,
                     getNormalMatrix(camera) * place);
}

void MGL::renderGeometryIn(ModelMeshSkin& skin, const Camera& camera, IndexedGeometry& geometry,
                           const Mat4& modelMatrix, const Mat4& normalMatrix) {
    if (!skin.visibleFlag) {
        return;
    }
    const ModelMeshMatrices matrices{modelMatrix, normalMatrix, camera.getShaderCamera()};
    const ScopedModelMatrix matrix(modelMatrix, true);
    skin.bind(&matrices);
    geometry.plainColor = skin.getVertexColor();
    geometry.render();
    skin.unbind();
}

void MGL::renderGeometrySelection(const Camera& camera, const IndexedGeometry& geometry, std::uint8_t r,
                                  std::uint8_t g, std::uint8_t b, const Mat4& place) const {
    const ScopedSelectionColor color(camera.getShaderCamera(), getModelMatrix() * place, r, g, b);
    geometry.renderSelection(r, g, b);
}

void MGL::renderBoundingBox(const Camera& camera, const Mat4& place) {
    if (!boundingBoxVisible) {
        return;
    }
    const Mat4 modelMatrix = getModelMatrix() * place;
    const ScopedModelMatrix matrix(modelMatrix);
    getBoundingBox().render(camera.getShaderCamera(), modelMatrix);
}

ModelSkins* MGL::findSkins(std::uint32_t meshIndex) {
    ModelSkins* const ofMesh = Model::findSkins(meshIndex);
    return ofMesh != nullptr ? ofMesh : &skins;
}

} // namespace Vantrel
