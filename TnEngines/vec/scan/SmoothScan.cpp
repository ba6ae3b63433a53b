#include "TnEngines/vec/scan/SmoothScan.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace tn::vec {
namespace {

std::int32_t HeightIn(std::int32_t row, double y) { return static_cast<std::int32_t>((y - row) * kWhole); }

std::uint8_t CoverageOf(std::int64_t area) {
    return static_cast<std::uint8_t>((area * kCovered + kWhole / 2) / kWhole);
}

} // namespace

void SmoothScan::Run(const Outline& outline, FillRule rule, const Box& clip, CoverageSink& sink) {
    if (outline.Chains().empty()) {
        return;
    }
    box_ = Intersection(clip, BoxAround(outline.LeastCorner(), outline.GreatestCorner()));
    if (box_.IsEmpty()) {
        return;
    }
    rule_ = rule;
    Prepare(outline);
    while (y_ < box_.bottom && (!entries_.empty() || !waiting_.empty())) {
        RunRow(sink);
    }
}

void SmoothScan::Prepare(const Outline& outline) {
    points_ = outline.Points().data();
    cells_.Reset(box_.Width());
    row_.Reset(box_.left, box_.Width());
    active_.clear();
    free_.clear();
    entries_.clear();
    waiting_.clear();
    for (const Chain& chain : outline.Chains()) {
        if (points_[chain.last].y > box_.top && points_[chain.first].y < box_.bottom) {
            waiting_.push_back({RowOf(chain), chain});
        }
    }
    std::sort(waiting_.begin(), waiting_.end(), [](const Waiting& a, const Waiting& b) { return a.row > b.row; });
    y_ = box_.top;
}

std::int32_t SmoothScan::RowOf(const Chain& chain) const {
    return static_cast<std::int32_t>(std::floor(std::max<double>(points_[chain.first].y, box_.top)));
}

void SmoothScan::Enter(const Chain& chain) {
    std::uint32_t place = static_cast<std::uint32_t>(active_.size());
    if (free_.empty()) {
        active_.emplace_back();
        free_.reserve(active_.capacity());
    } else {
        place = free_.back();
        free_.pop_back();
    }
    ActiveChain& active = active_[place];
    active.place = ChainPlace(points_ + chain.first, points_ + chain.last);
    active.direction = chain.direction;
    GoDown(active.place, y_, [](Point, Point) {});
    entries_.push_back({0, place});
}

void SmoothScan::EnterChainsOf(std::int32_t row) {
    for (; !waiting_.empty() && waiting_.back().row <= row; waiting_.pop_back()) {
        Enter(waiting_.back().chain);
    }
}

void SmoothScan::RunRow(CoverageSink& sink) {
    if (entries_.empty()) {
        y_ = waiting_.back().row;
    }
    EnterChainsOf(y_);
    const std::int32_t rows = EqualRows();
    for (Entry& entry : entries_) {
        AddCells(active_[entry.chain]);
        entry.first = active_[entry.chain].range.first;
    }
    Sort();
    row_.Clear();
    CoverRow();
    row_.Finish();
    sink.Cover(y_, y_ + rows, row_);
    y_ += rows;
    if (rows > 1) {
        for (const Entry& entry : entries_) {
            active_[entry.chain].place.GoDown(y_);
        }
    }
    LeaveFinished();
}

// From the row on, as long as all chains go straight down and no other enters.
std::int32_t SmoothScan::EqualRows() const {
    double until = waiting_.empty() ? box_.bottom : waiting_.back().row;
    for (const Entry& entry : entries_) {
        const ChainPlace& place = active_[entry.chain].place;
        if (!place.IsVertical() || place.Y() > y_) {
            return 1;
        }
        until = std::min(until, place.LineEnd().y);
    }
    return std::max(1, static_cast<std::int32_t>(std::floor(until)) - y_);
}

void SmoothScan::AddCells(ActiveChain& active) {
    active.atRowTop = active.place;
    active.top = HeightIn(y_, active.place.Y());
    active.range = {};
    GoDown(active.place, y_ + 1, [&](Point from, Point to) {
        const CellRange range = cells_.Add(from.x - box_.left, HeightIn(y_, from.y), to.x - box_.left,
                                           HeightIn(y_, to.y), active.direction);
        active.range.Add(range.first, range.last);
    });
    active.bottom = HeightIn(y_, active.place.Y());
}

// From row to row little changes but where chains cross or many enter.
void SmoothScan::Sort() {
    const auto isBefore = [](const Entry& a, const Entry& b) { return a.first < b.first; };
    std::size_t movesLeft = 16 * entries_.size();
    for (std::size_t i = 1; i < entries_.size(); ++i) {
        const Entry entry = entries_[i];
        std::size_t place = i;
        for (; place > 0 && isBefore(entry, entries_[place - 1]); --place) {
            entries_[place] = entries_[place - 1];
        }
        entries_[place] = entry;
        if (movesLeft < i - place) {
            std::sort(entries_.begin(), entries_.end(), isBefore);
            return;
        }
        movesLeft -= i - place;
    }
}

void SmoothScan::CoverRow() {
    x_ = 0;
    sum_ = 0;
    left_.Clear();
    for (std::size_t i = 0; i < entries_.size();) {
        const CellRange& range = active_[entries_[i].chain].range;
        const std::int32_t first = range.first;
        std::int32_t last = range.last;
        const std::size_t begin = i++;
        for (; i < entries_.size() && entries_[i].first <= last; ++i) {
            last = std::max(last, active_[entries_[i].chain].range.last);
        }
        CoverLevel(std::min(first, box_.Width()));
        CoverShared({&entries_[begin], i - begin}, std::min(last, box_.Width() - 1));
        sum_ += cells_.Take(std::min(last, box_.Width() - 1) + 1);
    }
    CoverLevel(box_.Width());
    cells_.Take(box_.Width());
    cells_.Take(box_.Width() + 1);
}

// Up to a pixel no chain runs through any.
void SmoothScan::CoverLevel(std::int32_t until) {
    if (x_ < until) {
        row_.Add(box_.left + x_, until - x_, CoverageOf(left_.Inside(rule_)));
        x_ = until;
    }
}

// The pixels up to the last, in each of which is one of the chains or more.
void SmoothScan::CoverShared(Entries entries, std::int32_t last) {
    std::uint8_t* coverage = x_ <= last ? row_.Bytes(box_.left + x_, last + 1 - x_) : nullptr;
    sharing_.clear();
    std::size_t next = 0;
    for (; x_ <= last; ++x_) {
        std::erase_if(sharing_, [this](const ActiveChain* chain) {
            const bool isPassed = chain->range.last < x_;
            if (isPassed) {
                Pass(*chain);
            }
            return isPassed;
        });
        for (; next < entries.size() && entries[next].first <= x_; ++next) {
            const ActiveChain& chain = active_[entries[next].chain];
            if (chain.range.last < x_) {
                Pass(chain);
            } else {
                sharing_.push_back(&chain);
            }
        }
        sum_ += cells_.Take(x_);
        *coverage++ = SharedCoverage(x_);
    }
    for (const ActiveChain* const chain : sharing_) {
        Pass(*chain);
    }
    for (; next < entries.size(); ++next) {
        Pass(active_[entries[next].chain]);
    }
}

// Where windings differ by one at most, the areas beside the edges cannot but add up. Where none is 0, all is covered.
std::uint8_t SmoothScan::SharedCoverage(std::int32_t x) {
    const WindingRange range = WindingsWithin();
    if (range.greatest - range.least <= 1) {
        return SumCoverage();
    }
    if (rule_ == FillRule::kNonZero && (range.least > 0 || range.greatest < 0)) {
        return kCovered;
    }
    return AreaCoverage(x);
}

// However the chains may lie; a single one can only lie where it goes down.
WindingRange SmoothScan::WindingsWithin() const {
    WindingRange range = left_.Between(0, kWhole);
    if (sharing_.size() == 1) {
        const ActiveChain& chain = *sharing_.front();
        const WindingRange beside = left_.Between(chain.top, chain.bottom);
        return {std::min(range.least, beside.least + chain.direction),
                std::max(range.greatest, beside.greatest + chain.direction)};
    }
    for (const ActiveChain* const chain : sharing_) {
        (chain->direction < 0 ? range.least : range.greatest) += chain->direction;
    }
    return range;
}

std::uint8_t SmoothScan::AreaCoverage(std::int32_t x) {
    area_.Clear();
    const double left = 1.0 * box_.left + x;
    for (const ActiveChain* const chain : sharing_) {
        ChainPlace place = chain->atRowTop;
        GoDown(place, y_ + 1, [&](Point from, Point to) {
            area_.Add({from.y - y_, to.y - y_, from.x - left, to.x - left, chain->direction});
        });
    }
    return static_cast<std::uint8_t>(area_.Inside(left_, rule_) * kCovered + 0.5);
}

std::uint8_t SmoothScan::SumCoverage() const {
    const std::int64_t area = std::abs(sum_);
    if (rule_ == FillRule::kNonZero) {
        return CoverageOf(std::min<std::int64_t>(area, kWhole));
    }
    const std::int64_t beyondEven = area % (2 * kWhole);
    return CoverageOf(std::min<std::int64_t>(beyondEven, 2 * kWhole - beyondEven));
}

void SmoothScan::LeaveFinished() {
    std::erase_if(entries_, [this](const Entry& entry) {
        const bool isAtEnd = active_[entry.chain].place.IsAtEnd();
        if (isAtEnd) {
            free_.push_back(entry.chain);
        }
        return isAtEnd;
    });
}

} // namespace tn::vec
