#include "vtl/scene/model/ModelMesh.h"

#include "vtl/scene/model/Model.h"

namespace Vantrel {

ModelMesh::ModelMesh(ModelMeshSkin skin, ModelMeshDataShared* data)
    : skins(std::move(skin)), meshDataShared(data) {
    for (const Vector& vertex : data->getGenerator().vertices) {
        boundingBox.addPoint(vertex);
    }
}

ModelMesh::ModelMesh(const ModelMesh& other)
    : boundingBoxVisible(other.boundingBoxVisible)
    , skins(other.skins)
    , boundingBox(other.boundingBox)
    , meshDataShared(other.meshDataShared) {
}

void ModelMesh::render(const ModelMeshMatrices& matrices) {
    ModelMeshSkin& skin = skins.current();
    if (skin.visibleFlag) {
        skin.bind(&matrices);
        meshDataShared->render(skin);
        skin.unbind();
    }
    if (boundingBoxVisible) {
        boundingBox.render(matrices.camera, matrices.modelMatrix);
    }
}

void ModelMesh::renderSelection(std::uint8_t r, std::uint8_t g, std::uint8_t b) {
    meshDataShared->renderSelection(skins.current(), r, g, b);
}

void ModelMesh::setParentModel(Model* parent) {
    parentModel = parent;
    centerOffset = boundingBox.getCenter() - (parent != nullptr ? parent->getTranslation() : Vector());
}

} // namespace Vantrel
