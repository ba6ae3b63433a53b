// Private: the means of boxes of a surface, a box for each pixel of a row.
#pragma once

#include "TnGraphics/rows/PositionSamplers.h"

#include <cstddef>
#include <cstdint>

namespace tn {

/// Boxes in 256ths of a pixel. One that is not at least a pixel wide and high, or not inside the surface, has no mean.
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

/// The boxes of a lane's pixels.
template <class Pixels> struct Boxes {
    BoxSpan<Pixels> columns;
    BoxSpan<Pixels> rows;
    Pixels size; ///< In 256ths of a pixel.

    Boxes(Pixels left, Pixels width, Pixels top, Pixels height)
        : columns(left, width), rows(top, height), size((width * height).template ShiftedRight<8>()) {}

    /// Where the surface has all of a box.
    template <class Pixel> auto AreInside(const GridLanes<Pixels, Pixel>& grid) const {
        return columns.IsBox() & rows.IsBox() & grid.Has(columns.First(), rows.First()) &
               grid.Has(columns.Last(), rows.Last()) & grid.IsInBlock(grid.Offsets(columns.Last(), rows.Last()));
    }
};

// In the loops below, lanes that have nothing left to add stay where they are, with weights of 0.

/// The mean of each box, rounded, every channel by itself; outside the image its outside pixel.
struct ImageBoxes {
    template <class Pixels> static Pixels Means(const ImageSource& source, const Boxes<Pixels>& boxes) {
        const GridLanes<Pixels> grid = {source};
        const auto& [columns, rows, size] = boxes;
        const auto where = boxes.AreInside(grid);
        const Pixels one = Pixels::All(1);
        typename Pixels::BoxSums sums;
        for (Pixels row = Pixels::All(0); (where & NotLess(rows.LastIndex(), row)).Any(); row = row + one) {
            const Pixels offsets = grid.Offsets(columns.First(), rows.First() + Smaller(row, rows.LastIndex()));
            AddRow(source, columns, Select(where, offsets, Pixels::All(0)), rows.Share(row), where, sums);
        }
        return Select(where, sums.Mean(Select(where, size, one)), Pixels::All(source.outside.value));
    }

private:
    /// Adds two columns at a time; the last one of an odd number comes with the one before it.
    template <class Pixels, class Mask>
    static void AddRow(const ImageSource& source, const BoxSpan<Pixels>& columns, Pixels offsets, Pixels rowShare,
                       Mask where, typename Pixels::BoxSums& sums) {
        const Pixels none = Pixels::All(0);
        const Pixels one = Pixels::All(1);
        for (Pixels column = none; (where & NotLess(columns.LastIndex(), column)).Any(); column = column + one + one) {
            const Pixels left = Select(where, Smaller(column, columns.LastIndex() - one), none);
            const Pixels right = left + one;
            const Pixels leftShare = Select(left == column, columns.Share(left), none);
            const Pixels rightShare = Select(Less(right, column), none, columns.Share(right));
            Pixels leftPixels;
            Pixels rightPixels;
            Pixels::GatherPairs(source.grid.base, offsets + left.template ShiftedLeft<2>(), leftPixels, rightPixels);
            sums.Add(leftPixels, (leftShare * rowShare).template ShiftedRight<8>(), rightPixels,
                     (rightShare * rowShare).template ShiftedRight<8>());
        }
    }
};

/// The mean of each box, truncated; outside the matte its outside pixel. The matte is at least kValuesAtOnce wide.
struct MatteBoxes {
    static constexpr std::int32_t kValuesAtOnce = 4;

    template <class Pixels> static Pixels Means(const MatteSource& source, const Boxes<Pixels>& boxes) {
        const GridLanes<Pixels, TnMattePixel> grid = {source};
        const auto& [columns, rows, size] = boxes;
        const auto where = boxes.AreInside(grid);
        const Pixels one = Pixels::All(1);
        Pixels sums = Pixels::All(0);
        for (Pixels row = Pixels::All(0); (where & NotLess(rows.LastIndex(), row)).Any(); row = row + one) {
            const Pixels rowOffsets = grid.Offsets(Pixels::All(0), rows.First() + Smaller(row, rows.LastIndex()));
            sums = sums + RowSum(source, columns, rowOffsets, rows.Share(row), where);
        }
        const Pixels mean = Quotients(sums, Select(where, size, one));
        return Select(where, mean, Pixels::All(source.outside.value)).template ShiftedLeft<24>();
    }

private:
    /// Reads four values at a time, which begin where the row still has as many.
    template <class Pixels, class Mask>
    static Pixels RowSum(const MatteSource& source, const BoxSpan<Pixels>& columns, Pixels rowOffsets, Pixels rowShare,
                         Mask where) {
        constexpr std::uint32_t kEveryOtherByte = 0x00FF00FF;
        const Pixels lastStart = Pixels::All(static_cast<std::uint32_t>(source.grid.size.x - kValuesAtOnce));
        Pixels sum = Pixels::All(0);
        for (Pixels index = Pixels::All(0); (where & NotLess(columns.LastIndex(), index)).Any();
             index = index + Pixels::All(kValuesAtOnce)) {
            const Pixels start = Smaller(columns.First() + index, lastStart);
            const Pixels values = Pixels::Gather(source.grid.base, rowOffsets + start,
                                                 where & NotLess(columns.LastIndex(), index), Pixels::All(0));
            const auto weight = [&](std::uint32_t n) {
                const Pixels at = start + Pixels::All(n) - columns.First();
                const Pixels share = Select(Less(at, index), Pixels::All(0), columns.Share(at));
                return (share * rowShare).template ShiftedRight<8>();
            };
            sum = sum +
                  PairSums(values & Pixels::All(kEveryOtherByte), weight(0) | weight(2).template ShiftedLeft<16>()) +
                  PairSums(values.template ShiftedRight<8>() & Pixels::All(kEveryOtherByte),
                           weight(1) | weight(3).template ShiftedLeft<16>());
        }
        return sum;
    }
};

} // namespace tn
