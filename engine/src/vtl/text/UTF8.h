#pragma once

#include <string>
#include <string_view>

namespace Vantrel {

/** What stands for bytes that are no UTF-8 and for characters beyond 16 bits: U+FFFD. */
constexpr char16_t replacementCharacter = 0xFFFD;

/**
 * The characters of a UTF-8 text. Each longest run of bytes that begins a character and doesn't end it counts
 * as one replacement character, each other wrong byte too (Unicode 15.0, section 3.9, "Substitution of
 * Maximal Subparts").
 */
std::u16string widen(std::string_view utf8);

/** The text in UTF-8; a lone half of a surrogate pair becomes the replacement character, and so do pairs. */
std::string narrow(std::u16string_view text);

} // namespace Vantrel
