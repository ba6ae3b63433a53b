// Private: how operations walk a surface, row by row.
#pragma once

#include "TnGraphics/geometry/TnRect.h"

#include <cstddef>

namespace tn {

/// Calls test with an iterator on the first pixel of each row of the rectangle and with the number of pixels in the
/// row, until it returns true. True when it did.
///
/// The iterator clips, locks, and polls the surface's cancel procedure between the rows.
template <class SurfaceType, class Test> bool AnyRow(SurfaceType& surface, const TnRect& rect, const Test& test) {
    auto row = surface.begin(rect);
    const auto length = static_cast<std::size_t>(row.Bounds().width);
    while (!row.AtEnd()) {
        if (test(row, length)) {
            return true;
        }
        row.NextLine();
    }
    return false;
}

/// Calls work as AnyRow calls its test, for every row.
template <class SurfaceType, class Work> void ForEachRow(SurfaceType& surface, const TnRect& rect, const Work& work) {
    AnyRow(surface, rect, [&work](const auto& row, std::size_t length) {
        work(row, length);
        return false;
    });
}

/// Calls test with iterators on the first pixels of both rows, for each pair of rows of two rectangles of one size, and
/// with the number of pixels in a row, until it returns true. True when it did.
///
/// Between the rows the destination's cancel procedure is polled before the source's.
template <class Source, class Destination, class Test>
bool AnyRowPair(const Source& source, const TnRect& sourceRect, Destination& destination, const TnRect& destinationRect,
                const Test& test) {
    auto sourceRow = source.begin(sourceRect);
    auto destinationRow = destination.begin(destinationRect);
    const auto length = static_cast<std::size_t>(destinationRow.Bounds().width);
    while (!sourceRow.AtEnd() && !destinationRow.AtEnd()) {
        if (test(sourceRow, destinationRow, length)) {
            return true;
        }
        destinationRow.NextLine();
        sourceRow.NextLine();
    }
    return false;
}

/// Calls work as AnyRowPair calls its test, for every pair of rows.
template <class Source, class Destination, class Work>
void ForEachRowPair(const Source& source, const TnRect& sourceRect, Destination& destination,
                    const TnRect& destinationRect, const Work& work) {
    AnyRowPair(source, sourceRect, destination, destinationRect,
               [&work](const auto& sourceRow, const auto& destinationRow, std::size_t length) {
                   work(sourceRow, destinationRow, length);
                   return false;
               });
}

} // namespace tn
