#include "vtl/render/VantrelGLRenderer.h"

#include "vtl/scene/object/WorldList.h"
#include "vtl/scene/shape/WOPrimitiveShape.h"

#include "tests/gl/scene/SceneGLFixture.h"

#include <cmath>
#include <gtest/gtest.h>

namespace Vantrel {
namespace {

using Tests::Pixel;
using Tests::PixelPicture;

constexpr int side = Tests::pictureSide;
constexpr float separation = 0.5F;
/** Where the camera sees with both eyes alike, counted from where it stands. */
constexpr float plane = 10.0F;

/** Notes what each eye saw through. */
class NotingRenderer : public VantrelGLRenderer {
public:
    explicit NotingRenderer(float eyeSeparation = separation) {
        stereoSeparation = eyeSeparation;
        stereoPlane = plane;
        init();
    }
    void setStereoEyeFrustum(float left, float right, float bottom, float top, float near, float far,
                             bool firstEye, float halfDistance, Camera* camera) override {
        VantrelGLRenderer::setStereoEyeFrustum(left, right, bottom, top, near, far, firstEye, halfDistance,
                                               camera);
        eyes.push_back(camera->getShaderCamera());
        places.push_back(camera->getPosition());
    }
    std::vector<ShaderCamera> eyes;
    std::vector<Vector> places;
};

/** A red cube whose middle is on the plane of both eyes, 5 to the left, and a green one nearer in the middle.
 */
template <const char* mode>
class StereoGLTest : public Tests::SceneGLFixture {
protected:
    std::vector<std::string> settings() const override {
        return {"{usestereo=1}", std::string("{stereomode=") + mode + "}"};
    }
    void SetUp() override {
        SceneGLFixture::SetUp();
        glClearColor(0, 0, 0, 1);
        ManagerOpenGLState::setAxesVisible(false);
        ManagerOpenGLState::setFrustumCullingEnabled(false);
        list.emplace(false);
        far = cubeAt(Vector(0, 3, 0), {255, 0, 0, 255});
        near = cubeAt(Vector(-5, 0, 0), {0, 255, 0, 255});
    }
    void TearDown() override {
        list.reset();
        far.reset();
        near.reset();
        SceneGLFixture::TearDown();
    }
    std::unique_ptr<WO> cubeAt(const Vector& place, const vtlColor4ub& color) {
        std::unique_ptr<WO> cube = WOPrimitiveShape::New(PRIMITIVE_SHAPE_TYPE::psCUBE, {1});
        cube->getModel()->getSkin().setColor(color);
        cube->setPosition(place);
        list->push_back(cube.get());
        return cube;
    }
    /** Mean column and row of the pixels of a channel, within a rectangle of the picture. */
    static std::array<float, 2> centreOf(const PixelPicture& shown, std::size_t channel, int x0, int y0,
                                         int width, int height) {
        float count = 0;
        std::array<float, 2> sum{};
        for (int y = y0; y < y0 + height; ++y) {
            for (int x = x0; x < x0 + width; ++x) {
                if (shown.at(x, y)[channel] > 100) {
                    sum[0] += static_cast<float>(x - x0);
                    sum[1] += static_cast<float>(y - y0);
                    ++count;
                }
            }
        }
        EXPECT_GT(count, 20);
        return {sum[0] / count, sum[1] / count};
    }

    std::optional<WorldList> list;
    std::unique_ptr<WO> far;
    std::unique_ptr<WO> near;
};

constexpr char horizontal[] = "splithorizontal";
constexpr char vertical[] = "splitvertical";
constexpr char full[] = "full";
using StereoSideBySideGLTest = StereoGLTest<horizontal>;
using StereoAboveGLTest = StereoGLTest<vertical>;
using StereoBuffersGLTest = StereoGLTest<full>;

TEST_P(StereoSideBySideGLTest, BothEyesSeeThePlaneAlikeAndTheCameraComesBack) {
    NotingRenderer renderer;
    const Vector before(-10.1F, 0.3F, 0.7F);
    eye->setPosition(before);
    renderer.render(&*eye, &*list);
    EXPECT_EQ(eye->getPosition(), before);
    ASSERT_EQ(renderer.eyes.size(), 2U);
    EXPECT_NEAR(renderer.places[0].y, before.y - separation, 1e-5F) << "the right one first";
    EXPECT_NEAR(renderer.places[1].y, before.y + separation, 1e-5F);
    const auto placeSeen = [&](std::size_t eyeIndex, const Vector& point) {
        const Mat4& all = renderer.eyes[eyeIndex].getViewProjectionMatrix();
        const auto row = [&](std::size_t i) {
            return all[i] * point.x + all[4 + i] * point.y + all[8 + i] * point.z + all[12 + i];
        };
        return std::array{row(0) / row(3), row(1) / row(3)};
    };
    for (const Vector& across : {Vector(0, 0, 0), Vector(0, 6, 2), Vector(0, -6, -3)}) {
        const Vector onPlane = before + Vector(plane, 0, 0) + across;
        // The rectangles are half the eyes' distance apart, so that theirs meet at twice the plane.
        const Vector meeting = before + Vector(2 * plane, 0, 0) + across;
        EXPECT_NEAR(placeSeen(0, meeting)[0], placeSeen(1, meeting)[0], 1e-4F);
        EXPECT_NEAR(placeSeen(0, onPlane)[1], placeSeen(1, onPlane)[1], 1e-5F);
    }
}

TEST_P(StereoSideBySideGLTest, ShowsTheLeftEyeOnTheLeft) {
    NotingRenderer renderer;
    renderer.render(&*eye, &*list);
    const PixelPicture shown = picture();
    const auto left = centreOf(shown, 1, 0, 0, side / 2, side);
    const auto right = centreOf(shown, 1, side / 2, 0, side / 2, side);
    EXPECT_GT(left[0], right[0] + 5) << "what is near is further right for the left eye";
    EXPECT_NEAR(left[1], right[1], 0.5F);
    EXPECT_NEAR((left[0] + right[0]) / 2, side / 4.0F, 1.0F);
}

TEST_P(StereoSideBySideGLTest, WithoutSeparationBothPicturesAreTheSame) {
    NotingRenderer renderer(0);
    renderer.render(&*eye, &*list);
    const PixelPicture shown = picture();
    int coloured = 0;
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side / 2; ++x) {
            ASSERT_EQ(shown.at(x, y), shown.at(x + side / 2, y)) << x << " " << y;
            coloured += shown.at(x, y) != Tests::black ? 1 : 0;
        }
    }
    EXPECT_GT(coloured, 200);
    renderer.renderSingleFrame(&*eye, &*list);
    const auto whole = centreOf(picture(), 0, 0, 0, side, side);
    const auto half = centreOf(shown, 0, 0, 0, side / 2, side);
    EXPECT_NEAR(half[0], whole[0] / 2, 1.0F) << "all of the view, half as wide";
    EXPECT_NEAR(half[1], whole[1], 1.0F);
}

TEST_P(StereoSideBySideGLTest, FollowsTheWindowsSize) {
    NotingRenderer renderer;
    ManagerWindowing::resize(side / 2, side);
    eye->setViewport({0, 0, side / 2, side});
    renderer.render(&*eye, &*list);
    const PixelPicture shown = picture();
    EXPECT_NEAR(centreOf(shown, 1, 0, 0, side / 4, side)[1], side / 2.0F, 2.0F);
    centreOf(shown, 1, side / 4, 0, side / 4, side);
}

TEST_P(StereoAboveGLTest, ShowsTheLeftEyeBelow) {
    NotingRenderer renderer;
    renderer.render(&*eye, &*list);
    const PixelPicture shown = picture();
    const auto left = centreOf(shown, 1, 0, 0, side, side / 2);
    const auto right = centreOf(shown, 1, 0, side / 2, side, side / 2);
    EXPECT_GT(left[0], right[0] + 10);
    EXPECT_NEAR(left[1], right[1], 0.5F);
}

TEST_P(StereoBuffersGLTest, AWindowWithoutThemShowsTheLeftEye) {
    NotingRenderer renderer;
    renderer.render(&*eye, &*list);
    EXPECT_GT(centreOf(picture(), 1, 0, 0, side, side)[0], side / 2.0F + 5);
    EXPECT_EQ(VantrelGLRenderer::New()->getStereoPlane(), ManagerOpenGLState::getFarPlane() / 2)
        << "without a plane of its own in the settings";
}

INSTANTIATE_TEST_SUITE_P(Contexts, StereoSideBySideGLTest, Tests::everyGLContext(), Tests::nameOfGLContext);
INSTANTIATE_TEST_SUITE_P(Contexts, StereoAboveGLTest, Tests::everyGLContext(), Tests::nameOfGLContext);
INSTANTIATE_TEST_SUITE_P(Contexts, StereoBuffersGLTest, Tests::everyGLContext(), Tests::nameOfGLContext);

} // namespace
} // namespace Vantrel
