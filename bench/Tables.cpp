#include "Tables.h"

#include <algorithm>
#include <cstdio>

namespace tn::bench {
namespace {

using Levels = std::vector<ProcessorLevel>;
using Cells = std::vector<std::string>;

void PrintRow(const Cells& cells) {
    for (const std::string& cell : cells) {
        std::printf("| %s ", cell.c_str());
    }
    std::printf("|\n");
}

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

std::string Number(const char* format, double number) {
    char text[32];
    std::snprintf(text, sizeof(text), format, number);
    return text;
}

/// A ratio past its limit is bold.
std::string Ratio(double ratio, const std::optional<double>& limit) {
    return Number(limit && ratio > *limit ? "**%.2f**" : "%.2f", ratio);
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
        cells.push_back(rival.limit ? Number("%.2f", *rival.limit) : "");
        return cells;
    }

    const Comparison& comparison_;
    const Levels& levels_;
    const BestTime& bestTime_;
};

} // namespace

std::string OursName(const std::string& comparison, ProcessorLevel level) {
    return comparison + "/ours/" + tn::NameOf(level);
}

std::string RivalName(const Comparison& comparison, const Rival& rival) { return comparison.name + "/" + rival.name; }

void PrintSection(const Section& section, const Levels& levels, const BestTime& bestTime) {
    std::vector<Cells> lines;
    for (const Comparison& comparison : section.comparisons) {
        Lines(comparison, levels, bestTime).AppendTo(lines);
    }
    if (lines.empty()) {
        return;
    }
    std::printf("\n### %s\n\n", section.title.c_str());
    const Cells heading = Heading(levels);
    PrintRow(heading);
    PrintRow(Cells(heading.size(), "---"));
    std::ranges::for_each(lines, PrintRow);
}

} // namespace tn::bench
