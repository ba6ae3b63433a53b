// How wide lines are, and in which space.

#include "tests/engines/vec/PortQuestions.h"

namespace tn::test {
namespace {

using StrokeWidths = Drawing;
using abi::Port;

void Line(Canvas& canvas, float x1, float y1, float x2, float y2) {
    canvas.MoveTo(x1, y1);
    canvas.LineTo(x2, y2);
}

// The picture of a zigzag of some width.
std::vector<std::uint32_t> Zigzag(float width) {
    Canvas canvas(30, 30);
    canvas.Smooth();
    canvas.LineWidth(width);
    canvas.LineCap(1);
    canvas.Lines(std::vector<VecPoint>{{5, 5.3F}, {21.7F, 9}, {8, 14.2F}, {25, 25}});
    EXPECT_EQ(canvas.Stroke(), nullptr);
    return canvas.Pixels();
}

TEST_F(StrokeWidths, ReachHalfToEitherSide) {
    Canvas canvas(8, 6);
    canvas.Smooth();
    canvas.LineWidth(4);
    Line(canvas, 1, 3, 7, 3);
    EXPECT_EQ(canvas.Stroke(), nullptr);
    EXPECT_EQ(Picture(canvas), (Rows{"........", ".######.", ".######.", ".######.", ".######.", "........"}));
}

TEST_F(StrokeWidths, AreOnePixelAtFirst) {
    Canvas canvas(5, 3);
    Line(canvas, 1, 1.5F, 4, 1.5F);
    canvas.Stroke();
    EXPECT_EQ(Picture(canvas), (Rows{".....", ".###.", "....."}));
}

TEST_F(StrokeWidths, MayBeNegative) {
    for (const float width : {0.5F, 1.0F, 5.0F}) {
        EXPECT_EQ(Zigzag(-width), Zigzag(width));
    }
}

TEST_F(StrokeWidths, OfZeroAreOnePixel) {
    EXPECT_EQ(Zigzag(0), Zigzag(1));
    EXPECT_EQ(Zigzag(-0.0F), Zigzag(1));
}

TEST_F(StrokeWidths, OfZeroAreOnePixelOfTheDevice) {
    for (const float scale : {0.125F, 1.0F, 8.0F}) {
        Canvas canvas(5, 4);
        canvas.Smooth();
        canvas.LineWidth(0);
        canvas.Scale(scale, scale);
        Line(canvas, 1 / scale, 1.5F / scale, 4 / scale, 1.5F / scale);
        EXPECT_EQ(canvas.Stroke(), nullptr);
        EXPECT_EQ(Picture(canvas), (Rows{".....", ".###.", ".....", "....."})) << scale;
    }
}

TEST_F(StrokeWidths, OfZeroAreOnePixelWhereScalesDiffer) {
    Canvas canvas(8, 8);
    canvas.Smooth();
    canvas.LineWidth(0);
    canvas.Scale(4, 0.5F);
    Line(canvas, 0.5F, 7, 1.5F, 7);      // (2, 3.5) to (6, 3.5)
    Line(canvas, 1.875F, 8, 1.875F, 14); // (7.5, 4) to (7.5, 7)
    EXPECT_EQ(canvas.Stroke(), nullptr);
    EXPECT_EQ(Picture(canvas),
              (Rows{"........", "........", "........", "..####..", ".......#", ".......#", ".......#", "........"}));
}

TEST_F(StrokeWidths, ThatAreNoNumberPaintNothing) {
    for (const float width : {kNaN, kInfinity, -kInfinity}) {
        Canvas canvas(8, 8);
        canvas.LineWidth(width);
        Line(canvas, 1, 3, 7, 3);
        ExpectOwnError(canvas.Stroke());
        EXPECT_TRUE(IsBlank(canvas));
        EXPECT_NE(canvas.Error(), nullptr);
        EXPECT_EQ(PathBounds(canvas), (Numbers4{1, 3, 7, 3})) << "the path is as before";
        canvas.LineWidth(2);
        EXPECT_EQ(canvas.Stroke(), nullptr);
        EXPECT_FALSE(IsBlank(canvas)) << "a good width is good again";
    }
}

TEST_F(StrokeWidths, AreOfNoConcernToFills) {
    Canvas canvas(4, 4);
    canvas.LineWidth(kNaN);
    canvas.Rect(1, 1, 3, 3);
    EXPECT_EQ(canvas.Fill(), nullptr);
    EXPECT_EQ(Picture(canvas), (Rows{"....", ".##.", ".##.", "...."}));
}

TEST_F(StrokeWidths, GoThroughTheMatrix) {
    Canvas canvas(16, 12);
    canvas.Smooth();
    canvas.Scale(3, 1);
    canvas.LineWidth(2);
    Line(canvas, 1, 2, 5, 2);
    EXPECT_EQ(canvas.Stroke(), nullptr);
    Line(canvas, 3, 5, 3, 12);
    EXPECT_EQ(canvas.Stroke(), nullptr);
    const std::string none(16, '.');
    const std::string across = "...############.";
    const std::string down = "......######....";
    EXPECT_EQ(Picture(canvas), (Rows{none, across, across, none, none, down, down, down, down, down, down, down}));
}

TEST_F(StrokeWidths, AreThoseOfTheMatrixAtTheStroke) {
    Canvas canvas(10, 6);
    canvas.Smooth();
    canvas.LineWidth(1);
    Line(canvas, 2, 3, 8, 3);
    canvas.Scale(10, 4);
    EXPECT_EQ(canvas.Stroke(), nullptr);
    EXPECT_EQ(Picture(canvas),
              (Rows{"..........", "..######..", "..######..", "..######..", "..######..", ".........."}));
}

TEST_F(StrokeWidths, AreOfAnEllipticPen) {
    Canvas canvas(40, 40);
    canvas.Smooth();
    canvas.Translate(20, 20);
    canvas.Scale(3, 1);
    canvas.LineWidth(10);
    canvas.LineCap(1);
    Line(canvas, 0, 0, 0, 0);
    EXPECT_EQ(canvas.Stroke(), nullptr);
    EXPECT_NEAR(Area(canvas), 3.14159 * 15 * 5, 1);
    EXPECT_GT(canvas.Get(5, 20), 100U);
    EXPECT_EQ(canvas.Get(4, 20), 0U);
    EXPECT_GT(canvas.Get(20, 15), 200U);
    EXPECT_EQ(canvas.Get(20, 14), 0U);
}

TEST_F(StrokeWidths, DoNotDependOnTheDirectionOfTheMatrix) {
    const auto area = [](const VecMatrix& matrix) {
        Canvas canvas(60, 60);
        canvas.Smooth();
        canvas.SetMatrix(matrix);
        canvas.LineWidth(3);
        canvas.Lines(std::vector<VecPoint>{{-8, -6}, {7, -5}, {6, 8}, {-9, 3}});
        EXPECT_EQ(canvas.Stroke(), nullptr);
        return Area(canvas);
    };
    const double expected = area({1, 0, 0, 1, 30, 30});
    EXPECT_GT(expected, 120);
    EXPECT_NEAR(area({-1, 0, 0, 1, 30, 30}), expected, 1) << "mirrored";
    EXPECT_NEAR(area({0, 1, -1, 0, 30, 30}), expected, 1) << "turned";
    EXPECT_NEAR(area({0.6F, 0.8F, -0.8F, 0.6F, 30, 30}), expected, 1) << "turned";
    EXPECT_NEAR(area({2, 0, 0, 2, 30, 30}), 4 * expected, 2);
}

TEST_F(StrokeWidths, MayBeWiderThanTheTarget) {
    Canvas canvas(8, 8);
    canvas.Smooth();
    canvas.LineWidth(1e6F);
    Line(canvas, -5, 3, 7, 3);
    EXPECT_EQ(canvas.Stroke(), nullptr);
    EXPECT_EQ(Picture(canvas), Rows(8, "#######."));
}

} // namespace
} // namespace tn::test
