#include "TnGraphics/geometry/MakeMatrix.h"

#include <cmath>
#include <gtest/gtest.h>

namespace tn::test {
namespace {

using Make = MakeMatrix<double>;
using Matrix3x3 = Matrix<double, 3, 3>;

// A few units in the last place of numbers up to 1: runtimes differ that much in sines and cosines. A factor of
// pi / 180 in full precision would make a hundred times the difference at one degree.
constexpr double kTolerance = 5e-16;

// Of angles that become radians by the interface's short factor.
constexpr double kSine20 = 0.34202014332673442;
constexpr double kCosine20 = 0.93969262078552050;
constexpr double kSine30 = 0.50000000000147322;
constexpr double kCosine30 = 0.86602540378358808;
constexpr double kCosine90 = -5.1033807686783e-12;

void ExpectNear(const Matrix3x3& matrix, const Matrix3x3& expected) {
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column) {
            EXPECT_NEAR(matrix.m[row][column], expected.m[row][column], kTolerance) << row << ", " << column;
        }
    }
}

TEST(MakeMatrix, MakesTheIdentity) { EXPECT_EQ(Make::Identity(), (Matrix3x3{{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}})); }

TEST(MakeMatrix, PutsATranslationIntoTheThirdColumn) {
    EXPECT_EQ(Make::Translate(0.25, -7), (Matrix3x3{{{1, 0, 0.25}, {0, 1, -7}, {0, 0, 1}}}));
}

TEST(MakeMatrix, FlipsTheChosenAxesAboutTheOrigin) {
    EXPECT_EQ(Make::Flip(false, false), Make::Identity());
    EXPECT_EQ(Make::Flip(true, false), (Matrix3x3{{{-1, 0, 0}, {0, 1, 0}, {0, 0, 1}}}));
    EXPECT_EQ(Make::Flip(false, true), (Matrix3x3{{{1, 0, 0}, {0, -1, 0}, {0, 0, 1}}}));
    EXPECT_EQ(Make::Flip(true, true), (Matrix3x3{{{-1, 0, 0}, {0, -1, 0}, {0, 0, 1}}}));
}

TEST(MakeMatrix, PutsScalesOntoTheDiagonal) {
    EXPECT_EQ(Make::Scale(2.5, -3), (Matrix3x3{{{2.5, 0, 0}, {0, -3, 0}, {0, 0, 1}}}));
}

TEST(MakeMatrix, TakesSkewsForFactors) {
    EXPECT_EQ(Make::Skew(0.75, -2), (Matrix3x3{{{1, 0.75, 0}, {-2, 1, 0}, {0, 0, 1}}}));
}

TEST(MakeMatrix, RotatesFromXTowardsY) {
    ExpectNear(Make::Rotate(30), {{{kCosine30, -kSine30, 0}, {kSine30, kCosine30, 0}, {0, 0, 1}}});
    ExpectNear(Make::Rotate(-20), {{{kCosine20, kSine20, 0}, {-kSine20, kCosine20, 0}, {0, 0, 1}}});
    EXPECT_EQ(Make::Rotate(0), Make::Identity());
}

TEST(MakeMatrix, RotatesByARightAngleNotQuiteExactly) {
    ExpectNear(Make::Rotate(90), {{{kCosine90, -1, 0}, {1, kCosine90, 0}, {0, 0, 1}}});
}

TEST(MakeMatrix, TiltsYByTheFirstAngleAndXByTheSecond) {
    ExpectNear(Make::Perspective(20, 30, 0.5),
               {{{kCosine30, 0, 0}, {0, kCosine20, 0}, {0.5 * kSine30, 0.5 * kSine20, 1}}});
    ExpectNear(Make::Perspective(20, 0, 0.25), {{{1, 0, 0}, {0, kCosine20, 0}, {0, 0.25 * kSine20, 1}}});
    ExpectNear(Make::Perspective(0, -30, -1), {{{kCosine30, 0, 0}, {0, 1, 0}, {kSine30, 0, 1}}});
}

TEST(MakeMatrix, TiltsBackWithTheCosinesExchangedAndTheSinesPositive) {
    constexpr double kStrength = 0.009999999776482582;
    ExpectNear(
        Make::PerspectiveInverse(20, 30),
        {{{kCosine20, 0, 0}, {0, kCosine30, 0}, {kStrength * kSine30, kStrength * kSine20, kCosine20 * kCosine30}}});
    EXPECT_EQ(Make::PerspectiveInverse(0, 0), Make::Identity());
}

TEST(MakeMatrix, RotatesAboutTheXAxisOfSpace) {
    ExpectNear(Make::RotateX(30), {{{1, 0, 0}, {0, kCosine30, -kSine30}, {0, kSine30, kCosine30}}});
}

TEST(MakeMatrix, RotatesAboutTheYAxisOfSpace) {
    ExpectNear(Make::RotateY(30), {{{kCosine30, 0, kSine30}, {0, 1, 0}, {-kSine30, 0, kCosine30}}});
}

TEST(MakeMatrix, TakesAnglesOfAnySize) {
    for (double degrees = -1000; degrees <= 1000; degrees += 0.125) {
        const double radians = degrees * 0.01745329252;
        const double cosine = std::cos(radians);
        const double sine = std::sin(radians);
        ExpectNear(Make::Rotate(degrees), {{{cosine, -sine, 0}, {sine, cosine, 0}, {0, 0, 1}}});
        ExpectNear(Make::RotateX(degrees), {{{1, 0, 0}, {0, cosine, -sine}, {0, sine, cosine}}});
        ExpectNear(Make::RotateY(degrees), {{{cosine, 0, sine}, {0, 1, 0}, {-sine, 0, cosine}}});
        ExpectNear(Make::Perspective(degrees, 0, 1), {{{1, 0, 0}, {0, cosine, 0}, {0, sine, 1}}});
        ExpectNear(Make::Perspective(0, degrees, 1), {{{cosine, 0, 0}, {0, 1, 0}, {sine, 0, 1}}});
        ASSERT_FALSE(::testing::Test::HasFailure()) << degrees;
    }
}

} // namespace
} // namespace tn::test
