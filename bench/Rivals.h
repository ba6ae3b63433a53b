// The rivals that several comparisons share.
#pragma once

#include "Comparison.h"
#include "ReferencePasses.h"

#include <memory>
#include <utility>

namespace tn::bench {

template <class SurfaceType> using Shared = std::shared_ptr<SurfaceType>;

template <class SurfaceType>
Rival CopyByRows(const Shared<SurfaceType>& from, const Shared<SurfaceType>& to, std::optional<double> limit = {}) {
    return {"memcpy by rows", [from, scratch = std::make_shared<SurfaceType>(*to)] { CopyRows(*from, *scratch); },
            limit};
}

/// Works on a copy of the second surface, which it spoils.
template <class SurfaceType>
Rival ReadReadWrite(const Shared<SurfaceType>& from, const Shared<SurfaceType>& to, std::optional<double> limit = {}) {
    return {"read + read + write",
            [from, scratch = std::make_shared<SurfaceType>(*to)] { ReadReadWriteRows(*from, *scratch); }, limit};
}

/// Another work of ours, at the same level.
inline Rival Ours(std::string name, std::optional<double> limit = {}) { return {std::move(name), nullptr, limit}; }

} // namespace tn::bench
