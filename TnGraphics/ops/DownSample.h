/// \file
/// Anti-aliased coverage from a mask that was drawn four times as large.
///
/// Each 4 x 4 cell of the mask becomes one pixel by the number of its pixels that are set:
///
/// | set      | 0 to 3 | 4  | 5  | 6  | 7   | 8   | 9   | 10  | 11  | 12  | 13  | 14  | 15  | 16  |
/// |----------|--------|----|----|----|-----|-----|-----|-----|-----|-----|-----|-----|-----|-----|
/// | coverage | 0      | 64 | 78 | 96 | 112 | 128 | 143 | 159 | 175 | 191 | 207 | 223 | 239 | 255 |
///
/// Up to three columns and rows of the mask that fill no cell are ignored. What falls outside the destination is
/// dropped. The destination's cancel procedure is called once every 32 rows; what it throws reaches the caller and
/// leaves exactly the rows done before it. A mask or surface without storage throws std::bad_alloc ("bad allocation")
/// when there is something to do. Nothing is allocated.
#pragma once

#include "TnGraphics/TnExport.h"
#include "TnGraphics/geometry/TnPoint.h"
#include "TnGraphics/port/TnColor.h"
#include "TnGraphics/port/TnImage.h"
#include "TnGraphics/port/TnMask.h"
#include "TnGraphics/port/TnMatte.h"

/// Replaces values of the matte by the mask's coverage.
///
/// \image html gallery/DownSample.png
///
/// \param at where the mask's first cell lands in the destination
TN_EXPORT void DownSample(const TnMask& mask, TnMatte& destination, const TnPoint& at);

/// Replaces pixels of the image by the colour with the mask's coverage as alpha; the colour's own alpha is not used.
/// \param at where the mask's first cell lands in the destination
TN_EXPORT void DownSample(const TnMask& mask, TnImage& destination, const TnColor& color, const TnPoint& at);
