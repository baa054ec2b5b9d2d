// A configuration file and a command line: whatever they say, every setting can be read.
//
// Input: the text of the file, then the arguments, each behind a zero byte.

#include "fuzz/FuzzInput.h"
#include "vtl/base/ManagerEnvironmentConfiguration.h"

#include <sstream>
#include <string>
#include <vector>

namespace Vantrel::Fuzzing {
namespace {

using Configuration = ManagerEnvironmentConfiguration;

const SilentReports silentReports;

std::vector<std::string> splitAtZeroBytes(std::span<const std::byte> bytes) {
    std::istringstream in(std::string(reinterpret_cast<const char*>(bytes.data()), bytes.size()));
    std::vector<std::string> pieces(1);
    std::getline(in, pieces.front(), '\0');
    for (std::string piece; std::getline(in, piece, '\0');) {
        pieces.push_back(piece);
    }
    return pieces;
}

/** Reads every setting as everything that a setting can be. */
void readEverySetting() {
    std::istringstream entries(Configuration::toString());
    for (std::string line; std::getline(entries, line);) {
        const std::string key = line.substr(0, line.find("' = '")).erase(0, 1);
        const std::string value = Configuration::getVariableValue(key);
        require(Configuration::isNotZeroText(key) == (value != "0"));
        require(Configuration::getBool(key) || Configuration::getInt(key) == 0);
        static_cast<void>(Configuration::getUnsigned(key));
        static_cast<void>(Configuration::getFloat(key));
    }
}

void readTypedSettings() {
    require(Configuration::getWidth() >= 1 && Configuration::getHeight() >= 1);
    require(!Configuration::isFullscreen() || Configuration::getVariableValue("fullscreen") != "false");
    require(Configuration::getMinMillisecPerFrame() <= std::uint32_t{1} << 31U);
    require(Configuration::getLocalMultimediaPath() ==
            Configuration::getVariableValue("localmultimediapath"));
    require(Configuration::getSharedMultimediaPath() ==
            Configuration::getVariableValue("sharedmultimediapath"));
    static_cast<void>(Configuration::getGLContextMajorVersion());
    static_cast<void>(Configuration::getGLContextMinorVersion());
    require(Configuration::isGLProfileCompatibility() + Configuration::isGLProfileCore() +
                Configuration::isGLProfileES() ==
            1);
    static_cast<void>(Configuration::isGLDebugMessageCallbackEnabled());
}

} // namespace
} // namespace Vantrel::Fuzzing

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace Vantrel::Fuzzing;
    std::vector<std::string> texts = splitAtZeroBytes(FuzzInput(data, size).rest());
    Configuration::init();
    Configuration::populateFromText(texts.front());
    texts.erase(texts.begin());
    Configuration::populateFromCommandLine(texts);
    readEverySetting();
    readTypedSettings();
    Configuration::shutdown();
    return 0;
}
