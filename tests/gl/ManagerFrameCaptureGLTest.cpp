#include "vtl/gl/capture/ManagerFrameCapture.h"

#include "vtl/gl/capture/BackBufferReading.h"
#include "vtl/gl/capture/CaptureFile.h"
#include "vtl/gl/framebuffer/ScopedFrameBuffer.h"
#include "vtl/gl/texture/ImageFile.h"

#include "tests/support/GLContextFixture.h"
#include "tests/support/PixelReading.h"
#include "tests/support/TemporaryFolder.h"

#include <SDL_image.h>
#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Vantrel {
namespace {

using Tests::Pixel;

constexpr int windowWidth = 321;
constexpr int windowHeight = 12;

struct Size {
    int width;
    int height;
};

constexpr std::array<Size, 6> sizes{{{1, 1}, {2, 3}, {3, 2}, {5, 4}, {64, 2}, {windowWidth, 3}}};

/** What a picture of the tests has at a place, rows from the top down. */
Pixel pixelOf(int picture, int x, int y) {
    return {static_cast<std::uint8_t>(17 * picture + 40 * x + 9 * y), static_cast<std::uint8_t>(255 - 20 * y),
            static_cast<std::uint8_t>(7 * x + 11 * y)};
}

bool showsPicture(int picture, const VantrelFrameCapture& frame) {
    const auto data = frame.getFrameData();
    for (std::size_t i = 0; i < data.size() / 3; ++i) {
        const Pixel shown{data[3 * i + 2], data[3 * i + 1], data[3 * i]};
        const auto place = static_cast<int>(i);
        const auto width = static_cast<int>(frame.getWidth());
        if (shown != pixelOf(picture, place % width, place / width)) {
            return false;
        }
    }
    return !data.empty();
}

std::string contentOf(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

/** Whether the file is that picture of that size, and nothing besides, in the format of its first bytes. */
bool isFileOf(int picture, Size size, const std::string& path, const std::string& firstBytes) {
    const std::string content = contentOf(path);
    SDL_RWops* const stream = SDL_RWFromConstMem(content.data(), static_cast<int>(content.size()));
    const SDLSurface decoded(IMG_Load_RW(stream, 1));
    const SDLSurface image(SDL_ConvertSurfaceFormat(decoded.get(), SDL_PIXELFORMAT_RGB24, 0));
    if (image == nullptr || image->w != size.width || image->h != size.height ||
        !content.starts_with(firstBytes)) {
        return false;
    }
    for (int y = 0; y < size.height; ++y) {
        const auto* texel = static_cast<const std::uint8_t*>(image->pixels) + y * image->pitch;
        for (int x = 0; x < size.width; ++x, texel += 3) {
            if (Pixel{texel[0], texel[1], texel[2]} != pixelOf(picture, x, y)) {
                return false;
            }
        }
    }
    return firstBytes != "BM" ||
           content.size() == static_cast<std::size_t>(54 + size.height * ((3 * size.width + 3) / 4 * 4));
}

class ManagerFrameCaptureGLTest : public Tests::GLContextFixture {
protected:
    void SetUp() override {
        Tests::startGL(GetParam(), {"{width=" + std::to_string(windowWidth) + "}",
                                    "{height=" + std::to_string(windowHeight) + "}"});
        ASSERT_TRUE(ManagerWindowing::isWindowExisting()) << reports.text();
        ManagerFrameCapture::init();
        std::filesystem::current_path(folder.path(""));
    }
    void TearDown() override {
        std::filesystem::current_path("/");
        ManagerFrameCapture::shutdown();
        Tests::GLContextFixture::TearDown();
    }

    /** Draws a picture to the window, which has that size from then on. */
    static void draw(int picture, Size size) {
        ManagerWindowing::resize(size.width, size.height);
        glEnable(GL_SCISSOR_TEST);
        for (int y = 0; y < size.height; ++y) {
            for (int x = 0; x < size.width; ++x) {
                const Pixel color = pixelOf(picture, x, y);
                const auto share = [&color](std::size_t i) { return static_cast<float>(color[i]) / 255.0F; };
                glScissor(x, size.height - 1 - y, 1, 1);
                glClearColor(share(0), share(1), share(2), 1.0F);
                glClear(GL_COLOR_BUFFER_BIT);
            }
        }
        glDisable(GL_SCISSOR_TEST);
    }
    static bool save(const std::string& name, bool deleteAfterSaving, int* index = nullptr) {
        return ManagerFrameCapture::saveFrame(name, deleteAfterSaving, index);
    }
    std::size_t fileCount() const {
        return static_cast<std::size_t>(
            std::ranges::distance(std::filesystem::directory_iterator(folder.path(""))));
    }

    Tests::TemporaryFolder folder;
};

constexpr const char* pngBegins = "\x89PNG";
constexpr const char* bmpBegins = "BM";

TEST_P(ManagerFrameCaptureGLTest, KeepsWhatHasBeenDrawnToTheWindow) {
    const auto other = VantrelFrameBufferObject::New(7, 7, 1, false, false, false, false);
    int picture = 0;
    for (const Size& size : sizes) {
        draw(picture, size);
        glPixelStorei(GL_PACK_ALIGNMENT, 8);
        {
            const ScopedFrameBuffer bound(*other);
            EXPECT_EQ(ManagerFrameCapture::captureFrame(), picture) << reports.text();
            GLint binding = 0;
            glGetIntegerv(GL_FRAMEBUFFER_BINDING, &binding);
            EXPECT_EQ(static_cast<GLuint>(binding), other->getHandle());
        }
        GLint alignment = 0;
        glGetIntegerv(GL_PACK_ALIGNMENT, &alignment);
        EXPECT_EQ(alignment, 8);
        const VantrelFrameCapture& frame = *ManagerFrameCapture::getFrame(picture);
        EXPECT_EQ(frame.getWidth(), static_cast<std::uint32_t>(size.width));
        EXPECT_EQ(frame.getHeight(), static_cast<std::uint32_t>(size.height));
        EXPECT_EQ(frame.getFrameData().size(), static_cast<std::size_t>(size.width * size.height * 3));
        EXPECT_TRUE(showsPicture(picture++, frame)) << size.width;
    }
    EXPECT_EQ(fileCount(), 0U);
}

TEST_P(ManagerFrameCaptureGLTest, WritesNothingBeyondTheFrame) {
    constexpr std::size_t margin = 64;
    for (const Size& size : sizes) {
        draw(0, size);
        const auto bytes = static_cast<std::size_t>(size.width * size.height * 3);
        std::vector<std::uint8_t> block(bytes + 2 * margin, 0xC3);
        readBackBuffer(size.width, size.height, {block.data() + margin, bytes});
        EXPECT_EQ(std::count(block.begin(), block.begin() + margin, 0xC3), margin) << size.width;
        EXPECT_EQ(std::count(block.end() - margin, block.end(), 0xC3), margin) << size.width;
    }
}

TEST_P(ManagerFrameCaptureGLTest, SavesInTheFormatOfTheName) {
    int picture = 0;
    for (const Size& size : sizes) {
        for (const char* const ending : {".png", ".PnG", ".bmp", ".jpg", "", "png"}) {
            for (const bool deleteAfterSaving : {false, true}) {
                const std::string name = folder.path(std::to_string(++picture) + ending);
                const bool isPNG = ending == std::string(".png") || ending == std::string(".PnG") ||
                                   ending == std::string("png");
                draw(picture, size);
                reports.clear();
                int index = 5;
                EXPECT_TRUE(save(name, deleteAfterSaving, &index)) << reports.text();
                EXPECT_EQ(index, deleteAfterSaving ? -1 : 0);
                EXPECT_EQ(ManagerFrameCapture::deleteFrame(0), !deleteAfterSaving);
                ManagerFrameCapture::finishSaving();
                EXPECT_EQ(reports.text(), isPNG ? "Writing out a png...\n" : "");
                EXPECT_TRUE(isFileOf(picture, size, name, isPNG ? pngBegins : bmpBegins)) << name;
            }
        }
    }
}

TEST_P(ManagerFrameCaptureGLTest, EveryFileIsCompleteAtShutdown) {
    constexpr int count = 24;
    for (int i = 0; i < count; ++i) {
        draw(i, sizes[static_cast<std::size_t>(i) % sizes.size()]);
        EXPECT_TRUE(save(std::to_string(i) + ".png", true));
    }
    ManagerFrameCapture::shutdown();
    for (int i = 0; i < count; ++i) {
        EXPECT_TRUE(isFileOf(i, sizes[static_cast<std::size_t>(i) % sizes.size()], std::to_string(i) + ".png",
                             pngBegins))
            << i;
    }
    EXPECT_EQ(fileCount(), static_cast<std::size_t>(count));
}

INSTANTIATE_TEST_SUITE_P(Contexts, ManagerFrameCaptureGLTest, Tests::everyGLContext(),
                         Tests::nameOfGLContext);

using ManagerFrameCaptureFilesTest = ManagerFrameCaptureGLTest;

TEST_P(ManagerFrameCaptureFilesTest, TheLatestFrameOfANameStays) {
    constexpr Size large{windowWidth, windowHeight};
    constexpr Size small{3, 2};
    draw(0, large);
    ManagerFrameCapture::captureFrame();
    draw(1, small);
    ManagerFrameCapture::captureFrame();
    CaptureFile first("same.bmp");
    CaptureFile second("same.bmp"); // before anything is written
    EXPECT_TRUE(ManagerFrameCapture::getFrame(0)->saveToFile(first));
    EXPECT_TRUE(ManagerFrameCapture::getFrame(1)->saveToFile(second));
    EXPECT_TRUE(isFileOf(1, small, "same.bmp", bmpBegins));
    for (const bool deleteAfterSaving : {true, false}) {
        for (int i = 2; i < 12; ++i) {
            draw(i, i % 2 == 0 ? large : small);
            EXPECT_TRUE(save("same.bmp", deleteAfterSaving || i < 11));
        }
        ManagerFrameCapture::finishSaving();
        EXPECT_TRUE(isFileOf(11, small, "same.bmp", bmpBegins)) << deleteAfterSaving;
    }
}

TEST_P(ManagerFrameCaptureFilesTest, FillsTheGapsOfItsNames) {
    for (const char* const taken : {"0000", "0002", "0003"}) {
        folder.write("VANTRELFrameCap_" + std::string(taken) + ".bmp", "");
    }
    draw(1, sizes[3]);
    EXPECT_TRUE(save("", true));
    EXPECT_TRUE(save("", false));
    EXPECT_TRUE(save("", true));
    ManagerFrameCapture::finishSaving();
    for (const char* const made : {"0001", "0004", "0005"}) {
        EXPECT_TRUE(isFileOf(1, sizes[3], "VANTRELFrameCap_" + std::string(made) + ".bmp", bmpBegins))
            << made;
    }
    EXPECT_EQ(fileCount(), 6U);
    for (int i = 6; i < 10000; ++i) {
        folder.write("VANTRELFrameCap_" +
                         std::string(i < 10     ? "000"
                                     : i < 100  ? "00"
                                     : i < 1000 ? "0"
                                                : "") +
                         std::to_string(i) + ".bmp",
                     "");
    }
    EXPECT_TRUE(save("", false));
    EXPECT_TRUE(isFileOf(1, sizes[3], "VANTRELFrameCap_10000.bmp", bmpBegins));
}

TEST_P(ManagerFrameCaptureFilesTest, SaysAtOnceThatAFileCantBeWritten) {
    ASSERT_EQ(::mkfifo("pipe", 0600), 0);
    ASSERT_EQ(::mkfifo("read_pipe", 0600), 0);
    const int reader = ::open("read_pipe", O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    ASSERT_GE(reader, 0);
    draw(0, sizes[3]);
    int kept = 0;
    for (const auto& [name, reason] : {
             std::pair<std::string, const char*>(folder.path(""), "Is a directory"),
             {"nowhere/frame.png", "No such file or directory"},
             {std::string(300, 'x'), "File name too long"},
             {"pipe", "No such device or address"},
             {"read_pipe", "it is no regular file"},
             {std::string("a\0b.png", 7), "there is a zero in it"},
         }) {
        for (const bool deleteAfterSaving : {true, false}) {
            reports.clear();
            int index = 5;
            EXPECT_FALSE(save(name, deleteAfterSaving, &index)) << name;
            EXPECT_EQ(reports.text(),
                      "ERROR: The frame capture '" + name + "' can't be written: " + reason + "...\n");
            EXPECT_EQ(index, deleteAfterSaving ? -1 : kept++);
        }
    }
    ::close(reader);
    EXPECT_EQ(ManagerFrameCapture::getFrameCount(), static_cast<std::size_t>(kept));
    EXPECT_EQ(fileCount(), 2U);
}

/** Lets no file grow beyond that many bytes while it lives. */
class ScopedFileSizeLimit {
public:
    explicit ScopedFileSizeLimit(rlim_t bytes) : action(std::signal(SIGXFSZ, SIG_IGN)) {
        ::getrlimit(RLIMIT_FSIZE, &before);
        const rlimit limit{bytes, before.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ScopedFileSizeLimit(const ScopedFileSizeLimit&) = delete;
    ScopedFileSizeLimit& operator=(const ScopedFileSizeLimit&) = delete;
    ~ScopedFileSizeLimit() {
        ::setrlimit(RLIMIT_FSIZE, &before);
        std::signal(SIGXFSZ, action);
    }

private:
    rlimit before{};
    void (*action)(int);
};

TEST_P(ManagerFrameCaptureFilesTest, TellsOfFilesThatAreCutOff) {
    draw(0, {windowWidth, windowHeight});
    for (const char* const name : {"cut.png", "cut.bmp"}) {
        for (const bool deleteAfterSaving : {true, false}) {
            reports.clear();
            bool isSaved = false;
            {
                const ScopedFileSizeLimit limit(50);
                isSaved = save(name, deleteAfterSaving);
                ManagerFrameCapture::finishSaving();
            }
            EXPECT_EQ(isSaved, deleteAfterSaving) << "known later";
            EXPECT_TRUE(reports.contains("ERROR: The frame capture '" + std::string(name) +
                                         "' couldn't be written to its end: File too large...\n"))
                << reports.text();
        }
    }
    EXPECT_TRUE(save("whole.png", true)) << "the next one is written again";
    ManagerFrameCapture::finishSaving();
    EXPECT_TRUE(isFileOf(0, {windowWidth, windowHeight}, "whole.png", pngBegins));
}

TEST_P(ManagerFrameCaptureFilesTest, IndicesMoveUpWhenAFrameIsDeleted) {
    for (int i = 0; i < 4; ++i) {
        draw(i, sizes[3]);
        EXPECT_EQ(ManagerFrameCapture::captureFrame(), i);
    }
    EXPECT_FALSE(ManagerFrameCapture::deleteFrame(-1));
    EXPECT_FALSE(ManagerFrameCapture::deleteFrame(4));
    EXPECT_TRUE(ManagerFrameCapture::deleteFrame(1));
    EXPECT_TRUE(showsPicture(0, *ManagerFrameCapture::getFrame(0)));
    EXPECT_TRUE(showsPicture(2, *ManagerFrameCapture::getFrame(1)));
    EXPECT_TRUE(showsPicture(3, *ManagerFrameCapture::getFrame(2)));
    EXPECT_EQ(ManagerFrameCapture::getFrame(3), nullptr);
    EXPECT_EQ(ManagerFrameCapture::getFrame(-1), nullptr);
    ManagerFrameCapture::deleteAllFrames();
    EXPECT_EQ(ManagerFrameCapture::captureFrame(), 0);
}

TEST_P(ManagerFrameCaptureFilesTest, TellsWhyThereIsNoFrame) {
#if !defined(KELDIN_SANITIZED) // the sanitizers end the program
    draw(0, {1, 1});
    ManagerWindowing::resize(1 << 20, 1 << 20);
    reports.clear();
    EXPECT_EQ(ManagerFrameCapture::captureFrame(), -1);
    EXPECT_FALSE(save("frame.png", true));
    EXPECT_EQ(
        reports.count("ERROR: ManagerFrameCapture: there is no memory for a frame of 1048576x1048576...\n"),
        2U);
#endif
    ManagerFrameCapture::shutdown();
    for (const char* const reason : {"init() hasn't been called", "there is no window to capture"}) {
        reports.clear();
        int index = 5;
        EXPECT_FALSE(save("frame.png", false, &index));
        EXPECT_FALSE(save("frame.png", true));
        EXPECT_EQ(index, -1);
        EXPECT_EQ(reports.text(), "ERROR: ManagerFrameCapture: " + std::string(reason) +
                                      "...\nERROR: ManagerFrameCapture: " + reason + "...\n");
        Tests::stopGL();
        ManagerFrameCapture::init();
    }
    EXPECT_FALSE(VantrelFrameCapture().saveToFile("frame.png"));
    EXPECT_TRUE(reports.contains("VantrelFrameCapture has no valid Frame Data, call "
                                 "VantrelFrameCapture::setFrameData() first...\n"));
    EXPECT_EQ(fileCount(), 0U);
    Tests::startGL(GetParam());
}

INSTANTIATE_TEST_SUITE_P(Contexts, ManagerFrameCaptureFilesTest,
                         ::testing::Values(Tests::fixedFunctionContext), Tests::nameOfGLContext);

} // namespace
} // namespace Vantrel
