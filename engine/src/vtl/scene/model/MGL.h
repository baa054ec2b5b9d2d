#pragma once

#include "vtl/scene/model/Model.h"
#include "vtl/scene/model/ModelSkins.h"

namespace Vantrel {

/**
 * A model that computes and draws its own geometry. It has one list of skins, whatever the mesh, and a box
 * that its class keeps; picking sees that box unless the class draws more for it. Main thread.
 */
class MGL : public Model {
public:
    explicit MGL(WO* parent) : Model(parent) {}

    void render(Camera* camera) override = 0;
    /** Draws the box as a solid. */
    void renderSelection(Camera* camera, std::uint8_t r, std::uint8_t g, std::uint8_t b) override;
    BoundingBox& getBoundingBox() override;
    using Model::getBoundingBox;
    /** Always: a class that draws itself is left to GL. */
    bool isInFrustum(const VantrelGeometryFrustum& /*frustum*/) const override { return true; }

    using Model::addSkin;

    /** Makes the box one of these lengths about the model's origin. */
    virtual void setBoundingBoxLengths(const Vector& lengths);
    virtual void addSkin(const ModelMeshSkin& skin) { skins.add(skin); }

protected:
    BoundingBox mglBoundingBox;
    ModelSkins skins;

private:
    ModelSkins* findSkins(std::uint32_t /*meshIndex*/) override { return &skins; }
};

} // namespace Vantrel
