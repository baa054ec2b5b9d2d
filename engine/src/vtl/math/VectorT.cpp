#include "vtl/math/VectorT.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <iomanip>
#include <limits>
#include <sstream>
#include <system_error>

namespace Vantrel {
namespace {

bool standsAt(std::string_view text, std::size_t at, char c) {
    return at < text.size() && text[at] == c;
}

std::size_t skipSign(std::string_view text, std::size_t at) {
    return standsAt(text, at, '+') || standsAt(text, at, '-') ? at + 1 : at;
}

bool isDigitAt(std::string_view text, std::size_t at) {
    return at < text.size() && text[at] >= '0' && text[at] <= '9';
}

std::size_t skipDigits(std::string_view text, std::size_t at) {
    while (isDigitAt(text, at)) {
        ++at;
    }
    return at;
}

/** `at` when no complete exponent stands there. */
std::size_t skipExponent(std::string_view text, std::size_t at) {
    if (!standsAt(text, at, 'e') && !standsAt(text, at, 'E')) {
        return at;
    }
    const std::size_t digits = skipSign(text, at + 1);
    const std::size_t end = skipDigits(text, digits);
    return end > digits ? end : at;
}

/** `at` when no number begins there. A point belongs to a number only with a digit behind it. */
std::size_t skipNumber(std::string_view text, std::size_t at) {
    const std::size_t digits = skipSign(text, at);
    std::size_t end = skipDigits(text, digits);
    if (standsAt(text, end, '.') && isDigitAt(text, end + 1)) {
        end = skipDigits(text, end + 1);
    }
    return end > digits ? skipExponent(text, end) : at;
}

/** Cuts the next number off the front of `text`; empty when none is left. */
std::string_view takeNumber(std::string_view& text) {
    for (std::size_t begin = 0; begin < text.size(); ++begin) {
        if (const std::size_t end = skipNumber(text, begin); end > begin) {
            const std::string_view number = text.substr(begin, end - begin);
            text.remove_prefix(end);
            return number;
        }
    }
    return text = {};
}

/** Tells, of a number known to be out of range, the too large from the too small. */
bool isTooLarge(std::string_view number) {
    const std::string_view mantissa = number.substr(0, number.find_first_of("eE"));
    const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
    const auto place =
        static_cast<std::int64_t>(point) - static_cast<std::int64_t>(mantissa.find_first_of("123456789"));
    if (mantissa.size() == number.size()) {
        return place > 0;
    }
    std::string_view digits = number.substr(mantissa.size() + 1);
    digits.remove_prefix(standsAt(digits, 0, '+') ? 1 : 0);
    std::int64_t exponent = 0;
    const bool fits =
        std::from_chars(digits.data(), digits.data() + digits.size(), exponent).ec == std::errc{};
    return fits ? exponent > -place : !digits.starts_with('-');
}

/** False when the number is too large, so that nothing behind it is read. */
template <class T>
bool readNumber(std::string_view number, T& value) {
    const bool isNegative = number.starts_with('-');
    number.remove_prefix(skipSign(number, 0));
    const auto result = std::from_chars(number.data(), number.data() + number.size(), value);
    const bool isOutOfRange = result.ec == std::errc::result_out_of_range;
    const bool fits = !isOutOfRange || !isTooLarge(number);
    if (isOutOfRange) {
        value = fits ? T{} : std::numeric_limits<T>::max();
    }
    value = isNegative ? -value : value;
    return fits;
}

} // namespace

template <class T>
VectorT<T>::VectorT(std::string_view text) {
    for (T* const component : {&x, &y, &z}) {
        const std::string_view number = takeNumber(text);
        if (number.empty() || !readNumber(number, *component)) {
            return;
        }
    }
}

template <class T>
std::string VectorT<T>::toString(int precision) const {
    std::ostringstream out;
    out << std::fixed << std::setprecision(precision) << "(" << x << ", " << y << ", " << z << ")";
    return out.str();
}

template class VectorT<float>;
template class VectorT<double>;

} // namespace Vantrel
