#include "tests/support/RandomInput.h"
#include "tests/support/TemporaryFolder.h"
#include "vtl/scene/parser/FileLines.h"
#include "vtl/scene/parser/NumberText.h"

#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <gtest/gtest.h>
#include <string>
#include <tuple>
#include <vector>

namespace Vantrel {
namespace {

std::vector<std::string> allLines(FileLines lines) {
    std::vector<std::string> all;
    for (std::string_view line; lines.next(line);) {
        all.emplace_back(line);
    }
    return all;
}

TEST(FileLines, EndAtALineFeedAlone) {
    const std::vector<std::string> expected{"one", "", "three\r", "four"};
    EXPECT_EQ(allLines(FileLines::ofText("one\n\nthree\r\nfour")), expected);
    EXPECT_EQ(allLines(FileLines::ofText("one\n\nthree\r\nfour\n")), expected);
    EXPECT_EQ(allLines(FileLines::ofText("")), std::vector<std::string>());
}

TEST(FileLines, AreWholeWhereverTheBufferEnds) {
    const Tests::TemporaryFolder folder;
    std::vector<std::string> written;
    std::string text;
    for (std::size_t length = 0; text.size() < 3 * 1024 * 1024; length = length * 2 + 7) {
        for (const std::size_t some : {length, std::size_t{11}, length / 3}) {
            written.emplace_back(some, static_cast<char>('a' + written.size() % 26));
            text += written.back() + '\n';
        }
    }
    EXPECT_EQ(allLines(FileLines(folder.write("lines", text))), written);
}

TEST(FileLines, AreNotThereWithoutARegularFile) {
    const Tests::TemporaryFolder folder;
    EXPECT_FALSE(FileLines(folder.path("none")).isOpen());
    EXPECT_FALSE(FileLines(folder.path("")).isOpen()) << "a folder";
    EXPECT_FALSE(FileLines("/dev/zero").isOpen());
    EXPECT_TRUE(FileLines(folder.write("empty", "")).isOpen());
}

struct FloatRow {
    const char* text;
    float value;
    std::size_t faults;
    const char* behind;
};

TEST(NumberText, TakesTheFloatOfAWord) {
    const std::vector<FloatRow> rows{
        {"1.5 2", 1.5F, 0, " 2"},
        {" \t-0.25\r", -0.25F, 0, "\r"},
        {"+3", 3, 0, ""},
        {".5", 0.5F, 0, ""},
        {"5.", 5, 0, ""},
        {"1e2", 100, 0, ""},
        {"1.25E-2 x", 0.0125F, 0, " x"},
        {"1e+", 1, 0, ""},
        {"7abc 8", 7, 0, " 8"},
        {"", 0, 0, ""},
        {"  ", 0, 0, ""},
        {"-", 0, 1, ""},
        {"- 5", 0, 1, " 5"},
        {".", 0, 1, ""},
        {"abc 1", 0, 1, " 1"},
        {"nan", 0, 1, ""},
        {"-inf", 0, 1, ""},
        {"1e39", 0, 1, ""},
        {"1e-60", 0, 0, ""},
        {"1e99999999999999999999", 0, 1, ""},
        {"1234567890123456789012345678901234567890", 0, 1, ""},
        {"0.00000000000000000000000000000000000000000000000000001e60", 1e7F, 0, ""},
        {"16777217", 16777216, 0, ""},           // half way between two floats, to the even one
        {"16777217.000000001", 16777218, 0, ""}, // a double can't tell it from half way
    };
    for (const FloatRow& row : rows) {
        ModelFileFaults faults;
        std::string_view text = row.text;
        EXPECT_EQ(takeFloat(text, faults), row.value) << row.text;
        EXPECT_EQ(faults.numbers, row.faults) << row.text;
        EXPECT_EQ(text, row.behind) << row.text;
    }
}

TEST(NumberText, RoundsAsTheStandardLibraryDoes) {
    Tests::RandomInput random;
    ModelFileFaults faults;
    for (int round = 0; round < 200000; ++round) {
        const auto value = std::bit_cast<float>(static_cast<std::uint32_t>(random.index(0, 0x7F7FFFFF)));
        std::array<char, 64> text{};
        // With fewer and with more digits than tell one float from the next.
        std::snprintf(text.data(), text.size(), random.index(0, 1) == 0 ? "%.*e" : "%.*g",
                      static_cast<int>(random.index(1, 20)), static_cast<double>(value));
        std::string_view rest = text.data();
        const float nearest = std::strtof(text.data(), nullptr);
        ASSERT_EQ(takeFloat(rest, faults), std::isfinite(nearest) ? nearest : 0) << text.data();
    }
}

TEST(NumberText, TakesIntegersThatSaturate) {
    const std::vector<std::tuple<const char*, std::int32_t, const char*>> rows{
        {"12/3", 12, "/3"},
        {"-7", -7, ""},
        {"+8 ", 8, " "},
        {"", 0, ""},
        {"x", 0, "x"},
        {"99999999999999999999", 2147483647, ""},
        {"0", 0, ""},
        {"2147483648", 2147483647, ""},
        {"-99999999999", -2147483647 - 1, ""}};
    for (const auto& [input, value, behind] : rows) {
        std::string_view text = input;
        EXPECT_EQ(takeInteger(text), value) << input;
        EXPECT_EQ(text, behind) << input;
    }
}

} // namespace
} // namespace Vantrel
