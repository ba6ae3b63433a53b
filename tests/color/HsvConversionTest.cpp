#include "TnGraphics/color/HsvConversion.h"

#include "tests/color/EveryTriple.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <gtest/gtest.h>
#include <limits>
#include <ostream>
#include <type_traits>

// Found by GoogleTest through the type's namespace.
static void PrintTo(const TnHSVColor& hsv, std::ostream* stream) {
    *stream << "hue " << hsv.hue << ", saturation " << hsv.saturation << ", value " << hsv.value;
}

namespace tn::test {
namespace {

static_assert(sizeof(TnHSVColor) == 16);
static_assert(std::is_trivially_copyable_v<TnHSVColor>);
static_assert(std::is_standard_layout_v<TnHSVColor>);
static_assert(offsetof(TnHSVColor, unused) == 0);
static_assert(offsetof(TnHSVColor, hue) == 4);
static_assert(offsetof(TnHSVColor, saturation) == 8);
static_assert(offsetof(TnHSVColor, value) == 12);

constexpr float kHighest = std::numeric_limits<float>::max();
constexpr float kInfinity = std::numeric_limits<float>::infinity();
constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
constexpr float kTiny = std::numeric_limits<float>::denorm_min();
constexpr int kCases = 3000;
constexpr int kColorsOfACase = 100;

TnHSVColor HsvOf(const TnColor& color) {
    TnHSVColor hsv;
    RGBToHSV(color, hsv);
    return hsv;
}

TnHSVColor Record(const model::Hsv& hsv) { return {0.0F, hsv.hue, hsv.saturation, hsv.value}; }

Triple RgbOf(float hue, float saturation, float value) {
    TnColor color;
    HSVToRGB({kNaN, hue, saturation, value}, color);
    return TripleOf(color);
}

TEST(RGBToHSV, GivesTheCornersOfTheCircle) {
    EXPECT_EQ(HsvOf({255, 255, 0, 0}), (TnHSVColor{0, 0, 1, 1}));
    EXPECT_EQ(HsvOf({255, 255, 255, 0}), (TnHSVColor{0, 60, 1, 1}));
    EXPECT_EQ(HsvOf({255, 0, 255, 0}), (TnHSVColor{0, 120, 1, 1}));
    EXPECT_EQ(HsvOf({255, 0, 255, 255}), (TnHSVColor{0, 180, 1, 1}));
    EXPECT_EQ(HsvOf({255, 0, 0, 255}), (TnHSVColor{0, 240, 1, 1}));
    EXPECT_EQ(HsvOf({255, 255, 0, 255}), (TnHSVColor{0, 300, 1, 1}));
}

TEST(RGBToHSV, GivesBlackZeroInAllThree) { EXPECT_EQ(HsvOf({255, 0, 0, 0}), (TnHSVColor{0, 0, 0, 0})); }

TEST(RGBToHSV, GivesGreysNoHueAndNoSaturation) {
    EXPECT_EQ(HsvOf({255, 255, 255, 255}), (TnHSVColor{0, 0, 0, 1}));
    EXPECT_EQ(HsvOf({255, 51, 51, 51}), (TnHSVColor{0, 0, 0, 0.2F}));
}

TEST(RGBToHSV, KeepsHuesBelowRedWithinTheCircle) {
    EXPECT_EQ(HsvOf({255, 255, 0, 1}).hue, static_cast<float>(360.0 - 60.0 / 255.0));
}

TEST(RGBToHSV, OverwritesHueAndSaturationOfARecordInUse) {
    TnHSVColor hsv = {0, 77, 0.5F, 0.5F};
    RGBToHSV({255, 0, 0, 0}, hsv);
    EXPECT_EQ(hsv, (TnHSVColor{0, 0, 0, 0}));
}

TEST(RGBToHSV, LeavesTheUnusedFieldAlone) {
    TnHSVColor hsv = {-7, 0, 0, 0};
    RGBToHSV({255, 0, 0, 255}, hsv);
    EXPECT_EQ(hsv, (TnHSVColor{-7, 240, 1, 1}));
}

TEST(RGBToHSV, DisregardsAlpha) { EXPECT_EQ(HsvOf({0, 10, 20, 30}), HsvOf({255, 10, 20, 30})); }

TEST(RGBToHSV, EqualsItsModelForEveryColor) {
    ExpectAlikeForEveryTriple([](const Triple& rgb) { return Record(model::HsvOfRgb(rgb)); },
                              [](const Triple& rgb) { return HsvOf(ColorOf(rgb)); });
}

TEST(HSVToRGB, GivesPureRedAtBothEndsOfTheCircle) {
    EXPECT_EQ(RgbOf(360, 1, 1), (Triple{255, 0, 0}));
    EXPECT_EQ(RgbOf(0, 1, 1), (Triple{255, 0, 0}));
}

TEST(HSVToRGB, RunsThroughTheSixSectors) {
    EXPECT_EQ(RgbOf(30, 1, 1), (Triple{255, 128, 0}));
    EXPECT_EQ(RgbOf(90, 1, 1), (Triple{128, 255, 0}));
    EXPECT_EQ(RgbOf(150, 1, 1), (Triple{0, 255, 128}));
    EXPECT_EQ(RgbOf(210, 1, 1), (Triple{0, 128, 255}));
    EXPECT_EQ(RgbOf(270, 1, 1), (Triple{128, 0, 255}));
    EXPECT_EQ(RgbOf(330, 1, 1), (Triple{255, 0, 128}));
}

TEST(HSVToRGB, TruncatesGreysAndRoundsColors) {
    EXPECT_EQ(RgbOf(0, 0, 0.5F), (Triple{127, 127, 127}));
    EXPECT_EQ(RgbOf(0, kTiny, 0.5F), (Triple{128, 128, 128}));
    EXPECT_EQ(RgbOf(0, 0.5F, 1), (Triple{255, 128, 128}));
}

TEST(HSVToRGB, DisregardsTheHueOfGreys) {
    EXPECT_EQ(RgbOf(120, 0, 0.5F), (Triple{127, 127, 127}));
    EXPECT_EQ(RgbOf(kNaN, -0.0F, 1), (Triple{255, 255, 255}));
}

TEST(HSVToRGB, KeepsAlpha) {
    TnColor color(0xA5, 1, 2, 3);
    HSVToRGB({0, 240, 1, 1}, color);
    EXPECT_EQ(color, TnColor(0xA5, 0, 0, 255));
    HSVToRGB({0, 240, 0, 1}, color);
    EXPECT_EQ(color, TnColor(0xA5, 255, 255, 255));
}

TEST(HSVToRGB, KeepsTheLowBitsOfWhatIsNoByte) {
    EXPECT_EQ(RgbOf(0, 0, 2), (Triple{254, 254, 254})); // 510
    EXPECT_EQ(RgbOf(0, 0, -1), (Triple{1, 1, 1}));      // -255
    EXPECT_EQ(RgbOf(0, 1, 2), (Triple{254, 0, 0}));
    EXPECT_EQ(RgbOf(0, 2, 1), (Triple{255, 2, 2})); // -254.5, truncated
    EXPECT_EQ(RgbOf(0, 0, kNaN), (Triple{0, 0, 0}));
    EXPECT_EQ(RgbOf(0, 0, kInfinity), (Triple{0, 0, 0}));
}

// Which colour comes out is no matter; sanitizers see to it that nothing undefined happens on the way.
TEST(HSVToRGB, WritesAColorForHuesThatAreOnNoCircle) {
    for (const float hue : {-kTiny, -1.0F, 360.5F, 1e10F, kHighest, -kHighest, kInfinity, -kInfinity, kNaN}) {
        TnColor color(0xA5, 1, 2, 3);
        HSVToRGB({0, hue, 0.5F, 1}, color);
        EXPECT_EQ(color.alpha, 0xA5) << hue;
        EXPECT_NE(color, TnColor(0xA5, 1, 2, 3)) << hue;
    }
}

TEST(HSVToRGB, BringsEveryColorBack) {
    ExpectAlikeForEveryTriple([](const Triple& rgb) { return ColorOf(rgb, 0xA5); },
                              [](const Triple& rgb) {
                                  TnColor color(0xA5, 0, 0, 0);
                                  HSVToRGB(HsvOf(ColorOf(rgb)), color);
                                  return color;
                              });
}

float Steps(int count, double step) { return static_cast<float>(count * step); }

void ExpectLikeModel(const model::Hsv& hsv) {
    EXPECT_EQ(RgbOf(hsv.hue, hsv.saturation, hsv.value), model::RgbOfHsv(hsv)) << ::testing::PrintToString(Record(hsv));
}

TEST(HSVToRGB, EqualsItsModelAllAroundTheCircle) {
    const int stride = StrideInHaste(9);
    for (int quarters = 0; quarters <= 4 * 360 && !HasFailure(); quarters += stride) {
        for (int saturation = 0; saturation <= 64; ++saturation) {
            for (int value = 0; value <= 32; ++value) {
                ExpectLikeModel({Steps(quarters, 0.25), Steps(saturation, 1.0 / 64), Steps(value, 1.0 / 32)});
            }
        }
    }
}

// From 0 to 1, both included, often at an end.
float RandomPart(Random& random) {
    constexpr std::array<float, 4> kEnds = {0.0F, kTiny, 1.0F - 0x1p-24F, 1.0F};
    return random.OneIn(8) ? random.OneOf(kEnds) : Steps(random.Between(0, 1 << 24), 0x1p-24);
}

float RandomHue(Random& random) {
    return random.OneIn(8) ? Steps(random.Between(0, 6), 60.0) : Steps(random.Between(0, 360 << 15), 0x1p-15);
}

TEST(HSVToRGB, EqualsItsModelForRandomRecords) {
    ForEachCase(kCases, [](Random& random) {
        for (int i = 0; i < kColorsOfACase; ++i) {
            ExpectLikeModel({RandomHue(random), RandomPart(random), RandomPart(random)});
        }
    });
}

// The colour hexagon without its sectors: a channel is at the value where the hue is near it, falls over one sixth of
// the circle to its lowest and stays there for a third. The phase says in sixths where on the circle the channel is.
double HexagonChannel(const model::Hsv& hsv, double phase) {
    const double place = std::fmod(phase + hsv.hue / 60.0, 6.0);
    const double loss = std::clamp(std::min(place, 4.0 - place), 0.0, 1.0);
    return double(hsv.value) * (1.0 - double(hsv.saturation) * loss);
}

TEST(HSVToRGB, IsWithinHalfAStepOfTheColorHexagon) {
    ForEachCase(kCases, [](Random& random) {
        for (int i = 0; i < kColorsOfACase; ++i) {
            const model::Hsv hsv = {RandomHue(random), std::max(RandomPart(random), kTiny), RandomPart(random)};
            const Triple rgb = RgbOf(hsv.hue, hsv.saturation, hsv.value);
            SCOPED_TRACE(::testing::PrintToString(Record(hsv)));
            EXPECT_NEAR(rgb[0], 255.0 * HexagonChannel(hsv, 5.0), 0.5000001);
            EXPECT_NEAR(rgb[1], 255.0 * HexagonChannel(hsv, 3.0), 0.5000001);
            EXPECT_NEAR(rgb[2], 255.0 * HexagonChannel(hsv, 1.0), 0.5000001);
        }
    });
}

} // namespace
} // namespace tn::test
