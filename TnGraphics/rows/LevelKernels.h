// Private: the kernels, and the table of them at one level. Included by the level sources alone.
#pragma once

#include "TnGraphics/rows/CellCoverage.h"
#include "TnGraphics/rows/RowKernels.h"
#include "TnGraphics/rows/RowLoop.h"
#include "TnGraphics/rows/RowSearch.h"
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
