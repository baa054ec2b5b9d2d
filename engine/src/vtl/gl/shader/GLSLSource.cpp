#include "vtl/gl/shader/GLSLSource.h"

#include "vtl/gl/ManagerOpenGLState.h"

#include <filesystem>
#include <fstream>

namespace Vantrel {

std::optional<std::string> readGLSLSource(const std::string& path) {
    std::error_code error;
    // A folder opens as well as a file does, and a pipe would be waited for.
    if (!std::filesystem::is_regular_file(path, error)) {
        return std::nullopt;
    }
    std::ifstream file(path);
    if (!file) {
        return std::nullopt;
    }
    std::string text;
    for (std::string line; std::getline(file, line);) {
        const bool mustLower =
            line.starts_with("#version 150") && !ManagerOpenGLState::isVersion32OrGreater();
        text.append(mustLower ? "#version 120" : line).append("\n");
    }
    return text;
}

} // namespace Vantrel
