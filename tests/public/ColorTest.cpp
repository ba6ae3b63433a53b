#include "TnGraphics/TnGraphics.h"

#include <gtest/gtest.h>

namespace tn::test {
namespace {

TEST(PublicColor, IsConvertedToLumaAndBack) {
    ColorYUVSpec yuv;
    RGBtoYUV(0xFFFF0000, yuv);
    EXPECT_EQ(yuv, (ColorYUVSpec{0, 76, 91, 255})); // 76.2, 128 - 37.6 and 128 + 157 stopped
    TnImagePixel pixel = 0x12000000;
    YUVtoRGB({0, 100, 128, 128}, pixel);
    EXPECT_EQ(pixel, TnImagePixel(0x12646464));
}

TEST(PublicColor, IsConvertedToHueSaturationAndValueAndBack) {
    TnHSVColor hsv;
    RGBToHSV({0, 0, 255, 0}, hsv);
    EXPECT_EQ(hsv, (TnHSVColor{0.0F, 120.0F, 1.0F, 1.0F}));
    TnColor color = {7, 0, 0, 0};
    HSVToRGB({0.0F, 240.0F, 1.0F, 1.0F}, color);
    EXPECT_EQ(color, TnColor(7, 0, 0, 255));
}

TEST(PublicColor, IsDarkened) { EXPECT_EQ(DarkenColor({255, 255, 0, 0}, 0.0F), TnColor(0, 0, 0, 0)); }

TEST(PublicColor, IsMixedFromInks) {
    TnImagePixel pixel;
    CMYKtoRGB({255, 100, 0, 200}, pixel);
    EXPECT_EQ(pixel, TnImagePixel(0xFFC82D00));
}

TEST(PublicColor, IsComplemented) {
    TnCMYColor cmy;
    RGBtoCMY({9, 255, 100, 0}, cmy);
    EXPECT_EQ(cmy, TnCMYColor(9, 0, 155, 255));
    TnColor color;
    CMYtoRGB(cmy, color);
    EXPECT_EQ(color, TnColor(9, 255, 100, 0));
}

TEST(PublicColor, IsTruncatedForTheWebAndForVideo) {
    TnColor web = {9, 25, 26, 254};
    RGBTruncToWebColor(web);
    EXPECT_EQ(web, TnColor(9, 0, 51, 255));
    TnColor video = {9, 0, 255, 128};
    RGBTruncToVideoSafe(video);
    EXPECT_EQ(video, TnColor(9, 16, 235, 125)); // 109.9 and 16
}

TEST(PublicColorTransform, AppliesToEveryKindOfPixel) {
    const TnColorTransform transform = {{-256, 255}, {256, 10}, {0, 7}, {128, 0}};
    EXPECT_EQ(ColorTransform(TnColor(100, 1, 2, 3), transform), TnColor(50, 254, 12, 7));
    EXPECT_EQ(ColorTransform(TnImagePixel(0x64010203), transform), TnImagePixel(0x32FE0C07));
    EXPECT_EQ(ColorTransform(TnMattePixel(100), transform), TnMattePixel(100));
}

TEST(PublicColorTransform, MixesTowardsAColor) {
    EXPECT_TRUE(IsNoChangeColorTransform(GetColorMatrixForBlend({0, 1, 2, 3}, 0)));
    EXPECT_TRUE(TnColorTransform() == GetColorMatrixForBlend({0, 1, 2, 3}, 0));
    const TnColorTransform all = GetColorMatrixForBlend({0, 1, 2, 3}, 100);
    EXPECT_FALSE(IsNoChangeColorTransform(all));
    EXPECT_EQ(ColorTransform(TnImagePixel(0x80FFFFFF), all), TnImagePixel(0x80010203));
}

} // namespace
} // namespace tn::test
