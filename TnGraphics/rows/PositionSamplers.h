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

/// The pixels at the positions; outside the image its outside pixel.
struct AtPixels {
    template <class Pixels> static Pixels Sample(const ImageSource& source, Pixels x, Pixels y) {
        const GridLanes<Pixels> grid = {source};
        const Pixels offsets = grid.Offsets(x, y);
        return grid.Gather(offsets, grid.Has(x, y) & grid.IsInBlock(offsets), Pixels::All(source.outside.value));
    }
};

/// What lies at the positions in 16.16, of which the upper 8 bits of the fraction count. The image's last column and
/// row are repeated.
struct BetweenPixels {
    template <class Pixels> static Pixels Sample(const ImageSource& source, Pixels x, Pixels y) {
        const GridLanes<Pixels> grid = {source};
        const Pixels none = Pixels::All(0);
        const Pixels column = x.template ShiftedRightSigned<16>();
        const Pixels row = y.template ShiftedRightSigned<16>();
        const Pixels offsets = grid.Offsets(column, row);
        const auto hasRight = grid.HasRight(column);
        const auto hasBelow = grid.HasBelow(row);
        const Pixels rightStep = Select(hasRight, Pixels::All(sizeof(TnImagePixel)), none);
        const Pixels belowStep = Select(hasBelow, grid.RowBytes(), none);
        const auto where = grid.Has(column, row) & grid.IsInBlock(offsets + rightStep + belowStep);

        const Pixels part = Pixels::All(255) & x.template ShiftedRight<8>();
        const Pixels lower = Pixels::All(255) & y.template ShiftedRight<8>();
        const auto isOnColumn = part == none;
        Neighbors<Pixels> neighbors;
        if ((where & hasRight & hasBelow).Every()) {
            Pixels::GatherPairs(grid.source.grid.base, offsets, neighbors.upperLeft, neighbors.upperRight);
            Pixels::GatherPairs(grid.source.grid.base, offsets + belowStep, neighbors.lowerLeft, neighbors.lowerRight);
        } else {
            neighbors = {grid.Gather(offsets, where, none), grid.Gather(offsets + rightStep, where, none),
                         grid.Gather(offsets + belowStep, where, none),
                         grid.Gather(offsets + belowStep + rightStep, where, none)};
        }

        // Lanes take weights of a byte across. On a column of pixels these have all the weight, and are taken twice.
        neighbors.upperRight = Select(isOnColumn, neighbors.upperLeft, neighbors.upperRight);
        neighbors.lowerRight = Select(isOnColumn, neighbors.lowerLeft, neighbors.lowerRight);
        const Pixels right = Select(isOnColumn, Pixels::All(128), part);
        const typename Pixels::Sums::WeightsOfEach weights(right, lower);
        const Pixels mean = source.disregardsAlpha ? PlainMean(neighbors, weights) : VisibleMean(neighbors, weights);
        return Select(where, mean, Pixels::All(source.outside.value));
    }
};

} // namespace tn
