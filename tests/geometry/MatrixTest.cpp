#include "TnGraphics/geometry/Matrix.h"

#include <cstddef>
#include <gtest/gtest.h>
#include <type_traits>

namespace tn::test {
namespace {

using Matrix3x3 = Matrix<double, 3, 3>;

static_assert(std::is_aggregate_v<Matrix3x3>);
static_assert(std::is_trivially_copyable_v<Matrix3x3>);
static_assert(std::is_standard_layout_v<Matrix3x3>);
static_assert(std::is_same_v<decltype(Matrix3x3::m), double[3][3]>);
static_assert(sizeof(Matrix3x3) == 9 * sizeof(double));

constexpr Matrix3x3 kCounted = {{{1, 2, 3}, {4, 5, 6}, {7, 8, 9}}};

TEST(Matrix, StoresItsElementsRowByRow) {
    const double* elements = &kCounted.m[0][0];
    for (int i = 0; i < 9; ++i) {
        EXPECT_EQ(&kCounted.m[i / 3][i % 3], elements + i);
        EXPECT_EQ(kCounted.m[i / 3][i % 3], i + 1);
    }
}

TEST(Matrix, IsAllZeroByDefault) { EXPECT_EQ(Matrix3x3(), (Matrix3x3{{{0, 0, 0}, {0, 0, 0}, {0, 0, 0}}})); }

TEST(Matrix, EqualsOnlyInAllElements) {
    EXPECT_EQ(kCounted, Matrix3x3(kCounted));
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column) {
            Matrix3x3 other = kCounted;
            other.m[row][column] = 0;
            EXPECT_NE(kCounted, other);
        }
    }
}

} // namespace
} // namespace tn::test
