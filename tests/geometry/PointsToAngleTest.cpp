#include "TnGraphics/geometry/Angles.h"

#include "tests/models/AngleModels.h"
#include "tests/support/Cases.h"

#include <array>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace tn::test {
namespace {

constexpr TnFloatPoint kOrigin = {0, 0};

double Unwrapped(const TnFloatPoint& to, double step = 0, double offset = 0) {
    return PointsToAngle(kOrigin, to, step, offset, false);
}

double Wrapped(const TnFloatPoint& to, double step = 0, double offset = 0) {
    return PointsToAngle(kOrigin, to, step, offset, true);
}

TEST(PointsToAngle, GoesCounterClockwiseFromTheRight) {
    EXPECT_EQ(Wrapped({10, 0}), 0);
    EXPECT_EQ(Wrapped({10, -10}), 45);
    EXPECT_EQ(Wrapped({0, -5}), 90);
    EXPECT_EQ(Wrapped({-10, -10}), 135);
    EXPECT_EQ(Wrapped({-10, 0}), 180);
    EXPECT_EQ(Wrapped({-10, 10}), 225);
    EXPECT_EQ(Wrapped({0, 5}), 270);
    EXPECT_EQ(Wrapped({10, 10}), 315);
}

TEST(PointsToAngle, CountsOnWithoutWrapping) {
    EXPECT_EQ(Unwrapped({10, 0}), 360);
    EXPECT_EQ(Unwrapped({10, -10}), 405);
    EXPECT_EQ(Unwrapped({0, -5}), 450);
    EXPECT_EQ(Unwrapped({0, 5}), 270);
    EXPECT_EQ(Unwrapped({-10, 0}), 180);
}

TEST(PointsToAngle, DependsOnTheDifferenceOnly) {
    EXPECT_EQ(PointsToAngle({3, 4}, {13, -6}, 0, 0, true), 45);
    EXPECT_EQ(PointsToAngle({13, -6}, {3, 4}, 0, 0, true), 225);
}

TEST(PointsToAngle, RoundsToWholeDegrees) {
    EXPECT_EQ(Wrapped({100, -1}), 1); // 0.573 degrees
    EXPECT_EQ(Unwrapped({100, 1}), 359);
    EXPECT_EQ(Wrapped({1000, -8}), 0); // 0.458 degrees
    EXPECT_EQ(Wrapped({-100, -1}), 179);
}

TEST(PointsToAngle, SnapsHalvesUpwards) {
    EXPECT_EQ(Wrapped({10, -10}, 90), 90);
    EXPECT_EQ(Unwrapped({10, -10}, 90), 450);
    EXPECT_EQ(Unwrapped({-10, -10}, 90), 180);
    EXPECT_EQ(Unwrapped({100, -78}, 90), 360); // 38 degrees
    EXPECT_EQ(Unwrapped({-10, 0}, 7.5), 180);
    EXPECT_EQ(Unwrapped({-100, 1}, 2), 182);
}

TEST(PointsToAngle, SubtractsTheOffsetAfterSnapping) {
    EXPECT_EQ(Unwrapped({10, -10}, 0, 5), 400);
    EXPECT_EQ(Unwrapped({10, -10}, 90, 5), 445);
    EXPECT_EQ(Wrapped({10, -10}, 90, -300), 30);
}

TEST(PointsToAngle, AddsOneTurnToNegativeAnglesOnly) {
    EXPECT_EQ(Unwrapped({-10, 0}, 0, 181), 359);
    EXPECT_EQ(Unwrapped({-10, 0}, 0, 180), 0);
    EXPECT_EQ(Unwrapped({-10, 0}, 0, 1000), -460);
    EXPECT_EQ(Unwrapped({-10, 0}, 0, -1000), 1180);
}

TEST(PointsToAngle, WrapsAnyNumberOfTurns) {
    EXPECT_EQ(Wrapped({-10, 0}, 0, 1000), 260);
    EXPECT_EQ(Wrapped({-10, 0}, 0, -1000), 100);
}

// The slope is what is divided, and a negative zero turns its sign.
TEST(PointsToAngle, TakesMinusZeroForTheOtherSide) {
    EXPECT_EQ(Unwrapped({-0.0, -5}), 270);
    EXPECT_EQ(Unwrapped({-0.0, 5}), 450);
}

TEST(PointsToAngle, TakesEqualPointsForALineToTheRight) {
    EXPECT_EQ(PointsToAngle({3, 4}, {3, 4}, 0, 0, false), 360);
    EXPECT_EQ(PointsToAngle({3, 4}, {3, 4}, 0, 0, true), 0);
}

TEST(PointsToAngle, SnapsInFloatingPoint) {
    EXPECT_EQ(Unwrapped({-10, 0}, std::ldexp(1.0, -40)), 180); // 2^47 steps and a half
    EXPECT_TRUE(std::isnan(Unwrapped({-10, 0}, std::numeric_limits<double>::quiet_NaN())));
}

struct Snap {
    double step;
    double offset;
    bool wrap;
};

double ModelAngle(double wholeDegrees, const Snap& snap) {
    const double snapped = snap.step == 0 ? wholeDegrees : model::NearestMultiple(wholeDegrees, snap.step);
    const double angle = snapped - snap.offset;
    if (snap.wrap) {
        return model::InOneTurn(angle);
    }
    return angle < 0 ? angle + 360 : angle;
}

// Where the angle is half a degree but for the last places, either neighbour may be the whole one.
void ExpectLikeModel(double dx, double up, const Snap& snap) {
    constexpr double kUncertainty = 1e-8;
    const double angle = PointsToAngle({1, 2}, {1 + dx, 2 - up}, snap.step, snap.offset, snap.wrap);
    const double direction = model::UnroundedDirection(dx, up);
    const double lower = ModelAngle(model::WholeDegrees(direction - kUncertainty), snap);
    const double upper = ModelAngle(model::WholeDegrees(direction + kUncertainty), snap);
    EXPECT_TRUE(angle == lower || angle == upper) << angle << " instead of " << lower << " for " << dx << ", " << up
                                                  << " by " << snap.step << " minus " << snap.offset;
}

TEST(PointsToAngle, EqualsItsModelForEveryDirection) {
    ForEachCase(300, [](Random& random) {
        constexpr std::array<double, 8> kSteps = {0, 1, 2, 7, 7.5, 15, 45, 90};
        const Snap snap = {random.OneOf(kSteps), random.Between(-2000, 2000) / 4.0, random.OneIn(2)};
        for (int dx = -16; dx <= 16; ++dx) {
            for (int up = -16; up <= 16; ++up) {
                if (dx != 0 || up != 0) {
                    ExpectLikeModel(dx, up, snap);
                }
            }
        }
    });
}

TEST(PointsToAngle, EqualsItsModelForRandomPoints) {
    ForEachCase(50000, [](Random& random) {
        const double dx = random.Between(-2000000, 2000000) / 64.0;
        const double up = random.Between(-2000000, 2000000) / 64.0;
        ExpectLikeModel(dx, up, {random.Between(0, 720) / 8.0, random.Between(-8000, 8000) / 8.0, random.OneIn(2)});
    });
}

} // namespace
} // namespace tn::test
