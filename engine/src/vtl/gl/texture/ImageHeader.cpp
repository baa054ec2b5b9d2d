#include "vtl/gl/texture/ImageHeader.h"

#include <algorithm>
#include <array>
#include <cstdlib>

namespace Vantrel {
namespace {

using Bytes = std::span<const std::byte>;
using Verdict = ImageHeader::Verdict;

std::uint64_t byteAt(Bytes file, std::size_t at) {
    return at < file.size() ? std::to_integer<std::uint64_t>(file[at]) : 0;
}

std::uint64_t bigEndian(Bytes file, std::size_t at, std::size_t bytes) {
    std::uint64_t value = 0;
    for (std::size_t i = 0; i < bytes; ++i) {
        value = value << 8U | byteAt(file, at + i);
    }
    return value;
}

std::uint64_t littleEndian(Bytes file, std::size_t at, std::size_t bytes) {
    std::uint64_t value = 0;
    for (std::size_t i = bytes; i > 0; --i) {
        value = value << 8U | byteAt(file, at + i - 1);
    }
    return value;
}

bool startsWith(Bytes file, std::string_view magic) {
    return file.size() >= magic.size() &&
           std::equal(magic.begin(), magic.end(), file.begin(),
                      [](char a, std::byte b) { return static_cast<std::byte>(a) == b; });
}

/**
 * Whether a file of this size can hold the pixels: the densest of the formats, deflate with one bit a pixel,
 * gets 8 * 1032 of them out of a byte.
 */
ImageHeader checked(Bytes file, std::uint64_t width, std::uint64_t height) {
    constexpr std::uint64_t pixelsInByte = 8256;
    constexpr std::uint64_t longestSide = 0xFFFFFFFF;
    const bool holds = width > 0 && height > 0 && width <= longestSide && height <= longestSide &&
                       width * height / pixelsInByte <= file.size();
    return {holds ? Verdict::sound : Verdict::truncated, width, height};
}

/** Where the marker behind the entropy-coded bytes from `at` on stands; the end of the file if none does. */
std::size_t endOfEntropyCoded(Bytes file, std::size_t at) {
    constexpr std::uint64_t firstRestart = 0xD0;
    constexpr std::uint64_t lastRestart = 0xD7;
    for (; at + 1 < file.size(); ++at) {
        const std::uint64_t next = byteAt(file, at + 1);
        if (byteAt(file, at) == 0xFF && next != 0 && next != 0xFF &&
            (next < firstRestart || next > lastRestart)) {
            return at;
        }
    }
    return file.size();
}

bool isFrameHeader(std::uint64_t marker) {
    constexpr std::array<std::uint64_t, 3> others{0xC4, 0xC8, 0xCC}; // tables, extensions
    return marker >= 0xC0 && marker <= 0xCF &&
           std::find(others.begin(), others.end(), marker) == others.end();
}

/** Walks from marker to marker up to the end of the image; a file without one has been cut off. */
ImageHeader readJPEGHeader(Bytes file) {
    constexpr std::uint64_t endOfImage = 0xD9;
    constexpr std::uint64_t startOfScan = 0xDA;
    ImageHeader header{Verdict::truncated, 0, 0};
    std::size_t at = 2;
    while (at + 3 < file.size() || (at + 1 < file.size() && byteAt(file, at + 1) == endOfImage)) {
        if (byteAt(file, at) != 0xFF || byteAt(file, at + 1) == 0xFF) {
            ++at; // fill bytes
            continue;
        }
        const std::uint64_t marker = byteAt(file, at + 1);
        if (marker == endOfImage) {
            return checked(file, header.width, header.height);
        }
        if (isFrameHeader(marker)) {
            header.height = bigEndian(file, at + 5, 2);
            header.width = bigEndian(file, at + 7, 2);
        }
        at += 2 + bigEndian(file, at + 2, 2);
        if (marker == startOfScan) {
            at = endOfEntropyCoded(file, at);
        }
    }
    return {Verdict::truncated, header.width, header.height};
}

ImageHeader readBMPHeader(Bytes file) {
    constexpr std::uint64_t oldHeaderSize = 12;
    if (littleEndian(file, 14, 4) == oldHeaderSize) {
        return checked(file, littleEndian(file, 18, 2), littleEndian(file, 20, 2));
    }
    // A negative height says that the rows stand from the top down.
    const auto height = static_cast<std::int32_t>(littleEndian(file, 22, 4));
    return checked(file, littleEndian(file, 18, 4),
                   static_cast<std::uint64_t>(std::abs(std::int64_t{height})));
}

/** The reader takes memory for the first frame, whose size may differ from the picture's. */
ImageHeader readGIFHeader(Bytes file) {
    constexpr std::uint64_t hasColorTable = 0x80;
    constexpr std::uint64_t extensionBlock = 0x21;
    constexpr std::uint64_t frameBlock = 0x2C;
    const std::uint64_t flags = byteAt(file, 10);
    std::size_t at = 13 + ((flags & hasColorTable) != 0 ? std::size_t{3} << ((flags & 7U) + 1U) : 0);
    while (byteAt(file, at) == extensionBlock) {
        at += 2;
        while (byteAt(file, at) != 0) {
            at += 1 + byteAt(file, at);
        }
        ++at;
    }
    if (byteAt(file, at) != frameBlock) {
        return {Verdict::truncated, 0, 0};
    }
    return checked(file, std::max(littleEndian(file, 6, 2), littleEndian(file, at + 5, 2)),
                   std::max(littleEndian(file, 8, 2), littleEndian(file, at + 7, 2)));
}

bool isTGA(std::string_view extension) {
    return extension.size() == 3 && (extension[0] | 0x20) == 't' && (extension[1] | 0x20) == 'g' &&
           (extension[2] | 0x20) == 'a';
}

} // namespace

ImageHeader readImageHeader(Bytes file, std::string_view extension) {
    constexpr std::string_view png = "\x89PNG\r\n\x1A\n";
    if (startsWith(file, png)) {
        return checked(file, bigEndian(file, 16, 4), bigEndian(file, 20, 4));
    }
    if (startsWith(file, "\xFF\xD8")) {
        return readJPEGHeader(file);
    }
    if (startsWith(file, "BM")) {
        return readBMPHeader(file);
    }
    if (startsWith(file, "GIF8")) {
        return readGIFHeader(file);
    }
    if (isTGA(extension)) {
        return checked(file, littleEndian(file, 12, 2), littleEndian(file, 14, 2));
    }
    return {};
}

} // namespace Vantrel
