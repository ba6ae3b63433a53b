// Private: what is to be seen of an outline.
#pragma once

#include "TnEngines/vec/path/Outline.h"
#include "TnEngines/vec/scan/Box.h"

namespace tn::vec {

/// The pixels within a clip that an outline reaches.
inline Box VisibleBox(const Outline& outline, const Box& clip) {
    if (outline.Chains().empty()) {
        return {};
    }
    return Intersection(clip, BoxAround(outline.LeastCorner(), outline.GreatestCorner()));
}

} // namespace tn::vec
