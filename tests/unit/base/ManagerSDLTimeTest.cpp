#include "vtl/base/ManagerSDLTime.h"

#include "tests/support/ReportCapture.h"
#include "vtl/base/ReportedObject.h"
#include "vtl/base/TickSource.h"

#include <gtest/gtest.h>

namespace Vantrel {
namespace {

std::uint32_t now = 0;

class Runway final : public ReportedObject {
public:
    std::uint32_t getID() const override { return 7; }
    const std::string& getLabel() const override { return label; }

private:
    std::string label = "runway";
};

class ManagerSDLTimeTest : public ::testing::Test {
protected:
    void SetUp() override {
        setTickSource([] { return now; });
        now = 1000;
        ManagerSDLTime::init();
    }
    void TearDown() override { setTickSource(nullptr); }
};

TEST_F(ManagerSDLTimeTest, DeltasAreTheTimeSinceTheLastStep) {
    now = 1016;
    ManagerSDLTime::stepFrameClock();
    now = 1020;
    ManagerSDLTime::stepSimClock();
    EXPECT_EQ(ManagerSDLTime::getFrameDeltaMs(), 16U);
    EXPECT_EQ(ManagerSDLTime::getSimDeltaMs(), 20U);
    now = 1050;
    ManagerSDLTime::stepFrameClock();
    ManagerSDLTime::stepSimClock();
    EXPECT_EQ(ManagerSDLTime::getFrameDeltaMs(), 34U);
    EXPECT_EQ(ManagerSDLTime::getSimDeltaMs(), 30U);
    ManagerSDLTime::init();
    EXPECT_EQ(ManagerSDLTime::getSimDeltaMs(), 0U);
}

TEST_F(ManagerSDLTimeTest, StopwatchesRunOnAndApartAndAcrossTheWrap) {
    now = 0xFFFFFFF0U;
    ManagerSDLTime::startStopwatch(Stopwatch::object);
    now += 10;
    ManagerSDLTime::startStopwatch(Stopwatch::mainLoop);
    now += 20;
    EXPECT_EQ(ManagerSDLTime::readStopwatch(Stopwatch::object), 30);
    EXPECT_EQ(ManagerSDLTime::readStopwatch(Stopwatch::mainLoop), 20);
    now += 1;
    EXPECT_EQ(ManagerSDLTime::readStopwatch(Stopwatch::object), 31);
}

// One test, because totals and loops live as long as the process.
TEST_F(ManagerSDLTimeTest, ReportsToTheLetterBeforeAndAfterTheFirstLoops) {
    Tests::ReportCapture reports;
    ManagerSDLTime::printTimeReport();
    EXPECT_TRUE(reports.contains("Report for 0 total of loops.\n"));
    EXPECT_EQ(reports.count("nan"), 20U) << reports.text(); // every share is one of nothing
    reports.clear();

    const Runway drawn;
    const Runway gone;
    ManagerSDLTime::timesOf(drawn) = {10, 3, 1, 0, 0, 6, 4, 2};
    ManagerSDLTime::timesOf(gone) = {1, 1, 1, 1, 1, 1, 1, 1};
    ManagerSDLTime::forget(gone);
    ManagerSDLTime::totals() = {1, 2, 3, 0, 5, 6, 7, 8, 9, 10, 11, 12, 13, 20, 90, 30};
    now = 2000;
    ManagerSDLTime::startRun();
    ManagerSDLTime::countLoop();
    ManagerSDLTime::countLoop();
    now = 2400;
    ManagerSDLTime::printTimeReport();
    ReportText expected;
    expected << "Time Diagnostic Information: \nObject " << static_cast<const void*>(&drawn)
             << "\t\tlabel: 'runway'\t\t woID: 7\n"
                "Render Time: 10\tRenderSelect Time: 3\n"
                "UFrcJt Time: 0\tUPosOrien Time: 0\n"
                "GLUpdate Time: 1\tOnUpdate Time: 6\n"
                "Average Time Spent in Render: 2.5\n"
                "Average Time Spent in Render Selection: 1.5\n"
                "Total: \t\t\t\t\t20\n"
                "----------------------------------------------------\n"
                "Report for 2 total of loops.\n"
                "Time Spent Preserving State (total, per loop):\t1\t0.5\n"
                "Time Spent Sorting List (total, per loop):\t2\t1\n"
                "Time Spent Processing Errors (total, per loop):\t3\t1.5\n"
                "Time Spent in Physics Engine (total, per loop):\t0\t0\n"
                "Time Spent Synchronizing Lights (total, per loop):\t5\t2.5\n"
                "Time Spent Rendering GUI (total, per loop):\t6\t3\n"
                "Time Spent Rendering Shadows (total, per loop):\t7\t3.5\n"
                "Time Spent Only in Rendering Objects (total, per loop):\t10\t5\n"
                "Time Spent Flushing (total, per loop):\t8\t4\n"
                "Time Spent Swapping (total, per loop):\t9\t4.5\n"
                "Time Spent Handling Events (total, per loop):\t10\t5\n"
                "Time Spent RenderingCamera (total, per loop):\t11\t5.5\n"
                "Time Spent RenderingAxes (total, per loop):\t12\t6\n"
                "Time Spent UpdatingCamera (total, per loop):\t13\t6.5\n"
                "Total runtime: 400\n"
                "GrandTotal of object time:\t20\t5%\t Per Loop: 10\n"
                "Time slept: \t20\n"
                "Large group breakdown: \n"
                "Time spent in Render Loop (total, per loop):\t90\t45\n"
                "Time spent in Update World (total, per loop):\t30\t15\n"
                "Time spent accounted for:\t127\t31.75%\n"
                "Time spent unaccounted for:\t273\t68.25%\n";
    EXPECT_EQ(reports.text(), expected.str());
    ManagerSDLTime::forget(drawn);
}

} // namespace
} // namespace Vantrel
