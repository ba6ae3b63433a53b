#include "tests/models/FillModels.h"
#include "tests/support/Cases.h"
#include "tests/support/Differential.h"
#include "tests/support/Surfaces.h"

#include "TnGraphics/ops/Fills.h"

#include <gtest/gtest.h>
#include <limits>

namespace tn::test {
namespace {

constexpr std::uint32_t kOldPixel = 0x12345678;
constexpr TnColor kColor = {0x80, 0x10, 0x20, 0x30};
constexpr std::uint32_t kColorWord = 0x80102030;
constexpr int kCases = 2500;

Rows DrawingOfColorFill(const TnRect& rect) {
    TnImage image({6, 4});
    SetAll(image, kOldPixel);
    ColorFill(image, rect, kColor);
    return Drawing<std::uint32_t>(ContentOf(image), kColorWord, kOldPixel);
}

const Rows kUntouched = {"......", "......", "......", "......"};

TEST(ColorFill, StoresTheColorInTheRectangleAndNowhereElse) {
    EXPECT_EQ(DrawingOfColorFill({1, 1, 3, 2}), (Rows{"......", ".###..", ".###..", "......"}));
}

TEST(ColorFill, TakesTheAlphaOfTheColor) {
    OnePixelImage image(kOldPixel);
    ColorFill(image, {0, 0, 1, 1}, {0, 1, 2, 3});
    EXPECT_EQ(image.Word(), 0x00010203U);
}

TEST(ColorFill, DoesNothingInAnEmptyRectangle) {
    EXPECT_EQ(DrawingOfColorFill({1, 1, 0, 2}), kUntouched);
    EXPECT_EQ(DrawingOfColorFill({1, 1, 3, 0}), kUntouched);
    EXPECT_EQ(DrawingOfColorFill({3, 3, -2, -2}), kUntouched);
}

TEST(ColorFill, DoesNothingInARectangleOutside) {
    EXPECT_EQ(DrawingOfColorFill({6, 0, 3, 3}), kUntouched);
    EXPECT_EQ(DrawingOfColorFill({0, 4, 3, 3}), kUntouched);
    EXPECT_EQ(DrawingOfColorFill({-3, 0, 3, 3}), kUntouched);
    EXPECT_EQ(DrawingOfColorFill({0, -3, 3, 3}), kUntouched);
}

TEST(ColorFill, CutsTheRectangleAtTheEdges) {
    EXPECT_EQ(DrawingOfColorFill({-2, -1, 4, 3}), (Rows{"##....", "##....", "......", "......"}));
    EXPECT_EQ(DrawingOfColorFill({4, 2, 4, 3}), (Rows{"......", "......", "....##", "....##"}));
}

TEST(ColorFill, TakesARectanglePastTheLargestCoordinateAsEverythingFromThere) {
    constexpr int kHuge = std::numeric_limits<int>::max();
    EXPECT_EQ(DrawingOfColorFill({1, 2, kHuge, kHuge}), (Rows{"......", "......", ".#####", ".#####"}));
}

TEST(ColorFill, CountsPositionsFromTheContentCorner) {
    TnImage image({6, 4});
    SetAll(image, kOldPixel);
    image.Content({2, 1, 3, 3});
    ColorFill(image, {-1, 1, 3, 9}, kColor);
    image.Content({0, 0, 6, 4});
    EXPECT_EQ(Drawing<std::uint32_t>(ContentOf(image), kColorWord, kOldPixel),
              (Rows{"......", "......", "..##..", "..##.."}));
}

TEST(ColorFill, EqualsItsModelInRandomPictures) {
    ForEachCase(kCases, [](Random& random) {
        Picture<TnImage> picture(random);
        const TnPoint size = picture.Surface().Size();
        const TnRect rect = random.Rect(size);
        const TnColor color = random.Color();
        ExpectLikeModel(
            picture, [&](TnImage& image) { ColorFill(image, rect, color); },
            [&](ModelImage& image) { model::ColorFill(image, rect, color); }, model::WalksOfFill(size, rect));
    });
}

TEST(AlphaFillOfAnImage, ReplacesTheAlphaAndKeepsTheColor) {
    OnePixelImage image(kOldPixel);
    AlphaFill(image, {0, 0, 1, 1}, 0xFF);
    EXPECT_EQ(image.Word(), 0xFF345678U);
    AlphaFill(image, {0, 0, 1, 1}, 0);
    EXPECT_EQ(image.Word(), 0x00345678U);
}

TEST(AlphaFillOfAnImage, TouchesTheRectangleOnly) {
    TnImage image({4, 3});
    SetAll(image, kOldPixel);
    AlphaFill(image, {2, 1, 5, 5}, 0x99);
    EXPECT_EQ(Drawing<std::uint32_t>(ContentOf(image), 0x99345678, kOldPixel), (Rows{"....", "..##", "..##"}));
}

TEST(AlphaFillOfAnImage, EqualsItsModelInRandomPictures) {
    ForEachCase(kCases, [](Random& random) {
        Picture<TnImage> picture(random);
        const TnPoint size = picture.Surface().Size();
        const TnRect rect = random.Rect(size);
        const std::uint8_t alpha = random.Alpha();
        ExpectLikeModel(
            picture, [&](TnImage& image) { AlphaFill(image, rect, alpha); },
            [&](ModelImage& image) { model::AlphaFill(image, rect, alpha); }, model::WalksOfFill(size, rect));
    });
}

TEST(AlphaFillOfAMatte, ReplacesTheValuesInTheRectangle) {
    TnMatte matte({4, 3});
    SetAll(matte, 7);
    AlphaFill(matte, {-1, 1, 3, 1}, 200);
    EXPECT_EQ(Drawing<std::uint8_t>(ContentOf(matte), 200, 7), (Rows{"....", "##..", "...."}));
}

TEST(AlphaFillOfAMatte, EqualsItsModelInRandomPictures) {
    ForEachCase(kCases, [](Random& random) {
        Picture<TnMatte> picture(random);
        const TnPoint size = picture.Surface().Size();
        const TnRect rect = random.Rect(size);
        const std::uint8_t value = random.Alpha();
        ExpectLikeModel(
            picture, [&](TnMatte& matte) { AlphaFill(matte, rect, value); },
            [&](ModelMatte& matte) { model::AlphaFill(matte, rect, value); }, model::WalksOfFill(size, rect));
    });
}

} // namespace
} // namespace tn::test
