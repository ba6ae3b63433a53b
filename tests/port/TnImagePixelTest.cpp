#include "TnGraphics/port/TnImagePixel.h"

#include <cstring>
#include <gtest/gtest.h>
#include <type_traits>

namespace tn::test {
namespace {

static_assert(sizeof(TnImagePixel) == 4);
static_assert(alignof(TnImagePixel) == 4);
static_assert(std::is_trivially_copyable_v<TnImagePixel>);
static_assert(std::is_standard_layout_v<TnImagePixel>);

TEST(TnImagePixel, IsTransparentBlackWhenMade) { EXPECT_EQ(TnImagePixel().value, 0U); }

TEST(TnImagePixel, ConvertsFromAndToItsWord) {
    const TnImagePixel pixel = 0x12345678;
    const std::uint32_t word = pixel;
    EXPECT_EQ(pixel.value, 0x12345678U);
    EXPECT_EQ(word, 0x12345678U);
}

TEST(TnImagePixel, ReadsItsChannelsFromTheTopByteDown) {
    constexpr TnImagePixel pixel = 0x12345678;
    EXPECT_EQ(pixel.Alpha(), 0x12);
    EXPECT_EQ(pixel.Red(), 0x34);
    EXPECT_EQ(pixel.Green(), 0x56);
    EXPECT_EQ(pixel.Blue(), 0x78);
}

TEST(TnImagePixel, LiesInMemoryAsBlueGreenRedAlpha) {
    const TnImagePixel pixel = 0x12345678;
    const unsigned char expected[] = {0x78, 0x56, 0x34, 0x12};
    EXPECT_EQ(std::memcmp(&pixel, expected, sizeof(expected)), 0);
}

TEST(TnImagePixel, AlphaWriteReplacesTheTopByteAlone) {
    TnImagePixel pixel = 0x12345678;
    pixel.Alpha(0xFF);
    EXPECT_EQ(pixel, TnImagePixel(0xFF345678));
    pixel.Alpha(0x00);
    EXPECT_EQ(pixel, TnImagePixel(0x00345678));
    pixel.Alpha(0x80);
    EXPECT_EQ(pixel, TnImagePixel(0x80345678));
}

} // namespace
} // namespace tn::test
