#include "ColumnTable.h"

#include <algorithm>

namespace tn::bench {
namespace {

/// What an aim's times may be exceeded by at first.
constexpr double kFirstMilestone = 1.5;

std::string PerItem(const Comparison& comparison, const std::optional<double>& nanoseconds) {
    return nanoseconds ? Number("%.3f", *nanoseconds / comparison.items) : "";
}

const Rival* Named(const Comparison& comparison, const std::string& name) {
    const auto found = std::ranges::find(comparison.rivals, name, &Rival::name);
    return found == comparison.rivals.end() ? nullptr : &*found;
}

std::optional<double> AimOf(const Rival* rival) { return rival == nullptr ? std::nullopt : rival->aim; }

std::optional<double> MilestoneOf(const Rival* rival) {
    const std::optional<double> aim = AimOf(rival);
    return aim ? std::optional(kFirstMilestone * *aim) : std::nullopt;
}

std::optional<double> LimitOf(const Rival* rival) { return rival == nullptr ? std::nullopt : rival->limit; }

} // namespace

ColumnTable::ColumnTable(const Section& section, const std::vector<ProcessorLevel>& levels, const BestTime& bestTime)
    : section_(section), levels_(levels), bestTime_(bestTime) {
    AppendRivals(true);
    AppendRivals(false);
}

void ColumnTable::AppendRivals(bool isLimited) {
    for (const Comparison& comparison : section_.comparisons) {
        for (const Rival& rival : comparison.rivals) {
            if (rival.limit.has_value() == isLimited && std::ranges::find(rivals_, rival.name) == rivals_.end()) {
                rivals_.push_back(rival.name);
            }
            if (rival.aim) {
                aimedAt_ = rival.name;
            }
        }
    }
}

Cells ColumnTable::Heading() const {
    Cells cells = {"work"};
    const auto appendForLevels = [&](const std::string& what) {
        for (const ProcessorLevel level : levels_) {
            cells.push_back(what + ", " + tn::NameOf(level));
        }
    };
    appendForLevels("ours");
    cells.insert(cells.end(), rivals_.begin(), rivals_.end());
    appendForLevels("ratio");
    cells.emplace_back("limit");
    if (!aimedAt_.empty()) {
        appendForLevels("of " + aimedAt_);
        cells.emplace_back("aim");
    }
    return cells;
}

std::vector<Cells> ColumnTable::Lines() const {
    std::vector<Cells> lines;
    for (const Comparison& comparison : section_.comparisons) {
        if (IsMeasured(comparison)) {
            lines.push_back(Line(comparison));
        }
    }
    return lines;
}

ColumnTable::Time ColumnTable::Ours(const Comparison& comparison, ProcessorLevel level) const {
    return bestTime_(OursName(comparison.name, level));
}

ColumnTable::Time ColumnTable::Its(const Comparison& comparison, const Rival& rival) const {
    return bestTime_(RivalName(comparison, rival));
}

bool ColumnTable::IsMeasured(const Comparison& comparison) const {
    return std::ranges::all_of(levels_, [&](auto level) { return Ours(comparison, level).has_value(); });
}

/// Null where none was measured.
const Rival* ColumnTable::Fastest(const Comparison& comparison) const {
    const Rival* fastest = nullptr;
    for (const Rival& rival : comparison.rivals) {
        const Time time = rival.limit ? Its(comparison, rival) : std::nullopt;
        if (time && (fastest == nullptr || *time < *Its(comparison, *fastest))) {
            fastest = &rival;
        }
    }
    return fastest;
}

const Rival* ColumnTable::AimedAt(const Comparison& comparison) const {
    const Rival* const rival = Named(comparison, aimedAt_);
    return rival != nullptr && Its(comparison, *rival) ? rival : nullptr;
}

Cells ColumnTable::Line(const Comparison& comparison) const {
    Cells cells = {comparison.name};
    AppendTimes(cells, comparison);
    const Rival* const fastest = Fastest(comparison);
    AppendRatios(cells, comparison, fastest, LimitOf(fastest));
    cells.push_back(Limit(LimitOf(fastest)));
    if (!aimedAt_.empty()) {
        const Rival* const aimedAt = AimedAt(comparison);
        AppendRatios(cells, comparison, aimedAt, MilestoneOf(aimedAt));
        cells.push_back(Limit(AimOf(aimedAt)));
    }
    return cells;
}

void ColumnTable::AppendTimes(Cells& cells, const Comparison& comparison) const {
    for (const ProcessorLevel level : levels_) {
        cells.push_back(PerItem(comparison, Ours(comparison, level)));
    }
    for (const std::string& name : rivals_) {
        const Rival* const rival = Named(comparison, name);
        cells.push_back(rival == nullptr ? "" : PerItem(comparison, Its(comparison, *rival)));
    }
}

void ColumnTable::AppendRatios(Cells& cells, const Comparison& comparison, const Rival* rival,
                               const std::optional<double>& limit) const {
    for (const ProcessorLevel level : levels_) {
        cells.push_back(rival == nullptr ? "" : Ratio(*Ours(comparison, level) / *Its(comparison, *rival), limit));
    }
}

} // namespace tn::bench
