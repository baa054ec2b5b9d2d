#pragma once

#include <sstream>
#include <string>

namespace Vantrel {

/**
 * The number at the start of `text`, as a standard stream extracts it: leading blanks are skipped, what
 * follows the number is ignored, and a text without a number (or with one out of range) gives 0.
 */
template <class Number>
Number numberFromText(const std::string& text) {
    std::istringstream in(text);
    Number number{};
    in >> number;
    return in.fail() ? Number{} : number;
}

} // namespace Vantrel
