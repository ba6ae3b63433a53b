// Rectangles as sets of pixels, told pixel by pixel.
#pragma once

#include "TnGraphics/geometry/TnRect.h"

#include <cstdint>
#include <initializer_list>
#include <vector>

namespace tn::test {

/// A pixel anywhere, also where 32 bits do not reach.
struct FarPixel {
    std::int64_t x;
    std::int64_t y;
};

/// True when the rectangle covers the pixel.
inline bool Covers(const TnRect& rect, const FarPixel& pixel) {
    return pixel.x >= rect.left && pixel.x < std::int64_t{rect.left} + rect.width && pixel.y >= rect.top &&
           pixel.y < std::int64_t{rect.top} + rect.height;
}

/// The pixels on both sides of every edge, in all combinations: sets that are made of the rectangles by cutting and
/// joining are equal when they agree on these.
inline std::vector<FarPixel> PixelsAtEdges(std::initializer_list<TnRect> rects) {
    std::vector<std::int64_t> columns;
    std::vector<std::int64_t> rows;
    const auto addEdges = [](std::vector<std::int64_t>& places, std::int64_t start, std::int64_t extent) {
        places.insert(places.end(), {start - 1, start, start + extent - 1, start + extent});
    };
    for (const TnRect& rect : rects) {
        addEdges(columns, rect.left, rect.width);
        addEdges(rows, rect.top, rect.height);
    }
    std::vector<FarPixel> pixels;
    for (const std::int64_t y : rows) {
        for (const std::int64_t x : columns) {
            pixels.push_back({x, y});
        }
    }
    return pixels;
}

} // namespace tn::test
