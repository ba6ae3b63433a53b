// Private: the area inside an outline within one pixel that two of its chains go through.
#pragma once

#include "TnEngines/vec/scan/Coverage.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace tn::vec {

/// Two chains, a and b, go from the top of a pixel's row to its bottom, and cross wherever they like. x is from the
/// pixel's left side.
class PairArea {
public:
    /// Adds a height within which both are straight. All heights together are 1.
    void Add(double height, double aTop, double aBottom, double bTop, double bBottom) {
        const double top = bTop - aTop;
        const double bottom = bBottom - aBottom;
        if (top * bottom < 0) {
            const double part = top / (top - bottom);
            const double x = aTop + part * (aBottom - aTop);
            AddUncrossed(height * part, aTop, x, bTop, x);
            AddUncrossed(height * (1 - part), x, aBottom, x, bBottom);
        } else {
            AddUncrossed(height, aTop, aBottom, bTop, bBottom);
        }
    }

    /// The area, of 0..1, given the winding to the left of both.
    double Inside(std::int64_t winding, std::int32_t aDirection, std::int32_t bDirection, FillRule rule) const {
        const auto inside = [&](std::int64_t around, double area) { return IsInside(around, rule) ? area : 0; };
        return inside(winding, (a_ + b_ - between_) / 2) +
               inside(winding + aDirection, (between_ + b_ - a_) / 2) + // right of a and left of b
               inside(winding + bDirection, (between_ + a_ - b_) / 2) +
               inside(winding + aDirection + bDirection, 1 - (a_ + b_ + between_) / 2);
    }

private:
    void AddUncrossed(double height, double aTop, double aBottom, double bTop, double bBottom) {
        const double a = height * MeanWithin(aTop, aBottom);
        const double b = height * MeanWithin(bTop, bBottom);
        a_ += a;
        b_ += b;
        between_ += std::abs(b - a);
    }

    // The mean along a line of its x, kept within the pixel.
    static double MeanWithin(double top, double bottom) {
        const auto [least, greatest] = std::minmax(top, bottom);
        if (least >= 0 && greatest <= 1) {
            return (top + bottom) / 2;
        }
        if (greatest - least < kUpright) {
            return std::clamp((top + bottom) / 2, 0.0, 1.0);
        }
        return (AreaUpTo(greatest) - AreaUpTo(least)) / (greatest - least);
    }

    // The integral of x kept within the pixel.
    static double AreaUpTo(double x) { return x <= 0 ? 0 : x >= 1 ? x - 0.5 : x * x / 2; }

    static constexpr double kUpright = 1.0 / (1 << 20);

    double a_ = 0, b_ = 0; // to the left of each
    double between_ = 0;
};

} // namespace tn::vec
