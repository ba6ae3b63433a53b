#include "TnEngines/vec/scan/PixelArea.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace tn::vec {
namespace {

// Slabs are cut where edges cross, but not more finely and not more often in a pixel than this.
constexpr double kLeastHeight = 1.0 / 4096;
constexpr int kMostCuts = 512;

// How many edges may be looked at, slab by slab.
constexpr std::int64_t kMostWork = 1 << 16;

// Into how many lower ones a slab with many edges is cut, and along how many lines a pixel is measured at last.
constexpr int kCrowdParts = 16;
constexpr int kLines = 16;

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

template <class Item, class IsBefore> void SortAll(std::span<Item> items, const IsBefore& isBefore) {
    if (items.size() <= 2 * PixelArea::kMostExact) {
        SortByInsertion(items.data(), items.data() + items.size(), isBefore);
    } else {
        std::ranges::sort(items, isBefore);
    }
}

// Where both lie in one order at the top and in the other at the bottom, as a part of the height; otherwise 0.
template <class Crossing> double WhereTheyCross(const Crossing& a, const Crossing& b) {
    const double top = b.xTop - a.xTop;
    const double bottom = b.xBottom - a.xBottom;
    return top * bottom < 0 ? top / (top - bottom) : 0;
}

// Twice the width inside between sorted crossings, of a pixel.
template <class Crossing> double TwiceInside(std::span<const Crossing> crossings, std::int64_t winding, FillRule rule) {
    double inside = 0;
    double from = 0;
    for (const Crossing& each : crossings) {
        inside += IsInside(winding, rule) ? each.Middle() - from : 0;
        winding += each.direction;
        from = each.Middle();
    }
    return inside + (IsInside(winding, rule) ? 2 - from : 0);
}

template <class Crossing> void SortFromTheLeft(std::span<Crossing> crossings) {
    SortAll(crossings, [](const Crossing& a, const Crossing& b) { return a.Middle() < b.Middle(); });
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
    Sort();
    return std::clamp(Slabs(left.AtTop(), rule), 0.0, 1.0);
}

void PixelArea::Sort() {
    SortAll(std::span(heights_), [](const Height& a, const Height& b) { return a.at < b.at; });
    SortAll(std::span(edges_), [](const Line& a, const Line& b) { return a.top < b.top; });
    active_.clear();
    next_ = 0;
    cutsLeft_ = kMostCuts;
    workLeft_ = kMostWork;
}

double PixelArea::Slabs(std::int64_t winding, FillRule rule) {
    double inside = 0;
    double top = 0;
    for (const Height& height : heights_) {
        const double bottom = height.at;
        if (top < bottom) {
            if (workLeft_ < 0) {
                return inside + LinesInside(top, winding, rule);
            }
            GoDownTo(top);
            inside += active_.size() <= kMostExact
                          ? SlabInside(CrossingsBetween(top, bottom), bottom - top, winding, rule)
                          : CrowdInside(top, bottom, winding, rule);
            top = bottom;
        }
        winding += height.by;
    }
    return inside;
}

// To the edges in the slab that begins at a height.
void PixelArea::GoDownTo(double height) {
    std::erase_if(active_, [=](const Line* edge) { return edge->bottom <= height; });
    for (; next_ < edges_.size() && edges_[next_].top <= height; ++next_) {
        if (edges_[next_].bottom > height) {
            active_.push_back(&edges_[next_]);
        }
    }
    workLeft_ -= static_cast<std::int64_t>(active_.size());
}

PixelArea::Crossings PixelArea::CrossingsBetween(double top, double bottom) {
    crossings_.clear();
    for (const Line* const edge : active_) {
        crossings_.push_back({edge->At(top), edge->At(bottom), edge->direction});
    }
    return crossings_;
}

double PixelArea::SlabInside(Crossings crossings, double height, std::int64_t winding, FillRule rule) {
    SortFromTheLeft(crossings);
    if (height > kLeastHeight && cutsLeft_ > 0) {
        for (std::size_t i = 1; i < crossings.size(); ++i) {
            const double part = WhereTheyCross(crossings[i - 1], crossings[i]);
            if (part > 0 && part < 1) {
                return CutSlabInside(crossings, i, part, height, winding, rule);
            }
        }
    }
    return TwiceInside<Crossing>(crossings, winding, rule) / 2 * height;
}

// Of the slab as two, above and below the height at which an edge crosses the one before it.
double PixelArea::CutSlabInside(Crossings crossings, std::size_t crossed, double part, double height,
                                std::int64_t winding, FillRule rule) {
    --cutsLeft_;
    std::array<Crossing, kMostExact> copies;
    std::ranges::copy(crossings, copies.begin());
    const Crossings lower(copies.data(), crossings.size());
    for (Crossing& each : crossings) {
        each.xBottom = each.xTop + (each.xBottom - each.xTop) * part;
    }
    crossings[crossed].xBottom = crossings[crossed - 1].xBottom;
    for (std::size_t i = 0; i < lower.size(); ++i) {
        lower[i].xTop = crossings[i].xBottom;
    }
    const double upper = SlabInside(crossings, height * part, winding, rule);
    return upper + SlabInside(lower, height * (1 - part), winding, rule);
}

double PixelArea::CrowdInside(double top, double bottom, std::int64_t winding, FillRule rule) {
    const double height = (bottom - top) / kCrowdParts;
    double inside = 0;
    for (int part = 0; part < kCrowdParts; ++part) {
        const Crossings crossings = CrossingsBetween(top + part * height, top + (part + 1) * height);
        SortFromTheLeft(crossings);
        inside += TwiceInside<Crossing>(crossings, winding, rule) / 2 * height;
    }
    workLeft_ -= kCrowdParts * static_cast<std::int64_t>(active_.size());
    return inside;
}

// From a height to the pixel's lower side.
double PixelArea::LinesInside(double from, std::int64_t winding, FillRule rule) {
    const double height = (1 - from) / kLines;
    double inside = 0;
    auto change = std::ranges::upper_bound(heights_, from, {}, &Height::at);
    for (int line = 0; line < kLines; ++line) {
        const double at = from + (line + 0.5) * height;
        for (; change != heights_.end() && change->at <= at; ++change) {
            winding += change->by;
        }
        GoDownTo(at);
        const Crossings crossings = CrossingsBetween(at, at);
        SortFromTheLeft(crossings);
        inside += TwiceInside<Crossing>(crossings, winding, rule) / 2 * height;
    }
    return inside;
}

} // namespace tn::vec
