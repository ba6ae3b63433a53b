#include "TnGraphics/geometry/TnRect.h"

#include "tests/geometry/PixelSet.h"
#include "tests/support/Cases.h"

#include <cstddef>
#include <gtest/gtest.h>
#include <limits>
#include <type_traits>

namespace tn::test {
namespace {

constexpr std::int32_t kLargest = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t kSmallest = std::numeric_limits<std::int32_t>::min();
constexpr TnRect kNothing = {0, 0, 0, 0};

static_assert(std::is_aggregate_v<TnRect>);
static_assert(std::is_trivially_copyable_v<TnRect>);
static_assert(std::is_standard_layout_v<TnRect>);
static_assert(sizeof(TnRect) == 16);
static_assert(offsetof(TnRect, left) == 0);
static_assert(offsetof(TnRect, top) == 4);
static_assert(offsetof(TnRect, width) == 8);
static_assert(offsetof(TnRect, height) == 12);
static_assert(std::is_same_v<decltype(TnRect::width), std::int32_t>);

static_assert(sizeof(TnEdges) == 16);
static_assert(offsetof(TnEdges, left) == 0);
static_assert(offsetof(TnEdges, top) == 4);
static_assert(offsetof(TnEdges, right) == 8);
static_assert(offsetof(TnEdges, bottom) == 12);

TEST(TnRect, IsEmptyWhenWidthOrHeightIsBelowOne) {
    EXPECT_TRUE(TnRect().IsEmpty());
    EXPECT_TRUE((TnRect{3, 4, 0, 5}).IsEmpty());
    EXPECT_TRUE((TnRect{3, 4, 5, 0}).IsEmpty());
    EXPECT_TRUE((TnRect{3, 4, -1, 5}).IsEmpty());
    EXPECT_TRUE((TnRect{3, 4, 5, kSmallest}).IsEmpty());
    EXPECT_FALSE((TnRect{3, 4, 1, 1}).IsEmpty());
}

TEST(TnRect, EqualsOnlyInAllFields) {
    constexpr TnRect rect = {1, 2, 3, 4};
    EXPECT_EQ(rect, (TnRect{1, 2, 3, 4}));
    EXPECT_NE(rect, (TnRect{0, 2, 3, 4}));
    EXPECT_NE(rect, (TnRect{1, 0, 3, 4}));
    EXPECT_NE(rect, (TnRect{1, 2, 0, 4}));
    EXPECT_NE(rect, (TnRect{1, 2, 3, 0}));
}

TEST(TnRectBottomRight, IsTheLastPixelInside) {
    EXPECT_EQ((TnRect{2, 3, 1, 1}).BottomRight(), (TnPoint{2, 3}));
    EXPECT_EQ((TnRect{-5, -6, 10, 20}).BottomRight(), (TnPoint{4, 13}));
}

TEST(TnRectBottomRight, LiesBeforeTheCornerOfAnEmptyRectangle) {
    EXPECT_EQ(kNothing.BottomRight(), (TnPoint{-1, -1}));
    EXPECT_EQ((TnRect{7, 8, 0, -2}).BottomRight(), (TnPoint{6, 5}));
}

TEST(TnRectBottomRight, KeepsTheLow32Bits) {
    EXPECT_EQ((TnRect{kLargest, kLargest, 1, 2}).BottomRight(), (TnPoint{kLargest, kSmallest}));
    EXPECT_EQ((TnRect{kSmallest, kSmallest, 0, -1}).BottomRight(), (TnPoint{kLargest, kLargest - 1}));
}

TEST(TnRectEdges, AreExclusiveAtRightAndBottom) {
    EXPECT_EQ((TnRect{2, 3, 4, 5}).Edges(), (TnEdges{2, 3, 6, 8}));
    EXPECT_EQ((TnRect{-2, -3, 1, 1}).Edges(), (TnEdges{-2, -3, -1, -2}));
}

TEST(TnRectEdges, KeepTheLow32Bits) {
    EXPECT_EQ((TnRect{kLargest, 1, 1, kLargest}).Edges(), (TnEdges{kLargest, 1, kSmallest, kSmallest}));
    EXPECT_EQ((TnRect{kSmallest, -1, -1, kSmallest}).Edges(), (TnEdges{kSmallest, -1, kLargest, kLargest}));
}

TEST(TnRectIntersection, OfTouchingRectanglesIsNothing) {
    EXPECT_EQ(Intersection({0, 0, 10, 10}, {10, 0, 5, 5}), kNothing);
    EXPECT_EQ(Intersection({0, 0, 10, 10}, {0, 10, 5, 5}), kNothing);
}

TEST(TnRectIntersection, CutsNegativeCoordinatesOffASurface) {
    EXPECT_EQ(Intersection({-5, -5, 10, 10}, {0, 0, 4, 4}), (TnRect{0, 0, 4, 4}));
    EXPECT_EQ(Intersection({-5, -5, 10, 10}, {0, 0, 40, 40}), (TnRect{0, 0, 5, 5}));
}

TEST(TnRectIntersection, OutsideOnOneAxisIsNothingOnBoth) {
    EXPECT_EQ(Intersection({0, 0, 10, 10}, {20, 2, 5, 5}), kNothing);
    EXPECT_EQ(Intersection({0, 0, 10, 10}, {2, -20, 5, 5}), kNothing);
}

TEST(TnRectIntersection, WithAnEmptyRectangleIsNothing) {
    EXPECT_EQ(Intersection({0, 0, 10, 10}, {3, 3, 0, 5}), kNothing);
    EXPECT_EQ(Intersection({3, 3, 5, -5}, {0, 0, 10, 10}), kNothing);
}

TEST(TnRectIntersection, HasTheSamePixelsEitherWayRound) {
    constexpr TnRect a = {1, 2, 8, 9};
    constexpr TnRect b = {4, -3, 20, 7};
    EXPECT_EQ(Intersection(a, b), (TnRect{4, 2, 5, 2}));
    EXPECT_EQ(Intersection(b, a), (TnRect{4, 2, 5, 2}));
}

TEST(TnRectIntersection, TakesARectanglePastTheLargestCoordinateForEverythingFromThere) {
    EXPECT_EQ(Intersection({5, 6, kLargest, kLargest}, {0, 0, 100, 100}), (TnRect{5, 6, 95, 94}));
    EXPECT_EQ(Intersection({kLargest, 0, kLargest, 1}, {kLargest - 1, 0, 100, 1}), (TnRect{kLargest, 0, 99, 1}));
}

TEST(TnRectIntersection, ReachesFromTheSmallestCoordinate) {
    EXPECT_EQ(Intersection({kSmallest, kSmallest, kLargest, kLargest}, {-3, -2, 10, 10}), (TnRect{-3, -2, 2, 1}));
    EXPECT_EQ(Intersection({kSmallest, 0, kSmallest, 1}, {kSmallest, 0, kLargest, 1}), kNothing);
}

TEST(TnRectIntersection, InPlaceGivesTheSame) {
    TnRect rect = {1, 2, 8, 9};
    rect.Intersect({4, -3, 20, 7});
    EXPECT_EQ(rect, (TnRect{4, 2, 5, 2}));
    rect.Intersect(rect);
    EXPECT_EQ(rect, (TnRect{4, 2, 5, 2}));
    rect.Intersect({9, 2, 1, 1});
    EXPECT_EQ(rect, kNothing);
}

bool ShareAPixel(const TnRect& a, const TnRect& b) {
    for (const FarPixel& pixel : PixelsAtEdges({a, b})) {
        if (Covers(a, pixel) && Covers(b, pixel)) {
            return true;
        }
    }
    return false;
}

TEST(TnRectIntersection, IsWhatBothRectanglesCover) {
    ForEachCase(20000, [](Random& random) {
        const TnRect a = random.Rect({12, 9});
        const TnRect b = random.Rect({12, 9});
        const TnRect shared = Intersection(a, b);
        if (!ShareAPixel(a, b)) {
            ASSERT_EQ(shared, kNothing);
        }
        for (const FarPixel& pixel : PixelsAtEdges({a, b, shared})) {
            ASSERT_EQ(Covers(shared, pixel), Covers(a, pixel) && Covers(b, pixel)) << pixel.x << ", " << pixel.y;
        }
    });
}

} // namespace
} // namespace tn::test
