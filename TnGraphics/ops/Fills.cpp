#include "TnGraphics/ops/Fills.h"

#include "TnGraphics/rows/RowKernels.h"
#include "TnGraphics/rows/RowWalk.h"

#include <cstring>

namespace {

template <class Operator> void ApplyToRows(TnImage& image, const TnRect& rect, const Operator& op) {
    const auto kernel = tn::ActiveKernel<Operator>();
    tn::ForEachRow(image, rect, [&](const TnImage::Iterator& row, std::size_t length) { kernel(&*row, length, op); });
}

std::uint32_t AlphaBits(std::uint8_t alpha) { return std::uint32_t{alpha} << 24; }

} // namespace

void ColorFill(TnImage& image, const TnRect& rect, const TnColor& color) {
    ApplyToRows(image, rect, tn::StorePixel{TnImagePixel(color)});
}

void AlphaFill(TnImage& image, const TnRect& rect, std::uint8_t alpha) {
    ApplyToRows(image, rect, tn::SetAlpha{AlphaBits(alpha)});
}

void AlphaFill(TnMatte& matte, const TnRect& rect, std::uint8_t value) {
    tn::ForEachRow(matte, rect, [value](const TnMatte::Iterator& row, std::size_t length) {
        std::memset(&row->value, value, length);
    });
}

void BlendInColor(TnImage& image, const TnColor& color, bool fillTransparent) {
    const tn::BlendBehind blend = {TnImagePixel(color)};
    if (fillTransparent) {
        ApplyToRows(image, image.Bounds(), blend);
    } else {
        ApplyToRows(image, image.Bounds(), tn::BlendBehindVisible{blend});
    }
}

void BlendInColorAndFillAlpha(TnImage& image, const TnColor& color, std::uint8_t alpha) {
    const tn::BlendBehind blend = {TnImagePixel(color)};
    ApplyToRows(image, image.Bounds(), tn::BlendBehindAndSetAlpha{blend, {AlphaBits(alpha)}});
}

void SetOpacity(TnImage& image, int percent) {
    const auto scaled = static_cast<std::int32_t>(static_cast<std::uint32_t>(percent) * 65536U);
    ApplyToRows(image, image.Bounds(), tn::ScaleAlpha{static_cast<std::uint32_t>(scaled / 100)});
}
