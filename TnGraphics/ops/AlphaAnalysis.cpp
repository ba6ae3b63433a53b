#include "TnGraphics/ops/AlphaAnalysis.h"

#include "TnGraphics/port/CalcIterBnds.h"
#include "TnGraphics/port/ClientLock.h"
#include "TnGraphics/port/PixelGrid.h"
#include "TnGraphics/rows/RowKernels.h"
#include "TnGraphics/rows/RowWalk.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <functional>

namespace {

constexpr tn::DiffersFrom kVisible = {0, tn::kAlphaBits};

/// True when the row has a pixel that is sought.
template <class Pixel, class Predicate> bool RowHas(const Pixel* row, std::size_t length, const Predicate& predicate) {
    return tn::ActiveKernels<tn::Searching<Predicate, Pixel>>().first(row, length, predicate) < length;
}

bool IsHit(TnImagePixel pixel) { return pixel.Alpha() != 0; }
bool IsHit(TnMattePixel pixel) { return pixel.Value() != 0; }

// The positions from first to last, both included.
struct Positions {
    std::int64_t first;
    std::int64_t last;

    Positions Within(std::int32_t size) const {
        return {std::max(first, std::int64_t{0}), std::min(last, std::int64_t{size} - 1)};
    }
    bool IsWithin(std::int32_t size) const { return 0 <= first && last < size; }
};

/// True when one of the positions in a row is a hit.
template <class Pixel>
bool RowHasHit(const tn::PixelGrid<Pixel>& grid, const Positions& columns, std::int64_t y, bool outsideIsHit) {
    std::int64_t end = columns.last + 1;
    while (columns.first < end && !grid.Has(end - 1, y)) {
        --end;
    }
    if (outsideIsHit && end <= columns.last) {
        return true;
    }
    return columns.first < end &&
           RowHas(grid.At(columns.first, y), static_cast<std::size_t>(end - columns.first), kVisible);
}

// Luma in percent: the BT.601 weights of color/Luma.h times 100, in 65536ths.
std::uint32_t BrightnessOf(TnImagePixel pixel) {
    return (pixel.Red() * 7684U + pixel.Green() * 15086U + pixel.Blue() * 2930U) >> 16;
}

constexpr std::size_t kBrightnessLevels = 101;
using Histogram = std::array<std::int64_t, kBrightnessLevels>;

Histogram BrightnessesIn(const TnImage& image, const TnRect& rect) {
    // Neighbours are often alike, and a counter that was just stored is slow to load: they take turns.
    std::array<Histogram, 4> counts = {};
    tn::ForEachRow(image, rect, [&counts](const TnImage::Iterator& row, std::size_t length) {
        const TnImagePixel* const pixels = &*row;
        for (std::size_t i = 0; i < length; ++i) {
            ++counts[i % counts.size()][BrightnessOf(pixels[i])];
        }
    });
    Histogram sums = {};
    for (const Histogram& count : counts) {
        std::transform(sums.begin(), sums.end(), count.begin(), sums.begin(), std::plus<>());
    }
    return sums;
}

} // namespace

bool TestForAlpha(const TnImage& image) {
    return tn::AnyRow(image, image.Bounds(),
                      [](const TnImage::Iterator& row, std::size_t length) { return RowHas(&*row, length, kVisible); });
}

template <class SurfaceType> bool TestForHit(const SurfaceType& surface, const TnPoint& point, int radius) {
    if (IsHit(surface.Get(point.x, point.y))) {
        return true;
    }
    if (radius < 1) {
        return false;
    }
    const TnPoint size = surface.StorageSize();
    const Positions columns = {std::int64_t{point.x} - radius, std::int64_t{point.x} + radius};
    const Positions rows = {std::int64_t{point.y} - radius, std::int64_t{point.y} + radius};
    const bool outsideIsHit = IsHit(surface.OutsidePixel());
    if (outsideIsHit && !(columns.IsWithin(size.x) && rows.IsWithin(size.y))) {
        return true;
    }
    const auto [left, right] = columns.Within(size.x);
    const auto [top, bottom] = rows.Within(size.y);
    if (right < left || bottom < top) {
        return false;
    }
    const tn::ClientLock<SurfaceType> lock(surface);
    const auto grid = tn::ReadAccess::GridOf(surface);
    for (std::int64_t y = top; y <= bottom; ++y) {
        if (RowHasHit(grid, {left, right}, y, outsideIsHit)) {
            return true;
        }
    }
    return false;
}

template TN_EXPORT bool TestForHit(const TnImage& surface, const TnPoint& point, int radius);
template TN_EXPORT bool TestForHit(const TnMatte& surface, const TnPoint& point, int radius);

int GetRepresentativeBrightness(const TnImage& image) {
    const TnPoint size = image.Size();
    const Histogram counts = BrightnessesIn(image, {1, 1, size.x - 2, size.y - 2});
    std::int64_t needed = 2 * (std::int64_t{size.x} - 2 + size.y - 2);
    std::size_t level = kBrightnessLevels - 1;
    while (level > 0 && counts[level] < needed) {
        needed -= counts[level];
        --level;
    }
    return static_cast<int>(level);
}

void InspectImage(const TnImage& image, const TnRect& rect, bool& hasColor, bool& hasAlpha) {
    hasColor = false;
    hasAlpha = false;
    bool isFirstRow = true;
    tn::DiffersFrom otherAlpha = {0, tn::kAlphaBits};
    tn::AnyRow(image, rect, [&](const TnImage::Iterator& row, std::size_t length) {
        if (isFirstRow) {
            isFirstRow = false;
            otherAlpha.word = row->value;
        }
        hasAlpha = hasAlpha || RowHas(&*row, length, otherAlpha);
        hasColor = hasColor || RowHas(&*row, length, tn::ShowsMoreThanGrey());
        return hasColor && hasAlpha;
    });
}

template <class SurfaceType> bool TnIsEqual(const SurfaceType& a, SurfaceType& b, const TnPoint& at) {
    using Pixel = typename SurfaceType::Pixel;
    TnRect inA;
    TnRect inB;
    if (!CalcIterBnds(a.Size(), b.Size(), at, b.Bounds(), &inA, &inB)) {
        return true;
    }
    return !tn::AnyRowPair(a, inA, b, inB, [](const auto& rowOfA, const auto& rowOfB, std::size_t length) {
        return std::memcmp(&*rowOfA, &*rowOfB, length * sizeof(Pixel)) != 0;
    });
}

template TN_EXPORT bool TnIsEqual(const TnImage& a, TnImage& b, const TnPoint& at);
template TN_EXPORT bool TnIsEqual(const TnMatte& a, TnMatte& b, const TnPoint& at);
