// Private: filters along the columns of mattes. All columns of a lane advance together, a row at a time, and what a
// value costs does not depend on the radius.
#pragma once

#include "TnGraphics/port/TnMattePixel.h"
#include "TnGraphics/rows/Portability.h"

#include <cstddef>
#include <cstdint>

namespace tn {

/// Rows of a matte's values.
struct MatteRows {
    TnMattePixel* first;
    std::size_t rowBytes;
};

/// A column filter's work: columns side by side, each of a length, and how far to both sides its neighbours reach.
struct ColumnsToFilter {
    MatteRows from; ///< Some filters use it up.
    MatteRows to;
    std::size_t columns;
    std::size_t length;
    std::size_t radius;
};

/// How far kernels for means reach: with sums of 16 bits, and with sums of 32 bits.
inline constexpr std::size_t kShortRadius = 15;
inline constexpr std::size_t kLongRadius = 126;

/// A value that filters may be told to keep, by whom 1-bit masks are given soft edges: half of 255.
inline constexpr std::uint32_t kHalfCovered = 0x80000000; // the word of a matte's value of 128

/// The first columns of a lane, or all of them.
template <class Lanes> struct ColumnLane {
    std::size_t count;

    TN_ALWAYS_INLINE Lanes Load(const MatteRows& rows, std::size_t row) const {
        const TnMattePixel* const from = rows.first + row * rows.rowBytes;
        return count == Lanes::kCount ? Lanes::Load(from) : Lanes::LoadFirst(from, count);
    }
    TN_ALWAYS_INLINE void Store(const MatteRows& rows, std::size_t row, Lanes values) const {
        TnMattePixel* const to = rows.first + row * rows.rowBytes;
        count == Lanes::kCount ? values.Store(to) : values.StoreFirst(to, count);
    }
};

/// The sum of the weights radius + 1 - distance of those neighbours of a value that its line has.
template <class Lanes> std::uint64_t TriangleWeight(const ColumnsToFilter& work, std::size_t row) {
    const std::size_t after = work.length - 1 - row;
    const auto oneSide = [&work](std::uint64_t neighbors) {
        const std::uint64_t count = neighbors < work.radius ? neighbors : work.radius;
        return count * (work.radius + 1) - count * (count + 1) / 2;
    };
    return work.radius + 1 + oneSide(row) + oneSide(after);
}

/// The means of a value's neighbours, weighted by radius + 1 - distance.
///
/// The difference between one value's sum and the next one's is the sum of the radius + 1 values after the one less
/// that of it and the radius values before. That slope in turn changes by three values only.
template <bool keepsHalf> struct TriangleMeans {
    template <class Lanes, class Sums> static void Filter(const ColumnsToFilter& work, const ColumnLane<Lanes>& lane) {
        using Divisor = typename Sums::Divisor;
        const Lanes none = Lanes::All(0);
        const std::size_t radius = work.radius;
        const std::size_t span = 2 * radius + 2; // from the value that enters to the one that leaves
        const std::size_t full = work.length > radius ? work.length - radius : 0;
        Sums sums;
        Divisor divisor(1);
        for (std::size_t entering = 0; entering < work.length + radius; ++entering) {
            sums.Move(entering < work.length ? lane.Load(work.from, entering) : none,
                      entering > radius ? lane.Load(work.from, entering - radius - 1) : none,
                      entering >= span ? lane.Load(work.from, entering - span) : none);
            if (entering < radius) {
                continue;
            }
            const std::size_t row = entering - radius;
            if (row <= radius || row >= full) {
                divisor = Divisor(static_cast<std::uint32_t>(TriangleWeight<Lanes>(work, row)));
            }
            Lanes means = sums.Means(divisor);
            if constexpr (keepsHalf) {
                means = SameOr(lane.Load(work.from, row), Lanes::All(kHalfCovered), means);
            }
            lane.Store(work.to, row, means);
        }
    }

    template <class Lanes> static void Filter(const ColumnsToFilter& work, const ColumnLane<Lanes>& lane) {
        if (work.radius <= kShortRadius) {
            Filter<Lanes, typename Lanes::ShortSums>(work, lane);
        } else {
            Filter<Lanes, typename Lanes::LongSums>(work, lane);
        }
    }
};

/// The larger and the smaller of values, and what changes neither.
struct Maximum {
    static constexpr std::uint32_t kNeutral = 0;
    template <class Lanes> static Lanes Of(Lanes a, Lanes b) { return MaxBytes(a, b); }
};
struct Minimum {
    static constexpr std::uint32_t kNeutral = 0xFF000000;
    template <class Lanes> static Lanes Of(Lanes a, Lanes b) { return MinBytes(a, b); }
};

/// The extreme of a value's neighbours, by the scheme of van Herk: lines are cut into stretches as long as a full
/// neighbourhood, so that each neighbourhood is the end of a stretch and the beginning of the next one. Values of a
/// stretch whose beginnings were used give way to the extremes of its ends.
template <class Extreme> struct WindowExtremes {
    template <class Lanes> static void Filter(const ColumnsToFilter& work, const ColumnLane<Lanes>& lane) {
        const std::size_t reach = work.radius < work.length ? work.radius : work.length;
        const std::size_t window = 2 * reach + 1;
        Lanes extreme = Lanes::All(Extreme::kNeutral);
        for (std::size_t row = 0; row <= reach && row < work.length; ++row) {
            extreme = Extreme::Of(extreme, lane.Load(work.from, row));
        }
        lane.Store(work.to, 0, extreme);
        for (std::size_t start = reach + 1; start - reach < work.length; start += window) {
            TakeEnds(work, lane, start < window ? 0 : start - window, start < work.length ? start : work.length);
            Join(work, lane, start, reach);
        }
    }

private:
    /// Makes each value the extreme of itself and those after it.
    template <class Lanes>
    static void TakeEnds(const ColumnsToFilter& work, const ColumnLane<Lanes>& lane, std::size_t begin,
                         std::size_t end) {
        Lanes extreme = Lanes::All(Extreme::kNeutral);
        for (std::size_t row = end; row > begin; --row) {
            extreme = Extreme::Of(extreme, lane.Load(work.from, row - 1));
            lane.Store(work.from, row - 1, extreme);
        }
    }

    /// The neighbourhoods whose last value lies in the stretch from start on.
    template <class Lanes>
    static void Join(const ColumnsToFilter& work, const ColumnLane<Lanes>& lane, std::size_t start, std::size_t reach) {
        Lanes extreme = Lanes::All(Extreme::kNeutral);
        for (std::size_t last = start; last <= start + 2 * reach && last - reach < work.length; ++last) {
            if (last < work.length) {
                extreme = Extreme::Of(extreme, lane.Load(work.from, last));
            }
            Lanes joined = extreme;
            if (last < start + 2 * reach) {
                const std::size_t first = last < 2 * reach ? 0 : last - 2 * reach;
                joined = Extreme::Of(joined, lane.Load(work.from, first));
            }
            lane.Store(work.to, last - reach, joined);
        }
    }
};

/// Runs a filter over the columns, a lane at a time.
template <class Lanes, class Filter> void FilterColumns(const ColumnsToFilter& work) {
    for (std::size_t column = 0; column < work.columns; column += Lanes::kCount) {
        const std::size_t left = work.columns - column;
        const ColumnsToFilter part = {{work.from.first + column, work.from.rowBytes},
                                      {work.to.first + column, work.to.rowBytes},
                                      left,
                                      work.length,
                                      work.radius};
        if (left >= Lanes::kCount) {
            Filter::Filter(part, ColumnLane<Lanes>{Lanes::kCount});
        } else {
            Filter::Filter(part, ColumnLane<Lanes>{left});
        }
    }
}

} // namespace tn
