// Private: the pixels of a locked surface for reads and writes by position.
#pragma once

#include "TnGraphics/geometry/TnPoint.h"

#include <cstdint>

class TnImage;

namespace tn {

/// Positions are tested against the storage size, while addresses are formed from the content's corner; a position
/// whose address would leave the storage block is outside too.
template <class Pixel> struct PixelGrid {
    std::uintptr_t base = 0; ///< The pixel at the content's corner; 0 for no pixels.
    std::uint32_t rowBytes = 0;
    TnPoint size;                 ///< Of the storage.
    std::uint64_t lastOffset = 0; ///< From the base to the last pixel that lies wholly in the storage block.

    /// What lastOffset is where the size alone says what lies in the block.
    static constexpr std::uint64_t kWhole = ~std::uint64_t{0};
    constexpr bool IsWhole() const { return lastOffset == kWhole; }

    /// True for a position on a pixel of the surface.
    constexpr bool Has(std::int64_t x, std::int64_t y) const {
        return 0 <= x && x < size.x && 0 <= y && y < size.y && base != 0 && OffsetOf(x, y) <= lastOffset;
    }

    /// The pixel at a position that Has accepts, or one that is right of or below such a pixel on the caller's word.
    Pixel* At(std::int64_t x, std::int64_t y) const { return reinterpret_cast<Pixel*>(base + OffsetOf(x, y)); }

private:
    constexpr std::uint64_t OffsetOf(std::int64_t x, std::int64_t y) const {
        return static_cast<std::uint64_t>(y) * rowBytes + static_cast<std::uint64_t>(x) * sizeof(Pixel);
    }
};

/// What reads by position need to know of a surface's inside.
struct ReadAccess {
    /// The grid of a locked surface.
    template <class SurfaceType> static PixelGrid<typename SurfaceType::Pixel> GridOf(const SurfaceType& surface);

    /// True while a StDisregardAlphaInGet scope is open.
    static bool DisregardsAlpha(const TnImage& image);
};

} // namespace tn
