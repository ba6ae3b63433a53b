// Ends and corners of lines.

#include "tests/engines/vec/PortQuestions.h"

#include <cmath>
#include <numbers>

namespace tn::test {
namespace {

using StrokeStyles = Drawing;
using abi::Port;

enum Cap : std::int32_t { kButt, kRound, kSquare };
enum Join : std::int32_t { kMiter, kRoundJoin, kBevel };

using Points = std::vector<VecPoint>;

// A line of width 4 across the middle.
void Bar(Canvas& canvas, Cap cap) {
    canvas.Smooth();
    canvas.LineWidth(4);
    canvas.LineCap(cap);
    canvas.Lines(Points{{4, 4}, {8, 4}});
    EXPECT_EQ(canvas.Stroke(), nullptr);
}

TEST_F(StrokeStyles, ButtCapsEndWithTheLine) {
    Canvas canvas(12, 8);
    Bar(canvas, kButt);
    const std::string none(12, '.');
    const std::string bar = "....####....";
    EXPECT_EQ(Picture(canvas), (Rows{none, none, bar, bar, bar, bar, none, none}));
}

TEST_F(StrokeStyles, SquareCapsGoOnForHalfTheWidth) {
    Canvas canvas(12, 8);
    Bar(canvas, kSquare);
    const std::string none(12, '.');
    const std::string bar = "..########..";
    EXPECT_EQ(Picture(canvas), (Rows{none, none, bar, bar, bar, bar, none, none}));
}

TEST_F(StrokeStyles, RoundCapsAreHalfDiscs) {
    Canvas canvas(12, 8);
    Bar(canvas, kRound);
    const std::string none(12, '.');
    EXPECT_EQ(Picture(canvas),
              (Rows{none, none, "..++####++..", "..+######+..", "..+######+..", "..++####++..", none, none}));
    EXPECT_NEAR(Area(canvas), 16 + 4 * std::numbers::pi, 0.2);
}

TEST_F(StrokeStyles, CapsAreAtBothEndsOfOpenSubPathsOnly) {
    for (const Cap cap : {kRound, kSquare}) {
        Canvas capped(30, 30);
        Canvas plain(30, 30);
        for (Canvas* canvas : {&capped, &plain}) {
            canvas->Smooth();
            canvas->LineWidth(4);
            canvas->LineCap(canvas == &capped ? cap : kButt);
            canvas->Polygon(Points{{6, 6}, {24, 8}, {15, 22}});
            EXPECT_EQ(canvas->Stroke(), nullptr);
        }
        EXPECT_EQ(capped.Pixels(), plain.Pixels()) << cap;
    }
}

TEST_F(StrokeStyles, EachSubPathHasItsOwnCaps) {
    Canvas canvas(12, 3);
    canvas.LineCap(kSquare);
    canvas.LineWidth(2);
    canvas.Lines(Points{{2, 1}, {4, 1}});
    canvas.Lines(Points{{8, 2}, {10, 2}});
    EXPECT_EQ(canvas.Stroke(), nullptr);
    EXPECT_EQ(Picture(canvas), (Rows{".####.......", ".####..####.", ".......####."}));
}

// The part of the outer corner's 2 x 2 pixels that a join of two lines covers.
double CornerArea(Join join) {
    Canvas canvas(12, 12);
    canvas.Smooth();
    canvas.LineWidth(4);
    canvas.LineJoin(join);
    canvas.Lines(Points{{2, 8}, {8, 8}, {8, 2}});
    EXPECT_EQ(canvas.Stroke(), nullptr);
    double sum = 0;
    for (const auto& [x, y] : {std::array{8, 8}, std::array{9, 8}, std::array{8, 9}, std::array{9, 9}}) {
        sum += canvas.Get(x, y);
    }
    EXPECT_NEAR(Area(canvas) - sum / 255, 6 * 4 + 6 * 4 - 4, 0.05) << "the rest is the same for all joins";
    return sum / 255;
}

TEST_F(StrokeStyles, MiterJoinsFillTheCorner) { EXPECT_EQ(CornerArea(kMiter), 4); }
TEST_F(StrokeStyles, BevelJoinsCutTheCorner) { EXPECT_NEAR(CornerArea(kBevel), 2, 0.03); }
TEST_F(StrokeStyles, RoundJoinsRoundTheCorner) { EXPECT_NEAR(CornerArea(kRoundJoin), std::numbers::pi, 0.1); }

// How far right a corner reaches whose sides, at its left, are apart by an angle in degrees. Its width is 2.
double Reach(double degrees, Join join = kMiter) {
    constexpr double kLength = 60;
    const double half = degrees / 2 * std::numbers::pi / 180;
    const auto x = static_cast<float>(80 - kLength * std::cos(half));
    const auto dy = static_cast<float>(kLength * std::sin(half));
    Canvas canvas(100, 40);
    canvas.Smooth();
    canvas.LineWidth(2);
    canvas.LineJoin(join);
    canvas.Lines(Points{{x, 20.5F - dy}, {80, 20.5F}, {x, 20.5F + dy}});
    EXPECT_EQ(canvas.Stroke(), nullptr);
    std::int32_t last = 99;
    while (last > 0 && canvas.Get(last, 20) == 0) {
        --last;
    }
    return last + 1 - 80;
}

TEST_F(StrokeStyles, MitersAreAsLongAsTheyHaveToBe) {
    for (const double degrees : {90.0, 60.0, 30.0, 15.0, 12.0}) {
        const double length = 1 / std::sin(degrees / 2 * std::numbers::pi / 180);
        EXPECT_NEAR(Reach(degrees), length, 1) << degrees;
    }
}

// The limit, 10, is that of an angle of 11.478 degrees.
TEST_F(StrokeStyles, MitersBeyondTheLimitAreBevels) {
    EXPECT_GT(Reach(11.6), 8);
    for (const double degrees : {11.3, 8.0, 2.0}) {
        EXPECT_LE(Reach(degrees), 1) << degrees;
        EXPECT_EQ(Reach(degrees), Reach(degrees, kBevel)) << degrees;
    }
}

TEST_F(StrokeStyles, JoinsAreAtTheClosingCornerToo) {
    Canvas canvas(12, 12);
    canvas.Smooth();
    canvas.LineWidth(4);
    canvas.Rect(3, 3, 9, 9);
    EXPECT_EQ(canvas.Stroke(), nullptr);
    const std::string none(12, '.');
    const std::string full = ".##########.";
    const std::string hollow = ".####..####.";
    EXPECT_EQ(Picture(canvas), (Rows{none, full, full, full, full, hollow, hollow, full, full, full, full, none}));
}

TEST_F(StrokeStyles, LinesBackToTheStartDoNotCloseByThemselves) {
    Canvas canvas(12, 12);
    canvas.Smooth();
    canvas.LineWidth(4);
    canvas.Lines(Points{{3, 3}, {9, 3}, {9, 9}, {3, 9}, {3, 3}});
    EXPECT_EQ(canvas.Stroke(), nullptr);
    EXPECT_EQ(canvas.Get(1, 1), 0U) << "no join where the ends meet";
    EXPECT_EQ(canvas.Get(10, 10), 255U);
}

TEST_F(StrokeStyles, ReversalsUnderMiterJoinsAreFlat) {
    for (const Join join : {kMiter, kBevel}) {
        Canvas canvas(12, 8);
        canvas.Smooth();
        canvas.LineWidth(4);
        canvas.LineJoin(join);
        canvas.Lines(Points{{4, 4}, {8, 4}, {5, 4}});
        EXPECT_EQ(canvas.Stroke(), nullptr);
        EXPECT_EQ(Picture(canvas)[3], "....####....") << join;
        EXPECT_EQ(Area(canvas), 16);
    }
}

TEST_F(StrokeStyles, ReversalsUnderRoundJoinsAreRound) {
    Canvas canvas(12, 8);
    canvas.Smooth();
    canvas.LineWidth(4);
    canvas.LineJoin(kRoundJoin);
    canvas.Lines(Points{{4, 4}, {8, 4}, {5, 4}});
    EXPECT_EQ(canvas.Stroke(), nullptr);
    EXPECT_NEAR(Area(canvas), 16 + 2 * std::numbers::pi, 0.1);
}

} // namespace
} // namespace tn::test
