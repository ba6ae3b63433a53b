#include "TnGraphics/geometry/PointTransform.h"
#include "TnGraphics/geometry/MakeMatrix.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace tn::test {
namespace {

using Make = MakeMatrix<double>;
using Matrix3x3 = Matrix<double, 3, 3>;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr std::int32_t kLargest = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t kSmallest = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kOne = 65536; // in 16.16

template <class Shape> Shape Mapped(const Shape& source, const Matrix3x3& matrix) {
    Shape destination = {};
    Transform(source, destination, matrix);
    return destination;
}

TEST(PointTransform, RoundsHalvesAwayFromZero) {
    EXPECT_EQ(Mapped(TnPoint{10, 20}, Make::Translate(0.5, 0.5)), (TnPoint{11, 21}));
    EXPECT_EQ(Mapped(TnPoint{2, -2}, Make::Translate(0.5, -0.5)), (TnPoint{3, -3}));
    EXPECT_EQ(Mapped(TnPoint{0, 0}, Make::Translate(0.49, -0.49)), (TnPoint{0, 0}));
}

TEST(PointTransform, KeepsTheFractionsOfFloatPoints) {
    EXPECT_EQ(Mapped(TnFloatPoint{10, 20}, Make::Translate(0.5, 0.5)), (TnFloatPoint{10.5, 20.5}));
}

TEST(PointTransform, TurnsARightAngleFromXToY) {
    const TnFloatPoint turned = Mapped(TnFloatPoint{1, 0}, Make::Rotate(90));
    EXPECT_NEAR(turned.x, 0, 1e-11);
    EXPECT_NE(turned.x, 0);
    EXPECT_EQ(turned.y, 1);
    EXPECT_EQ(Mapped(TnPoint{1, 0}, Make::Rotate(90)), (TnPoint{0, 1}));
}

TEST(PointTransform, IgnoresTheLastElementOfAnAffineMatrix) {
    const Matrix3x3 matrix = {{{1, 0, 0}, {0, 1, 0}, {0, 0, 2}}};
    EXPECT_EQ(Mapped(TnPoint{4, 6}, matrix), (TnPoint{4, 6}));
    EXPECT_EQ(Mapped(TnFloatPoint{4, 6}, matrix), (TnFloatPoint{4, 6}));
    EXPECT_EQ(Mapped(TnFixedPoint{{4 * kOne}, {6 * kOne}}, matrix), (TnFixedPoint{{4 * kOne}, {6 * kOne}}));
}

TEST(PointTransform, DividesByAProjectiveRow) {
    for (const Matrix3x3& matrix :
         {Matrix3x3{{{1, 0, 0}, {0, 1, 0}, {0.5, 0, 2}}}, Matrix3x3{{{1, 0, 0}, {0, 1, 0}, {0, 0.25, 2}}}}) {
        EXPECT_EQ(Mapped(TnPoint{4, 8}, matrix), (TnPoint{1, 2}));
        EXPECT_EQ(Mapped(TnFloatPoint{4, 8}, matrix), (TnFloatPoint{1, 2}));
        EXPECT_EQ(Mapped(TnFixedPoint{{4 * kOne}, {8 * kOne}}, matrix), (TnFixedPoint{{kOne}, {2 * kOne}}));
    }
}

TEST(PointTransform, LeavesThePointUndividedWhereWIsZero) {
    const Matrix3x3 matrix = {{{2, 0, 0}, {0, 3, 1}, {1, -1, 2}}};
    EXPECT_EQ(Mapped(TnPoint{3, 5}, matrix), (TnPoint{6, 16}));
    EXPECT_EQ(Mapped(TnFloatPoint{3, 5}, matrix), (TnFloatPoint{6, 16}));
    EXPECT_EQ(Mapped(TnFixedPoint{{3 * kOne}, {5 * kOne}}, matrix), (TnFixedPoint{{6 * kOne}, {16 * kOne}}));
}

TEST(PointTransform, Flips) { EXPECT_EQ(Mapped(TnPoint{3, 4}, Make::Flip(true, false)), (TnPoint{-3, 4})); }

TEST(PointTransform, Skews) {
    EXPECT_EQ(Mapped(TnPoint{0, 1}, Make::Skew(1, 0)), (TnPoint{1, 1}));
    EXPECT_EQ(Mapped(TnPoint{1, 0}, Make::Skew(0, 1)), (TnPoint{1, 1}));
}

// 2^24 + 1 is the first whole number that single precision lacks.
TEST(PointTransform, WorksInSinglePrecision) {
    EXPECT_EQ(Mapped(TnPoint{16777217, -16777219}, Make::Identity()), (TnPoint{16777216, -16777220}));
    EXPECT_EQ(Mapped(TnFloatPoint{0.1, 16777217}, Make::Identity()), (TnFloatPoint{0.1F, 16777216}));
}

// 1e8 + 1 is 1e8 in single precision, so it matters which two are added first.
TEST(PointTransform, AddsTheTranslationLast) {
    const Matrix3x3 matrix = {{{1, 1e8, -1e8}, {1e8, 1, -1e8}, {0, 0, 1}}};
    EXPECT_EQ(Mapped(TnFloatPoint{1, 1}, matrix), (TnFloatPoint{0, 0}));
    EXPECT_EQ(Mapped(TnPoint{1, 1}, matrix), (TnPoint{0, 0}));
}

// 41 times the reciprocal of 41 in single precision falls short of 1 by one unit in the last place.
TEST(PointTransform, MultipliesByTheReciprocal) {
    const Matrix3x3 matrix = {{{1, 0, 0}, {0, 1, 0}, {0, 1, 0}}};
    EXPECT_EQ(Mapped(TnFloatPoint{0, 41}, matrix), (TnFloatPoint{0, 0.99999994039535522}));
}

TEST(PointTransform, TakesProjectiveTermsThatSinglePrecisionLacksForNone) {
    const Matrix3x3 matrix = {{{1, 0, 0}, {0, 1, 0}, {1e-50, -1e-50, 2}}};
    EXPECT_EQ(Mapped(TnPoint{4, 6}, matrix), (TnPoint{4, 6}));
    EXPECT_EQ(Mapped(TnFloatPoint{4, 6}, matrix), (TnFloatPoint{4, 6}));
    const Matrix3x3 projective = {{{1, 0, 0}, {0, 1, 0}, {0, 1e-40, 2}}};
    EXPECT_EQ(Mapped(TnFloatPoint{4, 6}, projective), (TnFloatPoint{2, 3}));
}

TEST(PointTransform, TakesProjectiveTermsBelowHalfAFixedStepForNone) {
    const double step = 1.0 / 65536;
    const TnFixedPoint point = {{4 * kOne}, {6 * kOne}};
    EXPECT_EQ(Mapped(point, {{{1, 0, 0}, {0, 1, 0}, {0.49 * step, -0.49 * step, 2}}}), point);
    EXPECT_EQ(Mapped(point, {{{1, 0, 0}, {0, 1, 0}, {0, 0.5 * step, 2 - 6 * step}}}),
              (TnFixedPoint{{2 * kOne}, {3 * kOne}}));
}

TEST(PointTransform, KeepsEveryFixedPointByTheIdentity) {
    for (const std::int32_t raw : {0, 1, -1, 32767, -32769, 0x12345678, kLargest, kSmallest}) {
        const TnFixedPoint point = {{raw}, {~raw}};
        EXPECT_EQ(Mapped(point, Make::Identity()), point);
    }
}

TEST(PointTransform, TruncatesEachFixedProductByItself) {
    const Matrix3x3 halves = {{{0.5, 0.5, 0}, {-0.5, -0.5, 0}, {0, 0, 1}}};
    EXPECT_EQ(Mapped(TnFixedPoint{{3}, {3}}, halves), (TnFixedPoint{{2}, {-2}}));
    EXPECT_EQ(Mapped(TnFixedPoint{{-3}, {-1}}, halves), (TnFixedPoint{{-1}, {1}}));
}

TEST(PointTransform, RoundsFixedElementsHalvesAwayFromZero) {
    const double half = 0.5 / 65536;
    EXPECT_EQ(Mapped(TnFixedPoint{}, Make::Translate(half, -half)), (TnFixedPoint{{1}, {-1}}));
    EXPECT_EQ(Mapped(TnFixedPoint{}, Make::Translate(0.99 * half, -0.99 * half)), (TnFixedPoint{{0}, {0}}));
}

// The reciprocal of 1.5 is 43690 whole 65536ths and two thirds of one.
TEST(PointTransform, TruncatesTheFixedReciprocal) {
    const Matrix3x3 matrix = {{{1, 0, 0}, {0, 1, 0}, {1, 0, 0}}};
    EXPECT_EQ(Mapped(TnFixedPoint{{kOne + kOne / 2}, {-kOne - kOne / 2}}, matrix), (TnFixedPoint{{65535}, {-65535}}));
}

TEST(PointTransform, WrapsFixedPointsThatLeave32Bits) {
    EXPECT_EQ(Mapped(TnFixedPoint{{kLargest}, {kSmallest}}, Make::Scale(2, 2)), (TnFixedPoint{{-2}, {0}}));
    const double step = 1.0 / 65536;
    EXPECT_EQ(Mapped(TnFixedPoint{{kLargest}, {kSmallest}}, Make::Translate(step, -step)),
              (TnFixedPoint{{kSmallest}, {kLargest}}));
}

// The reciprocals of 1 and 2 parts in 65536 are 2^32 and 2^31.
TEST(PointTransform, WrapsTheFixedReciprocal) {
    const Matrix3x3 matrix = {{{1, 0, 0}, {0, 1, 0}, {1, 0, 0}}};
    EXPECT_EQ(Mapped(TnFixedPoint{{1}, {kOne}}, matrix), (TnFixedPoint{{0}, {0}}));
    EXPECT_EQ(Mapped(TnFixedPoint{{2}, {1}}, matrix), (TnFixedPoint{{-65536}, {-32768}}));
}

TEST(PointTransform, GivesSomeIntegerWhereTheResultIsNone) {
    for (const double odd : {kNaN, kInfinity, -kInfinity, 1e300, -1e300, 1e30}) {
        EXPECT_EQ(Mapped(TnPoint{1, 1}, Make::Scale(odd, odd)), (TnPoint{0, 0})) << odd;
        EXPECT_EQ(Mapped(TnFixedPoint{{1}, {1}}, Make::Scale(odd, odd)), (TnFixedPoint{{0}, {0}})) << odd;
    }
    EXPECT_EQ(Mapped(TnPoint{1, -1}, Make::Scale(4294967296.0 * 3, 2147483648.0)), (TnPoint{0, kSmallest}));
}

TEST(PointTransform, LetsFloatPointsBeInfinite) {
    EXPECT_EQ(Mapped(TnFloatPoint{1, -1}, Make::Scale(1e300, kInfinity)), (TnFloatPoint{kInfinity, -kInfinity}));
}

// 1e39 is infinite in single precision, and 0 times infinity is no number.
TEST(PointTransform, LosesCoordinatesBeyondSinglePrecision) {
    const TnFloatPoint mapped = Mapped(TnFloatPoint{1e39, 0}, Make::Translate(3, 4));
    EXPECT_EQ(mapped.x, kInfinity);
    EXPECT_TRUE(std::isnan(mapped.y));
}

TEST(PointTransform, TakesANaNForAProjectiveTerm) {
    const Matrix3x3 matrix = {{{1, 0, 0}, {0, 1, 0}, {kNaN, 0, 1}}};
    EXPECT_NE(Mapped(TnFloatPoint{1, 2}, matrix), (TnFloatPoint{1, 2}));
    EXPECT_EQ(Mapped(TnPoint{1, 2}, matrix), (TnPoint{0, 0}));
    EXPECT_EQ(Mapped(TnFixedPoint{{1}, {2}}, matrix), (TnFixedPoint{{1}, {2}}));
}

TEST(PointTransform, MapsTheCornersOfABoxInTheirOrder) {
    const Matrix3x3 matrix = {{{0, -1, 0.5}, {2, 0, 0}, {0, 0, 1}}};
    EXPECT_EQ(Mapped(TnBox{{{1, 2}, {3, 4}, {5, 6}, {7, 8}}}, matrix), (TnBox{{{-2, 2}, {-4, 6}, {-6, 10}, {-8, 14}}}));
    EXPECT_EQ(Mapped(TnFloatBox{{{1, 2}, {3, 4}, {5, 6}, {7, 8}}}, matrix),
              (TnFloatBox{{{-1.5, 2}, {-3.5, 6}, {-5.5, 10}, {-7.5, 14}}}));
    EXPECT_EQ(Mapped(TnFixedBox{{{{1}, {2}}, {{3}, {4}}, {{5}, {6}}, {{7}, {8}}}}, matrix),
              (TnFixedBox{{{{32766}, {2}}, {{32764}, {6}}, {{32762}, {10}}, {{32760}, {14}}}}));
}

} // namespace
} // namespace tn::test
