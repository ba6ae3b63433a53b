/// \file
/// Single colours between red, green, blue and luma with two colour differences.
///
/// All of it is integer arithmetic in thousandths; divisions truncate towards zero.
#pragma once

#include "TnGraphics/TnExport.h"
#include "TnGraphics/port/TnImagePixel.h"

#include <cstdint>

/// A colour as luma and two colour differences. The differences are offset by 128, so a grey has 128 in both.
struct ColorYUVSpec {
    std::uint8_t unused = 0; ///< Neither read nor written by the conversions.
    std::uint8_t y = 0;      ///< Luma, 0 to 255.
    std::uint8_t u = 0;      ///< 128 + the scaled difference of blue and luma.
    std::uint8_t v = 0;      ///< 128 + the scaled difference of red and luma.

    /// True when all fields are equal, the unused one too.
    friend constexpr bool operator==(const ColorYUVSpec&, const ColorYUVSpec&) = default;
};

/// Writes y, u and v of the pixel's colour; the alpha is not used.
///
/// y = 0.299 red + 0.587 green + 0.114 blue, the luma weights of ITU-R BT.601. The scales of the differences are the
/// library's own: u = 0.495 (blue - y) + 128, which stays within 17 to 239, and v = 0.877 (red - y) + 128, which is
/// stopped at 0 and 255: the strongest reds and cyans share these ends.
///
/// \image html gallery/RGBtoYUV.png
TN_EXPORT void RGBtoYUV(const TnImagePixel& pixel, ColorYUVSpec& yuv);

/// Writes the pixel's red, green and blue; its alpha stays.
///
/// With u and v taken from their middle, 128: red = y + 1.140 v, green = y - 0.395 u - 0.580 v, blue = y + 2.032 u,
/// each stopped at 0 and 255. The factors are the library's own and no exact inverse of RGBtoYUV: pure red comes back
/// with a red of 220.
///
/// \image html gallery/RGBtoYUV.png
TN_EXPORT void YUVtoRGB(const ColorYUVSpec& yuv, TnImagePixel& pixel);
