/// \file
/// The pixel of an 8-bit matte.
#pragma once

#include <cstdint>

/// One coverage or opacity: 0 transparent to 255 opaque.
struct TnMattePixel {
    std::uint8_t value = 0; ///< The coverage.

    constexpr TnMattePixel() = default;

    /// The pixel of the given coverage.
    constexpr TnMattePixel(std::uint8_t coverage) : value(coverage) {}

    /// The luma of a colour: the weights 0.299, 0.587 and 0.114 of ITU-R BT.601 in 16.16 fixed point, the sum
    /// truncated.
    constexpr TnMattePixel(std::uint8_t red, std::uint8_t green, std::uint8_t blue)
        : value(static_cast<std::uint8_t>((red * 19595U + green * 38470U + blue * 7471U) >> 16)) {}

    /// The coverage.
    constexpr operator std::uint8_t() const { return value; }

    constexpr std::uint8_t Value() const { return value; }            ///< The coverage.
    constexpr void Value(std::uint8_t coverage) { value = coverage; } ///< Replaces the coverage.
};
