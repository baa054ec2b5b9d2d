#include "vtl/scene/camera/Camera.h"

#include "vtl/scene/camera/LookAngles.h"
#include "vtl/scene/object/WOGJoint.h"

#include "tests/support/SteeredCamera.h"

#include <limits>

namespace Vantrel {
namespace {

using Tests::expectNear;
using Tests::objectAt;
using Tests::pi;
using Type = Camera::PROJ_MATRIX_PROJ_TYPE;

constexpr float nan = std::numeric_limits<float>::quiet_NaN();
constexpr float infinity = std::numeric_limits<float>::infinity();

class PlainCamera final : public Camera {
public:
    using Camera::Camera;
    void update() override {}
    void onSelected(const SDL_MouseButtonEvent& /*event*/) override { ++selections; }
    int selections = 0;
};

using CameraTest = Tests::SteeredCamera<PlainCamera>;

/** Where `point` of the world lands in the cube from -1 to 1. */
Vector seen(const Camera& camera, const Vector& point) {
    const Mat4& m = camera.getShaderCamera().getViewProjectionMatrix();
    const float w = m[3] * point.x + m[7] * point.y + m[11] * point.z + m[15];
    return (m * point + Vector(&m.m[12])) / w;
}

TEST_F(CameraTest, SeesTheVolumeOfItsProjection) {
    camera.setCameraFOVy(90);
    camera.setCameraAspectRatio(2);
    camera.setCameraNearClippingPlaneDistance(1);
    camera.setCameraFarClippingPlaneDistance(100);
    camera.setPosition(10, 20, 30);
    camera.setCameraLookDirection(Vector(0, 3, 0)); // so that right is +X
    camera.updateCameraMatrices();
    expectNear(seen(camera, Vector(10 + 2, 20 + 1, 30 + 1)), Vector(1, 1, -1), 1e-4F);
    expectNear(seen(camera, Vector(10 - 200, 20 + 100, 30 - 100)), Vector(-1, -1, 1), 1e-4F);
    EXPECT_NEAR(camera.getFrustum().getPlaneCoef(5), 120, 0.001F);
    camera.setOrthographicPlanes(-4, 8, -2, 6, 1, 101);
    camera.setProjectionType(Type::pmptORTHOGRAPHIC);
    expectNear(camera.getProjectionMatrix(), camera.getGUIProjectionMatrix(), 0);
    camera.updateCameraMatrices();
    expectNear(seen(camera, Vector(10 + 8, 20 + 1, 30 + 6)), Vector(1, 1, -1), 1e-4F);
    expectNear(seen(camera, Vector(10 - 4, 20 + 101, 30 - 2)), Vector(-1, -1, 1), 1e-4F);
    camera.setOrthographicExtent(20, 10);
    expectNear(camera.getOrthographicExtent(), Vector(100, 20, 10), 0);
    camera.setCameraHorzFOV(70);
    EXPECT_NEAR(camera.getCameraHorzFOV(), 70, 1e-4F);
    EXPECT_LT(camera.getCameraFOVy(), 40);
    camera.setProjectionType(static_cast<Type>(7));
    camera.updateProjectionMatrix();
    EXPECT_EQ(camera.getProjectionMatrix()[11], -1) << "perspective";
    EXPECT_TRUE(reports.contains("   is set to an invalid alue of 7\n   valid values are "
                                 "Camera::PROJ_MATRIX_PROJ_TYPE::pmptPERSPECTIVE or "
                                 "Camera::PROJ_MATRIX_PROJ_TYPE::pmptORTHOGRAPHIC, updating using "));
}

TEST_F(CameraTest, TakesAzimuthAndElevationWithinTheTolerance) {
    struct Row {
        Vector v;
        float azimuth;
        float elevation;
    };
    for (const Row& row :
         {Row{{-1, 0.0009F, 0}, pi, 0}, Row{{0, 5, 0}, pi / 2, 0}, Row{{0.0009F, -5, 0}, 1.5F * pi, 0},
          Row{{-1, -1, 0}, 1.25F * pi, 0}, Row{{0, 0, 1}, 0, 0}, Row{{0.0005F, 0.0005F, -1}, 0, 0},
          Row{{3, 4, 5}, std::atan(4 / 3.0F), -pi / 4}, Row{{-3, 4, -5}, pi - std::atan(4 / 3.0F), pi / 4}}) {
        EXPECT_NEAR(azimuthOf(row.v), row.azimuth, 1e-6F) << row.v.toString();
        EXPECT_NEAR(elevationOf(row.v), row.elevation, 1e-6F) << row.v.toString();
    }
}

TEST_F(CameraTest, LooksWhereItIsTold) {
    Tests::RandomInput random;
    for (int i = 0; i < 102; ++i) {
        const Vector direction = i < 2 ? unitZ * (i == 0 ? 1.0F : -1.0F) : Tests::randomDirection(random);
        camera.setPosition(1, 2, 3);
        camera.setCameraLookAtPoint(camera.getPosition() + direction * 7);
        camera.setPosition(Vector(1, 2, 3) * (i % 2 == 0 ? 1 : 1e8F)); // where points a metre apart are one
        camera.updateViewMatrix();
        Tests::expectRotation(camera.getDisplayMatrix());
        expectNear(camera.getLookDirection(), direction, 1e-5F);
        EXPECT_NEAR(camera.getDisplayMatrix()[6], 0, 2e-3F) << "level";
        EXPECT_GE(camera.getNormalDirection().z, -1e-6F) << "upright";
        expectNear(camera.getViewMatrix() * direction, Vector(0, 0, -1), 1e-4F);
        expectNear(camera.getViewMatrix() * camera.getNormalDirection(), unitY, 1e-4F);
        camera.setCameraNormalDirection(Vector(1, 0, 0.5F));
        expectNear(camera.getNormalDirection(), Vector(1, 0, 0.5F).normalizeMe(), 1e-5F);
        Tests::expectRotation(camera.getDisplayMatrix());
    }
    camera.setCameraLookDirection(unitY);
    camera.setHorizontalRotationAxis(unitX * 2);
    expectNear(camera.getLookDirection(), unitY, 1e-5F);
    expectNear(camera.getNormalDirection(), unitX, 1e-5F);
    camera.setPosition(1, 2, 3);
    camera.setCameraNormalPoint(Vector(1, 2, 0));
    expectNear(camera.getNormalDirection(), unitZ * -1, 1e-5F);
}

TEST_F(CameraTest, LetsNothingInThatIsNoNumberOrNoDirection) {
    const WO& child = camera.addChild(objectAt(Vector()));
    press(SDL_BUTTON_LEFT);
    for (const float bad : {0.0F, nan, infinity}) { // 0 is bad by itself, and nothing beside a good number
        camera.setCameraAspectRatio(bad);
        camera.setCameraFOVy(bad);
        camera.setMouseSensitivity(bad);
        camera.setCameraVelocity(0.35F + bad);
        camera.setCameraLookDirection(Vector(bad, 0, 0));
        camera.setCameraLookAtPoint(camera.getPosition() + Vector(0, bad, 0));
        camera.setCameraNormalDirection(Vector(0, 0, bad));
        camera.setHorizontalRotationAxis(Vector(0, bad, 0));
        camera.rotateAboutGlobalZ(bad);
        camera.setPosition(Vector(0, bad, 0));
        camera.setPositionOfThisOnly(Vector(0, bad, 0));
        camera.moveRelative(Vector(0, bad, 0));
        camera.moveRelativeThisOnly(Vector(0, bad, 0));
        camera.setOrthographicPlanes(bad - 4, bad + 8, bad - 2, bad + 6, bad + 1, bad + 101);
        expectNear(camera.getDisplayMatrix(), Mat4(), 1e-6F);
        expectNear(camera.getHorizontalRotationAxis(), unitZ, 0);
        expectNear(camera.getPosition(), Vector(), 0);
        expectNear(child.getPosition(), Vector(), 0);
        expectNear(camera.getOrthographicExtent(), Vector(100, 12, 8), 0);
        expectNear(Vector(camera.getCameraAspectRatio(), camera.getCameraFOVy(), camera.getCameraVelocity()),
                   Vector(1, 65, 0.35F), 0);
        drag(-285, 0); // a radian
        expectNear(camera.getLookDirection(), Vector(std::cos(1.0F), std::sin(1.0F), 0), 1e-5F);
        drag(285, 0);
    }
    const auto object = objectAt(Vector());
    camera.attachCameraToWO(&camera, Vector());
    camera.attachCameraToWO(object.get(), Vector(0, 0, nan));
    EXPECT_EQ(camera.getJoint(), nullptr);
}

TEST_F(CameraTest, KnowsTheMouse) {
    drag(3, 4);
    EXPECT_TRUE(!mouse.isDragging() && mouse.getDx() == 0 && mouse.getDy() == 0) << "no button is held";
    press(SDL_BUTTON_LEFT);
    EXPECT_TRUE(mouse.isLeftPressed() && !mouse.isDragging());
    drag(3, -4);
    press(SDL_BUTTON_RIGHT);
    EXPECT_TRUE(mouse.isLeftDown() && !mouse.isLeftPressed());
    letGo(SDL_BUTTON_LEFT);
    EXPECT_TRUE(mouse.isRightDown() && mouse.isDragging() && mouse.getDx() == 3 && mouse.getDy() == -4);
    letGo(SDL_BUTTON_RIGHT);
    EXPECT_TRUE(!mouse.isRightDown() && !mouse.isDragging() && mouse.getDx() == 0 && mouse.getDy() == 0);
    press(SDL_BUTTON_X1);
    letGo(SDL_BUTTON_X2);
    EXPECT_EQ(reports.text(), "Unknown SDL Mouse Button4 pressed\nUnknown SDL Mouse Button5 released\n");
    press(SDL_BUTTON_MIDDLE);
    press(SDL_BUTTON_LEFT);
    drag(3, -4);
    mouse.reset();
    EXPECT_FALSE(mouse.isLeftDown() || mouse.isMiddleDown() || mouse.isLeftPressed() || mouse.isDragging() ||
                 mouse.getDx() != 0 || mouse.getDy() != 0);
}

TEST_F(CameraTest, TurnsAndStepsByDrags) {
    camera.setMouseSensitivity(100);
    press(SDL_BUTTON_LEFT);
    drag(-50, 25);
    expectNear(camera.getLookDirection(),
               Vector(std::cos(0.5F) * std::cos(0.25F), std::sin(0.5F) * std::cos(0.25F), -std::sin(0.25F)),
               1e-5F);
    letGo(SDL_BUTTON_LEFT);
    camera.setCameraLookDirection(unitX);
    press(SDL_BUTTON_RIGHT);
    struct Row {
        int pixels;
        float steps;
    };
    for (const Row& row : {Row{0, 0}, Row{-1, 1}, Row{-5, 1}, Row{-6, 2}, Row{1, -1}, Row{11, -3}}) {
        camera.setPosition(0, 0, 0);
        drag(40, row.pixels);
        expectNear(camera.getPosition(), Vector(row.steps * 0.35F, 0, 0), 1e-5F);
    }
    drag(0, std::numeric_limits<int>::min());
    EXPECT_GT(camera.getPosition().x, 1000) << "forwards still";
    camera.setPosition(0, 0, 0);
    camera.moveLeft();
    camera.moveOppositeLookDirection(2);
    expectNear(camera.getPosition(), Vector(-2, 0.35F, 0), 1e-5F);
}

TEST_F(CameraTest, SelectsWithLeftCtrlAlone) {
    selected = &camera;
    press(SDL_BUTTON_LEFT, 12, 34);
    press(SDL_BUTTON_RIGHT, 5, 6);
    EXPECT_EQ(camera.selections, 0);
    const Tests::HeldKey ctrl(SDL_SCANCODE_LCTRL);
    camera.onMouseDown({});
    EXPECT_EQ(camera.selections, 1);
    ASSERT_EQ(asked.size(), 1U);
    EXPECT_TRUE(asked[0].x == 12 && asked[0].y == 34);
    PlainCamera(nullptr, &mouse).onMouseDown({});
    PlainCamera(view, nullptr).onMouseMove({});
    EXPECT_EQ(reports.text(),
              "WARNING: Camera has NULL glView. Ignoring Vantrel::Camera::onMouseDown()...\n"
              "WARNING: Camera has NULL mouseHandler. Ignoring Vantrel::Camera::onMouseMove()...\n");
}

TEST_F(CameraTest, RefusesToBeTurnedWhileAttached) {
    const auto object = objectAt(Vector(5, 0, 0));
    camera.setActorDistance(3);
    EXPECT_EQ(reports.text(),
              "WARNING: CameraOLD is not watching a WO, no joint exists from which to measure "
              "distance\n\tno value set...\n\n");
    camera.attachCameraToWO(object.get(), Vector(6, 1, 0));
    expectNear(camera.getJoint()->getAnchorWorld(), Vector(6, 1, 0), 1e-6F);
    camera.setActorDistance(3);
    camera.setActorDistance(nan);
    EXPECT_EQ(camera.getActorDistance(), 3);
    reports.clear();
    camera.setCameraLookAtPoint(unitY);
    EXPECT_EQ(reports.text(), "Cannot set camera look at point when it is attached\n"
                              "to a parent... Returning from Vantrel::Camera::setCameraLookAtPoint\n"
                              "w/ no action taken...\n");
    camera.setCameraLookDirection(unitY);
    camera.setCameraNormalPoint(unitY);
    camera.setCameraNormalDirection(unitY);
    EXPECT_EQ(reports.count("w/ no action taken...\n"), 4U);
    expectNear(camera.getDisplayMatrix(), Mat4(), 0);
}

TEST_F(CameraTest, LeavesAnObjectAndOutlivesIt) {
    camera.setPosition(1, 2, 3);
    camera.setCameraLookDirection(Vector(1, 1, -1));
    WO& child = camera.addChild(objectAt(Vector(2, 2, 3)));
    const Mat4 orientation = camera.getDisplayMatrix();
    camera.attachCameraToWO(&child, Vector());
    EXPECT_FALSE(camera.getIsLockedWRTparent()) << "on its own child";
    for (const bool dies : {false, true}) {
        auto object = objectAt(Vector(5, 0, 0));
        camera.setActorToWatch(object.get());
        camera.attachCameraToWO(object.get(), camera.getPosition());
        EXPECT_TRUE(camera.getIsLockedWRTparent());
        if (dies) {
            object.reset();
        } else {
            camera.detachCameraFromWO();
        }
        EXPECT_EQ(camera.getActorToWatch(), object.get()) << "or nobody, when it has died";
        EXPECT_TRUE(!camera.getIsLockedWRTparent() && camera.getJoint() == nullptr &&
                    camera.getParentWorldObject() == nullptr);
        expectNear(camera.getPosition(), Vector(1, 2, 3), 0);
        expectNear(camera.getDisplayMatrix(), orientation, 0);
        expectNear(child.getPosition(), Vector(2, 2, 3), 0);
    }
    EXPECT_EQ(reports.count("Overload Vantrel::Camera::startCameraBehavior() within a\n"), 2U);
    const auto next = objectAt(Vector());
    camera.setParentWorldObject(next.get());
    EXPECT_FALSE(camera.getIsLockedWRTparent()) << "the joint went with the object that it hung on";
}

} // namespace
} // namespace Vantrel
