#include "vtl/gl/texture/ManagerTexture.h"

#include "tests/support/GLContextFixture.h"
#include "tests/support/GLObjectCount.h"
#include "tests/support/PixelReading.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/UnlitQuad.h"
#include "vtl/base/ManagerSDLTime.h"
#include "vtl/base/TickSource.h"
#include "vtl/gl/DebugView.h"

#include <SDL_image.h>
#include <gtest/gtest.h>

namespace Vantrel {
namespace {

using Texel = std::array<std::uint8_t, 4>;

/** What an image of the tests has at a place, rows from the top down. */
Texel texelAt(int x, int y, bool isGrey = false) {
    const auto value = static_cast<std::uint8_t>(40 * x + 9 * y);
    return isGrey
               ? Texel{value, value, value, 255}
               : Texel{value, static_cast<std::uint8_t>(255 - 20 * y), static_cast<std::uint8_t>(11 * x * y),
                       static_cast<std::uint8_t>(y % 2 == 0 ? 255 : 128)};
}

SDLSurface image(int width, int height, bool isGrey = false) {
    SDLSurface surface(SDL_CreateRGBSurfaceWithFormat(
        0, width, height, isGrey ? 8 : 32, isGrey ? SDL_PIXELFORMAT_INDEX8 : SDL_PIXELFORMAT_RGBA32));
    if (isGrey) {
        std::array<SDL_Color, 256> greys{};
        for (std::size_t i = 0; i < greys.size(); ++i) {
            const auto value = static_cast<std::uint8_t>(i);
            greys[i] = {value, value, value, 255};
        }
        SDL_SetPaletteColors(surface->format->palette, greys.data(), 0, static_cast<int>(greys.size()));
    }
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            auto* const row = static_cast<std::uint8_t*>(surface->pixels) + y * surface->pitch;
            const Texel texel = texelAt(x, y, isGrey);
            std::copy_n(texel.begin(), isGrey ? 1 : 4, row + (isGrey ? x : 4 * x));
        }
    }
    return surface;
}

std::vector<Texel> texelsOnCard(const Texture& texture) {
    std::vector<Texel> texels(std::size_t{texture.getTexData()->width} * texture.getTexData()->height);
    glBindTexture(GL_TEXTURE_2D, texture.getGLHandle());
    glGetTexImage(GL_TEXTURE_2D, 0, GL_RGBA, GL_UNSIGNED_BYTE, texels.data());
    glBindTexture(GL_TEXTURE_2D, 0);
    return texels;
}

std::string contentOf(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

/** Loads as every caller does. */
std::unique_ptr<Texture> load(const std::string& file, std::uint32_t width = 0, std::uint32_t height = 0,
                              bool mipmapped = true, std::uint32_t type = GL_UNSIGNED_BYTE) {
    return ManagerTexture::loadTexture(file, width, height, mipmapped, GL_RGBA, GL_RGBA, type);
}

bool isDefault(const Texture& texture) {
    return texture.getGLHandle() == ManagerTexture::getDefaultTexture()->getGLHandle();
}

class ManagerTextureGLTest : public Tests::GLContextFixture {
protected:
    void SetUp() override {
        Tests::GLContextFixture::SetUp();
        ManagerTexture::init();
        ASSERT_NE(ManagerTexture::getDefaultTexture(), nullptr) << reports.text();
    }
    std::string png(const char* name, int width, int height, bool isGrey = false) {
        IMG_SavePNG(image(width, height, isGrey).get(), folder.path(name).c_str());
        return folder.path(name);
    }

    Tests::TemporaryFolder folder;
};

TEST_P(ManagerTextureGLTest, ImagesOfEveryKindStandBottomUpOnTheCard) {
    const auto save = [this](const char* name, const auto& writer, bool isGrey, int width, int height) {
        writer(image(width, height, isGrey).get(), folder.path(name).c_str());
        return folder.path(name);
    };
    struct Row {
        std::string file;
        int width;
        int height;
        bool isGrey;
        int tolerance;
        bool hasAlpha;
    };
    constexpr int lossy = 40; // JPEG mixes neighbouring colours
    for (const Row& row : {Row{save("odd.png", IMG_SavePNG, false, 5, 3), 5, 3, false, 0, true},
                           Row{save("even.png", IMG_SavePNG, false, 4, 6), 4, 6, false, 0, true},
                           Row{save("one.png", IMG_SavePNG, false, 1, 1), 1, 1, false, 0, true},
                           Row{save("palette.png", IMG_SavePNG, true, 5, 7), 5, 7, true, 0, true},
                           Row{save(
                                   "palette.bmp", [](auto*s, auto*f) { SDL_SaveBMP(s, f); }, true, 3, 5),
                               3, 5, true, 0, true},
                           Row{save(
                                   "plain.bmp", [](auto*s, auto*f) { SDL_SaveBMP(s, f); }, false, 3, 2),
                               3, 2, false, 0, true},
                           Row{save(
                                   "grey.jpg", [](auto*s, auto*f) { IMG_SaveJPG(s, f, 100); }, true, 5, 3),
                               5, 3, true, lossy, false}}) {
        reports.clear();
        const auto texture = load(row.file);
        ASSERT_FALSE(isDefault(*texture)) << row.file << reports.text();
        ASSERT_EQ(texture->getTexData()->width, static_cast<std::uint32_t>(row.width));
        const std::vector<Texel> texels = texelsOnCard(*texture);
        ASSERT_EQ(texels.size(), static_cast<std::size_t>(row.width * row.height));
        for (int y = 0; y < row.height; ++y) {
            for (int x = 0; x < row.width; ++x) {
                const Texel expected = texelAt(x, y, row.isGrey);
                const Texel& texel = texels[static_cast<std::size_t>((row.height - 1 - y) * row.width + x)];
                for (std::size_t i = 0; i < (row.hasAlpha ? 4U : 3U); ++i) {
                    ASSERT_NEAR(texel[i], expected[i], row.tolerance)
                        << row.file << " " << x << " " << y << " " << i;
                }
            }
        }
    }
}

TEST_P(ManagerTextureGLTest, WhatIsNoImageGivesTheDefaultInTheStatedWords) {
    png("whole.png", 200, 150);
    IMG_SaveJPG(image(200, 150).get(), folder.path("whole.jpg").c_str(), 90);
    SDL_SaveBMP(image(200, 150).get(), folder.path("whole.bmp").c_str());
    std::vector<std::string> files{folder.path("nowhere.png"), folder.path(""), folder.write("empty.png", ""),
                                   folder.write("text.png", "This is no image.\n")};
    for (const char* name : {"whole.png", "whole.jpg", "whole.bmp"}) {
        const std::string content = contentOf(folder.path(name));
        // At its very end a PNG has nothing that the picture needs.
        const std::size_t end = content.size() - (name == std::string("whole.png") ? 40 : 2);
        for (const std::size_t part : {end, content.size() / 2, std::size_t{20}, std::size_t{3}}) {
            files.push_back(folder.write(std::to_string(part) + name, content.substr(0, part)));
        }
    }
    std::string greedy = contentOf(folder.path("whole.bmp"));
    greedy.replace(18, 8, std::string_view("\x80\x3E\0\0\x80\x3E\0\0", 8)); // 16,000 by 16,000: a gigabyte
    files.push_back(folder.write("greedy.bmp", greedy.substr(0, 200)));
    files.push_back(
        folder.write("greedy.tga", std::string("\0\0\2\0\0\0\0\0\0\0\0\0\x80\x3E\x80\x3E\x20\0", 18)));
    files.push_back(folder.write("pointless.tga", std::string("\0\0\2\0\0\0\0\0\0\0\0\0\0\0\4\0\x20\0", 18)));
    // A scan with a restart marker and a stuffed byte, and then nothing.
    files.push_back(
        folder.write("scan.jpg", std::string("\xFF\xD8\xFF\xDA\0\2\x12\xFF\0\x34\xFF\xD3\x56", 13)));

    const Tests::GLObjectCount before = Tests::countGLObjects();
    const std::string registered = ManagerTexture::toString();
    for (const std::string& file : files) {
        reports.clear();
        const auto texture = load(file);
        EXPECT_TRUE(isDefault(*texture)) << file << reports.text();
        EXPECT_TRUE(reports.contains("ERROR: SDL_Image Failed to load texture: " + file +
                                     "\n   Setting this texture to use the DEFAULT TEXTURE...\nIMG_Load: "))
            << reports.text();
        EXPECT_EQ(reports.contains("IMG_Load: Out of memory\n"), file.find("greedy") != std::string::npos)
            << reports.text();
        EXPECT_EQ(Tests::countGLObjects(), before);
        EXPECT_EQ(ManagerTexture::toString(), registered);
    }
    EXPECT_EQ(Tests::KeyPresses::count(), 0);
}

TEST_P(ManagerTextureGLTest, AFailureIsNotRemembered) {
    const std::string file = folder.path("late.png");
    EXPECT_TRUE(isDefault(*load(file)));
    png("late.png", 2, 2);
    EXPECT_FALSE(isDefault(*load(file)));
}

TEST_P(ManagerTextureGLTest, APixelTypeThatTheImageIsNotOfIsRefused) {
    const Tests::GLObjectCount before = Tests::countGLObjects();
    EXPECT_TRUE(isDefault(*load(png("small.png", 2, 2), 0, 0, true, GL_FLOAT)));
    EXPECT_TRUE(reports.contains("ERROR: Failed to send texture '   FileName :'"));
    EXPECT_TRUE(reports.contains("' to graphics card...\n"
                                 "ManagerTexture is returning Default TextureDataOwnsGLHandle pointer...\n"));
    EXPECT_EQ(Tests::countGLObjects(), before);
}

TEST_P(ManagerTextureGLTest, OneImageForOneRequestedKind) {
    const std::string file = png("shared.png", 6, 4);
    const auto first = load(file);
    const auto second = load(file);
    second->setWrapS(GL_CLAMP_TO_EDGE);
    EXPECT_EQ(first->getTexData(), second->getTexData());
    EXPECT_EQ(first->getWrapS(), GL_REPEAT);
    EXPECT_NE(load(file, 0, 0, false)->getGLHandle(), first->getGLHandle());
    const auto resized = load(file, 3, 2);
    EXPECT_NE(resized->getGLHandle(), first->getGLHandle());
    EXPECT_EQ(resized->getTexData()->height, 2U);
    EXPECT_EQ(load(file, 3, 2)->getGLHandle(), resized->getGLHandle());
    EXPECT_EQ(load(file, 6, 4)->getGLHandle(), first->getGLHandle());
    EXPECT_EQ(load(file)->getGLHandle(), first->getGLHandle());
    const auto clone = second->clone();
    EXPECT_EQ(clone->getWrapS(), GL_CLAMP_TO_EDGE);
    EXPECT_EQ(clone->getTexData(), first->getTexData());

    const std::string all = ManagerTexture::toString();
    EXPECT_EQ(all.find("DEFAULT_WHITE_TEXTURE_2X2"), std::string::npos);
    EXPECT_NE(all.find("   [3] "), std::string::npos);
    EXPECT_EQ(all.find("   [4] "), std::string::npos);
    const std::uint64_t bytes = 64 * 64 * 8 + 6 * 4 * 8 + 6 * 4 * 4 + 3 * 2 * 8;
    EXPECT_EQ(ManagerTexture::getTotalBytesUsed(), bytes);
    ManagerTexture::shutdown();
    EXPECT_EQ(Tests::countGLObjects().textures, 0);
}

TEST_P(ManagerTextureGLTest, ResizingMixesBilinearly) {
    SDLSurface two = image(2, 2);
    SDLSurface one = resizeImage(*two, 1, 1);
    const auto* const mixed = static_cast<const std::uint8_t*>(one->pixels);
    for (std::size_t i = 0; i < 4; ++i) {
        const int sum = texelAt(0, 0)[i] + texelAt(1, 0)[i] + texelAt(0, 1)[i] + texelAt(1, 1)[i];
        EXPECT_NEAR(mixed[i], sum / 4, 1);
    }
    const SDLSurface same = resizeImage(*two, 2, 2);
    for (std::size_t i = 0; i < 16; ++i) { // truncation takes at most one
        EXPECT_NEAR(static_cast<std::uint8_t*>(same->pixels)[i], static_cast<std::uint8_t*>(two->pixels)[i],
                    1);
    }
    const SDLSurface wide =
        resizeImage(*two, 4, 2); // centres at a quarter and three quarters between the two
    const auto* const row = static_cast<const std::uint8_t*>(wide->pixels);
    const float left = texelAt(0, 0)[0];
    const float right = texelAt(1, 0)[0];
    EXPECT_NEAR(row[0], left, 1);
    EXPECT_NEAR(row[4], 0.75F * left + 0.25F * right, 1);
    EXPECT_NEAR(row[8], 0.25F * left + 0.75F * right, 1);
    EXPECT_NEAR(row[12], right, 1);
    EXPECT_EQ(load(png("square.png", 6, 4), 3, 0)->getTexData()->height,
              6U); // a width alone: the image's width
}

TEST_P(ManagerTextureGLTest, PendingImagesGoToTheCardOneInHalfASecond) {
    static std::uint32_t now = 0;
    setTickSource([] { return now; });
    const auto step = [](std::uint32_t milliseconds) {
        now += milliseconds;
        ManagerSDLTime::stepFrameClock();
        ManagerTexture::update();
    };
    ManagerSDLTime::stepFrameClock();
    TextureDataOwnsGLHandle first(png("first.png", 2, 2));
    TextureDataOwnsGLHandle second(png("second.png", 2, 2));
    ASSERT_TRUE(ManagerTexture::readImage(first) && ManagerTexture::readImage(second));
    step(499);
    EXPECT_FALSE(first.doneLoading);
    step(1);
    EXPECT_TRUE(first.doneLoading);
    step(499);
    EXPECT_FALSE(second.doneLoading);
    step(1);
    EXPECT_TRUE(second.doneLoading);
    reports.clear();
    EXPECT_FALSE(ManagerTexture::instantiateOpenGLTexture(nullptr));
    EXPECT_EQ(reports.text(), "");
    EXPECT_FALSE(ManagerTexture::instantiateOpenGLTexture(&first));
    EXPECT_EQ(reports.text(), "ERROR: ManagerTexture::instantiateOpenGLTexture failed to find \ntexture '" +
                                  first.toString() +
                                  "' in queue of preprocessed \ntextures ready to send to OpenGL...\n");
}

TEST_P(ManagerTextureGLTest, WithoutItsDefaultImageTheProcessEnds) {
    if (GetParam().isShaderPath()) {
        GTEST_SKIP() << "the same everywhere";
    }
    const auto initElsewhere = [this] {
        Tests::reportToErrorOutput();
        ManagerEnvironmentConfiguration::populateFromText("sharedmultimediapath=" + folder.path("") + "\n");
        ManagerTexture::init();
    };
    EXPECT_EXIT(initElsewhere(), ::testing::ExitedWithCode(255),
                "ERROR: Failed to load DEFAULT_TEXTURE .*//images/DefaultTexture.bmp\n"
                "Default TextureDataOwnsGLHandle must be loaded for error recovery of\n"
                "future textures\nPress ENTER to exit...\n");
}

TEST_P(ManagerTextureGLTest, ImagesAreToldApartByKeyThenBySize) {
    const auto data = [](const char* name, bool loaded, std::uint32_t width, bool keepsSize = true) {
        auto made = std::make_unique<TextureDataOwnsGLHandle>(name);
        made->doneLoading = loaded;
        made->width = made->height = width;
        made->keepsImageSize = keepsSize;
        return made;
    };
    EXPECT_TRUE(compareTextureData(*data("a", false, 9), *data("b", false, 0)) < 0);
    EXPECT_TRUE(compareTextureData(*data("a", true, 9), *data("a", true, 1)) == 0);
    EXPECT_TRUE(compareTextureData(*data("a", false, 0), *data("a", true, 9)) == 0);
    EXPECT_TRUE(compareTextureData(*data("a", true, 9), *data("a", false, 0)) == 0);
    EXPECT_TRUE(compareTextureData(*data("a", false, 0), *data("a", true, 9, false)) < 0);
    EXPECT_TRUE(compareTextureData(*data("a", true, 9, false), *data("a", false, 4)) > 0);
    EXPECT_TRUE(compareTextureData(*data("a", true, 9, false), *data("a", false, 9)) == 0);
    if (!GetParam().isShaderPath()) {
        EXPECT_EXIT((Tests::reportToErrorOutput(),
                     void(compareTextureData(*data("a", false, 1), *data("a", false, 2)))),
                    ::testing::ExitedWithCode(255),
                    "in the mean time, load these two textures synchronously\nTex1: ");
    }
}

TEST_P(ManagerTextureGLTest, SharedHandlesAreLeftAlone) {
    const GLTexture frameBuffersTexture = GLTexture::create();
    glBindTexture(GL_TEXTURE_2D, frameBuffersTexture.get());
    auto texture = std::make_unique<TextureOwnsTexDataSharesGLHandle>(
        std::make_unique<TextureDataSharesGLHandle>(frameBuffersTexture.get()));
    texture->getTexData()->width = 17;
    texture->setScale(2.0F);
    auto clone = texture->clone();
    EXPECT_NE(clone->getTexData(), texture->getTexData());
    texture.reset();
    EXPECT_EQ(clone->getTexData()->width, 17U);
    EXPECT_EQ(clone->getScale().y, 2.0F);
    clone->bind();
    clone->unbind();
    clone.reset();
    EXPECT_TRUE(glIsTexture(frameBuffersTexture.get()));
}

TEST_P(ManagerTextureGLTest, BothPathsSampleAlike) {
    const auto texture = load(png("pattern.png", 4, 4), 0, 0, false);
    texture->setMinFilter(GL_NEAREST);
    texture->setMagFilter(GL_NEAREST);
    Mat4 quarterTurn;
    quarterTurn[0] = 0.0F;
    quarterTurn[1] = 1.0F;
    quarterTurn[4] = -1.0F;
    quarterTurn[5] = 0.0F;
    texture->setRotationMatrix(quarterTurn);
    texture->setScaleU(0.5F);
    texture->setScaleV(2.0F);
    texture->setTranslation(Vector(0.125F, 0.25F, 0.0F));
    glDisable(GL_DEPTH_TEST);
    glDisable(GL_BLEND);
    Tests::drawUnlit(Tests::WindowQuad(), *texture);
    const std::vector<Texel> texels = texelsOnCard(*texture);
    const auto picture = Tests::readPixels(200, 100);
    for (const auto& [x, y] : {std::pair(13, 7), std::pair(60, 20), std::pair(111, 66), std::pair(190, 93)}) {
        const float u = (static_cast<float>(x) + 0.5F) / 200.0F;
        const float v = (static_cast<float>(y) + 0.5F) / 100.0F;
        // Turned by a quarter, then scaled, then shifted, and repeated.
        const auto s = static_cast<std::size_t>((-v * 0.5F + 0.125F + 2.0F) * 4.0F) % 4;
        const auto t = static_cast<std::size_t>((u * 2.0F + 0.25F) * 4.0F) % 4;
        const Texel& expected = texels[t * 4 + s];
        EXPECT_LE(Tests::worstDifference(picture.at(x, y), {expected[0], expected[1], expected[2]}), 1)
            << x << " " << y;
    }
}

TEST_P(ManagerTextureGLTest, BindingGivesBackWhatItTakes) {
    const auto texture = load(png("any.png", 2, 2));
    texture->setScale(3.0F);
    texture->setWrapT(0x1234);
    EXPECT_TRUE(reports.contains("Warning, setWrapT to value other than GL_CLAMP_TO_EDGE or GL_REPEAT...\n"));
    EXPECT_EQ(texture->getWrapT(), 0x1234);
    texture->setWrapT(GL_MIRRORED_REPEAT);
    texture->bind();
    GLint wrap = 0;
    glGetTexParameteriv(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, &wrap);
    EXPECT_EQ(wrap, GL_MIRRORED_REPEAT);
    if (!GetParam().isShaderPath()) {
        EXPECT_TRUE(glIsEnabled(GL_TEXTURE_2D));
        texture->unbind();
        EXPECT_FALSE(glIsEnabled(GL_TEXTURE_2D));
        GLint depth = 0;
        glGetIntegerv(GL_TEXTURE_STACK_DEPTH, &depth);
        EXPECT_EQ(depth, 1);
        debugViewEnabled = true;
        texture->bind();
        EXPECT_FALSE(glIsEnabled(GL_TEXTURE_2D));
        debugViewEnabled = false;
    }
    texture->unbind();
}

INSTANTIATE_TEST_SUITE_P(Contexts, ManagerTextureGLTest, Tests::everyGLContext(), Tests::nameOfGLContext);

} // namespace
} // namespace Vantrel
