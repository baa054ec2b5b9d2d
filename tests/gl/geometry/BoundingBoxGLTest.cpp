#include "vtl/geometry/BoundingBox.h"

#include "vtl/geometry/VantrelGeometryFrustum.h"
#include "vtl/math/MatrixBuilders.h"

#include "tests/gl/geometry/GeometryGLFixture.h"
#include "tests/support/GLObjectCount.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <utility>

namespace Vantrel {
namespace {

using Tests::black;
using Tests::Pixel;
using Tests::PixelPicture;
using Tests::SpoiledColors;

struct ScreenPoint {
    float x;
    float y;
};

/** Where the model's point shows, in pixels from the lower left. */
ScreenPoint project(const Mat4& mvp, const Vector& p) {
    const auto row = [&](std::size_t r) {
        return mvp[r] * p.x + mvp[4 + r] * p.y + mvp[8 + r] * p.z + mvp[12 + r];
    };
    return {(row(0) / row(3) + 1) / 2 * Tests::windowWidth, (row(1) / row(3) + 1) / 2 * Tests::windowHeight};
}

struct Edge {
    Vector from;
    Vector to;
    Pixel color;
};

std::vector<Edge> edgesOf(const Vector& low, const Vector& high) {
    std::vector<Edge> edges;
    for (const float first : {0.0F, 1.0F}) {
        for (const float second : {0.0F, 1.0F}) {
            const auto at = [&](float u, float v, float w) {
                return Vector(low.x + u * (high.x - low.x), low.y + v * (high.y - low.y),
                              low.z + w * (high.z - low.z));
            };
            edges.push_back({at(0, first, second), at(1, first, second), {255, 0, 0}});
            edges.push_back({at(first, 0, second), at(first, 1, second), {0, 255, 0}});
            edges.push_back({at(first, second, 0), at(first, second, 1), {0, 0, 255}});
        }
    }
    return edges;
}

class BoundingBoxGLTest : public Tests::GeometryGLFixture {
protected:
    BoundingBoxGLTest() {
        Mat4 projection;
        Mat4 view;
        // Into the box from nearby, so that the far face shows within the near one.
        buildPerspective(90, 2, 1, 100, projection);
        buildLookAt(Vector(10, 1.5F, 1.6F), Vector(0, 1.2F, 1.2F), unitZ, view);
        camera = ShaderCamera(projection, view);
        rotateAboutAxis(unitZ, 0.1F, model);
        model[12] = 1.5F;
        mvp = camera.getViewProjectionMatrix() * model;
    }

    /** How far pixel x, y is from an edge on the screen. */
    float distance(const Edge& edge, float x, float y) const {
        const ScreenPoint a = project(mvp, edge.from);
        const ScreenPoint b = project(mvp, edge.to);
        const float dx = b.x - a.x;
        const float dy = b.y - a.y;
        const float t = std::clamp(((x - a.x) * dx + (y - a.y) * dy) / (dx * dx + dy * dy), 0.0F, 1.0F);
        return std::hypot(a.x + t * dx - x, a.y + t * dy - y);
    }

    /** Every pixel that isn't black has the colour of an edge that passes it. */
    void expectNothingBeside(const PixelPicture& picture, const std::vector<Edge>& edges) const {
        constexpr float near = 1.5F;
        for (int y = 0; y < picture.height; ++y) {
            for (int x = 0; x < picture.width; ++x) {
                const Pixel& pixel = picture.at(x, y);
                ASSERT_TRUE(pixel == black ||
                            std::any_of(edges.begin(), edges.end(),
                                        [&](const Edge& edge) {
                                            return edge.color == pixel &&
                                                   distance(edge, static_cast<float>(x) + 0.5F,
                                                            static_cast<float>(y) + 0.5F) < near;
                                        }))
                    << x << " " << y;
            }
        }
    }

    /** Where an edge keeps clear of all others, it shows in its colour. */
    void expectAllShown(const PixelPicture& picture, const std::vector<Edge>& edges) const {
        constexpr float clear = 3;
        for (const Edge& edge : edges) {
            int seen = 0;
            for (float t = 0.05F; t < 0.96F; t += 0.05F) {
                const ScreenPoint p = project(mvp, edge.from + (edge.to - edge.from) * t);
                const auto isClear = [&](const Edge& other) {
                    return &other == &edge || distance(other, p.x, p.y) > clear;
                };
                if (std::all_of(edges.begin(), edges.end(), isClear)) {
                    EXPECT_TRUE(shows(picture, p, edge.color)) << p.x << " " << p.y;
                    ++seen;
                }
            }
            EXPECT_GT(seen, 4) << edge.from.toString() << edge.to.toString();
        }
    }
    static bool shows(const PixelPicture& picture, const ScreenPoint& p, const Pixel& color) {
        for (int dy = -1; dy <= 1; ++dy) {
            for (int dx = -1; dx <= 1; ++dx) {
                if (picture.at(static_cast<int>(p.x) + dx, static_cast<int>(p.y) + dy) == color) {
                    return true;
                }
            }
        }
        return false;
    }

    void expectLines(const Vector& low, const Vector& high) const {
        const PixelPicture shown = picture();
        const std::vector<Edge> edges = edgesOf(low, high);
        expectNothingBeside(shown, edges);
        expectAllShown(shown, edges);
    }

    static std::ptrdiff_t countPixels(const Pixel& color) {
        const PixelPicture shown = picture();
        return std::count(shown.pixels.begin(), shown.pixels.end(), color);
    }

    /** Binds the shader that the caller of `renderSolid` binds. */
    void drawSolid(BoundingBox& box, const Mat4& transform, const Pixel& color) const {
        loadMatrix(transform);
        if (GetParam().isShaderPath()) {
            ManagerShader::getDefaultSelectionShader()->bind(transform, color[0], color[1], color[2]);
        }
        box.renderSolid(camera, color[0], color[1], color[2]);
        ManagerShader::useProgram(0);
    }

    ShaderCamera camera{Mat4(), Mat4()};
    Mat4 model;
    Mat4 mvp;
};

TEST_P(BoundingBoxGLTest, DrawsItsEdgesInTheColorsOfTheAxes) {
    BoundingBox box;
    box.addPoint(Vector(-3, -2, -1));
    box.addPoint(Vector(4, 2, 3));
    loadMatrix(mvp);
    const SpoiledColors spoiled;
    box.render(camera, model);
    expectLines(Vector(-3, -2, -1), Vector(4, 2, 3));
    expectNothingBound();

    clearPicture();
    box.addPoint(Vector(-1, 5, 0));
    box.render(camera, model);
    expectLines(Vector(-3, -2, -1), Vector(4, 5, 3));
}

TEST_P(BoundingBoxGLTest, DrawsWhereThereAreNoBuffers) {
    if (GetParam().isShaderPath()) {
        GTEST_SKIP() << "a part of GL from 1.5 on";
    }
    const auto bindBuffer = std::exchange(glBindBuffer, nullptr);
    BoundingBox box;
    box.setLxLyLz(Vector(2, 4, 8), Vector());
    box.render(camera, model);
    glBindBuffer = bindBuffer;
    EXPECT_LT(countPixels(black), Tests::windowWidth * Tests::windowHeight);
}

TEST_P(BoundingBoxGLTest, WritesItsBuffersAgainOnlyWhenSomethingHasChanged) {
    if (!GetParam().isShaderPath()) {
        GTEST_SKIP() << "no buffers";
    }
    BoundingBox box;
    box.setLxLyLz(Vector(2, 4, 8), Vector());
    box.render(camera, model);
    GLuint lines = 1; // the first buffer that the box has made
    while (!glIsBuffer(lines)) {
        ASSERT_LT(++lines, 100U);
    }
    constexpr std::array<std::uint8_t, 384> zeros{};
    glBindBuffer(GL_ARRAY_BUFFER, lines);
    glBufferSubData(GL_ARRAY_BUFFER, 0, zeros.size(), zeros.data());
    clearPicture();
    box.render(camera, model);
    EXPECT_EQ(countPixels(black), Tests::windowWidth * Tests::windowHeight);
    box.setDirty();
    box.render(camera, model);
    EXPECT_LT(countPixels(black), Tests::windowWidth * Tests::windowHeight);
    GLint size = 0;
    glBindBuffer(GL_ARRAY_BUFFER, lines);
    glGetBufferParameteriv(GL_ARRAY_BUFFER, GL_BUFFER_SIZE, &size);
    glBindBuffer(GL_ARRAY_BUFFER, 0);
    EXPECT_EQ(size, static_cast<GLint>(zeros.size()));
}

TEST_P(BoundingBoxGLTest, DrawsASolidAboutTheOriginInTheExactColor) {
    Mat4 projection;
    Mat4 view;
    buildOrthographic(-10, 10, -5, 5, 1, 100, projection); // 10 pixels a metre
    buildLookAt(Vector(50, 0, 0), Vector(), unitZ, view);
    BoundingBox box;
    box.setLxLyLz(Vector(2, 4, 8), Vector(3, 5, 7));
    for (const Pixel& color : {Pixel{1, 128, 254}, Pixel{255, 77, 2}}) {
        clearPicture();
        {
            const SpoiledColors spoiled;
            drawSolid(box, projection * view, color);
        }
        expectNothingBound();
        const PixelPicture shown = picture();
        for (int y = 0; y < shown.height; ++y) {
            for (int x = 0; x < shown.width; ++x) {
                const bool isInside = x >= 80 && x < 120 && y >= 10 && y < 90;
                ASSERT_EQ(shown.at(x, y), isInside ? color : black) << x << " " << y;
            }
        }
    }
}

TEST_P(BoundingBoxGLTest, DrawsNothingWithoutPoints) {
    loadMatrix(mvp);
    BoundingBox box;
    box.render(camera, model);
    drawSolid(box, mvp, {255, 255, 255});
    box.addPoints(std::array{1.0F, 2.0F, std::numeric_limits<float>::quiet_NaN()}.data(), 1);
    box.render(camera, model);
    drawSolid(box, mvp, {255, 255, 255});
    EXPECT_EQ(countPixels(black), Tests::windowWidth * Tests::windowHeight);
}

TEST_P(BoundingBoxGLTest, FreesWhatItHasMade) {
    const Tests::GLObjectCount before = Tests::countGLObjects();
    {
        BoundingBox box;
        box.setLxLyLz(Vector(2, 4, 8), Vector());
        box.render(camera, model);
        EXPECT_EQ(Tests::countGLObjects() == before, !GetParam().isShaderPath());
        BoundingBox copy = box;
        copy.renderSolid(camera, 1, 2, 3);
        const Tests::GLObjectCount both = Tests::countGLObjects();
        copy = box;
        EXPECT_EQ(Tests::countGLObjects() == both, !GetParam().isShaderPath());
        copy.render(camera, model);
        EXPECT_EQ(Tests::countGLObjects(), both);
    }
    EXPECT_EQ(Tests::countGLObjects(), before);
}

TEST_P(BoundingBoxGLTest, FrustumTakesTheShapeOfTheWindow) {
    const VantrelGeometryFrustum frustum;
    const float half = std::tan(32.5F * 0.017453292F);
    EXPECT_FLOAT_EQ(frustum.getPlaneCoef(4), -0.1F);
    EXPECT_FLOAT_EQ(frustum.getPlaneCoef(5), 1000.0F);
    const Vector top = Vector(-half, 0, 1).normalizeMe();
    const Vector left = Vector(-half * 2, 1, 0).normalizeMe();
    EXPECT_LT(frustum.getPlaneNormal(0).distanceFrom(top), 1e-5F);
    EXPECT_LT(frustum.getPlaneNormal(2).distanceFrom(left), 1e-5F);
}

INSTANTIATE_TEST_SUITE_P(Contexts, BoundingBoxGLTest, Tests::everyGLContext(), Tests::nameOfGLContext);

} // namespace
} // namespace Vantrel
