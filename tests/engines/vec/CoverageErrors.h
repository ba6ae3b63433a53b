// Comparing painted coverage with exact coverage.
#pragma once

#include "tests/engines/vec/Canvas.h"
#include "tests/models/CoverageModels.h"
#include "tests/support/Random.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <gtest/gtest.h>

namespace tn::test {

/// How far painted levels are from exact ones, over partly covered pixels.
class CoverageErrors {
public:
    void Note(double exact, double painted) {
        if (exact > kWhole && exact < 255 - kWhole) {
            ++count_;
            squares_ += (painted - exact) * (painted - exact);
            worst_ = std::max(worst_, std::abs(painted - exact));
        }
    }

    std::int64_t Count() const { return count_; }
    double Worst() const { return worst_; }
    double RootMeanSquare() const { return count_ == 0 ? 0 : std::sqrt(squares_ / static_cast<double>(count_)); }

private:
    static constexpr double kWhole = 1e-9;

    std::int64_t count_ = 0;
    double squares_ = 0;
    double worst_ = 0;
};

/// A test that leaves what it measured in its results.
class MeasuredDrawing : public Drawing {
protected:
    void TearDown() override {
        Record("pixels", static_cast<double>(errors_.Count()));
        Record("worst", errors_.Worst());
        Record("rootMeanSquare", errors_.RootMeanSquare());
    }

    CoverageErrors errors_;
};

/// From low to high.
inline double NumberBetween(Random& random, double low, double high) {
    return low + (high - low) * (random.Word() * 0x1p-32);
}

/// As the engine is told it: in single precision.
inline model::Vertex PointBetween(Random& random, double low, double high) {
    const auto x = static_cast<float>(NumberBetween(random, low, high));
    const auto y = static_cast<float>(NumberBetween(random, low, high));
    return {x, y};
}

inline void AddPolygons(Canvas& canvas, const model::Polygons& polygons) {
    for (const model::Polygon& polygon : polygons) {
        canvas.Polygon(polygon);
    }
}

inline void PaintPolygons(Canvas& canvas, const model::Polygons& polygons, model::FillRule rule) {
    AddPolygons(canvas, polygons);
    EXPECT_EQ(rule == model::FillRule::kNonZero ? canvas.Fill() : canvas.EOFill(), nullptr);
}

/// The exact coverage of all pixels of a canvas.
inline model::CoverageMap ExactCoverage(const Canvas& canvas, const model::Polygons& polygons) {
    const CanvasLayout& layout = canvas.Layout();
    return model::CoverageOf(polygons, layout.left, layout.top, layout.width, layout.height);
}

/// Fails at the first pixel that is farther from the exact level than the limit allows for it.
template <class Limit>
void ExpectCoverage(const Canvas& canvas, const model::CoverageMap& map, model::FillRule rule, const Limit& limit,
                    CoverageErrors& errors) {
    constexpr double kNothing = 1e-6;
    for (std::int32_t y = map.top; y < map.top + map.height; ++y) {
        for (std::int32_t x = map.left; x < map.left + map.width; ++x) {
            const model::PixelCoverage& pixel = map.At(x, y);
            const double exact = 255 * pixel.By(rule);
            const double painted = canvas.Get(x, y);
            errors.Note(exact, painted);
            if (std::abs(painted - exact) > limit(pixel) + kNothing) {
                ADD_FAILURE() << "pixel " << x << ", " << y << " is " << painted << " and should be " << exact
                              << "; edges: " << pixel.edges;
                return;
            }
        }
    }
}

} // namespace tn::test
