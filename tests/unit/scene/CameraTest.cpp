#include "vtl/scene/camera/Camera.h"

#include "vtl/scene/camera/LookAngles.h"
#include "vtl/scene/object/WOGJoint.h"

#include "tests/support/SelectingHost.h"
#include "tests/support/SteeredCamera.h"
#include "tests/unit/math/MathTesting.h"

#include <array>
#include <limits>
#include <sstream>

namespace Vantrel {
namespace {

using Tests::expectNear;
using Tests::HeldKey;
using Tests::objectAt;
using Tests::pi;
using Type = Camera::PROJ_MATRIX_PROJ_TYPE;

constexpr float nan = std::numeric_limits<float>::quiet_NaN();
constexpr float infinity = std::numeric_limits<float>::infinity();

class PlainCamera final : public Camera {
public:
    using Camera::Camera;
    void update() override {}
};

/** Where `point` of the world lands in the cube from -1 to 1. */
Vector seen(const Camera& camera, const Vector& point) {
    const Mat4& m = camera.getShaderCamera().getViewProjectionMatrix();
    const float w = m[3] * point.x + m[7] * point.y + m[11] * point.z + m[15];
    return (m * point + Vector(&m.m[12])) / w;
}

class Selectable final : public WO {
public:
    void onSelected(const SDL_MouseButtonEvent& /*event*/) override { ++selections; }
    int selections = 0;
};

using CameraTest = Tests::SteeredCamera<PlainCamera>;

Vector leftOf(const Camera& camera) {
    return Tests::columnOf(camera.getDisplayMatrix(), 1);
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
    const float reach = camera.getFrustum().getPlaneCoef(5);
    EXPECT_NEAR(reach, 120, 0.001F);
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
    const Mat4 view16;
    camera.setViewMatrix(view16.m.data());
    expectNear(camera.getShaderCamera().getViewProjectionMatrix(), camera.getProjectionMatrix(), 0);
}

TEST_F(CameraTest, FallsBackToPerspectiveForAnUnknownProjection) {
    camera.setProjectionType(Type::pmptORTHOGRAPHIC);
    camera.setProjectionType(static_cast<Type>(7));
    camera.updateProjectionMatrix();
    EXPECT_EQ(camera.getProjectionMatrix()[11], -1);
    EXPECT_EQ(reports.text(),
              "WARNING: Vantrel::Camera::updateProjectionMatrix()... this->camProjectionType\n"
              "   is set to an invalid alue of 7\n"
              "   valid values are Camera::PROJ_MATRIX_PROJ_TYPE::pmptPERSPECTIVE or "
              "Camera::PROJ_MATRIX_PROJ_TYPE::pmptORTHOGRAPHIC, updating using "
              "Vantrel::Camera::updateProjectionMatrixUsingPerspectiveProjection()...\n");
    std::ostringstream name;
    name << static_cast<Type>(7);
    EXPECT_EQ(name.str().find("Camera::PROJ_MATRIX_PROJ_TYPE::  ERROR type not found for 7, Camera.cpp:"),
              0U);
}

TEST_F(CameraTest, TakesAzimuthAndElevationWithinTheTolerance) {
    struct Row {
        Vector v;
        float azimuth;
        float elevation;
    };
    for (const Row& row :
         {Row{{1, 0, 0}, 0, 0}, Row{{-1, 0.0009F, 0}, pi, 0}, Row{{0, 5, 0}, pi / 2, 0},
          Row{{0.0009F, -5, 0}, 1.5F * pi, 0}, Row{{1, 1, 0}, pi / 4, 0}, Row{{-1, 1, 0}, 0.75F * pi, 0},
          Row{{-1, -1, 0}, 1.25F * pi, 0}, Row{{1, -1, 0}, 1.75F * pi, 0}, Row{{0, 0, 1}, 0, 0},
          Row{{0.0005F, 0.0005F, -1}, 0, 0}, Row{{3, 4, 5}, std::atan(4 / 3.0F), -pi / 4},
          Row{{-3, 4, -5}, pi - std::atan(4 / 3.0F), pi / 4}}) {
        EXPECT_NEAR(azimuthOf(row.v), row.azimuth, 1e-6F) << row.v.toString();
        EXPECT_NEAR(elevationOf(row.v), row.elevation, 1e-6F) << row.v.toString();
    }
}

TEST_F(CameraTest, LooksWhereItIsTold) {
    Tests::RandomInput random;
    camera.setPosition(1, 2, 3);
    for (int i = 0; i < 200; ++i) {
        const Vector direction = Tests::randomDirection(random);
        camera.setCameraLookAtPoint(camera.getPosition() + direction * 7);
        Tests::expectRotation(camera.getDisplayMatrix());
        expectNear(camera.getLookDirection(), direction, 1e-5F);
        EXPECT_NEAR(leftOf(camera).z, 0, 2e-3F) << "level";
        EXPECT_GE(camera.getNormalDirection().z, 0) << "upright";
        const Vector ahead = camera.getViewMatrix() * direction;
        expectNear(ahead, Vector(0, 0, -1), 1e-4F);
        camera.setCameraNormalDirection(Vector(1, 0, 0.5F));
        expectNear(camera.getNormalDirection(), Vector(1, 0, 0.5F).normalizeMe(), 1e-5F);
        Tests::expectRotation(camera.getDisplayMatrix());
    }
    camera.setHorizontalRotationAxis(Vector(0, 2, 0));
    camera.setCameraLookDirection(unitZ);
    expectNear(camera.getHorizontalRotationAxis(), unitY, 0);
    camera.setHorizontalRotationAxis(unitX);
    expectNear(camera.getLookDirection(), unitZ, 1e-5F);
    expectNear(camera.getNormalDirection(), unitX, 1e-5F);
}

TEST_F(CameraTest, LetsNothingInThatIsNoNumberOrNoDirection) {
    camera.setPosition(1, 2, 3);
    camera.setCameraLookDirection(Vector(1, 2, 0));
    camera.updateCameraMatrices();
    const ShaderCamera before = camera.getShaderCamera();
    const auto same = [&](const char* what) {
        camera.updateCameraMatrices();
        expectNear(camera.getShaderCamera().getViewProjectionMatrix(), before.getViewProjectionMatrix(),
                   1e-5F);
        EXPECT_FALSE(::testing::Test::HasFailure()) << what;
    };
    for (const float bad : {nan, infinity, 0.0F}) {
        camera.setCameraAspectRatio(bad);
        camera.setMouseSensitivity(bad);
        camera.setCameraLookDirection(Vector(bad, 0, 0));
        camera.setCameraNormalDirection(Vector(0, 0, bad));
        camera.setHorizontalRotationAxis(Vector(0, bad, 0));
        camera.moveInLookDirection(bad);
        same("a bad number");
    }
    for (const float bad : {nan, infinity}) {
        camera.setCameraFOVy(bad);
        camera.setCameraHorzFOV(bad);
        camera.setCameraNearClippingPlaneDistance(bad);
        camera.setCameraFarClippingPlaneDistance(bad);
        camera.setOrthographicPlanes(bad, bad, bad, bad, bad, bad);
        camera.setPosition(bad, 0, 0);
        camera.moveRelative(Vector(0, bad, 0));
        camera.setCameraVelocity(bad);
        camera.attachCameraToWO(&camera, Vector());
        camera.attachCameraToWO(objectAt(Vector()).get(), Vector(0, 0, bad));
        same("no number");
    }
    camera.setCameraLookAtPoint(camera.getPosition());
    same("its own position");
    camera.setCameraFOVy(0);
    same("a view without height");
    for (const float z : {1.0F, -1.0F}) {
        camera.setCameraLookDirection(Vector(0, 0, z));
        expectNear(camera.getLookDirection(), Vector(0, 0, z), 1e-6F);
        Tests::expectRotation(camera.getDisplayMatrix());
        expectNear(leftOf(camera), unitY, 1e-6F);
    }
}

TEST_F(CameraTest, TurnsAndStepsByDrags) {
    camera.setMouseSensitivity(100);
    press(SDL_BUTTON_LEFT);
    drag(-50, 25);
    const float right = 0.5F;
    const float down = 0.25F;
    expectNear(camera.getLookDirection(),
               Vector(std::cos(right) * std::cos(down), std::sin(right) * std::cos(down), -std::sin(down)),
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
    camera.setPosition(0, 0, 0);
    camera.moveLeft();
    camera.moveLeft();
    camera.moveRight();
    camera.moveOppositeLookDirection(2);
    expectNear(camera.getPosition(), Vector(-2, 0.35F, 0), 1e-5F);
}

TEST_F(CameraTest, SelectsWithLeftCtrlAlone) {
    Tests::SelectingHost selector;
    Selectable object;
    selector.selected = &object;
    press(SDL_BUTTON_LEFT, 12, 34);
    EXPECT_EQ(object.selections, 0);
    const HeldKey ctrl(SDL_SCANCODE_LCTRL);
    camera.onMouseDown({});
    EXPECT_EQ(object.selections, 1);
    ASSERT_EQ(selector.pixels.size(), 1U);
    EXPECT_EQ(selector.pixels[0], (std::array<int, 2>{12, 34}));
    SceneHost::set(nullptr);
    camera.onMouseDown({});
    EXPECT_EQ(reports.text(), "");
}

TEST_F(CameraTest, WarnsWithoutMouseOrView) {
    PlainCamera deaf(view, nullptr);
    deaf.onMouseDown({});
    deaf.onMouseUp({});
    deaf.onMouseWheelScroll({});
    deaf.onMouseMove({});
    PlainCamera blind(nullptr, &mouse);
    blind.onMouseDown({});
    EXPECT_EQ(reports.text(),
              "WARNING: Camera has NULL mouseHandler. Ignoring Vantrel::Camera::onMouseDown()...\n"
              "WARNING: Camera has NULL mouseHandler. Ignoring Vantrel::Camera::onMouseUp()...\n"
              "WARNING: Camera has NULL mouseHandler. Ignoring Vantrel::Camera::onMouseWheelScroll()...\n"
              "WARNING: Camera has NULL mouseHandler. Ignoring Vantrel::Camera::onMouseMove()...\n"
              "WARNING: Camera has NULL glView. Ignoring Vantrel::Camera::onMouseDown()...\n");
}

TEST_F(CameraTest, RefusesToBeTurnedWhileAttached) {
    const auto object = objectAt(Vector(5, 0, 0));
    camera.setActorDistance(3);
    EXPECT_EQ(reports.text(),
              "WARNING: CameraOLD is not watching a WO, no joint exists from which to measure "
              "distance\n\tno value set...\n\n");
    camera.attachCameraToWO(object.get(), Vector(6, 1, 0));
    expectNear(camera.getJoint()->getAnchorWorld(), Vector(6, 1, 0), 1e-6F);
    EXPECT_EQ(camera.getActorDistance(), 1);
    camera.setActorDistance(3);
    EXPECT_EQ(camera.getActorDistance(), 3);
    reports.clear();
    camera.setCameraLookAtPoint(unitY);
    EXPECT_EQ(reports.text(), "Cannot set camera look at point when it is attached\n"
                              "to a parent... Returning from Vantrel::Camera::setCameraLookAtPoint\n"
                              "w/ no action taken...\n");
    camera.setCameraLookDirection(unitY);
    camera.setCameraNormalPoint(unitY);
    camera.setCameraNormalDirection(unitY);
    for (const char* const name :
         {"setCameraLookDirection\n", "setCameraNormalPoint\n", "setCameraNormalDirection\n"}) {
        EXPECT_TRUE(reports.contains(std::string("Returning from Vantrel::Camera::") + name));
    }
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
        camera.attachCameraToWO(object.get(), camera.getPosition());
        EXPECT_TRUE(camera.getIsLockedWRTparent());
        EXPECT_EQ(object->getChildList().size(), 0U);
        if (dies) {
            object.reset();
        } else {
            camera.detachCameraFromWO();
        }
        EXPECT_FALSE(camera.getIsLockedWRTparent());
        EXPECT_EQ(camera.getJoint(), nullptr);
        EXPECT_EQ(camera.getParentWorldObject(), nullptr);
        expectNear(camera.getPosition(), Vector(1, 2, 3), 0);
        expectNear(camera.getDisplayMatrix(), orientation, 0);
        expectNear(child.getPosition(), Vector(2, 2, 3), 0);
    }
    const auto next = objectAt(Vector());
    camera.setParentWorldObject(next.get());
    EXPECT_FALSE(camera.getIsLockedWRTparent()) << "the joint went with the object that it hung on";
}

TEST_F(CameraTest, TellsWhoDoesNotStartABehaviour) {
    {
        const auto actor = objectAt(Vector());
        camera.setActorToWatch(actor.get());
        EXPECT_EQ(camera.getActorToWatch(), actor.get());
    }
    EXPECT_EQ(camera.getActorToWatch(), nullptr);
    EXPECT_EQ(reports.text(), "Overload Vantrel::Camera::startCameraBehavior() within a\n"
                              "Camera that needs to compute any initial information\n"
                              "before update is invoked during each render. For example\n"
                              "if this camera chases a WO; compute any initial data that\n"
                              "Vantrel::Camera::update() may utilize. If no need for this exists\n"
                              "simply overload this method with an empty body in your own\n"
                              "Camera subclass.\n");
}

} // namespace
} // namespace Vantrel
