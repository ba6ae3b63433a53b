/// \file
/// Questions about what a surface shows.
///
/// Content of an image is a pixel with an alpha above 0, content of a matte a value other than the one told to be its
/// background. Rectangles are in the frame of Bounds() and are clipped to it. Surfaces are locked while they are read,
/// and their cancel procedure is called once every 32 rows that are walked, or columns where that is said; what it
/// throws reaches the caller. A surface without storage throws std::bad_alloc ("bad allocation") as soon as there is a
/// pixel to read. Nothing is allocated or changed.
#pragma once

#include "TnGraphics/TnExport.h"
#include "TnGraphics/geometry/TnPoint.h"
#include "TnGraphics/geometry/TnRect.h"
#include "TnGraphics/port/TnImage.h"
#include "TnGraphics/port/TnMatte.h"
#include "TnGraphics/port/TnMattePixel.h"

/// True when the image has a pixel with an alpha above 0. Reads up to the first row that has one.
///
/// \image html gallery/TestForAlpha.png
TN_EXPORT bool TestForAlpha(const TnImage& image);

/// True when a pixel with an alpha above 0, or a matte's value above 0, lies at the point or within the square of
/// 2 x radius + 1 pixels around it. A radius below 1 asks for the point alone.
///
/// Pixels are those of Get(x, y): beside the surface there is its outside pixel. The cancel procedure is not called.
///
/// \image html gallery/TestForHit.png
///
/// \tparam SurfaceType TnImage or TnMatte
template <class SurfaceType> TN_EXPORT bool TestForHit(const SurfaceType& surface, const TnPoint& point, int radius);

/// The smallest rectangle that holds all content of the rectangle, or (0, 0, 0, 0) without content.
///
/// Deliberately the bottom-right pixel of the rectangle does not count as long as no other has content: content there
/// alone, like any rectangle of one pixel, gives (0, 0, 0, 0).
///
/// Four scans stop at the first content each: rows from the top, columns from the left, rows from the bottom, columns
/// from the right. A border of some pixels is all that is read of a full picture.
///
/// \image html gallery/CalculateContentArea.png
TN_EXPORT TnRect CalculateContentArea(const TnImage& image, TnRect rect);
TN_EXPORT TnRect CalculateContentArea(const TnImage& image); ///< Of the whole image.

/// The same for a matte, whose content are the values other than the background.
TN_EXPORT TnRect CalculateContentArea(const TnMatte& matte, TnMattePixel background, TnRect rect);
TN_EXPORT TnRect CalculateContentArea(const TnMatte& matte, TnMattePixel background); ///< Of the whole matte.

/// The brightness, 0 to 100, that the brightest pixels reach, as many of them as twice the width and height of the
/// image without its outermost pixels, which do not count.
///
/// A pixel's brightness is its luma in percent, with the weights of ITU-R BT.601 in 65536ths: (7684 red + 15086 green +
/// 2930 blue) / 65536, truncated, so that white has 99. Alphas have no effect. The number is 2 x (width - 2 + height -
/// 2); where it is not above 0, as for 2 x 2 pixels, the brightness is 100.
///
/// \image html gallery/GetRepresentativeBrightness.png
TN_EXPORT int GetRepresentativeBrightness(const TnImage& image);

/// Tells what a rectangle holds beside grey of one alpha. An empty one holds nothing.
///
/// \image html gallery/InspectImage.png
///
/// \param hasColor becomes true for a pixel that is not grey, or is white and not transparent
/// \param hasAlpha becomes true for an alpha other than that of the rectangle's first pixel
TN_EXPORT void InspectImage(const TnImage& image, const TnRect& rect, bool& hasColor, bool& hasAlpha);

/// True when two surfaces are equal, pixel by pixel, where they overlap; true also when they do not.
///
/// \image html gallery/TnIsEqual.png
///
/// \tparam SurfaceType TnImage or TnMatte
/// \param at           where the first surface's (0, 0) lies in the second
template <class SurfaceType> TN_EXPORT bool TnIsEqual(const SurfaceType& a, SurfaceType& b, const TnPoint& at);
