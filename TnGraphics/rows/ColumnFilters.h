// Private: filters along the columns of mattes. All columns of a lane advance together, a row at a time, and the work
// for a value does not grow with the radius; it only differs between short and long sums, and for extremes of few
// neighbours.
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

/// The value that filters may be told to keep, 128, as a matte's word.
inline constexpr std::uint32_t kHalfCovered = 0x80000000;

/// Columns that fill a lane.
template <class Lanes> struct WholeLane {
    TN_ALWAYS_INLINE Lanes Load(const MatteRows& rows, std::size_t row) const {
        return Lanes::Load(rows.first + row * rows.rowBytes);
    }
    TN_ALWAYS_INLINE void Store(const MatteRows& rows, std::size_t row, Lanes values) const {
        values.Store(rows.first + row * rows.rowBytes);
    }
};

/// Fewer columns than fill a lane.
template <class Lanes> struct PartOfLane {
    std::size_t count;

    TN_ALWAYS_INLINE Lanes Load(const MatteRows& rows, std::size_t row) const {
        return Lanes::LoadFirst(rows.first + row * rows.rowBytes, count);
    }
    TN_ALWAYS_INLINE void Store(const MatteRows& rows, std::size_t row, Lanes values) const {
        values.StoreFirst(rows.first + row * rows.rowBytes, count);
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

/// The divisors of a line's sums: the sums of their weights. Away from the ends all are equal.
template <class Lanes, class Divisor> class TriangleDivisors {
public:
    explicit TriangleDivisors(const ColumnsToFilter& work)
        : work_(work), full_(static_cast<std::uint32_t>((work.radius + 1) * (work.radius + 1))) {}

    const Divisor& Full() const { return full_; }
    Divisor At(std::size_t row) const { return Divisor(static_cast<std::uint32_t>(TriangleWeight<Lanes>(work_, row))); }

private:
    const ColumnsToFilter& work_;
    Divisor full_;
};

/// The means of a value's neighbours, weighted by radius + 1 - distance.
///
/// The difference between one value's sum and the next one's is the sum of the radius + 1 values after the one less
/// that of it and the radius values before. That slope in turn changes by three values only.
template <bool keepsHalf> struct TriangleMeans {
    template <class Lanes, class Access> static void Filter(const ColumnsToFilter& work, const Access& lane) {
        if (work.radius <= kShortRadius) {
            Line<Lanes, typename Lanes::ShortSums, Access>(work, lane).Filter();
        } else {
            Line<Lanes, typename Lanes::LongSums, Access>(work, lane).Filter();
        }
    }

private:
    template <class Lanes, class Sums, class Access> class Line {
        using Divisor = typename Sums::Divisor;

    public:
        Line(const ColumnsToFilter& work, const Access& lane) : work_(work), lane_(lane) {}

        void Filter() const {
            const TriangleDivisors<Lanes, Divisor> divisors(work_);
            const std::size_t length = work_.length;
            const std::size_t last = length + work_.radius;
            Sums sums;
            std::size_t entering = 0;
            for (; entering < work_.radius; ++entering) {
                MoveNearEnd(sums, entering);
            }
            for (; entering < last && entering < Span(); ++entering) {
                MoveNearEnd(sums, entering);
                Store(sums, entering, divisors.At(entering - work_.radius));
            }
            for (; entering < length; ++entering) {
                sums.Move(Load(entering), Load(entering - work_.radius - 1), Load(entering - Span()));
                Store(sums, entering, divisors.Full());
            }
            for (; entering < last; ++entering) {
                MoveNearEnd(sums, entering);
                Store(sums, entering, divisors.At(entering - work_.radius));
            }
        }

    private:
        /// From the value that enters a sum to the one that leaves the slope.
        std::size_t Span() const { return 2 * work_.radius + 2; }

        TN_ALWAYS_INLINE Lanes Load(std::size_t row) const { return lane_.Load(work_.from, row); }

        /// Where some of the three values may not be there.
        TN_ALWAYS_INLINE void MoveNearEnd(Sums& sums, std::size_t entering) const {
            const Lanes none = Lanes::All(0);
            sums.Move(entering < work_.length ? Load(entering) : none,
                      entering > work_.radius ? Load(entering - work_.radius - 1) : none,
                      entering >= Span() ? Load(entering - Span()) : none);
        }

        TN_ALWAYS_INLINE void Store(const Sums& sums, std::size_t entering, const Divisor& divisor) const {
            const std::size_t row = entering - work_.radius;
            Lanes means = sums.Means(divisor);
            if constexpr (keepsHalf) {
                means = SameOr(Load(row), Lanes::All(kHalfCovered), means);
            }
            lane_.Store(work_.to, row, means);
        }

        const ColumnsToFilter& work_;
        const Access& lane_;
    };
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

/// The extremes of few neighbours, joined from those of two values in a row and of four.
template <class Extreme, class Lanes, std::size_t reach> class ShortWindow {
public:
    /// The extreme of the latest values as far as twice the reach before the one that enters.
    TN_ALWAYS_INLINE Lanes Enter(Lanes value) {
        const Lanes pair = Extreme::Of(value, value_);
        const Lanes four = Extreme::Of(pair, pairs_[1]);
        const Lanes joined = reach == 1   ? Extreme::Of(pair, pairs_[0])
                             : reach == 2 ? Extreme::Of(four, fours_[0])
                                          : Extreme::Of(four, fours_[2]);
        value_ = value;
        pairs_[1] = pairs_[0];
        pairs_[0] = pair;
        fours_[2] = fours_[1];
        fours_[1] = fours_[0];
        fours_[0] = four;
        return joined;
    }

    static Lanes Neutral() { return Lanes::All(Extreme::kNeutral); }

private:
    Lanes value_ = Neutral();
    Lanes pairs_[2] = {Neutral(), Neutral()}; // the latest first
    Lanes fours_[3] = {Neutral(), Neutral(), Neutral()};
};

/// The extreme of a value's neighbours, by the scheme of van Herk: lines are cut into stretches as long as a full
/// neighbourhood, so that each neighbourhood is the end of a stretch and the beginning of the next one. Values of a
/// stretch whose beginnings were used give way to the extremes of its ends.
template <class Extreme> struct WindowExtremes {
    template <class Lanes, class Access> static void Filter(const ColumnsToFilter& work, const Access& lane) {
        switch (work.radius) {
        case 1:
            return FilterShort<Lanes, 1>(work, lane);
        case 2:
            return FilterShort<Lanes, 2>(work, lane);
        case 3:
            return FilterShort<Lanes, 3>(work, lane);
        default:
            return FilterInStretches<Lanes>(work, lane);
        }
    }

private:
    template <class Lanes, std::size_t reach, class Access>
    static void FilterShort(const ColumnsToFilter& work, const Access& lane) {
        ShortWindow<Extreme, Lanes, reach> window;
        std::size_t entering = 0;
        for (; entering < reach; ++entering) {
            window.Enter(entering < work.length ? lane.Load(work.from, entering) : window.Neutral());
        }
        for (; entering < work.length; ++entering) {
            lane.Store(work.to, entering - reach, window.Enter(lane.Load(work.from, entering)));
        }
        for (; entering < work.length + reach; ++entering) {
            lane.Store(work.to, entering - reach, window.Enter(window.Neutral()));
        }
    }

    template <class Lanes, class Access>
    static void FilterInStretches(const ColumnsToFilter& work, const Access& lane) {
        const std::size_t reach = work.radius < work.length ? work.radius : work.length;
        const std::size_t window = 2 * reach + 1;
        Lanes extreme = Lanes::All(Extreme::kNeutral);
        for (std::size_t row = 0; row <= reach && row < work.length; ++row) {
            extreme = Extreme::Of(extreme, lane.Load(work.from, row));
        }
        lane.Store(work.to, 0, extreme);
        for (std::size_t start = reach + 1; start - reach < work.length; start += window) {
            TakeEnds<Lanes>(work, lane, start < window ? 0 : start - window, start < work.length ? start : work.length);
            Join<Lanes>(work, lane, start, reach);
        }
    }

    /// Makes each value the extreme of itself and those after it.
    template <class Lanes, class Access>
    static void TakeEnds(const ColumnsToFilter& work, const Access& lane, std::size_t begin, std::size_t end) {
        Lanes extreme = Lanes::All(Extreme::kNeutral);
        for (std::size_t row = end; row > begin; --row) {
            extreme = Extreme::Of(extreme, lane.Load(work.from, row - 1));
            lane.Store(work.from, row - 1, extreme);
        }
    }

    /// The neighbourhoods whose last value lies in the stretch from start on, or would past the end of the line.
    template <class Lanes, class Access>
    static void Join(const ColumnsToFilter& work, const Access& lane, std::size_t start, std::size_t reach) {
        const std::size_t end = start + 2 * reach;
        const std::size_t inLine = end < work.length ? end : work.length;
        const std::size_t past = work.length + reach;
        const auto ends = [&](std::size_t last) {
            return lane.Load(work.from, last < 2 * reach ? 0 : last - 2 * reach);
        };
        Lanes beginning = Lanes::All(Extreme::kNeutral);
        std::size_t last = start;
        for (; last < inLine; ++last) {
            beginning = Extreme::Of(beginning, lane.Load(work.from, last));
            lane.Store(work.to, last - reach, Extreme::Of(beginning, ends(last)));
        }
        for (; last < end && last < past; ++last) {
            lane.Store(work.to, last - reach, Extreme::Of(beginning, ends(last)));
        }
        if (last < past) { // the stretch itself
            const bool isInLine = last < work.length;
            lane.Store(work.to, last - reach,
                       isInLine ? Extreme::Of(beginning, lane.Load(work.from, last)) : beginning);
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
            Filter::template Filter<Lanes>(part, WholeLane<Lanes>());
        } else {
            Filter::template Filter<Lanes>(part, PartOfLane<Lanes>{left});
        }
    }
}

} // namespace tn
