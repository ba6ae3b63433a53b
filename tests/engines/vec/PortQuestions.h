// Short forms of what tests ask of a canvas and of its port.
#pragma once

#include "tests/engines/vec/Canvas.h"

#include <array>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <vector>

namespace tn::test {

using Rows = std::vector<std::string>;

/// The rows of a canvas of bytes or bits as text: '#' for full coverage, '.' for none, '+' for any else.
inline Rows Picture(const Canvas& canvas) {
    const CanvasLayout& layout = canvas.Layout();
    const std::uint32_t full = layout.bitsPerPixel == 1 ? 1 : 255;
    Rows rows;
    for (std::int32_t y = layout.top; y < layout.top + layout.height; ++y) {
        std::string row;
        for (std::int32_t x = layout.left; x < layout.left + layout.width; ++x) {
            const std::uint32_t pixel = canvas.Get(x, y);
            row += pixel == full ? '#' : pixel == 0 ? '.' : '+';
        }
        rows.push_back(row);
    }
    return rows;
}

/// The covered area of a canvas of bytes, in pixels.
inline double Area(const Canvas& canvas) {
    double sum = 0;
    for (const std::uint32_t pixel : canvas.Pixels()) {
        sum += pixel;
    }
    return sum / 255;
}

inline bool IsBlank(const Canvas& canvas) {
    const std::vector<std::uint32_t> pixels = canvas.Pixels();
    return std::all_of(pixels.begin(), pixels.end(), [](std::uint32_t pixel) { return pixel == 0; });
}

/// The greatest difference between the bytes of canvases of one size.
inline std::int64_t GreatestDifference(const Canvas& a, const Canvas& b) {
    const std::vector<std::uint32_t> left = a.Pixels();
    const std::vector<std::uint32_t> right = b.Pixels();
    EXPECT_EQ(left.size(), right.size());
    std::int64_t greatest = 0;
    for (std::size_t i = 0; i < left.size(); ++i) {
        greatest = std::max(greatest, std::abs(std::int64_t{left[i]} - std::int64_t{right[i]}));
    }
    return greatest;
}

/// A canvas's procedures that are asked for by kind.
inline void Do(const Canvas& canvas, abi::Port place) { canvas.Call<VecPortCommandType>(place); }
inline std::int32_t Ask(const Canvas& canvas, abi::Port place) { return canvas.Call<VecPortQueryType>(place); }
inline float NumberOf(const Canvas& canvas, abi::Port place) { return canvas.Call<VecPortGetNumberType>(place); }

using Numbers2 = std::array<float, 2>;
using Numbers4 = std::array<float, 4>;
using Numbers6 = std::array<float, 6>;

inline std::optional<Numbers2> CurrentPoint(const Canvas& canvas) {
    VecPoint point{};
    if (canvas.Call<VecPortGetPointType>(abi::Port::kGetCurrentPoint, &point) == 0) {
        return std::nullopt;
    }
    return Numbers2{point.x, point.y};
}

/// A rectangle that a port tells: left, top, right and bottom.
inline std::optional<Numbers4> RectOf(const Canvas& canvas, abi::Port place) {
    VecRect rect{};
    if (canvas.Call<VecPortGetRectType>(place, &rect) == 0) {
        return std::nullopt;
    }
    return Numbers4{rect.left, rect.top, rect.right, rect.bottom};
}
inline std::optional<Numbers4> PathBounds(const Canvas& canvas) { return RectOf(canvas, abi::Port::kGetPathBounds); }
inline std::optional<Numbers4> ClipBounds(const Canvas& canvas) { return RectOf(canvas, abi::Port::kGetClipBounds); }

inline Numbers6 MatrixOf(const Canvas& canvas) {
    const VecMatrix m = canvas.GetMatrix();
    return {m.a, m.b, m.c, m.d, m.tx, m.ty};
}

/// A point taken through a matrix procedure; nothing where there is no such point.
inline std::optional<Numbers2> Moved(const Canvas& canvas, abi::Port place, float x, float y) {
    VecPoint point = {x, y};
    if (canvas.Call<VecPortGetPointType>(place, &point) == 0) {
        return std::nullopt;
    }
    return Numbers2{point.x, point.y};
}

/// A new colour with one reference.
inline HuexColor NewColor(HuexColorSpace space, const float* components, std::int32_t count) {
    return Procedure<HuexNewColorType>(abi::kColorInterface, abi::kColorProcedures,
                                       abi::Color::kNewColor)(space, components, count);
}
inline void Release(HuexColor color) {
    Procedure<HuexColorReleaseType>(abi::kColorInterface, abi::kColorProcedures, abi::Color::kRelease)(color);
}

/// Makes a port paint white.
inline void PaintWhite(VecPort port) {
    const float white = 1;
    const HuexColor color = NewColor(kHuexGray, &white, 1);
    CallOn<VecPortSetColorServerV4Type>(port, abi::Port::kSetColorServer, color, std::int32_t{0}, std::int32_t{0});
    Release(color);
}

inline bool IsPointIn(const Canvas& canvas, abi::Port place, float x, float y) {
    return canvas.Call<VecPortPointQueryType>(place, x, y) != 0;
}

inline std::int32_t Depth(const Canvas& canvas) { return Ask(canvas, abi::Port::kGetSaveDepth); }

/// Expects an error of the engine's own.
inline void ExpectOwnError(KelError error) {
    ASSERT_NE(error, nullptr);
    const ErrorProcedures errors;
    EXPECT_STRNE(errors.component(error), "");
    EXPECT_STRNE(errors.component(error), abi::kCoreComponent);
}

/// Expects the error of exhausted memory.
inline void ExpectExhausted(KelError error) {
    ASSERT_NE(error, nullptr);
    const ErrorProcedures errors;
    EXPECT_STREQ(errors.component(error), abi::kCoreComponent);
    EXPECT_EQ(errors.number(error), abi::kOutOfMemory);
}

inline constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
inline constexpr float kInfinity = std::numeric_limits<float>::infinity();

} // namespace tn::test
