#include "vtl/scene/object/WO.h"

#include "vtl/base/ManagerSDLTime.h"
#include "vtl/base/TickSource.h"
#include "vtl/geometry/VantrelGeometryFrustum.h"
#include "vtl/scene/model/MGLNullModel.h"
#include "vtl/scene/object/WOGJoint.h"

#include "tests/support/KeyPresses.h"
#include "tests/support/ReportCapture.h"
#include "tests/support/SceneModels.h"
#include "tests/unit/math/MathTesting.h"

#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <numbers>

namespace Vantrel {
namespace {

using Tests::objectAt;

constexpr float quarterTurn = std::numbers::pi_v<float> / 2;

class Counted final : public WO {
public:
    Counted() {
        ++alive;
        onCreate();
    }
    ~Counted() override { --alive; }

    inline static int alive = 0;
};

using Color = std::array<std::uint8_t, 3>;

Color selectionColorOf(std::uint32_t id) {
    Color color{};
    WO::selectionColorOf(id, color[0], color[1], color[2]);
    return color;
}

/** Runs `act` in its first update. */
class Actor final : public WO {
public:
    explicit Actor(std::function<void()> toDo) : act(std::move(toDo)) { onCreate(); }
    void onUpdate() override {
        ++updates;
        if (const auto once = std::exchange(act, nullptr)) {
            once();
        }
    }
    int updates = 0;

private:
    std::function<void()> act;
};

class WOTest : public ::testing::Test {
protected:
    Tests::ReportCapture reports;
    Tests::KeyPresses keys;
};

TEST_F(WOTest, TakesAscendingIdsAndShowsThemAsColors) {
    const WO first;
    const WO second;
    EXPECT_GT(first.getID(), 0U);
    EXPECT_EQ(second.getID(), first.getID() + 1);
    EXPECT_EQ(selectionColorOf(0x123456), (Color{0x12, 0x34, 0x56}));
    EXPECT_EQ(selectionColorOf(0x1000001), (Color{0, 0, 1})) << "ids above 24 bits";
}

TEST_F(WOTest, CarriesItsChildrenWhenItMovesButNotWhenItTurns) {
    const auto parent = objectAt(Vector(1, 2, 3));
    WO& child = parent->addChild(objectAt(Vector(2, 2, 3)));
    WO& grandchild = child.addChild(objectAt(Vector(2, 2, 9)));
    parent->setPosition(11, 2, 3);
    parent->setPosition(11, 2, 3);
    EXPECT_EQ(child.getPosition(), Vector(12, 2, 3));
    EXPECT_EQ(grandchild.getPosition(), Vector(12, 2, 9));
    parent->moveRelative(Vector(0, 0, -3));
    EXPECT_EQ(grandchild.getPosition(), Vector(12, 2, 6));
    parent->rotateAboutGlobalZ(quarterTurn);
    parent->setPositionOfThisOnly(Vector());
    parent->moveRelativeThisOnly(Vector(5, 0, 0));
    parent->onUpdate();
    EXPECT_EQ(parent->getPosition(), Vector(5, 0, 0));
    EXPECT_EQ(child.getPosition(), Vector(12, 2, 0));
    EXPECT_EQ(child.getLookDirection(), unitX);
    EXPECT_EQ(parent->getLookDirection(), unitY);
}

TEST_F(WOTest, TurnsLockedChildrenOverTwoLevelsInOneUpdate) {
    const auto parent = objectAt(Vector(10, 0, 0));
    WO& child = parent->addChild(objectAt(Vector(12, 0, 0)));
    WO& grandchild = child.addChild(objectAt(Vector(12, 0, 1)));
    child.lockWRTparent();
    grandchild.lockWRTparent();
    parent->rotateAboutGlobalZ(quarterTurn);
    child.rotateJointAboutX(quarterTurn);
    parent->onUpdate();
    EXPECT_EQ(child.getPosition(), Vector(10, 2, 0));
    EXPECT_EQ(child.getLookDirection(), unitY);
    EXPECT_EQ(child.getNormalDirection(), unitX) << "the joint's own turn comes before the parent's";
    EXPECT_EQ(grandchild.getPosition(), Vector(11, 2, 0));
    parent->resetJoint();
    parent->onUpdate();
    EXPECT_EQ(grandchild.getPosition(), Vector(10, 2, 1));
    child.unLockWRTparent();
    child.unLockWRTparent();
    parent->unLockWRTparent();
    parent->rotateAboutGlobalZ(quarterTurn);
    parent->onUpdate();
    EXPECT_EQ(child.getPosition(), Vector(10, 2, 0));
}

TEST_F(WOTest, KeepsThePlaceOfAChildThatIsLockedToATurnedParent) {
    const auto parent = objectAt(Vector(1, 1, 1));
    parent->rotateAboutGlobalZ(0.7F);
    parent->rotateAboutRelX(0.4F);
    WO& plain = parent->addChild(objectAt(Vector(4, 5, 6)));
    WO& anchored = parent->addChild(objectAt(Vector(-3, 2, 0)));
    plain.lockWRTparent();
    anchored.lockWRTparent(std::make_unique<WOGJoint>(&anchored, Vector(2, 0, 0), unitX, unitZ));
    parent->onUpdate();
    EXPECT_EQ(plain.getPosition(), Vector(4, 5, 6));
    EXPECT_EQ(plain.getLookDirection(), parent->getLookDirection()) << "it turns as the parent does";
    EXPECT_EQ(anchored.getPosition(), Vector(-3, 2, 0));
    EXPECT_EQ(anchored.getJoint()->getAnchorWorld(), Vector(3, 1, 1));
    EXPECT_EQ(anchored.getJoint()->getLookDirection(), parent->getLookDirection());
    EXPECT_EQ(reports.text(),
              "WARNING: WorldContainer has not been fully created within GLView; newly inserted\n"
              "WO may not have had WorldContainer callbacks invoked...\n"
              "WARNING: WorldContainer has not been fully created within GLView; newly inserted\n"
              "WO may not have had WorldContainer callbacks invoked...\n");
}

TEST_F(WOTest, WarnsOfJointAxesThatAreNotAtRightAngles) {
    const auto parent = objectAt(Vector());
    WO& child = parent->addChild(objectAt(Vector(1, 0, 0)));
    reports.clear();
    const WOGJoint sound(&child, Vector(), unitX, Vector(0.0009F, 0, 1));
    EXPECT_EQ(Tests::KeyPresses::count(), 0);
    WOGJoint joint(&child, Vector(), unitX, Vector(0.002F, 0, 1));
    EXPECT_EQ(Tests::KeyPresses::count(), 1);
    joint.rotateAboutZ(quarterTurn);
    joint.rotateAboutY(quarterTurn); // about the joint's own Y, which is now the world's -X
    joint.updateChildPose();
    EXPECT_EQ(child.getPosition(), Vector(0, 0, -1));
    EXPECT_EQ(child.getNormalDirection(), unitY);
    EXPECT_EQ(
        reports.text(),
        "WARNING!!! User created a WOGJoint such that the normal vector \n   and lookDir vector"
        "are NOT PERPENDICULAR (orthogonal)!\n   Joint Rotations will probably behave unexpectedly unless\n"
        "   the user knows what he is doing and wants this behavior.\nPress a key to continue loading\n\n\n");
}

TEST_F(WOTest, OwnsItsChildrenAndLetsGoOfThoseThatDieOrLeave) {
    {
        Counted parent;
        auto* const first = new Counted;
        auto* const second = new Counted;
        auto* const third = new Counted;
        parent.getChildList().resize(1);
        for (WO* const child : {first, second, third}) {
            parent.getChildList().push_back(child);
        }
        WORef<WO> kept(second);
        const WORef<WO> copied(kept);
        delete second;
        EXPECT_FALSE(kept);
        EXPECT_FALSE(copied);
        EXPECT_EQ(parent.getChildList().size(), 3U) << "an empty place and two children";
        EXPECT_EQ(WO::countRecursive(&parent), 2U);
        EXPECT_TRUE(parent.getChildList().eraseViaWO(third));
        EXPECT_FALSE(parent.getChildList().eraseViaWO(third));
        EXPECT_EQ(third->getParentWorldObject(), &parent);
        third->lockWRTparent();
        kept = third;
        const std::unique_ptr<WO> orphan(kept.get());
        parent.setVisible(false);
        EXPECT_NE(reports.text().find("NULL child!\n"), std::string::npos);
        EXPECT_FALSE(first->isVisible());
        EXPECT_TRUE(orphan->isVisible());
    }
    EXPECT_EQ(Counted::alive, 0);
}

TEST_F(WOTest, SurvivesTheParentThatItHasLeft) {
    auto parent = objectAt(Vector(1, 0, 0));
    auto other = objectAt(Vector(2, 0, 0));
    WO& child = parent->addChild(objectAt(Vector(3, 0, 0)));
    child.lockWRTparent();
    parent->getChildList().eraseViaWO(&child);
    parent.reset();
    EXPECT_EQ(child.getParentWorldObject(), nullptr);
    child.onUpdate();
    other->getChildList().push_back(&child);
    other->rotateAboutGlobalZ(1);
    other->onUpdate();
    EXPECT_EQ(child.getPosition(), Vector(3, 0, 0)) << "its joint has no parent any more";
}

TEST_F(WOTest, ReportsAnIndexBeyondItsChildren) {
    const auto parent = objectAt(Vector());
    const std::unique_ptr<WO> child = objectAt(Vector());
    parent->getChildList().push_back(child.get());
    reports.clear();
    EXPECT_FALSE(parent->getChildList().eraseViaWOIndex(1));
    EXPECT_EQ(reports.text(),
              "ERROR: User invoked WorldObjectChildContainer::eraseViaWOIndex( size_t index )\n"
              "   with index of 1; however, size of WorldContainer is 1.\n"
              "   User attempted to access index out of bounds of WorldContainer...\n"
              "   eraseViaWOIndex is returning false...\n   Continuing normally...\n");
    EXPECT_TRUE(parent->getChildList().eraseViaWOIndex(0));
}

TEST_F(WOTest, WorksWithoutAModelAndReportsThat) {
    WO object;
    auto* const child = new WO;
    object.getChildList().push_back(child);
    reports.clear();
    object.setPosition(1, 2, 3);
    object.rotateAboutRelX(1);
    object.resetRotation();
    EXPECT_EQ(object.getPosition(), Vector());
    EXPECT_EQ(object.getNormalDirection(), unitZ);
    object.checkModelNotNull();
    EXPECT_EQ(Tests::KeyPresses::count(), 2);
    EXPECT_EQ(
        reports.count("Model is NULL! This does not comform with VANTREL best standards and practices!\n"
                      "Press ENTER to continue.\n"),
        2U);
}

TEST_F(WOTest, DescribesItsTree) {
    const auto parent = objectAt(Vector(), "mast");
    const WO& child = parent->addChild(objectAt(Vector(), "lamp"));
    const std::string text = parent->toStringRecursive(0);
    const std::string id = std::to_string(parent->getID());
    EXPECT_EQ(text.find("|----------\n|woID:" + id + "   Label: 'mast'   addr: '0x"), 0U) << text;
    EXPECT_NE(
        text.find("   parentWOID:0   parentLabel: ''\n|Class Type: 'WO'   Num children: 1\n|----------\n"
                  "   |----------\n   |woID:" +
                  std::to_string(child.getID())),
        std::string::npos)
        << text;
    EXPECT_NE(text.find("   parentWOID:" + id + "   parentLabel: 'mast'\n"), std::string::npos) << text;
}

TEST_F(WOTest, CountsTheSimulationTimeThatItHasSeen) {
    static std::uint32_t now = 100;
    setTickSource([] { return now; });
    ManagerSDLTime::init();
    const auto parent = objectAt(Vector());
    const WO& child = parent->addChild(objectAt(Vector()));
    for (const std::uint32_t step : {7U, 16U}) {
        now += step;
        ManagerSDLTime::stepSimClock();
        parent->updateGL();
    }
    setTickSource(nullptr);
    EXPECT_EQ(parent->getTimeAliveMs(), 23U);
    EXPECT_EQ(child.getTimeAliveMs(), 23U);
}

TEST_F(WOTest, LetsChildrenDieAndLeaveWhileTheyAreUpdated) {
    auto parent = objectAt(Vector());
    WO& first = parent->addChild(objectAt(Vector()));
    auto& second = parent->addChild(std::make_unique<Actor>([&] { delete &first; }));
    auto& third = parent->addChild(std::make_unique<Actor>([] {}));
    parent->onUpdate();
    EXPECT_EQ(second.updates, 1);
    EXPECT_EQ(third.updates, 1) << "nobody is left out when one before it goes";
    parent->addChild(std::make_unique<Actor>([&] { parent.reset(); }));
    parent->addChild(std::make_unique<Actor>([] { FAIL() << "it is gone with its parent"; }));
    parent->onUpdate();
    EXPECT_EQ(parent, nullptr);
}

TEST_F(WOTest, IsInOneTreeAndNeverBelowItself) {
    const auto root = objectAt(Vector());
    WO& child = root->addChild(objectAt(Vector(), "child"));
    WO& leaf = child.addChild(objectAt(Vector()));
    reports.clear();
    leaf.getChildList().push_back(&child);
    leaf.getChildList().push_back(&leaf);
    EXPECT_EQ(reports.count("not inserting"), 2U);
    EXPECT_TRUE(leaf.getChildList().empty());
    root->getChildList().push_back(&leaf);
    EXPECT_TRUE(child.getChildList().empty());
    EXPECT_EQ(WO::countRecursive(root.get()), 2U);
    root->getChildList().push_back(&child);
    EXPECT_EQ(root->getChildList().at(1), &child) << "a child that is pushed again is the last one";
}

TEST_F(WOTest, IsSeenWhenItOrAChildIsInTheView) {
    const Tests::CubeFiles files;
    const VantrelGeometryFrustum ahead(1, 90, 1, 100, unitX, unitZ, Vector());
    const auto parent = WO::New("cube.obj");
    parent->setPosition(-50, 0, 0);
    EXPECT_FALSE(parent->isInFrustum(ahead));
    WO& child = parent->addChild(WO::New("cube.obj"));
    child.setPosition(50, 0, 0);
    EXPECT_TRUE(parent->isInFrustum(ahead));
    child.setVisible(false);
    EXPECT_FALSE(parent->isInFrustum(ahead));
    child.cullable = false;
    EXPECT_TRUE(parent->isInFrustum(ahead));
}

TEST_F(WOTest, ReportsTheLowByteOfAKey) {
    const auto object = objectAt(Vector(), "mast");
    SDL_KeyboardEvent event{};
    event.keysym.sym = SDLK_SCANCODE_MASK | 'k';
    object->onKeyDown(event);
    object->onKeyUp(event);
    const std::string rest = " 'k' woID " + std::to_string(object->getID()) + " - 'mast'\n";
    EXPECT_EQ(reports.text(), "WO::onKeyDown()" + rest + "WO::onKeyUp()" + rest);
}

TEST_F(WOTest, LeavesTheTimeReportWhenItDies) {
    auto object = objectAt(Vector(), "short-lived");
    ManagerSDLTime::timesOf(*object).renderMs = 5;
    ManagerSDLTime::printTimeReport();
    EXPECT_TRUE(reports.contains("short-lived"));
    reports.clear();
    object.reset();
    ManagerSDLTime::printTimeReport();
    EXPECT_FALSE(reports.contains("short-lived"));
}

TEST_F(WOTest, PassesAClickUpToTheRoot) {
    class Listener final : public WO {
    public:
        void onChildSelected(const SDL_MouseButtonEvent& /*event*/) override { ++heard; }
        int heard = 0;
    };
    Listener root;
    WO& middle = root.addChild(objectAt(Vector()));
    WO& leaf = middle.addChild(objectAt(Vector()));
    leaf.onSelected({});
    root.onSelected({});
    EXPECT_EQ(root.heard, 1);
}

TEST_F(WOTest, FindsTheNearestFaceOfItsTreeInTheWorld) {
    const Tests::CubeFiles files;
    const auto parent = WO::New("cube.obj");
    WO& child = parent->addChild(WO::New("cube.obj"));
    child.setPosition(0, 0, 10);
    child.getModel()->setScale(Vector(2, 2, 4));
    child.rotateAboutGlobalX(quarterTurn);
    Vector point;
    VantrelGeometryRayVsFace face;
    WO* object = nullptr;
    ASSERT_TRUE(
        parent->intersectRay(Vector(0.1F, 0.2F, 100), Vector(0.1F, 0.2F, 50), point, false, &face, &object));
    EXPECT_EQ(object, &child);
    EXPECT_EQ(point, Vector(0.1F, 0.2F, 12)) << "turned on its side it is as high as it was wide";
    EXPECT_TRUE(face.hit);
    EXPECT_EQ(face.intersection, Vector(0.05F, 1, -0.05F)) << "in the child's own space";
    EXPECT_FALSE(parent->intersectRay(Vector(0.1F, 0.2F, 100), Vector(0.1F, 0.2F, 50), point, true));
    ASSERT_TRUE(
        parent->intersectRay(Vector(0.1F, 0.2F, 3), Vector(0.1F, 0.2F, 2), point, false, nullptr, &object));
    EXPECT_EQ(object, parent.get()) << "behind the start, but nearer";
    EXPECT_EQ(point, Vector(0.1F, 0.2F, 1));
}

using WODeathTest = WOTest;

TEST_F(WODeathTest, EndsTheProcessWhereItCannotGoOn) {
    const auto object = objectAt(Vector());
    const auto other = objectAt(Vector());
    const auto reported = [](auto act) {
        return [act] {
            Tests::reportToErrorOutput();
            act();
        };
    };
    EXPECT_EXIT(reported([&] { object->lockWRTparent(); })(), ::testing::ExitedWithCode(255),
                "NO PARENT IS SET YET, CANNOT LOCK WRT PARENT!\n");
    EXPECT_EXIT(reported([&] { const WOGJoint joint(object.get()); })(), ::testing::ExitedWithCode(255),
                "MUST SET A WO PARENT BEFORE CREATING A JOINT! EXITING\n");
    EXPECT_EXIT(reported([&] { object->setModel(std::make_unique<MGLNullModel>(other.get())); })(),
                ::testing::ExitedWithCode(255), "ERROR: WO::setModel\\(\\). In passed model must\n");
    EXPECT_EXIT(reported([] { WorldObjectChildContainer().push_back(nullptr); })(),
                ::testing::ExitedWithCode(255),
                "WorldObjectChildContainer::parentWO is NULL. This should be set from\n");
}

} // namespace
} // namespace Vantrel
