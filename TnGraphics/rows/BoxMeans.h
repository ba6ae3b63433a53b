// Private: the means of boxes of an image, a box for each pixel of a row.
#pragma once

#include "TnGraphics/rows/PositionSamplers.h"

#include <cstddef>
#include <cstdint>

namespace tn {

/// Boxes in 256ths of a pixel. One that is not at least a pixel wide and high, or not inside the image, has no mean.
struct BoxList {
    const std::int32_t* left;
    const std::int32_t* width;
    const std::int32_t* top;
    const std::int32_t* height;
};

/// How many pixels boxes for kernels may touch across and down, so that sums stay below 2^26.
inline constexpr std::int32_t kMostPixelsAcrossBox = 30;

template <class Pixels> Pixels Smaller(Pixels a, Pixels b) { return Select(Less(b, a), b, a); }
template <class Pixels> auto NotLess(Pixels a, Pixels b) { return Less(b, a + Pixels::All(1)); }

/// The pixels that boxes touch along one axis, and how much of each they cover; see port/AreaMean.h.
template <class Pixels> class BoxSpan {
public:
    BoxSpan(Pixels start, Pixels extent)
        : first_(start.template ShiftedRightSigned<8>()), firstShare_(Pixels::All(256) - LowByte(start)),
          lastShare_(OneToByte(start + extent)),
          lastIndex_(
              AtLeastOne((LowByte(start) + extent + Pixels::All(255)).template ShiftedRight<8>() - Pixels::All(1))),
          isBox_(Below(extent - Pixels::All(256), kLongest)) {}

    Pixels First() const { return first_; }
    Pixels LastIndex() const { return lastIndex_; }
    Pixels Last() const { return first_ + lastIndex_; }

    /// Where the span is long enough, and short enough for kernels.
    auto IsBox() const { return isBox_; }

    /// The share of a pixel by its index from the first; 0 past the last.
    Pixels Share(Pixels index) const {
        const Pixels inner = Select(index == Pixels::All(0), firstShare_, Pixels::All(256));
        const Pixels share = Select(index == lastIndex_, lastShare_, inner);
        return Select(Less(lastIndex_, index), Pixels::All(0), share);
    }

private:
    static constexpr std::uint32_t kLongest = (kMostPixelsAcrossBox - 1) * 256 - 256;

    static Pixels LowByte(Pixels a) { return a & Pixels::All(255); }

    /// 1 to 256 with the same low byte.
    static Pixels OneToByte(Pixels a) { return LowByte(a - Pixels::All(1)) + Pixels::All(1); }

    static Pixels AtLeastOne(Pixels a) { return Select(Less(Pixels::All(0), a), a, Pixels::All(1)); }

    Pixels first_;
    Pixels firstShare_;
    Pixels lastShare_;
    Pixels lastIndex_;
    decltype(Below(Pixels::All(0), 0)) isBox_;
};

/// The mean of each box, rounded, every channel by itself; outside the image its outside pixel.
template <class Pixels>
Pixels BoxMeans(const PositionSource& source, Pixels left, Pixels width, Pixels top, Pixels height) {
    const GridLanes<Pixels> grid = {source};
    const Pixels none = Pixels::All(0);
    const Pixels one = Pixels::All(1);
    const BoxSpan<Pixels> columns(left, width);
    const BoxSpan<Pixels> rows(top, height);
    const auto where = columns.IsBox() & rows.IsBox() & grid.Has(columns.First(), rows.First()) &
                       grid.Has(columns.Last(), rows.Last()) &
                       grid.IsInBlock(grid.Offsets(columns.Last(), rows.Last()));

    // Lanes that have nothing left to add stay where they are, with weights of 0.
    const Pixels corner = grid.Offsets(columns.First(), rows.First());
    typename Pixels::BoxSums sums;
    for (Pixels row = none; (where & NotLess(rows.LastIndex(), row)).Any(); row = row + one) {
        const Pixels rowShare = rows.Share(row);
        const Pixels offsets = corner + Smaller(row, rows.LastIndex()) * grid.RowBytes();
        for (Pixels column = none; (where & NotLess(columns.LastIndex(), column)).Any(); column = column + one + one) {
            // Two columns at a time; the last one of an odd number comes with the one before it.
            const Pixels leftColumn = Smaller(column, columns.LastIndex() - one);
            const Pixels rightColumn = leftColumn + one;
            const Pixels leftShare = Select(leftColumn == column, columns.Share(leftColumn), none);
            const Pixels rightShare = Select(Less(rightColumn, column), none, columns.Share(rightColumn));
            Pixels leftPixels;
            Pixels rightPixels;
            Pixels::GatherPairs(source.grid.base, Select(where, offsets + leftColumn.template ShiftedLeft<2>(), none),
                                leftPixels, rightPixels);
            sums.Add(leftPixels, (leftShare * rowShare).template ShiftedRight<8>(), rightPixels,
                     (rightShare * rowShare).template ShiftedRight<8>());
        }
    }
    const Pixels size = (width * height).template ShiftedRight<8>();
    return Select(where, sums.Mean(Select(where, size, one)), Pixels::All(source.outside.value));
}

} // namespace tn
