#include "vtl/math/Mat4.h"

#include "tests/unit/math/MathTesting.h"

#include <algorithm>
#include <array>

namespace Vantrel {
namespace {

using Tests::expectNear;

Mat4 permutation(const std::array<std::size_t, 4>& rowOfColumn) {
    constexpr float zeros[16] = {};
    Mat4 m(zeros);
    for (std::size_t column = 0; column < 4; ++column) {
        m[4 * column + rowOfColumn[column]] = 1;
    }
    return m;
}

TEST(Mat4Test, IsSixteenFloatsInARow) {
    const Mat4 fromNull(nullptr);
    Mat4 m;
    m[13] = 7;
    m.tolerance = 1;
    expectNear(fromNull, Mat4(), 0);
    EXPECT_EQ((&m[0])[13], 7);
    EXPECT_EQ(Mat4(&m[0])[13], 7);
    EXPECT_EQ(Mat4(m).tolerance, 0.001F);
    m = fromNull;
    EXPECT_EQ(m.tolerance, 1);
    EXPECT_EQ(m[13], 0);
}

TEST(Mat4Test, ProductAppliesTheRightSideFirst) {
    Mat4 shift;
    shift[12] = 5;
    const Mat4 quarterTurn = Tests::rotationAbout(unitZ, Tests::pi / 2);
    expectNear(Tests::columnOf(shift * quarterTurn, 3), Vector(5, 0, 0), 1e-6F);
    expectNear(Tests::columnOf(quarterTurn * shift, 3), Vector(0, 5, 0), 1e-6F);
    shift = shift * shift;
    EXPECT_EQ(shift[12], 10);
}

TEST(Mat4Test, InverseOfAPermutationIsItsTranspose) {
    std::array<std::size_t, 4> order{0, 1, 2, 3};
    do {
        const Mat4 m = permutation(order);
        Mat4 inverse;
        Mat4 transposed = m;
        transposed.transpose(transposed);
        EXPECT_TRUE(Mat4::invert(m, inverse));
        expectNear(inverse, transposed, 0);
    } while (std::next_permutation(order.begin(), order.end()));
}

TEST(Mat4Test, MatrixTimesInverseIsTheIdentity) {
    Tests::RandomInput random;
    for (int i = 0; i < 1000; ++i) {
        Mat4 m;
        for (std::size_t e = 0; e < 16; ++e) {
            // A dominant diagonal keeps the matrix far from singular; the permutation moves it about.
            m[e] = random.real(-1, 1) + (e % 5 == 0 ? 5.0F : 0.0F);
        }
        m = permutation({2, 0, 3, 1}) * m;
        Mat4 inverse = m;
        ASSERT_TRUE(Mat4::invert(inverse, inverse));
        expectNear(m * inverse, Mat4(), 1e-5F);
        expectNear(inverse * m, Mat4(), 1e-5F);
    }
}

TEST(Mat4Test, SingularMatrixHasNoInverse) {
    Mat4 noDepth;
    noDepth[10] = 0;
    Mat4 twins = Tests::rotationAbout(unitX, 1);
    std::copy_n(&twins[4], 4, &twins[8]);
    for (const Mat4& m : {noDepth, twins}) {
        Mat4 untouched;
        EXPECT_FALSE(Mat4::invert(m, untouched));
        expectNear(untouched, Mat4(), 0);
    }
}

} // namespace
} // namespace Vantrel
