#include "TnGraphics/ops/DownSample.h"

#include "TnGraphics/port/CalcIterBnds.h"
#include "TnGraphics/port/ClientLock.h"
#include "TnGraphics/rows/CellCoverage.h"
#include "TnGraphics/rows/RowKernels.h"
#include "TnGraphics/rows/RowWalk.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

namespace {

constexpr std::int32_t kCellSide = tn::kRowsOfCell;

/// Calls store with stretches of coverage for a row: where they begin in it, their values and how many there are.
///
/// Bytes of the mask have two cells, so the first cell of a stretch may be one that is not asked for.
template <class Store>
void CoverRow(const TnMask& mask, std::int32_t firstCell, std::int32_t cellRow, std::size_t length,
              const Store& store) {
    constexpr std::size_t kCellsAtOnce = 512;
    const auto cover = tn::ActiveKernels<tn::CoveringCells>().kernel;
    const std::uint8_t* const row =
        mask.PixelAddress() + static_cast<std::size_t>(cellRow) * kCellSide * mask.RowBytes();
    std::size_t skipped = static_cast<std::size_t>(firstCell) % 2;
    std::size_t byte = static_cast<std::size_t>(firstCell) / 2;
    for (std::size_t done = 0; done < length; skipped = 0) {
        const std::size_t cells = std::min(length - done + skipped, kCellsAtOnce);
        const std::size_t bytes = (cells + 1) / 2;
        std::array<TnMattePixel, kCellsAtOnce> coverage;
        cover(row + byte, mask.RowBytes(), coverage.data(), bytes);
        store(done, coverage.data() + skipped, cells - skipped);
        done += cells - skipped;
        byte += bytes;
    }
}

/// Calls cover with the first pixel of each row of the destination that the mask covers, the cell that falls there and
/// the number of pixels.
template <class Destination, class Cover>
void ForEachCoveredRow(const TnMask& mask, Destination& destination, const TnPoint& at, const Cover& cover) {
    const TnPoint cells = {mask.Size().x / kCellSide, mask.Size().y / kCellSide};
    TnRect source;
    TnRect covered;
    if (!CalcIterBnds(cells, destination.Size(), at, destination.Bounds(), &source, &covered)) {
        return;
    }
    const tn::ClientLock<TnMask> lock(mask);
    std::int32_t cellRow = source.top;
    tn::ForEachRow(destination, covered,
                   [&](const auto& row, std::size_t length) { cover(&*row, source.left, cellRow++, length); });
}

} // namespace

void DownSample(const TnMask& mask, TnMatte& destination, const TnPoint& at) {
    ForEachCoveredRow(mask, destination, at,
                      [&mask](TnMattePixel* row, std::int32_t firstCell, std::int32_t cellRow, std::size_t length) {
                          CoverRow(mask, firstCell, cellRow, length,
                                   [row](std::size_t column, const TnMattePixel* coverage, std::size_t count) {
                                       std::copy_n(coverage, count, row + column);
                                   });
                      });
}

void DownSample(const TnMask& mask, TnImage& destination, const TnColor& color, const TnPoint& at) {
    const auto fill = tn::ActiveKernel<tn::StorePixel>();
    const auto setAlphas = tn::ActiveKernels<tn::Copying<tn::CopyAlpha, TnMattePixel, TnImagePixel>>().kernel;
    const tn::StorePixel pixel = {TnImagePixel(color)};
    ForEachCoveredRow(mask, destination, at,
                      [&](TnImagePixel* row, std::int32_t firstCell, std::int32_t cellRow, std::size_t length) {
                          fill(row, length, pixel);
                          CoverRow(mask, firstCell, cellRow, length,
                                   [&](std::size_t column, const TnMattePixel* coverage, std::size_t count) {
                                       setAlphas(coverage, row + column, count, {});
                                   });
                      });
}
