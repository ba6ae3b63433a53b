// Private: the row kernels of each processor level and the table that chooses among them.
#pragma once

#include "TnGraphics/port/TnImagePixel.h"
#include "TnGraphics/port/TnMattePixel.h"
#include "TnGraphics/rows/BoxField.h"
#include "TnGraphics/rows/BoxMeans.h"
#include "TnGraphics/rows/ColumnFilters.h"
#include "TnGraphics/rows/CompositingOperators.h"
#include "TnGraphics/rows/CopyOperators.h"
#include "TnGraphics/rows/FillOperators.h"
#include "TnGraphics/rows/PositionSamplers.h"
#include "TnGraphics/rows/Preparation.h"
#include "TnGraphics/rows/ProcessorLevel.h"
#include "TnGraphics/rows/ProjectedPositions.h"
#include "TnGraphics/rows/SearchPredicates.h"
#include "TnGraphics/rows/SubPixelSampler.h"

#include <array>
#include <cstddef>

namespace tn {

/// Runs a fill's operator on each pixel of a row.
template <class Operator> using RowKernel = void (*)(TnImagePixel* row, std::size_t length, const Operator& op);

/// Prepares each pixel of a source row and combines it with the pixel of the destination row.
template <class Source, class Destination>
using CompositingKernel = void (*)(const Source* source, Destination* destination, std::size_t length,
                                   const Preparation& preparation);

/// Writes to a row what lies amid the pixels of two source rows: amid pixels i and i + 1 of both for pixel i.
using SamplingKernel = void (*)(const TnImagePixel* upper, const TnImagePixel* lower, TnImagePixel* row,
                                std::size_t length, const SubPixelWeights& weights);

/// Writes to a row what an image has at positions.
using PositionKernel = void (*)(const ImageSource& source, const PositionList& positions, TnImagePixel* row,
                                std::size_t length);

/// Writes to a row the means of boxes of a surface.
template <class Pixel>
using BoxKernel = void (*)(const PositionSource<Pixel>& source, const BoxList& boxes, Pixel* row, std::size_t length);

/// Writes the coordinates of pixels for homogeneous positions.
using ProjectionKernel = void (*)(const HomogeneousList& positions, std::int32_t* x, std::int32_t* y,
                                  std::size_t length);

/// The kernel of a fill's operator.
template <class Operator> struct Filling { RowKernel<Operator> kernel; };

/// The kernels of an operator for pixels of two kinds, one for each choice of preparation.
template <class Operator, class Source = TnImagePixel, class Destination = TnImagePixel> struct Compositing {
    std::array<CompositingKernel<Source, Destination>, kPreparationSteps> kernels;
};

/// The kernel of an operator whose source is never prepared.
template <class Operator, class Source = TnImagePixel, class Destination = TnImagePixel> struct Copying {
    CompositingKernel<Source, Destination> kernel;
};

struct Sampling {
    SamplingKernel kernel;
};

/// The pixels at whole positions, and what lies between pixels at positions in 16.16.
struct Fetching {
    PositionKernel kernel;
};
struct Interpolating {
    PositionKernel kernel;
};

/// Places the boxes of a row of a field, from a column on.
using PlacingKernel = void (*)(const BoxField& field, std::int32_t row, std::int32_t column, PlacedBoxes& boxes,
                               std::size_t length);

struct PlacingBoxes {
    PlacingKernel kernel;
};
template <class Pixel> struct Averaging { BoxKernel<Pixel> kernel; };

/// From positions to coordinates by RoundedQuotient or TruncatedQuotient.
template <class Quotient> struct Projecting { ProjectionKernel kernel; };

/// Finds a pixel of a row: its index, or the row's length when there is none.
template <class Predicate, class Pixel>
using SearchKernel = std::size_t (*)(const Pixel* row, std::size_t length, const Predicate& isSought);

/// Finds the first of some rows of a length that has such a pixel: its index, or the number of rows.
template <class Predicate, class Pixel>
using RowSearchKernel = std::size_t (*)(const Pixel* first, std::size_t rowBytes, std::size_t rows, std::size_t length,
                                        const Predicate& isSought);

/// Searches for what a predicate seeks.
template <class Predicate, class Pixel> struct Searching {
    SearchKernel<Predicate, Pixel> first;
    SearchKernel<Predicate, Pixel> last;
    RowSearchKernel<Predicate, Pixel> row;
};

/// Turns rows into columns or columns into rows: value j of row i becomes value i of row j.
///
/// \param rows   how many rows there are on the side of rows
/// \param length how many values each of them has
using TurningKernel = void (*)(const MatteRows& from, const MatteRows& to, std::size_t rows, std::size_t length);

struct Turning {
    TurningKernel intoColumns;
    TurningKernel intoRows;
};

using ColumnKernel = void (*)(const ColumnsToFilter& work);

/// The kernel of a filter along columns.
template <class Filter> struct FilteringColumns { ColumnKernel kernel; };

/// Writes the coverage of the cells in bytes of a mask, two for each byte, by the four rows of bytes from there on.
using CellKernel = void (*)(const std::uint8_t* mask, std::size_t rowBytes, TnMattePixel* coverage, std::size_t bytes);

struct CoveringCells {
    CellKernel kernel;
};

/// The kernels at one level.
template <class... Kernels> struct KernelTable : Kernels... {};

/// Every operator on rows is in this list.
using RowKernels = KernelTable<
    // Fills
    Filling<StorePixel>, Filling<SetAlpha>, Filling<ScaleAlpha>, Filling<BlendBehind>, Filling<BlendBehindVisible>,
    Filling<BlendBehindAndSetAlpha>, Filling<CrossLines>, Filling<OpaqueUnlessColor>,
    // Compositing
    Compositing<Blend>, Compositing<PreBlend>, Compositing<Intersect>, Compositing<Subtract>, Compositing<ExclusiveOr>,
    Compositing<IntersectNoColor>, Compositing<IntersectNoColor, TnMattePixel, TnImagePixel>,
    Compositing<IntersectNoColor, TnMattePixel, TnMattePixel>, Sampling,
    // Copies
    Compositing<CopyPixel>, Copying<CopyPixel>, Copying<CopyPixel, TnMattePixel, TnMattePixel>, Copying<CopyColor>,
    Copying<CopyAlpha, TnImagePixel, TnMattePixel>, Copying<CopyAlpha, TnMattePixel, TnImagePixel>,
    Copying<CopyLumaToAlpha>, Copying<CopyLumaToAlpha, TnImagePixel, TnMattePixel>,
    Copying<CopyAlphaToColor, TnMattePixel, TnImagePixel>,
    // Searches
    Searching<DiffersFrom, TnImagePixel>, Searching<DiffersFrom, TnMattePixel>,
    Searching<ShowsMoreThanGrey, TnImagePixel>,
    // Filters
    Turning, FilteringColumns<TriangleMeans<false>>, FilteringColumns<TriangleMeans<true>>,
    FilteringColumns<WindowExtremes<Maximum>>, FilteringColumns<WindowExtremes<Minimum>>,
    // Textures and down-sampling
    CoveringCells, Copying<CopyColorClearAlpha>, Copying<PaintThroughAlpha>,
    // Transforms
    Projecting<RoundedQuotient>, Projecting<TruncatedQuotient>, Fetching, Interpolating, PlacingBoxes,
    Averaging<TnImagePixel>, Averaging<TnMattePixel>>;

namespace portable {
extern const RowKernels kRowKernels;
}
namespace baseline {
extern const RowKernels kRowKernels;
}
namespace avx2 {
extern const RowKernels kRowKernels;
}
namespace avx512 {
extern const RowKernels kRowKernels;
}

/// The kernels in use. While the library loads they become those of the processor's best level; nothing else changes
/// them but ForceLevel.
const RowKernels& ActiveRowKernels();

/// The level of the kernels in use.
ProcessorLevel ActiveLevel();

/// For tests and measurements: uses the kernels of a supported level from now on.
void ForceLevel(ProcessorLevel level);

/// The kernels in use, by what they are for: ActiveKernels<Compositing<Blend>>().kernels.
template <class Kernels> const Kernels& ActiveKernels() { return ActiveRowKernels(); }

/// The kernel in use for a fill's operator.
template <class Operator> RowKernel<Operator> ActiveKernel() { return ActiveKernels<Filling<Operator>>().kernel; }

} // namespace tn
