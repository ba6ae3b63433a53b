#include "TnGraphics/geometry/TnPoint.h"

#include <cstddef>
#include <gtest/gtest.h>
#include <type_traits>

namespace tn::test {
namespace {

// Hosts hand arrays of points through interfaces of their own, so the layout is part of the interface.
static_assert(std::is_aggregate_v<TnPoint>);
static_assert(std::is_trivially_copyable_v<TnPoint>);
static_assert(std::is_standard_layout_v<TnPoint>);
static_assert(sizeof(TnPoint) == 8);
static_assert(offsetof(TnPoint, x) == 0);
static_assert(offsetof(TnPoint, y) == 4);
static_assert(std::is_same_v<decltype(TnPoint::x), std::int32_t>);
static_assert(std::is_same_v<decltype(TnPoint::y), std::int32_t>);

TEST(TnPoint, IsTheOriginWhenMade) {
    constexpr TnPoint point;
    EXPECT_EQ(point.x, 0);
    EXPECT_EQ(point.y, 0);
}

TEST(TnPoint, EqualsOnlyInBothCoordinates) {
    constexpr TnPoint point = {3, -4};
    EXPECT_TRUE(point == (TnPoint{3, -4}));
    EXPECT_FALSE(point == (TnPoint{3, 4}));
    EXPECT_FALSE(point == (TnPoint{-3, -4}));
    EXPECT_FALSE(point == (TnPoint{-4, 3}));
}

TEST(TnPoint, InequalityNegatesEquality) {
    constexpr TnPoint point = {3, -4};
    EXPECT_FALSE(point != (TnPoint{3, -4}));
    EXPECT_TRUE(point != (TnPoint{3, 4}));
    EXPECT_TRUE(point != (TnPoint{-3, -4}));
}

} // namespace
} // namespace tn::test
