/// \file
/// Single colours between red, green, blue and the inks of print.
#pragma once

#include "TnGraphics/TnExport.h"
#include "TnGraphics/port/TnColor.h"
#include "TnGraphics/port/TnImagePixel.h"

#include <cstdint>

/// A colour in four inks. Each byte is the complement of the amount of ink: 255 is none of it, 0 is all of it.
struct ColorCMYKSpec {
    std::uint8_t c = 0; ///< 255 - the amount of cyan.
    std::uint8_t m = 0; ///< 255 - the amount of magenta.
    std::uint8_t y = 0; ///< 255 - the amount of yellow.
    std::uint8_t k = 0; ///< 255 - the amount of black.

    /// True when all four inks are equal.
    friend constexpr bool operator==(const ColorCMYKSpec&, const ColorCMYKSpec&) = default;
};

/// Writes the whole pixel, opaque.
///
/// Black is added to each of the other inks, and together they take away from white until nothing is left: red is
/// c + k - 255, stopped at 0, and so are green from m and blue from y.
///
/// \image html gallery/CMYKtoRGB.png
TN_EXPORT void CMYKtoRGB(const ColorCMYKSpec& cmyk, TnImagePixel& pixel);

/// Writes the complement 255 - channel of red, green and blue as cyan, magenta and yellow; the alpha is copied.
///
/// \image html gallery/RGBtoCMY.png
TN_EXPORT void RGBtoCMY(const TnColor& color, TnCMYColor& cmy);

/// Writes the complement 255 - channel of cyan, magenta and yellow as red, green and blue; the alpha is copied. The
/// exact inverse of RGBtoCMY.
///
/// \image html gallery/RGBtoCMY.png
TN_EXPORT void CMYtoRGB(const TnCMYColor& cmy, TnColor& color);
