#include "vtl/scene/object/WorldList.h"

#include "vtl/scene/SceneHost.h"
#include "vtl/scene/camera/CameraStandardEZNav.h"
#include "vtl/scene/gui/IFaceGUIWidget.h"
#include "vtl/scene/model/Model.h"

#include "tests/support/ReportCapture.h"
#include "tests/support/SceneModels.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <limits>
#include <memory>
#include <string>
#include <vector>

namespace Vantrel {
namespace {

class WorldListTest : public ::testing::Test {
protected:
    /** An object of that type at x, at the end of the list. */
    WO& add(const std::string& label, std::uint8_t type, float x) {
        WO& object = *objects.emplace_back(Tests::objectAt(Vector(x, 0, 0), label));
        object.renderOrderType = type;
        list.push_back(&object);
        return object;
    }
    std::string order() {
        std::string labels;
        for (std::size_t i = 0; i < list.size(); ++i) {
            labels += list.at(i)->getLabel();
        }
        return labels;
    }
    std::string sorted() {
        list.sort(&camera);
        return order();
    }

    class List final : public WorldList {
    public:
        bool isSortDue() const { return needsFullSort; }
    };

    Tests::ReportCapture reports;
    CameraStandardEZNav camera{nullptr, nullptr};
    List list;
    std::vector<std::unique_ptr<WO>> objects;
};

TEST_F(WorldListTest, DrawsByOrderTypeAndFromFarToNear) {
    add("x", 4, 0);
    add("a", 3, 5);
    add("b", 3, 20);
    add("1", 1, 0);
    add("c", 3, -5);
    add("0", 0, 0);
    add("y", 4, 0);
    add("d", 2, 1);
    add("2", 1, 0);
    add("z", 0, 0);
    EXPECT_EQ(sorted(), "0z12bcadxy") << "of equal distances the later one first, unknown types by distance";
    EXPECT_EQ(sorted(), "0z12bcadxy") << "and so it stays";
    camera.setPosition(20, 0, 0);
    EXPECT_EQ(sorted(), "0z12cdabxy");
    objects[2]->renderOrderType = 1;
    EXPECT_EQ(sorted(), "0z12bcdaxy") << "an object that has changed its type";
    objects[0]->renderOrderType = 3;
    EXPECT_EQ(sorted(), "0z12bcxday");
}

TEST_F(WorldListTest, SortsWhatHasNoUsableDistance) {
    add("a", 3, std::numeric_limits<float>::quiet_NaN());
    add("b", 3, 1);
    add("c", 3, std::numeric_limits<float>::infinity());
    auto& empty = *objects.emplace_back(std::make_unique<WO>());
    empty.setLabel("e");
    list.push_back(&empty);
    EXPECT_EQ(sorted(), "cbea");
}

TEST_F(WorldListTest, KeepsItsOrderWhenItIsNotSorted) {
    WorldList plain(false);
    const auto near = Tests::objectAt(Vector(1, 0, 0));
    const auto far = Tests::objectAt(Vector(9, 0, 0));
    plain.push_back(near.get());
    plain.push_back(far.get());
    plain.sort(&camera);
    EXPECT_EQ(plain.at(0), near.get());
}

TEST_F(WorldListTest, LosesWhatDiesAndWhatIsErased) {
    for (const char* const label : {"a", "b", "c", "d"}) {
        add(label, 3, 0);
    }
    list.push_back(objects[1].get());
    WorldList other;
    other.push_back(objects[1].get());
    sorted();
    objects.erase(objects.begin() + 1);
    EXPECT_EQ(other.size(), 0U);
    EXPECT_EQ(sorted().find('b'), std::string::npos);
    EXPECT_EQ(list.size(), 3U);
    EXPECT_TRUE(list.eraseViaWO(objects[0].get()));
    EXPECT_FALSE(list.eraseViaWO(objects[0].get()));
    EXPECT_FALSE(list.eraseViaWO(nullptr));
    EXPECT_EQ(sorted().size(), 2U);
    reports.clear();
    EXPECT_FALSE(list.eraseViaWOIndex(2));
    EXPECT_EQ(reports.text(), "ERROR: User invoked WorldContainer::eraseViaWOIndex( size_t index )\n"
                              "   with index of 2; however, size of WorldContainer is 2.\n"
                              "   User attempted to access index out of bounds of WorldContainer...\n"
                              "   eraseViaWOIndex is returning false...\n   Continuing normally...\n");
    list.clear();
    EXPECT_EQ(sorted(), "");
    objects.clear();
}

TEST_F(WorldListTest, LetsObjectsDieWhileItGoesThroughThem) {
    for (const char* const label : {"a", "b", "c", "d"}) {
        add(label, 3, 0);
    }
    std::string visited;
    list.forEachTimed(Stopwatch::object, &ObjectTimes::onUpdateMs, [&](WO& object) {
        visited += object.getLabel();
        if (object.getLabel() == "b") {
            objects.erase(objects.begin());
        } else if (object.getLabel() == "c") {
            objects.erase(objects.begin() + 1);
        }
    });
    EXPECT_EQ(visited, "abcd");
    for (std::unique_ptr<WO>& object : objects) {
        (void)object.release(); // NOLINT: the list destroys them
    }
    list.destroyAll();
    EXPECT_EQ(list.size(), 0U);
}

TEST_F(WorldListTest, FindsTopLevelObjectsAlone) {
    WO& parent = add("p", 3, 0);
    const WO& child = parent.addChild(Tests::objectAt(Vector(), "k"));
    EXPECT_EQ(list.getWOByID(parent.getID()), &parent);
    EXPECT_EQ(list.getWOByID(child.getID()), nullptr);
    EXPECT_EQ(list.getIndexOfWO(&parent), 0);
    EXPECT_EQ(list.getIndexOfWO(&child), -1);
    EXPECT_FALSE(list.contains(&child));
    reports.clear();
    EXPECT_EQ(list.getIndexOfWORecursive(&parent), -1);
    EXPECT_EQ(reports.text(), "WARNING: int Vantrel::WorldContainer::getIndexOfWORecursive( WO* wo )...\n"
                              "   Not Yet Implemented... Returning -1...\n\n");
    EXPECT_NE(list.toString().find("'k'"), std::string::npos);
}

TEST_F(WorldListTest, RefusesWidgetsWithoutARootForThem) {
    class Widget final : public WO, public IFaceGUIWidget {};
    Widget widget;
    for (WO* const refused : {static_cast<WO*>(nullptr), static_cast<WO*>(&widget)}) {
        sorted();
        reports.clear();
        list.push_back(refused);
        EXPECT_TRUE(list.isSortDue());
    }
    EXPECT_EQ(list.size(), 0U);
    EXPECT_EQ(reports.text().find(
                  "ERROR: No rootGUI was created, not inserting WOGUI object...WorldContainer.cpp:"),
              0U);
    EXPECT_FALSE(list.eraseViaWO(&widget));
    EXPECT_EQ(list.sizeGUI(), 0U);
    EXPECT_EQ(list.getGUIWidgetAt(0), nullptr);
    EXPECT_EQ(list.getIndexOfGUIWidget(&widget), -1);
    EXPECT_EQ(list.getGUIWidgetAtPixel(0, 0), nullptr);
    EXPECT_EQ(list.toStringGUI(), "");
}

TEST_F(WorldListTest, TogglesTheBoxesOfModelsAndMeshesWithTheirChildren) {
    const Tests::CubeFiles files;
    WO& parent = *objects.emplace_back(WO::New("two.obj"));
    list.push_back(&parent);
    WO& child = parent.addChild(WO::New("two.obj"));
    parent.addChild(Tests::objectAt(Vector())).addChild(std::make_unique<WO>());
    list.toggleModelBoundingBoxes();
    list.toggleMeshBoundingBoxes();
    for (const WO* const object : {&parent, &child}) {
        EXPECT_TRUE(object->getModel()->boundingBoxVisible);
        for (const ModelMesh& mesh : object->getModel()->getModelDataShared()->getMeshes()) {
            EXPECT_TRUE(mesh.boundingBoxVisible);
        }
    }
    list.toggleModelBoundingBoxes();
    EXPECT_FALSE(child.getModel()->boundingBoxVisible);
    objects.clear();
}

/** Remembers what the hooks of a world tell. */
class ListeningWorld final : public WorldList, public SceneHost {
public:
    ListeningWorld() { SceneHost::set(this); }
    ~ListeningWorld() override { SceneHost::set(nullptr); }

    Camera* getCamera() override { return nullptr; }
    WorldContainer* getWorldContainer() override { return this; }
    void onModelTranslated(Model* /*model*/) override { heard += 't'; }
    void onModelRotated(Model* /*model*/) override { heard += 'r'; }
    void onChildErased(WO* /*child*/) override { heard += 'e'; }
    void onChildInserted(WO* /*child*/, WO* root) override { heard += root->getLabel(); }

    std::string heard;
};

TEST_F(WorldListTest, HearsOfChildrenAndMovesInItsTrees) {
    const Tests::CubeFiles files;
    ListeningWorld world;
    const auto root = Tests::objectAt(Vector(), "R");
    const auto outside = Tests::objectAt(Vector(), "O");
    world.push_back(root.get());
    WO& child = root->addChild(Tests::objectAt(Vector()));
    child.addChild(Tests::objectAt(Vector()));
    outside->addChild(Tests::objectAt(Vector()));
    EXPECT_EQ(world.heard, "RR");
    world.heard.clear();
    const std::unique_ptr<WO> erased(&child);
    root->getChildList().eraseViaWO(&child);
    const auto model = WO::New("cube.obj");
    model->setPosition(1, 2, 3);
    model->rotateAboutRelX(1);
    root->setPosition(1, 2, 3);
    EXPECT_EQ(world.heard, "etr") << "a model without a file tells nothing";
}

} // namespace
} // namespace Vantrel
