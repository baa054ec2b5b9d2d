#include "vtl/text/FontFiles.h"

#include "vtl/base/ManagerEnvironmentConfiguration.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <filesystem>
#include <string_view>
#include <system_error>

namespace Vantrel {
namespace {

namespace fs = std::filesystem;

constexpr std::array<std::string_view, 3> fixedWidthFonts{
    "/usr/share/fonts/truetype/dejavu/DejaVuSansMono.ttf",
    "/usr/share/fonts/truetype/liberation/LiberationMono-Regular.ttf",
    "/usr/share/fonts/truetype/noto/NotoSansMono-Regular.ttf"};
constexpr std::array<std::string_view, 3> sansFonts{
    "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf",
    "/usr/share/fonts/truetype/liberation/LiberationSans-Regular.ttf",
    "/usr/share/fonts/truetype/noto/NotoSans-Regular.ttf"};

bool isNamedFixedWidth(const std::string& fileName) {
    std::string name = fs::path(fileName).filename().string();
    std::ranges::transform(name, name.begin(),
                           [](unsigned char letter) { return static_cast<char>(std::tolower(letter)); });
    constexpr std::array<std::string_view, 3> marks{"mono", "cour", "consol"};
    return std::ranges::any_of(marks,
                               [&](std::string_view mark) { return name.find(mark) != std::string::npos; });
}

} // namespace

std::vector<std::string> getStandInFonts(const std::string& fileName) {
    const bool isFixedWidth = isNamedFixedWidth(fileName);
    const std::string own = ManagerEnvironmentConfiguration::getSharedMultimediaPath() + "/fonts/";
    std::vector<std::string> fonts{own + (isFixedWidth ? "DejaVuSansMono.ttf" : "arial.ttf")};
    for (const std::string_view font : isFixedWidth ? fixedWidthFonts : sansFonts) {
        fonts.emplace_back(font);
    }
    std::erase_if(fonts, [&](const std::string& font) {
        std::error_code unknown;
        return font == fileName || !fs::is_regular_file(font, unknown);
    });
    return fonts;
}

} // namespace Vantrel
