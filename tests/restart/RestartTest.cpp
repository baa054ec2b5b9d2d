#include "client/lib/Connection.h"
#include "module/GLViewKELDIN.h"
#include "tests/support/ReportCapture.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/ViewerProcess.h"
#include "vtl/gl/texture/ImageFile.h"
#include "vtl/render/VantrelGLRenderer.h"
#include "vtl/scene/object/WO.h"
#include "vtl/scene/object/WorldContainer.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <unistd.h>

namespace Vantrel {
namespace {

constexpr int restarts = 100;

std::size_t entriesOf(const char* folder) {
    const std::filesystem::directory_iterator entries(folder);
    return static_cast<std::size_t>(std::distance(begin(entries), end(entries)));
}

/** Resident memory in pages. */
long residentPages() {
    std::ifstream in("/proc/self/statm");
    long total = 0;
    long resident = 0;
    in >> total >> resident;
    return resident;
}

/** A viewer that puts something into the world and asks for a new start after its second frame. */
class RestartingView : public GLViewKELDIN {
public:
    using GLViewKELDIN::GLViewKELDIN;

    static std::unique_ptr<GLView> New(const std::vector<std::string>& args) {
        auto view = std::make_unique<RestartingView>(args);
        view->init("/dev/null");
        view->onCreate();
        return view;
    }

    void loadMap() override {
        GLViewKELDIN::loadMap();
        worldLst->push_back(new WO); // the world's from here on
    }

    void updateWorld() override {
        GLViewKELDIN::updateWorld();
        if (++frames < 2) {
            getRenderer()->setCaptureNamedFrame(true, captureFolder + std::to_string(starts) + ".png");
            return;
        }
        // The port is open in every life.
        const Connection probe(Connection::Protocol::tcp, "127.0.0.1", port, std::chrono::seconds(10));
        if (++starts > restarts) {
            vtlShutdownEngine();
            return;
        }
        vtlResetEngine();
        if (starts == 1) {
            vtlShutdownEngine(); // both together: the new start comes first
        }
    }

    inline static std::string port;
    inline static std::string captureFolder;
    inline static int starts = 0;

private:
    int frames = 0;
};

TEST(RestartTest, AHundredRestartsLeaveNothingBehind) {
    Tests::ReportCapture reports;
    RestartingView::port = std::to_string(Tests::freePort());
    const Tests::TemporaryFolder folder;
    RestartingView::captureFolder = folder.path("");
    std::vector<std::string> args{"keldin",
                                  "{width=64}",
                                  "{height=48}",
                                  "{minmillisecperframe=0}",
                                  "{glContextVersion=3.3}",
                                  "{sharedmultimediapath=" KELDIN_SHARED_DATA "}",
                                  "{NetServerListenPort=" + RestartingView::port + "}",
                                  "{NetServerListenAddress=127.0.0.1}"};
    std::size_t threads = 0;
    std::size_t descriptors = 0;
    long pages = 0;
    runUntilStopped(args, [&](const std::vector<std::string>& arguments) {
        constexpr int settled = 5; // what the libraries keep for good is there by then
        if (RestartingView::starts == settled) {
            threads = entriesOf("/proc/self/task");
            descriptors = entriesOf("/proc/self/fd");
            pages = residentPages();
        }
        reports.clear();
        return RestartingView::New(arguments);
    });
    EXPECT_EQ(RestartingView::starts, restarts + 1);
    EXPECT_EQ(entriesOf("/proc/self/task"), threads);
    EXPECT_EQ(entriesOf("/proc/self/fd"), descriptors);
#if !defined(KELDIN_SANITIZED) // the sanitizers keep freed memory for a while, and find leaks themselves
    constexpr long pagesPerRestart = 8; // the driver keeps 3 to 4
    EXPECT_LT(residentPages() - pages, restarts * pagesPerRestart);
#endif
    const SDLSurface last = readImageFile(folder.path(std::to_string(restarts) + ".png"), 64);
    EXPECT_NE(last, nullptr) << "complete, though the viewer ended right after it";
    EXPECT_TRUE(reports.contains("User invoked vtlShutdownEngine()...\n"));
}

} // namespace
} // namespace Vantrel
