#include "TnGraphics/port/CalcIterBnds.h"

#include <algorithm>

bool CalcIterBnds(const TnPoint& sourceSize, const TnPoint& destinationSize, const TnPoint& offset, const TnRect& clip,
                  TnRect* sourceRect, TnRect* destinationRect) {
    if (clip.IsEmpty()) {
        return false;
    }
    TnRect placed = {0, 0, destinationSize.x, destinationSize.y};
    placed.Intersect({std::max(offset.x, 0), std::max(offset.y, 0), destinationSize.x, destinationSize.y});
    placed.Intersect(clip);
    placed.Intersect({offset.x, offset.y, sourceSize.x, sourceSize.y});
    *destinationRect = placed;
    if (placed.IsEmpty()) {
        return false;
    }
    // The placed rectangle lies within the source, so these differences fit.
    const auto moved = [](std::int32_t position, std::int32_t by) {
        return static_cast<std::int32_t>(std::int64_t{position} - by);
    };
    *sourceRect = {moved(placed.left, offset.x), moved(placed.top, offset.y), placed.width, placed.height};
    return true;
}
