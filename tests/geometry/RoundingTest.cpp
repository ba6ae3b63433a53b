#include "TnGraphics/geometry/Rounding.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace tn::test {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kTwoTo31 = 2147483648.0;
constexpr double kTwoTo32 = 4294967296.0;
constexpr double kTwoTo63 = 9223372036854775808.0;

TEST(TruncateToInt32, CutsTowardsZero) {
    EXPECT_EQ(TruncateToInt32(2.999), 2);
    EXPECT_EQ(TruncateToInt32(-2.999), -2);
    EXPECT_EQ(TruncateToInt32(0.999), 0);
    EXPECT_EQ(TruncateToInt32(-0.999), 0);
}

TEST(TruncateToInt32, ReachesBothEndsOf32Bits) {
    EXPECT_EQ(TruncateToInt32(kTwoTo31 - 1), 2147483647);
    EXPECT_EQ(TruncateToInt32(-kTwoTo31), std::numeric_limits<std::int32_t>::min());
}

TEST(TruncateToInt32, KeepsTheLow32BitsOfWhatFits64) {
    EXPECT_EQ(TruncateToInt32(kTwoTo31), std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(TruncateToInt32(-kTwoTo31 - 1), 2147483647);
    EXPECT_EQ(TruncateToInt32(kTwoTo32 + 5.75), 5);
    EXPECT_EQ(TruncateToInt32(-kTwoTo32 - 5.75), -5);
}

TEST(TruncateToInt32, TakesTheLastValuesThatFit64Bits) {
    // Doubles of this size lie 1024 apart.
    EXPECT_EQ(TruncateToInt32(kTwoTo63 - 1024), -1024);
    EXPECT_EQ(TruncateToInt32(-kTwoTo63 + 1024), 1024);
}

TEST(TruncateToInt32, GivesZeroForWhatDoesNotFit64Bits) {
    EXPECT_EQ(TruncateToInt32(kTwoTo63), 0);
    EXPECT_EQ(TruncateToInt32(-kTwoTo63 - 2048), 0);
    EXPECT_EQ(TruncateToInt32(1e300), 0);
    EXPECT_EQ(TruncateToInt32(-1e300), 0);
}

TEST(TruncateToInt32, GivesZeroForNaNAndInfinities) {
    EXPECT_EQ(TruncateToInt32(kNaN), 0);
    EXPECT_EQ(TruncateToInt32(kInfinity), 0);
    EXPECT_EQ(TruncateToInt32(-kInfinity), 0);
}

TEST(RoundToInt32, RoundsHalvesAwayFromZero) {
    EXPECT_EQ(RoundToInt32(0.5), 1);
    EXPECT_EQ(RoundToInt32(-0.5), -1);
    EXPECT_EQ(RoundToInt32(1.5), 2);
    EXPECT_EQ(RoundToInt32(2.5), 3);
    EXPECT_EQ(RoundToInt32(-2.5), -3);
}

TEST(RoundToInt32, RoundsToTheNearest) {
    EXPECT_EQ(RoundToInt32(2.49), 2);
    EXPECT_EQ(RoundToInt32(2.51), 3);
    EXPECT_EQ(RoundToInt32(-2.49), -2);
    EXPECT_EQ(RoundToInt32(-2.51), -3);
    EXPECT_EQ(RoundToInt32(0.0), 0);
    EXPECT_EQ(RoundToInt32(-0.0), 0);
}

// Half is added before the cut, and this sum is 1 in double precision: a library's round() would give 0.
TEST(RoundToInt32, AddsHalfAndCuts) {
    const double justBelowHalf = std::nextafter(0.5, 0.0);
    EXPECT_EQ(RoundToInt32(justBelowHalf), 1);
    EXPECT_EQ(RoundToInt32(-justBelowHalf), -1);
}

TEST(RoundToInt32, WrapsPastTheEndsOf32Bits) {
    EXPECT_EQ(RoundToInt32(kTwoTo31 - 0.5), std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(RoundToInt32(-kTwoTo31 - 0.5), 2147483647);
    EXPECT_EQ(RoundToInt32(kNaN), 0);
    EXPECT_EQ(RoundToInt32(-kInfinity), 0);
}

} // namespace
} // namespace tn::test
