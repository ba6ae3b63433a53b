#include "tests/port/SurfaceKinds.h"
#include "tests/support/AllocationFailure.h"

#include "TnGraphics/port/WinBitMapHelper.h"

#include <typeinfo>

namespace tn::test {
namespace {

template <class SurfaceType> class SurfaceCopy : public testing::Test {};
TYPED_TEST_SUITE(SurfaceCopy, SurfaceKinds);

TYPED_TEST(SurfaceCopy, HasThePixelsInABlockOfItsOwn) {
    const TypeParam source({4, 3});
    Paint(*source.Storage());
    const std::vector<std::uint8_t> painted = BytesOf(*source.Storage());
    const TypeParam copy(source);
    EXPECT_NE(copy.Storage(), source.Storage());
    EXPECT_NE(copy.Storage()->BaseAddr(), source.Storage()->BaseAddr());
    EXPECT_EQ(BytesOf(*copy.Storage()), painted);
}

TYPED_TEST(SurfaceCopy, HasTheSizeContentAndRowBytes) {
    TypeParam source({10, 9});
    source.Content({2, 3, 4, 5});
    const TypeParam copy(source);
    EXPECT_EQ(copy.StorageSize(), (TnPoint{10, 9}));
    EXPECT_EQ(copy.Content(), (TnRect{2, 3, 4, 5}));
    EXPECT_EQ(copy.RowBytes(), OwnRowBytes<TypeParam>(10));
}

TYPED_TEST(SurfaceCopy, StandsOnItsOwnContentCornerWhenLocked) {
    TypeParam source({10, 9});
    source.Content({2, 3, 4, 5});
    const TypeParam copy(source);
    copy.AddClient();
    EXPECT_EQ(copy.PixelBase(), AddressIn(*copy.Storage(), 3 * copy.RowBytes() + 2 * KindOf<TypeParam>::kPixelBytes));
    copy.RemoveClient();
}

TYPED_TEST(SurfaceCopy, StartsTheContentOriginOfItsStorageAtZero) {
    TypeParam source({10, 9});
    source.Content({2, 3, 4, 5});
    EXPECT_EQ(TypeParam(source).Storage()->contentOrigin, TnPoint{});
}

TYPED_TEST(SurfaceCopy, OfALockedSurfaceIsUnlocked) {
    const TypeParam source({4, 3});
    source.AddClient();
    const TypeParam copy(source);
    EXPECT_EQ(copy.Clients(), 0U);
    EXPECT_EQ(copy.PixelBase(), nullptr);
    EXPECT_EQ(source.Clients(), 1U);
    source.RemoveClient();
}

TYPED_TEST(SurfaceCopy, OfAnEmptySurfaceIsEmpty) {
    const TypeParam source;
    const TypeParam copy(source);
    EXPECT_EQ(copy.Storage(), nullptr);
    EXPECT_EQ(copy.RowBytes(), 0U);
    EXPECT_EQ(copy.StorageSize(), TnPoint{});
}

TYPED_TEST(SurfaceCopy, OfNoSizeLeavesGivenStorageAlone) {
    StorageProbe probe;
    const TypeParam source(new RecordingStorage(probe, 40, 2), {0, 0});
    const TypeParam copy(source);
    EXPECT_EQ(copy.Storage(), nullptr);
}

TYPED_TEST(SurfaceCopy, OfOneSideOfZeroHasStorage) {
    const TypeParam source({0, 5});
    const TypeParam copy(source);
    ASSERT_NE(copy.Storage(), nullptr);
    EXPECT_EQ(copy.RowBytes(), 8U);
    EXPECT_EQ(copy.Storage()->ByteSize(), 40U);
}

TYPED_TEST(SurfaceCopy, OfASizedSurfaceWithoutStorageHasNone) {
    const TypeParam source(nullptr, {3, 2});
    const TypeParam copy(source);
    EXPECT_EQ(copy.StorageSize(), (TnPoint{3, 2}));
    EXPECT_EQ(copy.RowBytes(), 0U);
    ExpectCannotBeLocked(copy);
}

TYPED_TEST(SurfaceCopy, OfStorageOfACallersOwnKindIsRefused) {
    StorageProbe probe;
    const TypeParam source(NewRecordingStorage<TypeParam>(probe, {3, 2}), {3, 2});
    const std::int64_t before = LiveAllocations();
    EXPECT_THROW(TypeParam copy(source), std::bad_cast);
    EXPECT_EQ(LiveAllocations(), before);
    EXPECT_EQ(probe.destructions, 0);
}

TYPED_TEST(SurfaceCopy, OfGivenStorageOfTheLibrarysKindIsDeep) {
    auto* storage = new WinBitMapHelper({4, 3}, KindOf<TypeParam>::kPixelBytes * 8, false);
    Paint(*storage);
    const TypeParam source(storage, {4, 3});
    const TypeParam copy(source);
    EXPECT_NE(copy.Storage(), storage);
    EXPECT_EQ(BytesOf(*copy.Storage()), BytesOf(*storage));
}

} // namespace
} // namespace tn::test
