#include "vtl/scene/camera/CameraStandard.h"

#include "vtl/scene/camera/CameraOrthoTopDown.h"
#include "vtl/scene/camera/CameraStandardEZNav.h"

#include "tests/support/SteeredCamera.h"

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
        this->selected = object.get();
        this->coordinate = Vector(10, 0, 1);
        this->camera.setPosition(10, -20, 1);
    }

    std::unique_ptr<WO> object = objectAt(Vector(10, 0, 0));
    std::unique_ptr<HeldKey> alt = std::make_unique<HeldKey>(SDL_SCANCODE_LALT);
};

using Orbiting = ::testing::Types<CameraStandard, CameraStandardEZNav>;
TYPED_TEST_SUITE(OrbitTest, Orbiting);

TYPED_TEST(OrbitTest, GoesRoundThePointThatWasClicked) {
    TypeParam& eye = this->camera;
    this->press(SDL_BUTTON_LEFT);
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
    for (const Row& row : {Row{true, 0, 0, south, 0, 14}, Row{true, 7, 100, south, 100 * rate, 14},
                           Row{false, 30, 50, south - 30 * rate, 100 * rate, 30},
                           Row{true, 0, -250, south - 30 * rate, -150 * rate, 30}}) {
        const HeldKey ctrl(SDL_SCANCODE_LCTRL, row.ctrl);
        this->drag(row.dx, row.dy);
        eye.update();
        const Vector outwards(std::cos(row.azimuth) * std::cos(row.elevation),
                              std::sin(row.azimuth) * std::cos(row.elevation), std::sin(row.elevation));
        expectNear(eye.getPosition(), Vector(10, 0, 1) + outwards * row.distance, 1e-3F);
        expectNear(eye.getLookDirection(), outwards * -1, 1e-4F);
        EXPECT_NEAR(eye.getDisplayMatrix()[6], 0, 1e-5F) << "level";
        Tests::expectRotation(eye.getDisplayMatrix());
    }
    const Vector before = eye.getPosition();
    this->object->setPosition(20, 0, 0);
    eye.update();
    expectNear(eye.getPosition(), before + Vector(10, 0, 0), 1e-3F);
    this->letGo(SDL_BUTTON_LEFT);
    EXPECT_FALSE(eye.getIsLockedWRTparent());
    expectNear(eye.getPosition(), before + Vector(10, 0, 0), 1e-3F);
}

TYPED_TEST(OrbitTest, StaysAsItIsAboutEveryAxisAndAtThePoint) {
    TypeParam& eye = this->camera;
    this->press(SDL_BUTTON_LEFT);
    for (const Vector& axis : {unitZ, unitX}) {
        eye.setHorizontalRotationAxis(axis);
        for (const int dy : {0, -100, 5}) { // 100 pixels are the whole distance
            this->drag(0, dy);
            eye.update();
            const Mat4 pose = eye.getDisplayMatrix();
            const Vector place = eye.getPosition();
            Tests::expectRotation(pose);
            eye.update();
            expectNear(eye.getDisplayMatrix(), pose, 1e-5F);
            expectNear(eye.getPosition(), place, 1e-5F);
        }
    }
    this->object.reset();
    const Vector place = eye.getPosition();
    eye.update();
    expectNear(eye.getPosition(), place, 0);
}

TYPED_TEST(OrbitTest, StartsOnAnObjectUnderTheLeftButtonWithAlt) {
    this->press(SDL_BUTTON_RIGHT);
    this->alt.reset();
    this->press(SDL_BUTTON_LEFT);
    EXPECT_FALSE(this->camera.getIsLockedWRTparent());
    EXPECT_EQ(this->reports.text(), "");
    const HeldKey altAgain(SDL_SCANCODE_LALT);
    this->selected = nullptr;
    this->press(SDL_BUTTON_LEFT);
    EXPECT_EQ(this->reports.text(), "User did NOT click on a WO... Cannot attach camera...\n");
}

using CameraStandardTest = Tests::SteeredCamera<CameraStandard>;

TEST_F(CameraStandardTest, TurnsAndStepsOnceForOneMotionOfTwoButtons) {
    press(SDL_BUTTON_LEFT);
    press(SDL_BUTTON_RIGHT);
    drag(0, -6);
    EXPECT_NEAR(camera.getLookDirection().z, std::sin(6 / 285.0F), 1e-5F);
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
}

using CameraStandardEZNavTest = Tests::SteeredCamera<CameraStandardEZNav>;

TEST_F(CameraStandardEZNavTest, CountsTheWheel) {
    struct Row {
        int turned;
        bool ctrl;
        bool alt;
        const char* report;
    };
    for (const Row& row : {Row{-1, false, false, "1, wheelScroll count 0, velocity (m/frame) 0.35\n"},
                           Row{-9, false, false, "1, wheelScroll count -1, velocity (m/frame) 0.35\n"},
                           Row{-1, false, true, "0.5, wheelScroll count -2, velocity (m/frame) 0.175\n"},
                           Row{0, false, true, "0.5, wheelScroll count -2, velocity (m/frame) 0.175\n"},
                           Row{2, true, false, "8, wheelScroll count 8, velocity (m/frame) 2.8\n"},
                           Row{1, true, true, "108, wheelScroll count 108, velocity (m/frame) 37.8\n"}}) {
        const HeldKey ctrl(SDL_SCANCODE_LCTRL, row.ctrl);
        const HeldKey alt(SDL_SCANCODE_LALT, row.alt);
        reports.clear();
        SDL_MouseWheelEvent event{};
        event.y = row.turned;
        camera.onMouseWheelScroll(event);
        EXPECT_EQ(reports.text(), std::string("Cam velocity multiplier ") + row.report);
    }
    press(SDL_BUTTON_MIDDLE);
    EXPECT_TRUE(reports.contains("Reset Cam velocity multiplier due to middle button click...\n"));
    camera.moveInLookDirection();
    expectNear(camera.getPosition(), Vector(0.35F, 0, 0), 1e-6F);
}

TEST_F(CameraStandardEZNavTest, TakesAMultiplier) {
    for (const float multiplier : {-2.5F, 0.3F, 0.0F, 1e30F, 1e-30F, std::nanf("")}) {
        camera.setCamVelocityMultiplier(multiplier);
    }
    EXPECT_EQ(reports.text(), "Cam velocity multiplier 2.5, wheelScroll count 2\n"
                              "Cam velocity multiplier 0.3, wheelScroll count 3\n"
                              "Cam velocity multiplier 0, wheelScroll count 0\n"
                              "Cam velocity multiplier 1e+30, wheelScroll count 1000000000\n"
                              "Cam velocity multiplier 1e-30, wheelScroll count 1000000000\n");
}

TEST_F(CameraStandardEZNavTest, FliesWhileTheRightButtonIsHeld) {
    camera.setCamVelocityMultiplier(2);
    camera.update();
    press(SDL_BUTTON_RIGHT);
    drag(285, 0);
    expectNear(camera.getPosition(), Vector(), 0);
    const Vector look(std::cos(1.0F), -std::sin(1.0F), 0);
    camera.update();
    camera.update();
    camera.update();
    expectNear(camera.getPosition(), look * 2.1F, 1e-5F);
    const HeldKey shift(SDL_SCANCODE_LSHIFT);
    camera.update();
    expectNear(camera.getPosition(), look * 1.4F, 1e-5F);
}

} // namespace
} // namespace Vantrel
