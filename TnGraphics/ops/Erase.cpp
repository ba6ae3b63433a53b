#include "TnGraphics/ops/Erase.h"

#include "TnGraphics/rows/RowWalk.h"

#include <cstring>

template <class SurfaceType> void EraseOutside(SurfaceType& surface, const TnRect& rect) {
    const TnRect bounds = surface.Bounds();
    const TnRect kept = Intersection(rect, bounds);
    if (kept == bounds) {
        return;
    }
    const auto [left, top, right, bottom] = kept.Edges();
    const TnRect bands[] = {
        {0, 0, bounds.width, top},
        {0, bottom, bounds.width, bounds.height - bottom},
        {0, top, left, kept.height},
        {right, top, bounds.width - right, kept.height},
    };
    for (const TnRect& band : bands) {
        if (!band.IsEmpty()) {
            tn::ForEachRow(surface, band, [](const auto& row, std::size_t length) {
                std::memset(static_cast<void*>(&*row), 0, length * sizeof(*row));
            });
        }
    }
}

template TN_EXPORT void EraseOutside(TnImage& image, const TnRect& rect);
template TN_EXPORT void EraseOutside(TnMatte& matte, const TnRect& rect);

void PrepareMargin(TnImage& image, const TnRect& rect) { EraseOutside(image, rect); }

void PrepareMargin(TnMatte& matte, const TnRect& rect) { EraseOutside(matte, rect); }
