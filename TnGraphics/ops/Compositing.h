/// \file
/// Combining a source with a destination by their alphas, at whole and at sub-pixel positions.
///
/// The source's top-left corner lands at the offset; what lies outside the destination or outside the clip is dropped.
/// Sizes, offsets and clips are in the frames of the surfaces' Bounds(). For every pixel of the overlap, row by row and
/// left to right, the source pixel
///
/// 1. goes through the colour transform,
/// 2. has its alpha scaled by the opacity: alpha x opacity / 255, in signed 32 bits and truncated,
/// 3. is combined with the destination pixel as told for each operation.
///
/// All of it is integer arithmetic on straight alpha; divisions truncate. Below, s and d are a colour channel of source
/// and destination, sa and da their alphas; a matte's value is its alpha.
///
/// **Opacity** goes from 0 to 255, and 255 keeps the alpha. It is not checked: the product keeps its low 32 bits and
/// the quotient its low 8, so 256 turns alpha 255 into 0 and -1 turns it into 255.
///
/// **Offsets** in whole pixels are turned into 16.16 fixed point by a shift that keeps the low 32 bits: coordinates
/// outside -32768 to 32767 wrap.
///
/// **At sub-pixel offsets** the source is read between its pixels. The offset is split into whole pixels, rounded down,
/// and a fraction of 8 bits, (65536 - fraction) >> 8, which weighs a pixel's left and upper neighbour against the pixel
/// itself. Transparent ones of the four pixels do not take part in the colour, only in the alpha, so edges keep their
/// colour and lose alpha; pixels outside the source's content are transparent. The destination rectangle is that of the
/// offset rounded down: the fractional column and row past the source's far edges are not drawn. Clips give no seams:
/// an operation done in tiles gives what it gives in one.
///
/// **The same surface** may be source and destination, or two that share storage: pixels are then read and written
/// strictly in step, so a move to the right or down smears what has been written already.
///
/// **Cancelling**: every 32 rows the cancel procedures of the destination and of the source are called, in this order.
/// What they throw reaches the caller, leaves exactly the rows done before it and skips any erasing. A surface without
/// storage throws std::bad_alloc ("bad allocation") when there is something to do. Nothing is allocated.
#pragma once

#include "TnGraphics/TnExport.h"
#include "TnGraphics/color/TnColorTransform.h"
#include "TnGraphics/geometry/TnFixed.h"
#include "TnGraphics/geometry/TnPoint.h"
#include "TnGraphics/geometry/TnRect.h"
#include "TnGraphics/port/TnImage.h"
#include "TnGraphics/port/TnMatte.h"

/// Puts the source over the destination.
///
/// sa = 0 keeps the destination pixel, sa = 255 replaces it. Otherwise each colour channel becomes
/// (s x sa + d x (255 - sa)) / 255, whatever the destination's alpha, and the alpha sa + da - da x sa / 255.
///
/// \image html gallery/BlendImage.png
TN_EXPORT void BlendImage(const TnImage& source, int opacity, TnImage& destination, const TnPoint& at);

/// BlendImage with a colour transform, within a clip.
///
/// \image html gallery/BlendImageInClip.png
TN_EXPORT void BlendImage(const TnImage& source, const TnColorTransform& transform, int opacity, TnImage& destination,
                          const TnPoint& at, const TnRect& clip);

/// BlendImage at a sub-pixel offset.
///
/// \image html gallery/BlendImageBetweenPixels.png
TN_EXPORT void BlendImage(const TnImage& source, const TnColorTransform& transform, int opacity, TnImage& destination,
                          const TnFixedPoint& at, const TnRect& clip);

/// Puts the source over the destination and weighs colours by what each contributes to the combined alpha.
///
/// sa = 0 keeps the destination pixel; sa = 255 or da = 0 replaces it. Otherwise, with w = da - da x sa / 255 and
/// n = w + sa, each colour channel becomes (s x sa + d x w) / n and the alpha n. Over an opaque destination that is
/// what BlendImage does.
///
/// \image html gallery/PreBlendImageAndAlpha.png
///
/// \tparam SourceType TnImage
template <class SourceType>
TN_EXPORT void PreBlendImageAndAlpha(const SourceType& source, int opacity, TnImage& destination, const TnPoint& at);

/// PreBlendImageAndAlpha with a colour transform, within a clip.
///
/// \image html gallery/PreBlendImageAndAlphaInClip.png
template <class SourceType>
TN_EXPORT void PreBlendImageAndAlpha(const SourceType& source, const TnColorTransform& transform, int opacity,
                                     TnImage& destination, const TnPoint& at, const TnRect& clip);

/// PreBlendImageAndAlpha at a sub-pixel offset.
///
/// \image html gallery/PreBlendImageAndAlphaBetweenPixels.png
template <class SourceType>
TN_EXPORT void PreBlendImageAndAlpha(const SourceType& source, const TnColorTransform& transform, int opacity,
                                     TnImage& destination, const TnFixedPoint& at, const TnRect& clip);

/// Keeps of the destination what the source covers too, and mixes the colours.
///
/// da = 0 keeps the destination pixel; sa = 0 makes its alpha 0 and keeps its colour. Otherwise each colour channel is
/// mixed as by PreBlendImageAndAlpha, and the alpha becomes the smaller of sa and da.
///
/// Afterwards everything of the destination outside the overlap becomes 0, outside the clip too; without an overlap
/// that is all of it.
///
/// \image html gallery/IntersectAlpha.png
TN_EXPORT void IntersectAlpha(const TnImage& source, int opacity, TnImage& destination, const TnPoint& at);

/// IntersectAlpha with a colour transform, within a clip.
///
/// \image html gallery/IntersectAlphaInClip.png
TN_EXPORT void IntersectAlpha(const TnImage& source, const TnColorTransform& transform, int opacity,
                              TnImage& destination, const TnPoint& at, const TnRect& clip);

/// IntersectAlpha at a sub-pixel offset.
///
/// \image html gallery/IntersectAlphaBetweenPixels.png
TN_EXPORT void IntersectAlpha(const TnImage& source, const TnColorTransform& transform, int opacity,
                              TnImage& destination, const TnFixedPoint& at, const TnRect& clip);

/// Keeps of the destination what the source covers too: each value becomes the smaller one, and everything outside the
/// overlap becomes 0.
///
/// \image html gallery/IntersectAlphaMattes.png
TN_EXPORT void IntersectAlpha(const TnMatte& source, int opacity, TnMatte& destination, const TnPoint& at);

/// The same for the alpha of an image, whose colours stay within the overlap.
///
/// \image html gallery/IntersectAlphaMatte.png
TN_EXPORT void IntersectAlpha(const TnMatte& source, int opacity, TnImage& destination, const TnPoint& at);

/// Makes each alpha of the destination the smaller of sa and da and keeps the colours. Everything outside the overlap
/// becomes 0.
///
/// \image html gallery/IntersectAlphaNoColor.png
TN_EXPORT void IntersectAlphaNoColor(const TnImage& source, int opacity, TnImage& destination, const TnPoint& at);

/// IntersectAlphaNoColor; transform and clip have no effect.
///
/// \image html gallery/IntersectAlphaNoColorInClip.png
TN_EXPORT void IntersectAlphaNoColor(const TnImage& source, const TnColorTransform& transform, int opacity,
                                     TnImage& destination, const TnPoint& at, const TnRect& clip);

/// IntersectAlphaNoColor at the whole pixels of the offset, rounded down; transform and clip have no effect.
///
/// \image html gallery/IntersectAlphaNoColorBetweenPixels.png
TN_EXPORT void IntersectAlphaNoColor(const TnImage& source, const TnColorTransform& transform, int opacity,
                                     TnImage& destination, const TnFixedPoint& at, const TnRect& clip);

/// Takes the source out of the destination: the alpha becomes da - da x sa / 255, colours stay.
///
/// \image html gallery/SubtractAlpha.png
TN_EXPORT void SubtractAlpha(const TnImage& source, int opacity, TnImage& destination, const TnPoint& at);

/// SubtractAlpha with a colour transform, within a clip.
///
/// \image html gallery/SubtractAlphaInClip.png
TN_EXPORT void SubtractAlpha(const TnImage& source, const TnColorTransform& transform, int opacity,
                             TnImage& destination, const TnPoint& at, const TnRect& clip);

/// SubtractAlpha at a sub-pixel offset.
///
/// \image html gallery/SubtractAlphaBetweenPixels.png
TN_EXPORT void SubtractAlpha(const TnImage& source, const TnColorTransform& transform, int opacity,
                             TnImage& destination, const TnFixedPoint& at, const TnRect& clip);

/// Keeps what either of the two covers but not both, and mixes the colours.
///
/// With w = da - da x sa / 255 and n = w + sa: n = 0 keeps the destination pixel. Otherwise each colour channel becomes
/// (s x sa + d x w) / n, and the alpha the larger of sa and da, less sa x da / 255.
///
/// \image html gallery/XORAlpha.png
TN_EXPORT void XORAlpha(const TnImage& source, int opacity, TnImage& destination, const TnPoint& at);

/// XORAlpha with a colour transform, within a clip.
///
/// \image html gallery/XORAlphaInClip.png
TN_EXPORT void XORAlpha(const TnImage& source, const TnColorTransform& transform, int opacity, TnImage& destination,
                        const TnPoint& at, const TnRect& clip);

/// XORAlpha at a sub-pixel offset.
///
/// \image html gallery/XORAlphaBetweenPixels.png
TN_EXPORT void XORAlpha(const TnImage& source, const TnColorTransform& transform, int opacity, TnImage& destination,
                        const TnFixedPoint& at, const TnRect& clip);
