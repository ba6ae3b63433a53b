/// \file
/// The pixel value of a 1-bit mask.
#pragma once

#include <cstdint>

/// A truth value in a byte: any byte but 0 reads as true; true is written as 1, false as 0.
struct TnMaskPixel {
    std::uint8_t value = 0; ///< The byte.

    constexpr TnMaskPixel() = default;

    /// The pixel of a truth value.
    constexpr TnMaskPixel(bool inside) : value(inside ? 1 : 0) {}

    /// The truth value.
    constexpr operator bool() const { return value != 0; }
};
