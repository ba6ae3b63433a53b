// Private: how operations walk a surface, row by row.
#pragma once

#include "TnGraphics/geometry/TnRect.h"

#include <cstddef>

namespace tn {

/// Calls work with an iterator on the first pixel of each row of the rectangle and with the number of pixels in the
/// row.
///
/// The iterator clips, locks, and polls the surface's cancel procedure between the rows.
template <class SurfaceType, class Work> void ForEachRow(SurfaceType& surface, const TnRect& rect, const Work& work) {
    auto row = surface.begin(rect);
    const auto length = static_cast<std::size_t>(row.Bounds().width);
    while (!row.AtEnd()) {
        work(row, length);
        row.NextLine();
    }
}

} // namespace tn
