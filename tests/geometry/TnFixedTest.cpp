#include "TnGraphics/geometry/TnFixed.h"

#include <cmath>
#include <cstddef>
#include <gtest/gtest.h>
#include <limits>
#include <type_traits>

namespace tn::test {
namespace {

constexpr std::int32_t kLargest = 0x7FFFFFFF;
constexpr std::int32_t kSmallest = std::numeric_limits<std::int32_t>::min();

static_assert(std::is_aggregate_v<TnFixed>);
static_assert(std::is_trivially_copyable_v<TnFixed>);
static_assert(std::is_standard_layout_v<TnFixed>);
static_assert(sizeof(TnFixed) == 4);
static_assert(std::is_same_v<decltype(TnFixed::raw), std::int32_t>);

static_assert(std::is_aggregate_v<TnFixedPoint>);
static_assert(std::is_trivially_copyable_v<TnFixedPoint>);
static_assert(sizeof(TnFixedPoint) == 8);
static_assert(offsetof(TnFixedPoint, x) == 0);
static_assert(offsetof(TnFixedPoint, y) == 4);

static_assert(std::is_aggregate_v<TnFixedRect>);
static_assert(std::is_trivially_copyable_v<TnFixedRect>);
static_assert(sizeof(TnFixedRect) == 16);
static_assert(offsetof(TnFixedRect, left) == 0);
static_assert(offsetof(TnFixedRect, top) == 4);
static_assert(offsetof(TnFixedRect, width) == 8);
static_assert(offsetof(TnFixedRect, height) == 12);

std::int32_t RawOf(double value) { return TnFixed::FromDouble(value).raw; }

TEST(TnFixedFromDouble, ScalesBy65536) {
    EXPECT_EQ(RawOf(0.0), 0);
    EXPECT_EQ(RawOf(1.0), 65536);
    EXPECT_EQ(RawOf(-0.5), -32768);
    EXPECT_EQ(RawOf(1.00001), 65537);
    EXPECT_EQ(RawOf(-1.00001), -65537);
}

TEST(TnFixedFromDouble, RoundsHalvesAwayFromZero) {
    EXPECT_EQ(RawOf(0.5 / 65536), 1);
    EXPECT_EQ(RawOf(-0.5 / 65536), -1);
    EXPECT_EQ(RawOf(2.5 / 65536), 3);
    EXPECT_EQ(RawOf(-2.5 / 65536), -3);
    EXPECT_EQ(RawOf(0.49 / 65536), 0);
    EXPECT_EQ(RawOf(-0.49 / 65536), 0);
}

TEST(TnFixedFromDouble, ReachesBothEnds) {
    EXPECT_EQ(RawOf(kLargest / 65536.0), kLargest);
    EXPECT_EQ(RawOf(-32768.0), kSmallest);
}

TEST(TnFixedFromDouble, WrapsInsteadOfSaturating) {
    EXPECT_EQ(RawOf(32768.0), kSmallest);
    EXPECT_EQ(RawOf(-32769.0), 0x7FFF0000);
    EXPECT_EQ(RawOf(65536.0), 0);
    EXPECT_EQ(RawOf(65537.0), 65536);
    EXPECT_EQ(RawOf(-65536.25), -16384);
}

TEST(TnFixedFromDouble, GivesZeroForWhatIsNoNumberOr64BitInteger) {
    constexpr double twoTo47 = 140737488355328.0;
    EXPECT_EQ(RawOf(twoTo47), 0);
    EXPECT_EQ(RawOf(std::nextafter(twoTo47, 0.0)), -1024);
    EXPECT_EQ(RawOf(std::numeric_limits<double>::max()), 0);
    EXPECT_EQ(RawOf(std::numeric_limits<double>::quiet_NaN()), 0);
    EXPECT_EQ(RawOf(std::numeric_limits<double>::infinity()), 0);
    EXPECT_EQ(RawOf(-std::numeric_limits<double>::infinity()), 0);
}

TEST(TnFixedToDouble, IsExact) {
    EXPECT_EQ(TnFixed{kLargest}.ToDouble(), 32767.9999847412109375);
    EXPECT_EQ(TnFixed{kSmallest}.ToDouble(), -32768.0);
    EXPECT_EQ(TnFixed{1}.ToDouble(), 1.52587890625e-05);
    EXPECT_EQ(TnFixed{-98304}.ToDouble(), -1.5);
}

TEST(TnFixedToDouble, ComesBackToTheSameRaw) {
    for (std::int64_t raw = kSmallest; raw <= kLargest; raw += 65521) {
        const auto word = static_cast<std::int32_t>(raw);
        ASSERT_EQ(RawOf(TnFixed{word}.ToDouble()), word);
    }
}

TEST(TnFixedToFloat, RoundsToSinglePrecision) {
    EXPECT_EQ(TnFixed{1}.ToFloat(), 1.52587890625e-05F);
    EXPECT_EQ(TnFixed{-32768}.ToFloat(), -0.5F);
    EXPECT_EQ(TnFixed{0x00FFFFFF}.ToFloat(), 255.9999847412109375F);
    EXPECT_EQ(TnFixed{kLargest}.ToFloat(), 32768.0F);
}

TEST(TnFixedIntegerPart, RoundsTowardsMinusInfinity) {
    EXPECT_EQ(TnFixed{0x0001FFFF}.IntegerPart(), 1);
    EXPECT_EQ(TnFixed{-32768}.IntegerPart(), -1);
    EXPECT_EQ(TnFixed{-65536}.IntegerPart(), -1);
    EXPECT_EQ(TnFixed{-65537}.IntegerPart(), -2);
    EXPECT_EQ(TnFixed{kLargest}.IntegerPart(), 32767);
    EXPECT_EQ(TnFixed{kSmallest}.IntegerPart(), -32768);
}

TEST(TnFixedFraction256, IsTheUpperByteOfTheFraction) {
    EXPECT_EQ(TnFixed{0x12345678}.Fraction256(), 0x56);
    EXPECT_EQ(TnFixed{0x000000FF}.Fraction256(), 0);
    EXPECT_EQ(TnFixed{-32768}.Fraction256(), 128);
    EXPECT_EQ(TnFixed{-1}.Fraction256(), 255);
}

TEST(TnFixed, EqualsByItsRawWord) {
    EXPECT_EQ(TnFixed{}, TnFixed{0});
    EXPECT_NE(TnFixed{1}, TnFixed{2});
    EXPECT_NE((TnFixedPoint{{1}, {2}}), (TnFixedPoint{{1}, {3}}));
    EXPECT_NE((TnFixedRect{{1}, {2}, {3}, {4}}), (TnFixedRect{{1}, {2}, {3}, {5}}));
}

} // namespace
} // namespace tn::test
