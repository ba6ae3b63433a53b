#include "tests/port/SurfaceKinds.h"

#include "TnGraphics/port/Exceptions.h"
#include "TnGraphics/port/WinBitMapHelper.h"

namespace tn::test {
namespace {

template <class SurfaceType> class SurfaceReInit : public testing::Test {
protected:
    StorageProbe probe_;
};
TYPED_TEST_SUITE(SurfaceReInit, SurfaceKinds);

TYPED_TEST(SurfaceReInit, GivesStorageOfTheNewSize) {
    TypeParam surface({3, 2});
    surface.ReInit({5, 4});
    const auto* storage = dynamic_cast<const WinBitMapHelper*>(surface.Storage());
    ASSERT_NE(storage, nullptr);
    EXPECT_EQ(storage->Size(), (TnPoint{5, 4}));
    EXPECT_EQ(storage->Depth(), KindOf<TypeParam>::kPixelBytes * 8);
    EXPECT_EQ(surface.StorageSize(), (TnPoint{5, 4}));
    EXPECT_EQ(surface.RowBytes(), OwnRowBytes<TypeParam>(5));
}

TYPED_TEST(SurfaceReInit, ShowsAllOfTheNewStorage) {
    TypeParam surface({10, 10});
    surface.Content({2, 2, 3, 3});
    surface.ReInit({5, 4});
    EXPECT_EQ(surface.Content(), (TnRect{0, 0, 5, 4}));
    EXPECT_EQ(surface.Storage()->contentOrigin, TnPoint{});
}

TYPED_TEST(SurfaceReInit, DeletesTheOldStorage) {
    TypeParam surface(NewRecordingStorage<TypeParam>(this->probe_, {3, 2}), {3, 2});
    surface.ReInit({3, 2});
    EXPECT_EQ(this->probe_.destructions, 1);
}

TYPED_TEST(SurfaceReInit, ClearsWhenAsked) {
    TypeParam surface({4, 3});
    Paint(*surface.Storage());
    surface.ReInit({4, 3}, true);
    EXPECT_EQ(BytesOf(*surface.Storage()), std::vector<std::uint8_t>(surface.Storage()->ByteSize(), 0));
}

TYPED_TEST(SurfaceReInit, KeepsTheOutsidePixel) {
    TypeParam surface(nullptr, {0, 0});
    surface.ReInit({3, 2});
    EXPECT_EQ(surface.OutsidePixel(), KindOf<TypeParam>::kOutsideGivenStorage);
}

TYPED_TEST(SurfaceReInit, ToNoSizeDropsTheStorageAndKeepsTheRowBytes) {
    TypeParam surface({3, 2});
    surface.ReInit({0, 0});
    EXPECT_EQ(surface.Storage(), nullptr);
    EXPECT_EQ(surface.StorageSize(), TnPoint{});
    EXPECT_EQ(surface.Content(), TnRect{});
    EXPECT_EQ(surface.RowBytes(), OwnRowBytes<TypeParam>(3));
}

TYPED_TEST(SurfaceReInit, GivesAnEmptySurfaceASize) {
    TypeParam surface;
    surface.ReInit({3, 2});
    ExpectCanBeLocked(surface);
}

TYPED_TEST(SurfaceReInit, ToAnImpossibleSizeLeavesThatSizeAndNoStorage) {
    TypeParam surface(NewRecordingStorage<TypeParam>(this->probe_, {3, 2}), {3, 2});
    EXPECT_THROW(surface.ReInit({-1, 5}), bad_alloc_bitmap);
    EXPECT_EQ(this->probe_.destructions, 1);
    EXPECT_EQ(surface.StorageSize(), (TnPoint{-1, 5}));
    EXPECT_EQ(surface.Content(), (TnRect{0, 0, -1, 5}));
    ExpectCannotBeLocked(surface);
}

TYPED_TEST(SurfaceReInit, MayBeRepeatedAfterAnImpossibleSize) {
    TypeParam surface({3, 2});
    EXPECT_THROW(surface.ReInit({-1, 5}), bad_alloc_bitmap);
    surface.ReInit({5, 4});
    ExpectCanBeLocked(surface);
}

} // namespace
} // namespace tn::test
