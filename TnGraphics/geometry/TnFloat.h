/// \file
/// The point and the rectangle in double precision.
#pragma once

/// A position in double precision.
struct TnFloatPoint {
    double x = 0.0; ///< Horizontal position.
    double y = 0.0; ///< Vertical position, growing downwards.

    /// True when both coordinates are equal; NaN is equal to nothing.
    friend constexpr bool operator==(const TnFloatPoint&, const TnFloatPoint&) = default;
};

/// A rectangle in double precision; the fields mean what they mean in TnRect.
struct TnFloatRect {
    double left = 0.0;   ///< Left edge.
    double top = 0.0;    ///< Top edge.
    double width = 0.0;  ///< Distance from the left to the right edge.
    double height = 0.0; ///< Distance from the top to the bottom edge.

    /// True when all fields are equal; NaN is equal to nothing.
    friend constexpr bool operator==(const TnFloatRect&, const TnFloatRect&) = default;
};
