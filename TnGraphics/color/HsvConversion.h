/// \file
/// Single colours between red, green, blue and hue, saturation, value, and what is easily said in the latter.
///
/// The arithmetic is in double precision; records hold its results in single precision.
#pragma once

#include "TnGraphics/TnExport.h"
#include "TnGraphics/port/TnColor.h"

/// A colour as hue, saturation and value.
struct TnHSVColor {
    float unused = 0.0F;     ///< Neither read nor written by the conversions.
    float hue = 0.0F;        ///< Degrees on the colour circle, 0 to below 360: red 0, green 120, blue 240.
    float saturation = 0.0F; ///< 0 for greys to 1 for pure colours.
    float value = 0.0F;      ///< The greatest of red, green and blue, 0 to 1.

    /// True when all fields are equal, the unused one too.
    friend constexpr bool operator==(const TnHSVColor&, const TnHSVColor&) = default;
};

/// Writes hue, saturation and value of the colour; the alpha is not used. Greys have hue and saturation 0, black has 0
/// in all three.
///
/// \image html gallery/HSVToRGB.png
TN_EXPORT void RGBToHSV(const TnColor& color, TnHSVColor& hsv);

/// Writes the colour's red, green and blue; its alpha stays.
///
/// A saturation of exactly 0 gives a grey of value x 255, truncated: the value 0.5 gives 127. The channels of other
/// colours are rounded to the nearest, halves upwards. What RGBToHSV has written comes back exactly in both cases.
///
/// A hue of 360 counts as 0; the caller keeps it within 0 to 360, beyond that any colour may come out. Saturations and
/// values outside 0 to 1 follow the same formulas; of results that are no byte the low 8 bits are kept.
///
/// \image html gallery/HSVToRGB.png
TN_EXPORT void HSVToRGB(const TnHSVColor& hsv, TnColor& color);

/// The colour with its value multiplied by the factor and stopped at 1, hue and saturation kept.
///
/// A factor below 1 darkens; one above 1 brightens, up to full value; 1 keeps red, green and blue as they are. The
/// rounding is that of HSVToRGB. The caller keeps the factor from being negative: such a colour means nothing.
///
/// \image html gallery/DarkenColor.png
///
/// \return a colour with alpha 0, whatever the alpha given: callers set it
TN_EXPORT TnColor DarkenColor(const TnColor& color, float factor);
