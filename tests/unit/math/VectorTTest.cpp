#include "vtl/math/VectorT.h"

#include "vtl/math/Mat4.h"
#include "vtl/math/ScalarComparison.h"

#include "tests/support/RandomInput.h"

#include <bit>
#include <gtest/gtest.h>
#include <limits>
#include <sstream>

// GCC 12 suspects its own header when the sanitizers are on.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
#include <regex>
#pragma GCC diagnostic pop

namespace Vantrel {
namespace {

static_assert(unitX.crossProduct(unitY) == unitZ && unitY.crossProduct(unitZ) == unitX);
static_assert(!std::is_polymorphic_v<Vector> && std::is_trivially_destructible_v<Vector>);

TEST(VectorTTest, EqualityTakesTheToleranceOfTheLeftSide) {
    Vector coarse;
    coarse.tolerance = 1;
    const Vector near(0.0009F, 0, 0);
    const Vector atTolerance(0.001F, 0, 0);
    const Vector far(0, 0, -0.5F);
    EXPECT_TRUE(Vector() == near);
    EXPECT_FALSE(Vector() == atTolerance);
    EXPECT_TRUE(coarse == far);
    EXPECT_FALSE(far == coarse);
    EXPECT_FALSE(coarse == Vector(0, std::numeric_limits<float>::quiet_NaN(), 0));
}

TEST(VectorTTest, ToleranceStaysWithItsVector) {
    Vector coarse(1, 2, 3);
    coarse.tolerance = 1;
    EXPECT_EQ(Vector(coarse).tolerance, 0.001F);
    coarse = Vector(4, 5, 6);
    EXPECT_EQ(coarse.tolerance, 1);
    EXPECT_EQ(coarse.y, 5);
    EXPECT_EQ(VectorD().tolerance, 0.001);
    EXPECT_EQ(Vector(nullptr), Vector());
}

TEST(VectorTTest, CompoundAdditionReturnsACopy) {
    Vector sum(1, 2, 3);
    (sum += Vector(1, 1, 1)) += Vector(50, 50, 50);
    EXPECT_EQ(sum, Vector(2, 3, 4));
}

TEST(VectorTTest, TheTwoWaysToNormalizeDifferOnlyForShortVectors) {
    for (const Vector& v : {Vector(0.000001F, 0, 0), Vector(3, 0, -4), Vector(0, 0.000011F, 0), Vector()}) {
        const bool isShort = v.magnitude() < 0.00001F;
        Vector inPlace = v;
        inPlace.normalize();
        EXPECT_FLOAT_EQ(inPlace.magnitude(), isShort ? v.magnitude() : 1);
        EXPECT_FLOAT_EQ(v.normalizeMe().magnitude(), isShort ? 0 : 1);
    }
    EXPECT_EQ(Vector(3, 0, -4).normalizeMe(), Vector(0.6F, 0, -0.8F));
    EXPECT_EQ(Vector(1, 1, 1).distanceFrom(Vector(1, 4, 5)), 5);
    EXPECT_NEAR(VectorD(6.4e6, 1, 0).magnitude(), 6400000.000000078, 1e-8);
}

TEST(VectorTTest, MatrixTurnsWithoutTranslating) {
    Mat4 m;
    for (std::size_t i = 0; i < 16; ++i) {
        m[i] = static_cast<float>(i);
    }
    EXPECT_EQ(Vector(1, 10, 100) * m, Vector(840, 951, 1062));
    EXPECT_EQ(m * Vector(1, 10, 100), Vector(840, 951, 1062));
    EXPECT_EQ(VectorD(1, 10, 100) * m, VectorD(840, 951, 1062));
}

TEST(VectorTTest, PrintsFixedDecimals) {
    EXPECT_EQ(Vector(1.5F, -2, 1e6F).toString(), "(1.500, -2.000, 1000000.000)");
    EXPECT_EQ(VectorD(0.125, -0.0, 2).toString(1), "(0.1, -0.0, 2.0)");
}

/** What a regular expression and a text stream make of `text`. */
template <class T>
std::vector<T> referenceFromText(const std::string& text) {
    static const std::regex number("[-+]?[0-9]*\\.?[0-9]+([eE][-+]?[0-9]+)?");
    std::vector<std::string> found{"0", "0", "0"};
    std::size_t count = 0;
    for (std::sregex_iterator match(text.begin(), text.end(), number), end; match != end && count < 3;
         ++match) {
        found[count++] = match->str();
    }
    std::istringstream in(found[0] + " " + found[1] + " " + found[2]);
    std::vector<T> values(3);
    in >> values[0] >> values[1] >> values[2];
    return values;
}

/** Bit by bit, so that the sign of a zero counts. */
template <class T, class Bits>
void expectReference(const std::string& text) {
    const VectorT<T> actual(text);
    const std::vector<T> expected = referenceFromText<T>(text);
    EXPECT_EQ(std::bit_cast<Bits>(actual.x), std::bit_cast<Bits>(expected[0])) << text;
    EXPECT_EQ(std::bit_cast<Bits>(actual.y), std::bit_cast<Bits>(expected[1])) << text;
    EXPECT_EQ(std::bit_cast<Bits>(actual.z), std::bit_cast<Bits>(expected[2])) << text;
}

TEST(VectorTTest, ReadsTextAsTheExpressionTells) {
    Tests::RandomInput random;
    constexpr std::string_view characters = "+-.eE0123456789 ,(";
    for (int i = 0; i < 10'000; ++i) {
        std::string text;
        for (std::size_t length = random.index(0, 24); length > 0; --length) {
            text += characters[random.index(0, characters.size() - 1)];
        }
        expectReference<float, std::uint32_t>(text);
        expectReference<double, std::uint64_t>(text);
    }
}

TEST(VectorTTest, ReadsNumbersOutOfRangeAsAStreamDoes) {
    const std::string zeros(330, '0');
    for (const std::string& text : {
             std::string("-1e39 2 3"),
             std::string("1 -1e99999999999999999999 3"),
             std::string("1e-46 -1e-46 1e-40"),
             std::string("1e-99999999999999999999 2 0e99999999999999999999"),
             std::string("-0 +0 -.0e5"),
             std::string("1").append(zeros).append("e-330 2"),
             std::string("1").append(zeros).append("e-700 2"),
             std::string("1").append(zeros).append("e-1 2"),
             std::string("+.").append(zeros).append("1e331 2"),
             std::string("-.").append(zeros).append("1e+1 2"),
             std::string("-0.").append(zeros).append("1 2"),
         }) {
        expectReference<float, std::uint32_t>(text);
        expectReference<double, std::uint64_t>(text);
    }
}

TEST(VectorTTest, ReadsWhateverTextToTheEnd) {
    constexpr std::size_t longLength = 1'000'000;
    std::string nearlyNumbers;
    for (std::size_t i = 0; i < longLength; ++i) {
        nearlyNumbers += "+-.e"[i % 4];
    }
    EXPECT_EQ(Vector("(1.5, -2, 3e2)"), Vector(1.5F, -2, 300));
    EXPECT_EQ(Vector("1 2 3 4"), Vector(1, 2, 3));
    EXPECT_EQ(Vector("no digits"), Vector());
    EXPECT_EQ(Vector(std::string_view("7\0"
                                      "8\n\xff"
                                      "9",
                                      6)),
              Vector(7, 8, 9));
    EXPECT_EQ(Vector(nearlyNumbers.append("4")), Vector(4, 0, 0));
    EXPECT_EQ(Vector(std::string(longLength, '9')).x, std::numeric_limits<float>::max());
    EXPECT_EQ(Vector(std::string("1e").append(longLength, '0').append("2 5")), Vector(100, 5, 0));
    EXPECT_EQ(Vector(std::string(".").append(longLength, '0').append("1e1000001 5")), Vector(1, 5, 0));
}

TEST(ScalarComparisonTest, OnlyOneBoundIsIncluded) {
    EXPECT_TRUE(isNearlyEqual(1.0F, 1.5F, 0.5F));
    EXPECT_FALSE(isNearlyEqual(1.5, 0.999, 0.5));
    EXPECT_TRUE(isNearZero(-0.000099F));
    EXPECT_FALSE(isNearZero(0.0001));
    EXPECT_FALSE(isNearZero(-0.0001F));
}

} // namespace
} // namespace Vantrel
