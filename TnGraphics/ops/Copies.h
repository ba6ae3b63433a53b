/// \file
/// Copying pixels, colours, alphas and luminance between images and mattes.
///
/// Placement, opacity, colour transform, self-overlap and cancelling are those of ops/Compositing.h; a matte's value is
/// its alpha. Copies are made at whole pixels, and an offset whose coordinates leave -32768 to 32767 wraps.
#pragma once

#include "TnGraphics/TnExport.h"
#include "TnGraphics/color/TnColorTransform.h"
#include "TnGraphics/geometry/TnPoint.h"
#include "TnGraphics/geometry/TnRect.h"
#include "TnGraphics/port/TnImage.h"
#include "TnGraphics/port/TnImagePixel.h"
#include "TnGraphics/port/TnMatte.h"

#include <vector>

/// Copies what source and destination have in common: whole pixels between images, values between mattes, the alpha
/// from an image to a matte and from a matte to an image, whose colours then stay.
///
/// \image html gallery/TnCopy.png
/// \image html gallery/TnCopyMatte.png
///
/// \tparam SourceType      TnImage or TnMatte
/// \tparam DestinationType TnImage or TnMatte
template <class SourceType, class DestinationType>
TN_EXPORT void TnCopy(const SourceType& source, DestinationType& destination, const TnPoint& at);

/// Copies whole pixels within a clip.
///
/// \image html gallery/TnCopyInClip.png
///
/// \tparam SourceType      TnImage
/// \tparam DestinationType TnImage
template <class SourceType, class DestinationType>
TN_EXPORT void TnCopy(const SourceType& source, DestinationType& destination, const TnPoint& at, const TnRect& clip);

/// Copies whole pixels with a colour transform and an opacity, which lowers the copied alpha, within a clip.
///
/// \image html gallery/TnCopyTransformed.png
TN_EXPORT void TnCopy(const TnImage& source, const TnColorTransform& transform, int opacity, TnImage& destination,
                      const TnPoint& at, const TnRect& clip);

/// Copies red, green and blue; the destination's alphas stay.
///
/// \image html gallery/TnCopyColor.png
TN_EXPORT void TnCopyColor(const TnImage& source, TnImage& destination, const TnPoint& at);

/// TnCopy under its second name, from an image to a matte and from a matte to an image.
///
/// \image html gallery/TnCopyAlpha.png
///
/// \tparam SourceType      TnImage or TnMatte
/// \tparam DestinationType the other one
template <class SourceType, class DestinationType>
TN_EXPORT void TnCopyAlpha(const SourceType& source, DestinationType& destination, const TnPoint& at);

/// Makes the destination's alphas the inverted luminance of the source: 255 - y with the luma y of RGBtoYUV. White
/// gives 0, black gives 255; the source's alphas have no effect, and colours of the destination stay.
///
/// \image html gallery/CopyLuminenceToAlpha.png
///
/// \tparam DestinationType TnImage or TnMatte
template <class DestinationType>
TN_EXPORT void CopyLuminenceToAlpha(const TnImage& source, DestinationType& destination, const TnPoint& at);

/// Makes red, green and blue of the destination the inverted values of the matte: 255 gives black. Alphas stay.
///
/// \image html gallery/CopyAlphaToLuminence.png
///
/// \tparam SourceType TnMatte
template <class SourceType>
TN_EXPORT void CopyAlphaToLuminence(const SourceType& source, TnImage& destination, const TnPoint& at);

/// Replaces colours while copying: a pixel whose red, green and blue are those of an entry of `from`, the first such
/// entry counting, becomes the entry of `to` at the same place, alpha included. Every other pixel becomes the last
/// entry of `to`.
///
/// A match at a place that `to` does not have counts as none; an empty `to` changes nothing.
///
/// The two lists are kept in one place for the whole library until the next call: two threads must not run this
/// operation at the same time, and it allocates when the lists need room.
///
/// \image html gallery/TnCopyMapColor.png
///
/// \throws std::bad_alloc for exhausted memory, before anything is changed
TN_EXPORT void TnCopyMapColor(const TnImage& source, TnImage& destination, const TnPoint& at,
                              const std::vector<TnImagePixel>& from, const std::vector<TnImagePixel>& to);
