// Small pictures written out, and positions in them.
#pragma once

#include "tests/support/Pictures.h"
#include "tests/support/Surfaces.h"

#include "TnGraphics/geometry/TnFixed.h"

#include <cstdint>
#include <initializer_list>

namespace tn::test {

/// A surface of the given rows.
template <class SurfaceType>
SurfaceType SurfaceOf(std::initializer_list<std::initializer_list<ValueOf<SurfaceType>>> rows) {
    const auto width = static_cast<std::int32_t>(rows.begin()->size());
    SurfaceType surface({width, static_cast<std::int32_t>(rows.size())});
    int y = 0;
    for (const auto& row : rows) {
        int x = 0;
        for (const auto value : row) {
            SetPixel(surface, x++, y, value);
        }
        ++y;
    }
    return surface;
}

/// A position of sampling: 65536ths, written as whole pixels and a fraction of one.
constexpr TnFixed At(double position) { return {static_cast<std::int32_t>(position * 65536)}; }

/// The same in 65536ths.
constexpr TnFixed Raw(std::int32_t raw) { return {raw}; }

/// A different value for each pixel of a small picture; all are visible in an image.
constexpr std::uint32_t NumberOf(int x, int y) { return 0x80000000U + static_cast<std::uint32_t>(16 * y + x); }

/// Gives each pixel its number.
template <class SurfaceType> void PaintNumbers(SurfaceType& surface) {
    for (int y = 0; y < surface.Size().y; ++y) {
        for (int x = 0; x < surface.Size().x; ++x) {
            SetPixel(surface, x, y, static_cast<ValueOf<SurfaceType>>(NumberOf(x, y)));
        }
    }
}

} // namespace tn::test
