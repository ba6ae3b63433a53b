#include "TnGraphics/color/ColorTruncation.h"

#include "tests/color/EveryTriple.h"

#include <gtest/gtest.h>

namespace tn::test {
namespace {

TnColor WebColorOf(TnColor color) {
    RGBTruncToWebColor(color);
    return color;
}

TnColor VideoSafeOf(TnColor color) {
    RGBTruncToVideoSafe(color);
    return color;
}

template <class Model> TnColor EachChannel(const Triple& rgb, Model model) {
    return ColorOf({model(rgb[0]), model(rgb[1]), model(rgb[2])}, 0x7B);
}

TEST(RGBTruncToWebColor, MovesToTheNearestStep) {
    EXPECT_EQ(WebColorOf({0, 25, 26, 230}), TnColor(0, 0, 51, 255));
    EXPECT_EQ(WebColorOf({0, 76, 77, 229}), TnColor(0, 51, 102, 204));
    EXPECT_EQ(WebColorOf({0, 0, 128, 255}), TnColor(0, 0, 153, 255));
}

TEST(RGBTruncToWebColor, KeepsTheStepsThemselves) {
    for (const TnColor& color : {TnColor(255, 0, 51, 102), TnColor(255, 153, 204, 255)}) {
        EXPECT_EQ(WebColorOf(color), color);
    }
}

TEST(RGBTruncToWebColor, KeepsAlpha) {
    EXPECT_EQ(WebColorOf({25, 25, 25, 25}), TnColor(25, 0, 0, 0));
    EXPECT_EQ(WebColorOf({200, 25, 25, 25}), TnColor(200, 0, 0, 0));
}

TEST(RGBTruncToWebColor, EqualsItsModelForEveryColor) {
    ExpectAlikeForEveryTriple([](const Triple& rgb) { return EachChannel(rgb, model::NearestWebStep); },
                              [](const Triple& rgb) { return WebColorOf(ColorOf(rgb, 0x7B)); });
}

TEST(RGBTruncToVideoSafe, MapsTheEndsToTheEndsOfVideo) {
    EXPECT_EQ(VideoSafeOf({0, 0, 255, 128}), TnColor(0, 16, 235, 125)); // 128 x 219 / 255 is 109.9
}

TEST(RGBTruncToVideoSafe, CompressesColorsWithinTheRangeToo) {
    EXPECT_EQ(VideoSafeOf({255, 16, 235, 125}), TnColor(255, 29, 217, 123));
}

TEST(RGBTruncToVideoSafe, KeepsAlpha) {
    EXPECT_EQ(VideoSafeOf({0, 0, 0, 0}), TnColor(0, 16, 16, 16));
    EXPECT_EQ(VideoSafeOf({255, 0, 0, 0}), TnColor(255, 16, 16, 16));
}

TEST(RGBTruncToVideoSafe, EqualsItsModelForEveryColor) {
    ExpectAlikeForEveryTriple([](const Triple& rgb) { return EachChannel(rgb, model::VideoLevel); },
                              [](const Triple& rgb) { return VideoSafeOf(ColorOf(rgb, 0x7B)); });
}

} // namespace
} // namespace tn::test
