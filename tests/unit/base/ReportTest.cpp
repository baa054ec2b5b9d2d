#include "vtl/base/Report.h"

#include "tests/support/RandomInput.h"
#include "tests/support/ReportCapture.h"

#include <bit>
#include <cstdint>
#include <gtest/gtest.h>
#include <limits>
#include <sstream>
#include <thread>

namespace Vantrel {
namespace {

template <class... Values>
void expectAsStreamed(const Values&... values) {
    ReportText text;
    std::ostringstream out;
    ((text << values << ' '), ...);
    ((out << values << ' '), ...);
    EXPECT_EQ(text.str(), out.str());
}

template <class Number>
void expectLimitsAsStreamed() {
    using Limits = std::numeric_limits<Number>;
    expectAsStreamed(Limits::min(), Limits::max(), Limits::lowest(), Number{0}, Number{1});
    expectAsStreamed(Limits::infinity(), -Limits::infinity(), Limits::quiet_NaN(), -Limits::quiet_NaN(),
                     Limits::denorm_min(), -Number{0});
}

TEST(ReportTest, WritesWhatAStandardStreamWrites) {
    expectLimitsAsStreamed<float>();
    expectLimitsAsStreamed<double>();
    expectLimitsAsStreamed<int>();
    expectLimitsAsStreamed<std::uint64_t>();
    const int object = 0;
    const void* const none = nullptr;
    expectAsStreamed(true, false, 'x', "text", std::string("text"), &object, none,
                     std::this_thread::get_id());
    EXPECT_EQ((ReportText() << Hexadecimal{0xBEEF}).str(), "beef");

    Tests::RandomInput random;
    for (int i = 0; i < 20'000; ++i) {
        const std::uint64_t bits = random.index(0, std::numeric_limits<std::uint64_t>::max());
        const auto half = static_cast<std::uint32_t>(bits);
        expectAsStreamed(std::bit_cast<double>(bits), std::bit_cast<float>(half), random.real(-1e5F, 1e5F),
                         static_cast<std::int64_t>(bits), static_cast<short>(half));
    }
}

TEST(ReportTest, ReportsOfTwoThreadsNeverTearALine) {
    const Tests::ReportCapture capture;
    constexpr int lines = 20'000; // many times what is gathered before it is written
    const auto reportAll = [](char who) {
        for (int i = 0; i < lines; ++i) {
            Report() << who << " says " << i << " and then " << i << " again" << '\n';
        }
    };
    std::thread other(reportAll, 'B');
    reportAll('A');
    other.join();

    std::istringstream in(capture.text());
    int next[2] = {0, 0};
    for (std::string line; std::getline(in, line);) {
        ASSERT_TRUE(line.starts_with("A ") || line.starts_with("B ")) << line;
        const std::string number = std::to_string(next[line.front() - 'A']++);
        ASSERT_EQ(line.substr(1), " says " + number + " and then " + number + " again");
    }
    EXPECT_EQ(next[0], lines);
    EXPECT_EQ(next[1], lines);
}

TEST(ReportTest, HoldsReportsBackUntilTheyHaveSomewhereToGo) {
    Reports::open([](std::string_view) {});
    Reports::flush();
    Reports::open({});
    EXPECT_FALSE(Reports::isOpen());
    const std::string large(100'000, 'x');
    Report() << "early\n" << large;
    Reports::flush();
    std::string written;
    Reports::open([&written](std::string_view bytes) { written += bytes; });
    EXPECT_TRUE(Reports::isOpen());
    EXPECT_EQ(written, "");
    Report() << "late\n";
    Reports::flush();
    EXPECT_EQ(written, "early\n" + large + "late\n");
    Reports::open([](std::string_view) {});
}

} // namespace
} // namespace Vantrel
