/// \file
/// The integer point.
#pragma once

#include <cstdint>

/// A pixel position, or a size (x is then the width, y the height). y grows downwards.
struct TnPoint {
    std::int32_t x = 0; ///< Horizontal position, or width.
    std::int32_t y = 0; ///< Vertical position, or height.

    /// True when both coordinates are equal.
    friend constexpr bool operator==(const TnPoint&, const TnPoint&) = default;
};
