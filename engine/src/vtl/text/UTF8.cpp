#include "vtl/text/UTF8.h"

#include <cstddef>
#include <cstdint>

namespace Vantrel {
namespace {

/** What a lead byte asks for: so many more bytes, the first of them within [low, high]; 0 more for none. */
struct Sequence {
    std::size_t more;
    std::uint8_t low = 0x80;
    std::uint8_t high = 0xBF;
};

constexpr bool isWithin(std::uint8_t byte, std::uint8_t low, std::uint8_t high) {
    return byte >= low && byte <= high;
}

/** The narrowed second bytes keep out overlong forms, surrogates and what lies beyond U+10FFFF. */
constexpr Sequence sequenceOf(std::uint8_t lead) {
    if (isWithin(lead, 0xC2, 0xDF)) {
        return {.more = 1, .low = 0x80, .high = 0xBF};
    }
    if (isWithin(lead, 0xE0, 0xEF)) {
        return {.more = 2,
                .low = static_cast<std::uint8_t>(lead == 0xE0 ? 0xA0 : 0x80),
                .high = static_cast<std::uint8_t>(lead == 0xED ? 0x9F : 0xBF)};
    }
    if (isWithin(lead, 0xF0, 0xF4)) {
        return {.more = 3,
                .low = static_cast<std::uint8_t>(lead == 0xF0 ? 0x90 : 0x80),
                .high = static_cast<std::uint8_t>(lead == 0xF4 ? 0x8F : 0xBF)};
    }
    return {.more = 0, .low = 0x80, .high = 0xBF};
}

constexpr bool isSurrogate(char16_t unit) {
    return unit >= 0xD800 && unit <= 0xDFFF;
}

void appendUTF8(std::string& text, char16_t character) {
    const auto code = static_cast<std::uint32_t>(character);
    if (code < 0x80) {
        text += static_cast<char>(code);
    } else if (code < 0x800) {
        text += static_cast<char>(0xC0 | code >> 6);
        text += static_cast<char>(0x80 | (code & 0x3F));
    } else {
        text += static_cast<char>(0xE0 | code >> 12);
        text += static_cast<char>(0x80 | (code >> 6 & 0x3F));
        text += static_cast<char>(0x80 | (code & 0x3F));
    }
}

} // namespace

std::u16string widen(std::string_view utf8) {
    std::u16string text;
    text.reserve(utf8.size());
    for (std::size_t i = 0; i < utf8.size();) {
        const auto lead = static_cast<std::uint8_t>(utf8[i++]);
        if (lead < 0x80) {
            text += static_cast<char16_t>(lead);
            continue;
        }
        Sequence expected = sequenceOf(lead);
        std::uint32_t code = lead & 0x3FU >> expected.more;
        std::size_t missing = expected.more;
        while (missing > 0 && i < utf8.size()) {
            const auto byte = static_cast<std::uint8_t>(utf8[i]);
            if (!isWithin(byte, expected.low, expected.high)) {
                break;
            }
            code = code << 6 | (byte & 0x3FU);
            expected = {.more = 0, .low = 0x80, .high = 0xBF};
            --missing;
            ++i;
        }
        const bool isWhole = missing == 0 && lead >= 0xC2 && lead <= 0xF4;
        text += isWhole && code <= 0xFFFF ? static_cast<char16_t>(code) : replacementCharacter;
    }
    return text;
}

std::string narrow(std::u16string_view text) {
    std::string utf8;
    utf8.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        appendUTF8(utf8, isSurrogate(text[i]) ? replacementCharacter : text[i]);
        const bool isPair = text[i] >= 0xD800 && text[i] < 0xDC00 && i + 1 < text.size() &&
                            text[i + 1] >= 0xDC00 && text[i + 1] <= 0xDFFF;
        i += isPair ? 1 : 0;
    }
    return utf8;
}

} // namespace Vantrel
