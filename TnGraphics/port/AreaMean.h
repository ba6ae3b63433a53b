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

template <class Pixel> bool HasArea(const PixelGrid<Pixel>& grid, const TnFloatRect& rect) {
    return HasArea(grid, AreaSpan(rect.left, rect.width), AreaSpan(rect.top, rect.height));
}

/// Adds a row's pixels, the first and the last of them by their shares.
template <class Sum, class Pixel>
void AddRow(Sum& sum, const Pixel* pixels, const AreaSpan& columns, std::uint32_t rowShare) {
    const std::int64_t last = columns.LastIndex();
    sum.Add(pixels[0], columns.FirstShare() * rowShare >> 8);
    for (std::int64_t column = 1; column < last; ++column) {
        sum.Add(pixels[column], rowShare);
    }
    sum.Add(pixels[last], columns.LastShare() * rowShare >> 8);
}

/// The sum over the area of pixels times weights in 256ths, the products of the shares of their rows and columns.
template <class Sum, class Pixel>
Sum SumOf(const PixelGrid<Pixel>& grid, const AreaSpan& columns, const AreaSpan& rows) {
    Sum sum;
    const std::int64_t last = rows.LastIndex();
    const auto row = [&](std::int64_t index) { return grid.At(columns.First(), rows.First() + index); };
    AddRow(sum, row(0), columns, rows.FirstShare());
    for (std::int64_t index = 1; index < last; ++index) {
        AddRow(sum, row(index), columns, 256);
    }
    AddRow(sum, row(last), columns, rows.LastShare());
    return sum;
}

/// Divides by the area's size in 256ths of a pixel. A double holds sums of 32 bits exactly, and no quotient that is
/// short of a whole number is as near to it as doubles of that size are to each other.
class AreaDivision {
public:
    AreaDivision(const AreaSpan& columns, const AreaSpan& rows) {
        const std::uint64_t size = static_cast<std::uint64_t>(std::int64_t{columns.extent} * rows.extent) >> 8;
        divisor_ = static_cast<double>(size == 0 ? 1 : size); // extents that left 32 bits may come out as 0
        half_ = static_cast<double>(size >> 1);
    }

    std::uint32_t Truncated(std::uint32_t sum) const { return static_cast<std::uint32_t>(double(sum) / divisor_); }
    std::uint32_t Rounded(std::uint32_t sum) const {
        return static_cast<std::uint32_t>(static_cast<std::int64_t>((double(sum) + half_) / divisor_));
    }

private:
    double divisor_;
    double half_;
};

/// The mean of the area, which lies in the matte.
inline TnMattePixel AreaMean(const PixelGrid<TnMattePixel>& grid, const AreaSpan& columns, const AreaSpan& rows) {
    struct Sum {
        std::uint32_t value = 0;
        void Add(TnMattePixel pixel, std::uint32_t weight) { value += pixel.value * weight; }
    };
    const Sum sum = SumOf<Sum>(grid, columns, rows);
    return static_cast<std::uint8_t>(AreaDivision(columns, rows).Truncated(sum.value));
}

} // namespace tn
