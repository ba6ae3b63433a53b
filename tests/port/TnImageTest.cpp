#include "TnGraphics/port/TnImage.h"

#include <gtest/gtest.h>

namespace tn::test {
namespace {

constexpr TnImagePixel kTransparentWhite = 0x00FFFFFF;

TEST(TnImage, HasRowsOfItsWordsAndEightSpareBytes) {
    const TnImage image({3, 2});
    EXPECT_EQ(image.RowBytes(), 20U);
    EXPECT_EQ(image.Storage()->ByteSize(), 40U);
}

TEST(TnImage, IsTransparentWhiteOutside) {
    EXPECT_EQ(TnImage().OutsidePixel(), kTransparentWhite);
    EXPECT_EQ(TnImage({3, 2}, true).OutsidePixel(), kTransparentWhite);
    EXPECT_EQ(TnImage(nullptr, {3, 2}).OutsidePixel(), kTransparentWhite);
}

TEST(TnImage, CopyKeepsTheOutsidePixel) {
    const TnImage image(nullptr, {3, 2});
    EXPECT_EQ(TnImage(image).OutsidePixel(), kTransparentWhite);
}

} // namespace
} // namespace tn::test
