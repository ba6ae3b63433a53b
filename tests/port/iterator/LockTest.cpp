#include "tests/port/WalkKinds.h"

#include <memory>

namespace tn::test {
namespace {

template <class Walk> class WalkLock : public testing::Test {
protected:
    using Surface = typename Walk::Surface;
    using Iterator = typename Walk::Iterator;

    StorageProbe probe_;
    StorageProbe otherProbe_;
    const Surface surface_{NewRecordingStorage<Surface>(probe_, {5, 4}), {5, 4}};
    const Surface other_{NewRecordingStorage<Surface>(otherProbe_, {5, 4}), {5, 4}};
};
TYPED_TEST_SUITE(WalkLock, WalkKinds);

TYPED_TEST(WalkLock, IsHeldForTheIteratorsWholeLife) {
    {
        const auto walk = TypeParam::Begin(this->surface_);
        EXPECT_EQ(this->surface_.Clients(), 1U);
        EXPECT_EQ(this->probe_.locks, 1);
        EXPECT_EQ(this->probe_.unlocks, 0);
    }
    EXPECT_EQ(this->surface_.Clients(), 0U);
    EXPECT_EQ(this->probe_.unlocks, 1);
}

TYPED_TEST(WalkLock, IsOneForAnEndToo) {
    {
        const auto end = TypeParam::End(this->surface_, {1, 1, 2, 2});
        EXPECT_EQ(this->surface_.Clients(), 1U);
    }
    EXPECT_EQ(this->surface_.Clients(), 0U);
}

TYPED_TEST(WalkLock, IsSharedByNoTwoIterators) {
    const auto begin = TypeParam::Begin(this->surface_);
    const auto end = TypeParam::End(this->surface_);
    EXPECT_EQ(this->surface_.Clients(), 2U);
    const auto copy(begin);
    EXPECT_EQ(this->surface_.Clients(), 3U);
    const auto moved = begin + TnPoint{1, 1};
    EXPECT_EQ(this->surface_.Clients(), 4U);
    const auto movedBack = begin - TnPoint{1, 0};
    EXPECT_EQ(this->surface_.Clients(), 5U);
    const typename TestFixture::Iterator remade(begin, TnRect{0, 0, 1, 1});
    EXPECT_EQ(this->surface_.Clients(), 6U);
    EXPECT_EQ(this->probe_.locks, 1);
}

TYPED_TEST(WalkLock, IsReleasedByEveryCopy) {
    {
        auto walk = TypeParam::Begin(this->surface_);
        { const auto copy(walk); }
        { const auto moved = walk + TnPoint{1, 1}; }
        walk++;
        EXPECT_EQ(this->surface_.Clients(), 1U);
    }
    EXPECT_EQ(this->surface_.Clients(), 0U);
    EXPECT_EQ(this->probe_.unlocks, 1);
}

TYPED_TEST(WalkLock, IsNoneByDefault) {
    {
        typename TestFixture::Iterator walk;
        const typename TestFixture::Iterator copy(walk);
        walk = copy;
    }
    EXPECT_EQ(this->surface_.Clients(), 0U);
}

TYPED_TEST(WalkLock, MovesToTheAssignedSurface) {
    auto walk = TypeParam::Begin(this->surface_);
    {
        const auto otherWalk = TypeParam::Begin(this->other_);
        walk = otherWalk;
        EXPECT_EQ(this->other_.Clients(), 2U);
    }
    EXPECT_EQ(this->surface_.Clients(), 0U);
    EXPECT_EQ(this->probe_.unlocks, 1);
    EXPECT_EQ(this->other_.Clients(), 1U);
    EXPECT_EQ(this->otherProbe_.unlocks, 0);
}

TYPED_TEST(WalkLock, StaysWithOneSurfaceThroughAssignments) {
    auto walk = TypeParam::Begin(this->surface_);
    walk = TypeParam::End(this->surface_);
    walk = TypeParam::Begin(this->surface_, {1, 1, 2, 2});
    EXPECT_EQ(this->surface_.Clients(), 1U);
    EXPECT_EQ(this->probe_.locks, 1);
    EXPECT_EQ(this->probe_.unlocks, 0);
}

TYPED_TEST(WalkLock, StaysThroughSelfAssignment) {
    auto walk = TypeParam::Begin(this->surface_);
    const auto& same = walk;
    walk = same;
    EXPECT_EQ(this->surface_.Clients(), 1U);
    EXPECT_EQ(PixelOf(walk), this->surface_.PixelBase());
    EXPECT_EQ(this->probe_.unlocks, 0);
}

TYPED_TEST(WalkLock, IsTakenAndGivenUpByAssignmentToAndFromADefaultIterator) {
    typename TestFixture::Iterator walk;
    walk = TypeParam::Begin(this->surface_);
    EXPECT_EQ(this->surface_.Clients(), 1U);
    walk = typename TestFixture::Iterator();
    EXPECT_EQ(this->surface_.Clients(), 0U);
    EXPECT_EQ(this->probe_.unlocks, 1);
}

TYPED_TEST(WalkLock, KeepsThePixelBaseWhileAnyIteratorLives) {
    auto first = std::make_unique<typename TestFixture::Iterator>(TypeParam::Begin(this->surface_));
    const auto second = TypeParam::End(this->surface_);
    const void* pixelBase = this->surface_.PixelBase();
    first.reset();
    EXPECT_EQ(this->surface_.PixelBase(), pixelBase);
    EXPECT_TRUE(this->probe_.IsLocked());
}

} // namespace
} // namespace tn::test
