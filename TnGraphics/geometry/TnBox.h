/// \file
/// Four-corner boxes: what rectangles become under a transform that maps them corner by corner.
#pragma once

#include "TnGraphics/geometry/TnFixed.h"
#include "TnGraphics/geometry/TnFloat.h"
#include "TnGraphics/geometry/TnPoint.h"

/// A quadrilateral with integer corners, four independent points in the order the caller gives them.
struct TnBox {
    TnPoint corners[4]; ///< The corners.

    /// True when all corners are equal, in their order.
    friend constexpr bool operator==(const TnBox&, const TnBox&) = default;
};

/// A quadrilateral with corners in double precision.
struct TnFloatBox {
    TnFloatPoint corners[4]; ///< The corners.

    /// True when all corners are equal, in their order.
    friend constexpr bool operator==(const TnFloatBox&, const TnFloatBox&) = default;
};

/// A quadrilateral with fixed-point corners.
struct TnFixedBox {
    TnFixedPoint corners[4]; ///< The corners.

    /// True when all corners are equal, in their order.
    friend constexpr bool operator==(const TnFixedBox&, const TnFixedBox&) = default;
};
