// Private: how operations walk lines, rows or columns, in groups.
#pragma once

#include "TnGraphics/port/SurfaceIterator.h"

#include <algorithm>
#include <cstdint>

namespace tn {

/// Lines from one call of the cancel procedure to the next.
inline constexpr std::int64_t kLinesInGroup = kLinesPerCancelPoll;

/// Some lines of a walk, by their numbers from its first one.
struct LineGroup {
    std::int64_t first;
    std::int64_t count;
};

/// Calls visit with the lines of a walk in groups that end where the surface's cancel procedure is called, until it
/// returns true.
///
/// \param line  on the first of the lines
/// \param lines how many there are
template <class Iterator, class Visit> void VisitLineGroups(Iterator line, std::int64_t lines, const Visit& visit) {
    for (std::int64_t first = 0; first < lines; first += kLinesInGroup) {
        const LineGroup group = {first, std::min(kLinesInGroup, lines - first)};
        if (visit(group)) {
            return;
        }
        for (std::int64_t n = 0; n < group.count; ++n) {
            line.NextLine();
        }
    }
}

/// VisitLineGroups from the last line to the first, before which a walk ends.
///
/// \param line on the last of the lines
template <class Iterator, class Visit>
void VisitLineGroupsBackward(Iterator line, std::int64_t lines, const Visit& visit) {
    for (std::int64_t left = lines; left > 0; left -= kLinesInGroup) {
        const std::int64_t count = std::min(kLinesInGroup, left);
        if (visit(LineGroup{left - count, count}) || count == left) {
            return;
        }
        for (std::int64_t n = 0; n < count; ++n) {
            line.PreviousLine();
        }
    }
}

} // namespace tn
