/// \file
/// What differs between the kinds of surface, in one place.
#pragma once

#include "TnGraphics/TnExport.h"
#include "TnGraphics/port/TnImagePixel.h"
#include "TnGraphics/port/TnMattePixel.h"

#include <cstdint>

class TN_EXPORT TnImage;
class TN_EXPORT TnMatte;

namespace tn {

template <class SurfaceType> struct SurfaceTraits;

/// A 32-bit image.
template <> struct SurfaceTraits<TnImage> {
    using Pixel = TnImagePixel;                 ///< The type of one pixel.
    static constexpr std::uint32_t kDepth = 32; ///< Bits per pixel.

    /// Transparent white lies outside an image, however it came by its storage.
    static constexpr Pixel kOutsideOwnStorage = 0x00FFFFFF;
    static constexpr Pixel kOutsideGivenStorage = 0x00FFFFFF; ///< The same.
    static constexpr Pixel kOutsideWalk = 0x00FFFFFF;         ///< The same beside the line of an iterator.

    static constexpr bool kCopyKeepsOutsidePixel = true;          ///< Copies have that of the other one.
    static constexpr bool kMovedIteratorKeepsOutsidePixel = true; ///< So have iterators moved by + or -.

    /// How reads answer.
    struct ReadState {
        Pixel outside;                    ///< What lies outside.
        std::uint32_t disregardAlpha = 0; ///< Open scopes in which interpolation ignores alpha.
    };
};

/// An 8-bit matte. Hosts rely on each difference from the image, the odd ones too.
template <> struct SurfaceTraits<TnMatte> {
    using Pixel = TnMattePixel;                ///< The type of one pixel.
    static constexpr std::uint32_t kDepth = 8; ///< Bits per pixel.

    /// Outside a matte of one's own lies nothing; a matte over given storage is opaque out there.
    static constexpr Pixel kOutsideOwnStorage = 0;
    static constexpr Pixel kOutsideGivenStorage = 255; ///< Over given storage.
    static constexpr Pixel kOutsideWalk = 0;           ///< Beside the line of an iterator.

    /// Copies of mattes, and iterators moved by + or -, start over with 0.
    static constexpr bool kCopyKeepsOutsidePixel = false;
    static constexpr bool kMovedIteratorKeepsOutsidePixel = false; ///< The same.

    /// How reads answer; interpolation of a matte knows no alpha to disregard.
    struct ReadState {
        Pixel outside; ///< What lies outside.
    };
};

} // namespace tn
