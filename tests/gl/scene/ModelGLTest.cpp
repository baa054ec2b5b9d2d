#include "vtl/scene/model/Model.h"

#include "vtl/scene/gui/WOGUIRoot.h"
#include "vtl/scene/model/MGLNullModel.h"
#include "vtl/scene/object/WOGJoint.h"
#include "vtl/scene/object/WorldList.h"

#include "tests/gl/scene/SceneGLFixture.h"
#include "tests/support/GLObjectCount.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace Vantrel {
namespace {

using Tests::black;
using Tests::Pixel;
using Tests::PixelPicture;

constexpr int middle = Tests::pictureSide / 2;

int countOf(const PixelPicture& picture, const Pixel& color) {
    return static_cast<int>(std::ranges::count(picture.pixels, color));
}

std::unique_ptr<WO> coloredCube(int r, int g, int b, int a = 255) {
    auto cube = WO::New("cube.obj");
    cube->getModel()->getSkin().setColor(r, g, b, a);
    return cube;
}

using ModelGLTest = Tests::SceneGLFixture;

TEST_P(ModelGLTest, DrawsAFileModelWhereItStandsAndTurned) {
    const auto cube = coloredCube(255, 0, 0);
    PixelPicture shown = pictureOf(*cube);
    const int size = countOf(shown, {255, 0, 0});
    EXPECT_EQ(shown.at(middle, middle), (Pixel{255, 0, 0}));
    cube->setPosition(0, 2, 0);
    shown = pictureOf(*cube);
    EXPECT_EQ(shown.at(middle, middle), black);
    EXPECT_EQ(shown.at(middle - 40, middle), (Pixel{255, 0, 0})) << "+Y is to the left";
    cube->setPosition(0, 0, 0);
    cube->getModel()->setScale(Vector(1, 2, 1));
    EXPECT_NEAR(countOf(pictureOf(*cube), {255, 0, 0}), 2 * size, size / 10);
    cube->rotateAboutGlobalX(1.5707963F);
    shown = pictureOf(*cube);
    EXPECT_EQ(shown.at(middle, middle + 30), (Pixel{255, 0, 0})) << "its Y axis is now up";
    cube->setVisible(false);
    EXPECT_EQ(countOf(pictureOf(*cube), black), Tests::pictureSide * Tests::pictureSide);
}

TEST_P(ModelGLTest, DrawsChildrenBoxesAndJoints) {
    const auto parent = coloredCube(0, 255, 0);
    WO& child = parent->addChild(coloredCube(0, 0, 255));
    child.setPosition(0, 4, 0);
    child.lockWRTparent();
    PixelPicture shown = pictureOf(*parent);
    EXPECT_GT(countOf(shown, {0, 0, 255}), 0);
    child.getJoint()->visible = true;
    parent->setVisible(false);
    EXPECT_GT(countOf(pictureOf(*parent), {0, 0, 255}), 20)
        << "the joint's blue axis, though both are hidden";
    child.getJoint()->visible = false;
    parent->setVisible(true);
    parent->getModel()->getSkin().visibleFlag = false;
    child.setVisible(false);
    ModelMesh& mesh = parent->getModel()->getModelDataShared()->getMeshes()[0];
    for (bool* const isBoxVisible : {&parent->getModel()->boundingBoxVisible, &mesh.boundingBoxVisible}) {
        *isBoxVisible = true;
        parent->getModel()->setScale(Vector(1, 1, 1));
        shown = pictureOf(*parent);
        EXPECT_EQ(shown.at(middle, middle), black);
        const int edges = countOf(shown, {0, 255, 0});
        EXPECT_GT(edges, 20) << "the box's edges along Y";
        parent->getModel()->setScale(Vector(1, 2, 1));
        EXPECT_NEAR(countOf(pictureOf(*parent), {0, 255, 0}), 2 * edges, edges / 4);
        *isBoxVisible = false;
    }
}

TEST_P(ModelGLTest, BlendsAndWritesDepthsOnlyWhereItIsAskedTo) {
    const auto near = coloredCube(255, 0, 0, 128);
    const auto far = coloredCube(0, 255, 0);
    far->setPosition(5, 0, 0);
    near->getModel()->depthWritesEnabled = false;
    clearPicture();
    near->render(&*eye);
    far->render(&*eye);
    EXPECT_EQ(pixelAt(middle, middle), (Pixel{0, 255, 0})) << "the far one is not hidden";
    near->getModel()->depthWritesEnabled = true;
    clearPicture();
    glDisable(GL_BLEND);
    near->render(&*eye);
    far->render(&*eye);
    EXPECT_LE(Tests::worstDifference(pixelAt(middle, middle), {128, 0, 0}), 1);
    near->getModel()->depthWritesEnabled = false;
    eye->isShadowMapCamera = true;
    for (const bool isWritten : {false, true}) {
        const GLboolean mask = isWritten ? GL_TRUE : GL_FALSE;
        glDepthMask(mask);
        near->render(&*eye);
        GLboolean left = 2;
        glGetBooleanv(GL_DEPTH_WRITEMASK, &left);
        EXPECT_EQ(left, mask) << "the shadow map is made of depths, whatever the model says";
    }
    eye->isShadowMapCamera = false;
    GLboolean writes = GL_FALSE;
    glGetBooleanv(GL_DEPTH_WRITEMASK, &writes);
    EXPECT_EQ(writes, GL_TRUE);
}

TEST_P(ModelGLTest, ShowsIdsInTheSelectionPicture) {
    const auto cube = coloredCube(200, 0, 0, 100);
    WO& box = cube->addChild(Tests::objectAt(Vector(0, 4, 0)));
    auto model = std::make_unique<MGLNullModel>(&box);
    model->setBoundingBoxLengths(Vector(2, 2, 2));
    model->setTranslation(Vector(0, 4, 0));
    box.setModel(std::move(model));
    WO& hidden = cube->addChild(coloredCube(1, 2, 3));
    hidden.setPosition(0, -4, 0);
    hidden.setVisible(false);
    const PixelPicture shown = selectionPictureOf(*cube);
    EXPECT_EQ(shown.at(middle, middle), selectionColorOf(*cube));
    EXPECT_EQ(shown.at(middle - 80, middle), selectionColorOf(box));
    EXPECT_EQ(countOf(shown, selectionColorOf(*cube)) + countOf(shown, selectionColorOf(box)) +
                  countOf(shown, black),
              Tests::pictureSide * Tests::pictureSide)
        << "no other colour, blended or lit";
}

TEST_P(ModelGLTest, LeavesGLAsItWas) {
    const auto cube = coloredCube(200, 0, 0);
    cube->addChild(Tests::objectAt(Vector()));
    cube->getModel()->boundingBoxVisible = true;
    struct Place {
        GLenum name;
        bool isFixedFunction;
    };
    const auto state = [] {
        std::vector<GLint> values;
        for (const Place place : {Place{GL_CURRENT_PROGRAM, false}, Place{GL_ARRAY_BUFFER_BINDING, false},
                                  Place{GL_ACTIVE_TEXTURE, false}, Place{GL_MATRIX_MODE, true},
                                  Place{GL_MODELVIEW_STACK_DEPTH, true}, Place{GL_ATTRIB_STACK_DEPTH, true},
                                  Place{GL_CLIENT_ATTRIB_STACK_DEPTH, true}, Place{GL_LIGHTING, true}}) {
            GLint value = 0;
            if (!place.isFixedFunction || ManagerOpenGLState::isCompatibilityProfile()) {
                glGetIntegerv(place.name, &value);
            }
            values.push_back(value);
        }
        return values;
    };
    clearPicture();
    const std::vector<GLint> before = state();
    cube->render(&*eye);
    EXPECT_EQ(state(), before);
    cube->renderSelection(&*eye);
    EXPECT_EQ(state(), before);
}

TEST_P(ModelGLTest, KeepsOneSetOfBuffersForAFile) {
    ManagerModelMultiplicity::init();
    EXPECT_TRUE(reports.contains("Your graphics card supports VBOs...\n"));

    const Tests::GLObjectCount before = Tests::countGLObjects();
    std::vector<std::unique_ptr<WO>> cubes;
    cubes.push_back(WO::New("two.obj"));
    const Tests::GLObjectCount one = Tests::countGLObjects();
    for (int i = 0; i < 20; ++i) {
        cubes.push_back(WO::New("two.obj"));
    }
    EXPECT_EQ(Tests::countGLObjects(), one);
    EXPECT_FALSE(one == before);
    cubes.erase(cubes.begin());
    WO& left = *cubes.front();
    EXPECT_LT(countOf(pictureOf(left), black), Tests::pictureSide * Tests::pictureSide);
    left.getModel()->addSkin(std::unique_ptr<Texture>());
    left.getModel()->useNextSkin();
    left.getModel()->getSkin().setColor(0, 255, 255, 255);
    EXPECT_GT(countOf(pictureOf(left), {0, 255, 255}), 100) << "a skin that was added later";
    left.getModel()->getSkin().shadingType = MESH_SHADING_TYPE::mstFLAT;
    EXPECT_GT(countOf(pictureOf(left), {0, 255, 255}), 100) << "and wants what nobody has drawn before";
    cubes.clear();
    EXPECT_EQ(Tests::countGLObjects(), before);
}

TEST_P(ModelGLTest, ListsDrawWhatIsInTheView) {
    class CountingCube final : public WO {
    public:
        explicit CountingCube(float x) {
            onCreate("cube.obj", Vector(1, 1, 1), MESH_SHADING_TYPE::mstAUTO);
            setPosition(x, 0, 0);
        }
        void render(Camera* camera) override {
            ++drawn;
            WO::render(camera);
        }
        void renderSelection(Camera* camera) override {
            ++drawn;
            WO::renderSelection(camera);
        }
        int drawn = 0;
    };
    WorldList list;
    CountingCube behind(-30);
    CountingCube seen(0);
    behind.setLabel("Behind");
    list.push_back(&behind);
    list.push_back(&seen);
    for (const bool isCulling : {true, false}) {
        ManagerOpenGLState::setFrustumCullingEnabled(isCulling);
        list.render(&*eye);
        list.renderSelection(&*eye);
    }
    EXPECT_EQ(behind.drawn, 2);
    EXPECT_EQ(seen.drawn, 4);
    EXPECT_EQ(ManagerSDLTime::timesOf(behind).renderCount, 2) << "passed by or not";
    EXPECT_EQ(ManagerSDLTime::timesOf(behind).renderSelectCount, 2);
    glBindTexture(GL_NONE, 1);
    reports.clear();
    list.render(&*eye);
    EXPECT_TRUE(reports.contains("Behind")) << "the first object drawn hears of it";
}

TEST_P(ModelGLTest, KeepsWidgetsInATreeBelowTheRoot) {
    class Widget final : public WO, public IFaceGUIWidget {};
    WorldList list(true, GUIRoot::made);
    world = &list;
    ASSERT_NE(list.getRootGUI(), nullptr);
    EXPECT_TRUE(reports.contains("Creating GUI Root\nGUI Root created\n"));
    EXPECT_EQ(list.getRootGUI()->getLabel(),
              "Root WOGUI, internal worldList container for all WOGUI objects created by user...");
    const vtlColor4f& color = list.getRootGUI()->getModel()->getSkin().color;
    EXPECT_EQ(color.r, 1.0F);
    EXPECT_EQ(color.a, 0.0F);
    auto* const first = new Widget;
    auto* const second = new Widget;
    second->setLabel("second");
    second->onCreate();
    list.push_back(first);
    list.push_back(second);
    WO& inner = first->addChild(std::make_unique<Widget>());
    EXPECT_EQ(list.size(), 0U);
    EXPECT_EQ(list.sizeGUI(), 3U);
    EXPECT_EQ(list.getGUIWidgetAt(0), first);
    EXPECT_EQ(list.getGUIWidgetAt(1), &inner);
    EXPECT_EQ(list.getGUIWidgetAt(2), second);
    EXPECT_EQ(list.getGUIWidgetAt(3), nullptr);
    EXPECT_EQ(list.getIndexOfGUIWidget(second), 2);
    EXPECT_TRUE(list.contains(second));
    EXPECT_FALSE(list.contains(&inner));
    reports.clear();
    list.push_back(&inner);
    EXPECT_EQ(reports.text(), "WARNING: Cannot insert WOGUI* that has a parent into WorldList...\n"
                              "   only top level WOGUI* can be inserted into the WorldList...\n"
                              "   not inserting WO ''...\n");
    list.toggleModelBoundingBoxes();
    EXPECT_TRUE(second->getModel()->boundingBoxVisible);
    EXPECT_TRUE(list.eraseViaWO(second));
    EXPECT_FALSE(list.contains(second));
    reports.clear();
    EXPECT_EQ(list.getIndexOfGUIWidget(second), -1);
    EXPECT_EQ(reports.text(),
              "ERROR: widget second not found in WorldContainer... Returning -1 for index...\n");
    list.renderGUI(&*eye);
    EXPECT_EQ(ManagerSDLTime::timesOf(*list.getRootGUI()).renderCount, 1);
    delete second;
    world = nullptr;
}

INSTANTIATE_TEST_SUITE_P(Contexts, ModelGLTest, Tests::everyGLContext(), Tests::nameOfGLContext);

} // namespace
} // namespace Vantrel
