// Tables with a column for each rival, where all comparisons of a section have much the same ones.
#pragma once

#include "TableCells.h"
#include "Tables.h"

namespace tn::bench {

/// The columns are ours, the rivals, those with a limit first, ours over the fastest rival that has a limit, and where
/// ours aims at a part of a rival's time, ours over that one.
class ColumnTable {
public:
    ColumnTable(const Section& section, const std::vector<ProcessorLevel>& levels, const BestTime& bestTime);

    Cells Heading() const;

    /// A line for each comparison that was measured.
    std::vector<Cells> Lines() const;

private:
    using Time = std::optional<double>;

    void AppendRivals(bool isLimited);

    Time Ours(const Comparison& comparison, ProcessorLevel level) const;
    Time Its(const Comparison& comparison, const Rival& rival) const;
    const Rival* Fastest(const Comparison& comparison) const;
    const Rival* AimedAt(const Comparison& comparison) const;
    bool IsMeasured(const Comparison& comparison) const;

    Cells Line(const Comparison& comparison) const;
    void AppendTimes(Cells& cells, const Comparison& comparison) const;
    void AppendRatios(Cells& cells, const Comparison& comparison, const Rival* rival,
                      const std::optional<double>& limit) const;

    const Section& section_;
    const std::vector<ProcessorLevel>& levels_;
    const BestTime& bestTime_;
    Cells rivals_;
    std::string aimedAt_; ///< Empty where none is.
};

} // namespace tn::bench
