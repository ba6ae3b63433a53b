/// \file
/// The placement of one surface within another.
#pragma once

#include "TnGraphics/TnExport.h"
#include "TnGraphics/geometry/TnPoint.h"
#include "TnGraphics/geometry/TnRect.h"

/// Plans an operation that places a source surface in a destination, limited to a clip.
///
/// \image html gallery/CalcIterBnds.png
///
/// \param sourceSize      width and height of the source
/// \param destinationSize width and height of the destination
/// \param offset          where the source's top-left corner lands in the destination
/// \param clip            the pixels that may be touched, in destination coordinates
/// \param sourceRect      receives the part of the source that is placed, in source coordinates; written only for true
/// \param destinationRect receives where it lands, in destination coordinates; {0, 0, 0, 0} when that is nowhere, not
///                        written when the clip is empty
/// \return true when there is something to do
///
/// Far edges are formed in 64 bits: a clip that reaches past the largest coordinate means "everything from here on".
TN_EXPORT bool CalcIterBnds(const TnPoint& sourceSize, const TnPoint& destinationSize, const TnPoint& offset,
                            const TnRect& clip, TnRect* sourceRect, TnRect* destinationRect);
