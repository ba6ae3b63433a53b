#include "TnGraphics/ops/SubPixelRows.h"

#include "TnGraphics/ops/InStep.h"

#include <algorithm>

namespace tn {
namespace {

// What lies above an image.
constexpr std::array<TnImagePixel, kChunkPixels + 1> kTransparentRow = {};

// The weight of the pixel itself against its left or upper neighbour: what the fraction leaves, in 8 bits.
std::uint32_t WeightAt(TnFixed at) {
    const std::uint32_t fraction = static_cast<std::uint32_t>(at.raw) & 0xFFFFU;
    return (65536U - fraction) >> 8;
}

const TnImagePixel* RowAbove(const TnImagePixel* row, std::uint32_t rowBytes) {
    return reinterpret_cast<const TnImagePixel*>(reinterpret_cast<std::uintptr_t>(row) - rowBytes);
}

} // namespace

SubPixelRows::SubPixelRows(const TnImage& image, const TnFixedPoint& at)
    : sample_(ActiveKernels<Sampling>().kernel), weights_{WeightAt(at.x), WeightAt(at.y)}, rowBytes_(image.RowBytes()) {
}

void SubPixelRows::CompositeRow(const TnImage::Iterator& row, TnImagePixel* destination, std::size_t length,
                                const PreparedKernel<TnImagePixel, TnImagePixel>& kernel) {
    const TnRect bounds = row.Bounds();
    const bool hasUpper = bounds.top + rowsDone_ > 0;
    const Neighborhood rows = {hasUpper ? RowAbove(&*row, rowBytes_) : nullptr, &*row, bounds.left > 0};
    const std::size_t step = SharesMemory(rows, destination, length) ? 1 : kChunkPixels;
    std::size_t column = 0;
    if (!rows.hasLeft) {
        SampleAtLeftEdge(rows);
        kernel.Composite(chunk_.data(), destination, 1);
        ++column;
    }
    for (; column < length; column += step) {
        const std::size_t count = std::min(length - column, step);
        Sample(rows, column, count);
        kernel.Composite(chunk_.data(), destination + column, count);
    }
    ++rowsDone_;
}

bool SubPixelRows::SharesMemory(const Neighborhood& rows, const TnImagePixel* destination, std::size_t length) const {
    const std::size_t left = rows.hasLeft ? 1 : 0;
    const RowSpan written(destination, length);
    return written.Overlaps(RowSpan(rows.lower - left, length + left)) ||
           (rows.upper != nullptr && written.Overlaps(RowSpan(rows.upper - left, length + left)));
}

void SubPixelRows::SampleAtLeftEdge(const Neighborhood& rows) {
    const TnImagePixel upper[] = {0, rows.upper != nullptr ? *rows.upper : TnImagePixel(0)};
    const TnImagePixel lower[] = {0, *rows.lower};
    sample_(upper, lower, chunk_.data(), 1, weights_);
}

void SubPixelRows::Sample(const Neighborhood& rows, std::size_t column, std::size_t count) {
    const TnImagePixel* upper = rows.upper != nullptr ? rows.upper + column - 1 : kTransparentRow.data();
    sample_(upper, rows.lower + column - 1, chunk_.data(), count, weights_);
}

} // namespace tn
