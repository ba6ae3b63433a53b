#include "TnGraphics/color/TnColorTransform.h"

#include "tests/color/EveryTriple.h"

#include <array>
#include <cstddef>
#include <gtest/gtest.h>
#include <type_traits>
#include <vector>

namespace tn::test {
namespace {

static_assert(sizeof(TnColorTransform) == 16);
static_assert(std::is_trivially_copyable_v<TnColorTransform>);
static_assert(std::is_standard_layout_v<TnColorTransform>);
static_assert(offsetof(TnColorTransform, red) == 0);
static_assert(offsetof(TnColorTransform, green) == 4);
static_assert(offsetof(TnColorTransform, blue) == 8);
static_assert(offsetof(TnColorTransform, alpha) == 12);
static_assert(offsetof(TnChannelTransform, scale) == 0);
static_assert(offsetof(TnChannelTransform, offset) == 2);

constexpr int kCases = 3000;
constexpr int kColorsOfACase = 100;

using Field = std::int16_t TnChannelTransform::*;
using Channel = TnChannelTransform TnColorTransform::*;

constexpr std::array<Field, 2> kFields = {&TnChannelTransform::scale, &TnChannelTransform::offset};
constexpr std::array<Channel, 4> kChannels = {&TnColorTransform::red, &TnColorTransform::green, &TnColorTransform::blue,
                                              &TnColorTransform::alpha};

TnChannelTransform Entry(int scale, int offset) {
    return {static_cast<std::int16_t>(scale), static_cast<std::int16_t>(offset)};
}

TnColorTransform InAllChannels(int scale, int offset) {
    const TnChannelTransform entry = Entry(scale, offset);
    return {entry, entry, entry, entry};
}

TnColor Grey(int value) { return ColorOf({value, value, value}, static_cast<std::uint8_t>(value)); }

// What a value becomes, the same in all four channels of both types.
int Transformed(int value, int scale, int offset) {
    const TnColorTransform transform = InAllChannels(scale, offset);
    const TnColor color = ColorTransform(Grey(value), transform);
    const TnImagePixel pixel = ColorTransform(TnImagePixel(Grey(value)), transform);
    EXPECT_EQ(color, Grey(color.red));
    EXPECT_EQ(pixel, TnImagePixel(color));
    return color.red;
}

TEST(TnColorTransform, IsTheIdentityByDefault) {
    const TnColorTransform identity;
    for (const Channel channel : kChannels) {
        EXPECT_EQ((identity.*channel).scale, 256);
        EXPECT_EQ((identity.*channel).offset, 0);
    }
    EXPECT_TRUE(IsNoChangeColorTransform(identity));
}

TEST(TnColorTransform, EqualsOnlyInAllWords) {
    const TnColorTransform transform = {{1, 2}, {3, 4}, {5, 6}, {7, 8}};
    EXPECT_TRUE(transform == (TnColorTransform{{1, 2}, {3, 4}, {5, 6}, {7, 8}}));
    for (const Channel channel : kChannels) {
        for (const Field field : kFields) {
            TnColorTransform other = transform;
            other.*channel.*field = 9;
            EXPECT_FALSE(transform == other);
            EXPECT_TRUE(other != transform);
        }
    }
}

TEST(TnColorTransform, DiffersAlsoInWhatHasNoEffect) {
    TnColorTransform transform = InAllChannels(0, 0);
    transform.green.offset = -1;
    EXPECT_FALSE(transform == InAllChannels(0, 0));
    EXPECT_FALSE(IsNoChangeColorTransform(transform));
}

TEST(IsNoChangeColorTransform, IsFalseForADifferenceInAnyWord) {
    for (const Channel channel : kChannels) {
        for (const Field field : kFields) {
            TnColorTransform transform;
            ++(transform.*channel.*field);
            EXPECT_FALSE(IsNoChangeColorTransform(transform));
        }
    }
}

TEST(IsNoChangeColorTransform, IsTrueForTheIdentityHoweverItIsMade) {
    EXPECT_TRUE(IsNoChangeColorTransform(InAllChannels(256, 0)));
}

TEST(ColorTransform, KeepsEveryValueByTheIdentity) {
    for (int value = 0; value < 256; ++value) {
        EXPECT_EQ(Transformed(value, 256, 0), value);
    }
}

TEST(ColorTransform, InvertsEveryValueExactly) {
    for (int value = 0; value < 256; ++value) {
        EXPECT_EQ(Transformed(value, -256, 255), 255 - value);
    }
}

TEST(ColorTransform, ShiftsNegativeProductsDownwards) {
    EXPECT_EQ(Transformed(1, -1, 0), 0);
    EXPECT_EQ(Transformed(1, -1, 1), 0);
    EXPECT_EQ(Transformed(1, -1, 2), 1);
    EXPECT_EQ(Transformed(200, -1, 100), 99);
    EXPECT_EQ(Transformed(0, -1, 100), 100);
}

TEST(ColorTransform, DoesNotRoundTheProduct) {
    EXPECT_EQ(Transformed(255, 255, 0), 254);
    EXPECT_EQ(Transformed(1, 255, 0), 0);
    EXPECT_EQ(Transformed(3, 128, 0), 1);
}

TEST(ColorTransform, StopsAtBothEnds) {
    EXPECT_EQ(Transformed(0, 256, 300), 255);
    EXPECT_EQ(Transformed(255, 256, 300), 255);
    EXPECT_EQ(Transformed(64, 1024, 0), 255);
    EXPECT_EQ(Transformed(63, 1024, 0), 252);
    EXPECT_EQ(Transformed(255, 256, -300), 0);
    EXPECT_EQ(Transformed(255, 32767, 32767), 255);
    EXPECT_EQ(Transformed(255, -32768, -32768), 0);
}

TEST(ColorTransform, GivesEachChannelItsOwnEntry) {
    const TnColorTransform transform = {{0, 10}, {256, 20}, {512, 30}, {-256, 255}};
    EXPECT_EQ(ColorTransform(TnColor(1, 2, 3, 4), transform), TnColor(254, 10, 23, 38));
    EXPECT_EQ(ColorTransform(TnImagePixel(0x01020304), transform), TnImagePixel(0xFE0A1726));
}

TEST(ColorTransform, NeverChangesAMatte) {
    for (const TnColorTransform& transform :
         {TnColorTransform(), InAllChannels(0, 0), InAllChannels(-256, 255), InAllChannels(1024, 300)}) {
        for (int value = 0; value < 256; ++value) {
            const TnMattePixel pixel(static_cast<std::uint8_t>(value));
            EXPECT_EQ(ColorTransform(pixel, transform), pixel);
        }
    }
}

std::vector<int> ManyScales() {
    std::vector<int> scales = {-32768, -32767, 32766, 32767};
    for (int scale = -1024; scale <= 1024; scale += StrideInHaste(8)) {
        scales.push_back(scale);
    }
    for (int scale = -32768; scale <= 32767; scale += 61 * StrideInHaste(9)) {
        scales.push_back(scale);
    }
    return scales;
}

TEST(ColorTransform, EqualsItsModelForEveryValueByManyScalesAndOffsets) {
    const int stride = StrideInHaste(17); // of the values, both ends included
    const std::vector<int> scales = ManyScales();
    for (const int offset :
         {-32768, -32767, -300, -256, -255, -254, -128, -2, -1, 0, 1, 2, 127, 128, 254, 255, 256, 300, 32766, 32767}) {
        for (const int scale : scales) {
            const TnColorTransform transform = InAllChannels(scale, offset);
            for (int value = 0; value < 256; value += stride) {
                const TnColor expected = Grey(model::TransformedChannel(value, scale, offset));
                const TnColor color = ColorTransform(Grey(value), transform);
                const TnImagePixel pixel = ColorTransform(TnImagePixel(Grey(value)), transform);
                if (color != expected || pixel != TnImagePixel(expected)) {
                    FAIL() << value << " by scale " << scale << " and offset " << offset;
                }
            }
        }
    }
}

std::int16_t RandomWord(Random& random, int usual) {
    constexpr std::array<int, 4> kEnds = {-32768, -32767, 32766, 32767};
    switch (random.Between(0, 7)) {
    case 0:
        return static_cast<std::int16_t>(random.OneOf(kEnds));
    case 1:
        return static_cast<std::int16_t>(random.Word());
    default:
        return static_cast<std::int16_t>(random.Between(-usual, usual));
    }
}

TnColorTransform RandomTransform(Random& random) {
    TnColorTransform transform;
    for (const Channel channel : kChannels) {
        transform.*channel = {RandomWord(random, 600), RandomWord(random, 300)};
    }
    return transform;
}

TnColor ModelOfTransform(const TnColor& color, const TnColorTransform& transform) {
    const auto channel = [](int value, const TnChannelTransform& entry) {
        return static_cast<std::uint8_t>(model::TransformedChannel(value, entry.scale, entry.offset));
    };
    return {channel(color.alpha, transform.alpha), channel(color.red, transform.red),
            channel(color.green, transform.green), channel(color.blue, transform.blue)};
}

TEST(ColorTransform, EqualsItsModelForRandomColorsAndTransforms) {
    ForEachCase(kCases, [](Random& random) {
        const TnColorTransform transform = RandomTransform(random);
        for (int i = 0; i < kColorsOfACase; ++i) {
            const TnColor color = random.Color();
            const TnColor expected = ModelOfTransform(color, transform);
            EXPECT_EQ(ColorTransform(color, transform), expected);
            EXPECT_EQ(ColorTransform(TnImagePixel(color), transform), TnImagePixel(expected));
            EXPECT_EQ(ColorTransform(TnMattePixel(color.alpha), transform), TnMattePixel(color.alpha));
        }
    });
}

} // namespace
} // namespace tn::test
