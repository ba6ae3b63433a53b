// Results as tables of Markdown.
#pragma once

#include "Comparison.h"

#include "TnGraphics/rows/ProcessorLevel.h"

#include <functional>

namespace tn::bench {

/// The best time of a benchmark in nanoseconds; none when it did not run.
using BestTime = std::function<std::optional<double>(const std::string& benchmark)>;

std::string OursName(const std::string& comparison, ProcessorLevel level);
std::string RivalName(const Comparison& comparison, const Rival& rival);

void PrintSection(const Section& section, const std::vector<ProcessorLevel>& levels, const BestTime& bestTime);

} // namespace tn::bench
