#pragma once

#include <cstddef>
#include <cstdio>
#include <memory>
#include <string>
#include <string_view>

namespace Vantrel {

/**
 * The lines of a text file of any size, read through one buffer, which grows for a line that doesn't fit. The
 * line feed between two lines belongs to neither; a carriage return before it stays.
 */
class FileLines {
public:
    /** Of a file; not open when that isn't there, can't be read or is no regular file. */
    explicit FileLines(const std::string& fileName);
    /** Of `text` itself, which must outlive this object. */
    static FileLines ofText(std::string_view text);

    bool isOpen() const { return isThere; }
    /** Sets `line` to the next one, which is good until the next call; false at the end of the file. */
    bool next(std::string_view& line) {
        const std::size_t end = rest.find('\n');
        if (end == std::string_view::npos) {
            return nextAcrossBuffers(line);
        }
        line = rest.substr(0, end);
        rest.remove_prefix(end + 1);
        return true;
    }

private:
    struct CloseFile {
        void operator()(std::FILE* open) const { std::fclose(open); }
    };

    FileLines() = default;
    bool nextAcrossBuffers(std::string_view& line);
    bool readMore();

    std::unique_ptr<std::FILE, CloseFile> file;
    std::unique_ptr<char[]> buffer;
    std::size_t bufferSize = 0;
    /** What has been read and not yet handed out. */
    std::string_view rest;
    bool isThere = false;
};

} // namespace Vantrel
