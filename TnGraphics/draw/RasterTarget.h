// Private: what a raster port draws into.
#pragma once

#include "TnEngines/abi/vec_procedures.h"

namespace tn {

/// A locked surface's pixels as the engine takes them, described once: while it is locked it keeps its shape.
class RasterTarget {
public:
    RasterTarget(const RasterTarget&) = delete;
    RasterTarget& operator=(const RasterTarget&) = delete;
    virtual ~RasterTarget() = default;

    const VecBitmap& Bitmap() const { return bitmap_; }

protected:
    explicit RasterTarget(const VecBitmap& bitmap) : bitmap_(bitmap) {}

private:
    VecBitmap bitmap_;
};

} // namespace tn
