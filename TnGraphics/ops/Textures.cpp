#include "TnGraphics/ops/Textures.h"

#include "TnGraphics/ops/PreparedKernel.h"
#include "TnGraphics/port/ClientLock.h"
#include "TnGraphics/rows/RowWalk.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace {

using Kernel = tn::PreparedKernel<TnImagePixel, TnImagePixel>;

// The column or row of the texture that falls on the area's first one.
std::int32_t PhaseOf(std::int32_t area, std::int32_t origin, std::int32_t period) {
    const auto distance =
        static_cast<std::int32_t>(static_cast<std::uint32_t>(area) - static_cast<std::uint32_t>(origin));
    const std::int32_t remainder = distance % period;
    return remainder < 0 ? remainder + period : remainder;
}

// Repeats the texture's row along the destination's, from a column of the texture on.
void TileRow(const TnImagePixel* texture, std::size_t period, std::size_t column, TnImagePixel* row, std::size_t length,
             const Kernel& kernel) {
    for (std::size_t done = 0; done < length; column = 0) {
        const std::size_t count = std::min(length - done, period - column);
        kernel.CompositeRow(texture + column, row + done, count);
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
            TileRow(&*pixels, static_cast<std::size_t>(period.x), column, &*row, length, kernel);
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
