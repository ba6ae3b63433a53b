#include "TnGraphics/ops/Textures.h"

#include "TnGraphics/ops/InStep.h"
#include "TnGraphics/ops/PreparedKernel.h"
#include "TnGraphics/port/ClientLock.h"
#include "TnGraphics/rows/RowWalk.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace {

using Kernel = tn::PreparedKernel<TnImagePixel, TnImagePixel>;

// The column or row of the texture that falls on the area's first one.
std::int32_t PhaseOf(std::int32_t area, std::int32_t origin, std::int32_t period) {
    const auto distance =
        static_cast<std::int32_t>(static_cast<std::uint32_t>(area) - static_cast<std::uint32_t>(origin));
    const std::int32_t remainder = distance % period;
    return remainder < 0 ? remainder + period : remainder;
}

/// A row of a texture. A narrow one is laid side by side with itself, so that kernels get longer stretches.
class TextureRow {
public:
    /// \param row for these pixels; where they share memory with the texture, it is left as it is to be read in step
    TextureRow(const TnImagePixel* texture, std::size_t period, const TnImagePixel* row, std::size_t length)
        : pixels_(texture), period_(period) {
        if (period < kNarrow && period < length && !tn::RowSpan(texture, period).Overlaps(tn::RowSpan(row, length))) {
            Repeat(std::min(kPixels / period, length / period + 1));
        }
    }
    TextureRow(const TextureRow&) = delete;
    TextureRow& operator=(const TextureRow&) = delete;

    const TnImagePixel* Pixels() const { return pixels_; }
    std::size_t Period() const { return period_; }

private:
    static constexpr std::size_t kNarrow = 64;
    static constexpr std::size_t kPixels = 256;

    void Repeat(std::size_t times) {
        for (std::size_t n = 0; n < times; ++n) {
            std::memcpy(repeated_ + n * period_, pixels_, period_ * sizeof(TnImagePixel));
        }
        pixels_ = reinterpret_cast<const TnImagePixel*>(repeated_);
        period_ *= times;
    }

    const TnImagePixel* pixels_;
    std::size_t period_;
    std::uint32_t repeated_[kPixels]; // words of pixels; only as many as are needed are ever written
};

// Repeats the texture's row along the destination's, from a column of the texture on.
void TileRow(const TextureRow& texture, std::size_t column, TnImagePixel* row, std::size_t length,
             const Kernel& kernel) {
    for (std::size_t done = 0; done < length; column = 0) {
        const std::size_t count = std::min(length - done, texture.Period() - column);
        kernel.CompositeRow(texture.Pixels() + column, row + done, count);
        done += count;
    }
}

template <class Operator>
void Tile(const TnImage& texture, TnImage& destination, const TnPoint& origin, const TnRect& area) {
    const TnPoint period = texture.Size();
    if (period.x <= 0 || period.y <= 0) {
        return;
    }
    const tn::ClientLock<TnImage> lock(texture);
    const Kernel kernel(tn::ActiveKernels<tn::Copying<Operator>>().kernel);
    const auto column = static_cast<std::size_t>(PhaseOf(area.left, origin.x, period.x));
    std::int32_t textureRow = PhaseOf(area.top, origin.y, period.y);
    tn::ForEachRow(destination, area, [&](const TnImage::Iterator& row, std::size_t length) {
        const auto pixels = texture.begin({0, textureRow, period.x, 1});
        if (!pixels.AtEnd()) {
            const TextureRow tiles(&*pixels, static_cast<std::size_t>(period.x), &*row, length);
            TileRow(tiles, column, &*row, length, kernel);
        }
        textureRow = textureRow + 1 == period.y ? 0 : textureRow + 1;
    });
}

} // namespace

void CopyTexture(const TnImage& texture, TnImage& destination, const TnPoint& origin, const TnRect& area) {
    Tile<tn::CopyColor>(texture, destination, origin, area);
}

void CopyTextureZeroAlpha(const TnImage& texture, TnImage& destination, const TnPoint& origin, const TnRect& area) {
    Tile<tn::CopyColorClearAlpha>(texture, destination, origin, area);
}

void BlendTexture(const TnImage& texture, TnImage& destination, const TnRect& area) {
    Tile<tn::PaintThroughAlpha>(texture, destination, {area.left, area.top}, area);
}
