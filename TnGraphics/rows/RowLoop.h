// Private: the loop of every row kernel, and the table of a level's kernels. Included by the level sources alone.
#pragma once

#include "TnGraphics/rows/RowKernels.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <type_traits>

namespace tn {

/// How far a row is done on the hard way before another look whether the easy one will do.
inline constexpr std::size_t kPixelsBetweenLooks = 64;

/// Does a row of pixels a full lane at a time, and the rest of it in a lane of which only the first pixels are read and
/// written.
///
/// \tparam Row does a lane: Do(column), DoFirst(column, count); where it knows an easy way, DoEasily(column) does the
///             lane and returns true, or returns false and has done nothing
template <class Pixels, class Row> void DoRow(const Row& row, std::size_t length) {
    const std::size_t rest = length % Pixels::kCount;
    const std::size_t end = length - rest;
    std::size_t column = 0;
    while (column < end) {
        std::size_t look = end;
        if constexpr (Row::kHasEasyWay) {
            while (column < end && row.DoEasily(column)) {
                column += Pixels::kCount;
            }
            look = end - column < kPixelsBetweenLooks ? end : column + kPixelsBetweenLooks;
        }
        for (; column < look; column += Pixels::kCount) {
            row.Do(column);
        }
    }
    if (rest > 0) {
        row.DoFirst(end, rest);
    }
}

/// A row that a fill's operator changes in place.
template <class Pixels, class Operator> struct FilledRow {
    static constexpr bool kHasEasyWay = requires(Pixels d) { Operator::IsEasy(d); };

    TnImagePixel* row;
    Operator op;

    static Pixels Columns(std::size_t column) { return Pixels::Counting(static_cast<std::uint32_t>(column)); }

    void Do(std::size_t column) const { op(Pixels::Load(row + column), Columns(column)).Store(row + column); }
    void DoFirst(std::size_t column, std::size_t count) const {
        op(Pixels::LoadFirst(row + column, count), Columns(column)).StoreFirst(row + column, count);
    }
    bool DoEasily(std::size_t column) const {
        const Pixels d = Pixels::Load(row + column);
        if (!Operator::IsEasy(d)) {
            return false;
        }
        op.Easily(d, Columns(column)).Store(row + column);
        return true;
    }
};

/// A source row on its way into a destination row.
template <class Pixels, class Prepare, class Operator, class Source, class Destination> struct CompositedRow {
    static constexpr bool kHasEasyWay = requires(Pixels s) { Operator::IsEasy(s); };

    const Source* source;
    Destination* destination;
    Prepare prepare;
    Operator op;

    void Do(std::size_t column) const {
        const Pixels s = prepare(Pixels::Load(source + column));
        op(s, Pixels::Load(destination + column)).Store(destination + column);
    }
    void DoFirst(std::size_t column, std::size_t count) const {
        const Pixels s = prepare(Pixels::LoadFirst(source + column, count));
        op(s, Pixels::LoadFirst(destination + column, count)).StoreFirst(destination + column, count);
    }
    bool DoEasily(std::size_t column) const {
        const Pixels s = prepare(Pixels::Load(source + column));
        if (!Operator::IsEasy(s)) {
            return false;
        }
        op.Easily(s, Pixels::Load(destination + column)).Store(destination + column);
        return true;
    }
};

/// A row sampled between two others.
template <class Pixels> struct SampledRow {
    static constexpr bool kHasEasyWay = true;
    using Neighbors = SubPixelSampler::Neighbors<Pixels>;

    const TnImagePixel* upper;
    const TnImagePixel* lower;
    TnImagePixel* row;
    SubPixelSampler sampler;

    Neighbors Load(std::size_t column) const {
        return {Pixels::Load(upper + column), Pixels::Load(upper + column + 1), Pixels::Load(lower + column),
                Pixels::Load(lower + column + 1)};
    }
    void Do(std::size_t column) const { sampler(Load(column)).Store(row + column); }
    void DoFirst(std::size_t column, std::size_t count) const {
        const Neighbors neighbors = {
            Pixels::LoadFirst(upper + column, count), Pixels::LoadFirst(upper + column + 1, count),
            Pixels::LoadFirst(lower + column, count), Pixels::LoadFirst(lower + column + 1, count)};
        sampler(neighbors).StoreFirst(row + column, count);
    }
    bool DoEasily(std::size_t column) const {
        const Neighbors neighbors = Load(column);
        if (!SubPixelSampler::IsEasy(neighbors)) {
            return false;
        }
        sampler.Easily(neighbors).Store(row + column);
        return true;
    }
};

// Rows hold copies of operators and settings, which stores to pixels cannot touch, so that these stay in registers.

template <class Pixels, class Operator> void FillRow(TnImagePixel* row, std::size_t length, const Operator& op) {
    DoRow<Pixels>(FilledRow<Pixels, Operator>{row, op}, length);
}

template <class Pixels, class Prepare, class Operator, class Source, class Destination>
void CompositeRow(const Source* source, Destination* destination, std::size_t length, const Preparation& preparation) {
    using Row = CompositedRow<Pixels, Prepare, Operator, Source, Destination>;
    DoRow<Pixels>(Row{source, destination, Prepare(preparation), {}}, length);
}

/// Nothing copies bytes faster than the C library.
template <class Pixels, class Pixel>
void CopyRow(const Pixel* source, Pixel* destination, std::size_t length, const Preparation&) {
    std::memmove(static_cast<void*>(destination), source, length * sizeof(Pixel));
}

template <class Pixels>
void SampleRow(const TnImagePixel* upper, const TnImagePixel* lower, TnImagePixel* row, std::size_t length,
               const SubPixelSampler& sampler) {
    DoRow<Pixels>(SampledRow<Pixels>{upper, lower, row, sampler}, length);
}

/// The kernels of one entry of the table.
template <class Pixels, class Kernels> struct KernelsOver;

template <class Pixels, class Operator> struct KernelsOver<Pixels, Filling<Operator>> {
    static constexpr Filling<Operator> kKernels = {&FillRow<Pixels, Operator>};
};

template <class Pixels, class Operator, class Source, class Destination>
struct KernelsOver<Pixels, Copying<Operator, Source, Destination>> {
    static constexpr Copying<Operator, Source, Destination> kKernels = {
        &CompositeRow<Pixels, AsItIs<Pixels>, Operator, Source, Destination>};
};

template <class Pixels, class Pixel> struct KernelsOver<Pixels, Copying<CopyPixel, Pixel, Pixel>> {
    static constexpr Copying<CopyPixel, Pixel, Pixel> kKernels = {&CopyRow<Pixels, Pixel>};
};

template <class Pixels, class Operator, class Source, class Destination>
struct KernelsOver<Pixels, Compositing<Operator, Source, Destination>> {
    // A matte has no colour, so a colour matrix leaves it alone.
    static constexpr bool kHasColor = std::is_same_v<Source, TnImagePixel>;
    using Matrix = std::conditional_t<kHasColor, ByMatrix<Pixels>, AsItIs<Pixels>>;
    using Both = std::conditional_t<kHasColor, ByMatrixAndOpacity<Pixels>, ByOpacity<Pixels>>;

    static constexpr Compositing<Operator, Source, Destination> kKernels = {
        {KernelsOver<Pixels, Copying<Operator, Source, Destination>>::kKernels.kernel,
         &CompositeRow<Pixels, Matrix, Operator, Source, Destination>,
         &CompositeRow<Pixels, ByOpacity<Pixels>, Operator, Source, Destination>,
         &CompositeRow<Pixels, Both, Operator, Source, Destination>}};
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
