// Private: the pixels of an image at positions of any order.
#pragma once

#include "TnGraphics/port/PixelGrid.h"
#include "TnGraphics/port/TnImagePixel.h"
#include "TnGraphics/port/TnMattePixel.h"
#include "TnGraphics/rows/BilinearSampler.h"

#include <cstddef>
#include <cstdint>

namespace tn {

/// A surface to be read at positions.
template <class Pixel> struct PositionSource {
    PixelGrid<Pixel> grid;
    Pixel outside;
    bool disregardsAlpha = false;
};

using ImageSource = PositionSource<TnImagePixel>;
using MatteSource = PositionSource<TnMattePixel>;

/// Positions of pixels, or in 16.16 between them.
struct PositionList {
    const std::int32_t* x;
    const std::int32_t* y;
};

/// The grid in lanes.
template <class Pixels, class Pixel = TnImagePixel> struct GridLanes {
    const PositionSource<Pixel>& source;

    /// Where the surface has a pixel.
    auto Has(Pixels x, Pixels y) const { return Below(x, Width()) & Below(y, Height()); }

    /// Where a pixel has neighbours to its right and below it.
    auto HasRight(Pixels x) const { return Below(x, Width() - 1); }
    auto HasBelow(Pixels y) const { return Below(y, Height() - 1); }

    Pixels Offsets(Pixels x, Pixels y) const {
        constexpr int kShift = sizeof(Pixel) == 4 ? 2 : 0;
        return y * RowBytes() + x.template ShiftedLeft<kShift>();
    }
    Pixels RowBytes() const { return Pixels::All(source.grid.rowBytes); }

    /// Where a pixel lies wholly in the storage block.
    auto IsInBlock(Pixels offsets) const {
        constexpr std::uint64_t kFarthest = 0xFFFFFFFE;
        const std::uint64_t last = source.grid.lastOffset;
        return Below(offsets, static_cast<std::uint32_t>(last < kFarthest ? last : kFarthest) + 1);
    }

    template <class Mask> Pixels Gather(Pixels offsets, Mask where, Pixels otherwise) const {
        return Pixels::Gather(source.grid.base, offsets, where, otherwise);
    }

private:
    std::uint32_t Width() const { return static_cast<std::uint32_t>(source.grid.size.x); }
    std::uint32_t Height() const { return static_cast<std::uint32_t>(source.grid.size.y); }
};

/// True when the size alone says what lies in the storage block.
template <class Pixels> bool HasWhole(const ImageSource& source) {
    return source.grid.lastOffset == PixelGrid<TnImagePixel>::kWhole;
}

/// True when all positions, taken without a sign, are below the limits.
template <class Pixels>
bool AreBelow(const PositionList& positions, std::size_t length, std::uint32_t xLimit, std::uint32_t yLimit) {
    std::uint32_t beyond = 0;
    for (std::size_t i = 0; i < length; ++i) {
        beyond |= static_cast<std::uint32_t>(positions.x[i]) >= xLimit ? 1U : 0U;
        beyond |= static_cast<std::uint32_t>(positions.y[i]) >= yLimit ? 1U : 0U;
    }
    return beyond == 0;
}

/// The pixels at positions that all lie inside the image.
struct AtInnerPixels {
    template <class Pixels>
    static bool Suits(const ImageSource& source, const PositionList& positions, std::size_t length) {
        return HasWhole<Pixels>(source) &&
               AreBelow<Pixels>(positions, length, static_cast<std::uint32_t>(source.grid.size.x),
                                static_cast<std::uint32_t>(source.grid.size.y));
    }

    template <class Pixels> static Pixels Sample(const ImageSource& source, Pixels x, Pixels y) {
        const GridLanes<Pixels> grid = {source};
        const auto everywhere = Below(Pixels::All(0), 1);
        return grid.Gather(grid.Offsets(x, y), everywhere, Pixels::All(0));
    }
};

/// The pixels at positions; outside the image its outside pixel.
struct AtPixels {
    using Inner = AtInnerPixels;

    template <class Pixels> static Pixels Sample(const ImageSource& source, Pixels x, Pixels y) {
        const GridLanes<Pixels> grid = {source};
        const Pixels offsets = grid.Offsets(x, y);
        return grid.Gather(offsets, grid.Has(x, y) & grid.IsInBlock(offsets), Pixels::All(source.outside.value));
    }
};

/// A position in 16.16 between pixels, of which the upper 8 bits of the fraction count.
template <class Pixels> struct SplitCoordinate {
    Pixels whole;
    Pixels part;

    explicit SplitCoordinate(Pixels at)
        : whole(at.template ShiftedRightSigned<16>()), part(at.template ShiftedRight<8>() & Pixels::All(255)) {}
};

/// The mean of neighbouring pixels at a position between them.
///
/// Lanes take weights of a byte across. On a column of pixels these have all the weight, and are taken twice.
template <class Pixels>
Pixels MeanAt(const ImageSource& source, Neighbors<Pixels> pixels, const SplitCoordinate<Pixels>& column,
              const SplitCoordinate<Pixels>& row) {
    const auto isOnColumn = column.part == Pixels::All(0);
    pixels.upperRight = Select(isOnColumn, pixels.upperLeft, pixels.upperRight);
    pixels.lowerRight = Select(isOnColumn, pixels.lowerLeft, pixels.lowerRight);
    const typename Pixels::Sums::WeightsOfEach weights(Select(isOnColumn, Pixels::All(128), column.part), row.part);
    return source.disregardsAlpha ? PlainMean(pixels, weights) : VisibleMean(pixels, weights);
}

/// What lies at positions in 16.16 that all have four neighbours.
struct BetweenInnerPixels {
    template <class Pixels>
    static bool Suits(const ImageSource& source, const PositionList& positions, std::size_t length) {
        const auto limit = [](std::int32_t size) {
            return static_cast<std::uint32_t>(size > 32768 ? 32768 : size - 1) << 16;
        };
        return HasWhole<Pixels>(source) && source.grid.size.x > 0 && source.grid.size.y > 0 &&
               AreBelow<Pixels>(positions, length, limit(source.grid.size.x), limit(source.grid.size.y));
    }

    template <class Pixels> static Pixels Sample(const ImageSource& source, Pixels x, Pixels y) {
        const GridLanes<Pixels> grid = {source};
        const SplitCoordinate<Pixels> column(x);
        const SplitCoordinate<Pixels> row(y);
        const Pixels offsets = grid.Offsets(column.whole, row.whole);
        Neighbors<Pixels> pixels;
        Pixels::GatherPairs(source.grid.base, offsets, pixels.upperLeft, pixels.upperRight);
        Pixels::GatherPairs(source.grid.base, offsets + grid.RowBytes(), pixels.lowerLeft, pixels.lowerRight);
        return MeanAt(source, pixels, column, row);
    }
};

/// What lies at positions in 16.16. The image's last column and row are repeated.
struct BetweenPixels {
    using Inner = BetweenInnerPixels;

    template <class Pixels> static Pixels Sample(const ImageSource& source, Pixels x, Pixels y) {
        const GridLanes<Pixels> grid = {source};
        const Pixels none = Pixels::All(0);
        const SplitCoordinate<Pixels> column(x);
        const SplitCoordinate<Pixels> row(y);
        const Pixels offsets = grid.Offsets(column.whole, row.whole);
        const Pixels toRight = Select(grid.HasRight(column.whole), Pixels::All(sizeof(TnImagePixel)), none);
        const Pixels toBelow = Select(grid.HasBelow(row.whole), grid.RowBytes(), none);
        const auto where = grid.Has(column.whole, row.whole) & grid.IsInBlock(offsets + toRight + toBelow);
        const auto at = [&](Pixels step) { return grid.Gather(offsets + step, where, none); };
        const Neighbors<Pixels> pixels = {at(none), at(toRight), at(toBelow), at(toBelow + toRight)};
        return Select(where, MeanAt(source, pixels, column, row), Pixels::All(source.outside.value));
    }
};

} // namespace tn
