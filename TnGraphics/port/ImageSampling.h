// Private: what an image gives between its pixels.
#pragma once

#include "TnGraphics/geometry/TnFloat.h"
#include "TnGraphics/port/PixelGrid.h"
#include "TnGraphics/port/Sampling.h"
#include "TnGraphics/port/TnImagePixel.h"

namespace tn {

/// What lies at a position between pixels that the size allows.
TnImagePixel BilinearMean(const PixelGrid<TnImagePixel>& grid, const SplitPosition& column, const SplitPosition& row,
                          TnImagePixel outside, bool disregardsAlpha);

/// The mean of a rectangle that lies inside the image; outside for one that IsArea refuses.
TnImagePixel AreaMean(const PixelGrid<TnImagePixel>& grid, const TnFloatRect& rect, TnImagePixel outside);

} // namespace tn
