// Lines of no length, and lines along curves.

#include "tests/engines/vec/PortQuestions.h"

#include <numbers>

namespace tn::test {
namespace {

using StrokeDots = Drawing;
using StrokedCurves = Drawing;

enum Cap : std::int32_t { kButt, kRound, kSquare };
enum Join : std::int32_t { kMiter, kRoundJoin, kBevel };

using Points = std::vector<VecPoint>;

// A dot: a line of no length, in several ways.
void Dot(Canvas& canvas, Cap cap, int way) {
    canvas.Smooth();
    canvas.LineWidth(4);
    canvas.LineCap(cap);
    canvas.MoveTo(6, 4);
    if (way == 0 || way == 1) {
        canvas.LineTo(6, 4);
    }
    if (way == 2) {
        canvas.CurveTo(6, 4, 6, 4, 6, 4);
    }
    if (way == 1 || way == 3) {
        canvas.ClosePath();
    }
    EXPECT_EQ(canvas.Stroke(), nullptr);
}

TEST_F(StrokeDots, AreDiscsUnderRoundCaps) {
    for (int way = 0; way < 4; ++way) {
        Canvas canvas(12, 8);
        Dot(canvas, kRound, way);
        EXPECT_NEAR(Area(canvas), 4 * std::numbers::pi, 0.2) << way;
        EXPECT_EQ(Picture(canvas)[3], "....+##+....") << way;
    }
}

TEST_F(StrokeDots, AreSquaresUnderSquareCaps) {
    const std::string none(12, '.');
    const std::string dot = "....####....";
    for (int way = 0; way < 4; ++way) {
        Canvas canvas(12, 8);
        Dot(canvas, kSquare, way);
        EXPECT_EQ(Picture(canvas), (Rows{none, none, dot, dot, dot, dot, none, none})) << way;
    }
}

TEST_F(StrokeDots, AreNothingUnderButtCaps) {
    for (int way = 0; way < 4; ++way) {
        for (const Join join : {kMiter, kRoundJoin, kBevel}) {
            Canvas canvas(12, 8);
            canvas.LineJoin(join);
            Dot(canvas, kButt, way);
            EXPECT_TRUE(IsBlank(canvas)) << way;
        }
    }
}

TEST_F(StrokeDots, AreNotMadeByLoneMoves) {
    for (const Cap cap : {kButt, kRound, kSquare}) {
        Canvas canvas(12, 8);
        Dot(canvas, cap, 4);
        EXPECT_TRUE(IsBlank(canvas));
        canvas.Lines(Points{{0, 1}, {3, 1}});
        canvas.MoveTo(9, 5);
        EXPECT_EQ(canvas.Stroke(), nullptr);
        EXPECT_EQ(canvas.Get(9, 5), 0U) << "the last move draws nothing either";
        EXPECT_EQ(canvas.Get(1, 1), 255U);
    }
}

TEST_F(StrokeDots, AreNotMadeByHaltsOnTheWay) {
    for (const Join join : {kMiter, kRoundJoin, kBevel}) {
        for (const Cap cap : {kButt, kRound, kSquare}) {
            Canvas plain(20, 20);
            Canvas halting(20, 20);
            for (Canvas* canvas : {&plain, &halting}) {
                canvas->Smooth();
                canvas->LineWidth(3);
                canvas->LineJoin(join);
                canvas->LineCap(cap);
                for (const VecPoint& point : Points{{4, 5}, {15, 7}, {9, 15}}) {
                    point.x == 4 ? canvas->MoveTo(4, 5) : canvas->LineTo(point.x, point.y);
                    for (int i = 0; canvas == &halting && i < 2; ++i) {
                        canvas->LineTo(point.x, point.y);
                    }
                }
                EXPECT_EQ(canvas->Stroke(), nullptr);
            }
            EXPECT_EQ(halting.Pixels(), plain.Pixels()) << join << " " << cap;
        }
    }
}

TEST_F(StrokedCurves, HaveNoSpikes) {
    Canvas canvas(60, 60);
    canvas.Smooth();
    canvas.LineWidth(8);
    canvas.MoveTo(10, 50);
    canvas.CurveTo(10, 10, 50, 10, 50, 50);
    EXPECT_EQ(canvas.Stroke(), nullptr);
    for (std::int32_t x = 0; x < 60; ++x) {
        for (std::int32_t y = 0; y < 15; ++y) {
            EXPECT_EQ(canvas.Get(x, y), 0U) << "the curve's highest point is 20, the line's 16";
        }
    }
    EXPECT_EQ(canvas.Get(30, 17), 255U);
}

// A cusp, where the direction turns by half a circle within the curve, and curves that are nearly one.
TEST_F(StrokedCurves, TurnRoundInThemselves) {
    for (float aside = -2; aside <= 2; aside += 0.0625F) {
        Canvas canvas(60, 60);
        canvas.Smooth();
        canvas.LineWidth(8);
        canvas.MoveTo(10, 50);
        canvas.CurveTo(50 + aside, 10, 10 - aside, 10, 50, 50);
        EXPECT_EQ(canvas.Stroke(), nullptr);
        for (std::int32_t x = 0; x < 60; ++x) {
            for (std::int32_t y = 0; y < 15; ++y) {
                EXPECT_EQ(canvas.Get(x, y), 0U) << x << " " << y << " " << aside;
            }
        }
        EXPECT_EQ(canvas.Get(30, 21), 255U);
    }
}

} // namespace
} // namespace tn::test
