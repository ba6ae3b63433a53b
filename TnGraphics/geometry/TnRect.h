/// \file
/// The integer rectangle and its intersection, the one rule by which everything in the library is clipped.
#pragma once

#include "TnGraphics/geometry/TnPoint.h"

#include <algorithm>
#include <cstdint>

/// The four-edge form of a rectangle; right and bottom are outside it.
struct TnEdges {
    std::int32_t left = 0;   ///< First column inside.
    std::int32_t top = 0;    ///< First row inside.
    std::int32_t right = 0;  ///< First column past the rectangle.
    std::int32_t bottom = 0; ///< First row past the rectangle.

    /// True when all four edges are equal.
    friend constexpr bool operator==(const TnEdges&, const TnEdges&) = default;
};

/// A rectangle of pixels: the columns left .. left + width - 1 and the rows top .. top + height - 1.
///
/// A rectangle whose width or height is below 1 is empty.
struct TnRect {
    std::int32_t left = 0;   ///< First column.
    std::int32_t top = 0;    ///< First row.
    std::int32_t width = 0;  ///< Number of columns.
    std::int32_t height = 0; ///< Number of rows.

    /// True when all fields are equal; empty rectangles with other fields differ.
    friend constexpr bool operator==(const TnRect&, const TnRect&) = default;

    /// True when no pixel lies inside.
    constexpr bool IsEmpty() const { return width < 1 || height < 1; }

    /// The last pixel inside: (left + width - 1, top + height - 1), of which the low 32 bits are kept.
    constexpr TnPoint BottomRight() const;

    /// The four-edge form: right = left + width, bottom = top + height, of which the low 32 bits are kept.
    constexpr TnEdges Edges() const;

    /// Cuts this rectangle to what it shares with another one.
    ///
    /// The far edges are formed in 64 bits, so a rectangle that reaches past the largest coordinate means "everything
    /// from here on". Rectangles that share no pixel, also when their edges touch, give {0, 0, 0, 0}.
    constexpr void Intersect(const TnRect& other);
};

/// What two rectangles share, by the rule of TnRect::Intersect; {0, 0, 0, 0} when that is nothing.
constexpr TnRect Intersection(const TnRect& a, const TnRect& b);

constexpr TnEdges TnRect::Edges() const {
    const auto sum = [](std::int32_t position, std::int32_t extent) {
        return static_cast<std::int32_t>(static_cast<std::uint32_t>(position) + static_cast<std::uint32_t>(extent));
    };
    return {left, top, sum(left, width), sum(top, height)};
}

constexpr TnPoint TnRect::BottomRight() const {
    const auto last = [](std::int32_t farEdge) {
        return static_cast<std::int32_t>(static_cast<std::uint32_t>(farEdge) - 1U);
    };
    const TnEdges edges = Edges();
    return {last(edges.right), last(edges.bottom)};
}

constexpr void TnRect::Intersect(const TnRect& other) { *this = Intersection(*this, other); }

constexpr TnRect Intersection(const TnRect& a, const TnRect& b) {
    const auto farEdge = [](std::int32_t position, std::int32_t extent) { return std::int64_t{position} + extent; };
    const std::int32_t left = std::max(a.left, b.left);
    const std::int32_t top = std::max(a.top, b.top);
    const std::int64_t width = std::min(farEdge(a.left, a.width), farEdge(b.left, b.width)) - left;
    const std::int64_t height = std::min(farEdge(a.top, a.height), farEdge(b.top, b.height)) - top;
    if (width < 1 || height < 1) {
        return {};
    }
    return {left, top, static_cast<std::int32_t>(width), static_cast<std::int32_t>(height)};
}
