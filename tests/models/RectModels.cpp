#include "tests/models/RectModels.h"

#include <cstdint>

namespace tn::test::model {
namespace {

using Wide = std::int64_t;

Wide Larger(Wide a, Wide b) { return a > b ? a : b; }

Wide Smaller(Wide a, Wide b) { return a < b ? a : b; }

} // namespace

bool Contains(const TnRect& rect, int x, int y) {
    const Wide right = Wide{rect.left} + Wide{rect.width};
    const Wide bottom = Wide{rect.top} + Wide{rect.height};
    return rect.left <= x && x < right && rect.top <= y && y < bottom;
}

TnRect SharedRect(const TnRect& a, const TnRect& b) {
    const Wide left = Larger(a.left, b.left);
    const Wide top = Larger(a.top, b.top);
    const Wide right = Smaller(Wide{a.left} + a.width, Wide{b.left} + b.width);
    const Wide bottom = Smaller(Wide{a.top} + a.height, Wide{b.top} + b.height);
    if (right - left < 1 || bottom - top < 1) {
        return {0, 0, 0, 0};
    }
    return {static_cast<int>(left), static_cast<int>(top), static_cast<int>(right - left),
            static_cast<int>(bottom - top)};
}

Placement CalcIterBnds(const TnPoint& sourceSize, const TnPoint& destinationSize, const TnPoint& offset,
                       const TnRect& clip) {
    Placement placement = {};
    if (clip.width < 1 || clip.height < 1) {
        return placement;
    }
    placement.isWritten = true;
    const TnRect destination = {0, 0, destinationSize.x, destinationSize.y};
    const TnRect rightAndBelow = {offset.x > 0 ? offset.x : 0, offset.y > 0 ? offset.y : 0, destinationSize.x,
                                  destinationSize.y};
    const TnRect placedSource = {offset.x, offset.y, sourceSize.x, sourceSize.y};
    TnRect placed = SharedRect(destination, rightAndBelow);
    placed = SharedRect(placed, clip);
    placed = SharedRect(placed, placedSource);
    placement.destination = placed;
    placement.isPlaced = placed.width > 0;
    if (placement.isPlaced) {
        placement.source = {static_cast<int>(Wide{placed.left} - offset.x),
                            static_cast<int>(Wide{placed.top} - offset.y), placed.width, placed.height};
    }
    return placement;
}

} // namespace tn::test::model
