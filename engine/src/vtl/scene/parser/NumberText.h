#pragma once

#include "vtl/scene/parser/ModelFileFaults.h"

#include <cstdint>
#include <string_view>

// Words and numbers in the lines of a model file. Each function that takes something cuts it off the front of
// `text`; all but `takeInteger` together with the white space before it.

namespace Vantrel {

/** Blank, tab, line feed, vertical tab, form feed or carriage return. */
constexpr bool isWhiteSpace(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

/** Without the white space at its end. */
std::string_view trimmedAtEnd(std::string_view text);

void skipWhiteSpace(std::string_view& text);

/** The next word; empty when there is none. */
std::string_view takeWord(std::string_view& text);

/**
 * The whole number at the start of `text`, with a sign or without, which is cut off; the nearest one that
 * there is for one out of range, 0 without one.
 */
std::int32_t takeInteger(std::string_view& text);

/**
 * The number that the next word starts with, nearest to what is written; the whole word is cut off. 0 without
 * a word; 0 and counted as a fault for a word that starts with no number or with one that isn't finite.
 */
float takeFloat(std::string_view& text, ModelFileFaults& faults);

/**
 * The same for what `text` starts with, of which the number alone is cut off.
 * False, and `value` 0, where there is no number.
 */
bool takeLeadingFloat(std::string_view& text, float& value, ModelFileFaults& faults);

} // namespace Vantrel
