#include "tests/public/Pixels.h"

#include <gtest/gtest.h>

namespace tn::test {
namespace {

constexpr TnColor kGround = {0, 1, 2, 3};
constexpr TnColor kLine = {0, 4, 5, 6};
constexpr TnImagePixel kOpaqueGround = 0xFF010203;
constexpr TnImagePixel kOpaqueLine = 0xFF040506;

class PublicFills : public testing::Test {
protected:
    TnImage image_{{20, 30}, true};
    TnMatte matte_{{20, 30}, true};
};

TEST_F(PublicFills, ColorFillStoresTheColorInTheRectangle) {
    ColorFill(image_, {15, -5, 100, 10}, {0x80, 0x10, 0x20, 0x30});
    EXPECT_EQ(Count(image_, 0x80102030), 25);
    EXPECT_EQ(PixelAt(image_, 15, 4), TnImagePixel(0x80102030));
}

TEST_F(PublicFills, AlphaFillKeepsTheColorsOfAnImage) {
    SetAll(image_, 0x12345678);
    AlphaFill(image_, {1, 1, 2, 3}, 0xFF);
    EXPECT_EQ(Count(image_, 0xFF345678), 6);
    EXPECT_EQ(Count(image_, 0x12345678), 594);
}

TEST_F(PublicFills, AlphaFillStoresTheValueInAMatte) {
    AlphaFill(matte_, {1, 1, 2, 3}, 0x99);
    EXPECT_EQ(Count(matte_, 0x99), 6);
}

TEST_F(PublicFills, XFillDrawsTwoLinesFromTheTopCorners) {
    XFill(image_, {10, 20, 5, 3}, kGround, kLine);
    EXPECT_EQ(Count(image_, kOpaqueLine), 5);
    EXPECT_EQ(Count(image_, kOpaqueGround), 10);
    for (const TnPoint point : {TnPoint{10, 20}, {11, 21}, {12, 22}, {14, 20}, {13, 21}}) {
        EXPECT_EQ(PixelAt(image_, point.x, point.y), kOpaqueLine) << point.x << ", " << point.y;
    }
}

TEST_F(PublicFills, CrossHatchFillRepeatsACross) {
    CrossHatchFill(image_, {0, 0, 8, 4}, kGround, kLine, 2);
    EXPECT_EQ(Count(image_, kOpaqueLine), 16);
    EXPECT_EQ(Count(image_, kOpaqueGround), 16);
    EXPECT_EQ(PixelAt(image_, 3, 0), kOpaqueLine);
    EXPECT_EQ(PixelAt(image_, 5, 1), kOpaqueLine);
    EXPECT_EQ(PixelAt(image_, 1, 0), kOpaqueGround);
}

TEST_F(PublicFills, BlendInColorLiesBehindTheImage) {
    PixelAt(image_, 0, 0) = 0x80000000;
    BlendInColor(image_, {0, 255, 0, 0}, false);
    EXPECT_EQ(PixelAt(image_, 0, 0), TnImagePixel(0x807F0000));
    EXPECT_EQ(Count(image_, 0), 599);
}

TEST_F(PublicFills, BlendInColorAndFillAlphaMakesTheColorShow) {
    BlendInColorAndFillAlpha(image_, {0, 1, 2, 3}, 255);
    EXPECT_EQ(Count(image_, kOpaqueGround), 600);
}

TEST_F(PublicFills, SetOpacityScalesTheAlphas) {
    SetAll(image_, 0xFF345678);
    SetOpacity(image_, 50);
    EXPECT_EQ(Count(image_, 0x7F345678), 600);
    SetOpacity(image_, 0);
    EXPECT_EQ(Count(image_, 0x00345678), 600);
}

template <class SurfaceType> class PublicErase : public testing::Test {
protected:
    PublicErase() { SetAll(surface_, 0x77); }

    SurfaceType surface_{{10, 10}};
};
using SurfaceTypes = testing::Types<TnImage, TnMatte>;
TYPED_TEST_SUITE(PublicErase, SurfaceTypes);

TYPED_TEST(PublicErase, EraseOutsideLeavesTheRectangle) {
    EraseOutside(this->surface_, {2, 2, 3, 3});
    EXPECT_EQ(Count(this->surface_, 0x77), 9);
    EXPECT_EQ(Count(this->surface_, 0), 91);
    EXPECT_EQ(PixelAt(this->surface_, 4, 4), typename TypeParam::Pixel(0x77));
}

TYPED_TEST(PublicErase, PrepareMarginDoesTheSame) {
    PrepareMargin(this->surface_, {2, 2, 3, 3});
    EXPECT_EQ(Count(this->surface_, 0x77), 9);
    PrepareMargin(this->surface_, {50, 50, 3, 3});
    EXPECT_EQ(Count(this->surface_, 0), 100);
}

} // namespace
} // namespace tn::test
