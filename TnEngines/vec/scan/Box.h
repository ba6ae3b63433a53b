// Private: rectangles of whole pixels.
#pragma once

#include "TnEngines/vec/path/Point.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace tn::vec {

/// The far edges are exclusive.
struct Box {
    std::int32_t left = 0, top = 0, right = 0, bottom = 0;

    bool IsEmpty() const { return left >= right || top >= bottom; }
    std::int32_t Width() const { return right - left; }
    std::int32_t Height() const { return bottom - top; }

    friend bool operator==(const Box&, const Box&) = default;
};

inline Box Intersection(const Box& a, const Box& b) {
    return {std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right), std::min(a.bottom, b.bottom)};
}

/// All pixels between two corners, which lie within 2^30 pixels; those that the far edges only cut count.
inline Box BoxAround(Point least, Point greatest) {
    return {static_cast<std::int32_t>(std::floor(least.x)), static_cast<std::int32_t>(std::floor(least.y)),
            static_cast<std::int32_t>(std::ceil(greatest.x)), static_cast<std::int32_t>(std::ceil(greatest.y))};
}

} // namespace tn::vec
