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

/// Calls work with iterators on the first pixels of both rows, for each pair of rows of two rectangles of one size, and
/// with the number of pixels in a row.
///
/// Between the rows the destination's cancel procedure is polled before the source's.
template <class Source, class Destination, class Work>
void ForEachRowPair(const Source& source, const TnRect& sourceRect, Destination& destination,
                    const TnRect& destinationRect, const Work& work) {
    auto sourceRow = source.begin(sourceRect);
    auto destinationRow = destination.begin(destinationRect);
    const auto length = static_cast<std::size_t>(destinationRow.Bounds().width);
    while (!sourceRow.AtEnd() && !destinationRow.AtEnd()) {
        work(sourceRow, destinationRow, length);
        destinationRow.NextLine();
        sourceRow.NextLine();
    }
}

} // namespace tn
