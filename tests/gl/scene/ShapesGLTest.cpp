#include "vtl/scene/shape/MGLBoundingShell.h"
#include "vtl/scene/shape/MGLQuad.h"
#include "vtl/scene/shape/WOAxes.h"
#include "vtl/scene/shape/WOCylinder.h"
#include "vtl/scene/shape/WOGrid.h"
#include "vtl/scene/shape/WOGridLinesRegular2D.h"
#include "vtl/scene/shape/WOPrimitiveShape.h"
#include "vtl/scene/shape/WOQuad.h"

#include "tests/gl/scene/SceneGLFixture.h"
#include "tests/support/GLObjectCount.h"
#include "tests/support/PictureFiles.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

namespace Vantrel {
namespace {

using Tests::black;
using Tests::Pixel;
using Tests::PixelPicture;
using enum PRIMITIVE_SHAPE_TYPE;

constexpr int middle = Tests::pictureSide / 2;
const std::string imageFile = KELDIN_SHARED_DATA "images/DefaultTexture.bmp";

using Shape = std::unique_ptr<WO>;

/** In a colour that lets a quarter of what is behind through, and turned. */
Shape colored(Shape shape) {
    shape->getModel()->getSkin().setColor(200, 150, 50, 191);
    shape->getModel()->getSkin().specular = vtlColor4f(0.0F, 0.0F, 0.0F, 1.0F);
    shape->rotateAboutGlobalX(0.5F);
    return shape;
}

Shape primitive(PRIMITIVE_SHAPE_TYPE type, const std::vector<float>& parameters) {
    return colored(WOPrimitiveShape::New(type, parameters));
}

/** An object with a model that `make` makes for it. */
template <class Make, class... Arguments>
Shape objectWith(Make make, Arguments... arguments) {
    auto object = std::make_unique<WO>();
    object->setModel(make(object.get(), arguments...));
    return object;
}

Shape box() {
    return primitive(psBOX, {0.5F, 6, 3});
}

Shape openCylinder() {
    return primitive(psCYLINDER, {2, 5});
}

Shape egg() {
    Shape sphere = primitive(psSPHERE, {3});
    sphere->getModel()->setScale(Vector(1, 3, 2));
    return sphere;
}

constexpr int hillSide = 33;

Shape hill(const MGLGrid::ColorRows* colors) {
    constexpr int half = hillSide / 2;
    MGLGrid::PointRows points;
    for (int y = half; y >= -half; --y) { // downwards, so that the surface looks up
        points.emplace_back();
        for (int x = -half; x <= half; ++x) {
            points.back().emplace_back(x, y, std::sin(x * 0.2) * std::cos(y * 0.2));
        }
    }
    return WOGrid::New(points, VectorD(0.25, 0.25, 0.7), colors);
}

const std::vector<Vector> corner{{-3, -3, 0}, {3, -3, 0}, {3, -3, 0}, {0, 0, 4}, {0, 0, 4}, {-3, -3, 0}};
const std::vector<vtlColor4ub> cornerColors{{255, 0, 0, 255}, {255, 0, 0, 255}, {0, 255, 0, 255}};
const MGLGrid::ColorRows stripes(hillSide, {{255, 0, 0, 99}, {0, 255, 0, 255}, {90, 90, 255, 255}});
const vtlColor4ub clearOrange(255, 99, 0, 128);

struct ShapeRow {
    const char* name;
    Shape (*make)();
    bool isLit;
    /** Of a channel. Light is computed for each vertex on one path and for each pixel on the other. */
    int tolerance;
};

/** Unlit ones first: no row puts a light out. */
const std::vector<ShapeRow> shapeRows{
    {"quad", [] { return Shape(WOQuad::New(2, imageFile, 6, 4)); }, false, 2},
    {"box", box, false, 2},
    {"grid of colours", [] { return hill(&stripes); }, false, 2},
    {"lit quad", [] { return colored(WOQuad::New(0, imageFile, 6, 4)); }, true, 3},
    {"cylinder", [] { return colored(WOCylinder::New(2, 2, 5, 40, 3)); }, true, 5},
    {"cone from below", [] { return colored(WOCylinder::New(3, 1, -5, 40, 3)); }, true, 5},
    {"cylinder without normals", [] { return colored(WOCylinder::New(1, 2, 5, 5, 1, false)); }, true, 2},
    {"shell", [] { return objectWith(MGLBoundingShell::New, Vector(2, 3, 4)); }, true, 2},
    {"axes", [] { return Shape(WOAxes::New(Vector(2, 3, 4))); }, true, 2},
    {"cube", [] { return primitive(psCUBE, {4}); }, true, 3},
    {"sphere", [] { return primitive(psSPHERE, {3}); }, true, 5},
    {"egg", egg, true, 7},
    {"open cylinder", openCylinder, true, 14},
    {"lines", [] { return Shape(WOPrimitiveShape::New(corner, &cornerColors)); }, true, 2},
    {"lines of one colour", [] { return colored(WOPrimitiveShape::New(corner, nullptr)); }, true, 2},
    {"grid", [] { return colored(hill(nullptr)); }, true, 5},
    {"line grid", [] { return Shape(WOGridLinesRegular2D::New(5, 0.5F, 4, 0.5F, clearOrange)); }, true, 2},
};

class ShapesGLTest : public Tests::SceneGLFixture {
protected:
    static int coveredPixels(const PixelPicture& shown) {
        return static_cast<int>(shown.pixels.size()) - countOf(shown, black);
    }
    static int countOf(const PixelPicture& shown, const Pixel& color) {
        return static_cast<int>(std::ranges::count(shown.pixels, color));
    }

    std::vector<PixelPicture> drawAll() {
        std::vector<PixelPicture> pictures;
        for (const ShapeRow& row : shapeRows) {
            seeFrom(Vector(-8, -4, 4));
            ManagerOpenGLState::setLightCountSource(nullptr);
            if (row.isLit) {
                shine(Vector(0.5F, -0.3F, -1).normalizeMe(), 0.25F);
            }
            pictures.push_back(pictureOf(*row.make()));
            EXPECT_GT(coveredPixels(pictures.back()), 100) << row.name;
        }
        return pictures;
    }
};

TEST_P(ShapesGLTest, LookAsInTheFixedFunctions) {
    if (!isShaderPath()) {
        GTEST_SKIP() << "these are the fixed functions";
    }
    WOQuad::New(0, imageFile, 1, 1); // whose image stays
    const Tests::GLObjectCount before = Tests::countGLObjects();
    const std::vector<PixelPicture> shown = drawAll();
    EXPECT_EQ(Tests::countGLObjects(), before) << "what the shapes had on the card";
    restartGL(Tests::fixedFunctionContext);
    const std::vector<PixelPicture> expected = drawAll();
    for (std::size_t i = 0; i < shown.size(); ++i) {
        const int worst = std::max(Tests::worstDifference(shown[i], expected[i]),
                                   Tests::worstDifference(expected[i], shown[i]));
        EXPECT_LE(worst, shapeRows[i].tolerance) << shapeRows[i].name;
        Tests::leavePictures(shown[i], expected[i],
                             Tests::nameOfGLContext({GetParam(), 0}) + " " + shapeRows[i].name,
                             worst > shapeRows[i].tolerance);
    }
}

TEST_P(ShapesGLTest, ArePickedWhereTheyAreSeen) {
    seeFrom(Vector(-8, -4, 4));
    shine(Vector(0, 0, -1), 0.5F);
    for (const ShapeRow& row : shapeRows) {
        const Shape shape = row.make();
        const int seen = coveredPixels(pictureOf(*shape));
        const PixelPicture selection = selectionPictureOf(*shape);
        const int picked = coveredPixels(selection);
        EXPECT_EQ(countOf(selection, selectionColorOf(*shape)), picked) << row.name;
        const bool isLineGrid = dynamic_cast<WOGridLinesRegular2D*>(shape.get()) != nullptr;
        const Model* const model = shape->getModel();
        if (dynamic_cast<WOGrid*>(shape.get()) != nullptr ||
            dynamic_cast<const MGLBoundingShell*>(model) != nullptr) {
            EXPECT_GT(picked, seen + 100) << row.name << ", by its box";
        } else {
            EXPECT_NEAR(picked, isLineGrid ? 0 : seen, 20) << row.name; // an image may be black somewhere
        }
    }
}

TEST_P(ShapesGLTest, ShowTheColorOfTheirSkinAndItsAlpha) {
    const auto cube = WOPrimitiveShape::New(psCUBE, {});
    cube->getModel()->getSkin().setColor(200, 100, 50, 128);
    EXPECT_LE(Tests::worstDifference(pictureOf(*cube).at(middle, middle), {150, 75, 38}), 1) << "two faces";
    cube->getModel()->getSkin().visibleFlag = false;
    cube->getModel()->boundingBoxVisible = true;
    const PixelPicture box = pictureOf(*cube);
    EXPECT_EQ(box.at(middle, middle), black);
    EXPECT_GT(countOf(box, {0, 255, 0}), 10);
    const MGLGrid::ColorRows clear(hillSide, {hillSide, vtlColor4ub(200, 100, 50, 128)});
    seeFrom(Vector(-4, 1, 4));
    EXPECT_EQ(pictureOf(*hill(&clear)).at(middle, middle), (Pixel{200, 100, 50})) << "a surface is opaque";
    const auto lines = WOGridLinesRegular2D::New(2, 1, 0, 1, vtlColor4ub(200, 100, 50, 128));
    lines->setPosition(-1, 0, 0);
    EXPECT_GT(countOf(pictureOf(*lines), {100, 50, 25}), 20);
}

TEST_P(ShapesGLTest, CapsFaceOutwards) {
    shine(Vector(0, 0, -1), 0);
    const auto cylinder = WOCylinder::New(3, 3, 1, 40, 1);
    for (const float height : {5.0F, -5.0F}) {
        seeFrom(Vector(-0.01F, 0, height));
        EXPECT_GE(pictureOf(*cylinder).at(middle + 9, middle + 9)[0], 250) << "lit from the eye, " << height;
    }
}

TEST_P(ShapesGLTest, QuadsSetBlendingAndDepthTest) {
    const auto front = WOQuad::New(2, imageFile, 4, 4);
    auto& model = dynamic_cast<MGLQuad&>(*front->getModel());
    model.getSkin() = ModelMeshSkin();
    model.getSkin().setColor(255, 0, 0, 0);
    EXPECT_EQ(pictureOf(*front).at(middle, middle), black);
    model.blendEnabled = false;
    EXPECT_EQ(pictureOf(*front).at(middle, middle), (Pixel{255, 0, 0}));
    model.useTextureMatrix = true;
    model.textureMatrix[13] = 5;
    EXPECT_EQ(pictureOf(*front).at(middle, middle), black) << "moved along Y";
    model.useTextureMatrix = false;
    const auto cube = WOPrimitiveShape::New(psCUBE, {});
    for (const bool isTested : {true, false}) {
        model.depthTestEnabled = isTested;
        clearPicture();
        cube->render(&*eye);
        front->render(&*eye);
        EXPECT_EQ(pixelAt(middle, middle), isTested ? (Pixel{255, 255, 255}) : (Pixel{255, 0, 0}));
        EXPECT_TRUE(glIsEnabled(GL_DEPTH_TEST) && glIsEnabled(GL_BLEND));
    }
}

TEST_P(ShapesGLTest, LinesAreAsWideAsTheContextCanAndHideNothing) {
    seeFrom(Vector(0, -3, 10));
    const float widest = ManagerOpenGLState::getCapabilities().maxLineWidth;
    const auto grid = WOGridLinesRegular2D::New(4, 2, 0, 1, vtlColor4ub());
    const int thin = coveredPixels(pictureOf(*grid));
    grid->setGlLineWidth(3);
    EXPECT_NEAR(coveredPixels(pictureOf(*grid)), static_cast<float>(thin) * std::min(widest, 3.0F), 4);
    float width = 0;
    glGetFloatv(GL_LINE_WIDTH, &width);
    EXPECT_EQ(width, 1.0F);
    const auto below = WOPrimitiveShape::New(psBOX, {9, 9, 0.5F});
    below->setPosition(0, 0, -2);
    const int alone = coveredPixels(pictureOf(*below));
    below->getModel()->getSkin().setColor(255, 0, 0, 255);
    clearPicture();
    grid->render(&*eye);
    below->render(&*eye);
    EXPECT_GE(countOf(picture(), {255, 0, 0}), alone);
}

INSTANTIATE_TEST_SUITE_P(Contexts, ShapesGLTest, Tests::everyGLContext(), Tests::nameOfGLContext);

} // namespace
} // namespace Vantrel
