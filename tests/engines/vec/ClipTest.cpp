#include "tests/engines/vec/PortQuestions.h"
#include "tests/support/Cases.h"

#include <functional>

namespace tn::test {
namespace {

using Clips = Drawing;
using abi::Port;

void FillAll(Canvas& canvas) {
    canvas.NewPath();
    canvas.Rect(-100, -100, 100, 100);
    EXPECT_EQ(canvas.Fill(), nullptr);
}

KelError ClipRect(Canvas& canvas, const VecRect& rect) { return canvas.PaintRect(Port::kClipRect, rect); }

bool IsClipEmpty(const Canvas& canvas) { return Ask(canvas, Port::kIsClipEmpty) != 0; }

// A square with a square of the same direction in it.
void NestedSquares(Canvas& canvas) {
    canvas.Rect(0, 0, 5, 5);
    canvas.Rect(2, 2, 3, 3);
}

TEST_F(Clips, KeepPaintInsideThePath) {
    Canvas canvas(6, 5);
    NestedSquares(canvas);
    EXPECT_EQ(canvas.Clip(), nullptr);
    FillAll(canvas);
    EXPECT_EQ(Picture(canvas), Rows(5, "#####."));
}

TEST_F(Clips, FollowTheEvenOddRule) {
    Canvas canvas(6, 5);
    NestedSquares(canvas);
    EXPECT_EQ(canvas.EOClip(), nullptr);
    FillAll(canvas);
    EXPECT_EQ(Picture(canvas), (Rows{"#####.", "#####.", "##.##.", "#####.", "#####."}));
}

TEST_F(Clips, KeepThePath) {
    for (const Port clip : {Port::kClip, Port::kEOClip}) {
        Canvas canvas(6, 3);
        canvas.MoveTo(1, 1);
        canvas.LineTo(4, 1);
        canvas.LineTo(4, 2);
        canvas.LineTo(1, 2);
        EXPECT_EQ(canvas.Paint(clip), nullptr);
        EXPECT_EQ(Ask(canvas, Port::kIsPathEmpty), 0);
        EXPECT_EQ(CurrentPoint(canvas), (Numbers2{1, 2}));
        EXPECT_EQ(PathBounds(canvas), (Numbers4{1, 1, 4, 2}));
        EXPECT_EQ(canvas.Fill(), nullptr);
        EXPECT_EQ(Picture(canvas), (Rows{"......", ".###..", "......"}));
    }
}

TEST_F(Clips, OfAnEmptyPathHideEverything) {
    for (const Port clip : {Port::kClip, Port::kEOClip}) {
        for (const bool isMoved : {false, true}) {
            Canvas canvas(6, 3);
            if (isMoved) {
                canvas.MoveTo(1, 1);
            }
            EXPECT_EQ(canvas.Paint(clip), nullptr);
            EXPECT_TRUE(IsClipEmpty(canvas));
            EXPECT_EQ(ClipBounds(canvas), std::nullopt);
            FillAll(canvas);
            EXPECT_TRUE(IsBlank(canvas));
        }
    }
}

TEST_F(Clips, OfALineHideEverything) {
    Canvas canvas(6, 3);
    canvas.Smooth();
    canvas.MoveTo(0, 1);
    canvas.LineTo(6, 1.5F);
    EXPECT_EQ(canvas.Clip(), nullptr);
    FillAll(canvas);
    EXPECT_TRUE(IsBlank(canvas));
}

TEST_F(Clips, OutsideTheTargetHideEverything) {
    Canvas canvas(6, 3);
    canvas.Rect(6, 0, 20, 3);
    EXPECT_EQ(canvas.Clip(), nullptr);
    EXPECT_TRUE(IsClipEmpty(canvas));
    FillAll(canvas);
    EXPECT_TRUE(IsBlank(canvas));
}

TEST_F(Clips, OnlyShrink) {
    Canvas canvas(6, 3);
    canvas.Rect(1, 0, 4, 3);
    canvas.Clip();
    canvas.NewPath();
    canvas.Rect(2, -5, 50, 2);
    canvas.Clip();
    EXPECT_EQ(ClipBounds(canvas), (Numbers4{2, 0, 4, 2}));
    canvas.NewPath();
    canvas.Rect(-100, -100, 100, 100);
    canvas.Clip();
    FillAll(canvas);
    EXPECT_EQ(Picture(canvas), (Rows{"..##..", "..##..", "......"}));
    canvas.Clear(0);
    canvas.NewPath();
    canvas.Clip();
    canvas.Rect(0, 0, 6, 3);
    canvas.Clip();
    FillAll(canvas);
    EXPECT_TRUE(IsBlank(canvas)) << "what is hidden stays hidden";
}

TEST_F(Clips, GrowAgainWhenTheStateIsRestored) {
    Canvas canvas(6, 2);
    canvas.Rect(1, 0, 5, 2);
    canvas.Clip();
    canvas.GSave();
    canvas.NewPath();
    canvas.Clip();
    EXPECT_TRUE(IsClipEmpty(canvas));
    canvas.GRestore();
    EXPECT_EQ(ClipBounds(canvas), (Numbers4{1, 0, 5, 2}));
    FillAll(canvas);
    EXPECT_EQ(Picture(canvas), Rows(2, ".####."));
}

TEST_F(Clips, ActOnStrokes) {
    Canvas canvas(6, 3);
    canvas.Rect(1, 0, 3, 3);
    canvas.Clip();
    canvas.NewPath();
    canvas.MoveTo(-5, 1.5F);
    canvas.LineTo(50, 1.5F);
    EXPECT_EQ(canvas.Stroke(), nullptr);
    EXPECT_EQ(Picture(canvas), (Rows{"......", ".##...", "......"}));
}

TEST_F(Clips, AreRectangles) {
    Canvas canvas(6, 3);
    canvas.MoveTo(3, 2);
    EXPECT_EQ(ClipRect(canvas, {1, -4, 3, 2}), nullptr);
    EXPECT_EQ(ClipRect(canvas, {2, 1, 9, 9}), nullptr);
    EXPECT_EQ(CurrentPoint(canvas), (Numbers2{3, 2})) << "the path is another matter";
    EXPECT_EQ(ClipBounds(canvas), (Numbers4{2, 1, 3, 2}));
    FillAll(canvas);
    EXPECT_EQ(Picture(canvas), (Rows{"......", "..#...", "......"}));
}

TEST_F(Clips, OfRectanglesGoThroughTheMatrix) {
    Canvas canvas(6, 3);
    canvas.Translate(1, 1);
    canvas.Scale(2, 1);
    EXPECT_EQ(ClipRect(canvas, {0, 0, 2, 1}), nullptr);
    EXPECT_EQ(ClipBounds(canvas), (Numbers4{1, 1, 5, 2})) << "told in device space";
    FillAll(canvas);
    EXPECT_EQ(Picture(canvas), (Rows{"......", ".####.", "......"}));
}

TEST_F(Clips, AreInitialAgain) {
    Canvas canvas(6, 2);
    canvas.Clip();
    EXPECT_TRUE(IsClipEmpty(canvas));
    Do(canvas, Port::kInitClip);
    EXPECT_FALSE(IsClipEmpty(canvas));
    EXPECT_EQ(ClipBounds(canvas), (Numbers4{0, 0, 6, 2}));
    FillAll(canvas);
    EXPECT_EQ(Picture(canvas), Rows(2, "######"));
}

TEST_F(Clips, MayHaveNothingLeft) {
    Canvas canvas(12, 8);
    canvas.Smooth();
    canvas.Polygon(std::vector<VecPoint>{{1, 1}, {9, 2}, {3, 7}});
    canvas.Clip();
    canvas.NewPath();
    canvas.Clip();
    EXPECT_EQ(canvas.Paint(Port::kErasePage), nullptr);
    canvas.Rect(0, 0, 12, 8);
    EXPECT_EQ(canvas.Fill(), nullptr);
    EXPECT_TRUE(IsBlank(canvas));
    EXPECT_EQ(canvas.Error(), nullptr);
}

TEST_F(Clips, OfWholePixelsCutSmoothOnes) {
    const auto draw = [](Canvas& canvas, const std::function<void()>& clip) {
        canvas.Smooth();
        canvas.Polygon(std::vector<VecPoint>{{1, 1}, {9, 2}, {3, 7}});
        canvas.Clip();
        canvas.NewPath();
        clip();
        canvas.NewPath();
        canvas.Rect(0, 0, 12, 8);
        EXPECT_EQ(canvas.Fill(), nullptr);
    };
    Canvas whole(12, 8), cut(12, 8);
    draw(whole, [] {});
    draw(cut, [&] {
        cut.Rect(3, 2, 6, 5);
        cut.Clip();
    });
    for (std::int32_t y = 0; y < 8; ++y) {
        for (std::int32_t x = 0; x < 12; ++x) {
            const bool isIn = x >= 3 && x < 6 && y >= 2 && y < 5;
            EXPECT_EQ(cut.Get(x, y), isIn ? whole.Get(x, y) : 0) << x << ' ' << y;
        }
    }
}

TEST_F(Clips, CutWhatIsErased) {
    Canvas canvas(8, 4);
    canvas.Gray(0.5F);
    canvas.MoveTo(1, 1);
    canvas.LineTo(3, 2);
    canvas.GSave();
    canvas.NewPath();
    canvas.Rect(2, 1, 5, 3);
    canvas.Clip();
    EXPECT_EQ(canvas.Paint(Port::kErasePage), nullptr);
    EXPECT_EQ(Picture(canvas), (Rows{"........", "..###...", "..###...", "........"})) << "white, whatever the colour";
    canvas.GRestore();
    EXPECT_EQ(PathBounds(canvas), (Numbers4{1, 1, 3, 2}));
    EXPECT_EQ(canvas.Paint(Port::kErasePage), nullptr);
    EXPECT_EQ(Picture(canvas), Rows(4, "########"));
}

TEST_F(Clips, TellBoundsThatHoldAllThatIsPainted) {
    ForEachCase(200, [](Random& random) {
        Canvas canvas(30, 30);
        canvas.Smooth();
        for (int i = 0; i < 3; ++i) {
            const auto number = [&] { return static_cast<float>(random.Between(-40, 280)) / 8; };
            canvas.NewPath();
            canvas.MoveTo(number(), number());
            canvas.LineTo(number(), number());
            canvas.CurveTo(number(), number(), number(), number(), number(), number());
            canvas.Clip();
        }
        FillAll(canvas);
        const Numbers4 bounds = ClipBounds(canvas).value_or(Numbers4{99, 99, -99, -99});
        for (std::int32_t y = 0; y < 30; ++y) {
            for (std::int32_t x = 0; x < 30; ++x) {
                const auto left = static_cast<float>(x);
                const auto top = static_cast<float>(y);
                const bool isInside =
                    bounds[0] < left + 1 && left < bounds[2] && bounds[1] < top + 1 && top < bounds[3];
                EXPECT_TRUE(isInside || canvas.Get(x, y) == 0) << x << " " << y;
            }
        }
    });
}

// Two clips and a paint, each of which covers a part of the one pixel.
TEST_F(Clips, MultiplyWithEachOtherAndWithThePaint) {
    ForEachCase(2000, [](Random& random) {
        Canvas canvas(1, 1);
        canvas.Smooth();
        double expected = 255;
        for (int i = 0; i < 3; ++i) {
            const std::int32_t covered = random.Between(0, 64);
            const float part = static_cast<float>(covered) / 64;
            canvas.NewPath();
            i == 1 ? canvas.Rect(0, 0, part, 1) : canvas.Rect(0, 0, 1, part);
            EXPECT_EQ(i == 2 ? canvas.Fill() : canvas.Clip(), nullptr);
            expected *= static_cast<double>(part);
        }
        EXPECT_NEAR(canvas.Get(0, 0), expected, 2);
    });
}

TEST_F(Clips, OnWholePixelsAreExact) {
    ForEachCase(300, [](Random& random) {
        const auto number = [&] { return static_cast<float>(random.Between(-40, 280)) / 8; };
        const auto whole = [&] { return static_cast<float>(random.Between(0, 30)); };
        const std::vector<VecPoint> shape = {
            {number(), number()}, {number(), number()}, {number(), number()}, {number(), number()}};
        Canvas free(30, 30);
        Canvas clipped(30, 30);
        const VecRect clip = {whole(), whole(), whole(), whole()};
        for (Canvas* canvas : {&free, &clipped}) {
            canvas->Smooth();
            if (canvas == &clipped) {
                canvas->Rect(clip.left, clip.top, clip.right, clip.bottom);
                EXPECT_EQ(canvas->Clip(), nullptr);
                canvas->NewPath();
            }
            canvas->Polygon(shape);
            EXPECT_EQ(canvas->Fill(), nullptr);
        }
        for (std::int32_t y = 0; y < 30; ++y) {
            for (std::int32_t x = 0; x < 30; ++x) {
                const auto within = [](std::int32_t at, float low, float high) {
                    return std::min(low, high) <= static_cast<float>(at) &&
                           static_cast<float>(at) < std::max(low, high);
                };
                const bool isInside = within(x, clip.left, clip.right) && within(y, clip.top, clip.bottom);
                EXPECT_EQ(clipped.Get(x, y), isInside ? free.Get(x, y) : 0);
            }
        }
    });
}

} // namespace
} // namespace tn::test
