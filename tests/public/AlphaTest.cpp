#include "TnGraphics/TnGraphics.h"

#include <gtest/gtest.h>

namespace {

// A transparent image with one visible pixel.
TnImage WithSpot(int x, int y) {
    TnImage image({20, 20}, true);
    image.Set(0xFF123456, x, y);
    return image;
}

TnMatte MatteWithSpot(int x, int y) {
    TnMatte matte({20, 20}, true);
    matte.Set(255, x, y);
    return matte;
}

TnImage Uniform(std::uint32_t word) {
    TnImage image({10, 10});
    for (auto& pixel : image) {
        pixel = word;
    }
    return image;
}

TEST(PublicAlphas, AreFound) {
    EXPECT_TRUE(TestForAlpha(WithSpot(5, 7)));
    EXPECT_FALSE(TestForAlpha(TnImage({20, 20}, true)));
}

TEST(PublicAlphas, AreHit) {
    EXPECT_TRUE(TestForHit(WithSpot(5, 7), {3, 9}, 2));
    EXPECT_FALSE(TestForHit(WithSpot(5, 7), {3, 9}, 1));
    EXPECT_TRUE(TestForHit(MatteWithSpot(5, 7), {3, 9}, 2));
    EXPECT_FALSE(TestForHit<TnMatte>(MatteWithSpot(5, 7), {3, 9}, 1));
}

TEST(PublicAlphas, HaveAContentArea) {
    EXPECT_EQ(CalculateContentArea(WithSpot(5, 7)), (TnRect{5, 7, 1, 1}));
    EXPECT_EQ(CalculateContentArea(WithSpot(5, 7), {0, 0, 5, 20}), (TnRect{0, 0, 0, 0}));
    EXPECT_EQ(CalculateContentArea(WithSpot(19, 19)), (TnRect{0, 0, 0, 0}));
    EXPECT_EQ(CalculateContentArea(MatteWithSpot(5, 7), 0), (TnRect{5, 7, 1, 1}));
    EXPECT_EQ(CalculateContentArea(MatteWithSpot(5, 7), 255, {2, 3, 9, 9}), (TnRect{2, 3, 9, 9}));
}

TEST(PublicAlphas, AreBuiltFromAKey) {
    TnImage image({2, 1}, true);
    image.Set(0x00808080, 1, 0);
    BuildAlpha(image, TnColor(255, 0, 0, 0));
    EXPECT_EQ(image.Get(0, 0).value, 0U);
    EXPECT_EQ(image.Get(1, 0).value, 0xFF808080U);
}

TEST(PublicAlphas, AreSetInARectangle) {
    TnImage image({2, 1}, true);
    SetAlphaRect(image, {1, 0, 1, 1});
    EXPECT_EQ(image.Get(0, 0).value, 0U);
    EXPECT_EQ(image.Get(1, 0).value, 0xFF000000U);
}

TEST(PublicAlphas, OfAMatteAreInverted) {
    TnMatte matte = MatteWithSpot(5, 7);
    InvertAlpha(matte);
    EXPECT_EQ(matte.Get(5, 7).value, 0);
    EXPECT_EQ(matte.Get(5, 8).value, 255);
}

TEST(PublicInspection, TellsTheBrightness) {
    EXPECT_EQ(GetRepresentativeBrightness(Uniform(0xFFFFFFFF)), 99);
    EXPECT_EQ(GetRepresentativeBrightness(Uniform(0xFF000000)), 0);
    EXPECT_EQ(GetRepresentativeBrightness(TnImage({2, 2}, true)), 100);
}

TEST(PublicInspection, TellsColorsAndAlphas) {
    bool hasColor = true;
    bool hasAlpha = true;
    TnImage image = Uniform(0xFF808080);
    InspectImage(image, image.Bounds(), hasColor, hasAlpha);
    EXPECT_FALSE(hasColor);
    EXPECT_FALSE(hasAlpha);
    image.Set(0x80FFFFFF, 9, 9);
    InspectImage(image, image.Bounds(), hasColor, hasAlpha);
    EXPECT_TRUE(hasColor);
    EXPECT_TRUE(hasAlpha);
}

TEST(PublicEquality, IsThatOfTheOverlap) {
    TnImage image = WithSpot(5, 7);
    EXPECT_TRUE(TnIsEqual(WithSpot(4, 6), image, {1, 1}));
    EXPECT_FALSE(TnIsEqual(WithSpot(4, 6), image, {0, 0}));
    EXPECT_TRUE(TnIsEqual(WithSpot(4, 6), image, {20, 0}));
    TnMatte matte = MatteWithSpot(5, 7);
    EXPECT_TRUE(TnIsEqual(MatteWithSpot(4, 6), matte, {1, 1}));
    EXPECT_FALSE(TnIsEqual(MatteWithSpot(4, 6), matte, {0, 0}));
}

} // namespace
