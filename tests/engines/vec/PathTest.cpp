// Paths as they are built, seen by what they paint.

#include "tests/engines/vec/PortQuestions.h"

namespace tn::test {
namespace {

using Paths = Drawing;
using abi::Port;

constexpr std::array<Port, 3> kPaints = {Port::kFill, Port::kEOFill, Port::kStroke};

bool IsPathEmpty(const Canvas& canvas) { return Ask(canvas, Port::kIsPathEmpty) != 0; }

TEST_F(Paths, AreForgottenByANewOne) {
    Canvas canvas(6, 3);
    canvas.Rect(0, 0, 6, 3);
    canvas.NewPath();
    EXPECT_TRUE(IsPathEmpty(canvas));
    EXPECT_EQ(CurrentPoint(canvas), std::nullopt);
    EXPECT_EQ(canvas.Fill(), nullptr);
    EXPECT_TRUE(IsBlank(canvas));
}

TEST_F(Paths, BeginWhereTheLastOfSeveralMovesGoes) {
    Canvas canvas(6, 3);
    canvas.MoveTo(0, 0);
    canvas.MoveTo(5, 2);
    canvas.MoveTo(1, 1);
    EXPECT_EQ(CurrentPoint(canvas), (Numbers2{1, 1}));
    canvas.LineTo(4, 1);
    canvas.LineTo(4, 2);
    canvas.LineTo(1, 2);
    EXPECT_EQ(PathBounds(canvas), (Numbers4{1, 1, 4, 2}));
    canvas.Fill();
    EXPECT_EQ(Picture(canvas), (Rows{"......", ".###..", "......"}));
}

TEST_F(Paths, MayEndWithALoneMove) {
    Canvas canvas(6, 3);
    canvas.Rect(1, 1, 4, 2);
    canvas.MoveTo(5, 0);
    EXPECT_EQ(canvas.Fill(), nullptr);
    EXPECT_EQ(Picture(canvas), (Rows{"......", ".###..", "......"}));
}

TEST_F(Paths, NeedACurrentPointForLinesAndCurves) {
    for (int way = 0; way < 4; ++way) {
        Canvas canvas(6, 3);
        EXPECT_EQ(canvas.Error(), nullptr);
        switch (way) {
        case 0:
            canvas.LineTo(3, 3);
            break;
        case 1:
            canvas.CurveTo(1, 1, 2, 3, 4, 5);
            break;
        case 2:
            canvas.Call<VecPortPointType>(Port::kLineBy, 3.0F, 3.0F);
            break;
        default:
            canvas.Call<VecPortCurveType>(Port::kCurveBy, 1.0F, 1.0F, 2.0F, 3.0F, 4.0F, 5.0F);
        }
        ExpectOwnError(canvas.Error());
        EXPECT_TRUE(IsPathEmpty(canvas)) << way;
        EXPECT_EQ(CurrentPoint(canvas), std::nullopt) << way;
        canvas.Rect(1, 1, 4, 2);
        EXPECT_EQ(canvas.Fill(), nullptr) << "the path is sound";
        EXPECT_EQ(Picture(canvas), (Rows{"......", ".###..", "......"}));
    }
}

TEST_F(Paths, MayBeClosedWhereNothingIsBegun) {
    Canvas canvas(6, 3);
    canvas.ClosePath();
    EXPECT_EQ(canvas.Error(), nullptr);
    EXPECT_TRUE(IsPathEmpty(canvas));
    EXPECT_EQ(CurrentPoint(canvas), std::nullopt);
    for (const Port paint : kPaints) {
        EXPECT_EQ(canvas.Paint(paint), nullptr);
    }
    EXPECT_TRUE(IsBlank(canvas));
}

TEST_F(Paths, GoBackToTheirStartWhenClosed) {
    Canvas canvas(6, 6);
    canvas.MoveTo(1, 2);
    canvas.LineTo(4, 2);
    canvas.LineTo(4, 5);
    canvas.ClosePath();
    EXPECT_EQ(CurrentPoint(canvas), (Numbers2{1, 2}));
    EXPECT_EQ(canvas.Error(), nullptr);
}

TEST_F(Paths, AreClosedOnce) {
    Canvas once(20, 20);
    Canvas twice(20, 20);
    for (Canvas* canvas : {&once, &twice}) {
        canvas->Smooth();
        canvas->LineWidth(3);
        canvas->LineCap(2);
        canvas->Polygon(std::vector<VecPoint>{{5, 5}, {15, 6}, {9, 15}});
        if (canvas == &twice) {
            canvas->ClosePath();
            canvas->ClosePath();
        }
        EXPECT_EQ(CurrentPoint(*canvas), (Numbers2{5, 5}));
        EXPECT_EQ(canvas->Stroke(), nullptr);
    }
    EXPECT_EQ(twice.Pixels(), once.Pixels());
}

TEST_F(Paths, GoOnWhereTheClosedPartBegan) {
    Canvas canvas(8, 4);
    canvas.Rect(3, 1, 5, 2);
    canvas.LineTo(3, 4);
    canvas.LineTo(0, 4);
    canvas.LineTo(0, 1);
    EXPECT_EQ(canvas.Fill(), nullptr);
    EXPECT_EQ(Picture(canvas), (Rows{"........", "#####...", "###.....", "###....."}));
    canvas.Clear(0);
    canvas.Rect(3, 1, 5, 2);
    canvas.CurveTo(3, 2, 3, 3, 3, 4);
    canvas.LineTo(0, 4);
    canvas.LineTo(0, 1);
    canvas.ClosePath();
    EXPECT_EQ(CurrentPoint(canvas), (Numbers2{3, 1}));
    EXPECT_EQ(canvas.Fill(), nullptr);
    EXPECT_EQ(Picture(canvas), (Rows{"........", "#####...", "###.....", "###....."}));
}

TEST_F(Paths, AreClosedByFillsForTheFillOnly) {
    Canvas open(12, 12);
    Canvas closed(12, 12);
    for (Canvas* canvas : {&open, &closed}) {
        canvas->Smooth();
        canvas->Lines(std::vector<VecPoint>{{1.5F, 2}, {10, 3}, {4, 9.5F}});
        if (canvas == &closed) {
            canvas->ClosePath();
        }
        canvas->GSave();
        EXPECT_EQ(canvas->Fill(), nullptr);
        canvas->GRestore();
    }
    EXPECT_EQ(open.Pixels(), closed.Pixels());
    EXPECT_EQ(CurrentPoint(open), (Numbers2{4, 9.5F}));
    open.Clear(0);
    EXPECT_EQ(open.Stroke(), nullptr);
    EXPECT_EQ(open.Get(2, 5), 0U) << "the third side is not there";
    closed.Clear(0);
    EXPECT_EQ(closed.Stroke(), nullptr);
    EXPECT_NE(closed.Get(2, 5), 0U);
}

// A rectangle as draw ports make it.
TEST_F(Paths, MayReturnToTheirStartBeforeTheyAreClosed) {
    for (std::int32_t join = 0; join < 3; ++join) {
        for (std::int32_t cap = 0; cap < 3; ++cap) {
            Canvas returned(20, 20);
            Canvas closed(20, 20);
            for (Canvas* canvas : {&returned, &closed}) {
                canvas->Smooth();
                canvas->LineWidth(5);
                canvas->LineJoin(join);
                canvas->LineCap(cap);
                canvas->Lines(std::vector<VecPoint>{{4.5F, 5}, {15, 5}, {15, 14}, {4.5F, 14}});
                if (canvas == &returned) {
                    canvas->LineTo(4.5F, 5);
                }
                canvas->ClosePath();
                EXPECT_EQ(canvas->Stroke(), nullptr);
            }
            EXPECT_EQ(returned.Pixels(), closed.Pixels()) << join << " " << cap;
        }
    }
}

TEST_F(Paths, AreForgottenWhenPainted) {
    Canvas canvas(6, 6);
    for (const Port paint : kPaints) {
        canvas.Rect(1, 1, 4, 4);
        EXPECT_EQ(canvas.Paint(paint), nullptr);
        EXPECT_TRUE(IsPathEmpty(canvas));
        EXPECT_EQ(CurrentPoint(canvas), std::nullopt);
        canvas.Clear(0);
        EXPECT_EQ(canvas.Fill(), nullptr);
        EXPECT_TRUE(IsBlank(canvas));
    }
}

TEST_F(Paths, WithoutAnAreaFillNothing) {
    using Points = std::vector<VecPoint>;
    for (const Points& points : {Points{{2, 2}}, Points{{1, 1}, {5, 4}}, Points{{1, 1}, {5, 1}, {3, 1}},
                                 Points{{0, 0}, {2, 2}, {4, 4}}, Points{{2, 2}, {2, 2}, {2, 2}}}) {
        for (const bool isSmooth : {false, true}) {
            for (const Port fill : {Port::kFill, Port::kEOFill}) {
                Canvas canvas(6, 6);
                isSmooth ? canvas.Smooth() : canvas.Hard();
                canvas.Polygon(points);
                EXPECT_EQ(canvas.Paint(fill), nullptr);
                EXPECT_TRUE(IsBlank(canvas)) << points.size();
            }
        }
    }
}

} // namespace
} // namespace tn::test
