#include "TnGraphics/geometry/TnFloat.h"

#include <cstddef>
#include <gtest/gtest.h>
#include <limits>
#include <type_traits>

namespace tn::test {
namespace {

static_assert(std::is_aggregate_v<TnFloatPoint>);
static_assert(std::is_trivially_copyable_v<TnFloatPoint>);
static_assert(std::is_standard_layout_v<TnFloatPoint>);
static_assert(sizeof(TnFloatPoint) == 16);
static_assert(offsetof(TnFloatPoint, x) == 0);
static_assert(offsetof(TnFloatPoint, y) == 8);
static_assert(std::is_same_v<decltype(TnFloatPoint::x), double>);

static_assert(std::is_aggregate_v<TnFloatRect>);
static_assert(std::is_trivially_copyable_v<TnFloatRect>);
static_assert(std::is_standard_layout_v<TnFloatRect>);
static_assert(sizeof(TnFloatRect) == 32);
static_assert(offsetof(TnFloatRect, left) == 0);
static_assert(offsetof(TnFloatRect, top) == 8);
static_assert(offsetof(TnFloatRect, width) == 16);
static_assert(offsetof(TnFloatRect, height) == 24);
static_assert(std::is_same_v<decltype(TnFloatRect::left), double>);

TEST(TnFloatPoint, IsTheOriginWhenMade) { EXPECT_EQ(TnFloatPoint{}, (TnFloatPoint{0.0, 0.0})); }

TEST(TnFloatPoint, EqualsOnlyInBothCoordinates) {
    EXPECT_EQ((TnFloatPoint{0.25, -1.5}), (TnFloatPoint{0.25, -1.5}));
    EXPECT_NE((TnFloatPoint{0.25, -1.5}), (TnFloatPoint{0.25, 1.5}));
    EXPECT_NE((TnFloatPoint{0.25, -1.5}), (TnFloatPoint{-0.25, -1.5}));
}

TEST(TnFloatPoint, KeepsDoublePrecision) {
    constexpr double justAboveOne = 1.0 + std::numeric_limits<double>::epsilon();
    EXPECT_NE((TnFloatPoint{justAboveOne, 0.0}), (TnFloatPoint{1.0, 0.0}));
}

TEST(TnFloatRect, EqualsOnlyInAllFields) {
    constexpr TnFloatRect rect = {0.5, 1.5, 2.5, 3.5};
    EXPECT_EQ(rect, (TnFloatRect{0.5, 1.5, 2.5, 3.5}));
    EXPECT_NE(rect, (TnFloatRect{0.0, 1.5, 2.5, 3.5}));
    EXPECT_NE(rect, (TnFloatRect{0.5, 0.0, 2.5, 3.5}));
    EXPECT_NE(rect, (TnFloatRect{0.5, 1.5, 0.0, 3.5}));
    EXPECT_NE(rect, (TnFloatRect{0.5, 1.5, 2.5, 0.0}));
}

} // namespace
} // namespace tn::test
