/// \file
/// Tiling a picture over a rectangle.
///
/// The texture is repeated at its size in both directions, never scaled, and its own alphas are not used. The area is
/// in the frame of the destination's Bounds() and is clipped to it; what is left of it starts with the phase of the
/// area as given, so cutting its left or top moves the pattern. A texture of width or height 0 changes nothing.
///
/// The destination's cancel procedure is called once every 32 rows; what it throws reaches the caller and leaves
/// exactly the rows done before it. Texture and destination may be the same image: pixels are then read and written in
/// step. A surface without storage throws std::bad_alloc ("bad allocation"). Nothing is allocated.
#pragma once

#include "TnGraphics/TnExport.h"
#include "TnGraphics/geometry/TnPoint.h"
#include "TnGraphics/geometry/TnRect.h"
#include "TnGraphics/port/TnImage.h"

/// Gives the area the texture's red, green and blue; alphas stay.
///
/// \image html gallery/CopyTexture.png
///
/// \param origin where a texture pixel (0, 0) falls in the destination, in or outside the area. Differences to the area
///               keep their low 32 bits.
TN_EXPORT void CopyTexture(const TnImage& texture, TnImage& destination, const TnPoint& origin, const TnRect& area);

/// CopyTexture that makes all alphas 0.
///
/// \image html gallery/CopyTextureZeroAlpha.png
TN_EXPORT void CopyTextureZeroAlpha(const TnImage& texture, TnImage& destination, const TnPoint& origin,
                                    const TnRect& area);

/// Paints the texture through the destination's alpha: each colour channel d over a texture's t becomes
/// (d x (255 - da) + t x da) / 255, truncated; alphas stay. A texture pixel (0, 0) falls on the area's top-left corner.
///
/// \image html gallery/BlendTexture.png
TN_EXPORT void BlendTexture(const TnImage& texture, TnImage& destination, const TnRect& area);
