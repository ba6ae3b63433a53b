// Private: what an image gives between its pixels.
#pragma once

#include "TnGraphics/geometry/TnFloat.h"
#include "TnGraphics/port/AreaMean.h"
#include "TnGraphics/port/PixelGrid.h"
#include "TnGraphics/port/Sampling.h"
#include "TnGraphics/port/TnImagePixel.h"

namespace tn {

/// What lies at a position between pixels that the size allows.
TnImagePixel BilinearMean(const PixelGrid<TnImagePixel>& grid, const SplitPosition& column, const SplitPosition& row,
                          TnImagePixel outside, bool disregardsAlpha);

/// The mean of a rectangle that IsArea and lies inside the image.
TnImagePixel AreaMean(const PixelGrid<TnImagePixel>& grid, const TnFloatRect& rect, TnImagePixel outside);

/// The mean of the area, which lies inside the image; of at most kMostPixelsInArea.
TnImagePixel AreaMean(const PixelGrid<TnImagePixel>& grid, const AreaSpan& columns, const AreaSpan& rows);

/// How many pixels keep sums within 32 bits.
inline constexpr std::int64_t kMostPixelsInArea = 65535;

} // namespace tn
