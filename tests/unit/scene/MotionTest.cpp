#include "vtl/base/ManagerSDLTime.h"
#include "vtl/base/TickSource.h"
#include "vtl/math/VectorChecks.h"
#include "vtl/scene/motion/VantrelMotionDataCameraParabolicMotion1PhaseChangeOrientationViaSLERP.h"
#include "vtl/scene/motion/VantrelMotionDataCameraParabolicMotion3PhaseSLERPnCIRCLE.h"
#include "vtl/scene/motion/WOOperatorMotionSpecifierTimeConstrained.h"

#include "tests/support/ReportCapture.h"
#include "tests/support/SceneModels.h"
#include "tests/unit/math/MathTesting.h"

#include <cmath>
#include <limits>
#include <numbers>

namespace Vantrel {
namespace {

using OnePhase = VantrelMotionDataCameraParabolicMotion1PhaseChangeOrientationViaSLERP;
using ThreePhase = VantrelMotionDataCameraParabolicMotion3PhaseSLERPnCIRCLE;
using Tests::columnOf;
using Tests::expectNear;
using Tests::objectAt;

constexpr float nan = std::numeric_limits<float>::quiet_NaN();
constexpr double infinite = std::numeric_limits<double>::infinity();

struct Move {
    const char* name;
    Vector start;
    Vector up;
    Vector target;
    Vector destination;

    ThreePhase data(const VantrelQuaternion& rotation = {}) const {
        return {start, rotation, up, target, destination};
    }
};

VectorD wide(const Vector& v) {
    return {v.x, v.y, v.z};
}

Vector narrow(const VectorD& v) {
    return {static_cast<float>(v.x), static_cast<float>(v.y), static_cast<float>(v.z)};
}

/** The half circle in terms of its two diameters, the round in terms of height and two radii. */
VectorD placeOf(const Move& move, double t) {
    const VectorD up = wide(move.up).normalizeMe();
    const VectorD way = wide(move.destination) - wide(move.start);
    if (t < 0.2) {
        return wide(move.start);
    }
    if (t <= 0.6) {
        const double angle = std::numbers::pi * (t - 0.2) / 0.4;
        const VectorD ahead = way.normalizeMe();
        const VectorD rise = (up - ahead * up.dotProduct(ahead)).normalizeMe();
        return wide(move.start) + way * (0.5 - 0.5 * std::cos(angle)) +
               rise * (0.5 * way.magnitude() * std::sin(angle));
    }
    const double angle = 2 * std::numbers::pi * (t - 0.6) / 0.4;
    const VectorD offset = wide(move.destination) - wide(move.target);
    const VectorD height = up * up.dotProduct(offset);
    const VectorD radius = offset - height;
    return wide(move.target) + height + radius * std::cos(angle) + up.crossProduct(radius) * std::sin(angle);
}

/** The angle, in radians, of the turn from one to the other. */
double angleBetween(const Mat4& a, const Mat4& b) {
    double chord = 0;
    for (std::size_t i = 0; i < 3; ++i) {
        const double side = columnOf(a, i).distanceFrom(columnOf(b, i));
        chord += side * side;
    }
    return 2 * std::asin(std::min(1.0, std::sqrt(chord / 8)));
}

struct Pose {
    Vector place;
    Mat4 orientation;
};

/** Which has numbers for a place and is a rotation. */
Pose poseAt(const VantrelMotionData& path, double t) {
    Pose pose;
    path.getPositionAndOrientation(t, pose.place, pose.orientation);
    EXPECT_TRUE(isFinite(pose.place));
    Tests::expectRotation(pose.orientation);
    return pose;
}

class MotionDataTest : public ::testing::Test {
protected:
    const Move level{"level", {100, 0, 50}, {0, 0, 2}, {150, 80, 0}, {300, 40, 50}};
    const Move rising{"rising", {0, 0, 0}, {0, 0, 1}, {60, -90, 20}, {100, 30, 90}};
    const Move falling{"falling", {-10, 5, 200}, {0, 0, 1}, {300, 300, 10}, {250, -60, 40}};
    const Move leaning{"leaning", {1, 2, 3}, {0.3F, -0.2F, 0.9F}, {-40, 50, -10}, {60, 80, -20}};
};

TEST_F(MotionDataTest, TurnsOnTheSpotFliesAHalfCircleAndGoesRoundTheTarget) {
    for (const Move& move : {level, rising, falling, leaning}) {
        SCOPED_TRACE(move.name);
        const ThreePhase data = move.data();
        for (const double t : {0.0, 0.1, 0.1999, 0.2, 0.2001, 0.3, 0.4, 0.47, 0.5999, 0.6, 0.6001, 0.7, 0.8,
                               0.85, 0.9999, 1.0}) {
            SCOPED_TRACE(t);
            const auto [place, orientation] = poseAt(data, t);
            const VectorD expected = placeOf(move, t);
            expectNear(place, narrow(expected), 2e-4F);
            if (t >= 0.2) {
                const VectorD look = (wide(move.target) - expected).normalizeMe();
                const VectorD left = wide(move.up).crossProduct(look).normalizeMe();
                expectNear(columnOf(orientation, 0), narrow(look), 1e-5F);
                expectNear(columnOf(orientation, 1), narrow(left), 2e-5F);
            }
        }
    }
}

TEST_F(MotionDataTest, HasPhasesOfAnyLength) {
    ThreePhase data = level.data();
    data.setPhaseOneEnd(0.25F);
    data.setPhaseTwoEnd(0.75F);
    expectNear(data.getPosition(0.5), Vector(200, 20, 50 + std::hypot(100.0F, 20.0F)), 1e-4F);
    data.setPhaseTwoEnd(0.25F);
    expectNear(data.getPosition(0.2499), level.start, 1e-4F);
    expectNear(data.getPosition(0.25), level.destination, 1e-4F);
    data.setPhaseTwoEnd(1.5F);
    expectNear(data.getPosition(1.0), narrow(placeOf(level, 0.2 + 0.4 * 0.6)), 1e-4F);
}

TEST_F(MotionDataTest, TurnsToTheTargetAtAnEvenRate) {
    const Mat4 before = Tests::rotationAbout(Vector(1, 2, -1).normalizeMe(), 2.0F);
    const ThreePhase data = rising.data(VantrelQuaternion(before));
    const Mat4 atTarget = poseAt(data, 0.2).orientation;
    const double whole = angleBetween(before, atTarget);
    for (const double t : {0.0, 0.05, 0.1, 0.17}) {
        const Mat4 turned = poseAt(data, t).orientation;
        EXPECT_NEAR(angleBetween(before, turned), whole * t / 0.2, 1e-3) << t;
        EXPECT_NEAR(angleBetween(turned, atTarget), whole * (1 - t / 0.2), 1e-3) << t;
    }
}

TEST_F(MotionDataTest, StaysAnUnbrokenPathWhereDirectionsAreMissing) {
    const Vector o(10, 20, 30);
    const Vector z(0, 0, 1);
    struct Row {
        Move move;
        // Over the target itself a look along `up` turns round; such rows keep away from that moment.
        double from = 0.0;
        double to = 1.0;
    };
    for (const Row& row :
         {Row{level}, Row{falling}, Row{leaning}, Row{{"nowhere to go", o, z, {40, 20, 0}, o}},
          Row{{"straight up", o, z, {40, 20, 0}, o + z * 80}},
          Row{{"straight down", o, z, {40, 20, 0}, o + z * -25}},
          Row{{"straight up to the target", o, z, o + z * 80, o + z * 80}},
          Row{{"straight up away from the target", o, z, o, o + z * 80}},
          Row{{"target above the start", o, z, o + z * 50, {90, 20, 30}}},
          Row{{"target below the start, falling", o, z, o + z * -50, {90, 20, 0}}},
          Row{{"target below the start, climbing", o, z, o + z * -50, {90, 20, 60}}, 0.0, 0.22},
          Row{{"target below the destination", o, z, {90, 20, -30}, {90, 20, 30}}},
          Row{{"target below the destination, climbing", o, z, {90, 20, -30}, {90, 20, 60}}},
          Row{{"target above the destination, falling", o, z, {90, 20, 80}, {90, 20, 0}}, 0.58},
          Row{{"target at the start", o, z, o, {90, 20, 0}}},
          Row{{"target at the destination", o, z, {90, 20, 60}, {90, 20, 60}}},
          Row{{"one point", o, z, o, o}}, Row{{"no up", o, Vector(), {40, 0, 0}, {90, 20, 30}}},
          Row{{"up that is no number", o, {nan, 0, 0}, {40, 0, 0}, {90, 20, 30}}}}) {
        SCOPED_TRACE(row.move.name);
        const ThreePhase data = row.move.data();
        Pose before = poseAt(data, row.from);
        constexpr double step = 1.0 / 8000;
        for (double t = row.from + step; t <= row.to && !HasFailure(); t += step) {
            SCOPED_TRACE(t);
            const Pose now = poseAt(data, t);
            expectNear(now.place, before.place, 0.8F);
            EXPECT_LT(angleBetween(now.orientation, before.orientation), 0.02);
            before = now;
        }
    }
}

TEST_F(MotionDataTest, JoinsItsPhasesFarOutRightAboveTheTarget) {
    Tests::RandomInput random;
    for (int i = 0; i < 500; ++i) {
        const Vector above(random.real(-3000, 3000), random.real(-500, 500), random.real(3, 40));
        const Vector target = above - Vector(0, 0, random.real(1.5F, 12));
        const Vector away = above + Vector(random.real(50, 900), random.real(-400, 400), random.real(-3, 60));
        const ThreePhase coming = Move{"coming", away, unitZ, target, above}.data();
        const ThreePhase leaving = Move{"leaving", above, unitZ, target, away}.data();
        EXPECT_LT(angleBetween(poseAt(coming, 0.6).orientation, poseAt(coming, 0.6 + 1e-9).orientation),
                  0.01);
        EXPECT_LT(angleBetween(poseAt(leaving, 0.2).orientation, poseAt(leaving, 0.2 - 1e-9).orientation),
                  0.01);
    }
}

TEST_F(MotionDataTest, IsARotationAtAnyPointOfAnyMove) {
    Tests::RandomInput random;
    for (int i = 0; i < 2000; ++i) {
        const auto point = [&] {
            const Vector v = Tests::randomVector(random, 100);
            return random.index(0, 1) == 0 ? v : Vector(0, 0, v.z); // often in line with up
        };
        const Move move{"random", point(), random.index(0, 1) == 0 ? unitZ : point(), point(), point()};
        ThreePhase data = move.data({random.real(-1, 1), random.real(-1, 1), random.real(0, 1), 0});
        data.setPhaseOneEnd(random.real(-0.5F, 1.5F));
        data.setPhaseTwoEnd(random.real(-0.5F, 1.5F));
        poseAt(data, random.real(-0.1F, 1.1F));
    }
}

TEST_F(MotionDataTest, TakesNoPhaseEndsAndRotationsThatAreNone) {
    ThreePhase data = level.data({nan, 0, 0, 0});
    for (const float end : {nan, std::numeric_limits<float>::infinity()}) {
        data.setPhaseOneEnd(end);
        data.setPhaseTwoEnd(end);
    }
    expectNear(data.getPosition(0.4), narrow(placeOf(level, 0.4)), 1e-4F);
    const OnePhase turn({0, 0, 0, 0}, {0, 0, 0, 2}, Vector(1, 2, 3));
    for (const double t : {0.0, 0.5, 1.0, -infinite, std::numeric_limits<double>::quiet_NaN()}) {
        poseAt(data, t);
        poseAt(turn, t);
    }
    EXPECT_NEAR(angleBetween(poseAt(turn, 0.5).orientation, Mat4()), Tests::pi / 2, 1e-5) << "of a half turn";
}

/** A path from (0, 0, 0) to (1, 0, 0), which tells when it dies. */
class StraightPath : public VantrelMotionData {
public:
    explicit StraightPath(int& deathCount) : deaths(&deathCount) {}
    ~StraightPath() override { ++*deaths; }
    Vector getPosition(double t) const override { return {static_cast<float>(t), 0, 0}; }
    void getOrientation(double t, Mat4& out) const override {
        out = Tests::rotationAbout(unitZ, static_cast<float>(t));
    }

private:
    int* deaths;
};

class MotionOperatorTest : public ::testing::Test {
protected:
    MotionOperatorTest() {
        now = 1000;
        setTickSource([] { return now; });
        ManagerSDLTime::init();
    }
    ~MotionOperatorTest() override { setTickSource(nullptr); }

    void updateAfter(std::uint32_t milliseconds) {
        now += milliseconds;
        ManagerSDLTime::stepSimClock();
        motion->onUpdate();
    }
    void start(std::uint32_t durationMs = 5000) {
        motion->setMotionData(std::make_unique<StraightPath>(deaths));
        motion->setDurationMs(durationMs);
        motion->setTargetWO(target.get());
        motion->setNormalizedTime(0);
        motion->startMotion();
    }
    float place() const { return target->getPosition().x; }

    inline static std::uint32_t now = 0;
    Tests::ReportCapture reports;
    int deaths = 0;
    std::unique_ptr<WO> target = objectAt(Vector(9, 9, 9));
    std::unique_ptr<WOOperatorMotionSpecifierTimeConstrained> motion =
        WOOperatorMotionSpecifierTimeConstrained::New(nullptr, nullptr, 5000);
};

TEST_F(MotionOperatorTest, MovesItsTargetOnlyWhileItRuns) {
    start();
    motion->stopMotion();
    updateAfter(100);
    EXPECT_EQ(place(), 9);
    EXPECT_TRUE(motion->toggleMotion());
    updateAfter(1000);
    EXPECT_DOUBLE_EQ(motion->getNormalizedTime(), 0.2) << "the pause doesn't count";
    EXPECT_FLOAT_EQ(place(), 0.2F);
    expectNear(target->getDisplayMatrix(), Tests::rotationAbout(unitZ, 0.2F), 1e-6F);
    EXPECT_FALSE(motion->setMotionRunning(false));
    updateAfter(1000);
    EXPECT_FLOAT_EQ(place(), 0.2F);
    EXPECT_TRUE(motion->setMotionRunning(true));
    updateAfter(4000);
    EXPECT_FLOAT_EQ(place(), 1.0F) << "exactly at its end a move is still one";
    EXPECT_TRUE(motion->isMotionRunning());
}

TEST_F(MotionOperatorTest, KeepsThePoseOfTheFrameBeforeItsEnd) {
    start();
    motion->setMotionPlaybackSpeed(2.0);
    updateAfter(2499);
    const float before = place();
    EXPECT_TRUE(motion->isMotionRunning());
    updateAfter(2);
    EXPECT_EQ(motion->getNormalizedTime(), 1);
    EXPECT_FALSE(motion->isMotionRunning());
    EXPECT_EQ(place(), before);
    motion->startMotion();
    updateAfter(0);
    EXPECT_FALSE(motion->isMotionRunning()) << "its clock still stands behind the end";
    start();
    updateAfter(250);
    EXPECT_FLOAT_EQ(place(), 0.1F);
    EXPECT_EQ(deaths, 1) << "the path before has died";
}

TEST_F(MotionOperatorTest, RunsBackToItsStart) {
    start();
    updateAfter(2000);
    motion->reverseMotionPlayback();
    updateAfter(500);
    EXPECT_FLOAT_EQ(place(), 0.3F);
    updateAfter(1501);
    EXPECT_EQ(motion->getNormalizedTime(), 0);
    EXPECT_FALSE(motion->isMotionRunning());
    EXPECT_FLOAT_EQ(place(), 0.3F);
}

TEST_F(MotionOperatorTest, WarnsOfATooSlowSpeed) {
    motion->setMotionPlaybackSpeed(0.000005);
    EXPECT_EQ(reports.text(),
              "WARNING: void Vantrel::WOOperatorMotionSpecifier::setMotionPlaybackSpeed( double "
              "timeMultiplier )\n"
              "   user tried to set timeMultiplier to 5e-06 which is too close to zero. The\n"
              "   timeMultiplier MUST be non-zero. Use WOOperatorMotionSpecifier::stopMotion or "
              "toggleMotion to\n"
              "   pause the animation. Now returning from setter WITHOUT modifying any state.\n\n");
    EXPECT_EQ(motion->getMotionPlaybackSpeed(), 1);
    reports.clear();
    for (const double speed : {-0.00002, 0.00001}) {
        motion->setMotionPlaybackSpeed(speed);
        EXPECT_EQ(motion->getMotionPlaybackSpeed(), speed);
    }
    for (const double nothing : {infinite, -infinite, std::numeric_limits<double>::quiet_NaN()}) {
        EXPECT_EQ(reports.text(), "");
        motion->setMotionPlaybackSpeed(nothing);
        EXPECT_EQ(motion->getMotionPlaybackSpeed(), 0.00001);
        motion->setNormalizedTime(0.5);
        motion->setNormalizedTime(nothing);
        EXPECT_EQ(motion->getNormalizedTime(), 0.5);
    }
    EXPECT_TRUE(
        reports.contains("   user tried to set timeMultiplier to nan which is too close to zero. The\n"));
}

TEST_F(MotionOperatorTest, StopsWithoutTargetOrPath) {
    start();
    updateAfter(500);
    target.reset();
    EXPECT_EQ(motion->getTargetWO(), nullptr);
    updateAfter(500);
    EXPECT_FALSE(motion->isMotionRunning());
    target = objectAt(Vector(9, 9, 9));
    start();
    motion->setMotionData(nullptr);
    updateAfter(500);
    EXPECT_FALSE(motion->isMotionRunning());
    EXPECT_EQ(place(), 9);
}

TEST_F(MotionOperatorTest, EndsAtOnceWithoutDuration) {
    for (const double speed : {1.0, -1.0}) {
        for (const std::uint32_t step : {0U, 16U}) {
            start(0);
            motion->setMotionPlaybackSpeed(speed);
            updateAfter(step);
            EXPECT_EQ(motion->getNormalizedTime(), speed > 0 ? 1 : 0);
            EXPECT_FALSE(motion->isMotionRunning());
        }
    }
    EXPECT_EQ(place(), 9);
}

TEST_F(MotionOperatorTest, NeverWritesWhatIsNoPose) {
    start();
    motion->setMotionData(
        std::make_unique<OnePhase>(VantrelQuaternion(), VantrelQuaternion(), Vector(0, nan, 0)));
    updateAfter(100);
    EXPECT_EQ(place(), 9);
    start();
    motion->setMotionPlaybackSpeed(std::numeric_limits<double>::max());
    updateAfter(100);
    motion->reverseMotionPlayback();
    motion->startMotion();
    updateAfter(100);
    EXPECT_TRUE(std::isfinite(motion->getNormalizedTime()));
    EXPECT_EQ(place(), 9);
}

} // namespace
} // namespace Vantrel
