/// \file
/// Signed 16.16 fixed point: the scalar, the point and the rectangle of sub-pixel positions.
#pragma once

#include "TnGraphics/TnExport.h"

#include <cstdint>

/// A fixed-point number with 16 fraction bits: its value is raw / 65536.
///
/// No conversion saturates: what does not fit keeps its low 32 bits.
struct TnFixed {
    std::int32_t raw = 0; ///< The number in 65536ths.

    /// True for the same number.
    friend constexpr bool operator==(const TnFixed&, const TnFixed&) = default;

    /// The nearest fixed-point number, halves rounded away from zero. NaN and values whose 65536fold leaves 64 bits
    /// give 0.
    TN_EXPORT static TnFixed FromDouble(double value);

    /// The exact value.
    constexpr double ToDouble() const { return raw * 1.52587890625e-05; }

    /// The value in single precision.
    constexpr float ToFloat() const { return static_cast<float>(ToDouble()); }

    /// The integer at or below the value: -0.5 has the integer part -1.
    constexpr std::int32_t IntegerPart() const { return raw >> 16; }

    /// The fraction above IntegerPart() in 1/256 steps, 0 to 255: the interpolation weight of sampling.
    constexpr std::int32_t Fraction256() const { return (raw >> 8) & 255; }
};

/// A sub-pixel position.
struct TnFixedPoint {
    TnFixed x; ///< Horizontal position.
    TnFixed y; ///< Vertical position, growing downwards.

    /// True when both coordinates are equal.
    friend constexpr bool operator==(const TnFixedPoint&, const TnFixedPoint&) = default;
};

/// A rectangle at sub-pixel positions; the fields mean what they mean in TnRect.
struct TnFixedRect {
    TnFixed left;   ///< Left edge.
    TnFixed top;    ///< Top edge.
    TnFixed width;  ///< Distance from the left to the right edge.
    TnFixed height; ///< Distance from the top to the bottom edge.

    /// True when all fields are equal.
    friend constexpr bool operator==(const TnFixedRect&, const TnFixedRect&) = default;
};
