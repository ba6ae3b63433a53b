// Numbers that are none or far too large.

#include "tests/engines/vec/PortQuestions.h"
#include "tests/support/Cases.h"

#include <memory>

namespace tn::test {
namespace {

using Robustness = Drawing;
using abi::Port;

constexpr std::array<Port, 3> kPaints = {Port::kFill, Port::kEOFill, Port::kStroke};
constexpr std::array<float, 4> kHuge = {1e30F, kInfinity, 1073741824.0F, 3e9F};

TEST_F(Robustness, OfNoNumbersInPaths) {
    for (int way = 0; way < 8; ++way) {
        Canvas canvas(8, 8);
        canvas.MoveTo(1, 1);
        const float x = way % 2 == 0 ? kNaN : 7.0F;
        const float y = way % 2 == 0 ? 7.0F : kNaN;
        switch (way / 2) {
        case 0:
            canvas.LineTo(x, y);
            break;
        case 1:
            canvas.CurveTo(x, y, 3, 3, 7, 7);
            break;
        case 2:
            canvas.CurveTo(2, 2, 3, 3, x, y);
            break;
        default:
            canvas.MoveTo(x, y);
        }
        EXPECT_EQ(CurrentPoint(canvas), (Numbers2{1, 1})) << "nothing is added";
        ExpectOwnError(canvas.Error());
        canvas.LineTo(7, 1);
        canvas.LineTo(7, 7);
        for (const Port paint : {Port::kFill, Port::kEOFill, Port::kStroke, Port::kClip, Port::kEOClip}) {
            ExpectOwnError(canvas.Paint(paint));
        }
        EXPECT_TRUE(IsBlank(canvas));
        EXPECT_EQ(ClipBounds(canvas), (Numbers4{0, 0, 8, 8}));
        canvas.NewPath();
        canvas.Rect(1, 1, 7, 7);
        EXPECT_EQ(canvas.Fill(), nullptr) << "another path is sound";
        EXPECT_EQ(canvas.Get(4, 4), 255U);
    }
}

TEST_F(Robustness, OfHugeRectangles) {
    for (const float far : kHuge) {
        Canvas canvas(8, 8);
        canvas.Rect(-far, -far, far, far);
        EXPECT_EQ(canvas.Fill(), nullptr);
        EXPECT_EQ(Picture(canvas), Rows(8, "########")) << far;
        canvas.Clear(0);
        canvas.Smooth();
        canvas.Rect(3, -far, far, 5);
        EXPECT_EQ(canvas.Fill(), nullptr);
        EXPECT_EQ(Picture(canvas)[4], "...#####") << far;
        EXPECT_EQ(Picture(canvas)[5], "........") << far;
        canvas.Rect(far / 2, far / 2, far, far);
        EXPECT_EQ(canvas.Clip(), nullptr);
        EXPECT_NE(Ask(canvas, Port::kIsClipEmpty), 0);
        EXPECT_EQ(canvas.Error(), nullptr);
    }
}

TEST_F(Robustness, OfHugeLines) {
    for (const float far : kHuge) {
        Canvas canvas(8, 8);
        canvas.Smooth();
        canvas.LineWidth(2);
        canvas.MoveTo(-far, 4);
        canvas.LineTo(far, 4);
        EXPECT_EQ(canvas.Stroke(), nullptr);
        const Rows picture = Picture(canvas);
        EXPECT_EQ(picture[2], "........") << far;
        EXPECT_EQ(picture[3], "########") << far;
        EXPECT_EQ(picture[4], "########") << far;
        EXPECT_EQ(picture[5], "........") << far;
    }
}

// Each coordinate is cut by itself: the corner far away lies on the diagonal.
TEST_F(Robustness, OfPointsThatAreTooFarAway) {
    for (const float scale : {1.0F, 1e6F, 1e-6F}) {
        Canvas canvas(4, 4);
        canvas.Scale(scale, scale);
        canvas.Polygon(std::vector<VecPoint>{{0, 0}, {1e12F / scale, 3e12F / scale}, {-1e12F / scale, 3e12F / scale}});
        EXPECT_EQ(canvas.Fill(), nullptr);
        EXPECT_EQ(Picture(canvas), (Rows{"....", "#...", "##..", "###."})) << scale;
    }
}

TEST_F(Robustness, OfMatricesThatGrowBeyondAllNumbers) {
    for (const Port paint : kPaints) {
        Canvas canvas(8, 8);
        canvas.Smooth();
        canvas.SetMatrix({1, 0, 1, 1, 0, 0});
        for (int times = 0; times < 68; ++times) {
            canvas.Scale(32767, 32767);
        }
        canvas.MoveTo(0, 0);
        canvas.LineTo(3e38F, -3e38F);
        canvas.LineTo(-3e38F, 3e38F);
        canvas.LineWidth(3e38F);
        EXPECT_EQ(canvas.Paint(paint), nullptr);
        EXPECT_TRUE(IsBlank(canvas));
        canvas.NewPath();
        Do(canvas, Port::kInitClip);
        Do(canvas, Port::kInitMatrix);
        canvas.Rect(0, 0, 8, 8);
        EXPECT_EQ(canvas.Fill(), nullptr);
        EXPECT_EQ(Area(canvas), 64) << "as soon as there is a matrix again";
    }
}

TEST_F(Robustness, OfInfiniteEllipses) {
    Canvas canvas(8, 8);
    const VecRect rect = {-kInfinity, -kInfinity, kInfinity, kInfinity};
    canvas.Call<VecPortRectPathType>(Port::kAddEllipse, &rect);
    EXPECT_EQ(canvas.Fill(), nullptr);
    EXPECT_EQ(Area(canvas), 64);
    EXPECT_EQ(canvas.Error(), nullptr);
}

// Coordinates that cannot be told exactly from the box's left side are off by a little.
TEST_F(Robustness, OfTargetsThatCutShapes) {
    ForEachCase(400, [](Random& random) {
        Canvas whole(60, 40);
        const std::int32_t left = random.Between(0, 30), top = random.Between(0, 20);
        CanvasLayout layout = {random.Between(1, 29), random.Between(1, 19), 8};
        layout.left = left;
        layout.top = top;
        Canvas part(layout);
        std::vector<VecPoint> points(static_cast<std::size_t>(random.Between(3, 6)));
        for (VecPoint& point : points) {
            point = {static_cast<float>(random.Between(-40, 1000)) / 16, static_cast<float>(random.Between(0, 80)) / 2};
        }
        for (Canvas* const canvas : {&whole, &part}) {
            canvas->Smooth();
            canvas->Polygon(points);
            EXPECT_EQ(canvas->Fill(), nullptr);
        }
        for (std::int32_t y = top; y < top + layout.height; ++y) {
            for (std::int32_t x = left; x < left + layout.width; ++x) {
                ASSERT_NEAR(part.Get(x, y), whole.Get(x, y), 1) << x << ' ' << y;
            }
        }
    });
}

TEST_F(Robustness, OfAnyNumbersInPathsMatricesAndWidths) {
    constexpr std::array<float, 14> kNumbers = {0,     1,    -1,        4.5F, 1e-30F,     1e30F,         -1e30F,
                                                1e38F, kNaN, kInfinity, -5,   -kInfinity, 1073741824.0F, 1e-45F};
    ForEachCase(1500, [&](Random& random) {
        Canvas canvas(8, 8, random.OneOf(std::array{32, 8, 1}));
        const auto number = [&] {
            return random.OneIn(2) ? static_cast<float>(random.Between(-40, 100)) / 8 : random.OneOf(kNumbers);
        };
        canvas.Options(random.OneOf(std::array{0, 2, 3, 16, 19}));
        for (int i = 0; i < 14; ++i) {
            switch (random.Between(0, 9)) {
            case 0:
                canvas.SetMatrix({number(), number(), number(), number(), number(), number()});
                break;
            case 1:
                canvas.Scale(number(), number());
                break;
            case 2:
                canvas.LineWidth(number());
                break;
            case 3:
                canvas.LineCap(random.Between(-1, 3));
                canvas.LineJoin(random.Between(-1, 3));
                break;
            case 4:
                canvas.Rect(number(), number(), number(), number());
                canvas.Clip();
                break;
            case 5:
                canvas.GSave();
                break;
            case 6:
                canvas.GRestore();
                break;
            default:
                canvas.MoveTo(number(), number());
                canvas.LineTo(number(), number());
                canvas.CurveTo(number(), number(), number(), number(), number(), number());
                if (random.OneIn(2)) {
                    canvas.ClosePath();
                }
                canvas.Paint(random.OneOf(kPaints));
            }
        }
    });
}

TEST_F(Robustness, OfEqualInputIsEqualOutput) {
    ForEachCase(100, [](Random& random) {
        const std::uint64_t seed = random.Next();
        std::vector<std::uint32_t> first;
        for (int run = 0; run < 2; ++run) {
            Random same(seed);
            const auto number = [&] { return static_cast<float>(same.Between(-100, 600)) / 8; };
            Canvas canvas(60, 60, 32);
            std::vector<std::unique_ptr<Canvas>> others(static_cast<std::size_t>(run) * 3);
            for (auto& other : others) { // they move what the engine allocates
                other = std::make_unique<Canvas>(9, 9);
                other->MoveTo(1, 1);
            }
            canvas.Smooth();
            canvas.AlphaRgb(0.6F, 1, 0.3F, 0);
            canvas.LineWidth(4);
            canvas.MoveTo(number(), number());
            canvas.CurveTo(number(), number(), number(), number(), number(), number());
            canvas.LineTo(number(), number());
            canvas.GSave();
            canvas.Fill();
            canvas.GRestore();
            canvas.Stroke();
            if (run == 0) {
                first = canvas.Pixels();
            } else {
                EXPECT_EQ(canvas.Pixels(), first);
            }
        }
    });
}

} // namespace
} // namespace tn::test
