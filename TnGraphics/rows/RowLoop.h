// Private: the loop of every row kernel, and the table of a level's kernels. Included by the level sources alone.
#pragma once

#include "TnGraphics/rows/Portability.h"
#include "TnGraphics/rows/RowKernels.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
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
        if (!Operator::Easy::Holds(s)) {
            return false;
        }
        op.Easily(s, Pixels::Load(destination + column)).Store(destination + column);
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

template <class Pixels, class Operator> void FillRow(TnImagePixel* row, std::size_t length, const Operator& op) {
    DoRow<Pixels>(FilledRow<Pixels, Operator>{row, op}, length);
}

template <class Pixels, template <class> class Prepare, class Operator, class Source, class Destination>
void CompositeRow(const Source* source, Destination* destination, std::size_t length, const Preparation& preparation) {
    using Row = CompositedRow<Pixels, Prepare, Operator, Source, Destination>;
    DoRow<Pixels>(Row{source, destination, &preparation}, length);
}

/// Nothing copies bytes faster than the C library.
template <class Pixels, class Pixel>
void CopyRow(const Pixel* source, Pixel* destination, std::size_t length, const Preparation&) {
    std::memmove(static_cast<void*>(destination), source, length * sizeof(Pixel));
}

template <class Pixels>
void SampleRow(const TnImagePixel* upper, const TnImagePixel* lower, TnImagePixel* row, std::size_t length,
               const SubPixelWeights& weights) {
    DoRow<Pixels>(SampledRow<Pixels>{upper, lower, row, weights}, length);
}

template <class Pixels, class Sampler>
void SampleAtPositions(const ImageSource& source, const PositionList& positions, TnImagePixel* row,
                       std::size_t length) {
    DoRow<Pixels>(PositionedRow<Pixels, Sampler>{source, positions, row}, length);
}

template <class Pixels, class Kind, class Pixel>
void AverageBoxes(const PositionSource<Pixel>& source, const BoxList& boxes, Pixel* row, std::size_t length) {
    DoRow<Pixels>(AveragedRow<Pixels, Kind, Pixel>{source, boxes, row}, length);
}

/// Plain loops, which compilers turn into the level's instructions by themselves as long as each does one thing.
template <class Pixels, class Quotient>
void ProjectPositions(const HomogeneousList& positions, std::int32_t* x, std::int32_t* y, std::size_t length) {
    const auto project = [w = positions.w, length](float* from, std::int32_t* to) {
        for (std::size_t i = 0; i < length; ++i) {
            from[i] = CoordinateQuotient<Pixels>(from[i], w[i]);
        }
        for (std::size_t i = 0; i < length; ++i) {
            to[i] = Quotient::template Of<Pixels>(from[i]);
        }
    };
    project(positions.x, x);
    project(positions.y, y);
}

/// The lanes for pixels of two kinds.
template <class Pixels, class Source, class Destination> struct LanesFor { using Type = Pixels; };
template <class Pixels> struct LanesFor<Pixels, TnMattePixel, TnMattePixel> { using Type = typename Pixels::Mattes; };

/// The kernels of one entry of the table.
template <class Pixels, class Kernels> struct KernelsOver;

template <class Pixels, class Operator> struct KernelsOver<Pixels, Filling<Operator>> {
    static constexpr Filling<Operator> kKernels = {&FillRow<Pixels, Operator>};
};

template <class Pixels, class Operator, class Source, class Destination>
struct KernelsOver<Pixels, Copying<Operator, Source, Destination>> {
    using Lanes = typename LanesFor<Pixels, Source, Destination>::Type;

    static constexpr Copying<Operator, Source, Destination> kKernels = {
        &CompositeRow<Lanes, AsItIs, Operator, Source, Destination>};
};

template <class Pixels, class Pixel> struct KernelsOver<Pixels, Copying<CopyPixel, Pixel, Pixel>> {
    static constexpr Copying<CopyPixel, Pixel, Pixel> kKernels = {&CopyRow<Pixels, Pixel>};
};

template <class Pixels, class Operator, class Source, class Destination>
struct KernelsOver<Pixels, Compositing<Operator, Source, Destination>> {
    using Lanes = typename LanesFor<Pixels, Source, Destination>::Type;

    template <template <class> class Prepare>
    static constexpr auto kPrepared = &CompositeRow<Lanes, Prepare, Operator, Source, Destination>;
    static constexpr auto kPlain = KernelsOver<Pixels, Copying<Operator, Source, Destination>>::kKernels.kernel;

    // A matte has no colour, so a colour matrix leaves it alone.
    static constexpr Compositing<Operator, Source, Destination> MakeKernels() {
        if constexpr (std::is_same_v<Source, TnMattePixel>) {
            return {{kPlain, kPlain, kPrepared<ByOpacity>, kPrepared<ByOpacity>}};
        } else {
            return {{kPlain, kPrepared<ByMatrix>, kPrepared<ByOpacity>, kPrepared<ByMatrixAndOpacity>}};
        }
    }

    static constexpr Compositing<Operator, Source, Destination> kKernels = MakeKernels();
};

template <class Pixels> struct KernelsOver<Pixels, Sampling> {
    static constexpr Sampling kKernels = {&SampleRow<Pixels>};
};

template <class Pixels, class Quotient> struct KernelsOver<Pixels, Projecting<Quotient>> {
    static constexpr Projecting<Quotient> kKernels = {&ProjectPositions<Pixels, Quotient>};
};

template <class Pixels> struct KernelsOver<Pixels, Fetching> {
    static constexpr Fetching kKernels = {&SampleAtPositions<Pixels, AtPixels>};
};

template <class Pixels> struct KernelsOver<Pixels, Interpolating> {
    static constexpr Interpolating kKernels = {&SampleAtPositions<Pixels, BetweenPixels>};
};

template <class Pixels> struct KernelsOver<Pixels, PlacingBoxes> {
    static constexpr PlacingBoxes kKernels = {&PlaceBoxes<Pixels>};
};

template <class Pixels> struct KernelsOver<Pixels, Averaging<TnImagePixel>> {
    static constexpr Averaging<TnImagePixel> kKernels = {&AverageBoxes<Pixels, ImageBoxes, TnImagePixel>};
};

template <class Pixels> struct KernelsOver<Pixels, Averaging<TnMattePixel>> {
    static constexpr Averaging<TnMattePixel> kKernels = {&AverageBoxes<Pixels, MatteBoxes, TnMattePixel>};
};

template <class Pixels, class Table> struct LevelKernels;

/// The kernels of every entry of the table over one lane type.
template <class Pixels, class... Kernels> struct LevelKernels<Pixels, KernelTable<Kernels...>> {
    static constexpr KernelTable<Kernels...> kTable = {KernelsOver<Pixels, Kernels>::kKernels...};
};

} // namespace tn
