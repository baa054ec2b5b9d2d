#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace Vantrel {

/** What the head of an image file claims. */
struct ImageHeader {
    enum class Verdict : std::uint8_t {
        unknown,   ///< no format that is looked into here
        sound,     ///< the size is given, and the file can hold it
        truncated, ///< the file ends before the image does
    };

    Verdict verdict = Verdict::unknown;
    std::uint64_t width = 0;
    std::uint64_t height = 0;
};

/**
 * Looks into PNG, JPEG, BMP, GIF and (by its extension alone) TGA files: their readers take memory for the
 * claimed size before they read on, so a claim that the file can't hold is caught here. Sources: PNG (ISO/IEC
 * 15948), JPEG (ITU-T T.81, B), GIF89a (CompuServe, 1990), TGA 2.0 (Truevision, 1991).
 */
ImageHeader readImageHeader(std::span<const std::byte> file, std::string_view extension);

} // namespace Vantrel
