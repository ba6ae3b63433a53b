#include "TnEngines/vec/scan/SmoothScan.h"

#include "TnEngines/vec/scan/PairArea.h"
#include "TnEngines/vec/scan/VisibleBox.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace tn::vec {
namespace {

// Room for most shapes.
constexpr std::size_t kFewChains = 8;

std::int32_t HeightIn(std::int32_t row, double y) { return static_cast<std::int32_t>((y - row) * kWhole); }

} // namespace

void SmoothScan::Run(const Outline& outline, FillRule rule, const Box& clip, CoverageSink& sink) {
    box_ = VisibleBox(outline, clip);
    if (box_.IsEmpty()) {
        return;
    }
    rule_ = rule;
    Prepare(outline);
    while (y_ < box_.bottom && (!entries_.empty() || !waiting_.empty())) {
        RunRow(sink);
    }
}

// From row to row

void SmoothScan::Prepare(const Outline& outline) {
    points_ = outline.Points().data();
    cells_.Reset(box_.Width());
    row_.Reset(box_.left, box_.Width());
    active_.clear();
    free_.clear();
    entries_.clear();
    waiting_.clear();
    waiting_.reserve(outline.Chains().size());
    active_.reserve(kFewChains);
    entries_.reserve(kFewChains);
    free_.reserve(kFewChains);
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
    auto place = static_cast<std::uint32_t>(active_.size());
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
    row_.Clear();
    GoThroughRow();
    CoverRow();
    sink.Cover(y_, y_ + rows, row_);
    y_ += rows;
    if (rows > 1) {
        for (const Entry& entry : entries_) {
            ChainPlace& place = active_[entry.chain].place;
            place.GoDown(y_);
            hasFinished_ = hasFinished_ || place.IsAtEnd();
        }
    }
    if (hasFinished_) {
        LeaveFinished();
    }
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

void SmoothScan::GoThroughRow() {
    bool isSorted = true;
    std::int32_t before = INT32_MIN;
    hasFinished_ = false;
    for (Entry& entry : entries_) {
        ActiveChain& active = active_[entry.chain];
        if (active.place.Y() == y_ && active.place.LineEnd().y >= y_ + 1) {
            GoThroughWhole(active);
        } else {
            GoThroughLines(active);
        }
        hasFinished_ = hasFinished_ || active.place.IsAtEnd();
        entry.first = active.range.first;
        isSorted = isSorted && entry.first >= before;
        before = entry.first;
    }
    if (!isSorted) {
        Sort();
    }
}

inline void SmoothScan::GoThroughWhole(ActiveChain& active) {
    active.atRowTop = active.place;
    active.place.GoDown(y_ + 1);
    active.line = RowLine(FixedX(active.atRowTop), FixedX(active.place), kWhole * active.direction);
    active.left = active.line.Left();
    active.right = active.line.Right();
    active.range = RowLine::RangeOf(active.left, active.right);
    active.isInCells = false;
    active.top = 0;
    active.bottom = kWhole;
}

void SmoothScan::GoThroughLines(ActiveChain& active) {
    ChainPlace place = active.atRowTop = active.place;
    std::int64_t x = FixedX(place);
    std::int64_t left = x, right = x;
    std::int32_t height = active.top = HeightIn(y_, place.Y());
    do {
        place.GoDown(y_ + 1);
        const std::int64_t xReached = FixedX(place);
        const std::int32_t reached = HeightIn(y_, place.Y());
        cells_.Add(RowLine(x, xReached, (reached - height) * active.direction));
        left = std::min(left, xReached);
        right = std::max(right, xReached);
        x = xReached;
        height = reached;
    } while (height < kWhole && !place.IsAtEnd());
    active.place = place;
    active.left = left;
    active.right = right;
    active.range = RowLine::RangeOf(left, right);
    active.isInCells = true;
    active.bottom = height;
}

void SmoothScan::LeaveFinished() {
    std::size_t kept = 0;
    for (const Entry& entry : entries_) {
        if (active_[entry.chain].place.IsAtEnd()) {
            free_.push_back(entry.chain);
        } else {
            entries_[kept++] = entry;
        }
    }
    entries_.resize(kept);
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

inline std::uint8_t SmoothScan::SumCoverage(std::int64_t sum) const {
    const std::int64_t area = std::abs(sum);
    if (rule_ == FillRule::kNonZero) {
        return CoverageOf(std::min<std::int64_t>(area, kWhole));
    }
    const std::int64_t beyondEven = area & (2 * kWhole - 1);
    return CoverageOf(std::min<std::int64_t>(beyondEven, 2 * kWhole - beyondEven));
}

// Up to a pixel no chain runs through any.
inline void SmoothScan::CoverLevel(std::int32_t until) {
    if (x_ < until) {
        row_.Add(box_.left + x_, until - x_, CoverageOf(left_.Inside(rule_)));
        x_ = until;
    }
}

void SmoothScan::CoverRow() {
    x_ = 0;
    sum_ = 0;
    if (IsPair()) {
        CoverPair();
        return;
    }
    left_.Clear();
    const std::int32_t width = box_.Width();
    for (std::size_t i = 0; i < entries_.size();) {
        const std::size_t begin = i;
        const ActiveChain& chain = active_[entries_[i].chain];
        std::int32_t last = chain.range.last;
        for (++i; i < entries_.size() && entries_[i].first <= last; ++i) {
            last = std::max(last, active_[entries_[i].chain].range.last);
        }
        last = std::clamp(last, -1, width - 1);
        CoverLevel(std::clamp(chain.range.first, 0, width));
        if (i - begin == 1 && left_.IsLevel()) {
            CoverAlone(chain, last);
        } else {
            CoverShared({&entries_[begin], i - begin}, last);
        }
    }
    CoverLevel(width);
    cells_.Take(width);
    cells_.Take(width + 1);
}

// True where two chains go through all of the row and bound its only stretch that is inside, as in most rows of most
// shapes.
bool SmoothScan::IsPair() const {
    if (entries_.size() != 2) {
        return false;
    }
    const ActiveChain& left = active_[entries_[0].chain];
    const ActiveChain& right = active_[entries_[1].chain];
    return left.direction + right.direction == 0 && left.IsThrough() && right.IsThrough() &&
           left.range.last < right.range.first;
}

void SmoothScan::CoverPair() {
    const ActiveChain& left = active_[entries_[0].chain];
    const ActiveChain& right = active_[entries_[1].chain];
    const std::int32_t width = box_.Width();
    x_ = std::clamp(left.range.first, 0, width);
    CoverBeside(left, 0, std::clamp(left.range.last, -1, width - 1));
    if (const std::int32_t until = std::clamp(right.range.first, 0, width); x_ < until) {
        row_.Add(box_.left + x_, until - x_, kCovered);
        x_ = until;
    }
    CoverBeside(right, left.direction, std::clamp(right.range.last, -1, width - 1));
    cells_.Take(width);
    cells_.Take(width + 1);
}

// The pixels up to the last, in which is no other chain.
void SmoothScan::CoverAlone(const ActiveChain& chain, std::int32_t last) {
    const std::int64_t winding = left_.AtTop();
    if (!chain.isInCells && IsInside(winding, rule_) == IsInside(winding + chain.direction, rule_)) {
        CoverLevel(last + 1);
        sum_ += kWhole * chain.direction;
    } else {
        CoverBeside(chain, winding, last);
    }
    Pass(chain);
}

// The same, given the winding to the chain's left, where that is the same all the way down.
inline void SmoothScan::CoverBeside(const ActiveChain& chain, std::int64_t winding, std::int32_t last) {
    if (chain.isInCells) {
        CoverFromCells(last);
        return;
    }
    if (chain.range.first == x_ && chain.range.last == x_ && x_ == last) {
        *row_.Bytes(box_.left + x_, 1) = SumCoverage(winding * kWhole + chain.line.AreaIn(x_));
        ++x_;
    } else if (x_ <= last) {
        CoverBesideLine(chain.line, winding, last);
    }
    sum_ += kWhole * chain.direction;
}

inline void SmoothScan::CoverFromCells(std::int32_t last) {
    if (x_ <= last) {
        std::uint8_t* coverage = row_.Bytes(box_.left + x_, last + 1 - x_);
        std::int64_t sum = sum_;
        for (std::int32_t x = x_; x <= last; ++x) {
            sum += cells_.Take(x);
            *coverage++ = SumCoverage(sum);
        }
        sum_ = sum;
        x_ = last + 1;
    }
    sum_ += cells_.Take(last + 1);
}

void SmoothScan::CoverBesideLine(const RowLine& line, std::int64_t winding, std::int32_t last) {
    std::uint8_t* const coverage = row_.Bytes(box_.left + x_, last + 1 - x_);
    line.ForEachCell(box_.Width(), [&](std::int32_t x, std::int32_t before, std::int32_t height, std::int32_t beside) {
        coverage[x - x_] = SumCoverage(winding * kWhole + before + height - beside);
    });
    x_ = last + 1;
}

// The pixels up to the last, in each of which is one of the chains or more.
void SmoothScan::CoverShared(Entries entries, std::int32_t last) {
    for (const Entry& entry : entries) {
        const ActiveChain& chain = active_[entry.chain];
        if (!chain.isInCells) {
            cells_.Add(chain.line);
        }
    }
    std::uint8_t* coverage = x_ <= last ? row_.Bytes(box_.left + x_, last + 1 - x_) : nullptr;
    sharing_.clear();
    while (x_ <= last) {
        const std::int32_t until = std::min(last, ShareFrom(x_, entries));
        const Sharing sharing = HowTheyShare();
        for (; x_ <= until; ++x_) {
            sum_ += cells_.Take(x_);
            *coverage++ = SharedCoverage(sharing, x_);
        }
    }
    for (const ActiveChain* const chain : sharing_) {
        Pass(*chain);
    }
    for (const Entry& entry : entries) {
        Pass(active_[entry.chain]);
    }
    sum_ += cells_.Take(last + 1);
}

// The chains that share a pixel; the others are passed, or are left in the entries. Gives the last pixel that they
// share.
std::int32_t SmoothScan::ShareFrom(std::int32_t x, Entries& entries) {
    std::size_t kept = 0;
    std::int32_t until = INT32_MAX;
    const auto share = [&](const ActiveChain& chain) {
        if (chain.range.last < x) {
            Pass(chain);
            return false;
        }
        until = std::min(until, chain.range.last);
        return true;
    };
    for (const ActiveChain* const chain : sharing_) {
        if (share(*chain)) {
            sharing_[kept++] = chain;
        }
    }
    sharing_.resize(kept);
    for (; !entries.empty() && entries.front().first <= x; entries = entries.subspan(1)) {
        const ActiveChain& chain = active_[entries.front().chain];
        if (share(chain)) {
            sharing_.push_back(&chain);
        }
    }
    return entries.empty() ? until : std::min(until, entries.front().first - 1);
}

// Where windings differ by one at most, the areas beside the chains cannot but add up. Where none is 0, all is covered.
SmoothScan::Sharing SmoothScan::HowTheyShare() const {
    const WindingRange range = WindingsWithin();
    if (range.greatest - range.least <= 1) {
        return Sharing::kAddUp;
    }
    const bool isCovered = rule_ == FillRule::kNonZero && (range.least > 0 || range.greatest < 0);
    return isCovered ? Sharing::kCoverAll : Sharing::kOverlap;
}

std::uint8_t SmoothScan::SharedCoverage(Sharing sharing, std::int32_t x) {
    switch (sharing) {
    case Sharing::kAddUp:
        return SumCoverage(sum_);
    case Sharing::kCoverAll:
        return kCovered;
    case Sharing::kOverlap:
        break;
    }
    return AreaCoverage(x);
}

// However the chains may lie, as far as that is not plain to see: a single chain lies where it goes down, and of two
// that do not cross one lies to the left.
WindingRange SmoothScan::WindingsWithin() const {
    WindingRange range = left_.Between(0, kWhole);
    if (sharing_.size() == 1) {
        const ActiveChain& chain = *sharing_.front();
        range.Add(left_.Between(chain.top, chain.bottom) + chain.direction);
        return range;
    }
    if (sharing_.size() == 2) {
        const ActiveChain& a = *sharing_[0];
        const ActiveChain& b = *sharing_[1];
        const bool isBefore = a.atRowTop.X() + a.place.X() <= b.atRowTop.X() + b.place.X();
        const ActiveChain& left = isBefore ? a : b;
        if (a.top == b.top && a.bottom == b.bottom && IsBeside(left, isBefore ? b : a)) {
            const WindingRange beside = left_.Between(a.top, a.bottom);
            range.Add(beside + left.direction);
            range.Add(beside + (a.direction + b.direction));
            return range;
        }
    }
    for (const ActiveChain* const chain : sharing_) {
        (chain->direction < 0 ? range.least : range.greatest) += chain->direction;
    }
    return range;
}

// True where all of a chain is to the left of all of another at the same height. Both go down the same heights.
bool SmoothScan::IsBeside(const ActiveChain& left, const ActiveChain& right) const {
    if (left.right <= right.left) {
        return true;
    }
    if (!left.isInCells && !right.isInCells) {
        return left.atRowTop.X() <= right.atRowTop.X() && left.place.X() <= right.place.X();
    }
    ChainPlace a = left.atRowTop;
    ChainPlace b = right.atRowTop;
    while (a.X() <= b.X()) {
        if (a.Y() >= y_ + 1 || a.IsAtEnd() || b.IsAtEnd()) {
            return true;
        }
        GoDownTogether(a, b);
    }
    return false;
}

// As far as both are straight.
void SmoothScan::GoDownTogether(ChainPlace& a, ChainPlace& b) const {
    const double height = std::min({a.LineEnd().y, b.LineEnd().y, y_ + 1.0});
    a.GoDown(height);
    b.GoDown(height);
}

std::uint8_t SmoothScan::AreaCoverage(std::int32_t x) {
    const bool isPair = sharing_.size() == 2 && left_.IsLevel() && sharing_[0]->IsThrough() && sharing_[1]->IsThrough();
    return NearestByte((isPair ? PairInside(x) : AnyInside(x)) * kCovered);
}

double SmoothScan::PairInside(std::int32_t x) const {
    const double left = 1.0 * box_.left + x;
    ChainPlace a = sharing_[0]->atRowTop;
    ChainPlace b = sharing_[1]->atRowTop;
    PairArea area;
    while (a.Y() < y_ + 1) {
        const double top = a.Y();
        const double aTop = a.X() - left;
        const double bTop = b.X() - left;
        GoDownTogether(a, b);
        area.Add(a.Y() - top, aTop, a.X() - left, bTop, b.X() - left);
    }
    return area.Inside(left_.AtTop(), sharing_[0]->direction, sharing_[1]->direction, rule_);
}

double SmoothScan::AnyInside(std::int32_t x) {
    const double left = 1.0 * box_.left + x;
    area_.Clear();
    for (const ActiveChain* const chain : sharing_) {
        ChainPlace place = chain->atRowTop;
        GoDown(place, y_ + 1, [&](Point from, Point to) {
            area_.Add({from.y - y_, to.y - y_, from.x - left, to.x - left, chain->direction});
        });
    }
    return area_.Inside(left_, rule_);
}

} // namespace tn::vec
