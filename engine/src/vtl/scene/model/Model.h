#pragma once

#include "vtl/base/SourceLocation.h"
#include "vtl/geometry/BoundingBox.h"
#include "vtl/gl/texture/Texture.h"
#include "vtl/math/Mat4.h"
#include "vtl/math/VantrelGeometryOBB.h"
#include "vtl/math/VantrelGeometryPlane.h"
#include "vtl/math/VantrelGeometryRayVsFace.h"
#include "vtl/math/VectorT.h"
#include "vtl/mesh/MeshShadingType.h"
#include "vtl/mesh/ModelMeshSkin.h"

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace Vantrel {

class Camera;
class ModelDataShared;
class ModelSkins;
class VantrelGeometryFrustum;
class WO;
class WorldContainer;

/**
 * What a world object looks like, and where it stands: the geometry of a model file, turned by the display
 * matrix and moved. Its +X is the look direction, its +Z the normal. Instances of one file and scale share
 * the geometry; skins are each instance's own. Main thread.
 */
class Model {
public:
    /** With the geometry of that file; one that can't be loaded ends the process after a key. */
    static std::unique_ptr<Model> New(WO* parent, const std::string& fileName, const Vector& scale,
                                      MESH_SHADING_TYPE shadingType);

    /** Without geometry. */
    explicit Model(WO* parent);
    Model(const Model&) = delete;
    Model& operator=(const Model&) = delete;
    virtual ~Model();

    virtual void render(Camera* camera);
    /** Draws in one colour, for picking. */
    virtual void renderSelection(Camera* camera, std::uint8_t r, std::uint8_t g, std::uint8_t b);
    virtual ModelDataShared* getModelDataShared() const { return modelData.get(); }
    /** Empty without geometry of a file, as is the scale. */
    virtual std::string getFileName() const;
    virtual Vector getFileScale() const;
    /** Back to the origin, unturned and unscaled. */
    virtual void resetTransforms();
    /** The vertices of all meshes one after the other; null without geometry. */
    virtual const std::vector<const Vector*>* getCompositeVertexList() const;
    /** Three for each triangle, into the composite vertices; null without geometry. */
    virtual const std::vector<std::uint32_t>* getCompositeIndexList() const;
    /** The tangents that the file has, mesh after mesh; null when it has none. */
    virtual const std::vector<Vector>* getCompositeTangentList() const;
    /** In model space. */
    virtual BoundingBox& getBoundingBox();
    const BoundingBox& getBoundingBox() const { return const_cast<Model*>(this)->getBoundingBox(); }
    /** Of the turned and moved box, in the order of `BoundingBox::getCorners`. */
    virtual void getBoundingBoxCorners(std::span<Vector, 8> out) const;
    /** Of the same box, in the order +X, -Y, -X, +Y, -Z, +Z of the model; normals point outwards. */
    virtual void getBoundingBoxPlanes(std::span<VantrelGeometryPlane, 6> out) const;
    /** From now on the model turns about the middle of its box. */
    virtual void computeRotationPoint();
    /** The box's lengths along the model's axes, about the model's position. */
    virtual VantrelGeometryOBB getOBB() const;
    virtual Vector getLookDirection() const { return getXAxis(); }
    /** Turns the look there and keeps the normal as near as it can; a zero vector changes nothing. */
    virtual void setLookDirection(const Vector& direction);
    virtual Vector getNormalDirection() const { return getZAxis(); }
    /** The same for the normal. */
    virtual void setNormalDirection(const Vector& direction);
    virtual Vector getXAxis() const { return columnOf(0); }
    virtual Vector getYAxis() const { return columnOf(1); }
    virtual Vector getZAxis() const { return columnOf(2); }
    virtual Vector rotateVector(const Vector& v) const { return modelDisplayMatrix * v; }
    /** A point of the model in the space of its owner, without the scale of `setScale`. */
    virtual Vector modelToOwner(const Vector& point) const { return rotateVector(point) + modelTranslateAmt; }
    virtual Vector rotateVectorLessTranslation(const Vector& v) const {
        return rotateVector(v) - modelTranslateAmt;
    }
    /** `v` itself where the display matrix has no inverse. */
    virtual Vector inverseRotateVector(const Vector& v) const;
    virtual Vector inverseRotatePlusTranslation(const Vector& v) const {
        return inverseRotateVector(v) + modelTranslateAmt;
    }
    virtual Vector ownerToModel(const Vector& point) const {
        return inverseRotateVector(point - modelTranslateAmt);
    }
    /** Whether the box of what is drawn, its own place and the scale included, touches the frustum. */
    virtual bool isInFrustum(const VantrelGeometryFrustum& frustum) const;
    virtual Vector getScale() const { return modelScale; }
    /** Applied while drawing, beside the scale that the file was read with. */
    virtual void setScale(const Vector& scale);
    virtual std::uint32_t getNumberOfFaces() const;

    /** The current skin of a mesh. Without geometry the process ends; so it does with the next five. */
    virtual ModelMeshSkin& getSkin(std::uint32_t meshIndex = 0);
    virtual std::vector<ModelMeshSkin>& getSkins(std::uint32_t meshIndex = 0);
    /** A new skin. One that has no shading type yet takes shading and primitive from the first one. */
    virtual void addSkin(std::unique_ptr<Texture> texture, std::uint32_t meshIndex = 0);
    virtual void addSkin(const std::string& imageFile, std::uint32_t meshIndex = 0);
    virtual void addSkin(const ModelMeshSkin& skin, std::uint32_t meshIndex);
    virtual std::uint32_t getCurrentSkinIndex(std::uint32_t meshIndex = 0);
    /** Behind the last skin comes the first. Without geometry reports and does nothing; so do the next two.
     */
    virtual void useNextSkin(std::uint32_t meshIndex = 0);
    virtual void usePreviousSkin(std::uint32_t meshIndex = 0);
    /** An index past the end selects the last skin. */
    virtual void useSkinAtIndex(std::uint32_t skinIndex, std::uint32_t meshIndex = 0);

    /** The model has moved; the world hears of models with geometry of a file. */
    virtual void onTranslated();
    virtual void onRotated();

    WO* getParentWO() const { return parentWO; }
    const Mat4& getDisplayMatrix() const { return modelDisplayMatrix; }
    /** A rotation; what it has beside the upper left 3 by 3 must be the identity's. */
    void setDisplayMatrix(const Mat4& matrix);
    void resetRotation() { setDisplayMatrix(Mat4()); }
    /** Model space to the owner's, with the scale of `setScale`. */
    Mat4 getModelMatrix() const;
    const Vector& getTranslation() const { return modelTranslateAmt; }
    void setTranslation(const Vector& place);
    void moveRelative(const Vector& amount) { setTranslation(modelTranslateAmt + amount); }
    void rotateAboutGlobalX(float radians) { rotateAboutAxis(unitX, radians); }
    void rotateAboutGlobalY(float radians) { rotateAboutAxis(unitY, radians); }
    void rotateAboutGlobalZ(float radians) { rotateAboutAxis(unitZ, radians); }
    void rotateAboutRelX(float radians) { rotateAboutAxis(columnOf(0), radians); }
    void rotateAboutRelY(float radians) { rotateAboutAxis(columnOf(1), radians); }
    void rotateAboutRelZ(float radians) { rotateAboutAxis(columnOf(2), radians); }
    /** About a unit axis of the owner's space; the rotation point stays where it is. */
    void rotateAboutAxis(const Vector& axis, float radians);
    const Vector& getRotationPoint() const { return rotationPoint; }
    /**
     * The point nearest to `start` where a line of model space meets a triangle. Without `segmentOnly` the
     * line has no end to either side. False and nothing written when it hits none.
     */
    bool intersectRay(const Vector& start, const Vector& end, Vector& outPoint, bool segmentOnly,
                      VantrelGeometryRayVsFace* outFace = nullptr) const;
    /** The same for a line and a point of the owner's space; the face stays in model space. */
    bool intersectRayOfOwner(const Vector& start, const Vector& end, Vector& outPoint, bool segmentOnly,
                             VantrelGeometryRayVsFace& outFace) const;

    /** Whether the box is drawn too. */
    bool boundingBoxVisible = false;
    /** Whether drawing writes the depth buffer. */
    bool depthWritesEnabled = true;

protected:
    /** Takes geometry of its own, which isn't null, for a procedural model that has meshes. */
    void setModelData(std::unique_ptr<ModelDataShared> data);
    /** Takes the model's normals to eye space; they need not stay one long. */
    Mat4 getNormalMatrix(const Camera& camera) const;
    /** Those of a mesh; an index past the end means the last mesh. Null without geometry. */
    virtual ModelSkins* findSkins(std::uint32_t meshIndex);

private:
    void load(const std::string& fileName, const Vector& scale, MESH_SHADING_TYPE shadingType);
    Vector columnOf(std::size_t column) const { return Vector(&modelDisplayMatrix.m[4 * column]); }
    void tellWorld(void (WorldContainer::*hook)(Model*));
    ModelSkins& requireSkins(std::uint32_t meshIndex, const char* operation,
                             SourceLocation where = SourceLocation::current());
    ModelSkins* findSkinsOrWarn(std::uint32_t meshIndex, const char* operation,
                                SourceLocation where = SourceLocation::current());
    std::string describeNoData(const char* kind, SourceLocation where, const char* operation,
                               const char* ending) const;

    std::unique_ptr<ModelDataShared> modelData;
    WO* parentWO;
    Mat4 modelDisplayMatrix;
    Vector rotationPoint;
    Vector modelTranslateAmt;
    Vector modelScale{1.0F, 1.0F, 1.0F};
    bool scaleEnabled = false;
};

} // namespace Vantrel
