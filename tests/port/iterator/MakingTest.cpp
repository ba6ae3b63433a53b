#include "tests/port/WalkKinds.h"

namespace tn::test {
namespace {

template <class Walk> class WalkMaking : public WalkTest<Walk> {};
TYPED_TEST_SUITE(WalkMaking, WalkKinds);

TYPED_TEST(WalkMaking, BeginStandsOnTheTopLeftPixel) {
    const auto walk = this->Begin({3, 2, 5, 6});
    EXPECT_EQ(PixelOf(walk), this->PixelAt({3, 2}));
    EXPECT_EQ(walk.Bounds(), (TnRect{3, 2, 5, 6}));
    EXPECT_TRUE(walk.AtStart());
    EXPECT_TRUE(walk.AtStartOfLine());
    EXPECT_FALSE(walk.AtEndOfLine());
    EXPECT_FALSE(walk.AtEnd());
}

TYPED_TEST(WalkMaking, BeginClipsToTheContent) {
    const auto walk = this->Begin({-3, -2, 8, 8});
    EXPECT_EQ(PixelOf(walk), this->PixelAt({0, 0}));
    EXPECT_EQ(walk.Bounds(), (TnRect{0, 0, 5, 6}));
}

TYPED_TEST(WalkMaking, WithoutARectangleCoversTheContent) {
    this->surface_.Content({4, 5, 7, 8});
    const auto walk = TypeParam::Begin(this->surface_);
    EXPECT_EQ(PixelOf(walk), this->PixelAt({4, 5}));
    EXPECT_EQ(walk.Bounds(), (TnRect{0, 0, 7, 8}));
    EXPECT_EQ(TypeParam::End(this->surface_).Bounds(), (TnRect{0, 0, 7, 8}));
}

TYPED_TEST(WalkMaking, TakesARectangleInTheFrameOfTheContent) {
    this->surface_.Content({4, 5, 7, 8});
    const auto walk = this->Begin({1, 2, 100, 100});
    EXPECT_EQ(PixelOf(walk), this->PixelAt({5, 7}));
    EXPECT_EQ(walk.Bounds(), (TnRect{1, 2, 6, 6}));
}

TYPED_TEST(WalkMaking, EndStandsNowhere) {
    const auto end = this->End(this->kBounds);
    EXPECT_TRUE(end.AtEnd());
    EXPECT_FALSE(end.AtStart());
    EXPECT_FALSE(end.AtStartOfLine());
    EXPECT_FALSE(end.AtEndOfLine());
    EXPECT_EQ(end.Bounds(), this->kBounds);
}

TYPED_TEST(WalkMaking, EndClipsLikeBegin) {
    auto end = this->End({15, 12, 100, 100});
    EXPECT_EQ(end.Bounds(), (TnRect{15, 12, 5, 4}));
    EXPECT_EQ(PixelOf(--end), this->PixelAt({19, 15}));
}

TYPED_TEST(WalkMaking, EndHasTheLastLine) {
    auto end = this->End(this->kBounds);
    EXPECT_EQ(PixelOf(end.beginLine()), this->InBounds(0, 3));
    EXPECT_EQ(PixelOf(end.endLine()), this->InBounds(2, 3));
}

TYPED_TEST(WalkMaking, EndWasMadeAtTheBottomRightPixel) {
    auto end = this->End(this->kBounds);
    EXPECT_EQ(PixelOf(end.begin()), this->InBounds(2, 3));
    EXPECT_TRUE(end.AtStart());
}

TYPED_TEST(WalkMaking, EndHasItsKindsOutsidePixel) {
    const auto end = this->End(this->kBounds);
    EXPECT_EQ(end[TnPoint{}], TestFixture::Kind::kOutsideWalk);
}

TYPED_TEST(WalkMaking, FromAnIteratorAndARectangleIsTheSurfacesBegin) {
    auto other = this->Begin(this->kBounds);
    ++other;
    const typename TestFixture::Iterator walk(other, TnRect{-1, 4, 6, 5});
    EXPECT_TRUE(walk == this->Begin({-1, 4, 6, 5}));
    EXPECT_EQ(walk.Bounds(), (TnRect{0, 4, 5, 5}));
    EXPECT_TRUE(walk.AtStart());
    EXPECT_TRUE(walk.AtStartOfLine());
}

TYPED_TEST(WalkMaking, CopyStandsWhereTheOtherDoes) {
    auto walk = this->Begin(this->kBounds);
    ++walk;
    const auto copy(walk);
    EXPECT_TRUE(copy == walk);
    EXPECT_EQ(copy.Bounds(), walk.Bounds());
    EXPECT_EQ(PixelOf(copy), this->InBounds(1, 0));
}

TYPED_TEST(WalkMaking, CopyGoesItsOwnWay) {
    auto walk = this->Begin(this->kBounds);
    auto copy(walk);
    ++copy;
    copy.NextLine();
    EXPECT_EQ(PixelOf(walk), this->InBounds(0, 0));
    EXPECT_EQ(PixelOf(copy), this->InBounds(0, 1));
    EXPECT_EQ(PixelOf(walk.begin()), PixelOf(copy.begin()));
    EXPECT_EQ(PixelOf(--walk.end()), PixelOf(--copy.end()));
}

TYPED_TEST(WalkMaking, AssignmentTakesTheWholeWalk) {
    auto walk = this->Begin(this->kBounds);
    walk.NextLine();
    ++walk;
    typename TestFixture::Iterator target = this->Begin({0, 0, 1, 1});
    EXPECT_EQ(&(target = walk), &target);
    EXPECT_TRUE(target == walk);
    EXPECT_EQ(target.Bounds(), this->kBounds);
    EXPECT_EQ(PixelOf(target.beginLine()), this->InBounds(0, 1));
    EXPECT_EQ(PixelOf(target.begin()), this->InBounds(0, 0));
}

TYPED_TEST(WalkMaking, ByDefaultHasNoSurfaceAndNoPixel) {
    typename TestFixture::Iterator walk;
    EXPECT_TRUE(walk.AtEnd());
    EXPECT_EQ(walk.Bounds(), TnRect{});
    EXPECT_TRUE(walk == typename TestFixture::Iterator());
    EXPECT_TRUE(walk == this->End(this->kBounds));
    EXPECT_TRUE(walk != this->Begin(this->kBounds));

    walk = this->Begin(this->kBounds);
    EXPECT_EQ(PixelOf(walk), this->InBounds(0, 0));
}

TYPED_TEST(WalkMaking, FromADefaultOneAndARectangleIsADefaultOne) {
    const typename TestFixture::Iterator walk(typename TestFixture::Iterator(), TnRect{0, 0, 5, 5});
    EXPECT_TRUE(walk.AtEnd());
    EXPECT_EQ(walk.Bounds(), TnRect{});
}

TYPED_TEST(WalkMaking, EqualityComparesThePixelAlone) {
    const auto walk = this->Begin({3, 2, 5, 5});
    EXPECT_TRUE(walk == this->Begin({3, 2, 1, 1}));
    EXPECT_FALSE(walk != this->Begin({3, 2, 1, 1}));
    EXPECT_TRUE(walk != this->Begin({4, 2, 5, 5}));
    EXPECT_TRUE(this->End({3, 2, 5, 5}) == this->End({0, 0, 1, 1}));
}

} // namespace
} // namespace tn::test
