// What the demo does to whole pictures beside the library's own operations.
#pragma once

#include "TnGraphics/TnGraphics.h"

/// The rectangle without a margin on each side, which is a share of its extent.
TnRect Inset(const TnRect& rect, double share);

/// The rectangle with a margin of some pixels around it.
TnRect Grown(const TnRect& rect, std::int32_t by);

/// Draws a line of one pixel's width along the edges of the rectangle, within it.
void DrawFrame(TnImage& image, const TnRect& rect, const TnColor& color);

/// A part of the picture enlarged to a size, pixel by pixel.
TnImage Magnified(TnImage picture, const TnRect& detail, const TnPoint& size);

/// Makes the image a soft oval around its middle: opaque up to the inner radius, transparent from the outer one on. At
/// radius 1 the oval touches the edges.
void CutOutOval(TnImage& image, double innerRadius, double outerRadius);

/// The middle of the picture's content, reduced or enlarged to a size and cut to its shape.
TnImage Fitted(TnImage picture, const TnPoint& size, InterpolationType type = InterpolationType::kSmooth);
