#include "tests/port/SurfaceKinds.h"

#include "TnGraphics/port/Exceptions.h"
#include "TnGraphics/port/WinBitMapHelper.h"

#include <limits>

namespace tn::test {
namespace {

template <class SurfaceType> class SurfaceMaking : public testing::Test {
protected:
    using Kind = KindOf<SurfaceType>;
    StorageProbe probe_;
};
TYPED_TEST_SUITE(SurfaceMaking, SurfaceKinds);

TYPED_TEST(SurfaceMaking, DefaultIsEmptyAndUnlocked) {
    const TypeParam surface;
    EXPECT_EQ(surface.StorageSize(), TnPoint{});
    EXPECT_EQ(surface.Content(), TnRect{});
    EXPECT_EQ(surface.Storage(), nullptr);
    EXPECT_EQ(surface.RowBytes(), 0U);
    EXPECT_EQ(surface.Clients(), 0U);
    EXPECT_EQ(surface.PixelBase(), nullptr);
    EXPECT_EQ(surface.OutsidePixel(), TestFixture::Kind::kOutsideOwnStorage);
}

TYPED_TEST(SurfaceMaking, SizedSurfaceHasStorageOfItsDepth) {
    const TypeParam surface({3, 2});
    const auto* storage = dynamic_cast<const WinBitMapHelper*>(surface.Storage());
    ASSERT_NE(storage, nullptr);
    EXPECT_EQ(storage->Depth(), TestFixture::Kind::kPixelBytes * 8);
    EXPECT_EQ(storage->Size(), (TnPoint{3, 2}));
    EXPECT_EQ(surface.RowBytes(), OwnRowBytes<TypeParam>(3));
}

TYPED_TEST(SurfaceMaking, SizedSurfaceShowsAllOfItsStorage) {
    const TypeParam surface({3, 2});
    EXPECT_EQ(surface.StorageSize(), (TnPoint{3, 2}));
    EXPECT_EQ(surface.Content(), (TnRect{0, 0, 3, 2}));
    EXPECT_EQ(surface.Size(), (TnPoint{3, 2}));
    EXPECT_EQ(surface.Bounds(), (TnRect{0, 0, 3, 2}));
}

TYPED_TEST(SurfaceMaking, SizedSurfaceIsUnlocked) {
    const TypeParam surface({3, 2});
    EXPECT_EQ(surface.Clients(), 0U);
    EXPECT_EQ(surface.PixelBase(), nullptr);
    EXPECT_EQ(surface.OutsidePixel(), TestFixture::Kind::kOutsideOwnStorage);
}

TYPED_TEST(SurfaceMaking, ClearSetsEveryPixelToZero) {
    { Paint(*TypeParam({4, 3}).Storage()); } // most likely the next block of this size
    const TypeParam surface({4, 3}, true);
    EXPECT_EQ(BytesOf(*surface.Storage()), std::vector<std::uint8_t>(surface.Storage()->ByteSize(), 0));
}

TYPED_TEST(SurfaceMaking, OneSideAloneOfZeroStillGetsStorage) {
    const TypeParam narrow({0, 5});
    ASSERT_NE(narrow.Storage(), nullptr);
    EXPECT_EQ(narrow.RowBytes(), 8U);
    EXPECT_EQ(narrow.Storage()->ByteSize(), 40U);

    const TypeParam flat({5, 0});
    ASSERT_NE(flat.Storage(), nullptr);
    EXPECT_EQ(flat.RowBytes(), OwnRowBytes<TypeParam>(5));
    EXPECT_EQ(flat.Storage()->ByteSize(), 0U);
}

TYPED_TEST(SurfaceMaking, ImpossibleSizesAreExhaustedMemory) {
    constexpr std::int32_t largest = std::numeric_limits<std::int32_t>::max();
    for (const TnPoint size : {TnPoint{-1, 5}, {5, -1}, {-5, -5}, {0, -1}, {largest, largest}, {0, 536870912}}) {
        EXPECT_THROW(TypeParam surface(size), bad_alloc_bitmap) << size.x << " x " << size.y;
    }
}

TYPED_TEST(SurfaceMaking, GivenStorageIsTakenOverAsItIs) {
    RecordingStorage* storage = new RecordingStorage(this->probe_, 40, 2);
    const TypeParam surface(storage, {3, 2});
    EXPECT_EQ(surface.Storage(), storage);
    EXPECT_EQ(surface.RowBytes(), 40U);
    EXPECT_EQ(surface.StorageSize(), (TnPoint{3, 2}));
    EXPECT_EQ(surface.Content(), (TnRect{0, 0, 3, 2}));
    EXPECT_EQ(surface.OutsidePixel(), TestFixture::Kind::kOutsideGivenStorage);
}

TYPED_TEST(SurfaceMaking, GivenStorageIsNotLockedYet) {
    const TypeParam surface(new RecordingStorage(this->probe_, 40, 2), {3, 2});
    EXPECT_EQ(surface.Clients(), 0U);
    EXPECT_EQ(surface.PixelBase(), nullptr);
    EXPECT_EQ(this->probe_.locks, 0);
    EXPECT_EQ(this->probe_.baseAddrs, 0);
}

TYPED_TEST(SurfaceMaking, GivenStorageIsDeletedWithTheSurface) {
    {
        const TypeParam surface(new RecordingStorage(this->probe_, 40, 2), {3, 2});
        EXPECT_EQ(this->probe_.destructions, 0);
    }
    EXPECT_EQ(this->probe_.destructions, 1);
}

TYPED_TEST(SurfaceMaking, GivenStorageBehindNoSizeIsKeptAndDeleted) {
    {
        const TypeParam surface(new RecordingStorage(this->probe_, 40, 2), {0, 0});
        EXPECT_NE(surface.Storage(), nullptr);
        EXPECT_EQ(surface.RowBytes(), 40U);
    }
    EXPECT_EQ(this->probe_.destructions, 1);
}

TYPED_TEST(SurfaceMaking, GivenNoStorageItHasASizeAlone) {
    const TypeParam surface(nullptr, {3, 2});
    EXPECT_EQ(surface.Storage(), nullptr);
    EXPECT_EQ(surface.RowBytes(), 0U);
    EXPECT_EQ(surface.StorageSize(), (TnPoint{3, 2}));
    EXPECT_EQ(surface.Content(), (TnRect{0, 0, 3, 2}));
    EXPECT_EQ(surface.OutsidePixel(), TestFixture::Kind::kOutsideGivenStorage);
}

// Storage that fails while a surface takes it over.
class TonguelessStorage : public RecordingStorage {
public:
    explicit TonguelessStorage(StorageProbe& probe) : RecordingStorage(probe, 40, 2) {}
    std::uint32_t RowBytes() const override { throw StorageFault(); }
};

TYPED_TEST(SurfaceMaking, GivenStorageThatFailsIsDeletedAllTheSame) {
    EXPECT_THROW(TypeParam(new TonguelessStorage(this->probe_), {3, 2}), StorageFault);
    EXPECT_EQ(this->probe_.destructions, 1);
}

} // namespace
} // namespace tn::test
