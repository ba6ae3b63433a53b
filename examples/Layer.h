// Pictures that are drawn by themselves and placed above others, with soft shadows.
#pragma once

#include "Drawing.h"

#include "TnGraphics/TnGraphics.h"

#include <initializer_list>

/// A transparent image to draw on, and the outline of what is there, from which its shadows are made. Both need a
/// margin for the shadows.
struct Layer {
    explicit Layer(const TnPoint& size) : image(size, true), outline(size, true) {}

    TnImage image;
    TnMatte outline;
};

struct Shadow {
    int softness; ///< Radius of the mean, in pixels.
    double fall;  ///< How far it lies below the layer; half as far to its right.
    int opacity;
};

/// Puts the layer and its shadows above the picture, at a position between pixels. The tint changes the layer's colours
/// and leaves its shadows dark.
void Place(const Layer& layer, const TnFloatPoint& at, int opacity, std::initializer_list<Shadow> shadows,
           TnImage& picture, const TnColorTransform& tint = {});

/// Turns the layer about its middle, clockwise.
Layer Turned(const Layer& layer, double degrees);

/// Draws with the colours of an image of the same size, whatever the work paints with.
template <class Work> void DrawInColors(TnImage& image, const TnImage& colors, const Work& work) {
    TnImage drawn(image.Size(), true);
    Draw(drawn, work);
    TnCopyColor(colors, drawn, {0, 0});
    PreBlendImageAndAlpha(drawn, 255, image, {0, 0});
}
