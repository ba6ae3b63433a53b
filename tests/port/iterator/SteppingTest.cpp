#include "tests/port/WalkKinds.h"

#include <algorithm>

namespace tn::test {
namespace {

template <class Walk> class WalkStepping : public WalkTest<Walk> {
protected:
    using Pixels = std::vector<typename Walk::Surface::Pixel*>;
};
TYPED_TEST_SUITE(WalkStepping, WalkKinds);

TYPED_TEST(WalkStepping, IncrementVisitsEveryPixelLineByLine) {
    typename TestFixture::Pixels visited;
    const auto end = this->End(this->kBounds);
    for (auto walk = this->Begin(this->kBounds); walk != end; ++walk) {
        visited.push_back(&*walk);
    }
    EXPECT_EQ(visited, this->LineByLine());
}

TYPED_TEST(WalkStepping, DecrementVisitsEveryPixelBackwards) {
    typename TestFixture::Pixels pixels = this->LineByLine();
    std::reverse(pixels.begin(), pixels.end());
    auto walk = this->End(this->kBounds);
    for (auto* pixel : pixels) {
        ASSERT_EQ(PixelOf(--walk), pixel);
    }
}

TYPED_TEST(WalkStepping, IncrementReturnsTheIterator) {
    auto walk = this->Begin(this->kBounds);
    EXPECT_EQ(&++walk, &walk);
    EXPECT_EQ(&--walk, &walk);
}

TYPED_TEST(WalkStepping, PostIncrementGivesTheOldPosition) {
    auto walk = this->Begin(this->kBounds);
    EXPECT_EQ(PixelOf(walk++), this->InBounds(0, 0));
    EXPECT_EQ(PixelOf(walk), this->InBounds(1, 0));
    EXPECT_EQ(PixelOf(walk--), this->InBounds(1, 0));
    EXPECT_EQ(PixelOf(walk), this->InBounds(0, 0));
}

TYPED_TEST(WalkStepping, OnePixelIsOneStep) {
    auto walk = this->Begin({7, 7, 1, 1});
    EXPECT_TRUE(walk.AtStartOfLine());
    EXPECT_TRUE(walk.AtEndOfLine());
    ++walk;
    EXPECT_TRUE(walk.AtEnd());
    EXPECT_TRUE(walk == this->End({7, 7, 1, 1}));
}

TYPED_TEST(WalkStepping, EndIsReachedFromTheLastPixelAlone) {
    auto walk = this->Begin(this->kBounds);
    for (std::size_t i = 1; i < this->LineByLine().size(); ++i) {
        ASSERT_FALSE((++walk).AtEnd());
    }
    EXPECT_EQ(PixelOf(walk), this->InBounds(2, 3));
    EXPECT_TRUE((++walk).AtEnd());
}

TYPED_TEST(WalkStepping, DecrementFromTheReachedEndReentersAtTheLastPixel) {
    auto walk = this->Begin(this->kBounds);
    while (!walk.AtEnd()) {
        ++walk;
    }
    EXPECT_EQ(PixelOf(--walk), this->InBounds(2, 3));
    EXPECT_TRUE(walk.AtEndOfLine());
    EXPECT_EQ(PixelOf(--walk), this->InBounds(1, 3));
}

TYPED_TEST(WalkStepping, DecrementFromALinesStartEntersThePreviousLineAtItsEnd) {
    auto walk = this->Begin(this->kBounds);
    walk.NextLine();
    EXPECT_EQ(PixelOf(--walk), this->InBounds(2, 0));
    EXPECT_TRUE(walk.AtEndOfLine());
    EXPECT_EQ(PixelOf(walk.beginLine()), this->InBounds(0, 0));
}

TYPED_TEST(WalkStepping, DecrementFromTheFirstPixelLeavesTheBounds) {
    auto walk = this->Begin(this->kBounds);
    EXPECT_EQ(PixelOf(--walk), this->InBounds(2, -1));
    EXPECT_TRUE(walk.AtEndOfLine());
    EXPECT_EQ(PixelOf(++walk), this->InBounds(0, 0));
}

TYPED_TEST(WalkStepping, NextAndPrevIgnoreTheLinesEnds) {
    auto walk = this->Begin(this->kBounds);
    walk.Prev();
    EXPECT_EQ(PixelOf(walk), this->InBounds(-1, 0));
    for (int i = 0; i < 4; ++i) {
        walk.Next();
    }
    EXPECT_EQ(PixelOf(walk), this->InBounds(3, 0));
    EXPECT_EQ(PixelOf(walk.beginLine()), this->InBounds(0, 0));
}

TYPED_TEST(WalkStepping, NextRowAndPrevRowCrossWithoutTheLine) {
    auto walk = this->Begin(this->kBounds);
    walk.NextRow();
    EXPECT_EQ(PixelOf(walk), this->InBounds(0, 1));
    EXPECT_FALSE(walk.AtStartOfLine());
    walk.PrevRow();
    walk.PrevRow();
    EXPECT_EQ(PixelOf(walk), this->InBounds(0, -1));
    EXPECT_EQ(PixelOf(walk.beginLine()), this->InBounds(0, 0));
}

TYPED_TEST(WalkStepping, ReadsAndWritesTheCurrentPixel) {
    auto walk = this->Begin(this->kBounds);
    ++walk;
    EXPECT_EQ(*walk, *this->InBounds(1, 0));
    EXPECT_EQ(walk->value, this->InBounds(1, 0)->value);
    *walk = 77;
    EXPECT_EQ(this->InBounds(1, 0)->value, 77U);
    walk->value = 78;
    EXPECT_EQ(*this->InBounds(1, 0), typename TestFixture::Pixel(78));
}

#if !defined(NDEBUG) && !defined(_WIN32)
template <class Walk> class WalkDeathTest : public WalkTest<Walk> {};
TYPED_TEST_SUITE(WalkDeathTest, WalkKinds);

TYPED_TEST(WalkDeathTest, SteppingPastTheEndIsTheCallersFault) {
    auto end = this->End(this->kBounds);
    EXPECT_DEATH(++end, "AtEnd");
    EXPECT_DEATH(end.Next(), "AtEnd");
    EXPECT_DEATH((void)(end + TnPoint{1, 1}), "AtEnd");
}
#endif

} // namespace
} // namespace tn::test
