// Private: the mean of a rectangle of pixels.
#pragma once

#include "TnGraphics/geometry/Rounding.h"
#include "TnGraphics/geometry/TnFloat.h"
#include "TnGraphics/port/PixelGrid.h"
#include "TnGraphics/port/TnMattePixel.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace tn {

/// A stretch of pixels along one axis, in 256ths of a pixel.
struct AreaSpan {
    std::int32_t start;
    std::int32_t extent;

    AreaSpan(double position, double size)
        : start(TruncateToInt32(position * 256.0 + 0.5)), extent(TruncateToInt32(size * 256.0 + 0.5)) {}

    std::int32_t First() const { return start >> 8; }

    /// How many pixels it touches.
    std::int64_t Count() const { return (std::int64_t{start & 255} + extent + 255) >> 8; }

    /// The last pixel that is read, counted from the first. The two are always different pixels.
    std::int64_t LastIndex() const { return std::max<std::int64_t>(Count() - 1, 1); }

    /// How much of the first and of the last pixel it covers.
    std::uint32_t FirstShare() const { return 256U - static_cast<std::uint32_t>(start & 255); }
    std::uint32_t LastShare() const {
        const std::uint32_t share = (static_cast<std::uint32_t>(start) + static_cast<std::uint32_t>(extent)) & 255U;
        return share == 0 ? 256U : share;
    }

    /// Calls visit with the index of each pixel from 0 and its share.
    template <class Visit> void ForEach(const Visit& visit) const {
        visit(std::int64_t{0}, FirstShare());
        std::int64_t index = 1;
        for (; index < LastIndex(); ++index) {
            visit(index, 256U);
        }
        visit(index, LastShare());
    }
};

/// True for a rectangle with fields that are numbers and at least one pixel wide and high.
inline bool IsArea(const TnFloatRect& rect) {
    return std::isfinite(rect.left) && std::isfinite(rect.top) && std::isfinite(rect.width) &&
           std::isfinite(rect.height) && rect.width >= 1.0 && rect.height >= 1.0;
}

/// True when the grid has all pixels that are read for the area.
template <class Pixel> bool HasArea(const PixelGrid<Pixel>& grid, const AreaSpan& columns, const AreaSpan& rows) {
    return grid.Has(columns.First(), rows.First()) &&
           grid.Has(columns.First() + columns.LastIndex(), rows.First() + rows.LastIndex());
}

/// Calls add with each pixel of the area and its weight in 256ths: the products of the shares of its row and column.
template <class Pixel, class Add>
void ForEachWeighted(const PixelGrid<Pixel>& grid, const AreaSpan& columns, const AreaSpan& rows, const Add& add) {
    rows.ForEach([&](std::int64_t row, std::uint32_t rowShare) {
        const Pixel* const pixels = grid.At(columns.First(), rows.First() + row);
        columns.ForEach(
            [&](std::int64_t column, std::uint32_t columnShare) { add(pixels[column], columnShare * rowShare >> 8); });
    });
}

/// The area's size in 256ths of a pixel, by which sums of weighted channels are divided.
inline std::uint64_t AreaDivisor(const AreaSpan& columns, const AreaSpan& rows) {
    const std::uint64_t size = static_cast<std::uint64_t>(std::int64_t{columns.extent} * rows.extent) >> 8;
    return size == 0 ? 1 : size; // extents that left 32 bits may come out as 0
}

/// The mean of a rectangle that lies inside the matte; outside for one that IsArea refuses.
inline TnMattePixel AreaMean(const PixelGrid<TnMattePixel>& grid, const TnFloatRect& rect, TnMattePixel outside) {
    if (!IsArea(rect)) {
        return outside;
    }
    const AreaSpan columns(rect.left, rect.width);
    const AreaSpan rows(rect.top, rect.height);
    std::uint32_t sum = 0;
    ForEachWeighted(grid, columns, rows,
                    [&sum](TnMattePixel pixel, std::uint32_t weight) { sum += pixel.value * weight; });
    return static_cast<std::uint8_t>(sum / AreaDivisor(columns, rows));
}

} // namespace tn
