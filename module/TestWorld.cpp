#include "module/TestWorld.h"

#include "vtl/base/ManagerEnvironmentConfiguration.h"
#include "vtl/scene/light/WOLight.h"
#include "vtl/scene/light/WOSkyBox.h"
#include "vtl/scene/model/Model.h"
#include "vtl/scene/object/WorldContainer.h"
#include "vtl/scene/shape/WOAxes.h"
#include "vtl/scene/shape/WOCylinder.h"
#include "vtl/scene/shape/WOGridLinesRegular2D.h"
#include "vtl/scene/shape/WOPrimitiveShape.h"

namespace Vantrel {
namespace {

void add(WorldContainer& world, std::unique_ptr<WO> object, const char* label, const Vector& position) {
    object->setLabel(label);
    object->setPosition(position);
    world.push_back(object.release()); // the world's from here on
}

std::unique_ptr<WO> inColor(std::unique_ptr<WO> object, const vtlColor4ub& color) {
    object->getModel()->getSkin().setColor(color);
    return object;
}

std::unique_ptr<WO> box(float x, float y, float z, const vtlColor4ub& color) {
    return inColor(WOPrimitiveShape::New(PRIMITIVE_SHAPE_TYPE::psBOX, {x, y, z}), color);
}

std::unique_ptr<WO> newLight() {
    constexpr vtlColor4f white;
    constexpr vtlColor4f dim{0.1F, 0.1F, 0.1F, 1.0F}; // with that from everywhere, as bright as for shaders
    auto light = WOLight::New(white, white, dim, white);
    light->setIsPositional(false);
    light->getModel()->setLookDirection(Vector(-0.3F, 0.4F, -1.0F).normalizeMe());
    return light;
}

void addSkyAndGround(WorldContainer& world, MGLSkyBox::CameraHolder cameraHolder) {
    constexpr float extent = 20000.0F;
    constexpr float gridStep = 100.0F;
    // Fixed functions take the light's position for the way to it, shaders the way that it looks.
    add(world, newLight(), "Light", Vector(0.3F, -0.4F, 1.0F));
    add(world,
        WOSkyBox::New(ManagerEnvironmentConfiguration::getVariableValue("localmultimediapath") +
                          "images/skyboxes/sky_cloudy3+6.jpg",
                      cameraHolder),
        "Sky Box", Vector());
    add(world, box(extent, extent, 1.0F, {104, 128, 84, 255}), "Ground", Vector(0, 0, -1.5F));
    add(world,
        WOGridLinesRegular2D::New(extent / 4, gridStep, extent / 4, gridStep,
                                  vtlColor4ub(127, 127, 127, 255)),
        "World Grid", Vector(-extent / 8, -extent / 8, -0.5F));
}

void addRunway(WorldContainer& world) {
    constexpr int stripes = 24;
    constexpr float length = 2400.0F;
    add(world, box(length, 45.0F, 0.2F, {70, 72, 76, 255}), "Runway", Vector(-length / 2, 0, -0.1F));
    for (int i = 0; i < stripes; ++i) {
        const float x = -length / stripes * (static_cast<float>(i) + 0.5F);
        add(world, box(36.0F, 0.9F, 0.2F, {235, 235, 235, 255}), "Centre Line", Vector(x, 0, 0));
    }
    add(world, WOAxes::New(Vector(200, 200, 200)), "Threshold", Vector());
}

void addSolids(WorldContainer& world) {
    constexpr int poles = 15;
    for (int i = 0; i < poles; ++i) {
        add(world, inColor(WOCylinder::New(0.3F, 0.3F, 4.0F, 16, 1), {255, 128, 0, 255}), "Pole",
            Vector(60, 3.0F * static_cast<float>(i - poles / 2), 2));
    }
    add(world, inColor(WOCylinder::New(0.0F, 12.0F, 18.0F, 32, 1), {240, 240, 235, 255}), "Cone",
        Vector(-120, 90, 9));
    add(world, inColor(WOPrimitiveShape::New(PRIMITIVE_SHAPE_TYPE::psSPHERE, {8}), {200, 60, 50, 255}),
        "Ball", Vector(-60, 70, 8));
    add(world, box(40, 25, 14, {150, 140, 125, 255}), "Hangar", Vector(-200, -90, 7));
    add(world, box(20, 20, 20, {90, 120, 170, 255}), "Cube", Vector(-90, -70, 10));
}

} // namespace

void addTestWorld(WorldContainer& world, MGLSkyBox::CameraHolder cameraHolder) {
    addSkyAndGround(world, cameraHolder);
    addRunway(world);
    addSolids(world);
}

} // namespace Vantrel
