#include "TnGraphics/TnGraphics.h"

#include <gtest/gtest.h>

namespace {

TnImage Uniform(std::uint32_t word) {
    TnImage image({2, 1});
    image.Set(word, 0, 0);
    image.Set(word, 1, 0);
    return image;
}

TEST(PublicTextures, AreCopiedOverTheColor) {
    TnImage image = Uniform(0x80FFFFFF);
    CopyTexture(Uniform(0x11223344), image, {0, 0}, image.Bounds());
    EXPECT_EQ(image.Get(1, 0).value, 0x80223344U);
}

TEST(PublicTextures, AreCopiedWithoutAlpha) {
    TnImage image = Uniform(0x80FFFFFF);
    CopyTextureZeroAlpha(Uniform(0x11223344), image, {0, 0}, image.Bounds());
    EXPECT_EQ(image.Get(1, 0).value, 0x00223344U);
}

TEST(PublicTextures, AreBlendedThroughTheAlpha) {
    TnImage image = Uniform(0x80FF0000);
    BlendTexture(Uniform(0x0000FF00), image, image.Bounds());
    EXPECT_EQ(image.Get(1, 0).value, 0x807F8000U);
}

TEST(PublicDownSample, CoversAMatteAndAnImage) {
    TnMask mask({4, 4}, true);
    mask.AddClient();
    mask.PixelAddress()[0] = 0xF0;
    mask.RemoveClient();
    TnMatte matte({1, 1}, true);
    DownSample(mask, matte, {0, 0});
    EXPECT_EQ(matte.Get(0, 0).value, 64);
    TnImage image({1, 1}, true);
    DownSample(mask, image, TnColor(255, 1, 2, 3), {0, 0});
    EXPECT_EQ(image.Get(0, 0).value, 0x40010203U);
}

} // namespace
