#include "TnGraphics/color/HsvConversion.h"

#include "tests/color/EveryTriple.h"

#include <gtest/gtest.h>
#include <limits>

namespace tn::test {
namespace {

constexpr float kHighest = std::numeric_limits<float>::max();
constexpr float kInfinity = std::numeric_limits<float>::infinity();
constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
constexpr int kCases = 3000;
constexpr int kColorsOfACase = 100;

TEST(DarkenColor, KeepsEveryColorAtFactor1WithoutItsAlpha) {
    EXPECT_EQ(DarkenColor({255, 200, 100, 50}, 1), TnColor(0, 200, 100, 50));
    ExpectAlikeForEveryTriple([](const Triple& rgb) { return ColorOf(rgb, 0); },
                              [](const Triple& rgb) { return DarkenColor(ColorOf(rgb, 255), 1); });
}

TEST(DarkenColor, ScalesAllChannelsAlike) {
    EXPECT_EQ(DarkenColor({255, 200, 100, 50}, 0.5F), TnColor(0, 100, 50, 25));
}

TEST(DarkenColor, TruncatesGreys) {
    EXPECT_EQ(DarkenColor({255, 255, 255, 255}, 0.5F), TnColor(0, 127, 127, 127));
    EXPECT_EQ(DarkenColor({255, 255, 255, 254}, 0.5F), TnColor(0, 128, 128, 127));
}

// The exact product of the two floats is a trifle below 140 / 255; the record's value is the float above it.
TEST(DarkenColor, KeepsTheScaledValueInSinglePrecision) {
    EXPECT_EQ(DarkenColor({255, 200, 200, 200}, 0.7F), TnColor(0, 140, 140, 140));
}

TEST(DarkenColor, MakesBlackAtFactor0) {
    EXPECT_EQ(DarkenColor({255, 200, 100, 50}, 0), TnColor(0, 0, 0, 0));
    EXPECT_EQ(DarkenColor({255, 200, 200, 200}, 0), TnColor(0, 0, 0, 0));
}

TEST(DarkenColor, BrightensUpToFullValue) {
    EXPECT_EQ(DarkenColor({255, 40, 20, 10}, 2), TnColor(0, 80, 40, 20));
    EXPECT_EQ(DarkenColor({255, 200, 100, 0}, 2), TnColor(0, 255, 128, 0));
    EXPECT_EQ(DarkenColor({255, 200, 100, 0}, kHighest), TnColor(0, 255, 128, 0));
    EXPECT_EQ(DarkenColor({255, 200, 200, 200}, kInfinity), TnColor(0, 255, 255, 255));
}

TEST(DarkenColor, KeepsBlackBlack) {
    EXPECT_EQ(DarkenColor({255, 0, 0, 0}, 5), TnColor(0, 0, 0, 0));
    EXPECT_EQ(DarkenColor({255, 0, 0, 0}, kInfinity), TnColor(0, 0, 0, 0));
}

TEST(DarkenColor, AlwaysGivesAlpha0) {
    for (const std::uint8_t alpha : {std::uint8_t{0}, std::uint8_t{1}, std::uint8_t{128}, std::uint8_t{255}}) {
        EXPECT_EQ(DarkenColor({alpha, 10, 20, 30}, 1).alpha, 0);
    }
}

// As with hues on no circle.
TEST(DarkenColor, GivesAColorForFactorsThatMeanNothing) {
    for (const float factor : {-1.0F, -kHighest, -kInfinity, kNaN}) {
        EXPECT_EQ(DarkenColor({255, 10, 20, 30}, factor).alpha, 0) << factor;
        EXPECT_EQ(DarkenColor({255, 20, 20, 20}, factor).alpha, 0) << factor;
    }
}

// From 0 to 4, in half of the cases at most 1.
float RandomFactor(Random& random) {
    const double sixteenBits = random.Between(0, random.OneIn(2) ? 1 << 16 : 4 << 16);
    return static_cast<float>(sixteenBits * 0x1p-16);
}

TEST(DarkenColor, EqualsItsModelForRandomColorsAndFactors) {
    ForEachCase(kCases, [](Random& random) {
        for (int i = 0; i < kColorsOfACase; ++i) {
            TnColor color = random.Color();
            if (random.OneIn(8)) {
                color.green = color.blue = color.red;
            }
            const float factor = RandomFactor(random);
            EXPECT_EQ(DarkenColor(color, factor), ColorOf(model::Darkened(TripleOf(color), factor)))
                << ::testing::PrintToString(TripleOf(color)) << " by " << factor;
        }
    });
}

} // namespace
} // namespace tn::test
