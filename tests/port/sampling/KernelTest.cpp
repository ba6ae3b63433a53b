// Get(x, y, kx, nx, ky, ny).

#include "tests/port/sampling/SmallPictures.h"

#include <gtest/gtest.h>
#include <vector>

namespace tn::test {
namespace {

using Factors = std::vector<TnFixed>;

class ImageKernel : public ::testing::Test {
protected:
    TnImagePixel Sum(long x, long y, const Factors& kx, const Factors& ky) const {
        return image_.Get(x, y, kx.data(), static_cast<unsigned long>(kx.size()), ky.data(),
                          static_cast<unsigned long>(ky.size()));
    }

    TnImage image_ = SurfaceOf<TnImage>({{0x01020304, 0x11121314, 0x00000080}, {0xFFFEFDFC, 0x40404040, 0x80000000}});
};

TEST_F(ImageKernel, OfUnitGainKeepsAPixel) {
    EXPECT_EQ(Sum(0, 0, {{256}}, {{256}}), TnImagePixel(0x01020304));
    EXPECT_EQ(Sum(1, 1, {{65536}}, {{1}}), TnImagePixel(0x40404040));
    EXPECT_EQ(Sum(0, 1, {{1}}, {{65536}}), TnImagePixel(0xFFFEFDFC));
}

TEST_F(ImageKernel, StartsAtThePositionAndGoesRightAndDown) {
    EXPECT_EQ(Sum(0, 0, {{0}, {256}}, {{256}}), TnImagePixel(0x11121314));
    EXPECT_EQ(Sum(1, 0, {{0}, {256}}, {{0}, {256}}), TnImagePixel(0x80000000));
}

TEST_F(ImageKernel, WeighsEachPixelByTheProductOfItsFactors) {
    // 3/4 and 1/4 across, 1/2 and 1/2 down
    const Factors across = {{192}, {64}};
    const Factors down = {{128}, {128}};
    EXPECT_EQ(Sum(0, 0, across, down), TnImagePixel(0x6A6A6A6A));
}

TEST_F(ImageKernel, KeepsEightBitsOfTheSums) {
    EXPECT_EQ(Sum(0, 1, {{512}}, {{256}}), TnImagePixel(0xFEFCFAF8)); // twice, less 256
    EXPECT_EQ(Sum(0, 0, {{128}}, {{256}}), TnImagePixel(0x00010102)); // halves, truncated
}

TEST_F(ImageKernel, TakesNegativeFactorsModulo32Bits) {
    EXPECT_EQ(Sum(0, 0, {{-256}}, {{256}}), TnImagePixel(0xFFFEFDFC));
    EXPECT_EQ(Sum(0, 0, {{-256}}, {{-256}}), TnImagePixel(0x01020304));
    EXPECT_EQ(Sum(0, 0, {{-256}, {512}}, {{256}}), TnImagePixel(0x21222324));
    EXPECT_EQ(Sum(0, 0, {{-1}}, {{1}}), TnImagePixel(0xFFFFFFFF));
}

// 1.0 by 1.0 are 2^32, and nothing is left of them.
TEST_F(ImageKernel, WrapsTheProductOfItsFactors) {
    EXPECT_EQ(Sum(0, 0, {{65536}}, {{65536}}), TnImagePixel(0));
    EXPECT_EQ(Sum(0, 0, {{65537}}, {{65536}}), TnImagePixel(0x01020304));
}

TEST_F(ImageKernel, OfNoFactorsGivesNothing) {
    EXPECT_EQ(Sum(0, 0, {}, {{256}}), TnImagePixel(0));
    EXPECT_EQ(Sum(0, 0, {{256}}, {}), TnImagePixel(0));
    EXPECT_EQ(image_.Get(0L, 0L, nullptr, 0UL, nullptr, 0UL), TnImagePixel(0));
    EXPECT_EQ(image_.Get(-5L, 99L, nullptr, 0UL, nullptr, 7UL), TnImagePixel(0));
}

TEST(MatteKernel, IsTheOutsidePixelWhateverTheArguments) {
    TnMatte matte({3, 3});
    SetAll(matte, 77);
    const TnFixed factor = {256};
    EXPECT_EQ(matte.Get(0L, 0L, &factor, 1UL, &factor, 1UL), TnMattePixel(0));
    EXPECT_EQ(matte.Get(-1L, 99L, nullptr, 5UL, nullptr, 5UL), TnMattePixel(0));
    const TnMatte opaque(new GuardedStorage({3, 3}, 1, Guard::kAfterRows), {3, 3});
    EXPECT_EQ(opaque.Get(0L, 0L, &factor, 1UL, &factor, 1UL), TnMattePixel(255));
    const TnMatte withoutStorage(nullptr, {3, 3});
    EXPECT_EQ(withoutStorage.Get(0L, 0L, &factor, 1UL, &factor, 1UL), TnMattePixel(255));
}

} // namespace
} // namespace tn::test
