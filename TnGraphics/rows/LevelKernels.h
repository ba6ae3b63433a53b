// Private: the kernels, and the table of them at one level. Included by the level sources alone.
#pragma once

#include "TnGraphics/rows/CellCoverage.h"
#include "TnGraphics/rows/RowKernels.h"
#include "TnGraphics/rows/RowLoop.h"
#include "TnGraphics/rows/Turning.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <type_traits>

namespace tn {

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

/// In stretches whose positions all suit the sampler's inner kind, no pixel needs a test of its own.
template <class Pixels, class Sampler>
void SampleAtPositions(const ImageSource& source, const PositionList& positions, TnImagePixel* row,
                       std::size_t length) {
    using Inner = typename Sampler::Inner;
    constexpr std::size_t kStretch = 64;
    for (std::size_t start = 0; start < length; start += kStretch) {
        const std::size_t count = length - start < kStretch ? length - start : kStretch;
        const PositionList stretch = {positions.x + start, positions.y + start};
        if (Inner::template Suits<Pixels>(source, stretch, count)) {
            DoRow<Pixels>(PositionedRow<Pixels, Inner>{source, stretch, row + start}, count);
        } else {
            DoRow<Pixels>(PositionedRow<Pixels, Sampler>{source, stretch, row + start}, count);
        }
    }
}

template <class Pixels, class Kind, class Pixel>
void AverageBoxes(const PositionSource<Pixel>& source, const BoxList& boxes, Pixel* row, std::size_t length) {
    DoRow<Pixels>(AveragedRow<Pixels, Kind, Pixel>{source, boxes, row}, length);
}

/// Which of the pixels of a lane have a bit set.
template <class Pixel, class Pixels> class PixelsWithBits {
public:
    explicit PixelsWithBits(Pixels found) { found.Store(reinterpret_cast<Pixel*>(bytes_)); }

    /// The index of the first of count pixels, or count.
    std::size_t First(std::size_t count) const {
        std::size_t index = 0;
        while (index < count && !Has(index)) {
            ++index;
        }
        return index;
    }

    /// The index of the last of count pixels, or count.
    std::size_t Last(std::size_t count) const {
        for (std::size_t index = count; index > 0; --index) {
            if (Has(index - 1)) {
                return index - 1;
            }
        }
        return count;
    }

private:
    bool Has(std::size_t index) const { return reinterpret_cast<const Pixel*>(bytes_)[index].value != 0; }

    alignas(Pixel) std::uint8_t bytes_[Pixels::kCount * sizeof(Pixel)];
};

template <class Pixel, class Pixels> std::size_t FirstWithBits(Pixels found, std::size_t count) {
    return PixelsWithBits<Pixel, Pixels>(found).First(count);
}

template <class Pixel, class Pixels> std::size_t LastWithBits(Pixels found, std::size_t count) {
    return PixelsWithBits<Pixel, Pixels>(found).Last(count);
}

/// True when the predicate seeks any pixel of four lanes.
template <class Pixels, class Predicate, class Pixel> bool FourHaveBits(const Pixel* row, const Predicate& isSought) {
    const auto lane = [&](std::size_t n) { return isSought(Pixels::Load(row + n * Pixels::kCount)); };
    return ((lane(0) | lane(1)) | (lane(2) | lane(3))).HasBits();
}

template <class Pixels, class Predicate, class Pixel>
std::size_t FindFirst(const Pixel* row, std::size_t length, const Predicate& predicate) {
    using Narrower = typename Pixels::Narrower;
    const Predicate isSought = predicate;
    const std::size_t rest = length % Pixels::kCount;
    const std::size_t end = length - rest;
    std::size_t column = 0;
    while (column + 4 * Pixels::kCount <= end && !FourHaveBits<Pixels>(row + column, isSought)) {
        column += 4 * Pixels::kCount;
    }
    for (; column < end; column += Pixels::kCount) {
        const Pixels found = isSought(Pixels::Load(row + column));
        if (found.HasBits()) {
            return column + FirstWithBits<Pixel>(found, Pixels::kCount);
        }
    }
    if (rest == 0) {
        return length;
    }
    if constexpr (std::is_void_v<Narrower>) {
        return end + FirstWithBits<Pixel>(isSought(Pixels::LoadFirst(row + end, rest)), rest);
    } else {
        return end + FindFirst<Narrower>(row + end, rest, isSought);
    }
}

/// True when the predicate seeks any pixel of a row; its last lane may overlap the one before it.
template <class Pixels, class Predicate, class Pixel>
TN_ALWAYS_INLINE bool HasAny(const Pixel* row, std::size_t length, const Predicate& isSought) {
    if (length < Pixels::kCount) {
        return FindFirst<Pixels>(row, length, isSought) < length;
    }
    for (std::size_t column = 0; column + Pixels::kCount < length; column += Pixels::kCount) {
        if (isSought(Pixels::Load(row + column)).HasBits()) {
            return true;
        }
    }
    return isSought(Pixels::Load(row + length - Pixels::kCount)).HasBits();
}

template <class Pixels, class Predicate, class Pixel>
std::size_t FindRow(const Pixel* first, std::size_t rowBytes, std::size_t rows, std::size_t length,
                    const Predicate& predicate) {
    if constexpr (!std::is_void_v<typename Pixels::Narrower>) {
        if (length < Pixels::kCount) {
            return FindRow<typename Pixels::Narrower>(first, rowBytes, rows, length, predicate);
        }
    }
    constexpr std::size_t kRowsAhead = 16; // rows are too far apart for the processor to see them coming
    const Predicate isSought = predicate;
    const auto start = reinterpret_cast<std::uintptr_t>(first);
    std::size_t row = 0;
    for (; row < rows; ++row) {
        PrefetchRead(start + (row + kRowsAhead) * rowBytes);
        if (HasAny<Pixels>(reinterpret_cast<const Pixel*>(start + row * rowBytes), length, isSought)) {
            break;
        }
    }
    return row;
}

template <class Pixels, class Predicate, class Pixel>
std::size_t FindLast(const Pixel* row, std::size_t length, const Predicate& predicate) {
    using Narrower = typename Pixels::Narrower;
    const Predicate isSought = predicate;
    const std::size_t rest = length % Pixels::kCount;
    const std::size_t end = length - rest;
    if (rest > 0) {
        std::size_t last = rest;
        if constexpr (std::is_void_v<Narrower>) {
            last = LastWithBits<Pixel>(isSought(Pixels::LoadFirst(row + end, rest)), rest);
        } else {
            last = FindLast<Narrower>(row + end, rest, isSought);
        }
        if (last < rest) {
            return end + last;
        }
    }
    for (std::size_t column = end; column > 0; column -= Pixels::kCount) {
        const std::size_t start = column - Pixels::kCount;
        const Pixels found = isSought(Pixels::Load(row + start));
        if (found.HasBits()) {
            return start + LastWithBits<Pixel>(found, Pixels::kCount);
        }
    }
    return length;
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

template <class Pixels, class Predicate, class Pixel> struct KernelsOver<Pixels, Searching<Predicate, Pixel>> {
    using Lanes = typename LanesFor<Pixels, Pixel, Pixel>::Type;

    static constexpr Searching<Predicate, Pixel> kKernels = {
        &FindFirst<Lanes, Predicate, Pixel>, &FindLast<Lanes, Predicate, Pixel>, &FindRow<Lanes, Predicate, Pixel>};
};

/// Lanes for columns of mattes: 32 of them, as many as are filtered at once, fill a register of AVX2.
template <class Pixels, class Narrower = typename Pixels::Narrower> struct LanesForColumns {
    using Type = typename Narrower::Mattes;
};
template <class Pixels> struct LanesForColumns<Pixels, void> { using Type = typename Pixels::Mattes; };

template <class Pixels> struct KernelsOver<Pixels, Turning> {
    using Lanes = typename LanesForColumns<Pixels>::Type;

    static constexpr Turning kKernels = {&TurnIntoColumns<Lanes>, &TurnIntoRows<Lanes>};
};

template <class Pixels, class Filter> struct KernelsOver<Pixels, FilteringColumns<Filter>> {
    using Lanes = typename LanesForColumns<Pixels>::Type;

    static constexpr FilteringColumns<Filter> kKernels = {&FilterColumns<Lanes, Filter>};
};

template <class Pixels> struct KernelsOver<Pixels, CoveringCells> {
    static constexpr CoveringCells kKernels = {&CoverCells<typename LanesForColumns<Pixels>::Type>};
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
