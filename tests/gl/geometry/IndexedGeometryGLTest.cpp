#include "vtl/geometry/IndexedGeometryRectangularPrism.h"

#include "vtl/math/MatrixBuilders.h"

#include "tests/gl/geometry/GeometryGLFixture.h"
#include "tests/support/GLObjectCount.h"

#include <gtest/gtest.h>

namespace Vantrel {
namespace {

using Tests::black;
using Tests::Pixel;

/** A rectangle about the middle of the picture, in one colour, with indices of a type. */
template <class Index>
class Rectangle : public IndexedGeometry {
public:
    Rectangle() : IndexedGeometry(false, false, true) {}

    void setColor(const Pixel& color) {
        colors.clear();
        for (int i = 0; i < 4; ++i) {
            colors.insert(colors.end(), {color[0], color[1], color[2], 255});
        }
    }
    void setHalfWidth(float half) {
        vertices = {-half, -0.5F, 0, half, -0.5F, 0, half, 0.5F, 0, -half, 0.5F, 0};
        numVertices = 4;
    }

protected:
    void buildVertices() override { setHalfWidth(0.5F); }
    void buildIndices() override { setIndices(std::vector<Index>{0, 1, 2, 2, 3, 0}); }
    void buildColors() override { setColor({10, 20, 30}); }
};

class IndexedGeometryGLTest : public Tests::GeometryGLFixture {
protected:
    static Pixel pixelAt(int x, int y) { return picture().at(x, y); }

    template <class Index>
    void expectChangesToShow() const {
        Rectangle<Index> rectangle;
        rectangle.build();
        draw(rectangle);
        EXPECT_EQ(pixelAt(60, 50), (Pixel{10, 20, 30}));
        EXPECT_EQ(pixelAt(140, 30), (Pixel{10, 20, 30}));
        EXPECT_EQ(pixelAt(40, 50), black);
        rectangle.setColor({200, 100, 50});
        rectangle.setHalfWidth(0.9F);
        rectangle.updateColorsOnCard();
        rectangle.updateVerticesOnCard();
        draw(rectangle);
        EXPECT_EQ(pixelAt(20, 50), (Pixel{200, 100, 50}));
        rectangle.setPrimitive(GL_LINES);
        draw(rectangle);
        EXPECT_EQ(pixelAt(100, 40), black);
    }
};

TEST_P(IndexedGeometryGLTest, ShowsChangedColorsAndVertices) {
    const Tests::GLObjectCount before = Tests::countGLObjects();
    expectChangesToShow<std::uint8_t>();
    expectChangesToShow<std::uint16_t>();
    expectChangesToShow<std::uint32_t>();
    EXPECT_EQ(Tests::countGLObjects(), before);
}

TEST_P(IndexedGeometryGLTest, IsWhiteAndUnlitWithoutColorsAndNormals) {
    constexpr Pixel white{255, 255, 255};
    const auto prism = IndexedGeometryRectangularPrism::New(Vector(1, 1, 1), false, false);
    if (GetParam().isShaderPath()) {
        glVertexAttrib4f(3, 1, 0, 1, 1);
        glVertexAttrib3f(1, 0, 0, 1);
    } else {
        glColor3ub(255, 255, 255);
    }
    draw(*prism);
    EXPECT_EQ(pixelAt(100, 50), white);
    if (GetParam().isShaderPath()) {
        std::array<float, 4> normal{1, 1, 1, 1};
        glGetVertexAttribfv(1, GL_CURRENT_VERTEX_ATTRIB, normal.data());
        EXPECT_EQ(normal[2], 0);
    }
}

TEST_P(IndexedGeometryGLTest, AsksTheDefaultShaderForItsLocations) {
    Rectangle<std::uint8_t> rectangle;
    rectangle.bindAttributesToDefaultShader();
    rectangle.build();
    rectangle.setColor({1, 0, 0});
    rectangle.updateColorsOnCard();
    rectangle.bindAttributesToDefaultShader();
    draw(rectangle);
    // The bytes arrive as whole numbers then, of which 1 is the brightest that shows.
    EXPECT_EQ(pixelAt(100, 50)[0], GetParam().isShaderPath() ? 255 : 1);
}

/** The bound vertex array reads at that location from a buffer that begins with `values`. */
void expectAttribute(GLuint location, const std::vector<float>& values) {
    GLint buffer = 0;
    glGetVertexAttribiv(location, GL_VERTEX_ATTRIB_ARRAY_BUFFER_BINDING, &buffer);
    std::vector<float> read(values.size());
    glBindBuffer(GL_ARRAY_BUFFER, static_cast<GLuint>(buffer));
    glGetBufferSubData(GL_ARRAY_BUFFER, 0, static_cast<GLsizeiptr>(read.size() * sizeof(float)), read.data());
    glBindBuffer(GL_ARRAY_BUFFER, 0);
    EXPECT_EQ(read, values) << location;
}

/** On the fixed-function path a texture of four colours, lit from +X, shows on the face of +X as it is. */
void expectTextureOnLitFace(const IndexedGeometry& prism) {
    constexpr std::array<GLubyte, 16> texels{255, 0, 0,   255, 0,   255, 0, 255,
                                             0,   0, 255, 255, 255, 255, 0, 255};
    constexpr std::array<float, 4> white{1, 1, 1, 1};
    constexpr std::array<float, 4> none{0, 0, 0, 1};
    constexpr std::array<float, 4> fromX{1, 0, 0, 0};
    const GLTexture texture = GLTexture::create();
    glBindTexture(GL_TEXTURE_2D, texture.get());
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
    glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA, 2, 2, 0, GL_RGBA, GL_UNSIGNED_BYTE, texels.data());
    glLightModelfv(GL_LIGHT_MODEL_AMBIENT, none.data());
    glLightfv(GL_LIGHT0, GL_DIFFUSE, white.data());
    glLightfv(GL_LIGHT0, GL_POSITION, fromX.data());
    glMaterialfv(GL_FRONT_AND_BACK, GL_DIFFUSE, white.data());
    for (const GLenum capability : std::initializer_list<GLenum>{GL_TEXTURE_2D, GL_LIGHTING, GL_LIGHT0}) {
        glEnable(capability);
    }
    glDisable(GL_COLOR_MATERIAL);
    prism.render();
    const Tests::PixelPicture shown = Tests::readPixels(Tests::windowWidth, Tests::windowHeight);
    EXPECT_EQ(shown.at(90, 40), (Pixel{255, 0, 0}));
    EXPECT_EQ(shown.at(110, 40), (Pixel{0, 255, 0}));
    EXPECT_EQ(shown.at(90, 60), (Pixel{0, 0, 255}));
    EXPECT_EQ(shown.at(110, 60), (Pixel{255, 255, 0}));
}

TEST_P(IndexedGeometryGLTest, PassesNormalsAndTextureCoordinates) {
    const auto prism = IndexedGeometryRectangularPrism::New(Vector(4, 4, 4), true, true);
    if (!GetParam().isShaderPath()) {
        Mat4 projection;
        Mat4 view;
        buildOrthographic(-10, 10, -5, 5, 1, 100, projection);
        buildLookAt(Vector(50, 0, 0), Vector(), unitZ, view);
        loadMatrix(projection * view);
        expectTextureOnLitFace(*prism);
        return;
    }
    GLuint vertexArray = 1;
    while (!glIsVertexArray(vertexArray)) {
        ASSERT_LT(++vertexArray, 100U);
    }
    glBindVertexArray(vertexArray);
    expectAttribute(0, {2, -2, -2, 2, 2, -2, 2, -2, 2, 2, 2, 2, -2, 2, -2});
    expectAttribute(1, {1, 0, 0, 1, 0, 0, 1, 0, 0, 1, 0, 0, -1, 0, 0});
    expectAttribute(2, {0, 0, 1, 0, 0, 1, 1, 1, 0, 0});
    glBindVertexArray(0);
}

INSTANTIATE_TEST_SUITE_P(Contexts, IndexedGeometryGLTest, Tests::everyGLContext(), Tests::nameOfGLContext);

} // namespace
} // namespace Vantrel
