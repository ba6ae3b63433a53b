// Private: reads and writes of one position, for images and mattes alike.
#pragma once

#include "TnGraphics/geometry/TnFixed.h"
#include "TnGraphics/port/ClientLock.h"
#include "TnGraphics/port/PixelGrid.h"

#include <cstdint>

namespace tn {

/// True for a position that the surface's size allows.
template <class SurfaceType> bool IsWithinSize(const SurfaceType& surface, std::int64_t x, std::int64_t y) {
    const TnPoint size = surface.StorageSize();
    return 0 <= x && x < size.x && 0 <= y && y < size.y;
}

template <class SurfaceType>
typename SurfaceType::Pixel ReadPixel(const SurfaceType& surface, std::int64_t x, std::int64_t y) {
    if (!IsWithinSize(surface, x, y)) {
        return surface.OutsidePixel();
    }
    const ClientLock<SurfaceType> lock(surface);
    const auto grid = ReadAccess::GridOf(surface);
    return grid.Has(x, y) ? *grid.At(x, y) : surface.OutsidePixel();
}

template <class SurfaceType>
void WritePixel(const SurfaceType& surface, std::int64_t x, std::int64_t y, typename SurfaceType::Pixel pixel) {
    if (IsWithinSize(surface, x, y)) {
        const ClientLock<SurfaceType> lock(surface);
        const auto grid = ReadAccess::GridOf(surface);
        if (grid.Has(x, y)) {
            *grid.At(x, y) = pixel;
        }
    }
}

/// The pixel that a position falls in and how far it is from there towards the next one, in 256ths.
struct SplitPosition {
    std::int32_t whole;
    std::uint32_t part;

    explicit constexpr SplitPosition(TnFixed at)
        : whole(at.IntegerPart()), part(static_cast<std::uint32_t>(at.Fraction256())) {}
    constexpr SplitPosition(std::int32_t at256) : whole(at256 >> 8), part(static_cast<std::uint32_t>(at256) & 255U) {}
};

} // namespace tn
