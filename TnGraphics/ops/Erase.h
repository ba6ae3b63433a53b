/// \file
/// Clearing what lies outside a rectangle.
#pragma once

#include "TnGraphics/TnExport.h"
#include "TnGraphics/geometry/TnRect.h"
#include "TnGraphics/port/TnImage.h"
#include "TnGraphics/port/TnMatte.h"

/// Sets every pixel outside the rectangle to 0; in an image that is transparent black.
///
/// The rectangle is in the frame of the surface's Bounds() and is clipped to it. One that is empty or wholly outside
/// clears the whole surface; one that covers the surface changes nothing. The pixels above, below, left and right of it
/// are cleared in this order, each band a walk of its own that calls the surface's cancel procedure once every 32 rows.
///
/// \image html gallery/EraseOutside.png
///
/// \tparam SurfaceType TnImage or TnMatte
/// \throws std::bad_alloc ("bad allocation") for a surface without storage that there is something to clear in
template <class SurfaceType> TN_EXPORT void EraseOutside(SurfaceType& surface, const TnRect& rect);

/// EraseOutside under its second name.
TN_EXPORT void PrepareMargin(TnImage& image, const TnRect& rect);

/// EraseOutside under its second name.
///
/// \image html gallery/PrepareMargin.png
TN_EXPORT void PrepareMargin(TnMatte& matte, const TnRect& rect);
