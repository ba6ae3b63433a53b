// The four kinds of walk, for typed tests, in one vocabulary: along a line, and across from one line to the next.
#pragma once

#include "tests/port/SurfaceKinds.h"

namespace tn::test {

/// Walks row by row.
template <class SurfaceType> struct ByRows {
    using Surface = SurfaceType;
    using Iterator = typename SurfaceType::Iterator;
    static constexpr bool kByRows = true;

    static Iterator Begin(const Surface& surface) { return surface.begin(); }
    static Iterator Begin(const Surface& surface, const TnRect& rect) { return surface.begin(rect); }
    static Iterator End(const Surface& surface) { return surface.end(); }
    static Iterator End(const Surface& surface, const TnRect& rect) { return surface.end(rect); }

    static constexpr TnPoint At(std::int32_t along, std::int32_t across) { return {along, across}; }
};

/// Walks column by column.
template <class SurfaceType> struct ByColumns {
    using Surface = SurfaceType;
    using Iterator = typename SurfaceType::IteratorVertical;
    static constexpr bool kByRows = false;

    static Iterator Begin(const Surface& surface) { return surface.beginVertical(); }
    static Iterator Begin(const Surface& surface, const TnRect& rect) { return surface.beginVertical(rect); }
    static Iterator End(const Surface& surface) { return surface.endVertical(); }
    static Iterator End(const Surface& surface, const TnRect& rect) { return surface.endVertical(rect); }

    static constexpr TnPoint At(std::int32_t along, std::int32_t across) { return {across, along}; }
};

using WalkKinds = ::testing::Types<ByRows<TnImage>, ByColumns<TnImage>, ByRows<TnMatte>, ByColumns<TnMatte>>;

/// The rectangle of so many lines of a length.
template <class Walk> constexpr TnRect LinesFrom(const TnPoint& start, std::int32_t length, std::int32_t lines) {
    const TnPoint size = Walk::At(length, lines);
    return {start.x, start.y, size.x, size.y};
}

/// A painted surface and walks over it. Points and rectangles are in the frame of the whole storage.
template <class Walk> class WalkTest : public ::testing::Test {
protected:
    using Surface = typename Walk::Surface;
    using Iterator = typename Walk::Iterator;
    using Pixel = typename Surface::Pixel;
    using Kind = KindOf<Surface>;

    WalkTest() { Paint(*surface_.Storage()); }

    Iterator Begin(const TnRect& rect) const { return Walk::Begin(surface_, rect); }
    Iterator End(const TnRect& rect) const { return Walk::End(surface_, rect); }

    /// The walk of four lines of three pixels that most tests take, well inside the surface.
    static constexpr TnRect kBounds = LinesFrom<Walk>({3, 2}, 3, 4);

    /// The pixel so far along the given line of kBounds.
    Pixel* InBounds(std::int32_t along, std::int32_t line) const {
        const TnPoint d = Walk::At(along, line);
        return PixelAt({kBounds.left + d.x, kBounds.top + d.y});
    }

    /// The pixels of kBounds, line by line.
    std::vector<Pixel*> LineByLine() const {
        std::vector<Pixel*> pixels;
        for (std::int32_t line = 0; line < 4; ++line) {
            for (std::int32_t along = 0; along < 3; ++along) {
                pixels.push_back(InBounds(along, line));
            }
        }
        return pixels;
    }

    /// The pixel's address, found without a walk.
    Pixel* PixelAt(const TnPoint& point) const {
        const auto offset = static_cast<std::size_t>(point.y) * surface_.RowBytes() +
                            static_cast<std::size_t>(point.x) * Kind::kPixelBytes;
        return static_cast<Pixel*>(AddressIn(*surface_.Storage(), offset));
    }

    Surface surface_{{20, 16}};
};

/// The iterator's pixel, or null at its end.
template <class Iterator> auto* PixelOf(const Iterator& iterator) { return iterator.AtEnd() ? nullptr : &*iterator; }

} // namespace tn::test
