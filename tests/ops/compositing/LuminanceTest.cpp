#include "tests/models/ColorModels.h"
#include "tests/ops/compositing/OnePixel.h"
#include "tests/support/Cases.h"
#include "tests/support/Levels.h"
#include "tests/support/PixelDiff.h"

#include <gtest/gtest.h>

namespace tn::test {
namespace {

constexpr TnPoint kOrigin = {0, 0};

std::uint32_t AlphaFromLuminance(std::uint32_t source, std::uint32_t destination) {
    return OnPixel(source, destination, [](const TnImage& s, TnImage& d) { CopyLuminenceToAlpha(s, d, kOrigin); });
}

int MatteFromLuminance(std::uint32_t source) {
    const OnePixelImage from(source);
    OneValueMatte to(99);
    CopyLuminenceToAlpha<TnMatte>(from, to, kOrigin);
    return to.Value();
}

std::uint32_t ColorFromMatte(int value, std::uint32_t destination) {
    const OneValueMatte from(static_cast<std::uint8_t>(value));
    OnePixelImage to(destination);
    CopyAlphaToLuminence<TnMatte>(from, to, kOrigin);
    return to.Word();
}

TEST(CopyLuminenceToAlpha, OfWhiteGives0AndOfBlack255) {
    EXPECT_EQ(AlphaFromLuminance(0xFFFFFFFF, 0x80123456), 0x00123456U);
    EXPECT_EQ(AlphaFromLuminance(0xFF000000, 0x80123456), 0xFF123456U);
    EXPECT_EQ(MatteFromLuminance(0xFFFFFFFF), 0);
    EXPECT_EQ(MatteFromLuminance(0xFF000000), 255);
}

TEST(CopyLuminenceToAlpha, WeighsTheColorsInThousandths) {
    EXPECT_EQ(MatteFromLuminance(0xFFFF0000), 255 - 76); // 299 x 255 / 1000 = 76.2
    EXPECT_EQ(MatteFromLuminance(0xFF00FF00), 255 - 149);
    EXPECT_EQ(MatteFromLuminance(0xFF0000FF), 255 - 29);
}

TEST(CopyLuminenceToAlpha, LooksNotAtTheAlphaOfTheSource) {
    for (const std::uint32_t alpha : {0x00000000U, 0x80000000U, 0xFF000000U}) {
        EXPECT_EQ(MatteFromLuminance(alpha | 0xFFFFFF), 0);
        EXPECT_EQ(AlphaFromLuminance(alpha | 0x000000, 0x00ABCDEF), 0xFFABCDEFU);
    }
}

TEST(CopyAlphaToLuminence, Of255GivesBlackAndOf0White) {
    EXPECT_EQ(ColorFromMatte(255, 0x80123456), 0x80000000U);
    EXPECT_EQ(ColorFromMatte(0, 0x80123456), 0x80FFFFFFU);
}

TEST(CopyAlphaToLuminence, GivesTheSameGreyToAllThreeAndKeepsTheAlpha) {
    EXPECT_EQ(ColorFromMatte(1, 0x00123456), 0x00FEFEFEU);
    EXPECT_EQ(ColorFromMatte(200, 0xFF123456), 0xFF373737U);
}

// Columns run through blue, rows through green.
void PaintEveryColorWith(std::uint32_t red, TnImage& image) {
    for (std::uint32_t green = 0; green < 256; ++green) {
        auto row = image.begin({0, static_cast<int>(green), 256, 1});
        for (std::uint32_t blue = 0; blue < 256; ++blue, row.Next()) {
            *row = 0x80000000U | red << 16 | green << 8 | blue;
        }
    }
}

ModelMatte InvertedLuminanceOfEveryColorWith(int red) {
    ModelMatte expected = UniformPicture<std::uint8_t>(256, 256, 0);
    for (int green = 0; green < 256; ++green) {
        for (int blue = 0; blue < 256; ++blue) {
            expected.At(blue, green) = static_cast<std::uint8_t>(255 - model::YuvOfRgb({red, green, blue})[0]);
        }
    }
    return expected;
}

ModelImage WithTheseAlphas(const ModelMatte& alphas) {
    ModelImage image = UniformPicture<std::uint32_t>(alphas.Width(), alphas.Height(), 0);
    for (std::size_t i = 0; i < alphas.values.size(); ++i) {
        image.values[i] = alphas.values[i] * 0x1000000U + 0x123456;
    }
    return image;
}

TEST(CopyLuminenceToAlpha, IsExactForEveryColor) {
    TnImage source({256, 256});
    TnMatte matte({256, 256});
    TnImage image({256, 256});
    SetAll(image, 0x00123456);
    const int step = IsSoaking() ? 1 : 15; // of the reds, both ends included
    for (int red = 0; red < 256 && !HasFailure(); red += step) {
        SCOPED_TRACE(red);
        PaintEveryColorWith(static_cast<std::uint32_t>(red), source);
        const ModelMatte expected = InvertedLuminanceOfEveryColorWith(red);
        ForEachSupportedLevel([&](ProcessorLevel) {
            CopyLuminenceToAlpha(source, matte, kOrigin);
            EXPECT_TRUE(SamePixels(expected, matte));
            CopyLuminenceToAlpha(source, image, kOrigin);
            EXPECT_TRUE(SamePixels(WithTheseAlphas(expected), image));
        });
    }
}

} // namespace
} // namespace tn::test
