/// \file
/// Colours as callers hand them to fills and colour operations.
#pragma once

#include "TnGraphics/port/TnImagePixel.h"

#include <cstdint>

/// A colour with straight alpha, each channel 0 to 255.
struct TnColor {
    std::uint8_t alpha = 0; ///< 0 transparent, 255 opaque.
    std::uint8_t red = 0;   ///< Red.
    std::uint8_t green = 0; ///< Green.
    std::uint8_t blue = 0;  ///< Blue.

    constexpr TnColor() = default;

    /// The colour of the four channels.
    constexpr TnColor(std::uint8_t alpha_, std::uint8_t red_, std::uint8_t green_, std::uint8_t blue_)
        : alpha(alpha_), red(red_), green(green_), blue(blue_) {}

    /// The word that fills store for this colour: 0xAARRGGBB.
    constexpr operator TnImagePixel() const {
        return (std::uint32_t{alpha} << 24) | (std::uint32_t{red} << 16) | (std::uint32_t{green} << 8) | blue;
    }

    /// True when all four channels are equal.
    friend constexpr bool operator==(const TnColor&, const TnColor&) = default;
};

/// A colour in complementary channels, each 0 to 255.
struct TnCMYColor {
    std::uint8_t alpha = 0;   ///< 0 transparent, 255 opaque.
    std::uint8_t cyan = 0;    ///< 255 - red.
    std::uint8_t magenta = 0; ///< 255 - green.
    std::uint8_t yellow = 0;  ///< 255 - blue.

    constexpr TnCMYColor() = default;

    /// The colour of the four channels.
    constexpr TnCMYColor(std::uint8_t alpha_, std::uint8_t cyan_, std::uint8_t magenta_, std::uint8_t yellow_)
        : alpha(alpha_), cyan(cyan_), magenta(magenta_), yellow(yellow_) {}

    /// The same colour in red, green and blue; the alpha is copied.
    constexpr operator TnColor() const {
        const auto complement = [](std::uint8_t channel) { return static_cast<std::uint8_t>(255 - channel); };
        return {alpha, complement(cyan), complement(magenta), complement(yellow)};
    }

    /// True when all four channels are equal.
    friend constexpr bool operator==(const TnCMYColor&, const TnCMYColor&) = default;
};
