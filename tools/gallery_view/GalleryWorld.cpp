#include "tools/gallery_view/GalleryWorld.h"

#include "vtl/base/ManagerEnvironmentConfiguration.h"
#include "vtl/scene/light/WOLight.h"
#include "vtl/scene/light/WOSkyBox.h"
#include "vtl/scene/model/Model.h"
#include "vtl/scene/object/WorldContainer.h"
#include "vtl/scene/shape/WOCylinder.h"
#include "vtl/scene/shape/WOPrimitiveShape.h"
#include "vtl/scene/shape/WOQuad.h"

#include <numbers>

namespace Vantrel {
namespace {

constexpr std::uint8_t flatOnGround = 0;
constexpr std::uint8_t facingX = 2;

/** Lies on the ground and is drawn over it at any distance. */
template <class Shape>
class OnGround : public Shape {
public:
    void render(Camera* camera) override {
        glDepthFunc(GL_ALWAYS);
        Shape::render(camera);
        glDepthFunc(GL_LEQUAL);
    }
};

std::unique_ptr<GLSLShader> shaderWithoutWhite(const std::string& shared) {
    const std::string file = shared + "shaders/discardColorRange";
    auto shader = GLSLShader::New(file + ".vert", file + ".frag");
    constexpr std::array<float, 3> white{1, 1, 1};
    GLSLUniform color("color", utVEC3, shader->getProgram());
    GLSLUniform epsilon("epsilon", utFLOAT, shader->getProgram());
    shader->bind();
    color.setFloats(white.data());
    epsilon.setFloat(0.15F);
    shader->unbind();
    for (const auto& [name, type] : {std::pair("MVPMat", utMAT4), std::pair("TexMat0", utMAT4)}) {
        shader->addUniform(GLSLUniform(name, type, shader->getProgram()));
    }
    return shader;
}

} // namespace

GalleryWorld::GalleryWorld(WorldContainer& world_, MGLSkyBox::CameraHolder cameraHolder)
    : world(world_)
    , shared(ManagerEnvironmentConfiguration::getVariableValue("sharedmultimediapath"))
    , local(ManagerEnvironmentConfiguration::getVariableValue("localmultimediapath")) {
    groupInHand = "airport";
    addSkyAndLight(cameraHolder);
    addAirport();
    addBoards();
}

void GalleryWorld::show(const std::string& group) const {
    for (const auto& [name, objects] : groups) {
        for (WO* const object : objects) {
            object->setVisible(name == group);
        }
    }
}

void GalleryWorld::addSkyAndLight(MGLSkyBox::CameraHolder cameraHolder) {
    constexpr vtlColor4f white;
    auto light = WOLight::New(white, white, {0.6F, 0.6F, 0.6F, 1.0F}, white);
    light->setIsPositional(false);
    light->getModel()->setLookDirection(Vector(0, 0, -1));
    add(std::move(light), Vector(0, 0, 1)); // not with the boards, whose images are seen as they are
    add(WOSkyBox::New(local + "images/skyboxes/sky_cloudy3+6.jpg", cameraHolder), Vector());
}

void GalleryWorld::addAirport() {
    constexpr float repeats = 500;
    WO& ground = addModel(local + "models/grassFloor400x400_pp.wrl", Vector(100, 100, 1),
                          MESH_SHADING_TYPE::mstAUTO, {});
    Texture& grass = *ground.getModel()->getSkin().textures.front();
    grass.setScaleU(repeats);
    grass.setScaleV(repeats);
    addRunway();
    addLocalizer();
    addVor();
    addModel(shared + "models/cube4x4x4redShinyPlastic_pp.wrl", Vector(1, 1, 1), MESH_SHADING_TYPE::mstAUTO,
             Vector(-320, -80, 2));
}

void GalleryWorld::addRunway() {
    constexpr float length = 2400;
    constexpr float width = 45;
    constexpr float modelLength = 26.666666F;
    auto runway = std::make_unique<OnGround<WO>>();
    runway->onCreate(shared + "models/road26x10.wrl", Vector(length / modelLength, width / 10, 0.5F),
                     MESH_SHADING_TYPE::mstAUTO);
    runway->getModel()->getSkin().textures.front()->setScaleV(length / modelLength);
    add(std::move(runway), Vector(-length / 2, 0, 0));
    for (const float end : {-width / 2, width / 2 - length}) {
        auto marking = std::make_unique<OnGround<WOQuad>>();
        marking->onCreate(flatOnGround, shared + "images/pianokey.png", width, width);
        marking->getModel()->getSkin().textures.front()->setScaleU(2);
        marking->rotateAboutGlobalZ(std::numbers::pi_v<float> / 2);
        add(std::move(marking), Vector(end, 0, 0.25F));
    }
}

void GalleryWorld::addLocalizer() {
    constexpr float x = -2700;
    constexpr float height = 3;
    for (int i = -6; i <= 6; ++i) {
        const float y = 2.4F * static_cast<float>(i);
        auto post = WOCylinder::New(0.2F, 0.2F, height, 5, 2);
        post->getModel()->getSkin().setColor(255, 128, 0, 255);
        add(std::move(post), Vector(x, y, height / 2));
        auto element = WOQuad::New(flatOnGround, local + "images/lpdelement.jpg", 2, 1);
        element->getModel()->getSkin().setShader(shaderWithoutWhite(shared));
        add(std::move(element), Vector(x, y, height + 0.1F));
    }
    auto beam = WOQuad::New(flatOnGround, shared + "images/whiteStripOnTransparent.png", 40, 1);
    beam->getModel()->getSkin().textures.front()->setScaleU(4);
    add(std::move(beam), Vector(x + 22, 0, 1.5F));
}

void GalleryWorld::addVor() {
    constexpr Vector place(-600, 260, 0);
    constexpr float radius = 15;
    constexpr float deckHeight = 3;
    constexpr float antennaHeight = 1.4F;
    WO& base = addModel(local + "./models/vorBase.3DS", Vector(0.007515011F, 0.007767292F, 0.056433409F),
                        MESH_SHADING_TYPE::mstSMOOTH, place + Vector(0, 0, deckHeight / 2));
    base.getModel()->setScale(Vector(radius, radius, deckHeight));
    WO& antenna =
        addModel(local + "./models/vorAnt.3DS", Vector(0.007515011F, 0.007767292F, 0.11129661F),
                 MESH_SHADING_TYPE::mstSMOOTH, place + Vector(0, 0, deckHeight + antennaHeight / 2));
    antenna.getModel()->setScale(Vector(radius, radius, antennaHeight));
}

void GalleryWorld::addBoard(const std::string& name, const std::string& image, float aspect) {
    groupInHand = name;
    auto wall = WOPrimitiveShape::New(PRIMITIVE_SHAPE_TYPE::psBOX, {0.1F, 40, 40});
    wall->getModel()->getSkin().setColor(64, 96, 128, 255);
    add(std::move(wall), Vector(-1, 0, 0));
    add(WOQuad::New(facingX, image, 2 * aspect, 2), Vector());
}

void GalleryWorld::addBoards() {
    addBoard("sky_strip", local + "images/skyboxes/sky_cloudy3+6.jpg", 6);
    addBoard("grass", local + "models/grassFloor.jpg", 1);
    addBoard("runway_texture", shared + "models/RunwayBase.jpg", 1);
    addBoard("pianokey", shared + "images/pianokey.png", 1);
    addBoard("lpdelement", local + "images/lpdelement.jpg", 2);
    addBoard("white_strip", shared + "images/whiteStripOnTransparent.png", 4);
    addBoard("red_plastic", shared + "models/redShinyPlastic.png", 1);
    addBoard("vor_mesh", local + "models/vorMesh.png", 1);
    addBoard("panel", shared + "images/gui/panel.png", 1);
    addBoard("focus_border", shared + "images/gui/hasFocusBorder.png", 1);
}

WO& GalleryWorld::add(std::unique_ptr<WO> object, const Vector& position) {
    object->setPosition(position);
    groups[groupInHand].push_back(object.get());
    world.push_back(object.get());
    return *object.release(); // the world's from here on
}

WO& GalleryWorld::addModel(const std::string& file, const Vector& scale, MESH_SHADING_TYPE shading,
                           const Vector& position) {
    return add(WO::New(file, scale, shading), position);
}

} // namespace Vantrel
