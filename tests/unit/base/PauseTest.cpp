#include "vtl/base/Pause.h"

#include "vtl/base/Report.h"

#include <array>
#include <gtest/gtest.h>
#include <iostream>
#include <unistd.h>

namespace Vantrel {
namespace {

/** Makes standard input a pipe that holds `keys` and then ends. */
void typeAhead(std::string_view keys) {
    std::array<int, 2> ends{};
    ASSERT_EQ(::pipe(ends.data()), 0);
    ASSERT_EQ(::write(ends[1], keys.data(), keys.size()), static_cast<ssize_t>(keys.size()));
    ::dup2(ends[0], STDIN_FILENO);
    ::close(ends[0]);
    ::close(ends[1]);
}

TEST(PauseTest, TakesOneCharacterAfterThePromptHasBeenWritten) {
    typeAhead("ab");
    std::string written;
    Reports::open([](std::string_view) {});
    Reports::flush();
    Reports::open([&written](std::string_view bytes) { written += bytes; });
    Report() << "Press ENTER to continue";
    Pause::waitForKey();
    EXPECT_EQ(written, "Press ENTER to continue");
    Reports::open([](std::string_view) {});
    char rest = 0;
    EXPECT_EQ(::read(STDIN_FILENO, &rest, 1), 1);
    EXPECT_EQ(rest, 'b');
    Pause::waitForKey(); // the end of the input counts as a key
}

TEST(PauseTest, FatalPathEndsTheProcessAfterTheKey) {
    typeAhead("\n");
    EXPECT_EXIT(Pause::exitAfterKey(), ::testing::ExitedWithCode(255), "");
    EXPECT_EXIT(Pause::exitAfterKey(1), ::testing::ExitedWithCode(1), "");
    Pause::setLastDuty([] { std::cerr << "done"; });
    EXPECT_EXIT(Pause::exitNow(1), ::testing::ExitedWithCode(1), "^done$");
    Pause::setLastDuty(nullptr);
}

} // namespace
} // namespace Vantrel
