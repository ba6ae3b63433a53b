#include "TnGraphics/color/YuvConversion.h"

#include "tests/color/EveryTriple.h"

#include <cstddef>
#include <gtest/gtest.h>
#include <type_traits>

namespace tn::test {
namespace {

static_assert(sizeof(ColorYUVSpec) == 4);
static_assert(std::is_trivially_copyable_v<ColorYUVSpec>);
static_assert(std::is_standard_layout_v<ColorYUVSpec>);
static_assert(offsetof(ColorYUVSpec, unused) == 0);
static_assert(offsetof(ColorYUVSpec, y) == 1);
static_assert(offsetof(ColorYUVSpec, u) == 2);
static_assert(offsetof(ColorYUVSpec, v) == 3);

Triple YuvOf(const TnImagePixel& pixel) {
    ColorYUVSpec yuv;
    RGBtoYUV(pixel, yuv);
    return {yuv.y, yuv.u, yuv.v};
}

TnImagePixel PixelOf(const Triple& yuv, TnImagePixel pixel = 0) {
    const auto [y, u, v] = yuv;
    YUVtoRGB({0, static_cast<std::uint8_t>(y), static_cast<std::uint8_t>(u), static_cast<std::uint8_t>(v)}, pixel);
    return pixel;
}

Triple RgbOf(const TnImagePixel& pixel) { return {pixel.Red(), pixel.Green(), pixel.Blue()}; }

TEST(RGBtoYUV, GivesWhiteAndBlackNoColorDifference) {
    EXPECT_EQ(YuvOf(0xFFFFFFFF), (Triple{255, 128, 128}));
    EXPECT_EQ(YuvOf(0xFF000000), (Triple{0, 128, 128}));
}

TEST(RGBtoYUV, StopsThePureRedDifferenceAt255) { EXPECT_EQ(YuvOf(0xFFFF0000), (Triple{76, 91, 255})); }

TEST(RGBtoYUV, StopsTheCyanDifferenceAt0) {
    EXPECT_EQ(YuvOf(0xFF00FFFF), (Triple{178, 166, 0})); // -178 x 877 / 1000 is -156
}

TEST(RGBtoYUV, TruncatesNegativeDifferencesTowardsZero) {
    EXPECT_EQ(YuvOf(0xFF000102), (Triple{0, 128, 128})); // luma 0.815, blue difference 0.99
    EXPECT_EQ(YuvOf(0xFF000200), (Triple{1, 128, 128})); // luma 1.174, differences -0.495 and -0.877
}

TEST(RGBtoYUV, KeepsTheBlueDifferenceWithin17And239) {
    EXPECT_EQ(YuvOf(0xFF0000FF), (Triple{29, 239, 103}));
    EXPECT_EQ(YuvOf(0xFFFFFF00), (Triple{225, 17, 154}));
}

TEST(RGBtoYUV, DisregardsAlpha) {
    EXPECT_EQ(YuvOf(0x00FF0000), YuvOf(0xFFFF0000));
    EXPECT_EQ(YuvOf(0x80123456), YuvOf(0x00123456));
}

TEST(RGBtoYUV, LeavesTheUnusedByteAlone) {
    ColorYUVSpec yuv = {0xA5, 1, 2, 3};
    RGBtoYUV(0xFFFFFFFF, yuv);
    EXPECT_EQ(yuv, (ColorYUVSpec{0xA5, 255, 128, 128}));
}

TEST(RGBtoYUV, EqualsItsModelForEveryColor) {
    ExpectAlikeForEveryTriple(model::YuvOfRgb, [](const Triple& rgb) { return YuvOf(ColorOf(rgb)); });
}

TEST(YUVtoRGB, BringsPureRedBackDarker) {
    EXPECT_EQ(PixelOf({76, 91, 255}).Red(), 220); // 76000 + 127 x 1140 is 220780
    EXPECT_EQ(RgbOf(PixelOf({76, 91, 255})), (Triple{220, 16, 0}));
}

TEST(YUVtoRGB, MakesGreysOfMiddleDifferences) {
    for (int y = 0; y < 256; ++y) {
        EXPECT_EQ(RgbOf(PixelOf({y, 128, 128})), (Triple{y, y, y}));
    }
}

TEST(YUVtoRGB, StopsEveryChannelAtBothEnds) {
    EXPECT_EQ(RgbOf(PixelOf({255, 255, 255})), (Triple{255, 131, 255}));
    EXPECT_EQ(RgbOf(PixelOf({0, 0, 0})), (Triple{0, 124, 0}));
    EXPECT_EQ(PixelOf({255, 0, 0}).Green(), 255);
    EXPECT_EQ(PixelOf({0, 255, 255}).Green(), 0);
}

TEST(YUVtoRGB, KeepsAlpha) {
    EXPECT_EQ(PixelOf({255, 128, 128}, 0x80123456), TnImagePixel(0x80FFFFFF));
    EXPECT_EQ(PixelOf({0, 128, 128}, 0x00123456), TnImagePixel(0x00000000));
    EXPECT_EQ(PixelOf({0, 128, 128}, 0xFF123456), TnImagePixel(0xFF000000));
}

TEST(YUVtoRGB, DisregardsTheUnusedByte) {
    TnImagePixel pixel = 0;
    YUVtoRGB({0xFF, 10, 128, 128}, pixel);
    EXPECT_EQ(pixel, TnImagePixel(0x000A0A0A));
}

TEST(YUVtoRGB, EqualsItsModelForEveryYuv) {
    ExpectAlikeForEveryTriple(model::RgbOfYuv, [](const Triple& yuv) { return RgbOf(PixelOf(yuv)); });
}

} // namespace
} // namespace tn::test
