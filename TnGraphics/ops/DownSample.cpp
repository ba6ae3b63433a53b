#include "TnGraphics/ops/DownSample.h"

#include "TnGraphics/port/CalcIterBnds.h"
#include "TnGraphics/port/ClientLock.h"
#include "TnGraphics/rows/RowKernels.h"
#include "TnGraphics/rows/RowWalk.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace {

constexpr std::int32_t kCellSide = 4;

// Cells with fewer than four pixels set count as empty.
constexpr std::array<std::uint8_t, 17> kCoverage = {0,   0,   0,   0,   64,  78,  96,  112, 128,
                                                    143, 159, 175, 191, 207, 223, 239, 255};

// Cells are counted in words of eight mask bytes, two cells in each byte. The left one has the upper four bits.
constexpr std::size_t kBytesAtOnce = sizeof(std::uint64_t);
constexpr std::size_t kCellsAtOnce = 2 * kBytesAtOnce;

constexpr std::uint64_t InEachByte(std::uint64_t byte) { return byte * 0x0101010101010101; }

// The number of set bits in each four bits.
std::uint64_t BitsInNibbles(std::uint64_t bits) {
    const std::uint64_t pairs = bits - ((bits >> 1) & InEachByte(0x55));
    return (pairs & InEachByte(0x33)) + ((pairs >> 2) & InEachByte(0x33));
}

// The coverage of up to kCellsAtOnce cells, from the first one in the mask byte on.
void CoverCells(const std::uint8_t* mask, std::uint32_t rowBytes, std::size_t bytes, TnMattePixel* coverage) {
    std::uint64_t left = 0;
    std::uint64_t right = 0;
    for (std::int32_t row = 0; row < kCellSide; ++row) {
        std::uint64_t bits = 0;
        std::memcpy(&bits, mask + static_cast<std::size_t>(row) * rowBytes, bytes);
        const std::uint64_t counts = BitsInNibbles(bits);
        left += (counts >> 4) & InEachByte(0x0F);
        right += counts & InEachByte(0x0F);
    }
    for (std::size_t byte = 0; byte < bytes; ++byte) {
        coverage[2 * byte] = kCoverage[left >> (8 * byte) & 0xFF];
        coverage[2 * byte + 1] = kCoverage[right >> (8 * byte) & 0xFF];
    }
}

/// Calls store with stretches of coverage for a row: where they begin in it, their values and how many there are.
template <class Store>
void CoverRow(const TnMask& mask, std::int32_t firstCell, std::int32_t cellRow, std::size_t length,
              const Store& store) {
    const std::uint8_t* const row =
        mask.PixelAddress() + static_cast<std::size_t>(cellRow) * kCellSide * mask.RowBytes();
    std::size_t skipped = static_cast<std::size_t>(firstCell) % 2;
    std::size_t byte = static_cast<std::size_t>(firstCell) / 2;
    for (std::size_t done = 0; done < length; skipped = 0) {
        const std::size_t cells = std::min(length - done + skipped, kCellsAtOnce);
        const std::size_t bytes = (cells + 1) / 2;
        std::array<TnMattePixel, kCellsAtOnce> coverage;
        CoverCells(row + byte, mask.RowBytes(), bytes, coverage.data());
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
