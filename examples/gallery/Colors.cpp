#include "../Picture.h"
#include "Pictures.h"
#include "Plate.h"
#include "Scene.h"

#include <algorithm>
#include <utility>

namespace {

// Hues from left to right, from white over the full colour to black.
TnImage Spectrum() {
    TnImage image(kPanel);
    for (auto pixel = image.begin(); !pixel.AtEnd(); ++pixel) {
        const TnPoint at = pixel.Position();
        const double depth = 2.0 * at.y / (kPanel.y - 1);
        TnHSVColor hsv;
        hsv.hue = static_cast<float>(360.0 * at.x / kPanel.x);
        hsv.saturation = static_cast<float>(std::min(depth, 1.0));
        hsv.value = static_cast<float>(std::min(2.0 - depth, 1.0));
        TnColor color(255, 0, 0, 0);
        HSVToRGB(hsv, color);
        *pixel = color;
    }
    return image;
}

TnColor ColorOf(const TnImagePixel& pixel) { return {pixel.Alpha(), pixel.Red(), pixel.Green(), pixel.Blue()}; }

/// Makes each pixel what the work makes of its colour.
template <class Work> TnImage Recolored(TnImage image, const Work& work) {
    for (auto pixel = image.begin(); !pixel.AtEnd(); ++pixel) {
        TnColor color = ColorOf(*pixel);
        work(color);
        *pixel = color;
    }
    return image;
}

TnImage Darkened(float factor) {
    return Recolored(Landscape(), [factor](TnColor& color) {
        color = DarkenColor(color, factor);
        color.alpha = 255;
    });
}

TnImage Mixed(const TnColor& color, int percent) {
    const TnColorTransform mix = GetColorMatrixForBlend(color, percent);
    return Recolored(Landscape(), [&](TnColor& pixel) { pixel = ColorTransform(pixel, mix); });
}

template <class Work> TnImage WithYuv(TnImage image, const Work& work) {
    for (auto pixel = image.begin(); !pixel.AtEnd(); ++pixel) {
        ColorYUVSpec yuv;
        RGBtoYUV(*pixel, yuv);
        work(yuv);
        YUVtoRGB(yuv, *pixel);
    }
    return image;
}

// One ink from left to right, another one from the top down, over some black.
TnImage Inks(std::uint8_t black) {
    TnImage image(kPanel);
    for (auto pixel = image.begin(); !pixel.AtEnd(); ++pixel) {
        ColorCMYKSpec inks = {255, 255, 255, black};
        inks.c = static_cast<std::uint8_t>(255 - 255 * pixel.Position().x / (kPanel.x - 1));
        inks.y = static_cast<std::uint8_t>(255 - 255 * pixel.Position().y / (kPanel.y - 1));
        CMYKtoRGB(inks, *pixel);
    }
    return image;
}

} // namespace

TnImage ShowRGBTruncToWebColor() {
    return Plate()
        .Add(Spectrum(), "before")
        .Add(Recolored(Spectrum(), [](TnColor& color) { RGBTruncToWebColor(color); }), "after")
        .Picture();
}

TnImage ShowRGBTruncToVideoSafe() {
    return Plate()
        .Add(Spectrum(), "before")
        .Add(Recolored(Spectrum(), [](TnColor& color) { RGBTruncToVideoSafe(color); }), "after")
        .Picture();
}

TnImage ShowDarkenColor() {
    return Plate()
        .Add(Landscape(), "before")
        .Add(Darkened(0.5F), "factor 0.5")
        .Add(Darkened(1.4F), "factor 1.4")
        .Picture();
}

TnImage ShowHSVToRGB() {
    const auto turned = [](TnColor& color) {
        TnHSVColor hsv;
        RGBToHSV(color, hsv);
        hsv.hue = hsv.hue < 240 ? hsv.hue + 120 : hsv.hue - 240;
        HSVToRGB(hsv, color);
    };
    return Plate().Add(Landscape(), "before").Add(Recolored(Landscape(), turned), "hue 120 degrees on").Picture();
}

TnImage ShowColorTransform() {
    TnColorTransform contrast;
    contrast.red = contrast.green = contrast.blue = {512, -128};
    TnColorTransform negative;
    negative.red = negative.green = negative.blue = {-256, 255};
    const auto apply = [](const TnColorTransform& transform) {
        return Recolored(Landscape(), [&](TnColor& color) { color = ColorTransform(color, transform); });
    };
    return Plate()
        .Add(Landscape(), "before")
        .Add(apply(contrast), "512, -128")
        .Add(apply(negative), "-256, 255")
        .Picture();
}

TnImage ShowGetColorMatrixForBlend() {
    return Plate()
        .Add(Landscape(), "before")
        .Add(Mixed(kRose, 30), "rose, 30 percent")
        .Add(Mixed(kRose, 70), "rose, 70 percent")
        .Picture();
}

TnImage ShowRGBtoYUV() {
    const auto grey = [](ColorYUVSpec& yuv) { yuv.u = yuv.v = 128; };
    const auto swapped = [](ColorYUVSpec& yuv) { std::swap(yuv.u, yuv.v); };
    return Plate()
        .Add(Landscape(), "before")
        .Add(WithYuv(Landscape(), grey), "u and v 128")
        .Add(WithYuv(Landscape(), swapped), "u and v swapped")
        .Picture();
}

TnImage ShowCMYKtoRGB() {
    return Plate().Add(Inks(255), "cyan and yellow").Add(Inks(150), "over some black").Picture();
}

TnImage ShowRGBtoCMY() {
    const auto withoutYellow = [](TnColor& color) {
        TnCMYColor cmy;
        RGBtoCMY(color, cmy);
        cmy.yellow = 0;
        CMYtoRGB(cmy, color);
    };
    return Plate().Add(Landscape(), "before").Add(Recolored(Landscape(), withoutYellow), "yellow made 0").Picture();
}
