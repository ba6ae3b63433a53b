#include "tests/models/FillModels.h"
#include "tests/support/Cases.h"
#include "tests/support/Differential.h"
#include "tests/support/Surfaces.h"

#include "TnGraphics/ops/Fills.h"

#include <array>
#include <gtest/gtest.h>
#include <limits>

namespace tn::test {
namespace {

constexpr int kLowest = std::numeric_limits<int>::min();
constexpr int kHighest = std::numeric_limits<int>::max();
constexpr int kCases = 2500;

std::uint32_t AtOpacity(std::uint32_t pixel, int percent) {
    OnePixelImage image(pixel);
    SetOpacity(image, percent);
    return image.Word();
}

std::uint32_t AlphaAtOpacity(std::uint32_t alpha, int percent) { return AtOpacity(alpha << 24, percent) >> 24; }

TEST(SetOpacity, KeepsEveryAlphaAt100) {
    for (std::uint32_t alpha = 0; alpha < 256; ++alpha) {
        EXPECT_EQ(AlphaAtOpacity(alpha, 100), alpha);
    }
}

TEST(SetOpacity, HalvesEveryAlphaRoundedDownAt50) {
    for (std::uint32_t alpha = 0; alpha < 256; ++alpha) {
        EXPECT_EQ(AlphaAtOpacity(alpha, 50), alpha / 2);
    }
}

TEST(SetOpacity, MakesPixelsTransparentAt0AndKeepsTheirColor) { EXPECT_EQ(AtOpacity(0xFF123456, 0), 0x00123456U); }

TEST(SetOpacity, KeepsTheColor) {
    EXPECT_EQ(AtOpacity(0x80123456, 50), 0x40123456U);
    EXPECT_EQ(AtOpacity(0x80FFFFFF, 33), 0x2AFFFFFFU);
}

TEST(SetOpacity, TruncatesTheFactorAndTheProduct) {
    EXPECT_EQ(AlphaAtOpacity(255, 33), 84U); // the factor is 21626, the product 84.15
    EXPECT_EQ(AlphaAtOpacity(255, 1), 2U);   // 655 and 2.55
    EXPECT_EQ(AlphaAtOpacity(100, 1), 0U);   // 655 and 0.9995
}

TEST(SetOpacity, WrapsAbove100) {
    EXPECT_EQ(AlphaAtOpacity(255, 200), 254U);
    EXPECT_EQ(AlphaAtOpacity(128, 200), 0U);
    EXPECT_EQ(AlphaAtOpacity(255, 101), 1U);    // 66191 and 257.55
    EXPECT_EQ(AlphaAtOpacity(255, 32767), 99U); // 21474181 and 83555.85, which is 99 above 326 x 256
}

TEST(SetOpacity, WrapsBelow0) {
    EXPECT_EQ(AlphaAtOpacity(1, -100), 255U);
    EXPECT_EQ(AlphaAtOpacity(255, -100), 1U);
    EXPECT_EQ(AlphaAtOpacity(0, -100), 0U);
}

TEST(SetOpacity, TruncatesNegativeFactorsTowardsZeroAndNegativeProductsDownwards) {
    EXPECT_EQ(AlphaAtOpacity(1, -1), 255U);    // -655, and -0.01 becomes -1
    EXPECT_EQ(AlphaAtOpacity(255, -50), 128U); // -32768, and -127.5 becomes -128
    EXPECT_EQ(AlphaAtOpacity(100, -1), 255U);  // -655 and not -656, which would give 254
    EXPECT_EQ(AlphaAtOpacity(255, -33), 171U); // -21626, and -84.15 becomes -85
}

TEST(SetOpacity, WrapsTheDividendTo32BitsBeforeTheDivision) {
    EXPECT_EQ(AlphaAtOpacity(255, 65536 + 100), 255U);
    EXPECT_EQ(AlphaAtOpacity(255, 65536), 0U);
    EXPECT_EQ(AlphaAtOpacity(1, 32768), 184U);      // -21474836, and -327.68 becomes -328
    EXPECT_EQ(AlphaAtOpacity(255, kHighest), 253U); // as -1: -655, and -2.55 becomes -3
    EXPECT_EQ(AlphaAtOpacity(255, kLowest), 0U);
    EXPECT_EQ(AlphaAtOpacity(255, kLowest + 1), 2U); // as 1
}

TEST(SetOpacity, VisitsTheWholeContentAndNothingElse) {
    TnImage image({4, 3});
    SetAll(image, 0xFF000000);
    image.Content({1, 1, 2, 9});
    SetOpacity(image, 0);
    image.Content({0, 0, 4, 3});
    EXPECT_EQ(Drawing<std::uint32_t>(ContentOf(image), 0, 0xFF000000), (Rows{"....", ".##.", ".##."}));
}

int RandomPercent(Random& random) {
    constexpr std::array<int, 8> kEnds = {kLowest, kLowest + 1, -32768, -32767, 32767, 32768, kHighest - 1, kHighest};
    switch (random.Between(0, 3)) {
    case 0:
        return random.OneOf(kEnds);
    case 1:
        return static_cast<int>(random.Word());
    case 2:
        return random.Between(-1000, 1000);
    default:
        return random.Between(0, 100);
    }
}

TEST(SetOpacity, EqualsItsModelInRandomPictures) {
    ForEachCase(kCases, [](Random& random) {
        Picture<TnImage> picture(random);
        const int percent = RandomPercent(random);
        const TnRect bounds = picture.Surface().Bounds();
        ExpectLikeModel(
            picture, [&](TnImage& image) { SetOpacity(image, percent); },
            [&](ModelImage& image) { model::SetOpacity(image, percent); },
            model::WalksOfFill(picture.Surface().Size(), bounds));
    });
}

} // namespace
} // namespace tn::test
