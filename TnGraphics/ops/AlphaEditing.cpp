#include "TnGraphics/ops/AlphaEditing.h"

#include "TnGraphics/ops/AlphaAnalysis.h"
#include "TnGraphics/ops/Fills.h"
#include "TnGraphics/port/TnImagePixel.h"
#include "TnGraphics/rows/RowKernels.h"
#include "TnGraphics/rows/RowWalk.h"

#include <cstddef>
#include <cstdint>

void BuildAlpha(TnImage& image, const TnColor& key) {
    if (TestForAlpha(image)) {
        return;
    }
    const auto kernel = tn::ActiveKernel<tn::OpaqueUnlessColor>();
    const tn::OpaqueUnlessColor op = {TnImagePixel(key).value & tn::kColorBits};
    tn::ForEachRow(image, image.Bounds(),
                   [&](const TnImage::Iterator& row, std::size_t length) { kernel(&*row, length, op); });
}

void SetAlphaRect(TnImage& image, const TnRect& rect) { AlphaFill(image, rect, 255); }

template <class SurfaceType> void InvertAlpha(SurfaceType& matte) {
    tn::ForEachRow(matte, matte.Bounds(), [](const TnMatte::Iterator& row, std::size_t length) {
        TnMattePixel* const pixels = &*row;
        for (std::size_t i = 0; i < length; ++i) {
            pixels[i].value = static_cast<std::uint8_t>(255 - pixels[i].value);
        }
    });
}

template TN_EXPORT void InvertAlpha(TnMatte& matte);
