// What a port tells of its path, and what it changes it into.

#include "tests/engines/vec/PortQuestions.h"
#include "tests/support/Cases.h"

#include <cmath>

namespace tn::test {
namespace {

using PathQueries = Drawing;
using abi::Port;

float Length(const Canvas& canvas) { return NumberOf(canvas, Port::kGetPathLength); }

void Circle(Canvas& canvas, float x, float y, float radius) {
    const float k = 0.5522848F * radius;
    canvas.MoveTo(x + radius, y);
    canvas.CurveTo(x + radius, y + k, x + k, y + radius, x, y + radius);
    canvas.CurveTo(x - k, y + radius, x - radius, y + k, x - radius, y);
    canvas.CurveTo(x - radius, y - k, x - k, y - radius, x, y - radius);
    canvas.CurveTo(x + k, y - radius, x + radius, y - k, x + radius, y);
    canvas.ClosePath();
}

TEST_F(PathQueries, TellTheCurrentPointInUserSpace) {
    Canvas canvas(8, 8);
    canvas.SetMatrix({2, 0, 0, 4, 1, 1});
    canvas.MoveTo(3, 5);
    EXPECT_EQ(CurrentPoint(canvas), (Numbers2{3, 5}));
    canvas.CurveTo(9, 9, 8, 8, 0.5F, 0.25F);
    EXPECT_EQ(CurrentPoint(canvas), (Numbers2{0.5F, 0.25F}));
    Do(canvas, Port::kInitMatrix);
    EXPECT_EQ(CurrentPoint(canvas), (Numbers2{2, 2})) << "it has not moved";
}

TEST_F(PathQueries, TellWhetherThereIsAPath) {
    Canvas canvas(8, 8);
    EXPECT_NE(Ask(canvas, Port::kIsPathEmpty), 0);
    canvas.MoveTo(1, 1);
    canvas.LineTo(2, 2);
    EXPECT_EQ(Ask(canvas, Port::kIsPathEmpty), 0);
    canvas.NewPath();
    EXPECT_NE(Ask(canvas, Port::kIsPathEmpty), 0);
}

TEST_F(PathQueries, TellBoundsOfLines) {
    Canvas canvas(8, 8);
    canvas.MoveTo(3, 5);
    canvas.LineTo(-1.5F, 2);
    canvas.LineTo(4, 7.25F);
    EXPECT_EQ(PathBounds(canvas), (Numbers4{-1.5F, 2, 4, 7.25F}));
    canvas.MoveTo(50, -1);
    canvas.LineTo(51, 0);
    EXPECT_EQ(PathBounds(canvas), (Numbers4{-1.5F, -1, 51, 7.25F}));
}

TEST_F(PathQueries, TellBoundsInUserSpace) {
    Canvas canvas(8, 8);
    canvas.SetMatrix({2, 0, 0, -4, 1, 1});
    canvas.MoveTo(3, 5);
    canvas.LineTo(-1.5F, 2);
    EXPECT_EQ(PathBounds(canvas), (Numbers4{-1.5F, 2, 3, 5}));
    Do(canvas, Port::kInitMatrix);
    EXPECT_EQ(PathBounds(canvas), (Numbers4{-2, -19, 7, -7}));
}

// At least where the curve goes and at most where its control points are.
TEST_F(PathQueries, TellBoundsThatHoldCurves) {
    ForEachCase(300, [](Random& random) {
        std::array<double, 4> x{};
        std::array<double, 4> y{};
        for (std::size_t i = 0; i < 4; ++i) {
            x[i] = random.Between(-400, 400) / 8.0;
            y[i] = random.Between(-400, 400) / 8.0;
        }
        const auto number = [](double value) { return static_cast<float>(value); };
        Canvas canvas(8, 8);
        canvas.MoveTo(number(x[0]), number(y[0]));
        canvas.CurveTo(number(x[1]), number(y[1]), number(x[2]), number(y[2]), number(x[3]), number(y[3]));
        const auto bounds = PathBounds(canvas);
        ASSERT_TRUE(bounds.has_value());
        const auto [left, top, right, bottom] = *bounds;
        EXPECT_GE(left, *std::min_element(x.begin(), x.end()));
        EXPECT_GE(top, *std::min_element(y.begin(), y.end()));
        EXPECT_LE(right, *std::max_element(x.begin(), x.end()));
        EXPECT_LE(bottom, *std::max_element(y.begin(), y.end()));
        const auto at = [](const std::array<double, 4>& p, double t) {
            const double u = 1 - t;
            return u * u * u * p[0] + 3 * u * u * t * p[1] + 3 * u * t * t * p[2] + t * t * t * p[3];
        };
        constexpr double kChord = 1.0 / 64;
        for (int i = 0; i <= 100; ++i) {
            EXPECT_LE(left, at(x, i / 100.0) + kChord);
            EXPECT_LE(top, at(y, i / 100.0) + kChord);
            EXPECT_GE(right, at(x, i / 100.0) - kChord);
            EXPECT_GE(bottom, at(y, i / 100.0) - kChord);
        }
    });
}

TEST_F(PathQueries, TellTheLengthOfLines) {
    Canvas canvas(8, 8);
    canvas.MoveTo(0, 0);
    EXPECT_EQ(Length(canvas), 0);
    canvas.LineTo(3, 0);
    canvas.LineTo(3, 4);
    EXPECT_EQ(Length(canvas), 7);
    canvas.ClosePath();
    EXPECT_EQ(Length(canvas), 12) << "with the way back";
    canvas.MoveTo(10, 10);
    EXPECT_EQ(Length(canvas), 12) << "without the way to another part";
    canvas.LineTo(10, 20);
    EXPECT_EQ(Length(canvas), 22);
}

TEST_F(PathQueries, TellTheLengthOfCurves) {
    Canvas canvas(8, 8);
    canvas.MoveTo(0, 0);
    canvas.CurveTo(1, 0, 2, 0, 3, 0);
    EXPECT_NEAR(Length(canvas), 3, 1e-5);
    canvas.NewPath();
    Circle(canvas, 100, 100, 50);
    EXPECT_NEAR(Length(canvas), 2 * 3.14159265 * 50, 0.2);
}

// A square that is reversed, with another one in it.
TEST_F(PathQueries, ReverseDirections) {
    for (const bool isReversed : {false, true}) {
        Canvas canvas(7, 7);
        canvas.Rect(1, 1, 6, 6);
        if (isReversed) {
            Do(canvas, Port::kReversePath);
        }
        canvas.Rect(3, 3, 4, 4);
        EXPECT_EQ(canvas.Fill(), nullptr);
        EXPECT_EQ(canvas.Get(3, 3), isReversed ? 0U : 255U);
        EXPECT_EQ(canvas.Get(1, 1), 255U);
    }
}

TEST_F(PathQueries, ReverseWhereTheyBegin) {
    Canvas canvas(8, 8);
    canvas.MoveTo(1, 1);
    canvas.LineTo(5, 2);
    canvas.LineTo(4, 6);
    Do(canvas, Port::kReversePath);
    EXPECT_EQ(CurrentPoint(canvas), (Numbers2{1, 1}));
    EXPECT_EQ(PathBounds(canvas), (Numbers4{1, 1, 5, 6}));
    canvas.ClosePath();
    EXPECT_EQ(CurrentPoint(canvas), (Numbers2{4, 6}));
}

TEST_F(PathQueries, ReverseNothingThatIsPainted) {
    ForEachCase(100, [](Random& random) {
        Canvas forth(40, 40);
        Canvas back(40, 40);
        const std::uint64_t seed = random.Next();
        const Port paint = random.OneOf(std::array{Port::kFill, Port::kEOFill, Port::kStroke});
        for (Canvas* canvas : {&forth, &back}) {
            Random same(seed);
            const auto number = [&] { return static_cast<float>(same.Between(-40, 360)) / 8; };
            canvas->Smooth();
            canvas->LineWidth(3);
            canvas->LineCap(same.Between(0, 2));
            canvas->LineJoin(1);
            for (int part = 0; part < 3; ++part) {
                canvas->MoveTo(number(), number());
                canvas->LineTo(number(), number());
                canvas->CurveTo(number(), number(), number(), number(), number(), number());
                if (same.OneIn(2)) {
                    canvas->ClosePath();
                }
            }
            if (canvas == &back) {
                Do(*canvas, Port::kReversePath);
            }
            EXPECT_EQ(canvas->Paint(paint), nullptr);
        }
        EXPECT_LE(GreatestDifference(forth, back), 12) << "curves may be cut up otherwise";
    });
}

TEST_F(PathQueries, ReverseAnEmptyPathToItself) {
    Canvas canvas(8, 8);
    Do(canvas, Port::kReversePath);
    Do(canvas, Port::kFlattenPath);
    EXPECT_NE(Ask(canvas, Port::kIsPathEmpty), 0);
    EXPECT_EQ(canvas.Error(), nullptr);
}

TEST_F(PathQueries, FlattenCurvesWithoutASight) {
    Canvas curved(60, 60);
    Canvas flat(60, 60);
    for (Canvas* canvas : {&curved, &flat}) {
        canvas->Smooth();
        Circle(*canvas, 30, 30, 25);
        canvas->MoveTo(3, 3);
        canvas->CurveTo(60, 50, -20, 40, 50, 5);
        if (canvas == &flat) {
            Do(*canvas, Port::kFlattenPath);
        }
        EXPECT_EQ(CurrentPoint(*canvas), (Numbers2{50, 5}));
        EXPECT_EQ(canvas->EOFill(), nullptr);
    }
    EXPECT_LE(GreatestDifference(curved, flat), 6) << "each is off by at most two thirds of 1/64 of a pixel";
}

TEST_F(PathQueries, FlattenLinesToThemselves) {
    Canvas canvas(8, 8);
    canvas.MoveTo(0, 0);
    canvas.LineTo(3, 0);
    canvas.LineTo(3, 4);
    canvas.ClosePath();
    Do(canvas, Port::kFlattenPath);
    EXPECT_EQ(CurrentPoint(canvas), (Numbers2{0, 0}));
    EXPECT_EQ(Length(canvas), 12);
    EXPECT_EQ(PathBounds(canvas), (Numbers4{0, 0, 3, 4}));
}

TEST_F(PathQueries, TellWhichPointsAFillWouldCover) {
    Canvas canvas(2, 2);
    canvas.Rect(0, 0, 50, 50);
    canvas.Rect(20, 20, 30, 30);
    EXPECT_TRUE(IsPointIn(canvas, Port::kIsPointInFill, 5, 5));
    EXPECT_TRUE(IsPointIn(canvas, Port::kIsPointInFill, 25, 25));
    EXPECT_TRUE(IsPointIn(canvas, Port::kIsPointInEOFill, 5, 5));
    EXPECT_FALSE(IsPointIn(canvas, Port::kIsPointInEOFill, 25, 25));
    for (const auto& [x, y] : {Numbers2{-1, 5}, Numbers2{5, 51}, Numbers2{1e30F, 5}, Numbers2{kNaN, 5}}) {
        EXPECT_FALSE(IsPointIn(canvas, Port::kIsPointInFill, x, y));
        EXPECT_FALSE(IsPointIn(canvas, Port::kIsPointInEOFill, x, y));
    }
    EXPECT_EQ(Ask(canvas, Port::kIsPathEmpty), 0) << "the path stays";
    canvas.Scale(0.1F, 0.1F);
    EXPECT_TRUE(IsPointIn(canvas, Port::kIsPointInFill, 490, 490)) << "told in user space";
    EXPECT_FALSE(IsPointIn(canvas, Port::kIsPointInFill, 510, 490));
    EXPECT_TRUE(IsBlank(canvas));
}

} // namespace
} // namespace tn::test
