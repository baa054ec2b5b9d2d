#pragma once

#include "vtl/geometry/BoundingBox.h"
#include "vtl/mesh/ModelMeshRenderDataGenerator.h"
#include "vtl/scene/model/ModelComposite.h"
#include "vtl/scene/model/ModelDataSharedID.h"
#include "vtl/scene/model/ModelMesh.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace Vantrel {

/** What a parser or a procedural model makes of one mesh. */
struct ModelMeshSource {
    ModelMeshSkin skin;
    /** Not null. */
    std::unique_ptr<ModelMeshRenderDataGenerator> generator;
};

/**
 * The meshes of one model. The master, which `ManagerModelMultiplicity` keeps for each file, and its copies,
 * one for each model that shows the file, share the geometry; meshes with their skins are each one's own.
 * The geometry goes with the last of them. Main thread.
 */
class ModelDataShared {
public:
    /** A master of these meshes. */
    explicit ModelDataShared(std::vector<ModelMeshSource> sources);
    /** An instance of what `master` has. */
    ModelDataShared(const ModelDataShared& master);
    ModelDataShared& operator=(const ModelDataShared&) = delete;

    /** Has the render data of every mesh made that its current skin asks for, and tells of tangents. */
    virtual void sendToServer();
    virtual void onAllContainedMeshesHaveBeenSentServerSide();
    /** Tells the registry, where that has counted this instance. */
    virtual ~ModelDataShared();
    /** Draws every mesh in order. */
    virtual void render(const ModelMeshMatrices& matrices);
    /** The same for picking, where a `ScopedSelectionColor` of that colour has been set. */
    virtual void renderSelection(std::uint8_t r, std::uint8_t g, std::uint8_t b);
    virtual void onAfterSendToServer();
    virtual void populateCompositeTangents() { composite->populateTangents(); }
    virtual void onCompositeTangentsPopulated() {}

    const ModelComposite& getComposite() const { return *composite; }
    std::vector<ModelMesh>& getMeshes() { return meshes; }
    /** Those of a mesh; an index past the end means the last mesh. Without meshes nobody sees them. */
    ModelSkins& getSkins(std::uint32_t meshIndex);
    /** Makes `parent` the model of every mesh. */
    void setParentModel(Model* parent);

    ModelDataSharedID id;
    /** Whether the registry counts this instance; a copy isn't counted. */
    bool isCounted = false;
    /** Around all meshes, in model space, with the scale that the file was read with. */
    BoundingBox boundingBox;

private:
    std::shared_ptr<ModelComposite> composite;
    std::vector<ModelMesh> meshes;
    ModelSkins skinsOfNothing;
};

} // namespace Vantrel
