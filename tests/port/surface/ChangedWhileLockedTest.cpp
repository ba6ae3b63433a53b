#include "tests/port/SurfaceKinds.h"
#include "tests/support/AssertionRecorder.h"

#include "TnGraphics/port/Assertion.h"

#include <limits>

namespace tn::test {
namespace {

// Reports of debug builds; release builds are silent.
constexpr std::size_t InDebug(std::size_t reports) { return kDebugBuild ? reports : 0; }

template <class SurfaceType> class SurfaceChangedWhileLocked : public testing::Test {
protected:
    static constexpr TnRect kAll = {0, 0, 10, 10};
    static constexpr TnRect kBottomRightQuarter = {5, 5, 5, 5};

    // A locked surface whose pixel base stands in the middle of a block that it shows all of.
    void ShowAllFromTheMiddle() {
        surface_.Content(kBottomRightQuarter);
        surface_.AddClient();
        surface_.Content(kAll);
    }

    SurfaceType surface_{{10, 10}};
    AssertionRecorder recorder_;
};
TYPED_TEST_SUITE(SurfaceChangedWhileLocked, SurfaceKinds);

template <class SurfaceType> void ExpectEveryWalkIsAtItsEnd(const SurfaceType& surface) {
    EXPECT_TRUE(surface.begin().AtEnd());
    EXPECT_TRUE(surface.begin({1, 1, 1, 1}).AtEnd());
    EXPECT_TRUE(surface.beginVertical().AtEnd());
    EXPECT_TRUE(surface.end().AtEnd());
    EXPECT_TRUE(surface.endVertical().AtEnd());
}

TYPED_TEST(SurfaceChangedWhileLocked, ReInitLeavesNoPixelBaseUntilTheNextFirstLock) {
    this->surface_.AddClient();
    this->surface_.ReInit({4, 4});
    EXPECT_EQ(this->surface_.Clients(), 1U);
    EXPECT_EQ(this->surface_.PixelBase(), nullptr);
    ExpectEveryWalkIsAtItsEnd(this->surface_);
    this->surface_.RemoveClient();

    ExpectCanBeLocked(this->surface_);
    EXPECT_FALSE(this->surface_.begin().AtEnd());
}

TYPED_TEST(SurfaceChangedWhileLocked, AssignmentLeavesNoPixelBaseUntilTheNextFirstLock) {
    this->surface_.AddClient();
    this->surface_ = TypeParam({4, 4});
    EXPECT_EQ(this->surface_.Clients(), 1U);
    EXPECT_EQ(this->surface_.PixelBase(), nullptr);
    ExpectEveryWalkIsAtItsEnd(this->surface_);
    this->surface_.RemoveClient();

    ExpectCanBeLocked(this->surface_);
    EXPECT_FALSE(this->surface_.begin().AtEnd());
}

TYPED_TEST(SurfaceChangedWhileLocked, ReInitToNoSizeUnlocksNothing) {
    this->surface_.AddClient();
    this->surface_.ReInit({0, 0});
    ExpectEveryWalkIsAtItsEnd(this->surface_);
    this->surface_.RemoveClient();
    EXPECT_EQ(this->surface_.Clients(), 0U);
}

TYPED_TEST(SurfaceChangedWhileLocked, ContentKeepsWalksFromThePixelBaseInsideTheBlock) {
    this->ShowAllFromTheMiddle();
    const auto walk = this->surface_.begin({0, 0, 5, 5});
    EXPECT_EQ(&*walk, this->surface_.PixelBase());
    EXPECT_EQ(walk.Bounds(), (TnRect{0, 0, 5, 5}));
    EXPECT_EQ(&*this->surface_.beginVertical({0, 0, 5, 5}), this->surface_.PixelBase());
    this->surface_.RemoveClient();
    EXPECT_TRUE(this->recorder_.Reports().empty());
}

TYPED_TEST(SurfaceChangedWhileLocked, ContentEmptiesWalksThatWouldLeaveTheBlock) {
    this->ShowAllFromTheMiddle();
    EXPECT_TRUE(this->surface_.begin().AtEnd());
    EXPECT_TRUE(this->surface_.begin({0, 0, 1, 6}).AtEnd());
    EXPECT_TRUE(this->surface_.beginVertical().AtEnd());
    EXPECT_TRUE(this->surface_.beginVertical({0, 5, 1, 1}).AtEnd());
    this->surface_.RemoveClient();
    EXPECT_EQ(this->recorder_.Reports().size(), InDebug(4));
}

TYPED_TEST(SurfaceChangedWhileLocked, ContentEmptiesWalksOnePixelPastTheBlock) {
    // Of the bottom row the base has five pixels and the spare bytes before it.
    const std::int32_t insideBlock = 5 + static_cast<std::int32_t>(8 / KindOf<TypeParam>::kPixelBytes);
    this->surface_.ReInit({30, 10});
    this->surface_.Content({25, 5, 5, 5});
    this->surface_.AddClient();
    this->surface_.Content({0, 0, 30, 10});
    EXPECT_FALSE(this->surface_.begin({0, 4, insideBlock, 1}).AtEnd());
    EXPECT_TRUE(this->surface_.begin({0, 4, insideBlock + 1, 1}).AtEnd());
    this->surface_.RemoveClient();
    EXPECT_EQ(this->recorder_.Reports().size(), InDebug(1));
}

TYPED_TEST(SurfaceChangedWhileLocked, ContentLetsEveryWalkStartAfterTheNextFirstLock) {
    this->ShowAllFromTheMiddle();
    this->surface_.RemoveClient();
    const auto walk = this->surface_.begin();
    EXPECT_EQ(walk.Bounds(), (TnRect{0, 0, 10, 10}));
    EXPECT_EQ(&*walk, this->surface_.Storage()->BaseAddr());
}

TYPED_TEST(SurfaceChangedWhileLocked, UnbalancedUnlockWrapsTheCount) {
    this->surface_.RemoveClient();
    EXPECT_EQ(this->surface_.Clients(), std::numeric_limits<std::uint32_t>::max());
    EXPECT_EQ(this->recorder_.Reports().size(), InDebug(1));
}

TYPED_TEST(SurfaceChangedWhileLocked, UnbalancedUnlockTellsTheStorageNothing) {
    StorageProbe probe;
    const TypeParam surface(NewRecordingStorage<TypeParam>(probe, {3, 2}), {3, 2});
    surface.RemoveClient();
    EXPECT_EQ(probe.unlocks, 0);
}

TYPED_TEST(SurfaceChangedWhileLocked, UnbalancedUnlockLeavesWalksWithoutPixels) {
    this->surface_.RemoveClient();
    ExpectEveryWalkIsAtItsEnd(this->surface_);
}

TYPED_TEST(SurfaceChangedWhileLocked, UnbalancedUnlockIsMadeUpForByALock) {
    this->surface_.RemoveClient();
    this->surface_.AddClient();
    EXPECT_EQ(this->surface_.Clients(), 0U);
    ExpectCanBeLocked(this->surface_);
}

} // namespace
} // namespace tn::test
