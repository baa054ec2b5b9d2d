#include "vtl/base/ManagerRandomNumber.h"

#include "tests/support/ReportCapture.h"
#include "vtl/base/ManagerEnvironmentConfiguration.h"
#include "vtl/base/TickSource.h"

#include <algorithm>
#include <array>
#include <gtest/gtest.h>
#include <limits>
#include <vector>

namespace Vantrel {
namespace {

class ManagerRandomNumberTest : public ::testing::Test {
protected:
    void SetUp() override { ManagerEnvironmentConfiguration::init(); }
    void TearDown() override { ManagerEnvironmentConfiguration::shutdown(); }

    /** Seeds, and draws from `lo` to `hi`. */
    std::vector<int> draw(const std::string& seedSource, int lo, int hi) {
        ManagerEnvironmentConfiguration::populateFromCommandLine(
            {"{randomnumberseedsource=" + seedSource + "}"});
        reports.clear();
        ManagerRandomNumber::init();
        std::vector<int> drawn(3000);
        std::generate(drawn.begin(), drawn.end(),
                      [lo, hi] { return ManagerRandomNumber::getRandomInt(lo, hi); });
        return drawn;
    }

    Tests::ReportCapture reports;
};

TEST_F(ManagerRandomNumberTest, SeedGivesTheSameSequenceAgain) {
    const std::vector<int> drawn = draw("1234", 0, 255);
    EXPECT_EQ(reports.text(),
              "Seeding ManagerRandomNumber with user specified seed (unsigned int) of 1234\n");
    EXPECT_EQ(draw("1234", 0, 255), drawn);
    EXPECT_NE(draw("1235", 0, 255), drawn);
    setTickSource([] { return 1234U; });
    EXPECT_EQ(draw("SDL_CLOCK", 0, 255), drawn);
    setTickSource(nullptr);
    EXPECT_EQ(reports.text(), "Seeding ManagerRandomNumber with SDL_CLOCK time of 1234\n");
    EXPECT_EQ(draw("nonsense", 0, 255), draw("0", 0, 255));
}

TEST_F(ManagerRandomNumberTest, StaysInItsRangeAndReachesItsEnds) {
    constexpr int lowest = std::numeric_limits<int>::min();
    using Row = std::array<int, 4>; // lo, hi, least, greatest; a negative lo is flipped about
    for (const auto& [lo, hi, least, greatest] :
         {Row{0, 255, 0, 255}, Row{5, 5, 5, 5}, Row{5, 4, 5, 5}, Row{-10, 10, -10, 10}, Row{-10, -8, -10, 10},
          Row{lowest, lowest, lowest, lowest}}) {
        const std::vector<int> drawn = draw("1", lo, hi);
        EXPECT_EQ(std::ranges::min(drawn), least) << lo << " to " << hi;
        EXPECT_EQ(std::ranges::max(drawn), greatest) << lo << " to " << hi;
    }
}

} // namespace
} // namespace Vantrel
