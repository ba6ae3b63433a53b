#include "TnEngines/vec/scan/PixelArea.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace tn::vec {
namespace {

// Slabs are cut where edges cross, but not more finely and not more often in a pixel than this.
constexpr double kLeastHeight = 1.0 / 4096;
constexpr int kMostCuts = 512;

double XAt(const Edge& edge, double height) {
    if (edge.xTop == edge.xBottom) {
        return edge.xTop;
    }
    return edge.xTop + (edge.xBottom - edge.xTop) * ((height - edge.top) / (edge.bottom - edge.top));
}

double HeightAt(const Edge& edge, double x) {
    const double height = edge.top + (edge.bottom - edge.top) * ((x - edge.xTop) / (edge.xBottom - edge.xTop));
    return std::clamp(height, edge.top, edge.bottom);
}

double HeightOf(const LeftWindings::Change& change) { return static_cast<double>(change.height) / kWhole; }

// Where both lie in one order at the top and in the other at the bottom, as a part of the height; otherwise 0.
template <class Crossing> double WhereTheyCross(const Crossing& a, const Crossing& b) {
    const double top = b.xTop - a.xTop;
    const double bottom = b.xBottom - a.xBottom;
    if ((top < 0 && bottom > 0) || (top > 0 && bottom < 0)) {
        return top / (top - bottom);
    }
    return 0;
}

} // namespace

// What is to the left lies along the left side, where it still winds around the pixel; what is to the right does not.
void PixelArea::Add(const Edge& edge) {
    const auto [least, greatest] = std::minmax(edge.xTop, edge.xBottom);
    if (least >= 0 && greatest <= 1) {
        edges_.push_back(edge);
        return;
    }
    if (greatest <= 0 || least >= 1) {
        AddPart(edge, edge.top, edge.bottom);
        return;
    }
    const double nearer = edge.xTop < edge.xBottom ? std::max(edge.xTop, 0.0) : std::min(edge.xTop, 1.0);
    const double farther = edge.xTop < edge.xBottom ? std::min(edge.xBottom, 1.0) : std::max(edge.xBottom, 0.0);
    const double enter = nearer == edge.xTop ? edge.top : HeightAt(edge, nearer);
    const double leave = farther == edge.xBottom ? edge.bottom : HeightAt(edge, farther);
    AddPart(edge, edge.top, enter);
    if (enter < leave) {
        edges_.push_back({enter, leave, nearer, farther, edge.direction});
    }
    AddPart(edge, leave, edge.bottom);
}

void PixelArea::AddPart(const Edge& edge, double top, double bottom) {
    if (top < bottom && XAt(edge, (top + bottom) / 2) <= 0) {
        edges_.push_back({top, bottom, 0, 0, edge.direction});
    }
}

double PixelArea::Inside(const LeftWindings& left, FillRule rule) {
    return edges_.size() <= kMostExact ? Exact(left, rule) : Counted(left, rule);
}

void PixelArea::CollectHeights(const LeftWindings& left) {
    heights_.assign({0.0, 1.0});
    for (const Edge& edge : edges_) {
        heights_.push_back(edge.top);
        heights_.push_back(edge.bottom);
    }
    for (const LeftWindings::Change& change : left.Changes()) {
        heights_.push_back(HeightOf(change));
    }
    std::ranges::sort(heights_);
}

double PixelArea::Exact(const LeftWindings& left, FillRule rule) {
    CollectHeights(left);
    cutsLeft_ = kMostCuts;
    double inside = 0;
    auto change = left.Changes().begin();
    std::int64_t winding = left.AtTop();
    for (std::size_t i = 1; i < heights_.size(); ++i) {
        const double top = heights_[i - 1];
        const double bottom = heights_[i];
        if (top >= bottom) {
            continue;
        }
        for (; change != left.Changes().end() && HeightOf(*change) <= top; ++change) {
            winding += change->by;
        }
        crossings_.clear();
        for (const Edge& edge : edges_) {
            if (edge.top <= top && edge.bottom >= bottom) {
                crossings_.push_back({XAt(edge, top), XAt(edge, bottom), edge.direction});
            }
        }
        inside += SlabInside(crossings_.data(), crossings_.data() + crossings_.size(), bottom - top, winding, rule);
    }
    return std::clamp(inside, 0.0, 1.0);
}

// Between edges that do not cross, areas are trapezoids.
double PixelArea::SlabInside(Crossing* begin, Crossing* end, double height, std::int64_t winding, FillRule rule) {
    const auto middle = [](const Crossing& crossing) { return crossing.xTop + crossing.xBottom; };
    std::sort(begin, end, [=](const Crossing& a, const Crossing& b) { return middle(a) < middle(b); });
    if (height > kLeastHeight && cutsLeft_ > 0) {
        for (Crossing* next = begin + 1; next < end; ++next) {
            const double part = WhereTheyCross(next[-1], next[0]);
            if (part > 0 && part < 1) {
                return CutSlabInside(begin, next, end, part, height, winding, rule);
            }
        }
    }
    double sum = 0; // of both widths
    double from = 0;
    for (const Crossing* each = begin; each != end; ++each) {
        sum += IsInside(winding, rule) ? middle(*each) - from : 0;
        winding += each->direction;
        from = middle(*each);
    }
    sum += IsInside(winding, rule) ? 2 - from : 0;
    return sum / 2 * height;
}

// Of the slab as two, above and below the height at which an edge crosses the one before it.
double PixelArea::CutSlabInside(Crossing* begin, Crossing* crossed, Crossing* end, double part, double height,
                                std::int64_t winding, FillRule rule) {
    --cutsLeft_;
    std::array<Crossing, kMostExact> copies;
    Crossing* const lower = copies.data();
    Crossing* const lowerEnd = std::copy(begin, end, lower);
    for (Crossing* each = begin; each != end; ++each) {
        each->xBottom = each->xTop + (each->xBottom - each->xTop) * part;
    }
    crossed->xBottom = crossed[-1].xBottom;
    for (std::ptrdiff_t i = 0; i < end - begin; ++i) {
        lower[i].xTop = begin[i].xBottom;
    }
    const double upper = SlabInside(begin, end, height * part, winding, rule);
    return upper + SlabInside(lower, lowerEnd, height * (1 - part), winding, rule);
}

double PixelArea::Counted(const LeftWindings& left, FillRule rule) const {
    constexpr int kLines = 64;
    std::int64_t inside = 0;
    for (int line = 0; line < kLines; ++line) {
        const double height = (line + 0.5) / kLines;
        std::array<std::int64_t, kLines + 1> turns = {};
        for (const Edge& edge : edges_) {
            if (edge.top <= height && height < edge.bottom) {
                const double x = std::ceil(XAt(edge, height) * kLines - 0.5);
                turns[static_cast<std::size_t>(std::clamp(x, 0.0, 1.0 * kLines))] += edge.direction;
            }
        }
        std::int64_t winding = left.At(static_cast<std::int32_t>(height * kWhole));
        for (int i = 0; i < kLines; ++i) {
            winding += turns[static_cast<std::size_t>(i)];
            inside += IsInside(winding, rule) ? 1 : 0;
        }
    }
    return static_cast<double>(inside) / (kLines * kLines);
}

} // namespace tn::vec
