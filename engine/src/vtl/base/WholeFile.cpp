#include "vtl/base/WholeFile.h"

#include <filesystem>
#include <fstream>
#include <ios>
#include <system_error>

namespace Vantrel {

std::optional<WholeFile> WholeFile::read(const std::string& fileName, std::size_t longest) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(fileName, error)) {
        return std::nullopt;
    }
    std::ifstream in(fileName, std::ios::binary | std::ios::ate);
    const std::streamoff length = in.tellg();
    if (!in || static_cast<std::size_t>(length) > longest) {
        return std::nullopt;
    }
    WholeFile file;
    file.content = std::make_unique_for_overwrite<std::byte[]>(static_cast<std::size_t>(length));
    in.seekg(0);
    in.read(reinterpret_cast<char*>(file.content.get()), length);
    file.size = static_cast<std::size_t>(in.gcount());
    return file;
}

} // namespace Vantrel
