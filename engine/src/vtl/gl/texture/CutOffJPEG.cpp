#include "vtl/gl/texture/CutOffJPEG.h"

namespace Vantrel {
namespace {

constexpr unsigned int markerPrefix = 0xFF;
constexpr unsigned int temporary = 0x01;
constexpr unsigned int firstRestart = 0xD0;
constexpr unsigned int lastRestart = 0xD7;
constexpr unsigned int startOfImage = 0xD8;
constexpr unsigned int endOfImage = 0xD9;
constexpr unsigned int startOfScan = 0xDA;

/** The byte at a place, 0 behind the end. */
unsigned int byteAt(std::span<const std::byte> file, std::size_t at) {
    return at < file.size() ? std::to_integer<unsigned int>(file[at]) : 0;
}

/** Where the marker behind the entropy-coded bytes from `at` on stands; the end of the file if none does. */
std::size_t endOfEntropyCoded(std::span<const std::byte> file, std::size_t at) {
    for (; at + 1 < file.size(); ++at) {
        const unsigned int next = byteAt(file, at + 1);
        if (byteAt(file, at) == markerPrefix && next != 0 && next != markerPrefix &&
            (next < firstRestart || next > lastRestart)) {
            return at;
        }
    }
    return file.size();
}

} // namespace

bool isCutOffJPEG(std::span<const std::byte> file) {
    if (byteAt(file, 0) != markerPrefix || byteAt(file, 1) != startOfImage) {
        return false;
    }
    std::size_t at = 2;
    while (at + 1 < file.size()) {
        const unsigned int marker = byteAt(file, at + 1);
        if (byteAt(file, at) != markerPrefix || marker == markerPrefix) {
            ++at; // fill bytes
            continue;
        }
        if (marker == endOfImage) {
            return false;
        }
        const bool standsAlone = marker == temporary || (marker >= firstRestart && marker <= lastRestart);
        at += standsAlone ? 2 : 2 + (std::size_t{byteAt(file, at + 2)} << 8U) + byteAt(file, at + 3);
        if (marker == startOfScan) {
            at = endOfEntropyCoded(file, at);
        }
    }
    return true;
}

} // namespace Vantrel
