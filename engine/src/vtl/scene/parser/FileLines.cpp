#include "vtl/scene/parser/FileLines.h"

#include <cstring>
#include <filesystem>
#include <system_error>
#include <utility>

namespace Vantrel {
namespace {

// Small enough to stay in the cache, so that what has been read is near when it is looked at.
constexpr std::size_t firstBufferSize = std::size_t{256} * 1024;

} // namespace

FileLines::FileLines(const std::string& fileName) {
    std::error_code error;
    if (std::filesystem::is_regular_file(fileName, error)) {
        file.reset(std::fopen(fileName.c_str(), "rb"));
    }
    isThere = file != nullptr;
    if (isThere) {
        std::setvbuf(file.get(), nullptr, _IONBF, 0); // this object's own buffer is enough
    }
}

FileLines FileLines::ofText(std::string_view text) {
    FileLines lines;
    lines.rest = text;
    lines.isThere = true;
    return lines;
}

bool FileLines::nextAcrossBuffers(std::string_view& line) {
    std::size_t searched = 0;
    std::size_t end = std::string_view::npos;
    while (end == std::string_view::npos) {
        searched = rest.size();
        if (!readMore()) {
            line = std::exchange(rest, {});
            return !line.empty();
        }
        end = rest.find('\n', searched);
    }
    line = rest.substr(0, end);
    rest.remove_prefix(end + 1);
    return true;
}

/** Makes `rest` longer, at another place; false at the end of the file. */
bool FileLines::readMore() {
    if (file == nullptr) {
        return false;
    }
    if (rest.size() == bufferSize) {
        bufferSize = bufferSize == 0 ? firstBufferSize : 2 * bufferSize;
        auto larger = std::make_unique_for_overwrite<char[]>(bufferSize);
        rest.copy(larger.get(), rest.size());
        buffer = std::move(larger);
    } else if (!rest.empty()) {
        std::memmove(buffer.get(), rest.data(), rest.size());
    }
    const std::size_t count = std::fread(buffer.get() + rest.size(), 1, bufferSize - rest.size(), file.get());
    rest = {buffer.get(), rest.size() + count};
    return count != 0;
}

} // namespace Vantrel
