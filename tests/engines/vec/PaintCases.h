// Fills of many coverages.
#pragma once

#include "tests/engines/vec/PortQuestions.h"
#include "tests/models/PaintModels.h"
#include "tests/support/Cases.h"

#include "TnEngines/vec/paint/Levels.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace tn::test {

/// The pixels of a ramp; more than there are coverages.
inline constexpr std::int32_t kRampWidth = 530;

using Coverages = std::vector<int>;

/// A colour's part as the engine takes it.
inline float PartOf(int byte) { return static_cast<float>(byte) / 255; }

inline void SetColor(Canvas& canvas, const model::Channels& color) {
    canvas.AlphaRgb(PartOf(color.alpha), PartOf(color.red), PartOf(color.green), PartOf(color.blue));
}

/// Adds a triangle over a row, of ever more coverage from its left end to its right. The last pixels are covered whole,
/// the first ones not at all.
inline void AddRamp(Canvas& canvas, std::int32_t y) {
    const auto top = static_cast<float>(y);
    canvas.MoveTo(6, top + 1);
    canvas.LineTo(kRampWidth - 8, top);
    canvas.LineTo(kRampWidth, top);
    canvas.LineTo(kRampWidth, top + 1);
    canvas.ClosePath();
}

/// Adds a rectangle over a part of each row's height, ever more of it from the first row to the last.
inline void AddBands(Canvas& canvas) {
    const std::int32_t height = canvas.Layout().height;
    for (std::int32_t y = 0; y < height; ++y) {
        const float part = static_cast<float>(y) / static_cast<float>(height - 1);
        canvas.Rect(0, static_cast<float>(y + 1) - part, kRampWidth, static_cast<float>(y + 1));
    }
}

/// Adds a ramp over each row.
inline void AddRamps(Canvas& canvas) {
    for (std::int32_t y = 0; y < canvas.Layout().height; ++y) {
        AddRamp(canvas, y);
    }
}

using AddShape = void (*)(Canvas&);

/// Coverages that change from pixel to pixel, and such that stay the same for long.
inline constexpr std::array<AddShape, 2> kShapes = {&AddRamps, &AddBands};

inline void FillSmoothly(Canvas& canvas, AddShape addShape) {
    canvas.Smooth();
    addShape(canvas);
    EXPECT_EQ(canvas.Fill(), nullptr);
}

inline void FillRamps(Canvas& canvas) { FillSmoothly(canvas, &AddRamps); }

/// The coverages of a shape's pixels, as white shows them on nothing.
inline Coverages CoveragesOf(AddShape addShape, std::int32_t height) {
    Canvas canvas(kRampWidth, height);
    FillSmoothly(canvas, addShape);
    const std::vector<std::uint32_t> pixels = canvas.Pixels();
    return {pixels.begin(), pixels.end()};
}

/// Runs the body with each instruction set that this processor has.
template <class Body> void ForEachPaintLevel(const Body& body) {
    for (const vec::Level level : vec::kLevels) {
        if (vec::IsSupported(level)) {
            SCOPED_TRACE("level " + std::to_string(static_cast<int>(level)));
            vec::ForceLevel(level);
            body();
        }
    }
    vec::ForceLevel(vec::BestLevel());
}

} // namespace tn::test
