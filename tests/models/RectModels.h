// Rectangles in plain wide integers.
#pragma once

#include "TnGraphics/geometry/TnPoint.h"
#include "TnGraphics/geometry/TnRect.h"

namespace tn::test::model {

/// True when the pixel lies in the rectangle.
bool Contains(const TnRect& rect, int x, int y);

/// What two rectangles share; {0, 0, 0, 0} when they share no pixel.
TnRect SharedRect(const TnRect& a, const TnRect& b);

/// The placement of a source in a destination.
struct Placement {
    bool isWritten; ///< False for an empty clip: neither rectangle is touched.
    bool isPlaced;  ///< The result; the source rectangle is written only for true.
    TnRect source;
    TnRect destination;
};

Placement CalcIterBnds(const TnPoint& sourceSize, const TnPoint& destinationSize, const TnPoint& offset,
                       const TnRect& clip);

} // namespace tn::test::model
