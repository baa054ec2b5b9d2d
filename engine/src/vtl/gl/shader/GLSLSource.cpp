#include "vtl/gl/shader/GLSLSource.h"

#include "vtl/gl/ManagerOpenGLState.h"

#include <filesystem>
#include <fstream>

namespace Vantrel {

std::optional<std::string> readGLSLSource(const std::string& path) {
    std::error_code error;
    std::ifstream file(path);
    // A folder opens as well as a file does.
    if (!file || std::filesystem::is_directory(path, error)) {
        return std::nullopt;
    }
    std::string text;
    for (std::string line; std::getline(file, line);) {
        const bool mustLower = line == "#version 150" && !ManagerOpenGLState::isVersion32OrGreater();
        text.append(mustLower ? "#version 120" : line).append("\n");
    }
    return text;
}

} // namespace Vantrel
