// Paths that are built by distances, and of whole shapes.

#include "tests/engines/vec/PortQuestions.h"

#include <cmath>
#include <utility>

namespace tn::test {
namespace {

using PathShapes = Drawing;
using abi::Port;

void MoveBy(Canvas& canvas, float x, float y) { canvas.Call<VecPortPointType>(Port::kMoveBy, x, y); }
void LineBy(Canvas& canvas, float x, float y) { canvas.Call<VecPortPointType>(Port::kLineBy, x, y); }
void CurveBy(Canvas& canvas, float x1, float y1, float x2, float y2, float x3, float y3) {
    canvas.Call<VecPortCurveType>(Port::kCurveBy, x1, y1, x2, y2, x3, y3);
}

TEST_F(PathShapes, GoByDistances) {
    Canvas canvas(8, 4);
    canvas.MoveTo(9, 9);
    MoveBy(canvas, -8, -8);
    EXPECT_EQ(CurrentPoint(canvas), (Numbers2{1, 1}));
    LineBy(canvas, 3, 0);
    EXPECT_EQ(CurrentPoint(canvas), (Numbers2{4, 1}));
    CurveBy(canvas, 1, 0, 2, 0, 3, 0);
    EXPECT_EQ(CurrentPoint(canvas), (Numbers2{7, 1}));
    LineBy(canvas, 0, 2);
    LineBy(canvas, -6, 0);
    canvas.ClosePath();
    MoveBy(canvas, 2, 1);
    EXPECT_EQ(CurrentPoint(canvas), (Numbers2{3, 2})) << "from where the closed part began";
    EXPECT_EQ(canvas.Fill(), nullptr);
    EXPECT_EQ(Picture(canvas), (Rows{"........", ".######.", ".######.", "........"}));
}

TEST_F(PathShapes, GoByDistancesOfUserSpace) {
    Canvas canvas(8, 4);
    canvas.SetMatrix({2, 0, 0, 1, 1, 1});
    canvas.MoveTo(0, 0);
    LineBy(canvas, 3, 0);
    LineBy(canvas, 0, 2);
    LineBy(canvas, -3, 0);
    EXPECT_EQ(CurrentPoint(canvas), (Numbers2{0, 2}));
    canvas.Fill();
    EXPECT_EQ(Picture(canvas), (Rows{"........", ".######.", ".######.", "........"}));
}

TEST_F(PathShapes, HoldRectangles) {
    Canvas canvas(8, 4);
    canvas.Translate(1, 0);
    const VecRect rect = {1, 1, 4, 3};
    canvas.Call<VecPortRectPathType>(Port::kAddRect, &rect);
    EXPECT_EQ(PathBounds(canvas), (Numbers4{1, 1, 4, 3}));
    EXPECT_EQ(NumberOf(canvas, Port::kGetPathLength), 10) << "it is closed";
    canvas.Fill();
    EXPECT_EQ(Picture(canvas), (Rows{"........", "..###...", "..###...", "........"}));
}

TEST_F(PathShapes, StayWhileRectanglesArePainted) {
    const VecRect rect = {1, 1, 5, 3};
    for (const auto& [paintRect, paint] :
         {std::pair{Port::kFillRect, Port::kFill}, std::pair{Port::kStrokeRect, Port::kStroke}}) {
        Canvas direct(8, 6);
        Canvas byPath(8, 6);
        for (Canvas* canvas : {&direct, &byPath}) {
            canvas->Smooth();
            canvas->Translate(1.25F, 0.5F);
        }
        direct.MoveTo(2, 2);
        direct.LineTo(3, 3);
        EXPECT_EQ(direct.PaintRect(paintRect, rect), nullptr);
        EXPECT_EQ(CurrentPoint(direct), (Numbers2{3, 3}));
        EXPECT_EQ(PathBounds(direct), (Numbers4{2, 2, 3, 3}));
        byPath.Rect(1, 1, 5, 3);
        EXPECT_EQ(byPath.Paint(paint), nullptr);
        EXPECT_FALSE(IsBlank(direct));
        EXPECT_EQ(direct.Pixels(), byPath.Pixels());
    }
}

TEST_F(PathShapes, HoldEllipses) {
    Canvas canvas(60, 60);
    canvas.Smooth();
    const VecRect rect = {10, 5, 50, 45};
    canvas.Call<VecPortRectPathType>(Port::kAddEllipse, &rect);
    EXPECT_NEAR(NumberOf(canvas, Port::kGetPathLength), 40 * 3.14159, 0.2);
    EXPECT_EQ(canvas.Fill(), nullptr);
    for (std::int32_t y = 0; y < 60; ++y) {
        for (std::int32_t x = 0; x < 60; ++x) {
            const double distance = std::hypot(x + 0.5 - 30, y + 0.5 - 25);
            if (distance < 19 || distance > 21) {
                EXPECT_EQ(canvas.Get(x, y), distance < 20 ? 255U : 0U) << x << " " << y;
            }
        }
    }
    EXPECT_NEAR(Area(canvas), 3.14159 * 400, 2);
}

TEST_F(PathShapes, HoldEllipsesInRectanglesThatAreNoSquares) {
    Canvas canvas(60, 30);
    canvas.Smooth();
    const VecRect rect = {4, 5, 54, 25};
    canvas.Call<VecPortRectPathType>(Port::kAddEllipse, &rect);
    EXPECT_EQ(canvas.Fill(), nullptr);
    EXPECT_NEAR(Area(canvas), 3.14159 * 25 * 10, 2);
    EXPECT_GT(canvas.Get(29, 5), 200U);
    EXPECT_EQ(canvas.Get(29, 4), 0U);
    EXPECT_EQ(canvas.Get(3, 14), 0U);
    EXPECT_EQ(canvas.Get(54, 14), 0U);
}

TEST_F(PathShapes, NeedACurrentPointToMoveFrom) {
    Canvas canvas(4, 4);
    MoveBy(canvas, 1, 1);
    ExpectOwnError(canvas.Error());
    EXPECT_EQ(PathBounds(canvas), std::nullopt);
}

} // namespace
} // namespace tn::test
