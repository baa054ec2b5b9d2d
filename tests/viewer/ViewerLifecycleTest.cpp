#include "client/lib/Connection.h"
#include "client/lib/MessageCatalogue.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/ViewerProcess.h"
#include "vtl/net/NetMsg.h"

#include <csignal>
#include <gtest/gtest.h>
#include <thread>

namespace Vantrel {
namespace {

using Tests::Finished;
using Tests::runToEnd;
using Tests::ViewerProcess;

constexpr const char* ready = "Successfully returning from GLView::init()...\n";
constexpr const char* lastLine = "Exited VANTREL Normally...\n";

Connection connectTo(const ViewerProcess& viewer) {
    return {Connection::Protocol::tcp, "127.0.0.1", std::to_string(viewer.port()), std::chrono::seconds(30)};
}

std::unique_ptr<NetMsg> message(std::string_view name, const FieldTexts& fields = {}) {
    return findMessage(name)->make(fields);
}

Finished control(const ViewerProcess& viewer, std::vector<std::string> words) {
    words.insert(words.begin(), {ViewerProcess::program("keldinctl"), "--timeout", "30", "--port",
                                 std::to_string(viewer.port())});
    return runToEnd(words);
}

/** The pieces stand in `text` in this order. */
void expectInOrder(const std::string& text, const std::vector<std::string>& pieces) {
    std::size_t at = 0;
    for (const std::string& piece : pieces) {
        const std::size_t found = text.find(piece, at);
        ASSERT_NE(found, std::string::npos) << piece << " is missing, or out of order, in\n" << text;
        at = found + piece.size();
    }
}

TEST(ViewerLifecycleTest, StartsInItsOrderServesAndStopsWithItsLastLine) {
    ViewerProcess viewer({"{showfps=1}"}, "height=40\nmine=yes\n");
    ASSERT_TRUE(viewer.waitFor(ready)) << viewer.output();
    expectInOrder(viewer.output(),
                  {
                      "ManagerSerializableNetMsgMap - New Registered 'NetMsgGeneric' '1'\n",
                      "\n\nEngine Build: ",
                      "Found Config file \"vantrel.conf\" without additional search directories...\n",
                      "'height' = '40'\n",
                      "'mine' = 'yes'\n",
                      "Inserted height=48\n",
                      "'height' = '48'\n",
                      "NetMessengerServerListener is listening on TCP:127.0.0.1:",
                      "NetMessengerServerListener is listening on UDP:127.0.0.1:",
                      "Initialized NetMessageServer...\n",
                      "ManagerWindowing has been initiailized...\nInitialized ManagerWindowing...\n",
                      "Seeding ManagerRandomNumber with SDL_CLOCK time of ",
                      "Initialized ManagerOpenGLState...\n",
                      "Initialized ManagerShader...\n",
                      "Finished Drawing ManagerWindows::drawLoadingScreen()...\n",
                      "Initialized ManagerLight...\nInitialized ManagerFrameCapture...\n",
                      "Initialized ManagerTexture:...\n",
                      "Now invoking module's loadMap()...\n",
                      "Returned from module's loadMap()...\n",
                      "All models in worldLst are non nullptr...\n",
                      "Initialized ODE Physics Engine Instance...\n",
                      "Initialized ManagerSDLTime...\n",
                      "Completed WO initCallbacks...\n",
                  });
    ASSERT_TRUE(viewer.waitFor("Frames Per Second: "));
    Connection tool = connectTo(viewer);
    tool.send(*message("NetMsgCreateWO", {{"x", "1"}, {"y", "-2"}, {"z", "0.5"}}));
    const std::unique_ptr<NetMsg> reply = tool.receive();
    ASSERT_NE(reply, nullptr);
    EXPECT_EQ(reply->getMessageType(), "NetMsgCreateWOReply");
    tool.send(*message("NetMsgShutdownInstance"));
    EXPECT_EQ(viewer.waitForEnd(), 0);
    expectInOrder(viewer.output(), {"Payload\n1,-2,0.5.\n", "User invoked vtlShutdownEngine()...\n"});
    EXPECT_TRUE(viewer.output().ends_with(lastLine)) << viewer.output();
    EXPECT_EQ(viewer.output().find("VTL GL ERROR"), std::string::npos);
}

TEST(ViewerLifecycleTest, KeldinctlDrivesItByTcpAndUdp) {
    ViewerProcess viewer;
    ASSERT_TRUE(viewer.waitFor(ready));
    const Finished reply = control(viewer, {"send", "NetMsgCreateWO", "x=1", "y=2", "z=3"});
    EXPECT_EQ(reply.exitCode, 0);
    EXPECT_NE(reply.output.find("'NetMsgCreateWOReply', NetMsgID is 2569557197\n   Payload: "),
              std::string::npos);
    EXPECT_EQ(control(viewer, {"send", "NetMsgGeneric", "NetMsgCreateWO", "x=4", "y=5", "z=6"}).exitCode, 0);
    EXPECT_EQ(control(viewer, {"raw", "00 00 00 01", "00000002", "4100"}).exitCode, 0);
    ASSERT_TRUE(viewer.waitFor("Invalid NetMsgGeneric key 'A'. The first param of a\n"));
    EXPECT_EQ(control(viewer, {"--udp", "send", "NetMsgShutdownInstance"}).exitCode, 0);
    EXPECT_EQ(viewer.waitForEnd(), 0);
    expectInOrder(viewer.output(), {"Payload\n1,2,3.\n", "Payload\n4,5,6.\n", lastLine});
    EXPECT_EQ(control(viewer, {"send", "NetMsgShutdownInstance"}).exitCode, 1);
}

struct Context {
    const char* version;
    const char* profile;
};

void PrintTo(const Context& context, std::ostream* out) {
    *out << context.version << " " << context.profile;
}

class ViewerContextTest : public ::testing::TestWithParam<Context> {};

TEST_P(ViewerContextTest, RunsInEveryContextAndStopsOnASignal) {
    ViewerProcess viewer({std::string("{glContextVersion=") + GetParam().version + "}",
                          std::string("{glContextProfile=") + GetParam().profile + "}"});
    ASSERT_TRUE(viewer.waitFor("Frames Per Second: ")) << viewer.output();
    viewer.signal(SIGTERM);
    EXPECT_EQ(viewer.waitForEnd(), 0);
    EXPECT_TRUE(viewer.output().ends_with(lastLine)) << viewer.output();
    EXPECT_NE(viewer.output().find("SDL_QUIT event received...\n"), std::string::npos);
    EXPECT_EQ(viewer.output().find("VTL GL ERROR"), std::string::npos);
}

INSTANTIATE_TEST_SUITE_P(Contexts, ViewerContextTest,
                         ::testing::Values(Context{"2.1", "compatibility"}, Context{"3.2", "core"},
                                           Context{"4.5", "core"}, Context{"4.5", "compatibility"}),
                         [](const auto& row) {
                             std::string name = row.param.version + std::string(row.param.profile);
                             std::erase(name, '.');
                             return name;
                         });

TEST(ViewerLifecycleTest, RunsWithoutAWindow) {
    ViewerProcess viewer({"{createwindow=0}"});
    ASSERT_TRUE(viewer.waitFor("Frames Per Second: ")) << viewer.output();
    Connection tool = connectTo(viewer);
    tool.send(*message("NetMsgCreateWO", {{"x", "1"}, {"y", "2"}, {"z", "3"}}));
    EXPECT_NE(tool.receive(), nullptr) << "models of files have no need of one";
    tool.send(*message("NetMsgShutdownInstance"));
    EXPECT_EQ(viewer.waitForEnd(), 0);
    EXPECT_TRUE(viewer.output().ends_with(lastLine));
    EXPECT_EQ(viewer.output().find("Creating Window..."), std::string::npos);
    EXPECT_NE(viewer.output().find("ManagerWindowing::windowExists is false\n"), std::string::npos);
}

TEST(ViewerLifecycleTest, WithoutAConfigurationFileAClosedInputIsTheKey) {
    ViewerProcess viewer;
    ASSERT_TRUE(viewer.waitFor(ready));
    expectInOrder(viewer.output(),
                  {" not found! Not populating from file.\nPress Enter to continue normally.\n",
                   "'glContextVersion' = '2.1'\n", "'width' = '800'\n", "'width' = '64'\n"});
    viewer.signal(SIGINT);
    EXPECT_EQ(viewer.waitForEnd(), 0);
}

TEST(ViewerLifecycleTest, AStopSignalIsAlsoTheKeyOfALaterPause) {
    ViewerProcess viewer({"{glContextVersion=9.9}"}, "", ViewerProcess::program("keldin"),
                         ViewerProcess::Input::open);
    ASSERT_TRUE(viewer.waitFor("Press Enter to continue normally.\n"));
    viewer.signal(SIGTERM); // ends this pause, and all that come before the main loop sees it
    EXPECT_EQ(viewer.waitForEnd(), 0);
    expectInOrder(viewer.output(),
                  {"ERROR ManagerWindowing::init(): Failed to create OpenGL Context Window: '",
                   "Pausing... (remove me)\n", "SDL_QUIT event received...\n", lastLine});
}

TEST(ViewerLifecycleTest, WithoutItsShadersOrItsDefaultImageItTellsWhichAndEnds) {
    namespace fs = std::filesystem;
    struct Row {
        const char* file;
        const char* content; ///< null: the file is missing
        std::vector<std::string> texts;
    };
    for (const Row& row :
         {Row{"shaders/defaultGL32.frag",
              nullptr,
              {"shaders/defaultGL32.frag failed to open.\n",
               "ERROR: Failed to load DEFAULT_SHADER 'shaders/defaultGL32.vert'",
               "Press ENTER to exit...\n"}},
          Row{"shaders/defaultOrthoStencilGL32.vert",
              "#version 150\nvoid main() { gl_Position = vec5(1.0); }\n",
              {"vec5", "Vertex Shader compile log:\n", "Failed to compile shader ", "Linking!\n",
               "ERROR: Failed to load DEFAULT_SHADER 'shaders/defaultOrthoStencilGL32.vert'",
               "Press ENTER to exit...\n"}},
          Row{"images/DefaultTexture.bmp",
              nullptr,
              {"ERROR: Failed to load DEFAULT_TEXTURE ", "Press ENTER to exit...\n"}}}) {
        const Tests::TemporaryFolder data;
        fs::copy(KELDIN_SHARED_DATA, data.path(""), fs::copy_options::recursive);
        fs::remove(data.path(row.file));
        if (row.content != nullptr) {
            data.write(row.file, row.content);
        }
        ViewerProcess viewer({"{glContextVersion=3.3}", "{sharedmultimediapath=" + data.path("") + "}"});
        EXPECT_EQ(viewer.waitForEnd(), 255) << viewer.output();
        expectInOrder(viewer.output(), row.texts);
    }
}

TEST(ViewerLifecycleTest, AnOutputThatNobodyReadsDoesNotKeepItFromStopping) {
#if defined(__SANITIZE_THREAD__)
    GTEST_SKIP() << "the thread sanitizer holds a signal back from a thread that waits for a lock";
#endif
    ViewerProcess viewer;
    ASSERT_TRUE(viewer.waitFor(ready));
    Connection tool = connectTo(viewer);
    constexpr std::size_t bodySize = 0x30000; // its dump is more than a pipe holds
    std::vector<std::byte> frameOfNoClass(8 + bodySize);
    frameOfNoClass[0] = std::byte{0xFF};
    frameOfNoClass[5] = static_cast<std::byte>(bodySize >> 16U);
    tool.send(frameOfNoClass);
    std::this_thread::sleep_for(std::chrono::milliseconds(500));
    viewer.signal(SIGTERM);
    EXPECT_EQ(viewer.waitForEndUnread(), 0);
}

TEST(ViewerLifecycleTest, AShutdownDuringTheStartTakesEffect) {
    ViewerProcess viewer;
    ASSERT_TRUE(viewer.waitFor("NetMessengerServer - Asynchronous NetMessenger Server Running...\n"));
    connectTo(viewer).send(*message("NetMsgShutdownInstance"));
    EXPECT_EQ(viewer.waitForEnd(), 0);
    EXPECT_EQ(viewer.output().find("Frames Per Second"), std::string::npos);
    EXPECT_TRUE(viewer.output().ends_with(lastLine));
}

TEST(ViewerLifecycleTest, TakesTheFrameRateLineAway) {
    ViewerProcess viewer({"{showfps=0}", "{minmillisecperframe=-1}"});
    ASSERT_TRUE(viewer.waitFor(ready));
    std::this_thread::sleep_for(std::chrono::milliseconds(2500));
    connectTo(viewer).send(*message("NetMsgShutdownInstance"));
    EXPECT_EQ(viewer.waitForEnd(), 0);
    EXPECT_EQ(viewer.output().find("Frames Per Second"), std::string::npos);
}

TEST(ViewerLifecycleTest, ATakenPortIsReportedAndTheViewerRunsOn) {
    ViewerProcess first;
    ASSERT_TRUE(first.waitFor(ready));
    ViewerProcess second({"{NetServerListenPort=" + std::to_string(first.port()) + "}"});
    ASSERT_TRUE(second.waitFor("Frames Per Second: "));
    expectInOrder(second.output(),
                  {"Exception: bind: Address already in use",
                   "ERROR: FAILED to start NetMessengerServer... Future calls on this instance may "
                   "cause problems...\n"});
    second.signal(SIGTERM);
    EXPECT_EQ(second.waitForEnd(), 0);
}

TEST(InstallTest, TheInstalledTreeWorksFromAnywhere) {
    std::string folder = std::filesystem::temp_directory_path() / "keldin_install_XXXXXX";
    const std::filesystem::path first = std::filesystem::path(::mkdtemp(folder.data())) / "first";
    const Finished installed =
        runToEnd({KELDIN_CMAKE, "--install", KELDIN_BUILD, "--prefix", first.string()});
    ASSERT_EQ(installed.exitCode, 0) << installed.output;
    const std::filesystem::path moved = first.parent_path() / "moved";
    std::filesystem::rename(first, moved);

    ViewerProcess viewer({}, "", moved / "bin/keldin");
    EXPECT_TRUE(viewer.waitFor(ready)) << viewer.output();
    const std::string share = moved / "share/keldin";
    expectInOrder(viewer.output(), {"Found Config file \"" + share + "/vantrel.conf\"",
                                    "'localmultimediapath' = '" + share + "/mm/local/'\n",
                                    "'sharedmultimediapath' = '" + share + "/mm/shared/'\n"});
    EXPECT_EQ(runToEnd({moved / "bin/keldinctl", "--port", std::to_string(viewer.port()), "send",
                        "NetMsgShutdownInstance"})
                  .exitCode,
              0);
    EXPECT_EQ(viewer.waitForEnd(), 0);
    std::filesystem::remove_all(moved.parent_path());
}

TEST(ProgramsTest, TellTheirUseAndTheirVersion) {
    const std::string keldin = ViewerProcess::program("keldin");
    const std::string keldinctl = ViewerProcess::program("keldinctl");
    struct Row {
        std::vector<std::string> command;
        int exitCode;
        const char* said;
    };
    for (const Row& row : {
             Row{{keldin, "--help"}, 0, "Usage: keldin [{key=value} ...]"},
             Row{{keldin, "--version"}, 0, "keldin " KELDIN_VERSION "\n"},
             Row{{keldinctl, "--help"}, 0, "send"},
             Row{{keldinctl, "--version"}, 0, "keldinctl " KELDIN_VERSION "\n"},
             Row{{keldinctl}, 2, "A subcommand is required"},
             Row{{keldinctl, "send", "NetMsgNone"}, 1, "keldinctl: there is no message 'NetMsgNone'\n"},
             Row{{keldinctl, "hash", "NetMsgRunwayWidth"}, 0, "0xB581377E 3045144446\n"},
             Row{{keldinctl, "raw", "0G"}, 1, "keldinctl: '0G' is no byte in two hexadecimal digits\n"},
         }) {
        const Finished finished = runToEnd(row.command);
        EXPECT_EQ(finished.exitCode, row.exitCode) << row.command.back();
        EXPECT_NE(finished.output.find(row.said), std::string::npos) << row.command.back() << finished.output;
    }
}

} // namespace
} // namespace Vantrel
