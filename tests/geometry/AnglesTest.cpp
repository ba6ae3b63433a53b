#include "TnGraphics/geometry/Angles.h"

#include "tests/models/AngleModels.h"
#include "tests/support/Cases.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace tn::test {
namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

// A double below 1e7 or so, of any size.
double AnyAngle(Random& random) {
    const double fraction = random.Between(-2147483647, 2147483647) / 2147483648.0;
    return std::ldexp(fraction, random.Between(-80, 24));
}

TEST(DegreesToRadians, MultipliesByTheShortFactor) {
    EXPECT_EQ(DegreesToRadians(1), 0.01745329252);
    EXPECT_EQ(DegreesToRadians(180), 3.1415926536);
    EXPECT_EQ(DegreesToRadians(-90), -1.5707963268);
    EXPECT_EQ(DegreesToRadians(1024), 17.87217154048);
    EXPECT_EQ(DegreesToRadians(0), 0);
}

TEST(RadiansToDegrees, RoundsToWholeDegrees) {
    EXPECT_EQ(RadiansToDegrees(1.0), 57.0);
    EXPECT_EQ(RadiansToDegrees(-0.5), -29.0);
    EXPECT_EQ(RadiansToDegrees(0.5), 29.0);
    EXPECT_EQ(RadiansToDegrees(3.1415926536), 180.0);
}

// By 180 / pi in full precision it would be 621272518.501.
TEST(RadiansToDegrees, MultipliesByTheReciprocalOfTheShortFactor) {
    EXPECT_EQ(RadiansToDegrees(10843251), 621272518.0);
    EXPECT_EQ(RadiansToDegrees(-10843251), -621272518.0);
}

TEST(RadiansToDegrees, IsNeverMinusZero) {
    EXPECT_FALSE(std::signbit(RadiansToDegrees(-0.0)));
    EXPECT_FALSE(std::signbit(RadiansToDegrees(-0.001)));
}

TEST(RadiansToDegrees, GivesSomeNumberForWhatIsNone) {
    EXPECT_EQ(RadiansToDegrees(kNaN), 0);
    EXPECT_EQ(RadiansToDegrees(kInfinity), 0);
    EXPECT_EQ(RadiansToDegrees(-1e300), 0);
}

TEST(RadiansToDegrees, TurnsWholeDegreesBack) {
    for (int degrees = -3600; degrees <= 3600; ++degrees) {
        EXPECT_EQ(RadiansToDegrees(DegreesToRadians(degrees)), degrees);
        EXPECT_EQ(RadiansToDegrees(DegreesToRadians(degrees + 0.499)), degrees);
        EXPECT_EQ(RadiansToDegrees(DegreesToRadians(degrees - 0.499)), degrees);
    }
}

TEST(NormalizeAngle, BringsAnglesToOneTurn) {
    EXPECT_EQ(NormalizeAngle(720), 0);
    EXPECT_EQ(NormalizeAngle(-90), 270);
    EXPECT_EQ(NormalizeAngle(359.5), 359.5);
    EXPECT_EQ(NormalizeAngle(360.5), 0.5);
    EXPECT_EQ(NormalizeAngle(-720.25), 359.75);
}

TEST(NormalizeAngle, RoundsTheSmallestNegativeAnglesToAFullTurn) { EXPECT_EQ(NormalizeAngle(-1e-20), 360.0); }

TEST(NormalizeAngle, KeepsTheSignOfZero) {
    for (const double degrees : {-0.0, -360.0, -720.0}) {
        EXPECT_EQ(NormalizeAngle(degrees), 0) << degrees;
        EXPECT_TRUE(std::signbit(NormalizeAngle(degrees))) << degrees;
    }
    EXPECT_FALSE(std::signbit(NormalizeAngle(360)));
}

TEST(NormalizeAngle, HasNoAngleForWhatIsNoNumber) {
    EXPECT_TRUE(std::isnan(NormalizeAngle(kNaN)));
    EXPECT_TRUE(std::isnan(NormalizeAngle(-kInfinity)));
}

TEST(NormalizeAngle, GoesRoundOnceInAnyTurn) {
    constexpr int kTurn = 360 * 8;
    for (int eighths = -5 * kTurn; eighths <= 5 * kTurn; ++eighths) {
        const int inTurn = (eighths + 5 * kTurn) % kTurn;
        ASSERT_EQ(NormalizeAngle(eighths / 8.0), inTurn / 8.0);
    }
}

TEST(NormalizeAngle, EqualsItsModelForAnyAngle) {
    ForEachCase(100000, [](Random& random) {
        const double degrees = AnyAngle(random);
        EXPECT_EQ(NormalizeAngle(degrees), model::InOneTurn(degrees)) << degrees;
    });
}

} // namespace
} // namespace tn::test
