#include "vtl/scene/model/ModelDataShared.h"

#include "vtl/base/Report.h"
#include "vtl/scene/model/ManagerModelMultiplicity.h"

#include <utility>

namespace Vantrel {

ModelDataShared::ModelDataShared(std::vector<ModelMeshSource> sources) {
    std::vector<std::unique_ptr<ModelMeshDataShared>> data;
    data.reserve(sources.size());
    meshes.reserve(sources.size());
    for (ModelMeshSource& source : sources) {
        data.push_back(std::make_unique<ModelMeshDataShared>(std::move(source.generator)));
        meshes.emplace_back(std::move(source.skin), data.back().get());
        boundingBox.addBox(meshes.back().getBoundingBox());
    }
    composite = std::make_shared<ModelComposite>(std::move(data));
}

ModelDataShared::ModelDataShared(const ModelDataShared& master)
    : id(master.id), boundingBox(master.boundingBox), composite(master.composite), meshes(master.meshes) {
}

ModelDataShared::~ModelDataShared() {
    if (isCounted) {
        ManagerModelMultiplicity::release(*this);
    }
}

void ModelDataShared::sendToServer() {
    for (ModelMesh& mesh : meshes) {
        const ModelMeshSkin& skin = mesh.getSkin();
        mesh.getModelMeshDataShared()->generateRenderData(skin.shadingType, skin.renderType,
                                                          skin.primitiveType);
    }
    onAllContainedMeshesHaveBeenSentServerSide();
}

void ModelDataShared::onAllContainedMeshesHaveBeenSentServerSide() {
    onAfterSendToServer();
    if (const std::vector<Vector>* const tangents = composite->getTangents()) {
        Report() << "ModelDataShared::onAllContainedMeshesHaveBeenSentServerSide()... Populated "
                 << tangents->size() << " tangents...\n";
    }
}

void ModelDataShared::render(const ModelMeshMatrices& matrices) {
    for (ModelMesh& mesh : meshes) {
        mesh.render(matrices);
    }
}

void ModelDataShared::renderSelection(std::uint8_t r, std::uint8_t g, std::uint8_t b) {
    for (ModelMesh& mesh : meshes) {
        mesh.renderSelection(r, g, b);
    }
}

ModelSkins& ModelDataShared::getSkins(std::uint32_t meshIndex) {
    if (meshes.empty()) {
        return skinsOfNothing;
    }
    return (meshIndex < meshes.size() ? meshes[meshIndex] : meshes.back()).getSkins();
}

void ModelDataShared::onAfterSendToServer() {
    populateCompositeTangents();
    onCompositeTangentsPopulated();
}

void ModelDataShared::setParentModel(Model* parent) {
    for (ModelMesh& mesh : meshes) {
        mesh.setParentModel(parent);
    }
}

} // namespace Vantrel
