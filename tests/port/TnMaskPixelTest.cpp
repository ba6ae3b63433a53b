#include "TnGraphics/port/TnMaskPixel.h"

#include <gtest/gtest.h>
#include <type_traits>

namespace tn::test {
namespace {

static_assert(sizeof(TnMaskPixel) == 1);
static_assert(std::is_trivially_copyable_v<TnMaskPixel>);

TEST(TnMaskPixel, IsFalseWhenMade) {
    EXPECT_FALSE(TnMaskPixel());
    EXPECT_EQ(TnMaskPixel().value, 0);
}

TEST(TnMaskPixel, ReadsEveryByteButZeroAsTrue) {
    TnMaskPixel pixel;
    for (unsigned byte = 0; byte < 256; ++byte) {
        pixel.value = static_cast<std::uint8_t>(byte);
        EXPECT_EQ(static_cast<bool>(pixel), byte != 0);
    }
}

TEST(TnMaskPixel, WritesTrueAsOneAndFalseAsZero) {
    TnMaskPixel pixel;
    pixel.value = 0x80;
    pixel = true;
    EXPECT_EQ(pixel.value, 1);
    pixel = false;
    EXPECT_EQ(pixel.value, 0);
}

} // namespace
} // namespace tn::test
