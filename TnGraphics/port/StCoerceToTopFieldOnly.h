/// \file
/// A scope in which an image shows the top field of interlaced video.
#pragma once

#include "TnGraphics/TnExport.h"
#include "TnGraphics/geometry/TnPoint.h"
#include "TnGraphics/port/ClientLock.h"
#include "TnGraphics/port/TnImage.h"

#include <cstdint>

/// While one of these is open, the image has half its height, truncated, and every access sees its rows 0, 2, 4, ... as
/// rows 0, 1, 2, ...: reads, writes, iterators and operations.
///
/// The scope holds the image locked. The content is all of the field meanwhile, and all of the image afterwards: a
/// content rectangle that was set before is lost. An image that is locked already keeps its pixel base.
///
/// \image html gallery/StCoerceToTopFieldOnly.png
class StCoerceToTopFieldOnly {
public:
    /// \throws std::bad_alloc ("bad allocation") for an image without storage, which then stays as it is
    TN_EXPORT explicit StCoerceToTopFieldOnly(const TnImage& image);
    TN_EXPORT ~StCoerceToTopFieldOnly();
    StCoerceToTopFieldOnly(const StCoerceToTopFieldOnly&) = delete;
    StCoerceToTopFieldOnly& operator=(const StCoerceToTopFieldOnly&) = delete;

private:
    void Show(const TnPoint& size, std::uint32_t rowBytes) const;

    tn::ClientLock<TnImage> lock_;
    TnPoint savedSize_;
    std::uint32_t savedRowBytes_;
};
