// What is compared with what. Every line of the tables is one of these; all are measured in one process and run.
#pragma once

#include "Work.h"

#include <optional>
#include <string>
#include <vector>

namespace tn::bench {

/// What a work of ours is measured against: a pass that bounds it, another library, or another work of ours.
struct Rival {
    std::string name;
    Work work;                      ///< None for a work of ours: the comparison of that name, at the same level.
    std::optional<double> limit;    ///< Our time over the rival's may not exceed this; without it, for information.
    std::optional<double> aim = {}; ///< What our time over the rival's is to come to in the end.
};

/// A work of ours beside its rivals, over the same pixels.
struct Comparison {
    std::string name;
    double items; ///< Pixels, or 1, by which times are divided.
    Work ours;
    std::vector<Rival> rivals; ///< None for a work that is shown alone.
};

/// How a table shows rivals.
enum class Layout {
    kLines,   ///< In a line each, all with limits of their own.
    kColumns, ///< In a column each. Ours is compared with the fastest of those that have a limit, and by its limit.
};

/// Comparisons that stand in one table.
struct Section {
    std::string title;
    std::vector<Comparison> comparisons;
    Layout layout = Layout::kLines;
};

Section FillComparisons();
Section WalkComparisons();
Section CopyComparisons();
Section BlendComparisons();
Section OperatorComparisons();
Section TransformComparisons();
Section AlphaFilterComparisons();
Section ContentAreaComparisons();
Section DownSampleComparisons();
Section TextureComparisons();
std::vector<Section> DrawComparisons();

} // namespace tn::bench
