#include "vtl/scene/model/Model.h"

#include "vtl/geometry/VantrelGeometryFrustum.h"
#include "vtl/scene/model/MGLNullModel.h"
#include "vtl/scene/parser/ReadingGuard.h"

#include "tests/support/KeyPresses.h"
#include "tests/support/ReportCapture.h"
#include "tests/support/SceneModels.h"

#include <cmath>
#include <gtest/gtest.h>
#include <numbers>
#include <stdexcept>

namespace Vantrel {
namespace {

constexpr float quarterTurn = std::numbers::pi_v<float> / 2;
const Vector one(1, 1, 1);

class ModelTest : public ::testing::Test {
protected:
    static std::unique_ptr<Model> cube(const std::string& file = "cube.obj", const Vector& scale = one) {
        return Model::New(nullptr, file, scale, MESH_SHADING_TYPE::mstAUTO);
    }

    Tests::ReportCapture reports;
    Tests::KeyPresses keys;
    Tests::CubeFiles files;
};

TEST_F(ModelTest, SharesOneReadingOfAFileAsLongAsSomebodyUsesIt) {
    auto first = cube();
    auto second = cube();
    EXPECT_EQ(Tests::CubeParser::parseCount, 1);
    EXPECT_EQ(first->getCompositeVertexList(), second->getCompositeVertexList());
    EXPECT_NE(&first->getSkin(), &second->getSkin());
    const auto larger = cube("cube.obj", one * 2);
    const auto nearly = cube("cube.obj", Vector(1, 1, 1.00001F));
    const auto otherCase = cube("Cube.OBJ");
    EXPECT_EQ(Tests::CubeParser::parseCount, 4);
    for (const float odd : {std::nanf(""), -0.0F, 0.0F}) {
        const auto odds = cube("odd.obj", Vector(1, odd, 1));
        const auto again = cube("odd.obj", Vector(1, odd, 1));
        EXPECT_EQ(odds->getCompositeIndexList(), again->getCompositeIndexList());
    }
    Tests::CubeParser::parseCount = 4;
    EXPECT_EQ(larger->getBoundingBox().getMax(), one * 2);
    EXPECT_EQ(larger->getFileName(), "cube.obj");
    EXPECT_EQ(larger->getFileScale(), one * 2);
    first.reset();
    EXPECT_EQ(second->getNumberOfFaces(), 12U);
    cube();
    EXPECT_EQ(Tests::CubeParser::parseCount, 4);
    second.reset();
    second = cube();
    EXPECT_EQ(Tests::CubeParser::parseCount, 5);
    ManagerModelMultiplicity::shutdown();
    EXPECT_EQ(second->getCompositeVertexList()->size(), 8U) << "what outlives the registry keeps its data";
    const auto third = cube();
    const ModelDataShared copy(*third->getModelDataShared());
    second.reset();
    cube();
    EXPECT_EQ(Tests::CubeParser::parseCount, 6) << "an old instance doesn't count for the new reading";
}

TEST_F(ModelTest, PutsTheMeshesOfAFileInOneList) {
    const auto model = cube("two.obj");
    const ModelComposite& composite = model->getModelDataShared()->getComposite();
    ASSERT_EQ(model->getCompositeIndexList()->size(), 72U);
    EXPECT_EQ(model->getCompositeIndexList()->at(36), 8U);
    EXPECT_EQ(*model->getCompositeVertexList()->at(9), Vector(4, -1, -1));
    EXPECT_EQ(composite.findMeshVertex(9), std::pair(1U, 1U));
    EXPECT_EQ(composite.findMeshVertex(7), std::pair(0U, 7U));
    EXPECT_EQ(composite.findMeshVertex(16), std::nullopt);
    EXPECT_EQ(model->getBoundingBox().getMax(), Vector(4, 1, 1));
    EXPECT_EQ(model->getCompositeTangentList(), nullptr);
    model->setTranslation(Vector(1, 0, 0));
    ModelMesh& mesh = model->getModelDataShared()->getMeshes()[1];
    EXPECT_EQ(mesh.getParentModel(), model.get());
    mesh.setParentModel(model.get());
    EXPECT_EQ(mesh.getCenterOffset(), Vector(2, 0, 0));
}

TEST_F(ModelTest, HitsTrianglesAlone) {
    std::vector<ModelMeshSource> sources;
    sources.push_back(Tests::boxMesh(Vector(0, 0, 5), Vector(1, 1, 6)));
    sources[0].generator->sourcePrimitive = GL_LINES;
    sources.push_back(Tests::boxMesh(Vector(), one));
    const ModelDataShared data(std::move(sources));
    VantrelGeometryRayVsFace face;
    ASSERT_TRUE(data.getComposite().intersectRay(Vector(0.2F, 0.3F, 9), Vector(0.2F, 0.3F, 8), false, face));
    EXPECT_EQ(face.intersection, Vector(0.2F, 0.3F, 1));
    EXPECT_GE(face.index0, 8U) << "a vertex of the second mesh";
}

TEST_F(ModelTest, GathersTheTangentsOfItsMeshes) {
    std::vector<ModelMeshSource> sources;
    sources.push_back(Tests::boxMesh(Vector(), one));
    sources.push_back(Tests::boxMesh(Vector(), one));
    GLSLAttributeArray tangents("tangent", atVEC3);
    tangents.resize(8);
    tangents.setAt(7, Vector(0, 5, 0));
    sources[1].generator->attributeArrays = {GLSLAttributeArray("tangent", atFLOAT), tangents};
    ModelDataShared data(std::move(sources));
    reports.clear();
    data.onAllContainedMeshesHaveBeenSentServerSide();
    EXPECT_EQ(reports.text(),
              "ModelDataShared::onAllContainedMeshesHaveBeenSentServerSide()... Populated 8 tangents...\n");
    ASSERT_EQ(data.getComposite().getTangents()->size(), 8U);
    EXPECT_EQ(data.getComposite().getTangents()->back(), Vector(0, 5, 0));
    VantrelGeometryRayVsFace face;
    ASSERT_TRUE(data.getComposite().intersectRay(Vector(0.2F, 0.3F, 9), Vector(0.2F, 0.3F, 8), false, face));
    EXPECT_TRUE(face.hasVertexTangents) << "though there are fewer tangents than vertices";
}

TEST_F(ModelTest, TurnsAboutTheMiddleOfItsBox) {
    const auto model = cube("two.obj");
    model->setTranslation(Vector(10, 0, 0));
    const Vector middle(1.5F, 0, 0);
    EXPECT_EQ(model->getRotationPoint(), middle);
    model->rotateAboutGlobalZ(quarterTurn);
    EXPECT_EQ(model->getTranslation(), Vector(11.5F, -1.5F, 0));
    model->rotateAboutRelX(1.0F);
    EXPECT_EQ(model->modelToOwner(middle), Vector(11.5F, 0, 0));
    EXPECT_EQ(model->ownerToModel(model->modelToOwner(Vector(1, 2, 3))), Vector(1, 2, 3));
    EXPECT_EQ(model->inverseRotateVector(model->rotateVector(Vector(1, 2, 3))), Vector(1, 2, 3));
    model->resetTransforms();
    EXPECT_EQ(model->getTranslation(), Vector());
    model->rotateAboutGlobalZ(quarterTurn);
    EXPECT_EQ(model->getTranslation(), Vector()) << "the rotation point is reset too";
}

TEST_F(ModelTest, LooksWhereItIsTold) {
    MGLNullModel model(nullptr);
    struct Row {
        Vector look;
        Vector expectedNormal;
    };
    for (const Row& row : {Row{Vector(0, 3, 0), unitZ}, Row{Vector(1, 0, 1), Vector(-1, 0, 1)},
                           Row{Vector(0, 0, 2), Vector(-1, 0, 0)}, Row{Vector(0, 0, -2), Vector(1, 0, 0)}}) {
        model.resetRotation();
        model.setLookDirection(row.look);
        const Vector look = row.look.normalizeMe();
        EXPECT_EQ(model.getLookDirection(), look);
        EXPECT_EQ(model.getNormalDirection(), row.expectedNormal.normalizeMe());
        EXPECT_EQ(model.getXAxis().crossProduct(model.getYAxis()), model.getZAxis());
    }
    model.resetRotation();
    for (const Vector& none : {Vector(), Vector(std::nanf(""), 0, 0), Vector(INFINITY, 0, 0)}) {
        model.setLookDirection(none);
        model.setNormalDirection(none);
        EXPECT_EQ(model.getDisplayMatrix().m, Mat4().m) << "no direction changes nothing";
    }
    model.setNormalDirection(Vector(0, -2, 0));
    EXPECT_EQ(model.getNormalDirection(), Vector(0, -1, 0));
    EXPECT_EQ(model.getLookDirection(), unitX);
    model.resetRotation();
    model.setNormalDirection(Vector(-4, 0, 0));
    EXPECT_EQ(model.getLookDirection(), unitZ) << "the look was along the normal";
}

TEST_F(ModelTest, KnowsItsTurnedBox) {
    const auto model = cube("two.obj");
    model->resetTransforms();
    model->rotateAboutGlobalZ(quarterTurn);
    model->setTranslation(Vector(0, 0, 5));
    std::array<Vector, 8> corners;
    model->getBoundingBoxCorners(corners);
    EXPECT_EQ(corners[0], Vector(-1, 4, 6));
    EXPECT_EQ(corners[7], Vector(1, -1, 4));
    std::array<VantrelGeometryPlane, 6> planes;
    model->getBoundingBoxPlanes(planes);
    const std::array<Vector, 6> normals{unitY, unitX, unitY * -1, unitX * -1, unitZ * -1, unitZ};
    const std::array<float, 6> distances{4, 1, 1, 1, -4, 6};
    for (std::size_t i = 0; i < planes.size(); ++i) {
        EXPECT_EQ(planes[i].getNormal(), normals[i]) << i;
        EXPECT_NEAR(planes[i].d, distances[i], 1e-5F) << i;
    }
    const VantrelGeometryOBB box = model->getOBB();
    EXPECT_EQ(box.center, Vector(0, 0, 5));
    EXPECT_EQ(box.halfExtents, Vector(2.5F, 1, 1));
    EXPECT_EQ(box.axes[1], Vector(-1, 0, 0));
}

TEST_F(ModelTest, IsSeenWhereverAnyOfItIsDrawn) {
    const VantrelGeometryFrustum ahead(1, 90, 1, 100, unitX, unitZ, Vector());
    const auto model = cube("two.obj"); // from -1 to 4 along X
    struct Row {
        Vector place;
        Vector scale;
        bool isSeen;
    };
    for (const Row& row :
         {Row{Vector(50, 0, 0), one, true}, Row{Vector(-50, 0, 0), one, false},
          Row{Vector(-2.9F, 0, 0), one, true}, Row{Vector(-3.1F, 0, 0), one, false},
          Row{Vector(-6, 0, 0), Vector(2, 1, 1), true}, Row{Vector(101.5F, 0, 0), one, false}}) {
        model->setScale(row.scale);
        model->setTranslation(row.place);
        EXPECT_EQ(model->isInFrustum(ahead), row.isSeen) << row.place.toString();
    }
    MGLNullModel procedural(nullptr);
    procedural.setTranslation(Vector(-50, 0, 0));
    EXPECT_TRUE(procedural.isInFrustum(ahead));
}

TEST_F(ModelTest, CyclesThroughItsSkins) {
    const auto file = cube("two.obj");
    MGLNullModel procedural(nullptr);
    procedural.addSkin(ModelMeshSkin());
    for (Model* const model : {file.get(), static_cast<Model*>(&procedural)}) {
        ModelMeshSkin second;
        second.setColor(1, 2, 3, 4);
        model->addSkin(second, 1);
        ASSERT_EQ(model->getSkins(1).size(), 2U);
        model->useNextSkin(1);
        EXPECT_EQ(model->getCurrentSkinIndex(1), 1U);
        EXPECT_NEAR(model->getSkin(1).color.b * 255, 3, 1e-3F);
        model->useNextSkin(1);
        EXPECT_EQ(model->getCurrentSkinIndex(1), 0U);
        model->usePreviousSkin(1);
        EXPECT_EQ(model->getCurrentSkinIndex(1), 1U);
        model->useSkinAtIndex(0, 1);
        model->useSkinAtIndex(77, 1);
        EXPECT_EQ(model->getCurrentSkinIndex(1), 1U);
        EXPECT_EQ(&model->getSkin(99), &model->getSkin(1)) << "beyond the last mesh";
    }
    EXPECT_EQ(file->getSkins(0).size(), 1U);
}

TEST_F(ModelTest, FindsTheEndingAnywhereInTheName) {
    EXPECT_EQ(cube("cube.Obj.bak")->getNumberOfFaces(), 12U);
    const auto former = ManagerModelMultiplicity::setParser(".wrl", newModelParser<Tests::CubeParser>);
    ManagerModelMultiplicity::setParser(".obj", nullptr);
    EXPECT_EQ(cube("cube.obj.wrl")->getNumberOfFaces(), 12U) << "this ending is looked for first";
    EXPECT_EQ(ManagerModelMultiplicity::setParser(".wrl", former), &newModelParser<Tests::CubeParser>);
}

TEST_F(ModelTest, ShowsNothingOfAFileWithoutMeshes) {
    const auto model = cube("none.obj");
    EXPECT_EQ(model->getNumberOfFaces(), 0U);
    model->getSkin().setColor(1, 2, 3, 4);
    model->useNextSkin();
    EXPECT_TRUE(model->isInFrustum(VantrelGeometryFrustum(1, 90, 1, 100, unitX, unitZ, Vector(-9, 0, 0))));
    Vector point;
    EXPECT_FALSE(model->intersectRay(Vector(), unitX, point, false));
}

TEST_F(ModelTest, AnEmptyBoxIsAPointWhereTheModelIs) {
    MGLNullModel model(nullptr);
    model.setTranslation(Vector(1, 2, 3));
    std::array<Vector, 8> corners;
    model.getBoundingBoxCorners(corners);
    EXPECT_EQ(corners[3], Vector(1, 2, 3));
    model.computeRotationPoint();
    EXPECT_EQ(model.getRotationPoint(), Vector());
    EXPECT_EQ(model.getOBB().halfExtents, Vector());
    EXPECT_EQ(model.getNumberOfFaces(), 0U);
    Vector point;
    EXPECT_FALSE(model.intersectRay(Vector(), unitX, point, false));
}

TEST_F(ModelTest, TellsOfVertexBuffers) {
    ManagerModelMultiplicity::init();
    EXPECT_EQ(reports.text(), "NO SUPPORT for Server-side Vertex Buffer Objects (VBOs)...\n"
                              "Using Client-side Vertex Arrays (VAs)...\n");
}

TEST_F(ModelTest, SkipsSkinOperationsOnAModelWithoutGeometry) {
    const auto owner = Tests::objectAt(Vector(), "Mast");
    Model model(owner.get());
    const std::string who = "   WO: Mast, " + std::to_string(owner->getID()) + ". Ignoring call...\n";
    model.useNextSkin();
    EXPECT_EQ(reports.text().find("WARNING: Model.cpp:"), 0U);
    EXPECT_TRUE(reports.contains(
        ": Model::useNextSkin() called on Base Model with nullptr modelData... This is occuring with\n" +
        who));
    model.usePreviousSkin();
    model.useSkinAtIndex(0);
    EXPECT_EQ(reports.count(who), 3U);
}

using ModelDeathTest = ModelTest;

TEST_F(ModelDeathTest, EndsTheProcessWhereThereIsNothingToShow) {
    Model model(nullptr);
    const auto reported = [](auto act) {
        return [act] {
            Tests::reportToErrorOutput();
            act();
        };
    };
    EXPECT_EXIT(
        reported([&] { model.getSkin(); })(), ::testing::ExitedWithCode(255),
        "Model::getSkin\\(\\) called on Base Model with nullptr modelData(.|\n)*Halting Execution now");
    EXPECT_EXIT(reported([&] { model.addSkin(ModelMeshSkin(), 0); })(), ::testing::ExitedWithCode(255),
                "ERROR: Model.cpp:[0-9]+: Model::getSkins\\(\\) called on Base Model");
    for (const char* const file : {"broken.obj", "cube.dae", "", "none.3ds"}) {
        EXPECT_EXIT(reported([&] { cube(file); })(), ::testing::ExitedWithCode(255),
                    "ManagerModelMultiplicity Failed to load file '" + std::string(file) +
                        "'...\nPress ENTER to exit...\n");
    }
    EXPECT_EXIT(reported([&] { cube("cube.obj.wrl"); })(), ::testing::ExitedWithCode(255),
                "ERROR: Can't Find File: cube.obj.wrl\n$");
}

TEST(ReadingGuardDeathTest, EndsTheProcessWhateverIsThrown) {
    const auto exitWith = [](auto thrown) {
        Tests::reportToErrorOutput();
        readOrExit([&thrown]() -> int { throw thrown; });
    };
    const std::runtime_error full("full");
    const std::runtime_error silent("");
    EXPECT_EXIT(exitWith(full), ::testing::ExitedWithCode(255), "Exception thrown!\nfull\n$");
    EXPECT_EXIT(exitWith(silent), ::testing::ExitedWithCode(255), "Exception thrown!\nUnknown exception\n$");
    EXPECT_EXIT(exitWith(static_cast<const std::exception*>(&full)), ::testing::ExitedWithCode(255),
                "Exception\\* thrown!\nfull\n$");
    EXPECT_EXIT(exitWith(5), ::testing::ExitedWithCode(255), "Non-exception thrown\n$");
}

} // namespace
} // namespace Vantrel
