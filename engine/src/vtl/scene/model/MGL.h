#pragma once

#include "vtl/math/Mat4.h"
#include "vtl/scene/model/Model.h"
#include "vtl/scene/model/ModelSkins.h"

namespace Vantrel {

class IndexedGeometry;

/**
 * A model that computes and draws its own geometry. It has one list of skins, whatever the mesh, unless it
 * has made meshes, and a box that its class keeps; picking sees that box unless the class draws more for it.
 * Main thread.
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
    virtual void addSkin(const ModelMeshSkin& skin) { Model::addSkin(skin, 0); }

protected:
    /** A skin of a colour, or an image, that both ways to draw light alike. */
    static ModelMeshSkin shapeSkin(ModelMeshSkin skin = ModelMeshSkin());
    /** Draws a shape in the current skin; `place` takes the shape to model space. */
    void renderGeometry(const Camera& camera, IndexedGeometry& geometry, const Mat4& place = Mat4());
    /** The same in any skin, with a matrix to the world and, for a shape with normals, one to eye space. */
    static void renderGeometryIn(ModelMeshSkin& skin, const Camera& camera, IndexedGeometry& geometry,
                                 const Mat4& modelMatrix, const Mat4& normalMatrix = Mat4());
    /** The same in one colour, for picking. */
    void renderGeometrySelection(const Camera& camera, const IndexedGeometry& geometry, std::uint8_t r,
                                 std::uint8_t g, std::uint8_t b, const Mat4& place = Mat4()) const;
    /** Draws the edges of the box, where they are to be visible. */
    void renderBoundingBox(const Camera& camera, const Mat4& place = Mat4());

    BoundingBox mglBoundingBox;
    ModelSkins skins;

private:
    ModelSkins* findSkins(std::uint32_t meshIndex) override;
};

} // namespace Vantrel
