// Every read and write by position, and the scopes.

#include "tests/public/Pixels.h"

#include <gtest/gtest.h>

namespace tn::test {
namespace {

constexpr TnImagePixel kOutside = 0x00FFFFFF;
constexpr TnFixed kHalf = {32768};
constexpr TnFixed kZero = {0};

// Red and transparent blue above opaque grey.
class PublicSamplingOfImages : public testing::Test {
protected:
    PublicSamplingOfImages() {
        image_.Set(0xFFFF0000, 0, 0);
        image_.Set(0x000000FF, 1L, 0L);
        image_.Set(0xFF404040, 0, 1);
        image_.Set(0xFF404040, 1, 1);
        image_.Set(0x12345678, 2, 0);
        image_.Set(0x12345678, 0L, -1L);
    }

    TnImage image_{{2, 2}};
};

TEST_F(PublicSamplingOfImages, AtWholePositions) {
    EXPECT_EQ(image_.Get(0, 0), TnImagePixel(0xFFFF0000));
    EXPECT_EQ(image_.Get(1L, 0L), TnImagePixel(0x000000FF));
    EXPECT_EQ(image_.Get(2, 0), kOutside);
    EXPECT_EQ(image_.Get(0L, 2L), kOutside);
}

TEST_F(PublicSamplingOfImages, BetweenPixels) {
    EXPECT_EQ(image_.Get(kHalf, kZero), TnImagePixel(0x7FFF0000));
    EXPECT_EQ(image_.Get(kZero, kHalf), TnImagePixel(0xFF9F2020));
    EXPECT_EQ(image_.Get(TnFixed{-1}, kZero), kOutside);
}

TEST_F(PublicSamplingOfImages, OfAnArea) {
    EXPECT_EQ(image_.Get(TnFloatRect{0.5, 0.5, 1, 1}), TnImagePixel(0xBF602060));
    EXPECT_EQ(image_.Get(TnFloatRect{0, 0, 0.5, 1}), kOutside);
}

TEST_F(PublicSamplingOfImages, ByKernels) {
    const TnFixed across[] = {{256}, {0}};
    const TnFixed down[] = {{128}, {128}};
    EXPECT_EQ(image_.Get(0L, 0L, across, 2UL, down, 2UL), TnImagePixel(0xFF9F2020));
}

TEST_F(PublicSamplingOfImages, DisregardingAlpha) {
    {
        const StDisregardAlphaInGet scope(image_, 0xFF000000);
        EXPECT_EQ(image_.Get(kHalf, kZero), TnImagePixel(0x7F7F007F));
        EXPECT_EQ(image_.Get(9, 9), TnImagePixel(0xFF000000));
        EXPECT_EQ(image_.Clients(), 1U);
    }
    EXPECT_EQ(image_.Get(kHalf, kZero), TnImagePixel(0x7FFF0000));
    EXPECT_EQ(image_.Get(9, 9), kOutside);
}

TEST_F(PublicSamplingOfImages, OfTheTopField) {
    TnImage image({10, 5}, true);
    image.Set(0x01020304, 3, 2);
    {
        const StCoerceToTopFieldOnly field(image);
        EXPECT_EQ(image.Size(), (TnPoint{10, 2}));
        EXPECT_EQ(image.Get(3, 1), TnImagePixel(0x01020304));
    }
    EXPECT_EQ(image.Content(), (TnRect{0, 0, 10, 5}));
    EXPECT_EQ(image.Get(3, 2), TnImagePixel(0x01020304));
}

class PublicSamplingOfMattes : public testing::Test {
protected:
    PublicSamplingOfMattes() {
        matte_.Set(10, 0, 0);
        matte_.Set(20, 1L, 0L);
        matte_.Set(30, 0, 1);
        matte_.Set(40, 1, 1);
        matte_.Set(99, 0, 2);
    }

    TnMatte matte_{{2, 2}};
};

TEST_F(PublicSamplingOfMattes, AtWholePositions) {
    EXPECT_EQ(matte_.Get(1, 0), TnMattePixel(20));
    EXPECT_EQ(matte_.Get(0L, 1L), TnMattePixel(30));
    EXPECT_EQ(matte_.Get(0, 2), TnMattePixel(0));
}

TEST_F(PublicSamplingOfMattes, BetweenPixels) {
    EXPECT_EQ(matte_.Get(kHalf, kHalf), TnMattePixel(25));
    EXPECT_EQ(matte_.Get(TnFixed{65536}, kZero), TnMattePixel(0)); // the last column
    EXPECT_EQ(matte_.Get(0.25F, 0.5F), TnMattePixel(22));
    EXPECT_EQ(matte_.Get(1.0F, 0.0F), TnMattePixel(0));
}

TEST_F(PublicSamplingOfMattes, OfAnArea) {
    EXPECT_EQ(matte_.Get(TnFloatRect{0, 0, 2, 2}), TnMattePixel(25));
    EXPECT_EQ(matte_.Get(TnFloatRect{0, 0, 2, 0.5}), TnMattePixel(0));
}

TEST_F(PublicSamplingOfMattes, ByKernelsIsNotProvided) {
    const TnFixed factor = {256};
    EXPECT_EQ(matte_.Get(0L, 0L, &factor, 1UL, &factor, 1UL), TnMattePixel(0));
}

} // namespace
} // namespace tn::test
