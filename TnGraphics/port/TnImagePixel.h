/// \file
/// The pixel of a 32-bit image.
#pragma once

#include <cstdint>

/// One pixel with straight alpha: the word 0xAARRGGBB, in memory the bytes blue, green, red, alpha.
///
/// Colour is not multiplied by alpha; a pixel with alpha 0 may still carry a colour.
struct TnImagePixel {
    std::uint32_t value = 0; ///< The word 0xAARRGGBB.

    constexpr TnImagePixel() = default;

    /// The pixel that the word says.
    constexpr TnImagePixel(std::uint32_t word) : value(word) {}

    /// The word 0xAARRGGBB.
    constexpr operator std::uint32_t() const { return value; }

    constexpr std::uint8_t Alpha() const {
        return static_cast<std::uint8_t>(value >> 24);
    } ///< 0 transparent, 255 opaque.
    constexpr std::uint8_t Red() const { return static_cast<std::uint8_t>(value >> 16); }  ///< Red, 0 to 255.
    constexpr std::uint8_t Green() const { return static_cast<std::uint8_t>(value >> 8); } ///< Green, 0 to 255.
    constexpr std::uint8_t Blue() const { return static_cast<std::uint8_t>(value); }       ///< Blue, 0 to 255.

    /// Replaces the alpha; red, green and blue stay.
    constexpr void Alpha(std::uint8_t alpha) { value = (value & 0x00FFFFFFU) | (std::uint32_t{alpha} << 24); }
};
