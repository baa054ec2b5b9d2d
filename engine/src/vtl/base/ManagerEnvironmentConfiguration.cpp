#include "vtl/base/ManagerEnvironmentConfiguration.h"

#include "vtl/base/NumberFromText.h"
#include "vtl/base/Pause.h"
#include "vtl/base/Report.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <map>
#include <memory>
#include <utility>

namespace Vantrel {
namespace {

using Settings = std::map<std::string, std::string, std::less<>>;

constexpr std::array<std::pair<const char*, const char*>, 19> defaultSettings{{
    {"width", "800"},
    {"height", "600"},
    {"fullscreen", "false"},
    {"createwindow", "1"},
    {"sharedmultimediapath", "../../../shared/mm/"},
    {"localmultimediapath", "../mm/"},
    {"randomnumberseedsource", "SDL_CLOCK"},
    {"showfps", "1"},
    {"minmillisecperframe", "16"},
    {"usestereo", "0"},
    {"defaultfont", "cour.ttf"},
    {"stereoseperation", ".05"},
    {"stereoplane", "-1"},
    {"stereomode", "full"},
    {"NetServerListenPort", "12685"},
    {"glContextVersion", "2.1"},
    {"glContextProfile", "compatibility"},
    {"glDebugMessageCallbackIsEnabled", "0"},
    {"vsync", "0"},
}};

std::unique_ptr<Settings> settings;

/** A directory opens like a file, and reads as nothing. */
bool isOpen(const std::ifstream& file, const std::string& path) {
    std::error_code ignored;
    return file.is_open() && !std::filesystem::is_directory(path, ignored);
}

struct FoundFile {
    std::string path;
    std::ifstream content;
};

/** The first file that opens; without a path when no place has one. */
FoundFile findFile(const std::string& fileName, const std::vector<std::string>& additionalSearchDirectories) {
    if (std::ifstream file(fileName); isOpen(file, fileName)) {
        Report() << "Found Config file \"" << fileName << "\" without additional search directories...\n";
        return {fileName, std::move(file)};
    }
    for (const std::string& directory : additionalSearchDirectories) {
        const std::string path = directory + fileName;
        if (std::ifstream file(path); isOpen(file, path)) {
            Report() << "Found Config file \"" << path << "\" located in additional search directory \""
                     << directory << "\"...\n";
            return {path, std::move(file)};
        }
    }
    return {};
}

void readFile(FoundFile file) {
    if (file.path.empty()) {
        Report() << file.path << " not found! Not populating from file.\nPress Enter to continue normally.\n";
        Pause::waitForKey();
        return;
    }
    ManagerEnvironmentConfiguration::populateFromText(
        std::string(std::istreambuf_iterator<char>(file.content), {}));
}

bool isSetting(const std::string& arg) {
    constexpr std::size_t shortest = 3;
    return arg.size() >= shortest && arg.front() == '{' && arg.back() == '}' &&
           std::none_of(arg.begin(), arg.end(), [](unsigned char c) { return std::isspace(c) != 0; });
}

std::vector<std::string> splitSetting(const std::string& arg) {
    std::vector<std::string> pieces;
    constexpr const char* separators = "{=}";
    std::size_t begin = arg.find_first_not_of(separators);
    while (begin != std::string::npos) {
        const std::size_t end = arg.find_first_of(separators, begin);
        pieces.push_back(arg.substr(begin, end - begin));
        begin = arg.find_first_not_of(separators, end);
    }
    return pieces;
}

void insertSetting(const std::vector<std::string>& pieces) {
    if (pieces.size() == 2) {
        (*settings)[pieces[0]] = pieces[1];
        Report() << "Inserted " << pieces[0] << "=" << pieces[1] << "\n";
        return;
    }
    for (std::size_t j = 0; j < pieces.size(); ++j) {
        Report() << "Failed to process command line argument [" << j << "]=" << pieces[j] << "\n"
                 << "Not inserted into ManagerEnvironmentConfiguration...\n";
    }
}

bool isReady(const char* operation) {
    if (settings == nullptr) {
        Report() << "ERROR: ManagerEnvironmentConfiguration::" << operation << " before init()...\n";
    }
    return settings != nullptr;
}

} // namespace

void ManagerEnvironmentConfiguration::init() {
    shutdown();
    settings = std::make_unique<Settings>(defaultSettings.begin(), defaultSettings.end());
}

void ManagerEnvironmentConfiguration::shutdown() {
    settings.reset();
}

void ManagerEnvironmentConfiguration::populateFromFile(
    const std::string& fileName, const std::vector<std::string>& additionalSearchDirectories) {
    if (!isReady("populateFromFile")) {
        return;
    }
    readFile(findFile(fileName, additionalSearchDirectories));
    Report() << toString() << "\n";
}

void ManagerEnvironmentConfiguration::populateFromText(std::string_view text) {
    if (!isReady("populateFromText")) {
        return;
    }
    while (!text.empty()) {
        const std::string_view line = text.substr(0, text.find('\n'));
        text.remove_prefix(std::min(line.size() + 1, text.size()));
        const std::size_t equals = line.find('=');
        const bool isComment = line.starts_with('#');
        if (!isComment && equals != std::string_view::npos && equals > 0) {
            (*settings)[std::string(line.substr(0, equals))] = line.substr(equals + 1);
        }
    }
}

void ManagerEnvironmentConfiguration::populateFromCommandLine(const std::vector<std::string>& args) {
    if (!isReady("populateFromCommandLine")) {
        return;
    }
    for (std::size_t i = 0; i < args.size(); ++i) {
        Report() << "args[" << i << "]=\"" << args[i] << "\"\n";
    }
    for (const std::string& arg : args) {
        if (isSetting(arg)) {
            insertSetting(splitSetting(arg));
        }
    }
    Report() << toString() << "\n";
}

std::string ManagerEnvironmentConfiguration::getCommandLineValue(const std::vector<std::string>& args,
                                                                 std::string_view key) {
    std::string value;
    for (const std::string& arg : args) {
        const std::vector<std::string> pieces =
            isSetting(arg) ? splitSetting(arg) : std::vector<std::string>{};
        if (pieces.size() == 2 && pieces[0] == key) {
            value = pieces[1];
        }
    }
    return value;
}

std::string ManagerEnvironmentConfiguration::toString() {
    ReportText text;
    if (isReady("toString")) {
        for (const auto& [key, value] : *settings) {
            text << "'" << key << "' = '" << value << "'\n";
        }
    }
    return text.str();
}

std::string ManagerEnvironmentConfiguration::getVariableValue(std::string_view key) {
    if (!isReady("getVariableValue")) {
        return {};
    }
    const auto entry = settings->find(key);
    return entry != settings->end() ? entry->second : std::string{};
}

int ManagerEnvironmentConfiguration::getInt(std::string_view key) {
    return numberFromText<int>(getVariableValue(key));
}

std::uint32_t ManagerEnvironmentConfiguration::getUnsigned(std::string_view key) {
    return numberFromText<std::uint32_t>(getVariableValue(key));
}

float ManagerEnvironmentConfiguration::getFloat(std::string_view key) {
    return numberFromText<float>(getVariableValue(key));
}

bool ManagerEnvironmentConfiguration::getBool(std::string_view key) {
    std::string value = getVariableValue(key);
    std::transform(value.begin(), value.end(), value.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return value != "false" && value != "0";
}

bool ManagerEnvironmentConfiguration::isNotZeroText(std::string_view key) {
    return getVariableValue(key) != "0";
}

int ManagerEnvironmentConfiguration::getWidth() {
    return std::max(getInt("width"), 1);
}

int ManagerEnvironmentConfiguration::getHeight() {
    return std::max(getInt("height"), 1);
}

bool ManagerEnvironmentConfiguration::isFullscreen() {
    return getVariableValue("fullscreen") != "false" && getInt("fullscreen") != 0;
}

std::uint32_t ManagerEnvironmentConfiguration::getMinMillisecPerFrame() {
    const auto milliseconds = static_cast<std::int64_t>(getInt("minmillisecperframe"));
    return static_cast<std::uint32_t>(std::abs(milliseconds));
}

std::string ManagerEnvironmentConfiguration::getLocalMultimediaPath() {
    return getVariableValue("localmultimediapath");
}

std::string ManagerEnvironmentConfiguration::getSharedMultimediaPath() {
    return getVariableValue("sharedmultimediapath");
}

int ManagerEnvironmentConfiguration::getGLContextMajorVersion() {
    const std::string version = getVariableValue("glContextVersion");
    return version.empty() ? 2 : numberFromText<int>(version);
}

int ManagerEnvironmentConfiguration::getGLContextMinorVersion() {
    const std::string version = getVariableValue("glContextVersion");
    if (version.empty()) {
        return 1;
    }
    const std::size_t point = version.find('.');
    return point == std::string::npos ? 0 : numberFromText<int>(version.substr(point + 1));
}

bool ManagerEnvironmentConfiguration::isGLProfileCompatibility() {
    return !isGLProfileCore() && !isGLProfileES();
}

bool ManagerEnvironmentConfiguration::isGLProfileCore() {
    return getVariableValue("glContextProfile") == "core";
}

bool ManagerEnvironmentConfiguration::isGLProfileES() {
    return getVariableValue("glContextProfile") == "es";
}

bool ManagerEnvironmentConfiguration::isGLDebugMessageCallbackEnabled() {
    return getBool("glDebugMessageCallbackIsEnabled");
}

} // namespace Vantrel
