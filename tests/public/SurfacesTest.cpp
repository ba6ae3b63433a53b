#include "tests/public/Pixels.h"

#include <gtest/gtest.h>

namespace tn::test {
namespace {

void CancelProc() {}

template <class SurfaceType> class PublicSurface : public testing::Test {
protected:
    ~PublicSurface() override { SurfaceType::SetDefaultCancelProc(nullptr); }
};
using SurfaceTypes = testing::Types<TnImage, TnMatte>;
TYPED_TEST_SUITE(PublicSurface, SurfaceTypes);

TYPED_TEST(PublicSurface, IsMadeCleared) {
    TypeParam surface({10, 8}, true);
    EXPECT_EQ(surface.Size(), (TnPoint{10, 8}));
    EXPECT_EQ(Count(surface, 0), 80);
}

TYPED_TEST(PublicSurface, IsEmptyByDefault) {
    const TypeParam surface;
    EXPECT_EQ(surface.Storage(), nullptr);
    EXPECT_TRUE(surface.begin() == surface.end());
}

TYPED_TEST(PublicSurface, IsCopiedDeeply) {
    TypeParam source({10, 8}, true);
    TypeParam copy(source);
    PixelAt(source, 3, 4) = 9;
    EXPECT_EQ(PixelAt(copy, 3, 4), typename TypeParam::Pixel(0));
}

TYPED_TEST(PublicSurface, IsAssignedDeeply) {
    TypeParam source({10, 8}, true);
    TypeParam target;
    target = source;
    PixelAt(source, 3, 4) = 9;
    EXPECT_EQ(target.Size(), (TnPoint{10, 8}));
    EXPECT_EQ(PixelAt(target, 3, 4), typename TypeParam::Pixel(0));
}

TYPED_TEST(PublicSurface, IsMadeAgain) {
    TypeParam surface({10, 8});
    surface.ReInit({3, 2}, true, &CancelProc);
    EXPECT_EQ(Count(surface, 0), 6);
    EXPECT_EQ(surface.CancelProc(), &CancelProc);
}

TYPED_TEST(PublicSurface, TakesTheDefaultCancelProc) {
    TypeParam::SetDefaultCancelProc(&CancelProc);
    EXPECT_EQ(TypeParam().CancelProc(), &CancelProc);
}

TYPED_TEST(PublicSurface, IsLockedAndUnlocked) {
    const TypeParam surface({10, 8});
    surface.AddClient();
    EXPECT_EQ(surface.PixelBase(), surface.Storage()->BaseAddr());
    surface.RemoveClient();
    EXPECT_EQ(surface.PixelBase(), nullptr);
}

TYPED_TEST(PublicSurface, ShowsItsContentRectangle) {
    TypeParam surface({10, 10}, true);
    surface.Content({2, 3, 4, 5});
    SetAll(surface, 7);
    surface.Content({0, 0, 10, 10});
    EXPECT_EQ(Count(surface, 7), 20);
    EXPECT_EQ(PixelAt(surface, 2, 3), typename TypeParam::Pixel(7));
    EXPECT_EQ(PixelAt(surface, 5, 7), typename TypeParam::Pixel(7));
}

TEST(PublicMask, IsMadeCopiedAssignedAndLocked) {
    TnMask mask({9, 4}, true);
    const TnMask copy(mask);
    const TnMask uncleared({3, 3});
    mask = uncleared;
    EXPECT_EQ(mask.Size(), (TnPoint{3, 3}));
    EXPECT_EQ(copy.RowBytes(), 10U);
    copy.AddClient();
    EXPECT_EQ(copy.PixelAddress(), copy.Storage()->BaseAddr());
    copy.RemoveClient();
    EXPECT_EQ(copy.PixelAddress(), nullptr);
}

} // namespace
} // namespace tn::test
