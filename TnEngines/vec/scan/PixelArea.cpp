#include "TnEngines/vec/scan/PixelArea.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace tn::vec {
namespace {

// Slabs are cut where edges cross, but not more finely and not more often in a pixel than this.
constexpr double kLeastHeight = 1.0 / 4096;
constexpr int kMostCuts = 512;

// What is nearly sorted or short.
template <class Item, class IsBefore> void SortByInsertion(Item* begin, Item* end, const IsBefore& isBefore) {
    for (Item* next = begin; next < end; ++next) {
        const Item item = *next;
        Item* place = next;
        for (; place > begin && isBefore(item, place[-1]); --place) {
            *place = place[-1];
        }
        *place = item;
    }
}

// Where both lie in one order at the top and in the other at the bottom, as a part of the height; otherwise 0.
template <class Crossing> double WhereTheyCross(const Crossing& a, const Crossing& b) {
    const double top = b.xTop - a.xTop;
    const double bottom = b.xBottom - a.xBottom;
    return top * bottom < 0 ? top / (top - bottom) : 0;
}

} // namespace

// What is to the left still winds around the pixel; what is to the right does not.
void PixelArea::Add(const Edge& edge) {
    const auto [least, greatest] = std::minmax(edge.xTop, edge.xBottom);
    if (least >= 0 && greatest <= 1) {
        AddWithin(edge.top, edge.bottom, edge.xTop, edge.xBottom, edge.direction);
        return;
    }
    if (greatest <= 0) {
        AddToTheLeft(edge.top, edge.bottom, edge.direction);
        return;
    }
    if (least >= 1) {
        return;
    }
    const double slope = (edge.bottom - edge.top) / (edge.xBottom - edge.xTop);
    const double xTop = std::clamp(edge.xTop, 0.0, 1.0);
    const double xBottom = std::clamp(edge.xBottom, 0.0, 1.0);
    const auto heightAt = [&](double x) {
        return std::clamp(edge.top + slope * (x - edge.xTop), edge.top, edge.bottom);
    };
    const double enter = xTop == edge.xTop ? edge.top : heightAt(xTop);
    const double leave = xBottom == edge.xBottom ? edge.bottom : heightAt(xBottom);
    if (edge.xTop < 0) {
        AddToTheLeft(edge.top, enter, edge.direction);
    }
    AddWithin(enter, leave, xTop, xBottom, edge.direction);
    if (edge.xBottom < 0) {
        AddToTheLeft(leave, edge.bottom, edge.direction);
    }
}

void PixelArea::AddWithin(double top, double bottom, double xTop, double xBottom, std::int32_t direction) {
    if (top < bottom) {
        edges_.push_back({top, bottom, xTop, (xBottom - xTop) / (bottom - top), direction});
        heights_.push_back({top, 0});
        heights_.push_back({bottom, 0});
    }
}

void PixelArea::AddToTheLeft(double top, double bottom, std::int32_t direction) {
    heights_.push_back({top, direction});
    heights_.push_back({bottom, -direction});
}

double PixelArea::Inside(const LeftWindings& left, FillRule rule) {
    for (const LeftWindings::Change& change : left.Changes()) {
        heights_.push_back({static_cast<double>(change.height) / kWhole, change.by});
    }
    heights_.push_back({1, 0});
    SortHeights();
    return edges_.size() <= kMostExact ? std::clamp(Exact(left.AtTop(), rule), 0.0, 1.0) : Counted(left.AtTop(), rule);
}

void PixelArea::SortHeights() {
    const auto isAbove = [](const Height& a, const Height& b) { return a.at < b.at; };
    if (heights_.size() > 2 * kMostExact) {
        std::ranges::sort(heights_, isAbove);
    } else {
        SortByInsertion(heights_.data(), heights_.data() + heights_.size(), isAbove);
    }
}

double PixelArea::Exact(std::int64_t winding, FillRule rule) {
    std::array<Crossing, kMostExact> crossings;
    cutsLeft_ = kMostCuts;
    double inside = 0;
    double top = 0;
    for (const Height& height : heights_) {
        const double bottom = height.at;
        if (top < bottom) {
            Crossing* end = crossings.data();
            for (const Line& edge : edges_) {
                if (edge.top <= top && edge.bottom >= bottom) {
                    *end++ = {edge.At(top), edge.At(bottom), edge.direction};
                }
            }
            inside += SlabInside(crossings.data(), end, bottom - top, winding, rule);
            top = bottom;
        }
        winding += height.by;
    }
    return inside;
}

double PixelArea::SlabInside(Crossing* begin, Crossing* end, double height, std::int64_t winding, FillRule rule) {
    SortByInsertion(begin, end, [](const Crossing& a, const Crossing& b) { return a.Middle() < b.Middle(); });
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
    for (const Crossing* each = begin; each < end; ++each) {
        sum += IsInside(winding, rule) ? each->Middle() - from : 0;
        winding += each->direction;
        from = each->Middle();
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

double PixelArea::Counted(std::int64_t winding, FillRule rule) const {
    constexpr int kLines = 64;
    std::int64_t inside = 0;
    auto next = heights_.begin();
    for (int line = 0; line < kLines; ++line) {
        const double height = (line + 0.5) / kLines;
        for (; next != heights_.end() && next->at <= height; ++next) {
            winding += next->by;
        }
        std::array<std::int64_t, kLines + 1> turns = {};
        for (const Line& edge : edges_) {
            if (edge.top <= height && height < edge.bottom) {
                const double place = std::ceil(edge.At(height) * kLines - 0.5);
                turns[static_cast<std::size_t>(std::clamp(place, 0.0, 1.0 * kLines))] += edge.direction;
            }
        }
        std::int64_t here = winding;
        for (int i = 0; i < kLines; ++i) {
            here += turns[static_cast<std::size_t>(i)];
            inside += IsInside(here, rule) ? 1 : 0;
        }
    }
    return static_cast<double>(inside) / (kLines * kLines);
}

} // namespace tn::vec
