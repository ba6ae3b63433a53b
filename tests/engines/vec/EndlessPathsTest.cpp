// Paths of very many parts, and such as reach very far.

#include "tests/engines/vec/PortQuestions.h"
#include "tests/support/Cases.h"

#include <ctime>

namespace tn::test {
namespace {

using EndlessPaths = Drawing;
using abi::Port;

constexpr std::array<Port, 3> kPaints = {Port::kFill, Port::kEOFill, Port::kStroke};

// Expects work to take the processor seconds rather than minutes, also without optimisation and with checks.
template <class Work> void ExpectSoon(const Work& work) {
    const std::clock_t begin = std::clock();
    work();
    EXPECT_LT((std::clock() - begin) / CLOCKS_PER_SEC, 30);
}

// A width of a thousand million pixels, in a moment.
TEST_F(EndlessPaths, OfVeryGreatWidth) {
    ExpectSoon([] {
        Canvas canvas(8, 8);
        canvas.Smooth();
        for (int i = 0; i < 50; ++i) {
            for (const Port paint : kPaints) {
                canvas.MoveTo(-5e8F, -5e8F);
                canvas.LineTo(5e8F, 3);
                canvas.CurveTo(-5e8F, 20, 5e8F, 3e8F, 5e8F, 5e8F);
                canvas.LineTo(4, 4);
                canvas.CurveTo(1e9F, 1e9F, -1e9F, 1e9F, -5e8F, 5e8F);
                EXPECT_EQ(canvas.Paint(paint), nullptr);
            }
        }
        EXPECT_EQ(canvas.Error(), nullptr);
    });
}

// A walk by small steps that stays within the target.
TEST_F(EndlessPaths, OfMillionsOfLines) {
    const int lines = HasTimeForEveryValue() ? 1'000'000 : 100'000;
    ExpectSoon([=] {
        Canvas canvas(64, 64);
        canvas.Smooth();
        Random random(BaseSeed());
        std::int32_t x = 256;
        std::int32_t y = 256;
        canvas.MoveTo(32, 32);
        for (int i = 0; i < lines; ++i) {
            x = std::clamp(x + random.Between(-4, 4), 8, 504);
            y = std::clamp(y + random.Between(-4, 4), 8, 504);
            canvas.LineTo(static_cast<float>(x) / 8, static_cast<float>(y) / 8);
        }
        EXPECT_EQ(canvas.Fill(), nullptr);
        EXPECT_FALSE(IsBlank(canvas));
        EXPECT_EQ(canvas.Get(0, 0), 0U);
        EXPECT_EQ(canvas.Get(63, 63), 0U);
    });
}

// Lines from edge to edge, of which very many cross in every pixel.
TEST_F(EndlessPaths, OfLinesThatAllCrossEachOther) {
    const int lines = HasTimeForEveryValue() ? 2'000 : 500;
    ExpectSoon([=] {
        Canvas canvas(64, 64);
        canvas.Smooth();
        Random random(BaseSeed());
        const auto number = [&] { return static_cast<float>(random.Between(0, 512)) / 8; };
        canvas.MoveTo(0, 0);
        for (int i = 0; i < lines; ++i) {
            i % 2 == 0 ? canvas.LineTo(64, number()) : canvas.LineTo(0, number());
        }
        EXPECT_EQ(canvas.Fill(), nullptr);
        EXPECT_FALSE(IsBlank(canvas));
    });
}

// A zigzag whose teeth are far narrower than a pixel.
TEST_F(EndlessPaths, OfVeryNarrowTeeth) {
    const int teeth = HasTimeForEveryValue() ? 100'000 : 20'000;
    ExpectSoon([=] {
        Canvas canvas(64, 16);
        canvas.Smooth();
        canvas.MoveTo(0, 12);
        for (int i = 0; i < teeth; ++i) {
            const double x = 64.0 * i / teeth;
            canvas.LineTo(static_cast<float>(x), 12);
            canvas.LineTo(static_cast<float>(x + 32.0 / teeth), 4);
        }
        canvas.LineTo(64, 12);
        EXPECT_EQ(canvas.EOFill(), nullptr);
        EXPECT_EQ(canvas.Get(32, 2), 0U);
        EXPECT_EQ(canvas.Get(32, 13), 0U);
    });
}

TEST_F(EndlessPaths, OfVeryManyEqualParts) {
    const int parts = HasTimeForEveryValue() ? 300'000 : 30'000;
    ExpectSoon([=] {
        Canvas canvas(16, 8);
        canvas.Smooth();
        for (const Port fill : {Port::kFill, Port::kEOFill}) {
            canvas.Clear(0);
            for (int i = 0; i < parts; ++i) {
                canvas.Rect(2.5F, 2, 10, 6);
            }
            EXPECT_EQ(canvas.Paint(fill), nullptr);
            EXPECT_EQ(Picture(canvas)[4], fill == Port::kFill ? "..+#######......" : "................");
            EXPECT_EQ(Picture(canvas)[1], "................");
        }
    });
}

TEST_F(EndlessPaths, OfVeryManyPartsThatCancelOut) {
    const int pairs = HasTimeForEveryValue() ? 100'000 : 10'000;
    ExpectSoon([=] {
        Canvas canvas(16, 8);
        canvas.Smooth();
        for (int i = 0; i < pairs; ++i) {
            canvas.Rect(2.5F, 2, 10, 6);
            canvas.Rect(10, 2, 2.5F, 6);
        }
        EXPECT_EQ(canvas.Fill(), nullptr);
        EXPECT_TRUE(IsBlank(canvas));
    });
}

TEST_F(EndlessPaths, OfVeryManyEmptyParts) {
    ExpectSoon([] {
        Canvas canvas(8, 8);
        for (int i = 0; i < 100'000; ++i) {
            canvas.MoveTo(3, 3);
            canvas.ClosePath();
        }
        canvas.GSave();
        EXPECT_EQ(canvas.Fill(), nullptr);
        canvas.GRestore();
        EXPECT_EQ(canvas.Stroke(), nullptr);
        EXPECT_TRUE(IsBlank(canvas));
    });
}

TEST_F(EndlessPaths, AreClipsInDeepStacks) {
    ExpectSoon([] {
        constexpr int kDepth = 2000;
        Canvas canvas(32, 32);
        canvas.Smooth();
        for (int i = 0; i < kDepth; ++i) {
            canvas.NewPath();
            canvas.Polygon(std::vector<VecPoint>{{0.5F, 0.5F}, {31, 1}, {16, 31}});
            canvas.Clip();
            canvas.GSave();
        }
        EXPECT_EQ(Depth(canvas), kDepth);
        Do(canvas, Port::kGRestoreAll);
        EXPECT_EQ(Depth(canvas), 0);
        EXPECT_EQ(canvas.Error(), nullptr);
    });
}

} // namespace
} // namespace tn::test
