/// \file
/// Making, setting and inverting alphas; colours stay.
///
/// The surface's cancel procedure is called once every 32 rows; what it throws reaches the caller and leaves exactly
/// the rows done before it. A surface without storage throws std::bad_alloc ("bad allocation") as soon as there is a
/// pixel to change. Nothing is allocated.
#pragma once

#include "TnGraphics/TnExport.h"
#include "TnGraphics/geometry/TnRect.h"
#include "TnGraphics/port/TnColor.h"
#include "TnGraphics/port/TnImage.h"
#include "TnGraphics/port/TnMatte.h"

/// Makes every pixel opaque whose red, green and blue are not those of the key; its alpha has no effect. An image that
/// has an alpha above 0 anywhere keeps its alphas as they are.
///
/// \image html gallery/BuildAlpha.png
TN_EXPORT void BuildAlpha(TnImage& image, const TnColor& key);

/// Makes the pixels of a rectangle, in the frame of Bounds() and clipped to it, opaque.
///
/// \image html gallery/SetAlphaRect.png
TN_EXPORT void SetAlphaRect(TnImage& image, const TnRect& rect);

/// Makes every value v of a matte 255 - v.
///
/// \image html gallery/InvertAlpha.png
///
/// \tparam SurfaceType TnMatte
template <class SurfaceType> TN_EXPORT void InvertAlpha(SurfaceType& matte);
