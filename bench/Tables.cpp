#include "Tables.h"

#include "ColumnTable.h"

#include <algorithm>
#include <cstdio>

namespace tn::bench {
namespace {

using Levels = std::vector<ProcessorLevel>;

Cells Heading(const Levels& levels) {
    Cells cells = {"work"};
    for (const ProcessorLevel level : levels) {
        cells.push_back(std::string("ours, ") + tn::NameOf(level));
    }
    cells.insert(cells.end(), {"against", "its"});
    for (const ProcessorLevel level : levels) {
        cells.push_back(std::string("ratio, ") + tn::NameOf(level));
    }
    cells.emplace_back("limit");
    return cells;
}

/// What was measured of one comparison: a line for each rival, the first of which tells ours; without rivals one line.
class Lines {
public:
    Lines(const Comparison& comparison, const Levels& levels, const BestTime& bestTime)
        : comparison_(comparison), levels_(levels), bestTime_(bestTime) {}

    void AppendTo(std::vector<Cells>& lines) const {
        if (comparison_.rivals.empty() && IsMeasured()) {
            lines.push_back(LineAlone());
        }
        bool isFirst = true;
        for (const Rival& rival : comparison_.rivals) {
            if (IsMeasured(rival)) {
                lines.push_back(Line(rival, isFirst));
                isFirst = false;
            }
        }
    }

private:
    std::optional<double> Ours(ProcessorLevel level) const { return bestTime_(OursName(comparison_.name, level)); }

    std::optional<double> Its(const Rival& rival, ProcessorLevel level) const {
        return bestTime_(rival.work ? RivalName(comparison_, rival) : OursName(rival.name, level));
    }

    bool IsMeasured() const {
        return std::ranges::all_of(levels_, [&](auto level) { return Ours(level).has_value(); });
    }

    bool IsMeasured(const Rival& rival) const {
        return IsMeasured() && std::ranges::all_of(levels_, [&](auto level) { return Its(rival, level).has_value(); });
    }

    std::string PerItem(double nanoseconds) const { return Number("%.3f", nanoseconds / comparison_.items); }

    Cells OursCells(bool isFirst) const {
        Cells cells = {isFirst ? comparison_.name : ""};
        for (const ProcessorLevel level : levels_) {
            cells.push_back(isFirst ? PerItem(*Ours(level)) : "");
        }
        return cells;
    }

    Cells LineAlone() const {
        Cells cells = OursCells(true);
        cells.resize(Heading(levels_).size());
        return cells;
    }

    Cells Line(const Rival& rival, bool isFirst) const {
        Cells cells = OursCells(isFirst);
        cells.push_back(rival.work ? rival.name : "our " + rival.name);
        cells.push_back(rival.work ? PerItem(*Its(rival, levels_.front())) : "");
        for (const ProcessorLevel level : levels_) {
            cells.push_back(Ratio(*Ours(level) / *Its(rival, level), rival.limit));
        }
        cells.push_back(Limit(rival.limit));
        return cells;
    }

    const Comparison& comparison_;
    const Levels& levels_;
    const BestTime& bestTime_;
};

std::vector<Cells> LinesOf(const Section& section, const Levels& levels, const BestTime& bestTime) {
    std::vector<Cells> lines;
    for (const Comparison& comparison : section.comparisons) {
        Lines(comparison, levels, bestTime).AppendTo(lines);
    }
    return lines;
}

void PrintTitled(const std::string& title, const Cells& heading, const std::vector<Cells>& lines) {
    if (!lines.empty()) {
        std::printf("\n### %s\n\n", title.c_str());
        PrintTable(heading, lines);
    }
}

} // namespace

std::string OursName(const std::string& comparison, ProcessorLevel level) {
    return comparison + "/ours/" + tn::NameOf(level);
}

std::string RivalName(const Comparison& comparison, const Rival& rival) { return comparison.name + "/" + rival.name; }

void PrintSection(const Section& section, const Levels& levels, const BestTime& bestTime) {
    if (section.layout == Layout::kColumns) {
        const ColumnTable table(section, levels, bestTime);
        PrintTitled(section.title, table.Heading(), table.Lines());
    } else {
        PrintTitled(section.title, Heading(levels), LinesOf(section, levels, bestTime));
    }
}

} // namespace tn::bench
