#include "TnEngines/vec/scan/HardScan.h"

#include "TnEngines/vec/scan/VisibleBox.h"

#include <algorithm>
#include <cmath>

namespace tn::vec {
namespace {

// The product is exact for lines within some thousands of pixels, so that the quotient is only an integer and a half
// where the line meets the centre.
double CrossingAt(double height, const Point& upper, const Point& lower) {
    return upper.x + (height - upper.y) * (lower.x - upper.x) / (lower.y - upper.y);
}

} // namespace

void HardScan::Run(const Outline& outline, FillRule rule, const Box& clip, CoverageSink& sink) {
    box_ = VisibleBox(outline, clip);
    if (box_.IsEmpty()) {
        return;
    }
    rule_ = rule;
    Prepare(outline);
    for (std::int32_t y = box_.top; y < box_.bottom; ++y) {
        EnterChains(y + 0.5);
        GoDown(y + 0.5);
        CoverRow();
        sink.Cover(y, y + 1, row_);
    }
}

void HardScan::Prepare(const Outline& outline) {
    points_ = outline.Points().data();
    row_.Reset(box_.left, box_.Width());
    active_.clear();
    waiting_ = outline.Chains();
    std::sort(waiting_.begin(), waiting_.end(),
              [this](const Chain& a, const Chain& b) { return points_[a.first].y > points_[b.first].y; });
}

void HardScan::EnterChains(double height) {
    for (; !waiting_.empty() && points_[waiting_.back().first].y <= height; waiting_.pop_back()) {
        const Chain& chain = waiting_.back();
        active_.push_back({points_ + chain.first + 1, points_ + chain.last, chain.direction, 0});
    }
}

void HardScan::GoDown(double height) {
    std::erase_if(active_, [=](const ActiveChain& chain) { return chain.last->y <= height; });
    for (ActiveChain& chain : active_) {
        while (chain.lower->y <= height) {
            ++chain.lower;
        }
        const double first = std::ceil(CrossingAt(height, chain.lower[-1], chain.lower[0]) - 0.5);
        chain.x = static_cast<std::int32_t>(std::clamp<double>(first, box_.left, box_.right));
    }
    std::sort(active_.begin(), active_.end(), [](const ActiveChain& a, const ActiveChain& b) { return a.x < b.x; });
}

void HardScan::CoverRow() {
    row_.Clear();
    std::int32_t from = box_.left;
    std::int64_t winding = 0;
    for (const ActiveChain& chain : active_) {
        if (chain.x > from) {
            row_.Add(from, chain.x - from, IsInside(winding, rule_) ? kCovered : std::uint8_t{0});
            from = chain.x;
        }
        winding += chain.direction;
    }
}

} // namespace tn::vec
