// Private: where a source lands in a destination, and the walk over what they have in common.
#pragma once

#include "TnGraphics/geometry/TnFixed.h"
#include "TnGraphics/geometry/TnPoint.h"
#include "TnGraphics/geometry/TnRect.h"
#include "TnGraphics/port/CalcIterBnds.h"
#include "TnGraphics/rows/RowWalk.h"

#include <cstdint>

namespace tn {

/// The offset in 16.16, of which the low 32 bits are kept.
inline TnFixedPoint ToFixed(const TnPoint& at) {
    const auto shifted = [](std::int32_t pixels) {
        return TnFixed{static_cast<std::int32_t>(static_cast<std::uint32_t>(pixels) << 16)};
    };
    return {shifted(at.x), shifted(at.y)};
}

/// The offset rounded down to whole pixels.
inline TnPoint WholePixels(const TnFixedPoint& at) { return {at.x.IntegerPart(), at.y.IntegerPart()}; }

/// True for an offset between pixels.
inline bool HasFraction(const TnFixedPoint& at) { return at != ToFixed(WholePixels(at)); }

/// Calls work for each row of the overlap of the placed source with the destination and the clip; see ForEachRowPair.
/// \return the overlap in the destination, {0, 0, 0, 0} when there is none
template <class Source, class Destination, class Work>
TnRect PlaceRows(const Source& source, Destination& destination, const TnPoint& at, const TnRect& clip,
                 const Work& work) {
    TnRect sourceRect;
    TnRect destinationRect;
    if (!CalcIterBnds(source.Size(), destination.Size(), at, clip, &sourceRect, &destinationRect)) {
        return {};
    }
    ForEachRowPair(source, sourceRect, destination, destinationRect, work);
    return destinationRect;
}

} // namespace tn
