// What the demo does to whole pictures beside the library's own operations.
#pragma once

#include "TnGraphics/TnGraphics.h"

/// The rectangle without a margin on each side, which is a share of its extent.
TnRect Inset(const TnRect& rect, double share);

/// Makes the image a soft oval around its middle: opaque up to the inner radius, transparent from the outer one on. At
/// radius 1 the oval touches the edges.
void CutOutOval(TnImage& image, double innerRadius, double outerRadius);

/// The picture's content at a smaller size; each pixel is the mean of those that it stands for.
TnImage Reduced(const TnImage& picture, const TnPoint& size);
