// Paint on masks.

#include "tests/engines/vec/PaintCases.h"

namespace tn::test {
namespace {

using PaintOnMasks = Drawing;
using abi::Port;

// The picture of a rectangle painted over two rows of ones and two of zeros.
Rows Painted(const model::Channels& color, std::int32_t option = 3) {
    Canvas canvas(11, 4, 1);
    for (std::int32_t x = 0; x < 11; ++x) {
        canvas.Set(x, 0, 1);
        canvas.Set(x, 1, 1);
    }
    canvas.Options(option);
    SetColor(canvas, color);
    canvas.Rect(2, 1, 9, 3);
    EXPECT_EQ(canvas.Fill(), nullptr);
    return Picture(canvas);
}

const Rows kSet = {"###########", "###########", "..#######..", "..........."};
const Rows kCleared = {"###########", "##.......##", "...........", "..........."};
const Rows kKept = {"###########", "###########", "...........", "..........."};

TEST_F(PaintOnMasks, SetsBitsFromHalfWhiteOn) {
    for (int value = 0; value < 256; ++value) {
        EXPECT_EQ(Painted({255, value, value, value}), model::PaintedBit(value, 255) == 1 ? kSet : kCleared) << value;
    }
}

TEST_F(PaintOnMasks, LeavesBitsBelowHalfTheAlpha) {
    for (int alpha = 0; alpha < 256; ++alpha) {
        EXPECT_EQ(Painted({alpha, 255, 255, 255}), model::PaintedBit(255, alpha) == 1 ? kSet : kKept) << alpha;
        EXPECT_EQ(Painted({alpha, 0, 0, 0}), model::PaintedBit(0, alpha) == 0 ? kCleared : kKept) << alpha;
    }
}

TEST_F(PaintOnMasks, GoesByTheLuminanceOfColors) {
    EXPECT_EQ(Painted({255, 255, 0, 0}), kCleared);
    EXPECT_EQ(Painted({255, 0, 255, 0}), kSet);
    EXPECT_EQ(Painted({255, 0, 0, 255}), kCleared);
    EXPECT_EQ(Painted({255, 255, 0, 255}), kCleared);
}

TEST_F(PaintOnMasks, DoesNotCareForOptions) {
    for (const std::int32_t option : {0, 1, 2, 3, 16, 19}) {
        EXPECT_EQ(Painted({255, 255, 255, 255}, option), kSet);
    }
}

TEST_F(PaintOnMasks, HasItsLeftmostPixelInTheHighestBit) {
    Canvas canvas(16, 1, 1);
    canvas.Rect(0, 0, 1, 1);
    canvas.Rect(9, 0, 11, 1);
    canvas.Fill();
    EXPECT_EQ(canvas.RowOf(0)[0], 0x80);
    EXPECT_EQ(canvas.RowOf(0)[1], 0x60);
}

// A mask shows what the same shape with hard edges covers of a matte.
TEST_F(PaintOnMasks, IsPaintOnAMatteWithHardEdges) {
    ForEachCase(300, [](Random& random) {
        const std::int32_t width = random.Between(1, 70);
        Canvas mask(width, 20, 1);
        Canvas matte(width, 20, 8);
        const std::uint64_t seed = random.Next();
        for (Canvas* canvas : {&mask, &matte}) {
            Random same(seed);
            const auto number = [&] { return static_cast<float>(same.Between(-100, 600)) / 8; };
            canvas->Options(canvas == &mask ? 3 : 0);
            canvas->Rect(number(), -1, number(), 17);
            canvas->Clip();
            for (int i = 0; i < 3; ++i) {
                canvas->NewPath();
                canvas->Gray(i == 1 ? 0.0F : 1.0F);
                canvas->LineWidth(5);
                canvas->MoveTo(number(), number());
                canvas->LineTo(number(), number());
                canvas->CurveTo(number(), number(), number(), number(), number(), number());
                EXPECT_EQ(i == 2 ? canvas->Stroke() : canvas->EOFill(), nullptr);
            }
        }
        EXPECT_EQ(Picture(mask), Picture(matte));
    });
}

} // namespace
} // namespace tn::test
