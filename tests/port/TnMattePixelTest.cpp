#include "TnGraphics/port/TnMattePixel.h"

#include <gtest/gtest.h>
#include <type_traits>

namespace tn::test {
namespace {

static_assert(sizeof(TnMattePixel) == 1);
static_assert(std::is_trivially_copyable_v<TnMattePixel>);
static_assert(std::is_standard_layout_v<TnMattePixel>);

TEST(TnMattePixel, IsTransparentWhenMade) { EXPECT_EQ(TnMattePixel().value, 0); }

TEST(TnMattePixel, ReadsAndWritesItsValue) {
    TnMattePixel pixel = 200;
    EXPECT_EQ(pixel.Value(), 200);
    pixel.Value(17);
    EXPECT_EQ(pixel.Value(), 17);
    const std::uint8_t coverage = pixel;
    EXPECT_EQ(coverage, 17);
}

TEST(TnMattePixel, WeighsPureChannelsByLuma) {
    EXPECT_EQ(TnMattePixel(255, 255, 255), 255);
    EXPECT_EQ(TnMattePixel(255, 0, 0), 76);
    EXPECT_EQ(TnMattePixel(0, 255, 0), 149);
    EXPECT_EQ(TnMattePixel(0, 0, 255), 29);
    EXPECT_EQ(TnMattePixel(0, 0, 0), 0);
}

TEST(TnMattePixel, KeepsEveryGrey) {
    for (unsigned grey = 0; grey < 256; ++grey) {
        const auto channel = static_cast<std::uint8_t>(grey);
        EXPECT_EQ(TnMattePixel(channel, channel, channel).value, grey);
    }
}

TEST(TnMattePixel, TruncatesTheWeightedSum) {
    // 19595 + 38470 = 58065, 7471 short of the next whole.
    EXPECT_EQ(TnMattePixel(1, 1, 0), 0);
    // 255 x 65536 - 19595.
    EXPECT_EQ(TnMattePixel(254, 255, 255), 254);
}

} // namespace
} // namespace tn::test
