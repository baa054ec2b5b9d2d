#include "vtl/scene/parser/NumberText.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <string>
#include <system_error>

namespace Vantrel {
namespace {

/** Powers of ten that a double holds exactly. */
constexpr std::array<double, 23> powersOfTen{1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                             1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                             1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
constexpr std::uint64_t largestExactMantissa = std::uint64_t{1} << 53U;
constexpr std::ptrdiff_t mostDigits = 19; // of which a mantissa of 64 bits never overflows

constexpr bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

/** A decimal number as it is written: mantissa * 10^exponent. */
struct Decimal {
    std::uint64_t mantissa = 0;
    std::ptrdiff_t exponent = 0;
    std::ptrdiff_t digits = 0;
};

/** Appends the digits from `at` on to the number; the first character behind them. */
const char* readDigits(const char* at, const char* end, Decimal& number) {
    const char* const first = at;
    for (; at != end && isDigit(*at); ++at) {
        number.mantissa = 10 * number.mantissa + static_cast<std::uint64_t>(*at - '0');
    }
    number.digits += at - first;
    return at;
}

/** The same with the point and the exponent of the number; an exponent without digits isn't one. */
const char* readDecimal(const char* at, const char* end, Decimal& number) {
    at = readDigits(at, end, number);
    if (at != end && *at == '.') {
        const std::ptrdiff_t before = number.digits;
        at = readDigits(at + 1, end, number);
        number.exponent = before - number.digits;
    }
    if (at != end && (*at == 'e' || *at == 'E')) {
        const bool hasSign = end - at > 1 && (at[1] == '-' || at[1] == '+');
        const char* const digits = at + (hasSign ? 2 : 1);
        if (digits != end && isDigit(*digits)) {
            int exponent = std::numeric_limits<int>::max(); // stays where there are too many digits
            const char* const behind = std::from_chars(digits, end, exponent).ptr;
            number.exponent += hasSign && at[1] == '-' ? -std::ptrdiff_t{exponent} : exponent;
            at = behind;
        }
    }
    return at;
}

/**
 * The number, where one operation on exact doubles gives it and its rounding to a float is the rounding of
 * what was written (W. D. Clinger, "How to read floating point numbers accurately", 1990); otherwise NaN.
 */
float quickFloat(const Decimal& number) {
    constexpr float unknown = std::numeric_limits<float>::quiet_NaN();
    constexpr std::uint64_t roundedBits = 0x1FFFFFFF;
    constexpr std::uint64_t halfWay = 0x10000000;
    const std::ptrdiff_t power = std::abs(number.exponent);
    if (number.digits == 0 || number.digits > mostDigits || number.mantissa > largestExactMantissa ||
        power >= std::ssize(powersOfTen)) {
        return unknown;
    }
    const auto mantissa = static_cast<double>(number.mantissa);
    const double scale = powersOfTen[static_cast<std::size_t>(power)];
    const double value = number.exponent < 0 ? mantissa / scale : mantissa * scale;
    // A double half way between two floats may itself be rounded: which of them is nearer is unknown.
    return (std::bit_cast<std::uint64_t>(value) & roundedBits) == halfWay ? unknown
                                                                          : static_cast<float>(value);
}

/** A number with digits and without a sign, whatever it is. */
float anyFloat(std::string_view digits, ModelFileFaults& faults) {
    float value = 0;
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (result.ec == std::errc::result_out_of_range) {
        value = std::strtof(std::string(digits).c_str(), nullptr); // zero or infinite
    }
    faults.makeFinite(value);
    return value;
}

} // namespace

std::string_view trimmedAtEnd(std::string_view text) {
    while (!text.empty() && isWhiteSpace(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

void skipWhiteSpace(std::string_view& text) {
    std::size_t count = 0;
    while (count < text.size() && isWhiteSpace(text[count])) {
        ++count;
    }
    text.remove_prefix(count);
}

std::string_view takeWord(std::string_view& text) {
    skipWhiteSpace(text);
    std::size_t length = 0;
    while (length < text.size() && !isWhiteSpace(text[length])) {
        ++length;
    }
    const std::string_view word = text.substr(0, length);
    text.remove_prefix(length);
    return word;
}

std::int32_t takeInteger(std::string_view& text) {
    constexpr std::int64_t beyond = std::int64_t{std::numeric_limits<std::int32_t>::max()} + 1;
    const bool isNegative = text.starts_with('-');
    std::size_t at = isNegative || text.starts_with('+') ? 1 : 0;
    std::int64_t value = 0;
    for (; at < text.size() && isDigit(text[at]); ++at) {
        if (value < beyond) {
            value = 10 * value + (text[at] - '0');
        }
    }
    text.remove_prefix(at);
    return static_cast<std::int32_t>(isNegative ? -std::min(value, beyond) : std::min(value, beyond - 1));
}

bool takeLeadingFloat(std::string_view& text, float& value, ModelFileFaults& faults) {
    skipWhiteSpace(text);
    value = 0;
    if (text.empty()) {
        return false;
    }
    const bool isNegative = text.front() == '-';
    const char* const start = text.data() + (isNegative || text.front() == '+' ? 1 : 0);
    Decimal number;
    const char* const behind = readDecimal(start, text.data() + text.size(), number);
    if (number.digits == 0) {
        ++faults.numbers;
        return false;
    }
    text.remove_prefix(static_cast<std::size_t>(behind - text.data()));
    const float quick = quickFloat(number);
    const float positive = std::isnan(quick) ? anyFloat({start, behind}, faults) : quick;
    value = isNegative ? -positive : positive;
    return true;
}

float takeFloat(std::string_view& text, ModelFileFaults& faults) {
    float value = 0;
    takeLeadingFloat(text, value, faults);
    if (!text.empty() && !isWhiteSpace(text.front())) {
        takeWord(text);
    }
    return value;
}

} // namespace Vantrel
