// Smooth and hard edges, and care for thin lines.

#include "tests/engines/vec/PortQuestions.h"

namespace tn::test {
namespace {

using EdgeOptions = Drawing;
using abi::Port;

std::int32_t OptionOf(const Canvas& canvas, std::int32_t group) {
    return canvas.Call<VecPortGetOptionsType>(Port::kGetOptions, group);
}

// Half of a pixel at either end of a row.
void HalfRow(Canvas& canvas) { canvas.Rect(0.5F, 0, 3.5F, 1); }

// The row after a fill in the way of an option.
std::vector<std::uint32_t> Filled(std::int32_t option) {
    Canvas canvas(4, 1);
    canvas.Options(option);
    HalfRow(canvas);
    canvas.Fill();
    return canvas.Pixels();
}

// The row after a fill of all of it within a clip.
std::vector<std::uint32_t> Clipped(std::int32_t option) {
    Canvas canvas(4, 1);
    canvas.Options(option);
    HalfRow(canvas);
    canvas.Clip();
    canvas.NewPath();
    canvas.Rect(-1, -1, 5, 5);
    canvas.Fill();
    return canvas.Pixels();
}

bool IsSmooth(const std::vector<std::uint32_t>& row) {
    const auto isHalf = [](std::uint32_t pixel) { return pixel == 127 || pixel == 128; };
    return isHalf(row[0]) && row[1] == 255 && row[2] == 255 && isHalf(row[3]);
}

// The first centre lies on a left edge, the last one on a right edge.
bool IsHard(const std::vector<std::uint32_t>& row) { return row == std::vector<std::uint32_t>{255, 255, 255, 0}; }

TEST_F(EdgeOptions, AreKept) {
    const Canvas canvas(4, 1);
    EXPECT_EQ(OptionOf(canvas, kVecAntiAliasOptions), 0);
    for (const std::int32_t value : {3, 2, 16, 19, 0}) {
        canvas.Call<VecPortOptionsV3Type>(Port::kOptions, std::int32_t{kVecAntiAliasOptions}, value);
        EXPECT_EQ(OptionOf(canvas, kVecAntiAliasOptions), value);
    }
}

TEST_F(EdgeOptions, OfOtherGroupsAreIgnored) {
    Canvas canvas(4, 1);
    canvas.Options(2);
    for (const std::int32_t group : {0, 2, -1, 0x7FFFFFFF}) {
        canvas.Call<VecPortOptionsV3Type>(Port::kOptions, group, std::int32_t{1});
        EXPECT_EQ(OptionOf(canvas, kVecAntiAliasOptions), 2);
        EXPECT_EQ(OptionOf(canvas, group), 0);
    }
    HalfRow(canvas);
    canvas.Fill();
    EXPECT_TRUE(IsSmooth(canvas.Pixels()));
}

TEST_F(EdgeOptions, MakePaintSmooth) {
    for (const std::int32_t option : {2, 3, 18, 19}) {
        EXPECT_TRUE(IsSmooth(Filled(option))) << option;
    }
    for (const std::int32_t option : {0, 1, 16, 17}) {
        EXPECT_TRUE(IsHard(Filled(option))) << option;
    }
}

TEST_F(EdgeOptions, MakeClipsSmooth) {
    for (const std::int32_t option : {1, 3, 17, 19}) {
        EXPECT_TRUE(IsSmooth(Clipped(option))) << option;
    }
    for (const std::int32_t option : {0, 2, 16, 18}) {
        EXPECT_TRUE(IsHard(Clipped(option))) << option;
    }
}

TEST_F(EdgeOptions, HaveBitsWithoutAMeaning) {
    for (const std::int32_t unknown : {4, 8, 32, 0x100, 0x40000000, -0x7FFFFFFF - 1}) {
        EXPECT_TRUE(IsHard(Filled(unknown)) && IsHard(Clipped(unknown))) << unknown;
        EXPECT_TRUE(IsSmooth(Filled(unknown | 3)) && IsSmooth(Clipped(unknown | 3))) << unknown;
    }
}

TEST_F(EdgeOptions, LeaveMasksHard) {
    for (const std::int32_t option : {0, 1, 2, 3, 16, 19}) {
        Canvas canvas(4, 2, 1);
        canvas.Options(option);
        canvas.Rect(0.5F, 0, 3.5F, 2);
        canvas.Clip();
        canvas.NewPath();
        canvas.Rect(-1, 0.5F, 4, 1.5F);
        canvas.Fill();
        EXPECT_EQ(Picture(canvas), (Rows{"###.", "...."})) << option;
    }
}

TEST_F(EdgeOptions, ActOnLaterClipsAndPaintsOnly) {
    Canvas canvas(4, 1);
    canvas.Hard();
    HalfRow(canvas);
    canvas.Clip();
    canvas.NewPath();
    canvas.Smooth();
    canvas.Rect(-1, -1, 5, 5);
    canvas.Fill();
    EXPECT_TRUE(IsHard(canvas.Pixels())) << "the clip was made hard";
    Canvas other(4, 1);
    other.Smooth();
    HalfRow(other);
    other.Hard();
    other.Fill();
    EXPECT_TRUE(IsHard(other.Pixels())) << "the path was begun when edges were smooth";
}

// The row across a line of some width in the middle of a pixel, downwards.
std::vector<std::uint32_t> Line(std::int32_t option, float width, float x) {
    Canvas canvas(4, 3);
    canvas.Options(option);
    canvas.LineWidth(width);
    canvas.MoveTo(x, -9);
    canvas.LineTo(x, 9);
    EXPECT_EQ(canvas.Stroke(), nullptr);
    const std::uint8_t* const row = canvas.RowOf(1);
    return {row, row + 4};
}

using Pixels = std::vector<std::uint32_t>;

TEST_F(EdgeOptions, CareForThinLines) {
    EXPECT_EQ(Line(kVecThinLineCare, 0.2F, 1.5F), (Pixels{0, 255, 0, 0})) << "hard";
    EXPECT_EQ(Line(kVecThinLineCare | kVecSmoothClips, 0.2F, 1.5F), (Pixels{0, 255, 0, 0})) << "hard";
    EXPECT_EQ(Line(kVecThinLineCare | kVecSmoothPaint, 0.2F, 1.5F), (Pixels{0, 51, 0, 0}));
    EXPECT_EQ(Line(19, 0.2F, 1.5F), (Pixels{0, 51, 0, 0}));
    EXPECT_EQ(Line(19, 0.6F, 1.5F), (Pixels{0, 153, 0, 0}));
}

TEST_F(EdgeOptions, SpreadThinLinesOverAPixelsWidth) {
    const Pixels row = Line(19, 0.4F, 2);
    EXPECT_EQ(row[0], 0U);
    EXPECT_NEAR(row[1], 51, 1);
    EXPECT_NEAR(row[2], 51, 1);
    EXPECT_EQ(row[3], 0U);
}

TEST_F(EdgeOptions, LeaveThinLinesThinOtherwise) {
    EXPECT_EQ(Line(kVecSmoothPaint, 0.2F, 1.5F), (Pixels{0, 51, 0, 0}));
    EXPECT_EQ(Line(kVecSmoothPaint, 0.25F, 1.75F)[2], 0U);
    EXPECT_EQ(Line(0, 0.2F, 1.75F), (Pixels{0, 0, 0, 0})) << "no centre lies in it";
    EXPECT_EQ(Line(kVecThinLineCare, 0.2F, 1.75F), (Pixels{0, 255, 0, 0}));
}

TEST_F(EdgeOptions, LeaveWiderLinesAlone) {
    for (const float width : {1.0F, 1.5F, 3.0F}) {
        EXPECT_EQ(Line(19, width, 1.625F), Line(3, width, 1.625F)) << width;
        EXPECT_EQ(Line(16, width, 1.625F), Line(0, width, 1.625F)) << width;
    }
}

// The row across a line whose width is given in a user space of another scale.
Pixels ScaledLine(std::int32_t option, float scale, float width, float x) {
    Canvas canvas(4, 1);
    canvas.Options(option);
    canvas.Scale(scale, scale);
    canvas.LineWidth(width);
    canvas.MoveTo(x / scale, -9 / scale);
    canvas.LineTo(x / scale, 9 / scale);
    EXPECT_EQ(canvas.Stroke(), nullptr);
    return canvas.Pixels();
}

TEST_F(EdgeOptions, CareForLinesThatAreThinInTheDevice) {
    EXPECT_EQ(ScaledLine(kVecThinLineCare, 0.125F, 2, 1.75F), (Pixels{0, 255, 0, 0})) << "a quarter of a pixel";
    const Pixels smooth = ScaledLine(19, 0.125F, 2, 2);
    EXPECT_NEAR(smooth[1], 32, 1);
    EXPECT_NEAR(smooth[2], 32, 1);
    EXPECT_EQ(ScaledLine(19, 8, 0.25F, 2), (Pixels{0, 255, 255, 0})) << "two pixels";
}

// A level line from the left to the right, and an upright one from the top to the bottom, by themselves.
Pixels UnevenLine(std::int32_t option, float scaleX, float scaleY, bool isLevel) {
    Canvas canvas(4, 4);
    canvas.Options(option);
    canvas.Scale(scaleX, scaleY);
    canvas.MoveTo((isLevel ? -9 : 2.5F) / scaleX, (isLevel ? 2.5F : -9) / scaleY);
    canvas.LineTo((isLevel ? 9 : 2.5F) / scaleX, (isLevel ? 2.5F : 9) / scaleY);
    EXPECT_EQ(canvas.Stroke(), nullptr);
    Pixels across;
    for (std::int32_t i = 0; i < 4; ++i) {
        across.push_back(isLevel ? canvas.Get(1, i) : canvas.Get(i, 1));
    }
    return across;
}

TEST_F(EdgeOptions, CareForLinesByTheirOwnWidthUnderUnevenScales) {
    EXPECT_EQ(UnevenLine(kVecThinLineCare, 4, 0.2F, true), (Pixels{0, 0, 255, 0}));
    EXPECT_EQ(UnevenLine(19, 4, 0.2F, true), (Pixels{0, 0, 51, 0}));
    EXPECT_EQ(UnevenLine(19, 3, 0.2F, false), (Pixels{0, 255, 255, 255})) << "three pixels wide";
    EXPECT_EQ(UnevenLine(19, 0.8F, 0.2F, true), (Pixels{0, 0, 51, 0}));
    EXPECT_EQ(UnevenLine(19, 0.8F, 0.2F, false), (Pixels{0, 0, 204, 0}));
    EXPECT_EQ(UnevenLine(19, -0.8F, 0.2F, false), (Pixels{0, 0, 204, 0})) << "mirrored";
}

TEST_F(EdgeOptions, LeaveStrokesAloneOfWhichALineIsWide) {
    for (const bool isSmooth : {false, true}) {
        std::vector<Pixels> pictures;
        for (const std::int32_t care : {0, 16}) {
            Canvas canvas(8, 8);
            canvas.Options(care + (isSmooth ? 3 : 0));
            canvas.Scale(3, 0.5F);
            canvas.MoveTo(0.5F, 3);
            canvas.LineTo(2, 3);
            canvas.LineTo(2, 13);
            canvas.Stroke();
            pictures.push_back(canvas.Pixels());
        }
        EXPECT_EQ(pictures[0], pictures[1]);
    }
}

TEST_F(EdgeOptions, ScaleTheAlphaOfColorsForThinLines) {
    Canvas canvas(4, 1, 32);
    canvas.Options(19);
    canvas.AlphaRgb(0.6F, 1, 0, 0);
    canvas.LineWidth(0.5F);
    canvas.MoveTo(1.5F, -9);
    canvas.LineTo(1.5F, 9);
    canvas.Stroke();
    EXPECT_NEAR(canvas.Get(1, 0) >> 24, 76.5, 1);
    EXPECT_EQ(canvas.Get(1, 0) & 0xFFFFFF, 0xFF0000U);
}

} // namespace
} // namespace tn::test
