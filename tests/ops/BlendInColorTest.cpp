#include "tests/models/FillModels.h"
#include "tests/support/Cases.h"
#include "tests/support/Differential.h"
#include "tests/support/Surfaces.h"

#include "TnGraphics/ops/Fills.h"

#include <gtest/gtest.h>
#include <initializer_list>

namespace tn::test {
namespace {

constexpr TnColor kColor = {0x77, 255, 100, 3};
constexpr int kCases = 2500;

std::uint32_t BlendedIn(std::uint32_t pixel, const TnColor& color, bool fillTransparent) {
    OnePixelImage image(pixel);
    BlendInColor(image, color, fillTransparent);
    return image.Word();
}

std::uint32_t BlendedInAndFilled(std::uint32_t pixel, const TnColor& color, std::uint8_t alpha) {
    OnePixelImage image(pixel);
    BlendInColorAndFillAlpha(image, color, alpha);
    return image.Word();
}

TEST(BlendInColor, PutsTheColorBehindAHalfTransparentPixel) {
    EXPECT_EQ(BlendedIn(0x80000000, {0, 255, 0, 0}, false), 0x807F0000U);
}

TEST(BlendInColor, TruncatesTheQuotient) {
    // Red (255 x 127 + 200 x 128) / 255 = 227.39, green 150.19, blue (3 x 127 + 1 x 128) / 255 = 1.99.
    EXPECT_EQ(BlendedIn(0x80C8C801, kColor, false), 0x80E39601U);
}

TEST(BlendInColor, BlendsTheAlphasNextToTheSpecialOnes) {
    // (255 x 254 + 0 x 1) / 255 = 254 and (255 x 1 + 0 x 254) / 255 = 1.
    EXPECT_EQ(BlendedIn(0x01000000, {0, 255, 255, 255}, false), 0x01FEFEFEU);
    EXPECT_EQ(BlendedIn(0xFE000000, {0, 255, 255, 255}, false), 0xFE010101U);
}

TEST(BlendInColor, LeavesOpaquePixelsAlone) {
    EXPECT_EQ(BlendedIn(0xFF123456, kColor, false), 0xFF123456U);
    EXPECT_EQ(BlendedIn(0xFF123456, kColor, true), 0xFF123456U);
}

TEST(BlendInColor, LeavesTransparentPixelsAloneWithoutTheFlag) {
    EXPECT_EQ(BlendedIn(0x00123456, kColor, false), 0x00123456U);
}

TEST(BlendInColor, GivesTransparentPixelsTheColorWithTheFlag) {
    EXPECT_EQ(BlendedIn(0x00123456, kColor, true), 0x00FF6403U);
}

TEST(BlendInColor, IgnoresTheAlphaOfTheColor) {
    for (const std::uint8_t alpha : std::initializer_list<std::uint8_t>{0, 1, 128, 255}) {
        EXPECT_EQ(BlendedIn(0x80C8C801, {alpha, 255, 100, 3}, true), 0x80E39601U);
    }
}

TEST(BlendInColor, VisitsTheWholeContentAndNothingElse) {
    TnImage image({4, 3});
    SetAll(image, 0);
    image.Content({1, 1, 2, 9});
    BlendInColor(image, kColor, true);
    image.Content({0, 0, 4, 3});
    EXPECT_EQ(Drawing<std::uint32_t>(ContentOf(image), 0x00FF6403, 0), (Rows{"....", ".##.", ".##."}));
}

TEST(BlendInColor, EqualsItsModelInRandomPictures) {
    ForEachCase(kCases, [](Random& random) {
        Picture<TnImage> picture(random);
        const TnColor color = random.Color();
        const bool fillTransparent = random.OneIn(2);
        const TnRect bounds = picture.Surface().Bounds();
        ExpectLikeModel(
            picture, [&](TnImage& image) { BlendInColor(image, color, fillTransparent); },
            [&](ModelImage& image) { model::BlendInColor(image, color, fillTransparent); },
            model::WalksOfFill(picture.Surface().Size(), bounds));
    });
}

TEST(BlendInColorAndFillAlpha, BlendsByTheOldAlphaAndStoresTheNewOne) {
    EXPECT_EQ(BlendedInAndFilled(0x80C8C801, kColor, 0x11), 0x11E39601U);
}

TEST(BlendInColorAndFillAlpha, MakesEveryPixelOpaqueWithAlpha255) {
    EXPECT_EQ(BlendedInAndFilled(0x00123456, kColor, 255), 0xFFFF6403U);
    EXPECT_EQ(BlendedInAndFilled(0x80C8C801, kColor, 255), 0xFFE39601U);
    EXPECT_EQ(BlendedInAndFilled(0xFF123456, kColor, 255), 0xFF123456U);
}

TEST(BlendInColorAndFillAlpha, StoresTheAlphaInUntouchedPixelsToo) {
    EXPECT_EQ(BlendedInAndFilled(0xFF123456, kColor, 0), 0x00123456U);
}

TEST(BlendInColorAndFillAlpha, EqualsItsModelInRandomPictures) {
    ForEachCase(kCases, [](Random& random) {
        Picture<TnImage> picture(random);
        const TnColor color = random.Color();
        const std::uint8_t alpha = random.Alpha();
        const TnRect bounds = picture.Surface().Bounds();
        ExpectLikeModel(
            picture, [&](TnImage& image) { BlendInColorAndFillAlpha(image, color, alpha); },
            [&](ModelImage& image) { model::BlendInColorAndFillAlpha(image, color, alpha); },
            model::WalksOfFill(picture.Surface().Size(), bounds));
    });
}

} // namespace
} // namespace tn::test
