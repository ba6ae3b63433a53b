#include "TnEngines/vec/path/Outline.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace tn::vec {
namespace {

// The sum has no room for finer steps than 1/4096, and rounding to nearest does the rest.
double Snapped(double coordinate) {
    constexpr double kCoarse = 3.0 * (std::uint64_t{1} << (51 - 12));
    return (Cut(coordinate) + kCoarse) - kCoarse;
}

Point Snapped(Point point) { return {Snapped(point.x), Snapped(point.y)}; }

} // namespace

void Outline::Clear() {
    constexpr double kNowhere = std::numeric_limits<double>::infinity();
    constexpr std::size_t kFewPoints = 64;
    constexpr std::size_t kFewChains = 8;
    points_.clear();
    points_.reserve(kFewPoints);
    chains_.clear();
    chains_.reserve(kFewChains);
    firstChain_ = 0;
    direction_ = 0;
    start_ = current_ = {};
    least_ = {kNowhere, kNowhere};
    greatest_ = {-kNowhere, -kNowhere};
}

void Outline::Move(Point to) {
    Close();
    start_ = current_ = Snapped(to);
}

inline void Outline::Extend(Point to) {
    points_.push_back(to);
    least_.x = std::min(least_.x, to.x);
    greatest_.x = std::max(greatest_.x, to.x);
}

inline void Outline::StepTo(Point to) {
    if (to == current_) {
        return;
    }
    const std::int32_t direction = (to.y > current_.y) - (to.y < current_.y);
    if (direction != direction_ || direction == 0) {
        EndChain();
        if (direction != 0) {
            BeginChain(direction);
        }
    }
    if (direction != 0) {
        Extend(to);
    }
    current_ = to;
}

void Outline::Line(Point to) { StepTo(Snapped(to)); }

void Outline::Close() {
    StepTo(start_);
    JoinWithFirstChain();
    EndChain();
    firstChain_ = chains_.size();
}

void Outline::BeginChain(std::int32_t direction) {
    direction_ = direction;
    chainStart_ = static_cast<std::uint32_t>(points_.size());
    Extend(current_);
}

void Outline::EndChain() {
    if (direction_ == 0) {
        return;
    }
    if (direction_ < 0) {
        std::reverse(points_.begin() + chainStart_, points_.end());
    }
    chains_.push_back({chainStart_, static_cast<std::uint32_t>(points_.size() - 1), direction_});
    least_.y = std::min(least_.y, points_[chainStart_].y);
    greatest_.y = std::max(greatest_.y, points_.back().y);
    direction_ = 0;
}

// Where a sub-path begins in the middle of a chain, its last chain and its first are one.
void Outline::JoinWithFirstChain() {
    if (chains_.size() == firstChain_ || chains_[firstChain_].direction != direction_) {
        return;
    }
    const Chain first = chains_[firstChain_];
    const Point meeting = points_[direction_ > 0 ? first.first : first.last];
    if (meeting != current_) {
        return;
    }
    if (direction_ > 0) {
        for (std::uint32_t i = first.first + 1; i <= first.last; ++i) {
            points_.push_back(points_[i]);
        }
    } else {
        for (std::uint32_t i = first.last; i-- > first.first;) {
            points_.push_back(points_[i]);
        }
    }
    chains_[firstChain_] = chains_.back();
    chains_.pop_back();
}

bool IsRect(const Outline& outline) {
    const std::vector<Chain>& chains = outline.Chains();
    if (chains.size() != 2 || chains[0].direction == chains[1].direction) {
        return false;
    }
    const auto isSide = [&](const Chain& chain) {
        const Point upper = outline.Points()[chain.first];
        const Point lower = outline.Points()[chain.last];
        return chain.last == chain.first + 1 && upper.x == lower.x && upper.y == outline.LeastCorner().y &&
               lower.y == outline.GreatestCorner().y;
    };
    return isSide(chains[0]) && isSide(chains[1]);
}

std::int64_t WindingAt(const Outline& outline, Point point) {
    std::int64_t winding = 0;
    for (const Chain& chain : outline.Chains()) {
        const Point* lower = &outline.Points()[chain.first];
        if (lower->y > point.y || outline.Points()[chain.last].y <= point.y) {
            continue;
        }
        while (lower->y <= point.y) {
            ++lower;
        }
        const Point& upper = lower[-1];
        const double x = upper.x + (point.y - upper.y) * (lower->x - upper.x) / (lower->y - upper.y);
        winding += x <= point.x ? chain.direction : 0;
    }
    return winding;
}

} // namespace tn::vec
