#include "TnGraphics/color/InkConversion.h"

#include "tests/color/EveryTriple.h"

#include <cstddef>
#include <gtest/gtest.h>
#include <type_traits>

namespace tn::test {
namespace {

static_assert(sizeof(ColorCMYKSpec) == 4);
static_assert(std::is_trivially_copyable_v<ColorCMYKSpec>);
static_assert(std::is_standard_layout_v<ColorCMYKSpec>);
static_assert(offsetof(ColorCMYKSpec, c) == 0);
static_assert(offsetof(ColorCMYKSpec, m) == 1);
static_assert(offsetof(ColorCMYKSpec, y) == 2);
static_assert(offsetof(ColorCMYKSpec, k) == 3);

TnImagePixel PixelOf(const Triple& cmy, int black) {
    const auto [c, m, y] = cmy;
    TnImagePixel pixel = 0x12345678;
    CMYKtoRGB({static_cast<std::uint8_t>(c), static_cast<std::uint8_t>(m), static_cast<std::uint8_t>(y),
               static_cast<std::uint8_t>(black)},
              pixel);
    return pixel;
}

TnCMYColor CmyOf(const TnColor& color) {
    TnCMYColor cmy(9, 9, 9, 9);
    RGBtoCMY(color, cmy);
    return cmy;
}

TnColor RgbOf(const TnCMYColor& cmy) {
    TnColor color(9, 9, 9, 9);
    CMYtoRGB(cmy, color);
    return color;
}

TEST(CMYKtoRGB, MakesOpaqueWhiteWithoutInk) { EXPECT_EQ(PixelOf({255, 255, 255}, 255), TnImagePixel(0xFFFFFFFF)); }

TEST(CMYKtoRGB, MakesBlackOfAllThreeColors) { EXPECT_EQ(PixelOf({0, 0, 0}, 255), TnImagePixel(0xFF000000)); }

TEST(CMYKtoRGB, MakesBlackOfBlackAlone) { EXPECT_EQ(PixelOf({255, 255, 255}, 0), TnImagePixel(0xFF000000)); }

TEST(CMYKtoRGB, TakesRedFromCyanGreenFromMagentaAndBlueFromYellow) {
    EXPECT_EQ(PixelOf({0x10, 0x20, 0x30}, 255), TnImagePixel(0xFF102030));
}

TEST(CMYKtoRGB, AddsBlackToEveryInk) { EXPECT_EQ(PixelOf({255, 200, 100}, 105), TnImagePixel(0xFF693200)); }

TEST(CMYKtoRGB, EqualsItsModelForEveryInkAndBlack) {
    for (int black = 0; black < 256; ++black) {
        for (int ink = 0; ink < 256; ++ink) {
            const Triple cmy = {ink, ink ^ 0x55, 255 - ink};
            const TnColor expected = ColorOf(
                {model::LeftByInks(cmy[0], black), model::LeftByInks(cmy[1], black), model::LeftByInks(cmy[2], black)},
                255);
            ASSERT_EQ(PixelOf(cmy, black), TnImagePixel(expected)) << "ink " << ink << ", black " << black;
        }
    }
}

TEST(RGBtoCMY, ComplementsColorsAndCopiesAlpha) {
    EXPECT_EQ(CmyOf({0x40, 0xFF, 0x00, 0xCF}), TnCMYColor(0x40, 0x00, 0xFF, 0x30));
}

TEST(RGBtoCMY, ComplementsEveryColor) {
    ExpectAlikeForEveryTriple(
        [](const Triple& rgb) {
            const TnColor complement = ColorOf({255 - rgb[0], 255 - rgb[1], 255 - rgb[2]});
            return TnCMYColor(0x80, complement.red, complement.green, complement.blue);
        },
        [](const Triple& rgb) { return CmyOf(ColorOf(rgb, 0x80)); });
}

TEST(CMYtoRGB, ComplementsInksAndCopiesAlpha) {
    EXPECT_EQ(RgbOf({0x40, 0x00, 0xFF, 0x30}), TnColor(0x40, 0xFF, 0x00, 0xCF));
}

TEST(CMYtoRGB, InvertsRGBtoCMYForEveryColor) {
    ExpectAlikeForEveryTriple([](const Triple& rgb) { return ColorOf(rgb, 0x80); },
                              [](const Triple& rgb) { return RgbOf(CmyOf(ColorOf(rgb, 0x80))); });
}

TEST(CMYtoRGB, KeepsEveryAlphaThereAndBack) {
    for (int alpha = 0; alpha < 256; ++alpha) {
        const TnColor color(static_cast<std::uint8_t>(alpha), 1, 2, 3);
        EXPECT_EQ(CmyOf(color).alpha, alpha);
        EXPECT_EQ(RgbOf(CmyOf(color)), color);
    }
}

} // namespace
} // namespace tn::test
