#include "tests/models/CombinationModels.h"
#include "tests/ops/compositing/OnePixel.h"
#include "tests/support/Cases.h"
#include "tests/support/Levels.h"
#include "tests/support/PixelDiff.h"

#include <gtest/gtest.h>
#include <limits>

namespace tn::test {
namespace {

constexpr int kLowest = std::numeric_limits<int>::min();
constexpr int kHighest = std::numeric_limits<int>::max();

// The alpha that an opacity leaves of one, seen through a copy.
int ScaledAlpha(int alpha, int opacity) {
    const std::uint32_t copied = OnPixel(static_cast<std::uint32_t>(alpha) << 24, 0, [&](const TnImage& s, TnImage& d) {
        TnCopy(s, {}, opacity, d, {0, 0}, {0, 0, 1, 1});
    });
    return static_cast<int>(copied >> 24);
}

TEST(CompositingOpacity, KeepsEveryAlphaAt255) {
    for (int alpha = 0; alpha < 256; ++alpha) {
        EXPECT_EQ(ScaledAlpha(alpha, 255), alpha);
    }
}

TEST(CompositingOpacity, TruncatesTheQuotient) {
    EXPECT_EQ(ScaledAlpha(255, 128), 128);
    EXPECT_EQ(ScaledAlpha(128, 128), 64); // 64.25
    EXPECT_EQ(ScaledAlpha(254, 254), 253);
    EXPECT_EQ(ScaledAlpha(127, 2), 0); // 254 / 255
    EXPECT_EQ(ScaledAlpha(255, 0), 0);
}

TEST(CompositingOpacity, KeepsTheLowByteAbove255) {
    EXPECT_EQ(ScaledAlpha(255, 256), 0);
    EXPECT_EQ(ScaledAlpha(128, 256), 128); // 128.5
    EXPECT_EQ(ScaledAlpha(255, 257), 1);
    EXPECT_EQ(ScaledAlpha(255, 510), 254);
}

TEST(CompositingOpacity, TruncatesTowards0AndKeepsTheLowByteBelow0) {
    EXPECT_EQ(ScaledAlpha(255, -1), 255);
    EXPECT_EQ(ScaledAlpha(254, -1), 0); // -254 / 255 is 0
    EXPECT_EQ(ScaledAlpha(255, -255), 1);
    EXPECT_EQ(ScaledAlpha(128, -255), 128);
    EXPECT_EQ(ScaledAlpha(128, -3), 255); // -384 / 255 is -1
}

TEST(CompositingOpacity, KeepsTheLow32BitsOfTheProduct) {
    EXPECT_EQ(ScaledAlpha(255, kHighest), 127);    // 2147483393 / 255 = 8421503.5
    EXPECT_EQ(ScaledAlpha(2, kHighest), 0);        // -2
    EXPECT_EQ(ScaledAlpha(1, kHighest), 128);      // 8421504
    EXPECT_EQ(ScaledAlpha(255, kLowest), 128);     // -2147483648 / 255 = -8421504.5
    EXPECT_EQ(ScaledAlpha(2, kLowest), 0);         // 0
    EXPECT_EQ(ScaledAlpha(255, kLowest + 1), 129); // -2147483393
    EXPECT_EQ(ScaledAlpha(255, 8421505), 0x80);    // 2147483775 is -2147483521, by 255 -8421504
    EXPECT_EQ(ScaledAlpha(255, 8421504), 0x80);    // 2147483520, by 255 8421504
}

TEST(CompositingOpacity, DecidesWithItsLowByteWhetherAPixelCountsAsTransparent) {
    EXPECT_EQ(Blended(0xFF123456, 0x80ABCDEF, 256), 0x80ABCDEFU);
    EXPECT_EQ(PreBlended(0xFF123456, 0x80ABCDEF, 256), 0x80ABCDEFU);
    EXPECT_EQ(Intersected(0xFF123456, 0x80ABCDEF, 256), 0x00ABCDEFU);
}

TEST(CompositingOpacity, DecidesWithItsLowByteWhetherAPixelCountsAsOpaque) {
    EXPECT_EQ(Blended(0xFF123456, 0x80ABCDEF, -1), 0xFF123456U);
    EXPECT_EQ(PreBlended(0xFF123456, 0x80ABCDEF, -1), 0xFF123456U);
    EXPECT_EQ(Subtracted(0xFF123456, 0x80ABCDEF, -1), 0x00ABCDEFU);
}

TEST(CompositingOpacity, ScalesNoColor) { EXPECT_EQ(Xored(0xFFFFFFFF, 0x00000000, 128), 0x80FFFFFFU); }

TEST(CompositingOpacity, ScalesTheValueOfAMatte) {
    const OneValueMatte source(255);
    OneValueMatte matte(200);
    IntersectAlpha(source, 128, matte, {0, 0});
    EXPECT_EQ(matte.Value(), 128);
    IntersectAlpha(source, 256, matte, {0, 0});
    EXPECT_EQ(matte.Value(), 0);
    OnePixelImage image(0xC8123456);
    IntersectAlpha(source, 128, image, {0, 0});
    EXPECT_EQ(image.Word(), 0x80123456U);
}

std::vector<int> ManyOpacities() {
    std::vector<int> opacities;
    for (int opacity = -1100; opacity <= 1100; ++opacity) {
        opacities.push_back(opacity);
    }
    for (int bit = 10; bit < 32; ++bit) {
        const auto power = static_cast<std::uint32_t>(1) << bit;
        for (const std::uint32_t word : {power - 2, power - 1, power, power + 1, 0 - power, 1 - power}) {
            opacities.push_back(static_cast<int>(word));
        }
    }
    // about the products at which 32 bits overflow, for some alphas
    for (const int alpha : {1, 2, 3, 127, 128, 129, 254, 255}) {
        for (int around = -2; around <= 2; ++around) {
            const std::int64_t opacity = (std::int64_t{1} << 31) / alpha + around;
            opacities.push_back(static_cast<int>(opacity & 0x7FFFFFFF));
            opacities.push_back(-static_cast<int>(opacity & 0x7FFFFFFF));
        }
    }
    return opacities;
}

// All alphas in one row.
class EveryAlpha : public AtLevel {
protected:
    EveryAlpha() {
        for (int alpha = 0; alpha < 256; ++alpha) {
            SetPixel(source_, alpha, 0, static_cast<std::uint32_t>(alpha) << 24 | 0x123456);
            SetPixel(matteSource_, alpha, 0, static_cast<std::uint8_t>(alpha));
        }
    }

    TnImage source_{{256, 1}};
    TnMatte matteSource_{{256, 1}};
};

INSTANTIATE_TEST_SUITE_P(Levels, EveryAlpha, ::testing::ValuesIn(kProcessorLevels), LevelTestName);

TEST_P(EveryAlpha, IsScaledByManyOpacities) {
    TnImage image({256, 1}, true);
    TnMatte matte({256, 1}, true);
    for (const int opacity : ManyOpacities()) {
        SCOPED_TRACE(opacity);
        ModelImage expected = UniformPicture<std::uint32_t>(256, 1, 0);
        ModelMatte expectedMatte = UniformPicture<std::uint8_t>(256, 1, 0);
        for (int alpha = 0; alpha < 256; ++alpha) {
            const auto scaled = static_cast<std::uint8_t>(model::ScaledAlpha(alpha, opacity));
            expected.At(alpha, 0) = std::uint32_t{scaled} << 24 | 0x123456;
            expectedMatte.At(alpha, 0) = scaled;
        }
        TnCopy(source_, {}, opacity, image, {0, 0}, image.Bounds());
        SetAll(matte, 255);
        IntersectAlpha(matteSource_, opacity, matte, {0, 0});
        ASSERT_TRUE(SamePixels(expected, image));
        ASSERT_TRUE(SamePixels(expectedMatte, matte));
    }
}

} // namespace
} // namespace tn::test
