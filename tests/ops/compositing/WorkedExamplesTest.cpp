#include "tests/ops/compositing/OnePixel.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <utility>

namespace tn::test {
namespace {

constexpr std::uint32_t kBlack128 = 0x80000000;
constexpr std::uint32_t kOpaqueWhite = 0xFFFFFFFF;

TEST(BlendImage, OfBlackWithAlpha128OverOpaqueWhiteGives127AndStaysOpaque) {
    EXPECT_EQ(Blended(kBlack128, kOpaqueWhite), 0xFF7F7F7FU); // 255 x 127 / 255, and 128 + 255 - 128
}

TEST(BlendImage, ReplacesThePixelByAnOpaqueOne) {
    EXPECT_EQ(Blended(0xFF123456, 0x80ABCDEF), 0xFF123456U);
    EXPECT_EQ(Blended(0xFF123456, 0x00ABCDEF), 0xFF123456U);
}

TEST(BlendImage, KeepsThePixelUnderATransparentOne) {
    EXPECT_EQ(Blended(0x00123456, 0x80ABCDEF), 0x80ABCDEFU);
    EXPECT_EQ(Blended(0x00123456, 0x00ABCDEF), 0x00ABCDEFU);
}

TEST(BlendImage, WithOpacity0ChangesNothing) {
    EXPECT_EQ(Blended(0xFF123456, 0x80ABCDEF, 0), 0x80ABCDEFU);
    EXPECT_EQ(Blended(0x01123456, 0x00ABCDEF, 0), 0x00ABCDEFU);
}

TEST(BlendImage, WeighsTheOldColorBy255LessTheSourceAlphaWhateverItsOwnAlpha) {
    EXPECT_EQ(Blended(0x80000000, 0x00FFFFFF), 0x807F7F7FU);
    EXPECT_EQ(Blended(0x80000000, 0x40FFFFFF), 0xA07F7F7FU); // 128 + 64 - 8192 / 255
}

TEST(BlendImage, TruncatesEachDivision) {
    EXPECT_EQ(Blended(0x01FF0000, 0x01000000), 0x02010000U); // 255 / 255, and 1 + 1 - 1 / 255
    EXPECT_EQ(Blended(0x01FE0000, 0x01000000), 0x02000000U); // 254 / 255
    EXPECT_EQ(Blended(0xFE010203, 0xFE030201), 0xFF010202U); // 257, 510 and 763 by 255, and 508 - 253
}

TEST(PreBlendImageAndAlpha, OntoATransparentPixelCopiesTheSourceWithItsAlpha) {
    EXPECT_EQ(PreBlended(0x80123456, 0x00ABCDEF), 0x80123456U);
    EXPECT_EQ(PreBlended(0x01123456, 0x00ABCDEF), 0x01123456U);
}

TEST(PreBlendImageAndAlpha, KeepsATransparentPixelUnderATransparentOne) {
    EXPECT_EQ(PreBlended(0x00123456, 0x00ABCDEF), 0x00ABCDEFU);
    EXPECT_EQ(PreBlended(0x00123456, 0x80ABCDEF), 0x80ABCDEFU);
}

TEST(PreBlendImageAndAlpha, ReplacesThePixelByAnOpaqueOne) {
    EXPECT_EQ(PreBlended(0xFF123456, 0x80ABCDEF), 0xFF123456U);
}

TEST(PreBlendImageAndAlpha, OverAnOpaquePixelDoesWhatBlendImageDoes) {
    EXPECT_EQ(PreBlended(kBlack128, kOpaqueWhite), 0xFF7F7F7FU);
}

TEST(PreBlendImageAndAlpha, WeighsColorsByTheirSharesOfTheCombinedAlpha) {
    // w = 64 - 8192 / 255 = 32 and n = 160: white keeps 32 of 160
    EXPECT_EQ(PreBlended(0x80000000, 0x40FFFFFF), 0xA0333333U);
    EXPECT_EQ(PreBlended(0x80FF6400, 0x40000064), 0xA0CC5014U); // 204, 80 and 20
}

TEST(PreBlendImageAndAlpha, DiffersFromBlendImageOverPartlyTransparentPixelsOnly) {
    EXPECT_NE(PreBlended(kBlack128, 0x40FFFFFF), Blended(kBlack128, 0x40FFFFFF));
    EXPECT_NE(PreBlended(kBlack128, 0x00FFFFFF), Blended(kBlack128, 0x00FFFFFF));
    EXPECT_EQ(PreBlended(kBlack128, 0xFF336699), Blended(kBlack128, 0xFF336699));
}

TEST(IntersectAlpha, LeavesATransparentPixelAlone) {
    EXPECT_EQ(Intersected(0xFF123456, 0x00ABCDEF), 0x00ABCDEFU);
    EXPECT_EQ(Intersected(0x00123456, 0x00ABCDEF), 0x00ABCDEFU);
}

TEST(IntersectAlpha, MakesThePixelTransparentUnderATransparentOneAndKeepsItsColor) {
    EXPECT_EQ(Intersected(0x00123456, 0x80ABCDEF), 0x00ABCDEFU);
}

TEST(IntersectAlpha, TakesTheSmallerAlphaAndMixesTheColors) {
    EXPECT_EQ(Intersected(0x80000000, 0x40FFFFFF), 0x40333333U);
    EXPECT_EQ(Intersected(0x80FFFFFF, 0xFF000000), 0x80808080U); // w = 127 and n = 255
    EXPECT_EQ(Intersected(0xFF123456, 0x80ABCDEF), 0x80123456U); // w = 0
}

TEST(IntersectAlphaNoColor, TakesTheSmallerAlphaAndKeepsTheColor) {
    EXPECT_EQ(IntersectedNoColor(0x40000000, 0x80ABCDEF), 0x40ABCDEFU);
    EXPECT_EQ(IntersectedNoColor(0x80000000, 0x40ABCDEF), 0x40ABCDEFU);
    EXPECT_EQ(IntersectedNoColor(0x00000000, 0x40ABCDEF), 0x00ABCDEFU);
    EXPECT_EQ(IntersectedNoColor(0xFF000000, 0x00ABCDEF), 0x00ABCDEFU);
    EXPECT_EQ(IntersectedNoColor(0xFF000000, 0xFFABCDEF), 0xFFABCDEFU);
}

TEST(IntersectAlphaOfMattes, TakesTheSmallerValue) {
    for (const auto& [source, destination] : {std::pair{0x40, 0x80}, {0x80, 0x40}, {0, 0x40}, {0x40, 0}, {255, 255}}) {
        const OneValueMatte from(static_cast<std::uint8_t>(source));
        OneValueMatte matte(static_cast<std::uint8_t>(destination));
        IntersectAlpha(from, 255, matte, {0, 0});
        EXPECT_EQ(matte.Value(), std::min(source, destination));
        OnePixelImage image(static_cast<std::uint32_t>(destination) << 24 | 0xABCDEF);
        IntersectAlpha(from, 255, image, {0, 0});
        EXPECT_EQ(image.Word(), static_cast<std::uint32_t>(std::min(source, destination)) << 24 | 0xABCDEF);
    }
}

TEST(SubtractAlpha, OfAnOpaquePixelClearsTheAlphaAndKeepsTheColor) {
    EXPECT_EQ(Subtracted(0xFF123456, 0xFFABCDEF), 0x00ABCDEFU);
    EXPECT_EQ(Subtracted(0xFF123456, 0x80ABCDEF), 0x00ABCDEFU);
}

TEST(SubtractAlpha, TakesTheTruncatedProductAway) {
    EXPECT_EQ(Subtracted(0x80123456, 0xFFABCDEF), 0x7FABCDEFU);
    EXPECT_EQ(Subtracted(0x80123456, 0x40ABCDEF), 0x20ABCDEFU); // 64 - 8192 / 255
    EXPECT_EQ(Subtracted(0x01123456, 0xFEABCDEF), 0xFEABCDEFU); // 254 / 255 is 0
    EXPECT_EQ(Subtracted(0x00123456, 0x80ABCDEF), 0x80ABCDEFU);
}

TEST(XORAlpha, OfTwoOpaquePixelsGivesAlpha0AndTheSourceColor) { EXPECT_EQ(Xored(0xFF123456, 0xFFABCDEF), 0x00123456U); }

TEST(XORAlpha, KeepsAPixelWhenBothAreTransparent) { EXPECT_EQ(Xored(0x00123456, 0x00ABCDEF), 0x00ABCDEFU); }

TEST(XORAlpha, CopiesOntoATransparentPixelAndKeepsOneUnderATransparentSource) {
    EXPECT_EQ(Xored(0x80123456, 0x00ABCDEF), 0x80123456U);
    EXPECT_EQ(Xored(0x00123456, 0x80ABCDEF), 0x80ABCDEFU);
}

// The symmetric form would give 128 x 191 / 255 + 64 x 127 / 255 = 126 or so.
TEST(XORAlpha, TakesTheProductAwayFromTheLargerAlpha) {
    EXPECT_EQ(Xored(0x80000000, 0x40FFFFFF), 0x60333333U); // 128 - 8192 / 255
    EXPECT_EQ(Xored(0x40000000, 0x80FFFFFF), 0x60999999U); // w = 128 - 32 = 96, n = 160 and 255 x 96 / 160 = 153
}

} // namespace
} // namespace tn::test
