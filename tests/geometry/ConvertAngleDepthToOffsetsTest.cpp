#include "TnGraphics/geometry/Angles.h"

#include "tests/support/Cases.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace tn::test {
namespace {

TEST(ConvertAngleDepthToOffsets, LeadsAgainstTheDirectionOfTheAngle) {
    EXPECT_EQ(ConvertAngleDepthToOffsets(0, 5), (TnPoint{-5, 0}));
    EXPECT_EQ(ConvertAngleDepthToOffsets(90, 5), (TnPoint{0, 5}));
    EXPECT_EQ(ConvertAngleDepthToOffsets(180, 5), (TnPoint{5, 0}));
    EXPECT_EQ(ConvertAngleDepthToOffsets(270, 5), (TnPoint{0, -5}));
    EXPECT_EQ(ConvertAngleDepthToOffsets(135, 5), (TnPoint{4, 4}));
    EXPECT_EQ(ConvertAngleDepthToOffsets(-45, 5), (TnPoint{-4, -4}));
}

TEST(ConvertAngleDepthToOffsets, LeadsNowhereWithoutDepth) {
    for (int degrees = -720; degrees <= 720; ++degrees) {
        EXPECT_EQ(ConvertAngleDepthToOffsets(degrees, 0), (TnPoint{0, 0}));
    }
}

TEST(ConvertAngleDepthToOffsets, LeadsTheOtherWayByNegativeDepths) {
    EXPECT_EQ(ConvertAngleDepthToOffsets(0, -5), (TnPoint{5, 0}));
    EXPECT_EQ(ConvertAngleDepthToOffsets(135, -5), (TnPoint{-4, -4}));
    EXPECT_EQ(ConvertAngleDepthToOffsets(90, -32768), (TnPoint{0, -32768}));
    EXPECT_EQ(ConvertAngleDepthToOffsets(0, -32768), (TnPoint{32768, 0}));
}

TEST(ConvertAngleDepthToOffsets, RoundsHalvesAwayFromZero) {
    EXPECT_EQ(ConvertAngleDepthToOffsets(30, 5), (TnPoint{-4, 3}));   // 4.33, 2.5
    EXPECT_EQ(ConvertAngleDepthToOffsets(-30, 5), (TnPoint{-4, -3})); // 4.33, -2.5
}

TEST(ConvertAngleDepthToOffsets, RoundsToTheNearest) {
    EXPECT_EQ(ConvertAngleDepthToOffsets(20, 100), (TnPoint{-94, 34}));  // 93.97, 34.20
    EXPECT_EQ(ConvertAngleDepthToOffsets(200, 100), (TnPoint{94, -34})); // -93.97, -34.20
}

// The exact products are 6053.49985 and 5130.49984, and single precision next to them has steps of about 0.0005.
TEST(ConvertAngleDepthToOffsets, MultipliesInSinglePrecision) {
    EXPECT_EQ(ConvertAngleDepthToOffsets(70, 6442).y, 6054);
    EXPECT_EQ(ConvertAngleDepthToOffsets(33, 9420).y, 5131);
}

// 14789 degrees lie 0.000013 radians away from their number in single precision.
TEST(ConvertAngleDepthToOffsets, NarrowsTheAngle) { EXPECT_EQ(ConvertAngleDepthToOffsets(14789, 32767).y, 15885); }

TEST(ConvertAngleDepthToOffsets, LeadsNowhereByAnAngleThatIsNone) {
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    for (const double degrees : {std::numeric_limits<double>::quiet_NaN(), kInfinity, -kInfinity, 1e300}) {
        EXPECT_EQ(ConvertAngleDepthToOffsets(degrees, 5), (TnPoint{0, 0}));
    }
}

double Rounded(double value) { return value < 0 ? std::ceil(value - 0.5) : std::floor(value + 0.5); }

// Single precision is uncertain in the last places, of the sine and of the product.
void ExpectRounded(double coordinate, double exact, double depth) {
    const double uncertainty = std::fabs(depth) * 3e-7;
    EXPECT_GE(coordinate, Rounded(exact - uncertainty));
    EXPECT_LE(coordinate, Rounded(exact + uncertainty));
}

void ExpectLikeModel(double degrees, int depth) {
    SCOPED_TRACE(::testing::Message() << degrees << " degrees, depth " << depth);
    const double radians = static_cast<float>(degrees * 0.01745329252);
    const TnPoint offset = ConvertAngleDepthToOffsets(degrees, static_cast<short>(depth));
    ExpectRounded(offset.x, -std::cos(radians) * depth, depth);
    ExpectRounded(offset.y, std::sin(radians) * depth, depth);
}

TEST(ConvertAngleDepthToOffsets, EqualsItsModelForManyAngles) {
    for (double degrees = -1080; degrees <= 1080; degrees += 0.25) {
        for (const int depth : {1, 5, 100, 4097, 32767, -1, -32768}) {
            ExpectLikeModel(degrees, depth);
        }
        ASSERT_FALSE(::testing::Test::HasFailure());
    }
}

TEST(ConvertAngleDepthToOffsets, EqualsItsModelForRandomAngles) {
    ForEachCase(50000, [](Random& random) {
        const double degrees = random.Between(-2000000000, 2000000000) / 16384.0;
        ExpectLikeModel(degrees, random.Between(-32768, 32767));
    });
}

} // namespace
} // namespace tn::test
