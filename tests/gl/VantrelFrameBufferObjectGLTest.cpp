#include "vtl/gl/framebuffer/VantrelFrameBufferObject.h"

#include "vtl/gl/framebuffer/ScopedFrameBuffer.h"

#include "tests/support/GLContextFixture.h"
#include "tests/support/GLObjectCount.h"
#include "tests/support/PixelReading.h"
#include "tests/support/UnlitQuad.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <vector>

namespace Vantrel {
namespace {

using FrameBuffer = VantrelFrameBufferObject;
using Tests::Pixel;
using Tests::PixelPicture;

constexpr Pixel black{0, 0, 0};
constexpr Pixel white{255, 255, 255};

struct Wanted {
    int numTextures = 1;
    bool hasDepth = false;
    bool hasStencil = false;
    bool useAntiAliasing = false;
    bool depthIsTexture = false;
};

class VantrelFrameBufferObjectGLTest : public Tests::GLContextFixture {
protected:
    void SetUp() override {
        Tests::GLContextFixture::SetUp();
        ManagerTexture::init();
        glDisable(GL_BLEND);
        glClearColor(0, 0, 0, 1);
    }

    static std::unique_ptr<FrameBuffer> make(int width, int height, const Wanted& wanted = {}) {
        return FrameBuffer::New(width, height, wanted.numTextures, wanted.hasDepth, wanted.hasStencil,
                                wanted.useAntiAliasing, wanted.depthIsTexture);
    }
    /** As for a driver that has no more than that many samples. */
    static std::unique_ptr<FrameBuffer> makeWithSamples(int width, int height, int maxSamples) {
        auto made = std::make_unique<FrameBuffer>(width, height, 1, true, false, true, false, maxSamples);
        made->onCreate();
        return made;
    }
    static void clear() { glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT | GL_STENCIL_BUFFER_BIT); }
    static void drawWhite(const Tests::WindowQuad& quad = {}) {
        const auto texture = ManagerTexture::getDefaultWhiteTexture()->clone();
        Tests::drawUnlit(quad, *texture);
    }
    /** A square that stands on its corner, so that all of its edges are oblique. */
    static void drawOblique() {
        Tests::WindowQuad quad;
        quad.corners[0].position = {0.1F, -0.9F, 0.0F};
        quad.corners[1].position = {0.9F, 0.1F, 0.0F};
        quad.corners[2].position = {-0.9F, -0.1F, 0.0F};
        quad.corners[3].position = {-0.1F, 0.9F, 0.0F};
        drawWhite(quad);
    }
    /** White on black, but for what the two tests hide. */
    static void drawHidden(FrameBuffer& frameBuffer, double clearDepth, GLenum stencilTest) {
        const ScopedFrameBuffer bound(frameBuffer);
        glClearDepth(clearDepth);
        clear();
        glClearDepth(1.0);
        glEnable(GL_STENCIL_TEST);
        glStencilFunc(stencilTest, 0, 1);
        drawWhite();
        glDisable(GL_STENCIL_TEST);
    }
    static PixelPicture textureOf(const FrameBuffer& frameBuffer, GLint level = 0) {
        PixelPicture picture{
            std::max(frameBuffer.getWidth() >> level, 1), std::max(frameBuffer.getHeight() >> level, 1), {}};
        picture.pixels.resize(static_cast<std::size_t>(picture.width * picture.height));
        glPixelStorei(GL_PACK_ALIGNMENT, 1);
        frameBuffer.bindColorTexture();
        glGetTexImage(GL_TEXTURE_2D, level, GL_RGB, GL_UNSIGNED_BYTE, picture.pixels.data());
        glBindTexture(GL_TEXTURE_2D, 0);
        return picture;
    }
    static std::array<GLint, 4> viewport() {
        std::array<GLint, 4> answer{};
        glGetIntegerv(GL_VIEWPORT, answer.data());
        return answer;
    }
    static GLuint boundFrameBuffer() {
        GLint name = -1;
        glGetIntegerv(GL_FRAMEBUFFER_BINDING, &name);
        return static_cast<GLuint>(name);
    }
    /** What drawing goes to, by all who tell of it; null for the window. */
    static void expectTarget(const FrameBuffer* target) {
        const std::array<int, 2> size =
            target != nullptr ? std::array{target->getWidth(), target->getHeight()} : std::array{200, 100};
        EXPECT_EQ(boundFrameBuffer(), target != nullptr ? target->getHandle() : 0);
        EXPECT_EQ(viewport(), (std::array{0, 0, size[0], size[1]}));
        EXPECT_EQ(ManagerWindowing::getRenderTargetWidth(), size[0]);
        EXPECT_EQ(ManagerWindowing::getRenderTargetHeight(), size[1]);
        std::array<int, 2> told{};
        EXPECT_EQ(FrameBuffer::getCurrentTargetSize(&told[0], &told[1]), target != nullptr);
        EXPECT_EQ(told, target != nullptr ? size : (std::array{0, 0}));
    }
    /** Draws oblique edges, and says whether they come out smooth. */
    bool drawsSmoothly(FrameBuffer& frameBuffer) {
        {
            const ScopedFrameBuffer bound(frameBuffer);
            clear();
            drawOblique();
        }
        const PixelPicture picture = textureOf(frameBuffer);
        EXPECT_EQ(picture.at(picture.width / 2, picture.height / 2), white);
        EXPECT_EQ(picture.at(0, 0), black);
        EXPECT_EQ(keys.count(), 0) << reports.text();
        return std::ranges::any_of(picture.pixels,
                                   [](const Pixel& pixel) { return pixel != black && pixel != white; });
    }
};

TEST_P(VantrelFrameBufferObjectGLTest, BindsNest) {
    const auto outer = make(40, 30);
    const auto inner = make(20, 10, {.hasDepth = true});
    expectTarget(nullptr);
    outer->bind();
    expectTarget(outer.get());
    inner->bind();
    inner->bind();
    expectTarget(inner.get());
    const auto another = make(5, 5, {.hasDepth = true, .useAntiAliasing = true});
    expectTarget(inner.get());
    inner->unbind(false);
    expectTarget(inner.get());
    inner->unbind(false);
    expectTarget(outer.get());
    outer->unbind(false);
    expectTarget(nullptr);

    reports.clear();
    outer->unbind(true);
    EXPECT_EQ(reports.text(),
              "WARNING: Vantrel::VantrelFrameBufferObject::unbind() Stack underflow... Are all "
              "you bind() / unbind() matched?\n");
    expectTarget(nullptr);
}

TEST_P(VantrelFrameBufferObjectGLTest, IsNotBoundAgainOnceItHasDied) {
    const auto outer = make(40, 30);
    auto inner = make(20, 10);
    outer->bind();
    inner->bind();
    inner.reset();
    const auto sameName = make(7, 7);
    EXPECT_EQ(ManagerWindowing::getRenderTargetWidth(), 40);
    sameName->bind();
    sameName->unbind(false);
    expectTarget(outer.get());
    outer->unbind(false);
    expectTarget(nullptr);
}

TEST_P(VantrelFrameBufferObjectGLTest, BindsEndWithTheContext) {
    const auto frameBuffer = make(40, 30);
    frameBuffer->bind();
    Tests::stopGL();
    Tests::startGL(GetParam());
    expectTarget(nullptr);
}

TEST_P(VantrelFrameBufferObjectGLTest, KeepsTheViewportWithoutTextures) {
    const auto frameBuffer = make(64, 32, {.numTextures = 0, .hasDepth = true});
    frameBuffer->bind();
    EXPECT_EQ(viewport(), (std::array{0, 0, 200, 100}));
    EXPECT_EQ(ManagerWindowing::getRenderTargetWidth(), 64);
    clear();
    drawWhite();
    EXPECT_EQ(frameBuffer->createColorTexture(), nullptr);
    frameBuffer->unbind(true);
    EXPECT_EQ(keys.count(), 0) << reports.text();
}

TEST_P(VantrelFrameBufferObjectGLTest, HasWhatWasAskedFor) {
    for (const Wanted& wanted : {
             Wanted{},
             Wanted{.numTextures = 3},
             Wanted{.hasDepth = true},
             Wanted{.hasDepth = true, .depthIsTexture = true},
             Wanted{.hasStencil = true},
             Wanted{.hasDepth = true, .hasStencil = true},
             Wanted{.hasDepth = true, .useAntiAliasing = true},
             Wanted{.hasDepth = true, .hasStencil = true, .useAntiAliasing = true},
         }) {
        reports.clear();
        const auto frameBuffer = make(33, 21, wanted);
        ASSERT_NE(frameBuffer, nullptr);
        EXPECT_EQ(drawsSmoothly(*frameBuffer), wanted.useAntiAliasing) << reports.text();
        EXPECT_EQ(frameBuffer->getNumTextures(), static_cast<std::uint32_t>(wanted.numTextures));

        drawHidden(*frameBuffer, 0.0, GL_ALWAYS);
        EXPECT_EQ(textureOf(*frameBuffer).at(5, 5), wanted.hasDepth ? black : white) << "by the depth";
        drawHidden(*frameBuffer, 1.0, GL_NEVER);
        EXPECT_EQ(textureOf(*frameBuffer).at(5, 5), wanted.hasStencil ? black : white) << "by the stencil";
        EXPECT_EQ(checkGLError(0), 0U) << reports.text();
    }
}

TEST_P(VantrelFrameBufferObjectGLTest, TellsHowItIsMade) {
    reports.clear();
    const auto frameBuffer = make(33, 21, {.hasDepth = true, .useAntiAliasing = true});
    const std::string most = std::to_string(ManagerOpenGLState::getCapabilities().maxSamples);
    const std::string used = std::to_string(frameBuffer->getSamples());
    EXPECT_EQ(reports.text(),
              "Hardware support on this machine allows up to " + most +
                  "x Anti-Aliasing...\n"
                  "Generating Framebuffer handle...\nBinding Framebuffer handle...\n"
                  "Attaching Depth and/or Stencil buffer to bound Framebuffer...\n"
                  "Attached texture depth buffer...\nChecking Antialias Support...\n"
                  "Attaching AntiAliasing Buffers... Samples being used is " +
                  used + "...\nAttaching AntiAliasing Buffers... Depth Samples being used is " + used +
                  "...\nValidating Framebuffer object...\n"
                  "Finished Validating Framebuffer object...\n");
    EXPECT_EQ(frameBuffer->toString(),
              "FBO: WxH: 33x21\n   GLuint handle: " + std::to_string(frameBuffer->getHandle()) +
                  "\n   NumTextures: 1\n   HasDepthBuffer: 1 Depth Buffer GLuint handle: " +
                  std::to_string(frameBuffer->getDepthBufferHandle()) +
                  "\n   HasStencilBuffer: 0 Stencil Buffer GLuint handle: 0\n");
}

/** What the driver says that it has given, one answer after the other and the last one for good. */
std::vector<GLint> grantedSamples;

void GLAPIENTRY answerSamples(GLenum /*target*/, GLenum /*name*/, GLint* value) {
    *value = grantedSamples.front();
    if (grantedSamples.size() > 1) {
        grantedSamples.erase(grantedSamples.begin());
    }
}

struct FallBack {
    int maxSamples;
    std::vector<GLint> granted;
    /** 0 without anti-aliasing. */
    int samples;
    std::string told;
};

std::string reducedFor(const std::string& kind, int samples) {
    const std::string count = std::to_string(samples);
    return "...\nAntiAlias hardware for " + kind + " render buffer only supports " + count +
           "\n   reducing MSAA sample to " + count + "x...\n";
}

std::string disabledFor(int samples) {
    return "MSAA maximal sampling rate is " + std::to_string(samples) +
           " at least 2x is required for MSAA\n   to function... Disabling MultiSampling Antialiasing on "
           "this "
           "FBO...\nValidating Framebuffer object...\n";
}

TEST_P(VantrelFrameBufferObjectGLTest, DrawsWithWhatTheDriverGrants) {
    const std::string checking = "Checking Antialias Support...\n";
    const std::string color = checking + "Attaching AntiAliasing Buffers... Samples being used is ";
    const std::string depth = "...\nAttaching AntiAliasing Buffers... Depth Samples being used is ";
    const std::string end = "Validating Framebuffer object...\n";
    const Tests::GLObjectCount before = Tests::countGLObjects();
    for (const FallBack& row : {
             FallBack{
                 0, {4}, 0, "No hardware support on this machine...\nGenerating Framebuffer handle...\n"},
             FallBack{1, {1}, 0, color + "1...\n" + disabledFor(1)},
             FallBack{4, {1}, 0, color + "1" + reducedFor("color", 1) + disabledFor(1)},
             FallBack{4, {4, 0}, 0, color + "4" + depth + "0" + reducedFor("depth", 0) + disabledFor(0)},
             FallBack{4, {2}, 2, color + "2" + reducedFor("color", 2) + depth.substr(4) + "2...\n" + end},
             FallBack{4, {4, 3}, 3, color + "4" + depth + "3" + reducedFor("depth", 3) + end},
         }) {
        reports.clear();
        grantedSamples = row.granted;
        glGetRenderbufferParameteriv = answerSamples;
        const auto frameBuffer = makeWithSamples(40, 30, row.maxSamples);
        EXPECT_TRUE(reports.contains(row.told)) << row.told << "\n" << reports.text();
        EXPECT_EQ(frameBuffer->isAntiAliased(), row.samples > 0);
        EXPECT_EQ(drawsSmoothly(*frameBuffer), row.samples > 0) << row.told;
        EXPECT_TRUE(frameBuffer->adjustSize(60, 20));
        EXPECT_EQ(drawsSmoothly(*frameBuffer), row.samples > 0) << row.told;
        if (row.samples > 0) {
            EXPECT_EQ(frameBuffer->getSamples(), row.samples);
        }
        EXPECT_EQ(checkGLError(0), 0U) << reports.text();
    }
    EXPECT_EQ(Tests::countGLObjects(), before);
}

TEST_P(VantrelFrameBufferObjectGLTest, DrawsWithoutSamplesWhereTheyCantBe) {
    reports.clear();
    EXPECT_FALSE(drawsSmoothly(*make(40, 30, {.useAntiAliasing = true})));
    EXPECT_TRUE(reports.contains(
        "Requires a Depth buffer for antialias multisampling... Not using Antialiasing...\n"));
    EXPECT_FALSE(
        drawsSmoothly(*make(40, 30, {.hasDepth = true, .useAntiAliasing = true, .depthIsTexture = true})));
    EXPECT_FALSE(drawsSmoothly(*make(40, 30, {.numTextures = 2, .hasDepth = true, .useAntiAliasing = true})));
    EXPECT_EQ(reports.count("Requires one color texture and a Depth buffer that is no texture"), 2U);
    for (const auto takeAway :
         {+[] { glRenderbufferStorageMultisample = nullptr; }, +[] { glBlitFramebuffer = nullptr; }}) {
        takeAway();
        reports.clear();
        EXPECT_FALSE(drawsSmoothly(*make(40, 30, {.hasDepth = true, .useAntiAliasing = true})));
        EXPECT_TRUE(reports.contains(
            "WARNING: Your graphics hardware does not support 'glRenderbufferStorageMultisampleEXT()'.\n"
            "   Multi Sample Antialiasing is NOT supported on your hardware. Disabling FBO based\n"
            "   Antialiasing and continuing normally...\n"));
    }
}

TEST_P(VantrelFrameBufferObjectGLTest, RefusesWhatTheDriverDoesNotTake) {
    const int longest = ManagerOpenGLState::getCapabilities().maxFramebufferSize;
    const int textures = ManagerOpenGLState::getCapabilities().maxColorAttachments;
    ASSERT_GE(longest, 1024);
    const auto frameBuffer = make(40, 30, {.hasDepth = true});
    for (const auto& [width, height] :
         {std::pair(0, 5), std::pair(5, 0), std::pair(-1, 5), std::pair(longest + 1, 5),
          std::pair(5, longest + 1), std::pair(1 << 30, 1 << 30)}) {
        reports.clear();
        EXPECT_EQ(make(width, height), nullptr);
        EXPECT_FALSE(frameBuffer->adjustSize(width, height));
        EXPECT_EQ(reports.count("ERROR: VantrelFrameBufferObject: a size of "), 2U) << reports.text();
    }
    EXPECT_EQ(make(5, 5, {.numTextures = -1}), nullptr);
    EXPECT_EQ(make(5, 5, {.numTextures = textures + 1}), nullptr);
    EXPECT_EQ(frameBuffer->getWidth(), 40);
    EXPECT_FALSE(drawsSmoothly(*frameBuffer));
}

TEST_P(VantrelFrameBufferObjectGLTest, ChangesItsSize) {
    for (const Wanted& wanted : {Wanted{.numTextures = 2}, Wanted{.hasDepth = true, .depthIsTexture = true},
                                 Wanted{.hasStencil = true}, Wanted{.hasDepth = true, .hasStencil = true},
                                 Wanted{.hasDepth = true, .useAntiAliasing = true}}) {
        const auto frameBuffer = make(40, 30, wanted);
        ASSERT_TRUE(frameBuffer->adjustSize(71, 53));
        EXPECT_EQ(drawsSmoothly(*frameBuffer), wanted.useAntiAliasing) << reports.text();
        EXPECT_EQ(frameBuffer->createColorTexture()->getTexData()->width, 71U);
        drawHidden(*frameBuffer, 0.0, GL_ALWAYS);
        EXPECT_EQ(textureOf(*frameBuffer).at(70, 52), wanted.hasDepth ? black : white);
    }
}

TEST_P(VantrelFrameBufferObjectGLTest, MakesMipmaps) {
    for (const bool isSmooth : {false, true}) {
        const auto frameBuffer = make(64, 64, {.hasDepth = true, .useAntiAliasing = isSmooth});
        {
            const ScopedFrameBuffer bound(*frameBuffer, true);
            clear();
            Tests::WindowQuad leftHalf;
            leftHalf.corners[1].position[0] = leftHalf.corners[3].position[0] = 0;
            drawWhite(leftHalf);
        }
        EXPECT_NEAR(textureOf(*frameBuffer, 6).at(0, 0)[0], 128, 1) << isSmooth;
        EXPECT_EQ(textureOf(*frameBuffer, 5).at(0, 1), white) << isSmooth;
    }
}

TEST_P(VantrelFrameBufferObjectGLTest, KeepsTheDepthInATexture) {
    const auto frameBuffer = make(16, 8, {.hasDepth = true, .depthIsTexture = true});
    {
        const ScopedFrameBuffer bound(*frameBuffer);
        clear();
        drawOblique(); // at z = 0, in the middle
    }
    std::array<float, 16 * 8> depths{};
    glBindTexture(GL_TEXTURE_2D, frameBuffer->getDepthBufferHandle());
    glGetTexImage(GL_TEXTURE_2D, 0, GL_DEPTH_COMPONENT, GL_FLOAT, depths.data());
    glBindTexture(GL_TEXTURE_2D, 0);
    EXPECT_NEAR(depths[4 * 16 + 8], 0.5F, 0.001F);
    EXPECT_EQ(depths[0], 1.0F);
}

TEST_P(VantrelFrameBufferObjectGLTest, ItsPictureIsATexture) {
    const auto frameBuffer = make(20, 10, {.hasDepth = true});
    {
        const ScopedFrameBuffer bound(*frameBuffer);
        glClearColor(0.2F, 0.4F, 0.6F, 1.0F);
        clear();
        glEnable(GL_SCISSOR_TEST);
        glScissor(0, 0, 10, 5);
        glClearColor(1.0F, 0.0F, 0.0F, 1.0F);
        clear();
        glDisable(GL_SCISSOR_TEST);
    }
    const auto texture = frameBuffer->createColorTexture();
    EXPECT_EQ(texture->getGLHandle(), frameBuffer->getColorTextureHandle());
    EXPECT_EQ(texture->getTexData()->height, 10U);
    clear();
    Tests::drawUnlit(Tests::WindowQuad(), *texture);
    const PixelPicture shown = Tests::readPixels(200, 100);
    EXPECT_EQ(shown.at(0, 0), (Pixel{255, 0, 0})) << "nothing comes over from the other side";
    EXPECT_EQ(shown.at(80, 40), (Pixel{255, 0, 0}));
    for (const auto& [x, y] : {std::pair(120, 40), std::pair(80, 60), std::pair(199, 99)}) {
        EXPECT_EQ(shown.at(x, y), (Pixel{51, 102, 153})) << x << " " << y;
    }
}

TEST_P(VantrelFrameBufferObjectGLTest, WaitsForAKeyWhereNothingIsAttached) {
    EXPECT_NE(make(5, 5, {.numTextures = 0}), nullptr);
    EXPECT_TRUE(reports.contains("Validating Framebuffer object...\n"
                                 "GL_FRAMEBUFFER_INCOMPLETE_MISSING_ATTACHMENT\n"
                                 "Finished Validating Framebuffer object...\n"));
    EXPECT_EQ(keys.count(), 1);
}

TEST(VantrelFrameBufferObjectTest, IsNothingWithoutAContext) {
    Tests::ReportCapture reports;
    EXPECT_EQ(FrameBuffer::New(5, 5, 1, true, true, true, false), nullptr);
    EXPECT_EQ(reports.text(), "Does not support frame buffer objects.\n");
}

INSTANTIATE_TEST_SUITE_P(Contexts, VantrelFrameBufferObjectGLTest, Tests::everyGLContext(),
                         Tests::nameOfGLContext);

using VantrelFrameBufferObjectExtensionsGLTest = VantrelFrameBufferObjectGLTest;

TEST_P(VantrelFrameBufferObjectExtensionsGLTest, DrawsByTheFunctionsFromBefore30) {
    glGenFramebuffers = nullptr;
    const auto frameBuffer = make(40, 30, {.hasDepth = true, .hasStencil = true, .useAntiAliasing = true});
    EXPECT_TRUE(drawsSmoothly(*frameBuffer)) << reports.text();
}

// Core contexts refuse them.
INSTANTIATE_TEST_SUITE_P(Contexts, VantrelFrameBufferObjectExtensionsGLTest,
                         ::testing::Values(Tests::fixedFunctionContext,
                                           Tests::GLContextRow{4, 5, "compatibility"}),
                         Tests::nameOfGLContext);

} // namespace
} // namespace Vantrel
