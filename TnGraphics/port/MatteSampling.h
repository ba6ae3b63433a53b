// Private: what a matte gives between its pixels.
#pragma once

#include "TnGraphics/port/AreaMean.h"
#include "TnGraphics/port/PixelGrid.h"
#include "TnGraphics/port/Sampling.h"
#include "TnGraphics/port/TnMattePixel.h"

#include <optional>

namespace tn {

/// A position between pixels, in 256ths.
struct MattePosition {
    SplitPosition column;
    SplitPosition row;
};

/// The position of a pair of coordinates, rounded; none for numbers that do not fit.
std::optional<MattePosition> PositionOf(float x, float y);

/// True where the pixel at the position and its neighbours to the right and below lie within the size. The last column
/// and the last row have none, and are outside.
bool HasNeighbors(const TnPoint& size, const MattePosition& at);

/// What lies at a position that HasNeighbors.
TnMattePixel BilinearMean(const PixelGrid<TnMattePixel>& grid, const MattePosition& at, TnMattePixel outside);

} // namespace tn
