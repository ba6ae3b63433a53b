// The transform that mixes towards a colour.

#include "TnGraphics/color/TnColorTransform.h"

#include "tests/color/EveryTriple.h"

#include <gtest/gtest.h>
#include <limits>
#include <vector>

namespace tn::test {
namespace {

constexpr int kLowest = std::numeric_limits<int>::min();
constexpr int kHighest = std::numeric_limits<int>::max();
constexpr int kCases = 3000;
constexpr int kColorsOfACase = 20;

model::Mix MixOf(const TnColorTransform& transform) {
    EXPECT_EQ(transform.green.scale, transform.red.scale);
    EXPECT_EQ(transform.blue.scale, transform.red.scale);
    EXPECT_EQ(transform.alpha, TnChannelTransform());
    return {transform.red.scale, {transform.red.offset, transform.green.offset, transform.blue.offset}};
}

model::Mix MixTowards(const Triple& rgb, int percent) {
    return MixOf(GetColorMatrixForBlend(ColorOf(rgb, 77), percent));
}

// A grey mixed with a grey.
int Mixed(int value, int towards, int percent) {
    const Triple grey = {towards, towards, towards};
    return ColorTransform(ColorOf({value, value, value}), GetColorMatrixForBlend(ColorOf(grey), percent)).red;
}

TEST(GetColorMatrixForBlend, IsTheIdentityAt0) {
    for (const TnColor& color : {TnColor(), TnColor(255, 255, 255, 255), TnColor(1, 2, 3, 4)}) {
        EXPECT_TRUE(GetColorMatrixForBlend(color, 0) == TnColorTransform());
        EXPECT_TRUE(IsNoChangeColorTransform(GetColorMatrixForBlend(color, 0)));
    }
}

TEST(GetColorMatrixForBlend, ReplacesTheColorAt100) {
    const TnColorTransform transform = GetColorMatrixForBlend({9, 10, 20, 30}, 100);
    EXPECT_TRUE(transform == (TnColorTransform{{0, 10}, {0, 20}, {0, 30}, {256, 0}}));
    EXPECT_EQ(ColorTransform(TnColor(0x80, 1, 128, 255), transform), TnColor(0x80, 10, 20, 30));
    EXPECT_EQ(ColorTransform(TnImagePixel(0x00FFFFFF), transform), TnImagePixel(0x000A141E));
}

TEST(GetColorMatrixForBlend, FallsShortOfWhiteAt50) {
    EXPECT_EQ(MixTowards({255, 255, 255}, 50), (model::Mix{128, {127, 127, 127}}));
    EXPECT_EQ(Mixed(0, 255, 50), 127);
    EXPECT_EQ(Mixed(255, 255, 50), 254);
}

TEST(GetColorMatrixForBlend, TruncatesTheMix) {
    EXPECT_EQ(MixTowards({255, 100, 1}, 1), (model::Mix{253, {2, 0, 0}}));        // k = 2
    EXPECT_EQ(MixTowards({255, 100, 1}, -1), (model::Mix{258, {-2, 0, 0}}));      // k = -2, not -3
    EXPECT_EQ(MixTowards({255, 100, 1}, -50), (model::Mix{383, {-127, -49, 0}})); // k = -127
}

TEST(GetColorMatrixForBlend, GoesPastTheColorAbove100) {
    EXPECT_EQ(MixTowards({255, 100, 1}, 200), (model::Mix{-256, {510, 200, 2}}));
    EXPECT_EQ(Mixed(30, 100, 200), 170);
}

TEST(GetColorMatrixForBlend, GoesAwayFromTheColorBelow0) {
    EXPECT_EQ(MixTowards({255, 100, 1}, -100), (model::Mix{512, {-255, -100, -1}}));
    EXPECT_EQ(Mixed(120, 100, -100), 140);
}

TEST(GetColorMatrixForBlend, DisregardsTheAlphaOfTheColor) {
    EXPECT_TRUE(GetColorMatrixForBlend({0, 1, 2, 3}, 40) == GetColorMatrixForBlend({255, 1, 2, 3}, 40));
}

TEST(GetColorMatrixForBlend, KeepsTheLow16BitsOfEveryField) {
    EXPECT_EQ(MixTowards({255, 100, 1}, 12851), (model::Mix{-32642, {-32766, 12850, 128}}));   // k = 32770
    EXPECT_EQ(MixTowards({255, 100, 1}, -12851), (model::Mix{-32382, {32766, -12850, -128}})); // scale 33154
}

TEST(GetColorMatrixForBlend, WrapsProductsTo32BitsBeforeTheyAreDivided) {
    EXPECT_EQ(MixTowards({1, 0, 0}, 8421504).offsets[0], 18679);    // k = 21474835, the offset 84215
    EXPECT_EQ(MixTowards({1, 0, 0}, 8421505).offsets[0], -18679);   // k = -21474835
    EXPECT_EQ(MixTowards({0, 0, 0}, 3289752).scale, -32644);        // 2147482624 / 255 is 8421500
    EXPECT_EQ(MixTowards({255, 0, 0}, 4000000).offsets[0], -23873); // -1693967296 / 255 is -6643009
    EXPECT_EQ(MixTowards({255, 100, 1}, kHighest), (model::Mix{2809, {-21233, -32641, 18679}}));
    EXPECT_EQ(MixTowards({255, 100, 1}, kLowest), (model::Mix{-2294, {21230, 32640, -18679}}));
}

TEST(GetColorMatrixForBlend, FallsAtMostTwoShortOfTheExactMix) {
    const int stride = StrideInHaste(17);
    for (int percent = 0; percent <= 100; ++percent) {
        const int k = percent * 255 / 100;
        for (int value = 0; value < 256; value += stride) {
            for (int towards = 0; towards < 256; towards += stride) {
                const int shortfall = (value * (255 - k) + towards * k) / 255 - Mixed(value, towards, percent);
                ASSERT_TRUE(0 <= shortfall && shortfall <= 2) << value << " towards " << towards << " by " << percent;
            }
        }
    }
}

void ExpectLikeModel(const Triple& rgb, int percent) {
    EXPECT_EQ(MixTowards(rgb, percent), model::MixTowards(rgb, percent))
        << ::testing::PrintToString(rgb) << " by " << percent;
}

std::vector<int> ManyPercents() {
    std::vector<int> percents;
    for (int percent = -1000; percent <= 1000; ++percent) {
        percents.push_back(percent);
    }
    for (int bit = 10; bit < 31; ++bit) {
        const int power = 1 << bit;
        percents.insert(percents.end(), {power - 1, power, power + 1, -power - 1, -power, -power + 1});
    }
    for (const int end : {8421504, 3289649, 12850}) { // before the products and the fields wrap
        percents.insert(percents.end(), {end, end + 1, -end, -end - 1});
    }
    for (int i = 0; i <= 100; ++i) {
        percents.insert(percents.end(), {kLowest + i, kHighest - i});
    }
    return percents;
}

TEST(GetColorMatrixForBlend, EqualsItsModelForManyPercentagesOfEveryValue) {
    const int stride = StrideInHaste(17);
    for (const int percent : ManyPercents()) {
        for (int value = 0; value < 256 && !HasFailure(); value += stride) {
            ExpectLikeModel({value, 255 - value, value ^ 0x55}, percent);
        }
    }
}

TEST(GetColorMatrixForBlend, EqualsItsModelForRandomPercentages) {
    ForEachCase(kCases, [](Random& random) {
        for (int i = 0; i < kColorsOfACase; ++i) {
            const int percent = random.OneIn(2) ? static_cast<int>(random.Word()) : random.Between(-40000, 40000);
            ExpectLikeModel({random.Channel(), random.Channel(), random.Channel()}, percent);
        }
    });
}

} // namespace
} // namespace tn::test
