// Paint in values on a matte, against plain numbers.

#include "tests/engines/vec/PaintCases.h"

namespace tn::test {
namespace {

using PaintOnMattes = Drawing;
using abi::Port;

constexpr std::int32_t kRows = 256;

// Fills rows, each of another value, with a shape and compares every pixel. The paint is of one value, with an alpha.
void ExpectToPaint(AddShape addShape, const Coverages& coverages, int value, int alpha) {
    Canvas canvas(kRampWidth, kRows);
    for (std::int32_t y = 0; y < kRows; ++y) {
        for (std::int32_t x = 0; x < kRampWidth; ++x) {
            canvas.Set(x, y, static_cast<std::uint32_t>(167 * y % kRows));
        }
    }
    const std::vector<std::uint32_t> before = canvas.Pixels();
    SetColor(canvas, {alpha, value, value, value});
    FillSmoothly(canvas, addShape);
    const std::vector<std::uint32_t> after = canvas.Pixels();
    for (std::size_t i = 0; i < after.size(); ++i) {
        const auto under = static_cast<int>(before[i]);
        ASSERT_EQ(static_cast<int>(after[i]), model::PaintedValue(under, value, model::PaintAlpha(alpha, coverages[i])))
            << value << " with alpha " << alpha << " at coverage " << coverages[i] << " on " << under;
    }
}

TEST_F(PaintOnMattes, IsExactForEveryValueAndCoverage) {
    ForEachPaintLevel([] {
        for (const AddShape addShape : kShapes) {
            const Coverages coverages = CoveragesOf(addShape, kRows);
            for (int value = 0; value < 256; value += HasTimeForEveryValue() ? 17 : 51) {
                ExpectToPaint(addShape, coverages, value, 255);
            }
        }
    });
}

TEST_F(PaintOnMattes, IsExactForAnyAlpha) {
    ForEachPaintLevel([] {
        for (const AddShape addShape : kShapes) {
            const Coverages coverages = CoveragesOf(addShape, kRows);
            ForEachCase(HasTimeForEveryValue() ? 20 : 4,
                        [&](Random& random) { ExpectToPaint(addShape, coverages, random.Channel(), random.Alpha()); });
        }
    });
}

TEST_F(PaintOnMattes, TakesEveryCoverage) {
    for (const AddShape addShape : kShapes) {
        std::vector<bool> occurs(256);
        for (const int coverage : CoveragesOf(addShape, kRows)) {
            occurs[static_cast<std::size_t>(coverage)] = true;
        }
        EXPECT_EQ(occurs, std::vector<bool>(256, true)) << "the other tests rely on it";
    }
}

// The coverage is what a triangle covers of each pixel: an unbroken rise of equal steps.
TEST_F(PaintOnMattes, InWhiteIsTheCoverageItself) {
    const Coverages coverages = CoveragesOf(&AddRamps, 1);
    for (std::int32_t x = 6; x < kRampWidth - 8; ++x) {
        const double expected = 255 * (x - 6 + 0.5) / (kRampWidth - 14);
        EXPECT_NEAR(coverages[static_cast<std::size_t>(x)], expected, 1.5);
    }
}

TEST_F(PaintOnMattes, InWhiteCoversAllOfWhatItCoversWhole) {
    for (std::uint32_t under = 0; under < 256; ++under) {
        Canvas canvas(4, 1);
        canvas.Clear(under);
        canvas.Rect(1, 0, 3, 1);
        canvas.Fill();
        EXPECT_EQ(canvas.Pixels(), (std::vector<std::uint32_t>{under, 255, 255, under}));
    }
}

TEST_F(PaintOnMattes, IsOfTheGrayValue) {
    Canvas canvas(1, 1);
    for (int gray = 0; gray < 256; ++gray) {
        canvas.Gray(PartOf(gray));
        canvas.Rect(0, 0, 1, 1);
        canvas.Fill();
        EXPECT_EQ(canvas.Get(0, 0), static_cast<std::uint32_t>(gray));
    }
    for (const auto& [gray, expected] : {std::pair{-1.0F, 0U}, std::pair{2.0F, 255U}, std::pair{kNaN, 0U}}) {
        canvas.Gray(gray);
        canvas.Rect(0, 0, 1, 1);
        canvas.Fill();
        EXPECT_EQ(canvas.Get(0, 0), expected);
    }
}

TEST_F(PaintOnMattes, IsOfAColorsLuminance) {
    Canvas canvas(1, 1);
    for (const model::Channels& color :
         {model::Channels{255, 255, 0, 0}, model::Channels{255, 0, 255, 0}, model::Channels{255, 0, 0, 255},
          model::Channels{255, 10, 200, 99}, model::Channels{255, 255, 255, 255}, model::Channels{255, 1, 2, 3}}) {
        SetColor(canvas, color);
        canvas.Rect(0, 0, 1, 1);
        canvas.Fill();
        EXPECT_EQ(canvas.Get(0, 0), static_cast<std::uint32_t>(model::GrayOf(color.red, color.green, color.blue)));
    }
}

TEST_F(PaintOnMattes, KeepsTheAlphaOfColorsAsItsOwn) {
    Canvas canvas(1, 1);
    canvas.Clear(100);
    SetColor(canvas, {128, 200, 200, 200});
    canvas.Rect(0, 0, 1, 1);
    canvas.Fill();
    EXPECT_EQ(canvas.Get(0, 0), 150U);
}

TEST_F(PaintOnMattes, OfNoAlphaChangesNothing) {
    Canvas canvas(kRampWidth, 1);
    canvas.Clear(77);
    SetColor(canvas, {0, 255, 255, 255});
    FillRamps(canvas);
    EXPECT_EQ(canvas.Pixels(), std::vector<std::uint32_t>(kRampWidth, 77));
}

TEST_F(PaintOnMattes, OfThinLinesGoesByTheirWidth) {
    Canvas canvas(3, 1);
    canvas.Options(kVecThinLineCare | kVecSmoothPaint);
    canvas.Clear(200);
    canvas.Gray(0);
    canvas.LineWidth(0.2F);
    canvas.MoveTo(1.5F, -3);
    canvas.LineTo(1.5F, 3);
    EXPECT_EQ(canvas.Stroke(), nullptr);
    EXPECT_EQ(canvas.Pixels(), (std::vector<std::uint32_t>{200, 160, 200}));
}

} // namespace
} // namespace tn::test
