#include "vtl/scene/camera/CameraStandard.h"

#include "vtl/math/MatrixBuilders.h"
#include "vtl/scene/camera/CameraOrthoTopDown.h"
#include "vtl/scene/camera/CameraStandardEZNav.h"
#include "vtl/scene/object/WOGJoint.h"

#include "tests/support/SelectingHost.h"
#include "tests/support/SteeredCamera.h"
#include "tests/unit/math/MathTesting.h"

#include <cmath>

namespace Vantrel {
namespace {

using Tests::expectNear;
using Tests::HeldKey;
using Tests::objectAt;

/** The object under the mouse stands at (10, 0, 0); the surface is hit at (10, 0, 1). */
template <class Steered>
class OrbitTest : public Tests::SteeredCamera<Steered> {
protected:
    OrbitTest() {
        selector.selected = object.get();
        selector.coordinate = Vector(10, 0, 1);
        this->camera.setPosition(10, -20, 1);
    }
    void startOrbit() {
        const HeldKey alt(SDL_SCANCODE_LALT);
        this->press(SDL_BUTTON_LEFT);
    }

    std::unique_ptr<WO> object = objectAt(Vector(10, 0, 0));
    Tests::SelectingHost selector;
};

using Orbiting = ::testing::Types<CameraStandard, CameraStandardEZNav>;
TYPED_TEST_SUITE(OrbitTest, Orbiting);

TYPED_TEST(OrbitTest, GoesRoundThePointThatWasClicked) {
    TypeParam& eye = this->camera;
    this->startOrbit();
    ASSERT_TRUE(eye.getIsLockedWRTparent());
    struct Row {
        bool ctrl;
        int dx;
        int dy;
        float azimuth;
        float elevation;
        float distance;
    };
    constexpr float rate = 0.0055F;
    const float south = 1.5F * Tests::pi;
    for (const Row& row : {Row{false, 0, 0, south, 0, 14}, Row{true, 7, 100, south, 100 * rate, 14},
                           Row{false, 30, 50, south - 30 * rate, 100 * rate, 30},
                           Row{true, 0, -250, south - 30 * rate, -150 * rate, 30}}) {
        const std::unique_ptr<HeldKey> ctrl =
            row.ctrl ? std::make_unique<HeldKey>(SDL_SCANCODE_LCTRL) : nullptr;
        if (row.dx != 0 || row.dy != 0) {
            this->drag(row.dx, row.dy);
        }
        eye.update();
        const Vector outwards(std::cos(row.azimuth) * std::cos(row.elevation),
                              std::sin(row.azimuth) * std::cos(row.elevation), std::sin(row.elevation));
        expectNear(eye.getPosition(), Vector(10, 0, 1) + outwards * row.distance, 1e-3F);
        expectNear(eye.getLookDirection(), outwards * -1, 1e-4F);
        EXPECT_NEAR(Tests::columnOf(eye.getDisplayMatrix(), 1).z, 0, 1e-5F);
        Tests::expectRotation(eye.getDisplayMatrix());
    }
    const Vector before = eye.getPosition();
    this->object->setPosition(20, 0, 0);
    eye.update();
    expectNear(eye.getPosition(), before + Vector(10, 0, 0), 1e-3F);
    this->letGo(SDL_BUTTON_LEFT);
    EXPECT_FALSE(eye.getIsLockedWRTparent());
    eye.update();
    expectNear(eye.getPosition(), before + Vector(10, 0, 0), 1e-3F);
}

TYPED_TEST(OrbitTest, StaysARotationStraightAboveAndAtThePoint) {
    TypeParam& eye = this->camera;
    this->startOrbit();
    for (const Vector& axis : {unitZ, unitX}) {
        eye.setHorizontalRotationAxis(axis);
        for (const int dy : {0, -100, 5}) { // 100 pixels are the whole distance
            this->drag(0, dy);
            eye.update();
            Tests::expectRotation(eye.getDisplayMatrix());
        }
    }
    eye.setHorizontalRotationAxis(unitZ);
    const HeldKey ctrl(SDL_SCANCODE_LCTRL);
    this->drag(0, 286); // a quarter turn, nearly
    eye.update();
    Tests::expectRotation(eye.getDisplayMatrix());
    this->object.reset();
    const Vector place = eye.getPosition();
    eye.update();
    this->letGo(SDL_BUTTON_LEFT);
    expectNear(eye.getPosition(), place, 0);
}

TYPED_TEST(OrbitTest, AttachesOnlyToAnObjectUnderTheLeftButtonWithAlt) {
    TypeParam& eye = this->camera;
    this->press(SDL_BUTTON_LEFT);
    EXPECT_FALSE(eye.getIsLockedWRTparent());
    this->letGo(SDL_BUTTON_LEFT);
    const HeldKey alt(SDL_SCANCODE_LALT);
    this->press(SDL_BUTTON_RIGHT);
    EXPECT_FALSE(eye.getIsLockedWRTparent());
    EXPECT_EQ(this->reports.text(), "");
    this->selector.selected = nullptr;
    this->press(SDL_BUTTON_LEFT);
    EXPECT_EQ(this->reports.text(), "User did NOT click on a WO... Cannot attach camera...\n");
}

using CameraStandardTest = Tests::SteeredCamera<CameraStandard>;

TEST_F(CameraStandardTest, SteersAsTheBaseDoesWhileItIsFree) {
    press(SDL_BUTTON_LEFT);
    press(SDL_BUTTON_RIGHT);
    drag(0, -6);
    const float angle = -6 / 285.0F;
    expectNear(camera.getLookDirection(), Vector(std::cos(angle), 0, -std::sin(angle)), 1e-5F);
    expectNear(camera.getPosition(), camera.getLookDirection() * 0.7F, 1e-5F);
}

using CameraOrthoTopDownTest = Tests::SteeredCamera<CameraOrthoTopDown>;

TEST_F(CameraOrthoTopDownTest, IsDraggedAlongTheGround) {
    press(SDL_BUTTON_RIGHT);
    drag(30, 40);
    expectNear(camera.getPosition(), Vector(), 0);
    press(SDL_BUTTON_LEFT);
    drag(30, 40);
    expectNear(camera.getPosition(), Vector(30, -40, 0), 0);
    expectNear(camera.getLookDirection(), unitX, 0);
}

using CameraStandardEZNavTest = Tests::SteeredCamera<CameraStandardEZNav>;

TEST_F(CameraStandardEZNavTest, CountsTheWheel) {
    struct Row {
        int turned;
        int keys;
        const char* report;
    };
    for (const Row& row : {Row{2, 0, "2, wheelScroll count 2, velocity (m/frame) 0.7\n"},
                           Row{1, 2, "3, wheelScroll count 3, velocity (m/frame) 1.05\n"},
                           Row{0, 0, "3, wheelScroll count 3, velocity (m/frame) 1.05\n"},
                           Row{1, 1, "13, wheelScroll count 13, velocity (m/frame) 4.55\n"},
                           Row{1, 3, "113, wheelScroll count 113, velocity (m/frame) 39.55\n"},
                           Row{-1, 3, "13, wheelScroll count 13, velocity (m/frame) 4.55\n"},
                           Row{-1, 1, "3, wheelScroll count 3, velocity (m/frame) 1.05\n"},
                           Row{-5, 0, "2, wheelScroll count 2, velocity (m/frame) 0.7\n"},
                           Row{-1, 0, "1, wheelScroll count 1, velocity (m/frame) 0.35\n"},
                           Row{-1, 0, "1, wheelScroll count 0, velocity (m/frame) 0.35\n"},
                           Row{-1, 0, "1, wheelScroll count -1, velocity (m/frame) 0.35\n"},
                           Row{-1, 0, "0.5, wheelScroll count -2, velocity (m/frame) 0.175\n"}}) {
        const std::unique_ptr<HeldKey> ctrl =
            (row.keys & 1) != 0 ? std::make_unique<HeldKey>(SDL_SCANCODE_LCTRL) : nullptr;
        const std::unique_ptr<HeldKey> alt =
            (row.keys & 2) != 0 ? std::make_unique<HeldKey>(SDL_SCANCODE_LALT) : nullptr;
        reports.clear();
        camera.onMouseWheelScroll(Tests::wheelEvent(row.turned));
        EXPECT_EQ(reports.text(), std::string("Cam velocity multiplier ") + row.report);
    }
    reports.clear();
    press(SDL_BUTTON_MIDDLE);
    EXPECT_EQ(reports.text(), "Reset Cam velocity multiplier due to middle button click...\n");
    camera.moveInLookDirection();
    expectNear(camera.getPosition(), Vector(0.35F, 0, 0), 1e-6F);
}

TEST_F(CameraStandardEZNavTest, TakesAMultiplier) {
    struct Row {
        float multiplier;
        const char* report;
    };
    for (const Row& row :
         {Row{-2.5F, "2.5, wheelScroll count 2\n"}, Row{0.3F, "0.3, wheelScroll count 3\n"},
          Row{0, "0, wheelScroll count 0\n"}, Row{1e30F, "1e+30, wheelScroll count 1000000000\n"},
          Row{1e-30F, "1e-30, wheelScroll count 1000000000\n"}}) {
        reports.clear();
        camera.setCamVelocityMultiplier(row.multiplier);
        EXPECT_EQ(reports.text(), std::string("Cam velocity multiplier ") + row.report);
    }
    reports.clear();
    camera.setCamVelocityMultiplier(std::nanf(""));
    EXPECT_EQ(reports.text(), "");
    camera.onMouseWheelScroll(Tests::wheelEvent(1));
    EXPECT_TRUE(reports.contains("wheelScroll count 1000000000,"));
}

TEST_F(CameraStandardEZNavTest, FliesWhileTheRightButtonIsHeld) {
    camera.setCamVelocityMultiplier(2);
    camera.update();
    expectNear(camera.getPosition(), Vector(), 0);
    press(SDL_BUTTON_RIGHT);
    drag(285, 0);
    expectNear(camera.getPosition(), Vector(), 0);
    const Vector look(std::cos(1.0F), -std::sin(1.0F), 0);
    expectNear(camera.getLookDirection(), look, 1e-5F);
    for (int frame = 0; frame < 3; ++frame) {
        camera.update();
    }
    expectNear(camera.getPosition(), look * 2.1F, 1e-5F);
    const HeldKey shift(SDL_SCANCODE_LSHIFT);
    camera.update();
    expectNear(camera.getPosition(), look * 1.4F, 1e-5F);
    camera.moveLeft();
    expectNear(camera.getPosition(), look * 1.4F + Vector(-look.y, look.x, 0) * 0.7F, 1e-5F);
}

} // namespace
} // namespace Vantrel
