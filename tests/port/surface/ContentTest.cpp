#include "tests/port/SurfaceKinds.h"

namespace tn::test {
namespace {

template <class SurfaceType> class SurfaceContent : public testing::Test {
protected:
    static constexpr TnRect kCorner = {2, 2, 100, 100};

    SurfaceType surface_{{10, 10}};
};
TYPED_TEST_SUITE(SurfaceContent, SurfaceKinds);

template <class SurfaceType> void ExpectContentIsRefused(SurfaceType& surface) {
    const TnRect before = surface.Content();
    try {
        surface.Content({1, 1, 1, 1});
        ADD_FAILURE() << "taken";
    } catch (const std::bad_alloc& exception) {
        EXPECT_STREQ(exception.what(), "bad allocation");
    }
    EXPECT_EQ(surface.Content(), before);
}

TYPED_TEST(SurfaceContent, IsClippedToTheStorage) {
    this->surface_.Content(this->kCorner);
    EXPECT_EQ(this->surface_.Content(), (TnRect{2, 2, 8, 8}));
    this->surface_.Content({-3, -4, 5, 6});
    EXPECT_EQ(this->surface_.Content(), (TnRect{0, 0, 2, 2}));
}

TYPED_TEST(SurfaceContent, OutsideTheStorageIsAllZero) {
    this->surface_.Content({10, 2, 3, 3});
    EXPECT_EQ(this->surface_.Content(), TnRect{});
    EXPECT_EQ(this->surface_.Storage()->contentOrigin, TnPoint{});
    this->surface_.Content({4, 4, 0, 3});
    EXPECT_EQ(this->surface_.Content(), TnRect{});
}

TYPED_TEST(SurfaceContent, IsClippedToTheStorageNotToItsPredecessor) {
    this->surface_.Content({4, 4, 2, 2});
    this->surface_.Content({1, 1, 7, 7});
    EXPECT_EQ(this->surface_.Content(), (TnRect{1, 1, 7, 7}));
}

TYPED_TEST(SurfaceContent, GivesSizeAndBounds) {
    this->surface_.Content({2, 3, 4, 5});
    EXPECT_EQ(this->surface_.Size(), (TnPoint{4, 5}));
    EXPECT_EQ(this->surface_.Bounds(), (TnRect{0, 0, 4, 5}));
    EXPECT_EQ(this->surface_.StorageSize(), (TnPoint{10, 10}));
}

TYPED_TEST(SurfaceContent, TellsTheStorageItsCorner) {
    this->surface_.Content({2, 3, 4, 5});
    EXPECT_EQ(this->surface_.Storage()->contentOrigin, (TnPoint{2, 3}));
}

TYPED_TEST(SurfaceContent, MovesThePixelBaseAtTheNextLock) {
    this->surface_.Content(this->kCorner);
    this->surface_.AddClient();
    const std::size_t offset = 2 * this->surface_.RowBytes() + 2 * KindOf<TypeParam>::kPixelBytes;
    EXPECT_EQ(this->surface_.PixelBase(), AddressIn(*this->surface_.Storage(), offset));
    this->surface_.RemoveClient();
}

TEST(ImageContent, StartsTwoRowsAndEightBytesPastTheBase) {
    TnImage image({10, 10});
    image.Content({2, 2, 100, 100});
    image.AddClient();
    EXPECT_EQ(image.PixelBase(), AddressIn(*image.Storage(), 2 * 48 + 8));
    image.RemoveClient();
}

TYPED_TEST(SurfaceContent, LeavesThePixelBaseOfALockedSurface) {
    this->surface_.AddClient();
    const void* pixelBase = this->surface_.PixelBase();
    this->surface_.Content(this->kCorner);
    EXPECT_EQ(this->surface_.Content(), (TnRect{2, 2, 8, 8}));
    EXPECT_EQ(this->surface_.PixelBase(), pixelBase);

    this->surface_.AddClient();
    EXPECT_EQ(this->surface_.PixelBase(), pixelBase);
    this->surface_.RemoveClient();
    this->surface_.RemoveClient();

    this->surface_.AddClient();
    EXPECT_NE(this->surface_.PixelBase(), pixelBase);
    this->surface_.RemoveClient();
}

TYPED_TEST(SurfaceContent, WithoutStorageIsRefusedBeforeAnythingChanges) {
    TypeParam sized(nullptr, {10, 10});
    ExpectContentIsRefused(sized);
    TypeParam empty;
    ExpectContentIsRefused(empty);
}

TYPED_TEST(SurfaceContent, OfNoSizeOverGivenStorageIsEmpty) {
    StorageProbe probe;
    TypeParam surface(new RecordingStorage(probe, 40, 2), {0, 0});
    surface.Content({0, 0, 5, 5});
    EXPECT_EQ(surface.Content(), TnRect{});
}

} // namespace
} // namespace tn::test
