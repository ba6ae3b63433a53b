#include "tests/port/WalkKinds.h"

namespace tn::test {
namespace {

template <class Walk> class WalkLineChange : public WalkTest<Walk> {};
TYPED_TEST_SUITE(WalkLineChange, WalkKinds);

template <class SurfaceType> class HorizontalLineChange : public WalkTest<ByRows<SurfaceType>> {};
TYPED_TEST_SUITE(HorizontalLineChange, SurfaceKinds);

template <class SurfaceType> class VerticalLineChange : public WalkTest<ByColumns<SurfaceType>> {};
TYPED_TEST_SUITE(VerticalLineChange, SurfaceKinds);

TYPED_TEST(WalkLineChange, NextLineGoesToTheNextLinesStart) {
    auto walk = this->Begin(this->kBounds);
    ++walk;
    EXPECT_EQ(&walk.NextLine(), &walk);
    EXPECT_EQ(PixelOf(walk), this->InBounds(0, 1));
    EXPECT_TRUE(walk.AtStartOfLine());
    EXPECT_EQ(PixelOf(walk.endLine()), this->InBounds(2, 1));
}

TYPED_TEST(WalkLineChange, NextLineFromTheLastPixelGoesToTheEnd) {
    auto walk = --this->End(this->kBounds);
    EXPECT_TRUE(walk.NextLine().AtEnd());
    EXPECT_EQ(PixelOf(walk.beginLine()), this->InBounds(0, 3));
}

TYPED_TEST(HorizontalLineChange, NextLineFromAnywhereOnTheLastLineGoesToTheEnd) {
    auto walk = --this->End(this->kBounds);
    EXPECT_TRUE(walk.beginLine().NextLine().AtEnd());
    walk.beginLine();
    EXPECT_TRUE((++walk).NextLine().AtEnd());
}

TYPED_TEST(VerticalLineChange, NextLineFromAboveTheLastPixelGoesToTheColumnBeyond) {
    auto walk = --this->End(this->kBounds);
    walk.beginLine().NextLine();
    EXPECT_FALSE(walk.AtEnd());
    EXPECT_EQ(PixelOf(walk), this->InBounds(0, 4));
    EXPECT_EQ(PixelOf(walk.endLine()), this->InBounds(2, 4));
}

// The last line is known by the pixel that a walk stands on, so a walk that was moved there is at its end too.
TYPED_TEST(VerticalLineChange, NextLineFromTheLastPixelByAMoveGoesToTheEnd) {
    auto walk = this->Begin(this->kBounds);
    walk.Next();
    walk.Next();
    for (int line = 0; line < 3; ++line) {
        walk.NextRow();
    }
    EXPECT_EQ(PixelOf(walk), this->InBounds(2, 3));
    EXPECT_TRUE(walk.NextLine().AtEnd());
}

// Rows know it by the line alone, wherever the walk was moved.
TYPED_TEST(HorizontalLineChange, NextLineFromTheLastPixelByAMoveGoesToTheNextLine) {
    auto walk = this->Begin(this->kBounds);
    walk.Next();
    walk.Next();
    for (int line = 0; line < 3; ++line) {
        walk.NextRow();
    }
    EXPECT_EQ(PixelOf(walk), this->InBounds(2, 3));
    EXPECT_EQ(PixelOf(walk.NextLine()), this->InBounds(0, 1));
}

TYPED_TEST(WalkLineChange, PreviousLineGoesToThePreviousLinesEnd) {
    auto walk = this->Begin(this->kBounds);
    walk.NextLine();
    EXPECT_EQ(&walk.PreviousLine(), &walk);
    EXPECT_EQ(PixelOf(walk), this->InBounds(2, 0));
    EXPECT_TRUE(walk.AtEndOfLine());
    EXPECT_EQ(PixelOf(walk.beginLine()), this->InBounds(0, 0));
}

TYPED_TEST(WalkLineChange, PreviousLineFromTheFirstLineLeavesTheBounds) {
    auto walk = this->Begin(this->kBounds);
    EXPECT_EQ(PixelOf(walk.PreviousLine()), this->InBounds(2, -1));
    EXPECT_EQ(PixelOf(walk.beginLine()), this->InBounds(0, -1));
}

TYPED_TEST(WalkLineChange, PreviousLineFromTheEndGoesToTheLineBeforeTheLast) {
    auto end = this->End(this->kBounds);
    EXPECT_EQ(PixelOf(end.PreviousLine()), this->InBounds(2, 2));
}

TYPED_TEST(WalkLineChange, BeginLineAndEndLineStayOnTheLine) {
    auto walk = this->Begin(this->kBounds);
    walk.NextLine();
    ++walk;
    EXPECT_FALSE(walk.AtStartOfLine());
    EXPECT_FALSE(walk.AtEndOfLine());
    EXPECT_EQ(&walk.endLine(), &walk);
    EXPECT_EQ(PixelOf(walk), this->InBounds(2, 1));
    EXPECT_EQ(&walk.beginLine(), &walk);
    EXPECT_EQ(PixelOf(walk), this->InBounds(0, 1));
}

TYPED_TEST(WalkLineChange, EndLineIsOnTheLinesLastPixelNotPastIt) {
    auto walk = this->Begin(this->kBounds);
    walk.endLine();
    EXPECT_TRUE(walk.AtEndOfLine());
    EXPECT_FALSE(walk.AtEnd());
    EXPECT_EQ(PixelOf(++walk), this->InBounds(0, 1));
}

TYPED_TEST(WalkLineChange, OwnBeginGoesBackToTheFirstPixelAndLine) {
    auto walk = this->Begin(this->kBounds);
    walk.NextLine().NextLine();
    ++walk;
    EXPECT_EQ(&walk.begin(), &walk);
    EXPECT_EQ(PixelOf(walk), this->InBounds(0, 0));
    EXPECT_TRUE(walk.AtStart());
    EXPECT_TRUE(walk.AtStartOfLine());
    EXPECT_EQ(PixelOf(walk.endLine()), this->InBounds(2, 0));
}

TYPED_TEST(WalkLineChange, OwnEndGoesToTheEndOnTheLastLine) {
    auto walk = this->Begin(this->kBounds);
    EXPECT_EQ(&walk.end(), &walk);
    EXPECT_TRUE(walk.AtEnd());
    EXPECT_TRUE(walk == this->End(this->kBounds));
    EXPECT_EQ(PixelOf(walk.beginLine()), this->InBounds(0, 3));
    EXPECT_EQ(PixelOf(walk.endLine()), this->InBounds(2, 3));
    EXPECT_EQ(PixelOf(walk.begin()), this->InBounds(0, 0));
}

// A line is as long as the bounds, wherever the walk began.
TYPED_TEST(WalkLineChange, OwnBeginOfAnEndStartsALineAtTheLastPixel) {
    auto end = this->End(this->kBounds);
    end.begin();
    EXPECT_EQ(PixelOf(end), this->InBounds(2, 3));
    EXPECT_TRUE(end.AtStartOfLine());
    EXPECT_EQ(PixelOf(end.endLine()), this->InBounds(4, 3));
}

TYPED_TEST(WalkLineChange, AtStartIsTrueOnThatPixelHoweverItIsReached) {
    auto walk = this->Begin(this->kBounds);
    ++walk;
    EXPECT_FALSE(walk.AtStart());
    walk.Prev();
    EXPECT_TRUE(walk.AtStart());
}

} // namespace
} // namespace tn::test
