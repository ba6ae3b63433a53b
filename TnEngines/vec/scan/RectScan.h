// Private: the exact coverage of upright rectangles.
#pragma once

#include "TnEngines/vec/path/Outline.h"
#include "TnEngines/vec/scan/Box.h"
#include "TnEngines/vec/scan/Coverage.h"

#include <cstdint>

namespace tn::vec {

/// Gives what SmoothScan does of an outline that IsRect, of which all rows but the first and the last are alike.
class RectScan {
public:
    void Run(const Outline& outline, const Box& clip, CoverageSink& sink);

private:
    void CoverRows(std::int32_t top, std::int32_t bottom, std::int32_t height, CoverageSink& sink);
    void CoverPixel(std::int32_t x, std::int32_t area);

    Box box_;
    Point least_ = {}, greatest_ = {};
    CoverageRow row_;
};

} // namespace tn::vec
