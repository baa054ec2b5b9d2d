#include "vtl/text/UTF8.h"

#include <gtest/gtest.h>

namespace Vantrel {
namespace {

struct Row {
    const char* name;
    std::string_view bytes;
    std::u16string_view text;
};

constexpr Row rows[] = {
    {"plain", "ab", u"ab"},
    {"degree sign and umlaut", "3.0\xC2\xB0 \xC3\xBC", u"3.0\u00B0 \u00FC"},
    {"three bytes", "\xE2\x82\xAC", u"\u20AC"},
    {"last of 16 bits", "\xEF\xBF\xBF", u"\uFFFF"},
    {"beyond 16 bits", "\xF0\x9F\x9B\xAB!", u"\uFFFD!"},
    {"Latin-1 bytes", "3\xB0 \xFC", u"3\uFFFD \uFFFD"},
    {"cut off at the end", "a\xE2\x82", u"a\uFFFD"},
    {"cut off by a letter", "\xE2\x82z", u"\uFFFDz"},
    {"cut off by a lead", "\xF0\x9F\xC2\xB0", u"\uFFFD\u00B0"},
    {"overlong", "\xC0\x80\xE0\x9F\xBF", u"\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD"},
    {"surrogate", "\xED\xA0\x80", u"\uFFFD\uFFFD\uFFFD"},
    {"beyond Unicode", "\xF4\x90\x80\x80\xF5", u"\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD"},
    {"a zero byte", std::string_view("a\0b", 3), std::u16string_view(u"a\0b", 3)},
};

TEST(UTF8Test, WidensWholeCharactersAndReplacesTheRest) {
    for (const Row& row : rows) {
        EXPECT_EQ(widen(row.bytes), row.text) << row.name;
    }
}

TEST(UTF8Test, EveryCharacterOfSixteenBitsComesBack) {
    for (unsigned code = 0; code <= 0xFFFF; ++code) {
        const bool isSurrogate = code >= 0xD800 && code <= 0xDFFF;
        const std::u16string text(1, static_cast<char16_t>(code));
        EXPECT_EQ(widen(narrow(text)), isSurrogate ? u"\uFFFD" : text) << code;
    }
    EXPECT_EQ(narrow(u"\xD83D\xDEEB!"), "\xEF\xBF\xBD!");
}

} // namespace
} // namespace Vantrel
