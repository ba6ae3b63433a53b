#include "tests/models/FillModels.h"
#include "tests/support/AssertionRecorder.h"
#include "tests/support/Levels.h"
#include "tests/support/PixelDiff.h"
#include "tests/support/SparseStorage.h"

#include "TnGraphics/ops/Fills.h"

#include <gtest/gtest.h>

namespace tn::test {
namespace {

constexpr TnPoint kSize = {21, 6};
constexpr std::uint32_t kFarRowBytes = 0x40000040; // row 4 lies more than 4 GiB from row 0, by part of a row
constexpr TnRect kWhole = {0, 0, kSize.x, kSize.y};
constexpr TnRect kNear = {0, 0, kSize.x, 4};
constexpr TnColor kGround = {0, 1, 2, 3};
constexpr TnColor kLine = {0, 250, 251, 252};

const RecordedAssertion kFarPosition = {"byteDistance <= std::numeric_limits<std::uint32_t>::max()",
                                        "TnImage::Iterator::Position", "port/TnImageIterator", 205};

void ExpectFarPositionsOnly(const AssertionRecorder& recorder) {
    EXPECT_FALSE(recorder.Reports().empty());
    for (const RecordedAssertion& report : recorder.Reports()) {
        EXPECT_EQ(report.expression, kFarPosition.expression);
        EXPECT_EQ(report.function, kFarPosition.function);
        EXPECT_EQ(report.file, kFarPosition.file);
        EXPECT_EQ(report.line, kFarPosition.line);
    }
}

TEST(XFillOfFarRows, ReportsThePositionAndDrawsTheCross) {
    ForEachSupportedLevel([](ProcessorLevel) {
        TnImage image(new SparseStorage(kSize, sizeof(TnImagePixel), kFarRowBytes), kSize);
        ModelImage expected = UniformPicture(kSize.x, kSize.y, 0U);
        model::XFill(expected, kWhole, kGround, kLine);
        const AssertionRecorder recorder;
        XFill(image, kWhole, kGround, kLine);
        ExpectFarPositionsOnly(recorder);
        EXPECT_TRUE(SamePixels(expected, image));
    });
}

TEST(XFillOfFarRows, ReportsARowOfWhichOnlyTheFirstPixelIsNear) {
    constexpr TnPoint kTwoRows = {21, 2};
    TnImage image(new SparseStorage(kTwoRows, sizeof(TnImagePixel), 0xFFFFFFFC), kTwoRows);
    const AssertionRecorder recorder;
    XFill(image, {0, 1, 1, 1}, kGround, kLine);
    EXPECT_TRUE(recorder.Reports().empty());
    XFill(image, image.Bounds(), kGround, kLine);
    EXPECT_EQ(recorder.Reports().size(), 1U);
    ExpectFarPositionsOnly(recorder);
}

TEST(CrossHatchFillOfFarRows, ReportsThePositionAndDrawsTheLattice) {
    ForEachSupportedLevel([](ProcessorLevel) {
        TnImage image(new SparseStorage(kSize, sizeof(TnImagePixel), kFarRowBytes), kSize);
        ModelImage expected = UniformPicture(kSize.x, kSize.y, 0U);
        model::CrossHatchFill(expected, kWhole, kGround, kLine, 2);
        const AssertionRecorder recorder;
        CrossHatchFill(image, kWhole, kGround, kLine, 2);
        ExpectFarPositionsOnly(recorder);
        EXPECT_TRUE(SamePixels(expected, image));
    });
}

TEST(PatternFillsOfNearRows, ReportNothing) {
    TnImage image(new SparseStorage(kSize, sizeof(TnImagePixel), kFarRowBytes), kSize);
    const AssertionRecorder recorder;
    XFill(image, kNear, kGround, kLine);
    CrossHatchFill(image, kNear, kGround, kLine, 2);
    EXPECT_TRUE(recorder.Reports().empty());
}

TEST(OtherFillsOfFarRows, AskForNoPositionAndReportNothing) {
    TnImage image(new SparseStorage(kSize, sizeof(TnImagePixel), kFarRowBytes), kSize);
    ModelImage expected = UniformPicture(kSize.x, kSize.y, 0U);
    model::ColorFill(expected, kWhole, kLine);
    model::SetOpacity(expected, 50);
    const AssertionRecorder recorder;
    ColorFill(image, kWhole, kLine);
    SetOpacity(image, 50);
    EXPECT_TRUE(recorder.Reports().empty());
    EXPECT_TRUE(SamePixels(expected, image));
}

} // namespace
} // namespace tn::test
