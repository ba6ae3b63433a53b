/// \file
/// Fills and patterns, and edits of an image's alpha in place.
///
/// Rectangles are in the frame of the surface's Bounds() and are clipped to it; an empty or outside rectangle changes
/// nothing. Every operation is one pass, row by row, in integers, without allocation. The surface's cancel procedure is
/// called once every 32 rows; what it throws reaches the caller and leaves exactly the rows done before it. An
/// operation on a surface without storage throws std::bad_alloc ("bad allocation").
#pragma once

#include "TnGraphics/TnExport.h"
#include "TnGraphics/geometry/TnRect.h"
#include "TnGraphics/port/TnColor.h"
#include "TnGraphics/port/TnImage.h"
#include "TnGraphics/port/TnMatte.h"

#include <cstdint>

/// Stores the colour, its alpha included, in every pixel of the rectangle.
///
/// \image html gallery/ColorFill.png
TN_EXPORT void ColorFill(TnImage& image, const TnRect& rect, const TnColor& color);

/// Gives every pixel of the rectangle the alpha; red, green and blue stay.
///
/// \image html gallery/AlphaFill.png
TN_EXPORT void AlphaFill(TnImage& image, const TnRect& rect, std::uint8_t alpha);

/// Stores the value in every pixel of the rectangle.
///
/// \image html gallery/AlphaFillMatte.png
TN_EXPORT void AlphaFill(TnMatte& matte, const TnRect& rect, std::uint8_t value);

/// Fills the rectangle with the ground colour and two lines of one pixel's width that run down at 45 degrees from its
/// top corners. Every alpha becomes 255, whatever the alphas of the colours.
///
/// The lines are placed by the rectangle as given, also when it is clipped. In a square they are the diagonals; in a
/// wide rectangle they end at its bottom edge.
///
/// \image html gallery/XFill.png
TN_EXPORT void XFill(TnImage& image, const TnRect& rect, const TnColor& ground, const TnColor& line);

/// Fills the rectangle with the ground colour and a lattice of diagonal crosses. Every alpha becomes 255.
///
/// \image html gallery/CrossHatchFill.png
///
/// \param sizeExponent a cell of the lattice is 2^(sizeExponent AND 31) pixels square; 0 makes every pixel a line pixel
///
/// The lattice starts at the top-left corner of the rectangle as given, also when it is clipped.
TN_EXPORT void CrossHatchFill(TnImage& image, const TnRect& rect, const TnColor& ground, const TnColor& line,
                              long sizeExponent);

/// Puts the colour behind the whole image: each channel of a pixel with alpha a becomes
/// (colour x (255 - a) + pixel x a) / 255, truncated. Alphas stay; the colour's own alpha is not used.
///
/// \image html gallery/BlendInColor.png
///
/// \param fillTransparent whether pixels with alpha 0 take the colour's red, green and blue, or stay as they are
TN_EXPORT void BlendInColor(TnImage& image, const TnColor& color, bool fillTransparent);

/// BlendInColor with transparent pixels filled; then every pixel of the image gets the alpha.
///
/// \image html gallery/BlendInColorAndFillAlpha.png
TN_EXPORT void BlendInColorAndFillAlpha(TnImage& image, const TnColor& color, std::uint8_t alpha);

/// Scales every alpha of the image by percent / 100; red, green and blue stay.
///
/// The factor is percent x 65536 / 100, a signed 32-bit division that truncates. The product with the alpha is shifted
/// right by 16 and keeps its low 8 bits: percentages above 100 and below 0 wrap instead of stopping at the ends.
///
/// \image html gallery/SetOpacity.png
TN_EXPORT void SetOpacity(TnImage& image, int percent);
