#include "TnGraphics/port/ImageSampling.h"

#include "TnGraphics/port/AreaMean.h"
#include "TnGraphics/port/Assertion.h"
#include "TnGraphics/port/Bilinear.h"
#include "TnGraphics/port/TnImage.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace tn {
namespace {

constexpr std::size_t kChannels = 4;
constexpr std::size_t kAlpha = 3;

std::uint32_t Channel(TnImagePixel pixel, std::size_t channel) { return pixel.value >> (8 * channel) & 255U; }

constinit AssertionSite areaLeavesImage = {"HasArea", "TnImage::Get(TnFloatRect)", "port/ImageSampling", __LINE__};
constinit AssertionSite blockLeavesImage = {"HasBlock", "TnImage::Get(kernels)", "port/ImageSampling", __LINE__};

using ChannelSums = std::array<std::uint32_t, kChannels>;

TnImagePixel PixelOf(const ChannelSums& channels) {
    std::uint32_t word = 0;
    for (std::size_t i = 0; i < kChannels; ++i) {
        word |= (channels[i] & 255U) << (8 * i);
    }
    return word;
}

void AddWeighted(ChannelSums& sums, TnImagePixel pixel, std::uint32_t weight) {
    for (std::size_t i = 0; i < kChannels; ++i) {
        sums[i] += Channel(pixel, i) * weight;
    }
}

// Transparent pixels take no part in the colour unless alpha is disregarded. Where nothing visible has a weight, all
// channels are 0.
TnImagePixel WeightedMean(const std::array<TnImagePixel, 4>& pixels, const BilinearWeights& weights,
                          bool disregardsAlpha) {
    const std::array<std::uint32_t, 4> weightOf = {weights.upperLeft, weights.upperRight, weights.lowerLeft,
                                                   weights.lowerRight};
    ChannelSums sums = {};
    std::uint32_t visibleWeight = 0;
    for (std::size_t i = 0; i < pixels.size(); ++i) {
        if (disregardsAlpha || pixels[i].Alpha() != 0) {
            AddWeighted(sums, pixels[i], weightOf[i]);
            visibleWeight += weightOf[i];
        }
    }
    if (visibleWeight == 0) {
        return 0;
    }
    for (std::size_t i = 0; i < kAlpha; ++i) {
        sums[i] /= visibleWeight;
    }
    sums[kAlpha] >>= 16;
    return PixelOf(sums);
}

bool HasBlock(const PixelGrid<TnImagePixel>& grid, std::int64_t x, std::int64_t y, unsigned long nx, unsigned long ny) {
    return nx == 0 || ny == 0 ||
           (grid.Has(x, y) && grid.Has(x + static_cast<std::int64_t>(nx) - 1, y + static_cast<std::int64_t>(ny) - 1));
}

// Halves of an area that is too large for sums of 32 bits.
TnImagePixel MeanOfHalves(const PixelGrid<TnImagePixel>& grid, const TnFloatRect& first, const TnFloatRect& second,
                          TnImagePixel outside) {
    const TnImagePixel a = AreaMean(grid, first, outside);
    const TnImagePixel b = AreaMean(grid, second, outside);
    ChannelSums sums;
    for (std::size_t i = 0; i < kChannels; ++i) {
        sums[i] = (Channel(a, i) + Channel(b, i)) >> 1;
    }
    return PixelOf(sums);
}

TnImagePixel MeanOfLargeArea(const PixelGrid<TnImagePixel>& grid, const TnFloatRect& rect, bool acrossWidth,
                             TnImagePixel outside) {
    if (acrossWidth) {
        const double half = rect.width / 2;
        return MeanOfHalves(grid, {rect.left, rect.top, half, rect.height},
                            {rect.left + half, rect.top, half, rect.height}, outside);
    }
    const double half = rect.height / 2;
    return MeanOfHalves(grid, {rect.left, rect.top, rect.width, half}, {rect.left, rect.top + half, rect.width, half},
                        outside);
}

} // namespace

TnImagePixel BilinearMean(const PixelGrid<TnImagePixel>& grid, const SplitPosition& column, const SplitPosition& row,
                          TnImagePixel outside, bool disregardsAlpha) {
    const std::int32_t right = std::min(column.whole + 1, grid.size.x - 1);
    const std::int32_t below = std::min(row.whole + 1, grid.size.y - 1);
    if (!grid.Has(column.whole, row.whole) || !grid.Has(right, below)) {
        return outside;
    }
    return WeightedMean({*grid.At(column.whole, row.whole), *grid.At(right, row.whole), *grid.At(column.whole, below),
                         *grid.At(right, below)},
                        {column.part, row.part}, disregardsAlpha);
}

TnImagePixel AreaMean(const PixelGrid<TnImagePixel>& grid, const AreaSpan& columns, const AreaSpan& rows) {
    struct Sum {
        ChannelSums channels = {};
        void Add(TnImagePixel pixel, std::uint32_t weight) { AddWeighted(channels, pixel, weight); }
    };
    Sum sum = SumOf<Sum>(grid, columns, rows);
    const AreaDivision division(columns, rows);
    for (std::uint32_t& channel : sum.channels) {
        channel = division.Rounded(channel);
    }
    return PixelOf(sum.channels);
}

TnImagePixel AreaMean(const PixelGrid<TnImagePixel>& grid, const TnFloatRect& rect, TnImagePixel outside) {
    if (!IsArea(rect)) {
        return outside; // a half of a larger area can be too narrow
    }
    const AreaSpan columns(rect.left, rect.width);
    const AreaSpan rows(rect.top, rect.height);
    if (columns.Count() * rows.Count() > kMostPixelsInArea) {
        return MeanOfLargeArea(grid, rect, columns.Count() > 2, outside);
    }
    return AreaMean(grid, columns, rows);
}

} // namespace tn

TnImagePixel TnImage::Get(long x, long y) const { return tn::ReadPixel(*this, x, y); }

void TnImage::Set(TnImagePixel pixel, long x, long y) { tn::WritePixel(*this, x, y, pixel); }

TnImagePixel TnImage::Get(TnFixed x, TnFixed y) const {
    const tn::SplitPosition column(x);
    const tn::SplitPosition row(y);
    if (!tn::IsWithinSize(*this, column.whole, row.whole)) {
        return OutsidePixel();
    }
    const tn::ClientLock<TnImage> lock(*this);
    return tn::BilinearMean(tn::ReadAccess::GridOf(*this), column, row, OutsidePixel(),
                            tn::ReadAccess::DisregardsAlpha(*this));
}

TnImagePixel TnImage::Get(const TnFloatRect& rect) const {
    if (!tn::IsArea(rect)) {
        return OutsidePixel();
    }
    const tn::ClientLock<TnImage> lock(*this);
    const auto grid = tn::ReadAccess::GridOf(*this);
    tn::areaLeavesImage.AssertInDebug(tn::HasArea(grid, rect));
    return tn::AreaMean(grid, rect, OutsidePixel());
}

TnImagePixel TnImage::Get(long x, long y, const TnFixed* kx, unsigned long nx, const TnFixed* ky,
                          unsigned long ny) const {
    const tn::ClientLock<TnImage> lock(*this);
    const auto grid = tn::ReadAccess::GridOf(*this);
    tn::blockLeavesImage.AssertInDebug(tn::HasBlock(grid, x, y, nx, ny));
    tn::ChannelSums sums = {};
    for (unsigned long j = 0; j < ny; ++j) {
        for (unsigned long i = 0; i < nx; ++i) {
            const auto weight = static_cast<std::uint32_t>(kx[i].raw) * static_cast<std::uint32_t>(ky[j].raw);
            tn::AddWeighted(sums, *grid.At(x + static_cast<std::int64_t>(i), y + static_cast<std::int64_t>(j)), weight);
        }
    }
    for (std::uint32_t& sum : sums) {
        sum >>= 16;
    }
    return tn::PixelOf(sums);
}
