#include "TableCells.h"

#include <algorithm>
#include <cstdio>

namespace tn::bench {

void PrintRow(const Cells& cells) {
    for (const std::string& cell : cells) {
        std::printf("| %s ", cell.c_str());
    }
    std::printf("|\n");
}

void PrintTable(const Cells& heading, const std::vector<Cells>& lines) {
    PrintRow(heading);
    PrintRow(Cells(heading.size(), "---"));
    std::ranges::for_each(lines, PrintRow);
}

std::string Number(const char* format, double number) {
    char text[32];
    std::snprintf(text, sizeof(text), format, number);
    return text;
}

std::string Ratio(double ratio, const std::optional<double>& limit) {
    return Number(limit && ratio > *limit ? "**%.2f**" : "%.2f", ratio);
}

std::string Limit(const std::optional<double>& limit) { return limit ? Number("%.2f", *limit) : ""; }

} // namespace tn::bench
