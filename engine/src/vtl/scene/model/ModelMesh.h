#pragma once

#include "vtl/geometry/BoundingBox.h"
#include "vtl/math/VectorT.h"
#include "vtl/mesh/ModelMeshDataShared.h"
#include "vtl/scene/model/ModelSkins.h"

#include <cstdint>

namespace Vantrel {

class Model;

/** One drawable part of a model: skins and a box of its own, on geometry that all instances share. */
class ModelMesh {
public:
    /** `data` belongs to the model's shared geometry and isn't null. */
    ModelMesh(ModelMeshSkin skin, ModelMeshDataShared* data);
    /** For another instance: its own skins, and no parent yet. */
    ModelMesh(const ModelMesh& other);
    ModelMesh& operator=(const ModelMesh&) = delete;
    virtual ~ModelMesh() = default;

    virtual void render(const ModelMeshMatrices& matrices);
    /** Draws for picking, where a `ScopedSelectionColor` of that colour has been set. */
    virtual void renderSelection(std::uint8_t r, std::uint8_t g, std::uint8_t b);

    ModelMeshSkin& getSkin() { return skins.current(); }
    ModelSkins& getSkins() { return skins; }
    const BoundingBox& getBoundingBox() const { return boundingBox; }
    /** From the parent's position to the middle of the box. */
    const Vector& getCenterOffset() const { return centerOffset; }
    Model* getParentModel() const { return parentModel; }
    void setParentModel(Model* parent);
    ModelMeshDataShared* getModelMeshDataShared() const { return meshDataShared; }

    /** Whether the box is drawn too. */
    bool boundingBoxVisible = false;

private:
    ModelSkins skins;
    BoundingBox boundingBox;
    Vector centerOffset;
    Model* parentModel = nullptr;
    ModelMeshDataShared* meshDataShared;
};

} // namespace Vantrel
