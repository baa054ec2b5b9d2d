#include "vtl/math/vtlColor4f.h"
#include "vtl/math/vtlColor4ub.h"

#include "tests/support/KeyPresses.h"
#include "tests/support/ReportCapture.h"

#include <gtest/gtest.h>
#include <limits>

namespace Vantrel {
namespace {

void expectBytes(const vtlColor4ub& color, int r, int g, int b, int a) {
    EXPECT_EQ(color.r, r);
    EXPECT_EQ(color.g, g);
    EXPECT_EQ(color.b, b);
    EXPECT_EQ(color.a, a);
}

TEST(vtlColor4ubTest, SubtractionBelowZeroGivesFullBrightness) {
    vtlColor4ub grey;
    vtlColor4ub copy = grey -= vtlColor4ub(60, 60, 60, 255);
    expectBytes(copy, 195, 195, 195, 0);
    (grey -= vtlColor4ub(0, 0, 0, 0)) -= vtlColor4ub(9, 9, 9, 9);
    expectBytes(grey, 195, 195, 195, 0);
    vtlColor4ub dark(10, 10, 10, 255);
    dark -= vtlColor4ub(60, 11, 10, 255);
    expectBytes(dark, 255, 255, 0, 0);
}

TEST(vtlColor4ubTest, FloatsAreTruncatedAndLimited) {
    constexpr float infinity = std::numeric_limits<float>::infinity();
    expectBytes(vtlColor4ub(0.0F, 0.5F, 0.999F, 1.0F), 0, 127, 254, 255);
    expectBytes(vtlColor4ub(-0.001F, 1.001F, 3e38F, -3e38F), 0, 255, 255, 0);
    expectBytes(vtlColor4ub(infinity, -infinity, std::numeric_limits<float>::quiet_NaN(), -0.0F), 255, 0, 0,
                0);
}

TEST(vtlColor4fTest, BytesAreFractionsOf255) {
    vtlColor4f color(vtlColor4ub(255, 51, 0, 128));
    EXPECT_EQ(color[0], 1.0F);
    EXPECT_EQ(color[1], 0.2F);
    EXPECT_EQ(color[2], 0.0F);
    EXPECT_EQ(color[3], 128 / 255.0F);
    color[2] = 0.75F;
    EXPECT_EQ(color.b, 0.75F);
}

TEST(vtlColor4fTest, IndexOutOfBoundsIsReportedAndGivesRed) {
    for (const int index : {-1, 4, std::numeric_limits<int>::max()}) {
        const Tests::KeyPresses keys;
        const Tests::ReportCapture reports;
        vtlColor4f color;
        EXPECT_EQ(&color[index], &color.r);
        EXPECT_EQ(keys.count(), 1);
        EXPECT_TRUE(reports.text().starts_with("ERROR:vtlColor4f.cpp:"));
        EXPECT_TRUE(reports.text().ends_with("vtlColor4f::operator[] - index out of bounds (not 0,1,2,3)... "
                                             "Fix this call... Now going to divide by zero."));
    }
}

} // namespace
} // namespace Vantrel
