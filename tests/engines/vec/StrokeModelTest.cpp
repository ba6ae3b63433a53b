// Smooth strokes against the union of what they are made of.
#include "tests/engines/vec/CoverageErrors.h"
#include "tests/models/StrokeModels.h"
#include "tests/support/Cases.h"

#include <cmath>
#include <vector>

namespace tn::test {
namespace {

using model::Cap;
using model::Join;
using model::Stroked;
using model::StrokePath;
using model::StrokeStyle;
using model::UserMatrix;
using model::Vertex;

constexpr double kCurveError = 1.0 / 1024;

// Lines on which the model measures a pixel. Straight borders may lie along them, curved ones do not.
constexpr int kLines = 256;
constexpr int kLinesForCurves = 64;

/// A path, which the engine and the model are told alike.
class Pen {
public:
    Pen(Canvas& canvas, double scale) : canvas_(canvas), error_(kCurveError / scale) {}

    void MoveTo(const Vertex& to) {
        canvas_.MoveTo(static_cast<float>(to.x), static_cast<float>(to.y));
        paths_.emplace_back().Add(to);
    }
    void LineTo(const Vertex& to) {
        canvas_.LineTo(static_cast<float>(to.x), static_cast<float>(to.y));
        paths_.back().Add(to);
    }
    void CurveTo(const Vertex& a, const Vertex& b, const Vertex& to) {
        canvas_.CurveTo(static_cast<float>(a.x), static_cast<float>(a.y), static_cast<float>(b.x),
                        static_cast<float>(b.y), static_cast<float>(to.x), static_cast<float>(to.y));
        paths_.back().AddCurve(a, b, to, error_);
    }
    void Close() {
        canvas_.ClosePath();
        paths_.back().isClosed = true;
    }

    const std::vector<StrokePath>& Paths() const { return paths_; }

private:
    Canvas& canvas_;
    double error_;
    std::vector<StrokePath> paths_;
};

void SetStyle(Canvas& canvas, const StrokeStyle& style) {
    canvas.LineWidth(static_cast<float>(style.width));
    canvas.LineCap(static_cast<std::int32_t>(style.cap));
    canvas.LineJoin(static_cast<std::int32_t>(style.join));
}

void SetMatrix(Canvas& canvas, const UserMatrix& m) {
    const auto number = [](double value) { return static_cast<float>(value); };
    canvas.SetMatrix({number(m.a), number(m.b), number(m.c), number(m.d), number(m.tx), number(m.ty)});
}

constexpr std::int32_t kSide = 64;

class Strokes : public MeasuredDrawing {
protected:
    Strokes() { canvas_.Smooth(); }

    /// Strokes the path that was given to the canvas and compares every pixel with the model.
    void Compare(const Pen& pen, const StrokeStyle& style, const UserMatrix& matrix, int lines, double worst,
                 double worstOfWholePixels) {
        SetStyle(canvas_, style);
        SetMatrix(canvas_, matrix);
        canvas_.Clear(0);
        ASSERT_EQ(canvas_.Stroke(), nullptr);
        const Stroked stroked(pen.Paths(), style, matrix);
        for (std::int32_t i = 0; i < kSide * kSide; ++i) {
            const std::int32_t x = i % kSide, y = i / kSide;
            const double exact = 255 * stroked.Coverage(x, y, lines);
            const double painted = canvas_.Get(x, y);
            errors_.Note(exact, painted);
            const bool isWhole = exact < 1e-9 || exact > 255 - 1e-9;
            ASSERT_NEAR(painted, exact, isWhole ? worstOfWholePixels : worst)
                << x << ' ' << y << " width " << style.width << " cap " << int(style.cap) << " join "
                << int(style.join);
        }
    }

    /// Round ends and corners are off by a chord's 64th of a pixel at most, along a diagonal.
    void CompareLines(const Pen& pen, const StrokeStyle& style) { Compare(pen, style, {}, kLines, 6.5, 6.5); }

    /// What chords are off by shows up larger at the far side of a wide line, but not beyond the pixels of its edge.
    void CompareCurves(const Pen& pen, const StrokeStyle& style, const UserMatrix& matrix) {
        Compare(pen, style, matrix, kLinesForCurves, 255, 64);
    }

    StrokeStyle RandomStyle(Random& random) {
        const double width = 0.3 * std::exp2(NumberBetween(random, 0, 7.05));
        return {static_cast<float>(width), static_cast<Cap>(random.Between(0, 2)),
                static_cast<Join>(random.Between(0, 2))};
    }

    Canvas canvas_{kSide, kSide};
};

int Cases(int count) { return HasTimeForEveryValue() ? count : count / 20; }

TEST_F(Strokes, OfPolylinesAreTheirPieces) {
    ForEachCase(Cases(600), [&](Random& random) {
        Pen pen(canvas_, 1);
        for (int parts = random.Between(1, 2); parts > 0; --parts) {
            pen.MoveTo(PointBetween(random, -8, kSide + 8));
            for (int lines = random.Between(1, 5); lines > 0; --lines) {
                pen.LineTo(PointBetween(random, -8, kSide + 8));
            }
            if (random.OneIn(2)) {
                pen.Close();
            }
        }
        CompareLines(pen, RandomStyle(random));
    });
    EXPECT_LT(errors_.RootMeanSquare(), 2);
}

TEST_F(Strokes, OfShortLinesAreTheirPieces) {
    ForEachCase(Cases(600), [&](Random& random) {
        Pen pen(canvas_, 1);
        const Vertex middle = PointBetween(random, 20, 44);
        const double reach = NumberBetween(random, 0.5, 12);
        const auto point = [&] {
            const Vertex offset = PointBetween(random, -reach, reach);
            return Vertex{static_cast<float>(middle.x + offset.x), static_cast<float>(middle.y + offset.y)};
        };
        pen.MoveTo(point());
        for (int lines = random.Between(1, 8); lines > 0; --lines) {
            pen.LineTo(point());
        }
        if (random.OneIn(2)) {
            pen.Close();
        }
        CompareLines(pen, RandomStyle(random));
    });
    EXPECT_LT(errors_.RootMeanSquare(), 2);
}

TEST_F(Strokes, OfCurvesAreTheirPieces) {
    ForEachCase(Cases(100), [&](Random& random) {
        Pen pen(canvas_, 1);
        const auto point = [&] { return PointBetween(random, 0, kSide); };
        pen.MoveTo(point());
        for (int parts = random.Between(1, 3); parts > 0; --parts) {
            pen.CurveTo(point(), point(), point());
            if (random.OneIn(2)) {
                pen.LineTo(point());
            }
        }
        if (random.OneIn(3)) {
            pen.Close();
        }
        CompareCurves(pen, RandomStyle(random), {});
    });
    EXPECT_LT(errors_.RootMeanSquare(), 2);
}

TEST_F(Strokes, UnderAnUnevenMatrixHaveAnEllipseForAPen) {
    ForEachCase(Cases(200), [&](Random& random) {
        constexpr double kScales[] = {0.25, 0.5, 1, 3};
        const auto scale = [&] {
            return static_cast<float>(kScales[random.Between(0, 3)] * (random.OneIn(3) ? -1 : 1));
        };
        UserMatrix matrix = {scale(), 0, 0, scale(), kSide / 2, kSide / 2};
        if (random.OneIn(2)) {
            matrix.c = static_cast<float>(NumberBetween(random, -1, 1));
        }
        SetMatrix(canvas_, matrix);
        Pen pen(canvas_, 3);
        const auto point = [&] { return PointBetween(random, -20, 20); };
        pen.MoveTo(point());
        for (int lines = random.Between(1, 4); lines > 0; --lines) {
            random.OneIn(4) ? pen.CurveTo(point(), point(), point()) : pen.LineTo(point());
        }
        if (random.OneIn(2)) {
            pen.Close();
        }
        StrokeStyle style = RandomStyle(random);
        style.width = static_cast<float>(std::min(style.width, 12.0));
        CompareCurves(pen, style, matrix);
    });
    EXPECT_LT(errors_.RootMeanSquare(), 2);
}

TEST_F(Strokes, ThatTurnBackOrStandStillAreTheirPieces) {
    for (const Cap cap : {Cap::kButt, Cap::kRound, Cap::kSquare}) {
        for (const Join join : {Join::kMiter, Join::kRound, Join::kBevel}) {
            for (const bool isClosed : {false, true}) {
                for (const int kind : {0, 1, 2, 3}) {
                    Pen pen(canvas_, 1);
                    pen.MoveTo({20.25, 22.5});
                    if (kind == 0) {
                        pen.LineTo({20.25, 22.5});
                    } else if (kind == 1) {
                        pen.LineTo({40, 36});
                        pen.LineTo({20.25, 22.5});
                    } else if (kind == 2) {
                        pen.LineTo({40, 22.5});
                        pen.LineTo({40, 22.5});
                        pen.LineTo({28.5, 22.5});
                        pen.LineTo({28.5, 40});
                    } else {
                        pen.LineTo({50, 30});
                        pen.LineTo({20.25, 37.5});
                        pen.LineTo({20.25, 22.5});
                    }
                    if (isClosed) {
                        pen.Close();
                    }
                    CompareLines(pen, {7, cap, join});
                }
            }
        }
    }
    EXPECT_LT(errors_.RootMeanSquare(), 2);
}

TEST_F(Strokes, ThatCrossThemselvesPaintOnce) {
    Canvas canvas(kSide, kSide, 32);
    canvas.Smooth();
    canvas.Clear(0xFFFFFFFFU);
    canvas.AlphaRgb(0.5F, 0, 0, 0);
    canvas.LineWidth(9);
    for (const std::int32_t join : {0, 1, 2}) {
        canvas.LineJoin(join);
        canvas.Clear(0xFFFFFFFFU);
        canvas.Lines(std::vector<Vertex>{{5, 5}, {58, 58}, {58, 20}, {5, 50}, {30, 5}, {30, 60}, {30, 30}});
        ASSERT_EQ(canvas.Stroke(), nullptr);
        std::uint32_t darkest = 255;
        for (const std::uint32_t pixel : canvas.Pixels()) {
            darkest = std::min(darkest, pixel & 0xFF);
        }
        EXPECT_EQ(darkest, 127U); // 255 * (255 - 128) / 255
    }
}

} // namespace
} // namespace tn::test
