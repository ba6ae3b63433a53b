// Paint in colour on pixels of straight alpha, against plain numbers.

#include "tests/engines/vec/PaintCases.h"

namespace tn::test {
namespace {

using model::Channels;
using model::ChannelsOf;
using PaintOnImages = Drawing;

constexpr std::int32_t kRows = 16;

// Fills a canvas of random pixels with a shape and compares every pixel.
void ExpectToPaint(AddShape addShape, const Coverages& coverages, const Channels& color, Random& random) {
    Canvas canvas(kRampWidth, kRows, 32);
    for (std::int32_t y = 0; y < kRows; ++y) {
        for (std::int32_t x = 0; x < kRampWidth; ++x) {
            canvas.Set(x, y, std::uint32_t{random.Alpha()} << 24 | (random.Word() & 0xFFFFFF));
        }
    }
    const std::vector<std::uint32_t> before = canvas.Pixels();
    SetColor(canvas, color);
    FillSmoothly(canvas, addShape);
    const std::vector<std::uint32_t> after = canvas.Pixels();
    for (std::size_t i = 0; i < after.size(); ++i) {
        const Channels paint = {model::PaintAlpha(color.alpha, coverages[i]), color.red, color.green, color.blue};
        const Channels under = ChannelsOf(before[i]);
        ASSERT_TRUE(model::IsPainted(ChannelsOf(after[i]), paint, under))
            << std::hex << after[i] << " is painted on " << before[i] << " by a paint of " << model::PackedWord(color)
            << " at coverage " << coverages[i];
        ASSERT_GE(after[i] >> 24, static_cast<std::uint32_t>(std::max(paint.alpha, under.alpha)));
    }
}

TEST_F(PaintOnImages, IsExactForEveryAlphaAndCoverage) {
    ForEachPaintLevel([] {
        for (const AddShape addShape : kShapes) {
            const Coverages coverages = CoveragesOf(addShape, kRows);
            Random random(BaseSeed());
            for (int alpha = 0; alpha < 256; alpha += HasTimeForEveryValue() ? 1 : 15) {
                ExpectToPaint(addShape, coverages, {alpha, random.Channel(), random.Channel(), random.Channel()},
                              random);
            }
        }
    });
}

TEST_F(PaintOnImages, IsExactForAnyColor) {
    ForEachPaintLevel([] {
        for (const AddShape addShape : kShapes) {
            const Coverages coverages = CoveragesOf(addShape, kRows);
            ForEachCase(HasTimeForEveryValue() ? 60 : 6, [&](Random& random) {
                ExpectToPaint(addShape, coverages,
                              {random.Alpha(), random.Channel(), random.Channel(), random.Channel()}, random);
            });
        }
    });
}

TEST_F(PaintOnImages, LeavesAnEqualColorAsItIs) {
    Random random(BaseSeed());
    for (int i = 0; i < 20; ++i) {
        const std::uint32_t rgb = random.Word() & 0xFFFFFF;
        Canvas canvas(kRampWidth, kRows, 32);
        for (std::int32_t y = 0; y < kRows; ++y) {
            for (std::int32_t x = 0; x < kRampWidth; ++x) {
                canvas.Set(x, y, std::uint32_t{random.Alpha()} << 24 | rgb);
            }
        }
        Channels color = ChannelsOf(rgb);
        color.alpha = random.Alpha();
        SetColor(canvas, color);
        FillRamps(canvas);
        for (const std::uint32_t pixel : canvas.Pixels()) {
            ASSERT_EQ(pixel & 0xFFFFFF, rgb);
        }
    }
}

// What hides under an alpha of 0 is not seen.
TEST_F(PaintOnImages, TakesTheWholeColorWhereThereWasNone) {
    const Coverages coverages = CoveragesOf(&AddRamps, 1);
    Canvas canvas(kRampWidth, 1, 32);
    canvas.Clear(0x00123456);
    SetColor(canvas, {255, 250, 128, 1});
    FillRamps(canvas);
    for (std::int32_t x = 0; x < kRampWidth; ++x) {
        const auto coverage = static_cast<std::uint32_t>(coverages[static_cast<std::size_t>(x)]);
        EXPECT_EQ(canvas.Get(x, 0), coverage == 0 ? 0x00123456 : coverage << 24 | 0xFA8001);
    }
}

TEST_F(PaintOnImages, OfNoAlphaChangesNothing) {
    Canvas canvas(kRampWidth, 2, 32);
    Random random(BaseSeed());
    for (std::int32_t x = 0; x < kRampWidth; ++x) {
        canvas.Set(x, 0, random.Word());
        canvas.Set(x, 1, random.Word());
    }
    const std::vector<std::uint32_t> before = canvas.Pixels();
    SetColor(canvas, {0, 255, 255, 255});
    FillRamps(canvas);
    EXPECT_EQ(canvas.Pixels(), before);
}

TEST_F(PaintOnImages, IsGrayWhereTheColorIs) {
    Canvas canvas(2, 1, 32);
    for (const int gray : {0, 1, 100, 128, 254, 255}) {
        canvas.Clear(0x40FF0000);
        canvas.Gray(PartOf(gray));
        canvas.Rect(0, 0, 1, 1);
        canvas.Fill();
        EXPECT_EQ(canvas.Get(0, 0), 0xFF000000 | static_cast<std::uint32_t>(gray) * 0x010101);
        EXPECT_EQ(canvas.Get(1, 0), 0x40FF0000U);
    }
}

TEST_F(PaintOnImages, CutsPartsOutsideTheirRange) {
    Canvas canvas(1, 1, 32);
    canvas.AlphaRgb(7, -1, kNaN, kInfinity);
    canvas.Rect(0, 0, 1, 1);
    canvas.Fill();
    EXPECT_EQ(canvas.Get(0, 0), 0xFF0000FF);
}

// Alpha times coverage is rounded once, also below a smooth clip.
TEST_F(PaintOnImages, GoesThroughSmoothClips) {
    for (const int alpha : {255, 200, 128, 3}) {
        Canvas clip(kRampWidth, 1);
        clip.Smooth();
        AddRamp(clip, 0);
        clip.Clip();
        clip.NewPath();
        clip.Rect(0, 0, kRampWidth, 1);
        clip.Fill();
        Canvas canvas(kRampWidth, 1, 32);
        canvas.Smooth();
        canvas.Clear(0x80FF8000);
        AddRamp(canvas, 0);
        canvas.Clip();
        canvas.NewPath();
        SetColor(canvas, {alpha, 0, 255, 77});
        canvas.Rect(0, 0, kRampWidth, 1);
        canvas.Fill();
        for (std::int32_t x = 0; x < kRampWidth; ++x) {
            const Channels paint = {model::PaintAlpha(alpha, static_cast<int>(clip.Get(x, 0))), 0, 255, 77};
            EXPECT_TRUE(model::IsPainted(ChannelsOf(canvas.Get(x, 0)), paint, ChannelsOf(0x80FF8000)))
                << alpha << " at " << x;
        }
    }
}

} // namespace
} // namespace tn::test
