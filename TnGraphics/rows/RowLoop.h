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

/// Does a row of pixels a full lane at a time, and the rest of it in a lane of which only the first pixels are read and
/// written.
///
/// \tparam Row does a lane: Do(column), and DoFirst(column, count) a part of one; where it knows an easy way,
///             DoAndLook(column) does the lane and says whether that was easy; if not, the next kPixelsBetweenLooks are
///             done without looking. Over<Lanes>() is the row in other lanes
template <class Pixels, class Row> TN_ALWAYS_INLINE void DoRow(const Row& row, std::size_t length) {
    const std::size_t rest = length % Pixels::kCount;
    const std::size_t end = length - rest;
    std::size_t column = 0;
    while (column < end) {
        std::size_t look = end;
        if constexpr (Row::kHasEasyWay) {
            bool isEasy = true;
            for (; column < end && isEasy; column += Pixels::kCount) {
                isEasy = row.DoAndLook(column);
            }
            look = end - column < Row::kPixelsBetweenLooks ? end : column + Row::kPixelsBetweenLooks;
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
    static constexpr bool kHasEasyWay = requires(Pixels d) { Operator::IsEasy(d); };
    static constexpr std::size_t kPixelsBetweenLooks = 128;

    TnImagePixel* row;
    Operator op;

    static Pixels Columns(std::size_t column) { return Pixels::Counting(static_cast<std::uint32_t>(column)); }

    void Do(std::size_t column) const { op(Pixels::Load(row + column), Columns(column)).Store(row + column); }
    void DoFirst(std::size_t column, std::size_t count) const {
        op(Pixels::LoadFirst(row + column, count), Columns(column)).StoreFirst(row + column, count);
    }
    bool DoAndLook(std::size_t column) const {
        const Pixels d = Pixels::Load(row + column);
        const bool isEasy = Operator::IsEasy(d);
        (isEasy ? op.Easily(d, Columns(column)) : op(d, Columns(column))).Store(row + column);
        return isEasy;
    }

    template <class Lanes> FilledRow<Lanes, Operator> Over() const { return {row, op}; }
};

/// A source row on its way into a destination row.
template <class Pixels, template <class> class Prepare, class Operator, class Source, class Destination>
struct CompositedRow {
    static constexpr bool kHasEasyWay = requires(Pixels s) { Operator::IsEasy(s); };
    static constexpr std::size_t kPixelsBetweenLooks = 128;

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
    bool DoAndLook(std::size_t column) const {
        const Pixels s = prepare(Pixels::Load(source + column));
        const Pixels d = Pixels::Load(destination + column);
        const bool isEasy = Operator::IsEasy(s);
        (isEasy ? op.Easily(s, d) : op(s, d)).Store(destination + column);
        return isEasy;
    }

    template <class Lanes> CompositedRow<Lanes, Prepare, Operator, Source, Destination> Over() const {
        return {source, destination, preparation};
    }
};

/// A row sampled between two others.
template <class Pixels> struct SampledRow {
    static constexpr bool kHasEasyWay = false;

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

/// The kernels of one entry of the table.
template <class Pixels, class Kernels> struct KernelsOver;

template <class Pixels, class Operator> struct KernelsOver<Pixels, Filling<Operator>> {
    static constexpr Filling<Operator> kKernels = {&FillRow<Pixels, Operator>};
};

template <class Pixels, class Operator, class Source, class Destination>
struct KernelsOver<Pixels, Copying<Operator, Source, Destination>> {
    static constexpr Copying<Operator, Source, Destination> kKernels = {
        &CompositeRow<Pixels, AsItIs, Operator, Source, Destination>};
};

template <class Pixels, class Pixel> struct KernelsOver<Pixels, Copying<CopyPixel, Pixel, Pixel>> {
    static constexpr Copying<CopyPixel, Pixel, Pixel> kKernels = {&CopyRow<Pixels, Pixel>};
};

template <class Pixels, class Operator, class Source, class Destination>
struct KernelsOver<Pixels, Compositing<Operator, Source, Destination>> {
    // A matte has no colour, so a colour matrix leaves it alone.
    static constexpr bool kHasColor = std::is_same_v<Source, TnImagePixel>;

    template <template <class> class Prepare>
    static constexpr auto kKernel = &CompositeRow<Pixels, Prepare, Operator, Source, Destination>;

    static constexpr Compositing<Operator, Source, Destination> kKernels = {
        {KernelsOver<Pixels, Copying<Operator, Source, Destination>>::kKernels.kernel,
         kHasColor ? kKernel<ByMatrix> : kKernel<AsItIs>, kKernel<ByOpacity>,
         kHasColor ? kKernel<ByMatrixAndOpacity> : kKernel<ByOpacity>}};
};

template <class Pixels> struct KernelsOver<Pixels, Sampling> {
    static constexpr Sampling kKernels = {&SampleRow<Pixels>};
};

template <class Pixels, class Table> struct LevelKernels;

/// The kernels of every entry of the table over one lane type.
template <class Pixels, class... Kernels> struct LevelKernels<Pixels, KernelTable<Kernels...>> {
    static constexpr KernelTable<Kernels...> kTable = {KernelsOver<Pixels, Kernels>::kKernels...};
};

} // namespace tn
