#include "tests/port/WalkKinds.h"

namespace tn::test {
namespace {

constexpr TnRect kOutside = {100, 100, 5, 5};

template <class Walk> class EmptyWalk : public WalkTest<Walk> {
protected:
    // The surface's walks over everything and over a rectangle that it does not have.
    static void ExpectNowhere(const typename Walk::Surface& surface) {
        EXPECT_TRUE(Walk::Begin(surface).AtEnd());
        EXPECT_TRUE(Walk::Begin(surface, kOutside).AtEnd());
        EXPECT_TRUE(Walk::Begin(surface) == Walk::End(surface));
        EXPECT_EQ(surface.Clients(), 0U);
    }
};
TYPED_TEST_SUITE(EmptyWalk, WalkKinds);

template <class SurfaceType> class EmptyHorizontalWalk : public WalkTest<ByRows<SurfaceType>> {};
TYPED_TEST_SUITE(EmptyHorizontalWalk, SurfaceKinds);

template <class SurfaceType> class EmptyVerticalWalk : public WalkTest<ByColumns<SurfaceType>> {};
TYPED_TEST_SUITE(EmptyVerticalWalk, SurfaceKinds);

TYPED_TEST(EmptyWalk, HasNoBounds) {
    EXPECT_EQ(this->Begin(kOutside).Bounds(), TnRect{});
    EXPECT_EQ(this->End(kOutside).Bounds(), TnRect{});
    EXPECT_EQ(this->Begin({3, 3, 0, 5}).Bounds(), TnRect{});
    EXPECT_EQ(this->Begin({3, 3, 5, -5}).Bounds(), TnRect{});
}

TYPED_TEST(EmptyWalk, EndStandsNowhere) { EXPECT_TRUE(this->End(kOutside).AtEnd()); }

TYPED_TEST(EmptyWalk, LocksLikeAnyOther) {
    {
        const auto walk = this->Begin(kOutside);
        EXPECT_EQ(this->surface_.Clients(), 1U);
    }
    EXPECT_EQ(this->surface_.Clients(), 0U);
}

TYPED_TEST(EmptyWalk, OwnBeginAndEndLeadNowhere) {
    auto walk = this->Begin(kOutside);
    EXPECT_TRUE(walk.begin().AtEnd());
    EXPECT_TRUE(walk.beginLine().AtEnd());
    EXPECT_TRUE(walk.endLine().AtEnd());
    walk = this->Begin(kOutside);
    EXPECT_TRUE(walk.end().AtEnd());
    EXPECT_TRUE(walk.beginLine().AtEnd());
    EXPECT_TRUE((--walk).AtEnd());
}

TYPED_TEST(EmptyWalk, HasOutsideNeighborsOnly) {
    const auto walk = this->Begin(kOutside).begin();
    EXPECT_EQ(walk[TnPoint{}], TestFixture::Kind::kOutsideWalk);
    EXPECT_EQ((walk[TnPoint{1, 1}]), TestFixture::Kind::kOutsideWalk);
}

TYPED_TEST(EmptyWalk, OfAnEmptySurfaceStandsNowhere) { this->ExpectNowhere(typename TestFixture::Surface()); }

TYPED_TEST(EmptyWalk, OfNoSizeOverGivenStorageStandsNowhere) {
    StorageProbe probe;
    this->ExpectNowhere(typename TestFixture::Surface(new RecordingStorage(probe, 40, 2), {0, 0}));
    EXPECT_EQ(probe.locks, 0);
}

// Storage that never tells an address.
class LostStorage : public TnBitMapHelper {
public:
    void* BaseAddr() const override { return nullptr; }
    std::uint32_t RowBytes() const override { return 40; }
    std::uint32_t ByteSize() const override { return 80; }
    bool Contains(const void*) const override { return false; }
    void Refresh() override {}
};

TYPED_TEST(EmptyWalk, OverStorageWithoutAnAddressStandsNowhere) {
    this->ExpectNowhere(typename TestFixture::Surface(new LostStorage, {3, 2}));
}

TYPED_TEST(EmptyHorizontalWalk, BeginIsTheEnd) {
    EXPECT_TRUE(this->Begin(kOutside).AtEnd());
    EXPECT_TRUE(this->Begin(kOutside) == this->End(kOutside));
    EXPECT_TRUE(this->Begin({3, 3, 0, 5}) == this->End({3, 3, 0, 5}));
}

TYPED_TEST(EmptyHorizontalWalk, BodyNeverRuns) {
    const auto end = this->End(kOutside);
    for (auto walk = this->Begin(kOutside); walk != end; ++walk) {
        FAIL();
    }
}

TYPED_TEST(EmptyHorizontalWalk, IsThatOfASurfaceWithOneSideOfZero) {
    EXPECT_TRUE(TypeParam({0, 5}).begin().AtEnd());
    EXPECT_TRUE(TypeParam({5, 0}).begin().AtEnd());
}

TYPED_TEST(EmptyHorizontalWalk, IsThatOfANegativeSizeOverGivenStorage) {
    StorageProbe probe;
    const TypeParam surface(new RecordingStorage(probe, 40, 2), {3, -2});
    EXPECT_TRUE(surface.begin().AtEnd());
    EXPECT_TRUE(surface.begin() == surface.end());
}

TYPED_TEST(EmptyVerticalWalk, StandsOnTheContentOrigin) {
    const auto walk = this->Begin(kOutside);
    EXPECT_FALSE(walk.AtEnd());
    EXPECT_EQ(PixelOf(walk), this->PixelAt({0, 0}));
    EXPECT_EQ(walk.Position(), TnPoint{});
    EXPECT_TRUE(walk != this->End(kOutside));
}

TYPED_TEST(EmptyVerticalWalk, StandsOnTheOriginOfTheContentNotOfTheStorage) {
    this->surface_.Content({4, 5, 7, 8});
    EXPECT_EQ(PixelOf(this->Begin(kOutside)), this->PixelAt({4, 5}));
    this->surface_.Content(kOutside);
    EXPECT_EQ(PixelOf(this->surface_.beginVertical()), this->PixelAt({0, 0}));
}

TYPED_TEST(EmptyVerticalWalk, StandsAtTheStartOfALineThatEndsBeforeIt) {
    const auto walk = this->Begin(kOutside);
    EXPECT_TRUE(walk.AtStart());
    EXPECT_TRUE(walk.AtStartOfLine());
    EXPECT_FALSE(walk.AtEndOfLine());
}

TYPED_TEST(EmptyVerticalWalk, OfOneSideOfZeroStandsAtTheStorage) {
    for (const TnPoint size : {TnPoint{0, 5}, {5, 0}}) {
        const TypeParam surface(size);
        const auto walk = surface.beginVertical();
        EXPECT_FALSE(walk.AtEnd());
        EXPECT_EQ(walk.Position(), TnPoint{});
    }
}

} // namespace
} // namespace tn::test
