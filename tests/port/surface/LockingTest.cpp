#include "tests/port/SurfaceKinds.h"

namespace tn::test {
namespace {

template <class SurfaceType> class SurfaceLocking : public testing::Test {
protected:
    StorageProbe probe_;
    const SurfaceType surface_{NewRecordingStorage<SurfaceType>(probe_, {3, 2}), {3, 2}};
};
TYPED_TEST_SUITE(SurfaceLocking, SurfaceKinds);

TYPED_TEST(SurfaceLocking, FirstClientLocksTheStorageAndAsksForItsAddress) {
    this->surface_.AddClient();
    EXPECT_EQ(this->surface_.Clients(), 1U);
    EXPECT_EQ(this->probe_.locks, 1);
    EXPECT_EQ(this->probe_.baseAddrs, 1);
    EXPECT_EQ(this->surface_.PixelBase(), this->surface_.Storage()->BaseAddr());
    this->surface_.RemoveClient();
}

TYPED_TEST(SurfaceLocking, LastClientUnlocksTheStorageAndForgetsTheAddress) {
    this->surface_.AddClient();
    this->surface_.RemoveClient();
    EXPECT_EQ(this->surface_.Clients(), 0U);
    EXPECT_EQ(this->probe_.unlocks, 1);
    EXPECT_EQ(this->surface_.PixelBase(), nullptr);
}

TYPED_TEST(SurfaceLocking, ClientsBetweenAreCountedAlone) {
    this->surface_.AddClient();
    this->surface_.AddClient();
    this->surface_.AddClient();
    EXPECT_EQ(this->surface_.Clients(), 3U);
    this->surface_.RemoveClient();
    this->surface_.RemoveClient();
    EXPECT_EQ(this->surface_.Clients(), 1U);
    EXPECT_EQ(this->probe_.locks, 1);
    EXPECT_EQ(this->probe_.baseAddrs, 1);
    EXPECT_EQ(this->probe_.unlocks, 0);
    EXPECT_NE(this->surface_.PixelBase(), nullptr);
    this->surface_.RemoveClient();
    EXPECT_EQ(this->probe_.unlocks, 1);
}

TYPED_TEST(SurfaceLocking, MayBeLockedAgain) {
    for (int round = 1; round <= 3; ++round) {
        ExpectCanBeLocked(this->surface_);
        EXPECT_EQ(this->probe_.locks, round);
        EXPECT_EQ(this->probe_.unlocks, round);
    }
}

TYPED_TEST(SurfaceLocking, NeverRefreshesTheStorage) {
    ExpectCanBeLocked(this->surface_);
    EXPECT_EQ(this->probe_.refreshes, 0);
}

TYPED_TEST(SurfaceLocking, StorageThatCannotBeLockedLeavesNoClient) {
    this->probe_.throwAtLock = true;
    EXPECT_THROW(this->surface_.AddClient(), StorageFault);
    EXPECT_EQ(this->surface_.Clients(), 0U);
    EXPECT_EQ(this->surface_.PixelBase(), nullptr);
    EXPECT_EQ(this->probe_.baseAddrs, 0);
    EXPECT_EQ(this->probe_.unlocks, 0);

    this->probe_.throwAtLock = false;
    ExpectCanBeLocked(this->surface_);
}

TYPED_TEST(SurfaceLocking, StorageWithoutAnAddressToTellIsUnlockedAgain) {
    this->probe_.throwAtBaseAddr = true;
    EXPECT_THROW(this->surface_.AddClient(), StorageFault);
    EXPECT_EQ(this->surface_.Clients(), 0U);
    EXPECT_EQ(this->surface_.PixelBase(), nullptr);
    EXPECT_EQ(this->probe_.locks, 1);
    EXPECT_EQ(this->probe_.unlocks, 1);

    this->probe_.throwAtBaseAddr = false;
    ExpectCanBeLocked(this->surface_);
}

TYPED_TEST(SurfaceLocking, WalkOverStorageThatCannotBeLockedLeavesNoClient) {
    this->probe_.throwAtLock = true;
    EXPECT_THROW(this->surface_.begin(), StorageFault);
    EXPECT_THROW(this->surface_.endVertical(), StorageFault);
    EXPECT_EQ(this->surface_.Clients(), 0U);
}

TYPED_TEST(SurfaceLocking, WalkOverStorageWithoutAnAddressToTellLeavesTheOtherClients) {
    this->surface_.AddClient();
    this->probe_.throwAtBaseAddr = true;
    try {
        this->surface_.begin();
    } catch (const StorageFault&) {
    }
    EXPECT_EQ(this->surface_.Clients(), 1U);
    this->surface_.RemoveClient();
    EXPECT_FALSE(this->probe_.IsLocked());
}

TYPED_TEST(SurfaceLocking, SizedSurfaceWithoutStorageCannotBeLocked) {
    const TypeParam surface(nullptr, {3, 2});
    ExpectCannotBeLocked(surface);
    ExpectCannotBeLocked(surface);
    EXPECT_THROW(surface.begin(), std::bad_alloc);
    EXPECT_THROW(surface.beginVertical(), std::bad_alloc);
    EXPECT_EQ(surface.Clients(), 0U);
}

TYPED_TEST(SurfaceLocking, EmptySurfaceIsCountedWithoutStorage) {
    const TypeParam surface;
    surface.AddClient();
    EXPECT_EQ(surface.Clients(), 1U);
    EXPECT_EQ(surface.PixelBase(), nullptr);
    surface.RemoveClient();
    EXPECT_EQ(surface.Clients(), 0U);
}

TYPED_TEST(SurfaceLocking, NoSizeLeavesGivenStorageAlone) {
    StorageProbe probe;
    const TypeParam surface(new RecordingStorage(probe, 40, 2), {0, 0});
    surface.AddClient();
    EXPECT_EQ(surface.PixelBase(), nullptr);
    surface.RemoveClient();
    EXPECT_EQ(probe.locks + probe.unlocks + probe.baseAddrs, 0);
}

TYPED_TEST(SurfaceLocking, OneSideOfZeroLocksItsStorage) {
    StorageProbe probe;
    const TypeParam surface(new RecordingStorage(probe, 8, 5), {0, 5});
    surface.AddClient();
    EXPECT_EQ(surface.PixelBase(), surface.Storage()->BaseAddr());
    surface.RemoveClient();
    EXPECT_EQ(probe.locks, 1);
    EXPECT_EQ(probe.unlocks, 1);
}

} // namespace
} // namespace tn::test
