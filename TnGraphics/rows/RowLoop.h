// Private: the loop of row kernels, and what it does to rows of each kind. Included by the level sources alone.
#pragma once

#include "TnGraphics/rows/Portability.h"
#include "TnGraphics/rows/RowKernels.h"

#include <cstddef>
#include <cstdint>
#include <type_traits>

namespace tn {

/// Does the last pixels of a row, fewer than a lane.
template <class Pixels, class Row> TN_ALWAYS_INLINE void DoRest(const Row& row, std::size_t column, std::size_t count) {
    using Narrower = typename Pixels::Narrower;
    if constexpr (std::is_void_v<Narrower>) {
        row.DoFirst(column, count);
    } else {
        const auto narrower = row.template Over<Narrower>();
        if (count >= Narrower::kCount) {
            narrower.Do(column);
            column += Narrower::kCount;
            count -= Narrower::kCount;
        }
        if (count > 0) {
            narrower.DoFirst(column, count);
        }
    }
}

template <class Operation>
concept HasEasyWay = requires {
    typename Operation::Easy;
};

/// Does a row of pixels a full lane at a time, and the rest of it in a lane of which only the first pixels are read and
/// written.
///
/// \tparam Row does a lane: Do(column), and DoFirst(column, count) a part of one; where it knows an easy way,
///             DoIfEasy(column) does the lane and returns true, or returns false and has done nothing; then the next
///             pixels are done without looking. Over<Lanes>() is the row in other lanes
template <class Pixels, class Row> TN_ALWAYS_INLINE void DoRow(const Row& row, std::size_t length) {
    const std::size_t rest = length % Pixels::kCount;
    const std::size_t end = length - rest;
    std::size_t column = 0;
    while (column < end) {
        std::size_t look = end;
        if constexpr (HasEasyWay<typename Row::Operation>) {
            while (column < end && row.DoIfEasy(column)) {
                column += Pixels::kCount;
            }
            constexpr std::size_t kFar = Row::Operation::Easy::kPixelsBetweenLooks;
            look = end - column < kFar ? end : column + kFar;
        }
        for (; column < look; column += Pixels::kCount) {
            row.Do(column);
        }
    }
    if (rest > 0) {
        DoRest<Pixels>(row, end, rest);
    }
}

/// A row that a fill's operator changes in place.
template <class Pixels, class Operator> struct FilledRow {
    using Operation = Operator;

    TnImagePixel* row;
    Operator op;

    static Pixels Columns(std::size_t column) { return Pixels::Counting(static_cast<std::uint32_t>(column)); }

    void Do(std::size_t column) const { op(Pixels::Load(row + column), Columns(column)).Store(row + column); }
    void DoFirst(std::size_t column, std::size_t count) const {
        op(Pixels::LoadFirst(row + column, count), Columns(column)).StoreFirst(row + column, count);
    }
    bool DoIfEasy(std::size_t column) const {
        const Pixels d = Pixels::Load(row + column);
        if (!Operator::Easy::Holds(d)) {
            return false;
        }
        op.Easily(d, Columns(column)).Store(row + column);
        return true;
    }

    template <class Lanes> FilledRow<Lanes, Operator> Over() const { return {row, op}; }
};

/// A source row on its way into a destination row.
template <class Pixels, template <class> class Prepare, class Operator, class Source, class Destination>
struct CompositedRow {
    using Operation = Operator;

    const Source* source;
    Destination* destination;
    const Preparation* preparation;
    Operator op = {};
    Prepare<Pixels> prepare = Prepare<Pixels>(*preparation);

    void Do(std::size_t column) const {
        const Pixels s = prepare(Pixels::Load(source + column));
        op(s, Pixels::Load(destination + column)).Store(destination + column);
    }
    void DoFirst(std::size_t column, std::size_t count) const {
        const Pixels s = prepare(Pixels::LoadFirst(source + column, count));
        op(s, Pixels::LoadFirst(destination + column, count)).StoreFirst(destination + column, count);
    }
    bool DoIfEasy(std::size_t column) const {
        const Pixels s = prepare(Pixels::Load(source + column));
        const Pixels d = Pixels::Load(destination + column);
        if (!Operator::Easy::Holds(s, d)) {
            return false;
        }
        op.Easily(s, d).Store(destination + column);
        return true;
    }

    template <class Lanes> CompositedRow<Lanes, Prepare, Operator, Source, Destination> Over() const {
        return {source, destination, preparation};
    }
};

/// A row sampled between two others.
template <class Pixels> struct SampledRow {
    using Operation = SubPixelSampler<Pixels>;

    const TnImagePixel* upper;
    const TnImagePixel* lower;
    TnImagePixel* row;
    SubPixelWeights weights;
    SubPixelSampler<Pixels> sample = SubPixelSampler<Pixels>(upper, lower, weights);

    void Do(std::size_t column) const { sample(column).Store(row + column); }
    void DoFirst(std::size_t column, std::size_t count) const {
        sample.First(column, count).StoreFirst(row + column, count);
    }

    template <class Lanes> SampledRow<Lanes> Over() const { return {upper, lower, row, weights}; }
};

/// A row of which each pixel comes from a position of its own.
template <class Pixels, class Sampler> struct PositionedRow {
    using Operation = Sampler;

    const ImageSource& source;
    const PositionList& positions;
    TnImagePixel* row;

    void Do(std::size_t column) const {
        const auto x = Pixels::Load(positions.x + column);
        Sampler::Sample(source, x, Pixels::Load(positions.y + column)).Store(row + column);
    }
    void DoFirst(std::size_t column, std::size_t count) const {
        const auto x = Pixels::LoadFirst(positions.x + column, count);
        Sampler::Sample(source, x, Pixels::LoadFirst(positions.y + column, count)).StoreFirst(row + column, count);
    }

    template <class Lanes> PositionedRow<Lanes, Sampler> Over() const { return {source, positions, row}; }
};

/// A row of which each pixel is the mean of a box of its own.
template <class Pixels, class Kind, class Pixel> struct AveragedRow {
    using Operation = Kind;

    const PositionSource<Pixel>& source;
    const BoxList& boxes;
    Pixel* row;

    void Do(std::size_t column) const {
        const auto load = [column](const std::int32_t* from) { return Pixels::Load(from + column); };
        Means(load).Store(row + column);
    }
    void DoFirst(std::size_t column, std::size_t count) const {
        const auto load = [=](const std::int32_t* from) { return Pixels::LoadFirst(from + column, count); };
        Means(load).StoreFirst(row + column, count);
    }

    template <class Lanes> AveragedRow<Lanes, Kind, Pixel> Over() const { return {source, boxes, row}; }

private:
    template <class Load> Pixels Means(const Load& load) const {
        return Kind::Means(source,
                           Boxes<Pixels>(load(boxes.left), load(boxes.width), load(boxes.top), load(boxes.height)));
    }
};

} // namespace tn
