#include "tests/engines/vec/PortQuestions.h"
#include "tests/support/Cases.h"

namespace tn::test {
namespace {

using Matrices = Drawing;
using abi::Port;

constexpr VecMatrix kIdentity = {1, 0, 0, 1, 0, 0};

void Concat(const Canvas& canvas, const VecMatrix& matrix) {
    canvas.Call<VecPortConcatMatrixType>(Port::kConcatMatrix, &matrix);
}
void Shear(const Canvas& canvas, float x, float y) { canvas.Call<VecPortPointType>(Port::kShear, x, y); }

Numbers2 Placed(const Canvas& canvas, float x, float y) {
    return Moved(canvas, Port::kTransformPoint, x, y).value_or(Numbers2{kNaN, kNaN});
}

TEST_F(Matrices, AreReplacedWhole) {
    Canvas canvas(4, 4);
    canvas.Scale(7, 7);
    canvas.SetMatrix({1, 2, 3, 4, 5, 6});
    EXPECT_EQ(MatrixOf(canvas), (Numbers6{1, 2, 3, 4, 5, 6}));
    canvas.SetMatrix(kIdentity);
    EXPECT_EQ(MatrixOf(canvas), (Numbers6{1, 0, 0, 1, 0, 0}));
}

TEST_F(Matrices, TakePointsByColumns) {
    Canvas canvas(4, 4);
    canvas.SetMatrix({1, 2, 3, 4, 5, 6});
    EXPECT_EQ(Placed(canvas, 0, 0), (Numbers2{5, 6}));
    EXPECT_EQ(Placed(canvas, 1, 0), (Numbers2{6, 8}));
    EXPECT_EQ(Placed(canvas, 0, 1), (Numbers2{8, 10}));
    EXPECT_EQ(Placed(canvas, 10, 100), (Numbers2{315, 426}));
}

TEST_F(Matrices, TakeStepsBeforeWhatIsThere) {
    Canvas canvas(4, 4);
    canvas.Translate(10, 0);
    canvas.Scale(2, 2);
    EXPECT_EQ(Placed(canvas, 1, 1), (Numbers2{12, 2}));
    canvas.SetMatrix(kIdentity);
    canvas.Scale(2, 2);
    canvas.Translate(10, 0);
    EXPECT_EQ(Placed(canvas, 1, 1), (Numbers2{22, 2}));
}

TEST_F(Matrices, TakeOtherMatricesBeforeWhatIsThere) {
    Canvas canvas(4, 4);
    canvas.Translate(10, 20);
    Concat(canvas, {0, 1, -1, 0, 3, 4});
    EXPECT_EQ(Placed(canvas, 1, 0), (Numbers2{13, 25}));
    EXPECT_EQ(Placed(canvas, 0, 1), (Numbers2{12, 24}));
    Concat(canvas, {2, 0, 0, 5, 1, 1});
    EXPECT_EQ(Placed(canvas, 1, 0), (Numbers2{12, 27}));
}

TEST_F(Matrices, AreSheared) {
    Canvas canvas(4, 4);
    canvas.Translate(10, 20);
    Shear(canvas, 0, 0);
    EXPECT_EQ(MatrixOf(canvas), (Numbers6{1, 0, 0, 1, 10, 20}));
    Shear(canvas, 2, 0);
    EXPECT_EQ(Placed(canvas, 0, 3), (Numbers2{16, 23}));
    EXPECT_EQ(Placed(canvas, 1, 0), (Numbers2{11, 20}));
    Shear(canvas, 0, 4);
    EXPECT_EQ(Placed(canvas, 1, 0), (Numbers2{19, 24}));
}

TEST_F(Matrices, AreInitialAgain) {
    Canvas canvas(4, 4);
    canvas.SetMatrix({1, 2, 3, 4, 5, 6});
    Do(canvas, Port::kInitMatrix);
    EXPECT_EQ(MatrixOf(canvas), (Numbers6{1, 0, 0, 1, 0, 0}));
}

TEST_F(Matrices, MoveDistancesWithoutTheirTranslation) {
    Canvas canvas(4, 4);
    canvas.SetMatrix({1, 2, 3, 4, 5, 6});
    EXPECT_EQ(Moved(canvas, Port::kTransformDistance, 10, 100), (Numbers2{310, 420}));
    canvas.SetMatrix({2, 0, 0, 4, 100, 100});
    EXPECT_EQ(Moved(canvas, Port::kInverseTransformDistance, 10, 20), (Numbers2{5, 5}));
}

TEST_F(Matrices, AreInverted) {
    ForEachCase(200, [](Random& random) {
        const auto entry = [&] { return static_cast<float>(random.Between(-64, 64)) / 16; };
        const VecMatrix m = {entry(), entry(), entry(), entry(), 10 * entry(), 10 * entry()};
        const float determinant = m.a * m.d - m.b * m.c;
        Canvas canvas(4, 4);
        canvas.SetMatrix(m);
        EXPECT_EQ(Ask(canvas, Port::kIsMatrixInvertible) != 0, determinant != 0);
        const Numbers2 there = Placed(canvas, 3, -5);
        const auto back = Moved(canvas, Port::kInverseTransformPoint, there[0], there[1]);
        EXPECT_EQ(back.has_value(), determinant != 0);
        if (back) {
            const float tolerance = 0.001F / std::min(std::abs(determinant), 1.0F);
            EXPECT_NEAR((*back)[0], 3, tolerance);
            EXPECT_NEAR((*back)[1], -5, tolerance);
        }
    });
}

TEST_F(Matrices, ThatAreSingularHaveNoInverse) {
    Canvas canvas(4, 4);
    for (const VecMatrix& m : {VecMatrix{0, 0, 0, 0, 3, 3}, VecMatrix{1, 2, 2, 4, 0, 0}, VecMatrix{0, 0, 0, 1, 0, 0},
                               VecMatrix{kNaN, 0, 0, 1, 0, 0}}) {
        canvas.SetMatrix(m);
        EXPECT_EQ(Ask(canvas, Port::kIsMatrixInvertible), 0);
        VecPoint point = {3, 4};
        EXPECT_EQ(canvas.Call<VecPortGetPointType>(Port::kInverseTransformPoint, &point), 0);
        EXPECT_EQ(canvas.Call<VecPortGetPointType>(Port::kInverseTransformDistance, &point), 0);
        EXPECT_EQ((Numbers2{point.x, point.y}), (Numbers2{3, 4}));
    }
}

TEST_F(Matrices, PlaceWhatIsPainted) {
    Canvas canvas(6, 4);
    canvas.Translate(2, 1);
    canvas.Scale(3, 2);
    canvas.Rect(0, 0, 1, 1);
    canvas.Fill();
    EXPECT_EQ(Picture(canvas), (Rows{"......", "..###.", "..###.", "......"}));
    canvas.Clear(0);
    canvas.SetMatrix({0, 1, -1, 0, 5, 0});
    canvas.Rect(0, 1, 4, 2);
    canvas.Fill();
    EXPECT_EQ(Picture(canvas), (Rows{"...#..", "...#..", "...#..", "...#.."}));
}

TEST_F(Matrices, DoNotMoveWhatIsBuilt) {
    Canvas canvas(6, 4);
    canvas.MoveTo(1, 1);
    canvas.LineTo(3, 1);
    canvas.SetMatrix({2, 0, 0, 2, 1, 0});
    canvas.LineTo(1, 1.5F); // (3, 3)
    canvas.SetMatrix({-1, 0, 0, 1, 0, 0});
    canvas.LineTo(-1, 3);
    canvas.Scale(100, 100);
    canvas.Fill();
    EXPECT_EQ(Picture(canvas), (Rows{"......", ".##...", ".##...", "......"}));
}

TEST_F(Matrices, DoNotMoveTheClip) {
    Canvas canvas(6, 3);
    canvas.Rect(1, 1, 3, 2);
    canvas.Clip();
    canvas.NewPath();
    canvas.Translate(2, 0);
    canvas.Rect(-10, -10, 10, 10);
    canvas.Fill();
    EXPECT_EQ(Picture(canvas), (Rows{"......", ".##...", "......"}));
}

TEST_F(Matrices, OfScaleZeroPaintNothing) {
    for (const auto& [x, y] : {Numbers2{0, 0}, Numbers2{0, 1}, Numbers2{1, 0}}) {
        Canvas canvas(8, 8);
        canvas.LineWidth(2);
        canvas.Translate(4, 4);
        canvas.Scale(x, y);
        canvas.Rect(-2, -2, 2, 2);
        EXPECT_EQ(canvas.Fill(), nullptr);
        canvas.Rect(-2, -2, 2, 2);
        EXPECT_EQ(canvas.Stroke(), nullptr);
        EXPECT_TRUE(IsBlank(canvas)) << x << " " << y;
    }
}

TEST_F(Matrices, ThatAreSingularPaintNothingUntilAGoodOneIsSet) {
    constexpr std::array<VecMatrix, 5> kBad = {
        {{1, 2, 2, 4, 1, 1}, {0, 0, 0, 0, 4, 4}, {kNaN, 0, 0, 1, 0, 0}, {1, 0, kNaN, 1, 0, 0}, {1, 0, 0, 1, 0, kNaN}}};
    for (const VecMatrix& bad : kBad) {
        Canvas canvas(8, 8);
        canvas.LineWidth(2);
        canvas.SetMatrix(bad);
        for (const Port paint : {Port::kFill, Port::kEOFill, Port::kStroke}) {
            canvas.NewPath();
            canvas.Polygon(std::vector<VecPoint>{{1, 1}, {5, 2}, {2, 6}});
            canvas.Paint(paint);
        }
        EXPECT_TRUE(IsBlank(canvas));
        canvas.SetMatrix(kIdentity);
        canvas.NewPath();
        canvas.Rect(1, 1, 7, 7);
        EXPECT_EQ(canvas.Fill(), nullptr);
        EXPECT_EQ(canvas.Get(4, 4), 255U);
    }
}

TEST_F(Matrices, ThatAreSingularPaintNothingOfAGoodPath) {
    Canvas canvas(8, 8);
    canvas.LineWidth(2);
    for (const VecMatrix& bad :
         {VecMatrix{1, 2, 2, 4, 1, 1}, VecMatrix{0, 0, 0, 0, 0, 0}, VecMatrix{kNaN, 0, 0, 1, 0, 0}}) {
        for (const Port paint : {Port::kFill, Port::kEOFill, Port::kStroke}) {
            canvas.SetMatrix(kIdentity);
            canvas.NewPath();
            canvas.Polygon(std::vector<VecPoint>{{1, 1}, {7, 1}, {4, 7}});
            canvas.SetMatrix(bad);
            canvas.Paint(paint);
            EXPECT_TRUE(IsBlank(canvas));
        }
    }
}

} // namespace
} // namespace tn::test
