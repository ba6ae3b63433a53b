// Pixels of surfaces as a host reads and writes them.
#pragma once

#include "TnGraphics/TnGraphics.h"

#include <cstdint>

namespace tn::test {

/// The pixel at a position of the content.
template <class SurfaceType> typename SurfaceType::Pixel& PixelAt(SurfaceType& surface, int x, int y) {
    return *surface.begin({x, y, 1, 1});
}

/// Gives every pixel of the content the same value.
template <class SurfaceType> void SetAll(SurfaceType& surface, typename SurfaceType::Pixel value) {
    for (auto& pixel : surface) {
        pixel = value;
    }
}

/// Number of pixels of the content that have the value.
template <class SurfaceType> int Count(SurfaceType& surface, typename SurfaceType::Pixel value) {
    int count = 0;
    for (const auto& pixel : surface) {
        count += pixel == value ? 1 : 0;
    }
    return count;
}

} // namespace tn::test
