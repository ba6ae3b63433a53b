/// \file
/// Softening, growing and shrinking what is visible.
#pragma once

#include "TnGraphics/TnExport.h"
#include "TnGraphics/port/TnImage.h"
#include "TnGraphics/port/TnMatte.h"

/// Filters the alphas of an image, whose colours stay, or the values of a matte: along rows first, then along columns.
///
/// Each value becomes one that is found among its neighbours up to the radius on both sides, itself included, as far as
/// the surface has them; n is their full number, 2 x radius + 1:
///
/// | mode      | value                                                                                            |
/// |-----------|--------------------------------------------------------------------------------------------------|
/// | 1         | their mean, weighted by radius + 1 - distance and truncated: softens                              |
/// | 2         | the largest of them: grows                                                                       |
/// | 3         | the smallest of them: shrinks                                                                    |
/// | 4         | as mode 1, but a value of 128 stays, along rows and once more along columns                       |
/// | any other | 255 behind more than n values of 255 in one go, counted up to the last neighbour; otherwise 0    |
///
/// In these other modes values count from the one that lies radius pixels into the line. A negative radius changes
/// nothing. Any other is exact. The time does not grow with it, but for means it takes half as long again above 15, and
/// many times as long above 126.
///
/// The surface's cancel procedure is called once every 32 rows, then once every 32 columns. What it throws reaches the
/// caller; while rows are filtered it leaves the surface as it was, then exactly the columns done before it changed.
///
/// \image html gallery/ProcessAlphaChannel.png
/// \image html gallery/ProcessAlphaChannelImage.png
///
/// \tparam SurfaceType TnImage or TnMatte
/// \throws std::bad_alloc for a surface without storage, and when there is no memory for the passage from rows to
/// columns,
///         at most three mattes of the surface's size; the surface stays as it was
template <class SurfaceType> TN_EXPORT void ProcessAlphaChannel(SurfaceType& surface, int mode, int radius);
