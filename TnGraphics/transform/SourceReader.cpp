#include "TnGraphics/transform/SourceReader.h"

#include "TnGraphics/port/ImageSampling.h"
#include "TnGraphics/port/MatteSampling.h"
#include "TnGraphics/rows/RowKernels.h"

#include <type_traits>

namespace tn {
namespace {

template <class Pixel>
void FetchOneByOne(const PixelGrid<Pixel>& grid, const Positions& positions, Pixel outside, Pixel* row,
                   std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
        const std::int32_t x = positions.x[i];
        const std::int32_t y = positions.y[i];
        row[i] = grid.Has(x, y) ? *grid.At(x, y) : outside;
    }
}

} // namespace

template <class Source>
SourceReader<Source>::SourceReader(const Source& source) : lock_(source), grid_(ReadAccess::GridOf(source)) {}

template <> void SourceReader<TnImage>::Fetch(const Positions& positions, TnImagePixel* row, std::size_t count) const {
    if (SuitsKernels()) {
        ActiveKernels<Fetching>().kernel({grid_, Outside()}, {positions.x.data(), positions.y.data()}, row, count);
    } else {
        FetchOneByOne(grid_, positions, Outside(), row, count);
    }
}

template <> void SourceReader<TnMatte>::Fetch(const Positions& positions, TnMattePixel* row, std::size_t count) const {
    FetchOneByOne(grid_, positions, Outside(), row, count);
}

template <>
void SourceReader<TnImage>::Interpolate(const Positions& positions, TnImagePixel* row, std::size_t count) const {
    const bool disregardsAlpha = ReadAccess::DisregardsAlpha(Surface());
    if (SuitsKernels()) {
        ActiveKernels<Interpolating>().kernel({grid_, Outside(), disregardsAlpha},
                                              {positions.x.data(), positions.y.data()}, row, count);
        return;
    }
    for (std::size_t i = 0; i < count; ++i) {
        row[i] = BilinearMean(grid_, SplitPosition(TnFixed{positions.x[i]}), SplitPosition(TnFixed{positions.y[i]}),
                              Outside(), disregardsAlpha);
    }
}

template <>
void SourceReader<TnMatte>::Interpolate(const Positions& positions, TnMattePixel* row, std::size_t count) const {
    for (std::size_t i = 0; i < count; ++i) {
        const MattePosition at = {SplitPosition(TnFixed{positions.x[i]}), SplitPosition(TnFixed{positions.y[i]})};
        row[i] = HasNeighbors(grid_.size, at) ? BilinearMean(grid_, at, Outside()) : Outside();
    }
}

template <> TnMattePixel SourceReader<TnMatte>::Interpolated(float x, float y) const {
    const auto at = PositionOf(x, y);
    return at && HasNeighbors(grid_.size, *at) ? BilinearMean(grid_, *at, Outside()) : Outside();
}

template <class Source> void SourceReader<Source>::Average(const BoxList& boxes, Pixel* row, std::size_t count) const {
    ActiveKernels<Averaging<Pixel>>().kernel({grid_, Outside()}, boxes, row, count);
}

template <class Source> typename Source::Pixel SourceReader<Source>::Mean(const TnFloatRect& rect) const {
    if (!IsArea(rect)) {
        return Outside();
    }
    const AreaSpan columns(rect.left, rect.width);
    const AreaSpan rows(rect.top, rect.height);
    if (!HasArea(grid_, columns, rows)) {
        return Outside();
    }
    if constexpr (std::is_same_v<Source, TnImage>) {
        if (columns.Count() * rows.Count() > kMostPixelsInArea) {
            return AreaMean(grid_, rect, Outside());
        }
    }
    return AreaMean(grid_, columns, rows);
}

template class SourceReader<TnImage>;
template class SourceReader<TnMatte>;

} // namespace tn
