#include "tests/models/SamplingModels.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <numeric>

namespace tn::test::model {
namespace {

using Wide = std::int64_t;

constexpr Wide kWords = Wide{1} << 32;

template <class Make> Channels ForEachChannel(const Make& make) {
    const auto byte = [&](int Channels::*channel) { return static_cast<int>(FloorRemainder(make(channel), 256)); };
    return {byte(&Channels::alpha), byte(&Channels::red), byte(&Channels::green), byte(&Channels::blue)};
}

Channels PixelAtByte(const ReadSurface& surface, Wide offset) {
    const auto byte = [&](Wide i) { return static_cast<int>(surface.block.at(static_cast<std::size_t>(offset + i))); };
    return surface.pixelBytes == 1 ? Channels{byte(0), 0, 0, 0} : Channels{byte(3), byte(2), byte(1), byte(0)};
}

Wide ByteOf(const ReadSurface& surface, Wide x, Wide y) {
    return surface.corner + y * surface.rowBytes + x * surface.pixelBytes;
}

// Bilinear

struct Neighbor {
    Channels pixel;
    Wide weight;
};
using Neighbors = std::array<Neighbor, 4>;

Wide WeightedSum(const Neighbors& neighbors, int Channels::*channel) {
    return std::accumulate(neighbors.begin(), neighbors.end(), Wide{0}, [=](Wide sum, const Neighbor& neighbor) {
        return sum + neighbor.pixel.*channel * neighbor.weight;
    });
}

Channels PlainMean(const Neighbors& neighbors) {
    return ForEachChannel([&](int Channels::*channel) { return WeightedSum(neighbors, channel) / 65536; });
}

// The mean of those that are not transparent. The alphas of the others add nothing to the sum of all.
Channels VisibleMean(const Neighbors& neighbors) {
    Neighbors visible = neighbors;
    Wide weights = 0;
    for (Neighbor& neighbor : visible) {
        if (neighbor.pixel.alpha == 0) {
            neighbor.pixel = {};
        } else {
            weights += neighbor.weight;
        }
    }
    Channels mean = ForEachChannel(
        [&](int Channels::*channel) { return WeightedSum(visible, channel) / (weights == 0 ? 1 : weights); });
    mean.alpha = static_cast<int>(WeightedSum(neighbors, &Channels::alpha) / 65536);
    return mean;
}

// The four pixels around a position, weighted; the far ones at the given column and row.
Neighbors NeighborsAt(const ReadSurface& surface, const std::array<Wide, 2>& columns, const std::array<Wide, 2>& rows,
                      Wide fx, Wide fy) {
    const auto at = [&](std::size_t i, std::size_t j) { return surface.At(columns[i], rows[j]); };
    return {Neighbor{at(0, 0), (256 - fx) * (256 - fy)}, Neighbor{at(1, 0), fx * (256 - fy)},
            Neighbor{at(0, 1), (256 - fx) * fy}, Neighbor{at(1, 1), fx * fy}};
}

bool HasAll(const ReadSurface& surface, const std::array<Wide, 2>& columns, const std::array<Wide, 2>& rows) {
    for (const Wide column : columns) {
        for (const Wide row : rows) {
            if (!surface.Has(column, row)) {
                return false;
            }
        }
    }
    return true;
}

Channels ImageBetween(const ReadSurface& image, Wide ix, Wide iy, Wide fx, Wide fy) {
    const std::array<Wide, 2> columns = {ix, ix < image.size.x - 1 ? ix + 1 : ix};
    const std::array<Wide, 2> rows = {iy, iy < image.size.y - 1 ? iy + 1 : iy};
    if (!HasAll(image, columns, rows)) {
        return image.outside;
    }
    const Neighbors neighbors = NeighborsAt(image, columns, rows, fx, fy);
    return image.disregardsAlpha ? PlainMean(neighbors) : VisibleMean(neighbors);
}

Channels MatteBetween(const ReadSurface& matte, Wide ix, Wide iy, Wide fx, Wide fy) {
    const std::array<Wide, 2> columns = {ix, ix + 1};
    const std::array<Wide, 2> rows = {iy, iy + 1};
    if (!HasAll(matte, columns, rows)) {
        return matte.outside;
    }
    return PlainMean(NeighborsAt(matte, columns, rows, fx, fy));
}

// Areas

// One axis of a rectangle in 256ths of a pixel.
struct Axis {
    Wide start;
    Wide extent;

    Axis(double position, double size)
        : start(static_cast<Wide>(std::trunc(position * 256 + 0.5))),
          extent(static_cast<Wide>(std::trunc(size * 256 + 0.5))) {}

    Wide First() const { return FloorQuotient(start, 256); }
    Wide Touched() const { return FloorQuotient(FloorRemainder(start, 256) + extent + 255, 256); }
    Wide Read() const { return std::max<Wide>(Touched(), 2); } // first and last are never the same pixel

    Wide Weight(Wide i) const {
        if (i == 0) {
            return 256 - FloorRemainder(start, 256);
        }
        const Wide end = FloorRemainder(start + extent, 256);
        return i < Read() - 1 || end == 0 ? 256 : end;
    }
};

Channels MeanOfHalves(const ReadSurface& surface, const TnFloatRect& first, const TnFloatRect& second) {
    const Channels a = GetArea(surface, first);
    const Channels b = GetArea(surface, second);
    return ForEachChannel([&](int Channels::*channel) { return Wide{(a.*channel + b.*channel) / 2}; });
}

Channels MeanOfParts(const ReadSurface& surface, const TnFloatRect& r, bool acrossWidth) {
    if (acrossWidth) {
        return MeanOfHalves(surface, {r.left, r.top, r.width / 2, r.height},
                            {r.left + r.width / 2, r.top, r.width / 2, r.height});
    }
    return MeanOfHalves(surface, {r.left, r.top, r.width, r.height / 2},
                        {r.left, r.top + r.height / 2, r.width, r.height / 2});
}

Wide AreaSum(const ReadSurface& surface, const Axis& columns, const Axis& rows, int Channels::*channel) {
    Wide sum = 0;
    for (Wide j = 0; j < rows.Read(); ++j) {
        for (Wide i = 0; i < columns.Read(); ++i) {
            const Channels pixel = surface.At(columns.First() + i, rows.First() + j);
            sum += pixel.*channel * (columns.Weight(i) * rows.Weight(j) / 256);
        }
    }
    return sum % kWords;
}

} // namespace

bool ReadSurface::Has(std::int64_t x, std::int64_t y) const {
    const bool isWithinSize = 0 <= x && x < size.x && 0 <= y && y < size.y;
    return isWithinSize && ByteOf(*this, x, y) + pixelBytes <= static_cast<Wide>(block.size());
}

Channels ReadSurface::At(std::int64_t x, std::int64_t y) const { return PixelAtByte(*this, ByteOf(*this, x, y)); }

std::int32_t LowWord(std::int64_t value) {
    const Wide low = FloorRemainder(value, kWords);
    return static_cast<std::int32_t>(low < kWords / 2 ? low : low - kWords);
}

std::int64_t FloorQuotient(std::int64_t value, std::int64_t divisor) {
    const Wide quotient = value / divisor;
    return quotient * divisor > value ? quotient - 1 : quotient;
}

std::int64_t FloorRemainder(std::int64_t value, std::int64_t divisor) {
    return value - FloorQuotient(value, divisor) * divisor;
}

Channels GetAt(const ReadSurface& surface, std::int64_t x, std::int64_t y) {
    return surface.Has(x, y) ? surface.At(x, y) : surface.outside;
}

Channels GetBetween(const ReadSurface& surface, std::int32_t x, std::int32_t y) {
    const auto read = surface.pixelBytes == 1 ? &MatteBetween : &ImageBetween;
    return read(surface, FloorQuotient(x, 65536), FloorQuotient(y, 65536), FloorRemainder(x, 65536) / 256,
                FloorRemainder(y, 65536) / 256);
}

Channels GetBetweenAtFloat(const ReadSurface& matte, float x, float y) {
    const double column = std::trunc(static_cast<double>(x) * 256 + 0.5);
    const double row = std::trunc(static_cast<double>(y) * 256 + 0.5);
    constexpr double kBeyond = 2147483648.0;
    if (!(-kBeyond <= column && column < kBeyond && -kBeyond <= row && row < kBeyond)) {
        return matte.outside;
    }
    const auto x256 = static_cast<Wide>(column);
    const auto y256 = static_cast<Wide>(row);
    return MatteBetween(matte, FloorQuotient(x256, 256), FloorQuotient(y256, 256), FloorRemainder(x256, 256),
                        FloorRemainder(y256, 256));
}

bool IsArea(const TnFloatRect& rect) {
    const bool isFinite =
        std::isfinite(rect.left) && std::isfinite(rect.top) && std::isfinite(rect.width) && std::isfinite(rect.height);
    return isFinite && rect.width >= 1 && rect.height >= 1;
}

bool HasArea(const ReadSurface& surface, const TnFloatRect& rect) {
    const Axis columns(rect.left, rect.width);
    const Axis rows(rect.top, rect.height);
    for (Wide j = 0; j < rows.Read(); ++j) {
        for (Wide i = 0; i < columns.Read(); ++i) {
            if (!surface.Has(columns.First() + i, rows.First() + j)) {
                return false;
            }
        }
    }
    return true;
}

Channels GetArea(const ReadSurface& surface, const TnFloatRect& rect) {
    if (!IsArea(rect)) {
        return surface.outside;
    }
    const Axis columns(rect.left, rect.width);
    const Axis rows(rect.top, rect.height);
    const bool isMatte = surface.pixelBytes == 1;
    if (!isMatte && columns.Touched() * rows.Touched() > 65535) {
        return MeanOfParts(surface, rect, columns.Touched() > 2);
    }
    const Wide divisor = columns.extent * rows.extent / 256;
    return ForEachChannel([&](int Channels::*channel) {
        return (AreaSum(surface, columns, rows, channel) + (isMatte ? 0 : divisor / 2)) / divisor;
    });
}

Channels GetKernel(const ReadSurface& image, std::int64_t x, std::int64_t y, const std::vector<std::int32_t>& kx,
                   const std::vector<std::int32_t>& ky) {
    return ForEachChannel([&](int Channels::*channel) {
        Wide sum = 0;
        for (std::size_t j = 0; j < ky.size(); ++j) {
            for (std::size_t i = 0; i < kx.size(); ++i) {
                const Wide weight = FloorRemainder(Wide{kx[i]} * ky[j], kWords);
                const Channels pixel = image.At(x + static_cast<Wide>(i), y + static_cast<Wide>(j));
                sum = (sum + weight * (pixel.*channel)) % kWords;
            }
        }
        return sum / 65536;
    });
}

} // namespace tn::test::model
