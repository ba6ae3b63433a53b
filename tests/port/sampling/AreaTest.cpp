// Get(const TnFloatRect&).

#include "tests/port/SurfaceKinds.h"
#include "tests/port/sampling/SmallPictures.h"

#include <gtest/gtest.h>
#include <limits>

namespace tn::test {
namespace {

constexpr TnImagePixel kOutside = 0x00FFFFFF;

// An image whose columns have the values of a function.
template <class SurfaceType, class Value> SurfaceType Columns(const TnPoint& size, const Value& valueOf) {
    SurfaceType surface(size);
    for (auto it = surface.begin(); it != surface.end(); ++it) {
        *it = static_cast<ValueOf<SurfaceType>>(valueOf(it.Position().x));
    }
    return surface;
}

template <class SurfaceType> class Area : public ::testing::Test {
protected:
    static constexpr auto kOutsidePixel = KindOf<SurfaceType>::kOutsideOwnStorage;

    Area() { SetAll(surface_, 100); }

    SurfaceType surface_{{6, 6}};
};
TYPED_TEST_SUITE(Area, SurfaceKinds);

TYPED_TEST(Area, IsOutsideWhenNarrowerOrLowerThanAPixel) {
    constexpr double kBelowOne = 1 - 1e-15;
    EXPECT_EQ(this->surface_.Get(TnFloatRect{0, 0, 0.5, 2}), this->kOutsidePixel);
    EXPECT_EQ(this->surface_.Get(TnFloatRect{0, 0, kBelowOne, 2}), this->kOutsidePixel);
    EXPECT_EQ(this->surface_.Get(TnFloatRect{0, 0, 2, kBelowOne}), this->kOutsidePixel);
    EXPECT_EQ(this->surface_.Get(TnFloatRect{0, 0, -3, 2}), this->kOutsidePixel);
    EXPECT_EQ(this->surface_.Get(TnFloatRect{0, 0, 2, 0}), this->kOutsidePixel);
    EXPECT_EQ(this->surface_.Get(TnFloatRect{0, 0, 2, 2}).value, 100);
}

TYPED_TEST(Area, IsOutsideWithAFieldThatIsNoFiniteNumber) {
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    for (const double odd : {std::numeric_limits<double>::quiet_NaN(), kInfinity, -kInfinity}) {
        EXPECT_EQ(this->surface_.Get(TnFloatRect{odd, 0, 2, 2}), this->kOutsidePixel);
        EXPECT_EQ(this->surface_.Get(TnFloatRect{0, odd, 2, 2}), this->kOutsidePixel);
        EXPECT_EQ(this->surface_.Get(TnFloatRect{0, 0, odd, 2}), this->kOutsidePixel);
        EXPECT_EQ(this->surface_.Get(TnFloatRect{0, 0, 2, odd}), this->kOutsidePixel);
    }
}

// The right and the lower neighbour are read as the far edges: four pixels against the area of one.
TYPED_TEST(Area, OfOnePixelIsTheLowByteOfTheSumOfFour) {
    EXPECT_EQ(this->surface_.Get(TnFloatRect{0, 0, 1, 1}).value, 144);
    EXPECT_EQ(this->surface_.Get(TnFloatRect{3, 4, 1, 1}).value, 144);
    SetPixel(this->surface_, 0, 0, 1);
    SetPixel(this->surface_, 1, 0, 2);
    SetPixel(this->surface_, 0, 1, 4);
    SetPixel(this->surface_, 1, 1, 8);
    EXPECT_EQ(this->surface_.Get(TnFloatRect{0, 0, 1, 1}).value, 15);
}

TYPED_TEST(Area, WithinOneRowTakesTheRowBelowFully) {
    SetAll(this->surface_, 10);
    EXPECT_EQ(this->surface_.Get(TnFloatRect{1, 2, 3, 1}).value, 20);
    EXPECT_EQ(this->surface_.Get(TnFloatRect{2, 1, 1, 3}).value, 20);
    EXPECT_EQ(this->surface_.Get(TnFloatRect{2, 1, 2, 2}).value, 10);
}

TEST(ImageArea, IsTheRoundedMeanOfFourPixels) {
    const auto image = SurfaceOf<TnImage>({{0xFF000001, 0x00010002}, {0x00000000, 0x00030000}});
    EXPECT_EQ(image.Get(TnFloatRect{0.5, 0.5, 1, 1}), TnImagePixel(0x40010001)); // 63.75, 1, 0.75
    const auto below = SurfaceOf<TnImage>({{1, 0}, {0, 0}});
    EXPECT_EQ(below.Get(TnFloatRect{0.5, 0.5, 1, 1}), TnImagePixel(0));
    const auto half = SurfaceOf<TnImage>({{1, 1}, {0, 0}});
    EXPECT_EQ(half.Get(TnFloatRect{0.5, 0.5, 1, 1}), TnImagePixel(1));
}

TEST(MatteArea, IsTheTruncatedMean) {
    EXPECT_EQ(SurfaceOf<TnMatte>({{255, 0}, {0, 0}}).Get(TnFloatRect{0.5, 0.5, 1, 1}), TnMattePixel(63));
    EXPECT_EQ(SurfaceOf<TnMatte>({{1, 1}, {1, 0}}).Get(TnFloatRect{0.5, 0.5, 1, 1}), TnMattePixel(0));
}

// Colour has no regard for alpha.
TEST(ImageArea, AveragesTransparentPixelsToo) {
    const auto image = SurfaceOf<TnImage>({{0x000000C8, 0xFF000000}, {0x000000C8, 0xFF000000}});
    EXPECT_EQ(image.Get(TnFloatRect{0, 0, 2, 2}), TnImagePixel(0x80000064));
}

// Left 64, inner 256, right 128; top 192, bottom 64, of 448 x 256.
TYPED_TEST(Area, WeighsItsEdges) {
    SetAll(this->surface_, 0);
    const TnFloatRect rect = {1.75, 2.25, 1.75, 1};
    const auto meanWith = [&](int x, int y) {
        SetPixel(this->surface_, x, y, 224);
        const auto mean = static_cast<int>(this->surface_.Get(rect).value);
        SetPixel(this->surface_, x, y, 0);
        return mean;
    };
    EXPECT_EQ(meanWith(1, 2), 224 * 48 / 448);
    EXPECT_EQ(meanWith(2, 2), 224 * 192 / 448);
    EXPECT_EQ(meanWith(3, 2), 224 * 96 / 448);
    EXPECT_EQ(meanWith(1, 3), 224 * 16 / 448);
    EXPECT_EQ(meanWith(2, 3), 224 * 64 / 448);
    EXPECT_EQ(meanWith(3, 3), 224 * 32 / 448);
    EXPECT_EQ(meanWith(0, 2) + meanWith(4, 2) + meanWith(2, 1) + meanWith(2, 4), 0);
}

// 136 x 136 is 72 and a quarter of 256, four times that 289.
TYPED_TEST(Area, TruncatesTheWeightsOfItsCorners) {
    SetAll(this->surface_, 255);
    constexpr double kStart = 120.0 / 256;
    constexpr double kExtent = 272.0 / 256;
    EXPECT_EQ(this->surface_.Get(TnFloatRect{kStart, kStart, kExtent, kExtent}).value, 255 * 288 / 289);
}

TYPED_TEST(Area, RoundsItsFieldsTo256ths) {
    SetAll(this->surface_, 0);
    SetPixel(this->surface_, 0, 0, 255);
    SetPixel(this->surface_, 0, 1, 255);
    EXPECT_EQ(this->surface_.Get(TnFloatRect{0.49 / 256, 0, 2, 2}).value, sizeof(ValueOf<TypeParam>) == 1 ? 127 : 128);
    EXPECT_EQ(this->surface_.Get(TnFloatRect{0.5 / 256, 0, 2, 2}).value, 127);
}

// Splitting

TEST(ImageArea, OfMoreThan65535PixelsIsTheTruncatedMeanOfTwoHalves) {
    const auto image = Columns<TnImage>({257, 258}, [](int x) { return x < 128 ? 1 : 2; });
    EXPECT_EQ(image.Get(TnFloatRect{0, 0, 256, 256}), TnImagePixel(1)); // 1 and 2; at once it were 1.5
}

TEST(ImageArea, Of65535PixelsIsTakenAtOnce) {
    const auto image = Columns<TnImage>({257, 258}, [](int x) { return x < 127 ? 1 : 2; });
    EXPECT_EQ(image.Get(TnFloatRect{0, 0, 255, 257}), TnImagePixel(2)); // 1.502; its halves are 1 and 2
}

TEST(ImageArea, IsSplitAcrossItsHeightWithTwoColumns) {
    TnImage image({3, 40001});
    for (auto it = image.begin(); it != image.end(); ++it) {
        *it = it.Position().y < 20000 ? 1 : 2;
    }
    EXPECT_EQ(image.Get(TnFloatRect{0, 0, 2, 40000}), TnImagePixel(1));
}

TEST(ImageArea, IsSplitMoreThanOnce) {
    const auto image = Columns<TnImage>({513, 513}, [](int x) { return x < 128 ? 0 : 3; });
    EXPECT_EQ(image.Get(TnFloatRect{0, 0, 512, 512}), TnImagePixel(2)); // (0 + 3) / 2 is 1, (1 + 3) / 2 is 2
}

TEST(ImageArea, HasHalvesOutsideThatAreNarrowerThanAPixel) {
    TnImage image({4, 22002});
    SetAll(image, 0xFF123456);
    EXPECT_EQ(image.Get(TnFloatRect{255.0 / 256, 0, 258.0 / 256, 21840}), TnImagePixel(0xFF123456)); // 65520 pixels
    EXPECT_EQ(image.Get(TnFloatRect{255.0 / 256, 0, 258.0 / 256, 22000}), kOutside);
}

TEST(MatteArea, IsNeverSplit) {
    const auto matte = Columns<TnMatte>({257, 257}, [](int x) { return x < 32 ? 1 : x < 224 ? 2 : 3; });
    EXPECT_EQ(matte.Get(TnFloatRect{0, 0, 256, 256}), TnMattePixel(2)); // its halves are 1.75 and 2.25
}

// 300 x 300 x 256 x 255 leaves 32 bits.
TEST(MatteArea, IsSummedIn32Bits) {
    TnMatte matte({301, 301});
    SetAll(matte, 255);
    EXPECT_EQ(matte.Get(TnFloatRect{0, 0, 300, 300}), TnMattePixel(68));
    EXPECT_EQ(matte.Get(TnFloatRect{0, 0, 250, 250}), TnMattePixel(255));
}

} // namespace
} // namespace tn::test
