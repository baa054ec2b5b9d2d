#include "vtl/base/ManagerEnvironmentConfiguration.h"

#include "tests/support/KeyPresses.h"
#include "tests/support/ReportCapture.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <unistd.h>

namespace Vantrel {
namespace {

using Configuration = ManagerEnvironmentConfiguration;

class ManagerEnvironmentConfigurationTest : public ::testing::Test {
protected:
    void SetUp() override {
        home = std::filesystem::temp_directory_path() / ("keldin_conf_" + std::to_string(::getpid()));
        std::filesystem::create_directories(home / "below");
        std::filesystem::current_path(home / "below");
        Configuration::init();
    }
    void TearDown() override {
        Configuration::shutdown();
        std::filesystem::current_path("/");
        std::filesystem::remove_all(home);
    }

    static void readFile(const std::string& text) {
        std::ofstream("vantrel.conf") << text;
        Configuration::populateFromFile("vantrel.conf", {"../"});
    }

    std::filesystem::path home;
    Tests::ReportCapture reports;
    Tests::KeyPresses keys;
};

TEST_F(ManagerEnvironmentConfigurationTest, LaterLayersOverrideEarlierOnesKeyByKey) {
    EXPECT_EQ(Configuration::getWidth(), 800);
    readFile("width=640\nheight=480\n");
    Configuration::populateFromCommandLine({"keldin", "{width=1024}"});
    EXPECT_EQ(Configuration::getWidth(), 1024);
    EXPECT_EQ(Configuration::getHeight(), 480);
    EXPECT_EQ(Configuration::getVariableValue("NetServerListenPort"), "12685");
    EXPECT_TRUE(reports.contains("args[1]=\"{width=1024}\"\nInserted width=1024\n"));
    EXPECT_TRUE(reports.contains("'width' = '1024'\n"));
}

TEST_F(ManagerEnvironmentConfigurationTest, ReadsFileLinesToTheLetter) {
    readFile(
        "# width=1\nwidth = 1024\n=none\nno equals sign\n\nmine=a=b # c\nvsync=1\nvsync=2\n #x=y\nlast=line");
    EXPECT_EQ(Configuration::getVariableValue("width"), "800");
    EXPECT_EQ(Configuration::getVariableValue("width "), " 1024");
    EXPECT_EQ(Configuration::getVariableValue("mine"), "a=b # c");
    EXPECT_EQ(Configuration::getVariableValue("vsync"), "2");
    EXPECT_EQ(Configuration::getVariableValue(" #x"), "y");
    EXPECT_EQ(Configuration::getVariableValue("last"), "line");
    EXPECT_EQ(Configuration::getVariableValue(""), "");
    EXPECT_EQ(keys.count(), 0);
}

TEST_F(ManagerEnvironmentConfigurationTest, FindsTheFileOneDirectoryUp) {
    std::ofstream("../vantrel.conf") << "width=320\n";
    Configuration::populateFromFile("vantrel.conf", {"../"});
    EXPECT_EQ(Configuration::getWidth(), 320);
    EXPECT_TRUE(reports.contains(
        "Found Config file \"../vantrel.conf\" located in additional search directory \"../\"...\n"));
}

TEST_F(ManagerEnvironmentConfigurationTest, MissingFileCostsOnePauseAndTheDefaultsStand) {
    Configuration::populateFromFile("vantrel.conf", {"../"});
    EXPECT_EQ(keys.count(), 1);
    EXPECT_TRUE(reports.text().starts_with(" not found! Not populating from file.\nPress Enter to continue "
                                           "normally.\n'NetServerListenPort' = "));
    EXPECT_EQ(Configuration::getWidth(), 800);
}

TEST_F(ManagerEnvironmentConfigurationTest, APathThatCannotBeReadIsNotFound) {
    std::filesystem::create_symlink("loop", "loop");
    std::filesystem::create_directory("folder");
    for (const std::string& path : {std::string("loop"), std::string("folder"), std::string(300, 'x')}) {
        Configuration::populateFromFile(path, {});
    }
    EXPECT_EQ(keys.count(), 3);
    Configuration::populateFromFile("/dev/null", {}); // no settings, but a file
    EXPECT_EQ(keys.count(), 3);
}

TEST_F(ManagerEnvironmentConfigurationTest, RefusesWhatIsNotOneKeyAndOneValue) {
    const std::string longArgument = "{" + std::string(1'000'000, 'x') + "=1}";
    Configuration::populateFromCommandLine(
        {"{a=b=c}", "{a=}", "{width=1 }", "width=2", "{}", "{=}", "{{b={1}}", longArgument});
    EXPECT_EQ(Configuration::getVariableValue("a"), "");
    EXPECT_EQ(Configuration::getVariableValue("width"), "800");
    EXPECT_EQ(Configuration::getVariableValue("b"), "1");
    EXPECT_EQ(Configuration::getVariableValue(std::string(1'000'000, 'x')), "1");
    EXPECT_TRUE(reports.contains("Failed to process command line argument [2]=c\n"
                                 "Not inserted into ManagerEnvironmentConfiguration...\n"
                                 "Failed to process command line argument [0]=a\n"));
}

struct Reading {
    const char* line;
    int width;
    bool fullscreen;
    std::uint32_t frameMs;
};

TEST_F(ManagerEnvironmentConfigurationTest, ReadsNumbersFromTheirStart) {
    for (const Reading& row : {
             Reading{"width=800x\nfullscreen=true\nminmillisecperframe=-16", 800, false, 16},
             Reading{"width=abc\nfullscreen=1\nminmillisecperframe=0", 1, true, 0},
             Reading{"width= -7\nfullscreen=0\nminmillisecperframe=-2147483648", 1, false, 2147483648U},
             Reading{"width=99999999999\nfullscreen=\nminmillisecperframe=", 1, false, 0},
         }) {
        readFile(row.line);
        EXPECT_EQ(Configuration::getWidth(), row.width) << row.line;
        EXPECT_EQ(Configuration::isFullscreen(), row.fullscreen) << row.line;
        EXPECT_EQ(Configuration::getMinMillisecPerFrame(), row.frameMs) << row.line;
    }
}

TEST_F(ManagerEnvironmentConfigurationTest, ReadsTruthValues) {
    readFile("a=FALSE\nb=0\nc=\nd=no\nglDebugMessageCallbackIsEnabled=False\n");
    EXPECT_FALSE(Configuration::getBool("a"));
    EXPECT_FALSE(Configuration::getBool("b"));
    EXPECT_TRUE(Configuration::getBool("c"));
    EXPECT_TRUE(Configuration::getBool("d"));
    EXPECT_TRUE(Configuration::getBool("gldebugmessagecallbackisenabledhaltoneachmessage"));
    EXPECT_FALSE(Configuration::isGLDebugMessageCallbackEnabled());
}

struct ContextReading {
    const char* version;
    int major;
    int minor;
};

TEST_F(ManagerEnvironmentConfigurationTest, ReadsTheContextVersionAndProfile) {
    for (const ContextReading& row : {ContextReading{"", 2, 1}, ContextReading{"3.3", 3, 3},
                                      ContextReading{"4", 4, 0}, ContextReading{"x", 0, 0}}) {
        readFile(std::string("glContextVersion=") + row.version);
        EXPECT_EQ(Configuration::getGLContextMajorVersion(), row.major) << row.version;
        EXPECT_EQ(Configuration::getGLContextMinorVersion(), row.minor) << row.version;
    }
    readFile("glContextProfile=CORE");
    EXPECT_TRUE(Configuration::isGLProfileCompatibility());
    readFile("glContextProfile=core");
    EXPECT_TRUE(Configuration::isGLProfileCore());
    EXPECT_FALSE(Configuration::isGLProfileCompatibility());
}

TEST_F(ManagerEnvironmentConfigurationTest, UseBeforeInitIsReported) {
    Configuration::shutdown();
    EXPECT_EQ(Configuration::getVariableValue("width"), "");
    EXPECT_TRUE(
        reports.contains("ERROR: ManagerEnvironmentConfiguration::getVariableValue before init()...\n"));
}

} // namespace
} // namespace Vantrel
