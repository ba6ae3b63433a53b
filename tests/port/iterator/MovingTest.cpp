#include "tests/port/WalkKinds.h"

#include <limits>

namespace tn::test {
namespace {

template <class Walk> class WalkMoving : public WalkTest<Walk> {
protected:
    // Where a pixel lies whose address is the given number of bytes past the pixel base.
    TnPoint PositionOfByte(std::uint64_t distance) const {
        const std::uint64_t rowBytes = this->surface_.RowBytes();
        return {static_cast<std::int32_t>(distance % rowBytes / TestKind::kPixelBytes),
                static_cast<std::int32_t>(distance / rowBytes)};
    }

private:
    using TestKind = KindOf<typename Walk::Surface>;
};
TYPED_TEST_SUITE(WalkMoving, WalkKinds);

constexpr std::uint64_t kTwoTo32 = std::uint64_t{1} << 32;

TYPED_TEST(WalkMoving, PlusEqualsMovesThePixelByColumnsAndRows) {
    auto walk = this->Begin({3, 2, 5, 6});
    EXPECT_EQ(&(walk += TnPoint{2, 3}), &walk);
    EXPECT_EQ(PixelOf(walk), this->PixelAt({5, 5}));
    walk += TnPoint{-4, 0};
    EXPECT_EQ(PixelOf(walk), this->PixelAt({1, 5}));
}

TYPED_TEST(WalkMoving, MinusEqualsMovesDownByNegativeRows) {
    auto walk = this->Begin({3, 2, 5, 6});
    EXPECT_EQ(&(walk -= TnPoint{-2, -3}), &walk);
    EXPECT_EQ(PixelOf(walk), this->PixelAt({5, 5}));
    walk -= TnPoint{4, 0};
    EXPECT_EQ(PixelOf(walk), this->PixelAt({1, 5}));
}

TYPED_TEST(WalkMoving, PlusEqualsTakesTheLineAlong) {
    auto walk = this->Begin(this->kBounds);
    walk += TypeParam::At(1, 2);
    EXPECT_EQ(PixelOf(walk), this->InBounds(1, 2));
    EXPECT_EQ(PixelOf(walk.beginLine()), this->InBounds(0, 2));
    EXPECT_EQ(PixelOf(walk.endLine()), this->InBounds(2, 2));
}

TYPED_TEST(WalkMoving, PlusEqualsIgnoresTheBounds) {
    auto walk = this->Begin(this->kBounds);
    walk += TypeParam::At(7, 8);
    EXPECT_EQ(PixelOf(walk), this->InBounds(7, 8));
    EXPECT_EQ(PixelOf(walk.endLine()), this->InBounds(2, 8));
}

TYPED_TEST(WalkMoving, PlusEqualsOntoTheLastLineLetsTheWalkEnd) {
    auto walk = this->Begin(this->kBounds);
    walk += TypeParam::At(2, 3);
    EXPECT_TRUE((++walk).AtEnd());
}

TYPED_TEST(WalkMoving, PlusEqualsWithANumberMovesAlongTheLine) {
    auto walk = this->Begin(this->kBounds);
    EXPECT_EQ(&(walk += 5), &walk);
    EXPECT_EQ(PixelOf(walk), this->InBounds(5, 0));
    walk += -6;
    EXPECT_EQ(PixelOf(walk), this->InBounds(-1, 0));
    EXPECT_EQ(&(walk -= -4), &walk);
    EXPECT_EQ(PixelOf(walk), this->InBounds(3, 0));
    walk -= 2;
    EXPECT_EQ(PixelOf(walk), this->InBounds(1, 0));
    EXPECT_EQ(PixelOf(walk.beginLine()), this->InBounds(0, 0));
}

TYPED_TEST(WalkMoving, EndStaysWhereItIs) {
    auto end = this->End(this->kBounds);
    end += TnPoint{1, 1};
    end -= TnPoint{1, -1};
    end += 1;
    end -= 1;
    EXPECT_TRUE(end.AtEnd());
    EXPECT_EQ(PixelOf(end.beginLine()), this->InBounds(0, 3));
    EXPECT_EQ(PixelOf(end.endLine()), this->InBounds(2, 3));
}

TYPED_TEST(WalkMoving, PlusGivesAMovedCopy) {
    const auto walk = this->Begin(this->kBounds);
    auto moved = walk + TypeParam::At(1, 2);
    EXPECT_EQ(PixelOf(walk), this->InBounds(0, 0));
    EXPECT_EQ(PixelOf(moved), this->InBounds(1, 2));
    EXPECT_EQ(PixelOf(moved.beginLine()), this->InBounds(0, 2));
    EXPECT_EQ(moved.Bounds(), this->kBounds);
}

TYPED_TEST(WalkMoving, MinusGivesACopyMovedDownByNegativeRows) {
    const auto walk = this->Begin({3, 2, 5, 6});
    EXPECT_EQ(PixelOf(walk - TnPoint{-2, -3}), this->PixelAt({5, 5}));
    EXPECT_EQ(PixelOf(walk - TnPoint{2, 0}), this->PixelAt({1, 2}));
    EXPECT_EQ(PixelOf(walk), this->PixelAt({3, 2}));
}

TYPED_TEST(WalkMoving, MovedCopyKeepsTheFirstAndLastPixel) {
    auto moved = this->Begin(this->kBounds) + TypeParam::At(1, 1);
    EXPECT_FALSE(moved.AtStart());
    EXPECT_EQ(PixelOf(moved.begin()), this->InBounds(0, 0));
    EXPECT_EQ(PixelOf(--moved.end()), this->InBounds(2, 3));
}

// Up is not what it seems: the rows' bytes are an unsigned 32-bit product.
TYPED_TEST(WalkMoving, RowsUpLeadFarDown) {
    const std::uint64_t rowBytes = this->surface_.RowBytes();
    const auto walk = this->Begin({0, 0, 5, 6});

    auto moved = walk;
    moved += TnPoint{0, -1};
    EXPECT_EQ(moved.Position(), this->PositionOfByte(kTwoTo32 - rowBytes));
    EXPECT_EQ((walk + TnPoint{0, -3}).Position(), this->PositionOfByte(kTwoTo32 - 3 * rowBytes));

    moved = walk;
    moved -= TnPoint{0, 1};
    EXPECT_EQ(moved.Position(), this->PositionOfByte(kTwoTo32 - rowBytes));
    EXPECT_EQ((walk - TnPoint{0, 3}).Position(), this->PositionOfByte(kTwoTo32 - 3 * rowBytes));
}

TYPED_TEST(WalkMoving, RowProductsWrapAt32Bits) {
    constexpr std::int32_t rows = 100000000;
    const std::uint64_t rowBytes = this->surface_.RowBytes();
    const auto walk = this->Begin({0, 0, 5, 6});
    EXPECT_EQ((walk + TnPoint{0, rows}).Position(), this->PositionOfByte(rows * rowBytes % kTwoTo32));
    EXPECT_EQ((walk - TnPoint{0, -rows}).Position(), this->PositionOfByte(rows * rowBytes % kTwoTo32));
}

TYPED_TEST(WalkMoving, SmallestNumberOfRowsIsNegatedWithoutOverflow) {
    constexpr std::int32_t smallest = std::numeric_limits<std::int32_t>::min();
    ASSERT_EQ(this->surface_.RowBytes() % 2, 0U); // so 2^31 rows wrap to none at all
    const auto walk = this->Begin({0, 0, 5, 6});
    EXPECT_EQ((walk - TnPoint{0, smallest}).Position(), TnPoint{});
    EXPECT_EQ((walk + TnPoint{0, smallest}).Position(), TnPoint{});
}

} // namespace
} // namespace tn::test
