#include "TnGraphics/ops/Fills.h"
#include "TnGraphics/port/ReportedPosition.h"
#include "TnGraphics/rows/RowKernels.h"
#include "TnGraphics/rows/RowWalk.h"

namespace {

// Where the lines of a pattern are in one of its rows, as CrossLines wants them.
struct LinePlaces {
    std::uint32_t cellMask;
    std::uint32_t falling;
    std::uint32_t rising;
};

std::uint32_t Opaque(const TnColor& color) { return TnImagePixel(color) | tn::kAlphaBits; }

// Places are counted from the corner of the rectangle as the caller gave it, so a clip does not shift the pattern.
template <class PlacesInRow>
void FillWithLines(TnImage& image, const TnRect& rect, const TnColor& ground, const TnColor& line,
                   const PlacesInRow& placesInRow) {
    const auto kernel = tn::ActiveKernel<tn::CrossLines>();
    tn::ForEachRow(image, rect, [&](const TnImage::Iterator& row, std::size_t length) {
        const TnPoint position = tn::ReportedPosition(row);
        const std::uint32_t u = static_cast<std::uint32_t>(position.x) - static_cast<std::uint32_t>(rect.left);
        const std::uint32_t v = static_cast<std::uint32_t>(position.y) - static_cast<std::uint32_t>(rect.top);
        const LinePlaces places = placesInRow(v);
        kernel(&*row, length, {u, places.cellMask, places.falling, places.rising, Opaque(line), Opaque(ground)});
    });
}

} // namespace

void XFill(TnImage& image, const TnRect& rect, const TnColor& ground, const TnColor& line) {
    constexpr std::uint32_t kWholeRow = 0xFFFFFFFF;
    const auto width = static_cast<std::uint32_t>(rect.width);
    FillWithLines(image, rect, ground, line, [width](std::uint32_t v) {
        return LinePlaces{kWholeRow, v, width - v - 1};
    });
}

void CrossHatchFill(TnImage& image, const TnRect& rect, const TnColor& ground, const TnColor& line, long sizeExponent) {
    const std::uint32_t cellMask = (1U << (sizeExponent & 31)) - 1;
    FillWithLines(image, rect, ground, line, [cellMask](std::uint32_t v) {
        const std::uint32_t place = v & cellMask;
        return LinePlaces{cellMask, place, cellMask - place};
    });
}
