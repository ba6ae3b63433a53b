#include "TnGraphics/port/TnColor.h"

#include <cstddef>
#include <gtest/gtest.h>
#include <type_traits>

namespace tn::test {
namespace {

static_assert(sizeof(TnColor) == 4);
static_assert(std::is_trivially_copyable_v<TnColor>);
static_assert(std::is_standard_layout_v<TnColor>);
static_assert(offsetof(TnColor, alpha) == 0);
static_assert(offsetof(TnColor, red) == 1);
static_assert(offsetof(TnColor, green) == 2);
static_assert(offsetof(TnColor, blue) == 3);

static_assert(sizeof(TnCMYColor) == 4);
static_assert(std::is_trivially_copyable_v<TnCMYColor>);
static_assert(std::is_standard_layout_v<TnCMYColor>);
static_assert(offsetof(TnCMYColor, alpha) == 0);
static_assert(offsetof(TnCMYColor, cyan) == 1);
static_assert(offsetof(TnCMYColor, magenta) == 2);
static_assert(offsetof(TnCMYColor, yellow) == 3);

TEST(TnColor, TakesAlphaRedGreenBlueInThisOrder) {
    constexpr TnColor color(1, 2, 3, 4);
    EXPECT_EQ(color.alpha, 1);
    EXPECT_EQ(color.red, 2);
    EXPECT_EQ(color.green, 3);
    EXPECT_EQ(color.blue, 4);
}

TEST(TnColor, BecomesTheWordThatFillsStore) {
    const TnImagePixel pixel = TnColor(0x80, 0x10, 0x20, 0x30);
    EXPECT_EQ(pixel.value, 0x80102030U);
    EXPECT_EQ(TnImagePixel(TnColor(255, 255, 255, 255)).value, 0xFFFFFFFFU);
    EXPECT_EQ(TnImagePixel(TnColor()).value, 0U);
}

TEST(TnColor, EqualsOnlyInAllChannels) {
    constexpr TnColor color(1, 2, 3, 4);
    EXPECT_EQ(color, TnColor(1, 2, 3, 4));
    EXPECT_NE(color, TnColor(0, 2, 3, 4));
    EXPECT_NE(color, TnColor(1, 0, 3, 4));
    EXPECT_NE(color, TnColor(1, 2, 0, 4));
    EXPECT_NE(color, TnColor(1, 2, 3, 0));
}

TEST(TnCMYColor, TakesAlphaCyanMagentaYellowInThisOrder) {
    constexpr TnCMYColor color(1, 2, 3, 4);
    EXPECT_EQ(color.alpha, 1);
    EXPECT_EQ(color.cyan, 2);
    EXPECT_EQ(color.magenta, 3);
    EXPECT_EQ(color.yellow, 4);
}

TEST(TnCMYColor, ComplementsItsChannelsAndCopiesAlpha) {
    const TnColor color = TnCMYColor(0x40, 0x00, 0xFF, 0x30);
    EXPECT_EQ(color, TnColor(0x40, 0xFF, 0x00, 0xCF));
}

} // namespace
} // namespace tn::test
