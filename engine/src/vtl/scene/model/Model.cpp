#include "vtl/scene/model/Model.h"

#include "vtl/base/Pause.h"
#include "vtl/base/Report.h"
#include "vtl/base/SourceLocation.h"
#include "vtl/geometry/VantrelGeometryFrustum.h"
#include "vtl/gl/ScopedModelMatrix.h"
#include "vtl/gl/ScopedSelectionColor.h"
#include "vtl/gl/texture/ManagerTexture.h"
#include "vtl/math/MatrixBuilders.h"
#include "vtl/math/VectorChecks.h"
#include "vtl/scene/SceneHost.h"
#include "vtl/scene/camera/Camera.h"
#include "vtl/scene/model/ManagerModelMultiplicity.h"
#include "vtl/scene/model/ModelDataShared.h"
#include "vtl/scene/object/WorldContainer.h"

#include <array>
#include <utility>

namespace Vantrel {
namespace {

/** `point` moved by `matrix`, its translation included. */
Vector transformed(const Mat4& matrix, const Vector& point) {
    return matrix * point + Vector(&matrix.m[12]);
}

/** Makes `matrix` scale before it does what it did. */
void scaleColumns(Mat4& matrix, const Vector& scale) {
    for (std::size_t row = 0; row < 4; ++row) {
        matrix[row] *= scale.x;
        matrix[4 + row] *= scale.y;
        matrix[8 + row] *= scale.z;
    }
}

/** Draws without writing depths, where a model asks for that; the shadow map is made of depths alone. */
class ScopedDepthWrites {
public:
    ScopedDepthWrites(bool enabled, const Camera& camera) : isOff(!enabled && !camera.isShadowMapCamera) {
        if (enabled || isOff) {
            glDepthMask(enabled ? GL_TRUE : GL_FALSE);
        }
    }
    ScopedDepthWrites(const ScopedDepthWrites&) = delete;
    ScopedDepthWrites& operator=(const ScopedDepthWrites&) = delete;
    ~ScopedDepthWrites() {
        if (isOff) {
            glDepthMask(GL_TRUE);
        }
    }

private:
    bool isOff;
};

} // namespace

std::unique_ptr<Model> Model::New(WO* parent, const std::string& fileName, const Vector& scale,
                                  MESH_SHADING_TYPE shadingType) {
    auto model = std::make_unique<Model>(parent);
    model->load(fileName, scale, shadingType);
    return model;
}

Model::Model(WO* parent) : parentWO(parent) {
}

Model::~Model() = default;

void Model::load(const std::string& fileName, const Vector& scale, MESH_SHADING_TYPE shadingType) {
    std::unique_ptr<ModelDataShared> data;
    ManagerModelMultiplicity::getModelData(data, fileName, scale, shadingType);
    setModelData(std::move(data));
    computeRotationPoint();
}

void Model::setModelData(std::unique_ptr<ModelDataShared> data) {
    modelData = std::move(data);
    modelData->setParentModel(this);
}

Mat4 Model::getNormalMatrix(const Camera& camera) const {
    Mat4 matrix = camera.getViewMatrix() * modelDisplayMatrix;
    if (scaleEnabled) {
        // What is stretched faces less along the stretch; a side without any length has no direction anyway.
        const auto shortened = [](float factor) { return factor != 0.0F ? 1.0F / factor : 1.0F; };
        scaleColumns(matrix,
                     Vector(shortened(modelScale.x), shortened(modelScale.y), shortened(modelScale.z)));
    }
    return matrix;
}

void Model::render(Camera* camera) {
    if (!modelData) {
        return;
    }
    const Mat4 modelMatrix = getModelMatrix();
    const Mat4 normalMatrix = getNormalMatrix(*camera);
    const ScopedModelMatrix matrix(modelMatrix, scaleEnabled);
    glEnable(GL_BLEND);
    const ScopedDepthWrites depthWrites(depthWritesEnabled, *camera);
    modelData->render({modelMatrix, normalMatrix, camera->getShaderCamera()});
    if (boundingBoxVisible) {
        modelData->boundingBox.render(camera->getShaderCamera(), modelMatrix);
    }
}

void Model::renderSelection(Camera* camera, std::uint8_t r, std::uint8_t g, std::uint8_t b) {
    if (!modelData) {
        return;
    }
    const ScopedSelectionColor color(camera->getShaderCamera(), getModelMatrix(), r, g, b);
    modelData->renderSelection(r, g, b);
}

std::string Model::getFileName() const {
    return modelData ? modelData->id.fileName : std::string();
}

Vector Model::getFileScale() const {
    return modelData ? modelData->id.scale : Vector();
}

void Model::resetTransforms() {
    modelDisplayMatrix.setIdentity();
    rotationPoint = Vector();
    modelTranslateAmt = Vector();
    modelScale = Vector(1.0F, 1.0F, 1.0F);
    scaleEnabled = false;
    onTranslated();
    onRotated();
}

const std::vector<const Vector*>* Model::getCompositeVertexList() const {
    return modelData ? &modelData->getComposite().getVertices() : nullptr;
}

const std::vector<std::uint32_t>* Model::getCompositeIndexList() const {
    return modelData ? &modelData->getComposite().getIndices() : nullptr;
}

const std::vector<Vector>* Model::getCompositeTangentList() const {
    return modelData ? modelData->getComposite().getTangents() : nullptr;
}

BoundingBox& Model::getBoundingBox() {
    static BoundingBox ofNothing;
    ofNothing.reset();
    return modelData ? modelData->boundingBox : ofNothing;
}

void Model::getBoundingBoxCorners(std::span<Vector, 8> out) const {
    getBoundingBox().getCorners(out);
    for (Vector& corner : out) {
        corner = modelToOwner(corner);
    }
}

void Model::getBoundingBoxPlanes(std::span<VantrelGeometryPlane, 6> out) const {
    std::array<Vector, 8> corners;
    getBoundingBoxCorners(corners);
    const Vector& most = corners.front();
    const Vector& least = corners.back();
    const auto through = [](const Vector& normal, const Vector& point) {
        return VantrelGeometryPlane(normal.x, normal.y, normal.z, normal.dotProduct(point));
    };
    const std::array<Vector, 3> axes{getXAxis(), getYAxis(), getZAxis()};
    out[0] = through(axes[0], most);
    out[1] = through(axes[1] * -1.0F, least);
    out[2] = through(axes[0] * -1.0F, least);
    out[3] = through(axes[1], most);
    out[4] = through(axes[2] * -1.0F, least);
    out[5] = through(axes[2], most);
}

void Model::computeRotationPoint() {
    rotationPoint = getBoundingBox().getCenter();
}

VantrelGeometryOBB Model::getOBB() const {
    const Vector look = getLookDirection();
    const Vector up = getNormalDirection();
    return {modelTranslateAmt, getBoundingBox().getLxLyLz(), look, up.crossProduct(look), up};
}

void Model::setLookDirection(const Vector& direction) {
    const Vector look = direction.normalizeMe();
    if (!isDirection(look)) {
        return;
    }
    const Vector left = acrossOr(getYAxis().normalizeMe(), getNormalDirection(), look);
    setDisplayMatrix(Mat4::fromAxes(look, left, look.crossProduct(left).normalizeMe()));
}

void Model::setNormalDirection(const Vector& direction) {
    const Vector up = direction.normalizeMe();
    if (!isDirection(up)) {
        return;
    }
    const Vector left = acrossOr(getYAxis().normalizeMe(), up, getLookDirection());
    setDisplayMatrix(Mat4::fromAxes(left.crossProduct(up).normalizeMe(), left, up));
}

Vector Model::inverseRotateVector(const Vector& v) const {
    Mat4 inverse;
    Mat4::invert(modelDisplayMatrix, inverse);
    return inverse * v;
}

bool Model::isInFrustum(const VantrelGeometryFrustum& frustum) const {
    const BoundingBox& box = getBoundingBox();
    const Mat4 matrix = getModelMatrix();
    return intersectFrustumOBB(frustum, {transformed(matrix, box.getCenter()), box.getLxLyLz(),
                                         Vector(&matrix.m[0]), Vector(&matrix.m[4]), Vector(&matrix.m[8])});
}

void Model::setScale(const Vector& scale) {
    modelScale = scale;
    scaleEnabled = true;
}

std::uint32_t Model::getNumberOfFaces() const {
    const std::vector<std::uint32_t>* const indices = getCompositeIndexList();
    return indices != nullptr ? static_cast<std::uint32_t>(indices->size() / 3) : 0;
}

ModelSkins* Model::findSkins(std::uint32_t meshIndex) {
    return modelData ? &modelData->getSkins(meshIndex) : nullptr;
}

ModelSkins& Model::requireSkins(std::uint32_t meshIndex, const char* operation, SourceLocation where) {
    ModelSkins* const skins = findSkins(meshIndex);
    if (skins == nullptr) {
        Report() << describeNoData("ERROR: ", where, operation, ". Halting Execution now...\n");
        Pause::exitNow();
    }
    return *skins;
}

ModelSkins* Model::findSkinsOrWarn(std::uint32_t meshIndex, const char* operation, SourceLocation where) {
    ModelSkins* const skins = findSkins(meshIndex);
    if (skins == nullptr) {
        Report() << describeNoData("WARNING: ", where, operation, ". Ignoring call...\n");
    }
    return skins;
}

std::string Model::describeNoData(const char* kind, SourceLocation where, const char* operation,
                                  const char* ending) const {
    ReportText text;
    text << kind << locationText(where) << ": Model::" << operation
         << "() called on Base Model with nullptr modelData... This is occuring with\n"
         << "   WO: " << (parentWO != nullptr ? parentWO->getLabel() : std::string()) << ", "
         << (parentWO != nullptr ? parentWO->getID() : 0) << ending;
    return text.str();
}

ModelMeshSkin& Model::getSkin(std::uint32_t meshIndex) {
    return requireSkins(meshIndex, "getSkin").current();
}

std::vector<ModelMeshSkin>& Model::getSkins(std::uint32_t meshIndex) {
    return requireSkins(meshIndex, "getSkins").list;
}

void Model::addSkin(std::unique_ptr<Texture> texture, std::uint32_t meshIndex) {
    addSkin(ModelMeshSkin(std::move(texture)), meshIndex);
}

void Model::addSkin(const std::string& imageFile, std::uint32_t meshIndex) {
    addSkin(ManagerTexture::loadTexture(imageFile), meshIndex);
}

void Model::addSkin(const ModelMeshSkin& skin, std::uint32_t meshIndex) {
    std::vector<ModelMeshSkin>& list = requireSkins(meshIndex, "getSkins").list;
    list.push_back(skin);
    if (skin.shadingType == MESH_SHADING_TYPE::mstNOTINITIALIZED) {
        list.back().drawLike(list.front());
    }
}

std::uint32_t Model::getCurrentSkinIndex(std::uint32_t meshIndex) {
    return requireSkins(meshIndex, "getSkins").currentIndex();
}

void Model::useNextSkin(std::uint32_t meshIndex) {
    if (ModelSkins* const skins = findSkinsOrWarn(meshIndex, "useNextSkin")) {
        skins->useNext();
    }
}

void Model::usePreviousSkin(std::uint32_t meshIndex) {
    if (ModelSkins* const skins = findSkinsOrWarn(meshIndex, "usePreviousSkin")) {
        skins->usePrevious();
    }
}

void Model::useSkinAtIndex(std::uint32_t skinIndex, std::uint32_t meshIndex) {
    if (ModelSkins* const skins = findSkinsOrWarn(meshIndex, "useSkinAtIndex")) {
        skins->useAt(skinIndex);
    }
}

void Model::onTranslated() {
    tellWorld(&WorldContainer::onModelTranslated);
}

void Model::onRotated() {
    tellWorld(&WorldContainer::onModelRotated);
}

void Model::tellWorld(void (WorldContainer::*hook)(Model*)) {
    WorldContainer* const world = modelData ? SceneHost::findWorld() : nullptr;
    if (world != nullptr) {
        (world->*hook)(this);
    }
}

void Model::setDisplayMatrix(const Mat4& matrix) {
    modelDisplayMatrix = matrix;
    onRotated();
}

Mat4 Model::getModelMatrix() const {
    Mat4 matrix = modelDisplayMatrix;
    if (scaleEnabled) {
        scaleColumns(matrix, modelScale);
    }
    matrix[12] += modelTranslateAmt.x;
    matrix[13] += modelTranslateAmt.y;
    matrix[14] += modelTranslateAmt.z;
    return matrix;
}

void Model::setTranslation(const Vector& place) {
    modelTranslateAmt = place;
    onTranslated();
}

void Model::rotateAboutAxis(const Vector& axis, float radians) {
    const bool isOffCenter = !isNearZero(rotationPoint.magnitudeSquared());
    const Vector before = isOffCenter ? rotateVector(rotationPoint) : Vector();
    Vantrel::rotateAboutAxis(axis, radians, modelDisplayMatrix);
    if (isOffCenter) {
        modelTranslateAmt += before - rotateVector(rotationPoint);
    }
    onRotated();
}

bool Model::intersectRay(const Vector& start, const Vector& end, Vector& outPoint, bool segmentOnly,
                         VantrelGeometryRayVsFace* outFace) const {
    VantrelGeometryRayVsFace face;
    if (!modelData || !modelData->getComposite().intersectRay(start, end, segmentOnly, face)) {
        return false;
    }
    outPoint = face.intersection;
    if (outFace != nullptr) {
        *outFace = face;
    }
    return true;
}

bool Model::intersectRayOfOwner(const Vector& start, const Vector& end, Vector& outPoint, bool segmentOnly,
                                VantrelGeometryRayVsFace& outFace) const {
    const Mat4 toOwner = getModelMatrix();
    Mat4 toModel;
    if (!Mat4::invert(toOwner, toModel) ||
        !intersectRay(transformed(toModel, start), transformed(toModel, end), outPoint, segmentOnly,
                      &outFace)) {
        return false;
    }
    outPoint = transformed(toOwner, outPoint);
    return true;
}

} // namespace Vantrel
