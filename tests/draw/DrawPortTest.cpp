#include "TnGraphics/draw/TnDrawPort.h"

#include "tests/draw/PortTest.h"
#include "tests/support/Slots.h"

#include "TnGraphics/draw/TnRasterPort.h"

#include <cstdint>
#include <gtest/gtest.h>
#include <limits>
#include <optional>
#include <string>
#include <type_traits>

namespace tn::test {
namespace {

constexpr std::int32_t kLargest = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t kSmallest = std::numeric_limits<std::int32_t>::min();

constexpr TnFixedPoint FixedPoint(std::int32_t x, std::int32_t y) { return {{x}, {y}}; }

std::string MoveTo(float x, float y) { return CallOf("VecPortMoveToProc", "port#1", x, y); }
std::string LineTo(float x, float y) { return CallOf("VecPortLineToProc", "port#1", x, y); }

Lines ClosedRect(float left, float top, float right, float bottom) {
    return {MoveTo(left, top),    LineTo(right, top), LineTo(right, bottom),
            LineTo(left, bottom), LineTo(left, top),  "VecPortClosePathProc port#1"};
}

/// A port with which drawing is under way; what it took to get there is not noted.
class DrawPort : public PortTest {
protected:
    DrawPort() {
        StartAfresh();
        EXPECT_TRUE(Begin(port));
        engines.ForgetLog();
    }

    static constexpr Matrix<double, 3, 3> kSomeMatrix = {{{1, 2, 3}, {4, 5, 6}, {7, 8, 9}}};

    TnImage image{{4, 4}};
    TnRasterPort rasterPort{image};
    TnDrawPort& port = rasterPort;
};

#if defined(__GXX_ABI_VERSION)
TEST(DrawPortSlots, AreTheDestructorsAndThoseOfBeginAndEnd) {
    EXPECT_EQ(SlotOf(&TnDrawPort::BeginDrawing), 2);
    EXPECT_EQ(SlotOf(&TnDrawPort::EndDrawing), 3);
    EXPECT_EQ(SlotOf(&TnRasterPort::BeginDrawing), 2);
    EXPECT_EQ(SlotOf(&TnRasterPort::EndDrawing), 3);
}
#endif

TEST_F(DrawPort, ForwardsCommands) {
    port.NewPath();
    port.ClosePath();
    port.SaveState();
    port.RestoreState();
    EXPECT_EQ(Called(), (Lines{"VecPortNewPathProc port#1", "VecPortClosePathProc port#1", "VecPortGSaveProc port#1",
                               "VecPortGRestoreProc port#1"}));
}

TEST_F(DrawPort, ForwardsPaints) {
    for (const PortOperation& paint : kPaints) {
        paint.run(port);
        EXPECT_EQ(Called(), Lines{CallOf(paint.procedure, "port#1")});
    }
}

TEST_F(DrawPort, ForwardsWholePoints) {
    port.MoveTo(TnPoint{3, -7});
    port.LineTo(TnPoint{-7, 3});
    port.MoveTo(TnPoint{});
    EXPECT_EQ(Called(), (Lines{MoveTo(3, -7), LineTo(-7, 3), MoveTo(0, 0)}));
}

TEST_F(DrawPort, RoundsWholePointsToTheNearestFloat) {
    port.MoveTo(TnPoint{16777217, 16777219});
    port.LineTo(TnPoint{kLargest, kSmallest});
    EXPECT_EQ(Called(), (Lines{MoveTo(16777216.0F, 16777220.0F), LineTo(0x1p31F, -0x1p31F)}));
}

TEST_F(DrawPort, ForwardsFixedPoints) {
    port.MoveTo(FixedPoint(98304, -1));
    port.LineTo(FixedPoint(-1, 98304));
    port.LineTo(FixedPoint(1, 0));
    EXPECT_EQ(Called(), (Lines{MoveTo(1.5F, -0x1p-16F), LineTo(-0x1p-16F, 1.5F), LineTo(0x1p-16F, 0)}));
}

TEST_F(DrawPort, RoundsFixedPointsToTheNearestFloat) {
    port.MoveTo(FixedPoint(16777217, 16777219));
    port.LineTo(FixedPoint(kLargest, kSmallest));
    port.LineTo(FixedPoint(-16777217, -16777219));
    EXPECT_EQ(Called(), (Lines{MoveTo(256, 256 + 0x1p-14F), LineTo(32768, -32768), LineTo(-256, -256 - 0x1p-14F)}));
}

TEST_F(DrawPort, NarrowsFloatPoints) {
    port.MoveTo(TnFloatPoint{0.1, -2.5});
    port.LineTo(TnFloatPoint{1 + 0x1p-24, 1 + 0x3p-24});
    port.LineTo(TnFloatPoint{1e-50, -1e-50});
    port.LineTo(TnFloatPoint{0x1p-149, 1e300});
    EXPECT_EQ(Called(), (Lines{MoveTo(0.1F, -2.5F), LineTo(1, 1 + 0x1p-22F), LineTo(0.0F, -0.0F),
                               LineTo(0x1p-149F, std::numeric_limits<float>::infinity())}));
}

TEST_F(DrawPort, ForwardsPointsThatAreNoNumbers) {
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    port.MoveTo(TnFloatPoint{std::numeric_limits<double>::quiet_NaN(), -kInfinity});
    EXPECT_EQ(Called(),
              Lines{MoveTo(std::numeric_limits<float>::quiet_NaN(), -std::numeric_limits<float>::infinity())});
}

TEST_F(DrawPort, ForwardsCurves) {
    port.CurveTo(FixedPoint(65536, -65536), FixedPoint(98304, -1), FixedPoint(16777217, 5 * 65536));
    port.CurveTo(TnFloatPoint{0.1, 0.2}, TnFloatPoint{0.3, 0.4}, TnFloatPoint{-0.5, 0.6});
    EXPECT_EQ(Called(), (Lines{CallOf("VecPortCurveToProc", "port#1", 1.0F, -1.0F, 1.5F, -0x1p-16F, 256.0F, 5.0F),
                               CallOf("VecPortCurveToProc", "port#1", 0.1F, 0.2F, 0.3F, 0.4F, -0.5F, 0.6F)}));
}

TEST_F(DrawPort, DrawsRectsClockwiseAndClosesThem) {
    port.DrawRect(TnRect{2, 3, 10, 20});
    EXPECT_EQ(Called(), ClosedRect(2, 3, 12, 23));
    port.DrawRect(TnFixedRect{{98304}, {-1}, {65536}, {32769}});
    EXPECT_EQ(Called(), ClosedRect(1.5F, -0x1p-16F, 2.5F, 0.5F));
}

TEST_F(DrawPort, DrawsEmptyRectsAllTheSame) {
    port.DrawRect(TnRect{2, 3, 0, 5});
    EXPECT_EQ(Called(), ClosedRect(2, 3, 2, 8));
    port.DrawRect(TnRect{2, 3, -4, -5});
    EXPECT_EQ(Called(), ClosedRect(2, 3, -2, -2));
    port.DrawRect(TnFixedRect{});
    EXPECT_EQ(Called(), ClosedRect(0, 0, 0, 0));
}

TEST_F(DrawPort, AddsTheSidesOfRectsBeforeItRounds) {
    port.DrawRect(TnRect{16777217, -16777217, 16777218, 1});
    EXPECT_EQ(Called(), ClosedRect(16777216.0F, -16777216.0F, 33554436.0F, -16777216.0F));
    port.DrawRect(TnFixedRect{{16777217}, {-16777217}, {16777218}, {1}});
    EXPECT_EQ(Called(), ClosedRect(256, -256, 512 + 0x1p-14F, -256));
}

TEST_F(DrawPort, DrawsRectsThatReachPastTheLargestCoordinate) {
    port.DrawRect(TnRect{kLargest, kSmallest, kLargest, -256});
    EXPECT_EQ(Called(), ClosedRect(0x1p31F, -0x1p31F, 0x1p32F, -0x1.000002p31F));
    port.DrawRect(TnFixedRect{{kLargest}, {kSmallest}, {kLargest}, {-256}});
    EXPECT_EQ(Called(), ClosedRect(32768, -32768, 65536, -0x1.000002p15F));
}

TEST_F(DrawPort, ForwardsLineStyles) {
    port.LineWidth({98304});
    port.LineWidth({-1});
    port.LineWidth({16777219});
    EXPECT_EQ(Called(), (Lines{CallOf("VecPortSetLineWidthProc", "port#1", 1.5F),
                               CallOf("VecPortSetLineWidthProc", "port#1", -0x1p-16F),
                               CallOf("VecPortSetLineWidthProc", "port#1", 256 + 0x1p-14F)}));
    for (const int style : {0, 1, 2}) {
        port.LineCap(static_cast<TnDrawPort::CapStyle>(style));
        port.LineJoin(static_cast<TnDrawPort::JoinStyle>(style));
        EXPECT_EQ(Called(), (Lines{CallOf("VecPortSetLineCapProc", "port#1", style),
                                   CallOf("VecPortSetLineJoinProc", "port#1", style)}));
    }
}

TEST_F(DrawPort, ForwardsTranslationsAndScales) {
    port.Translate(FixedPoint(98304, -1));
    port.Scale(FixedPoint(16777219, -32768));
    EXPECT_EQ(Called(), (Lines{CallOf("VecPortTranslateProc", "port#1", 1.5F, -0x1p-16F),
                               CallOf("VecPortScaleProc", "port#1", 256 + 0x1p-14F, -0.5F)}));
}

TEST_F(DrawPort, SetsTheMatrixOfItsGraphicsStateByColumns) {
    port.SetMatrix(kSomeMatrix);
    EXPECT_EQ(Called(), (Lines{"VecPortGetGStatePortProc port#1", "VecGStatePortSetMatrixProc gstate#1 1 4 2 5 3 6"}));
}

TEST_F(DrawPort, NarrowsMatrices) {
    port.SetMatrix({{{0.1, 1 + 0x1p-24, -1e-50}, {0x3p-150, 1e300, -0.7}, {0, 0, 1}}});
    EXPECT_EQ(Called().back(), CallOf("VecGStatePortSetMatrixProc", "gstate#1", 0.1F, 0x2p-149F, 1.0F,
                                      std::numeric_limits<float>::infinity(), -0.0F, -0.7F));
}

TEST_F(DrawPort, DropsTheThirdRowOfMatrices) {
    port.SetMatrix({{{1, 2, 3}, {4, 5, 6}, {0, 0, 1}}});
    const Lines affine = Called();
    port.SetMatrix({{{1, 2, 3}, {4, 5, 6}, {-0.5, std::numeric_limits<double>::quiet_NaN(), 0}}});
    EXPECT_EQ(Called(), affine);
}

TEST_F(DrawPort, SetsNoMatrixWithoutAGraphicsState) {
    engines.offersGState = false;
    EXPECT_NO_THROW(port.SetMatrix(kSomeMatrix));
    EXPECT_EQ(Called(), Lines{"VecPortGetGStatePortProc port#1"});
}

TEST_F(DrawPort, SetsNoMatrixWithoutTheProcedure) {
    engines.Hide("VecGStatePortSetMatrixProc");
    EXPECT_NO_THROW(port.SetMatrix(kSomeMatrix));
    EXPECT_EQ(Drawn(), Lines{"VecPortGetGStatePortProc port#1"});
}

TEST_F(DrawPort, PaintsInGray) {
    port.Gray(0.1F);
    EXPECT_EQ(Called(), (Lines{"HuexNewColorProc 0 1 0.1", "VecPortSetColorServerProcV4 port#1 color#2 0 0"}));
}

TEST_F(DrawPort, PaintsInColorsWhoseAlphaComesFirst) {
    port.RGBColor(0.1F, 0.2F, 0.3F, 0.4F);
    EXPECT_EQ(Called(),
              (Lines{"HuexNewColorProc 1 4 0.4 0.1 0.2 0.3", "VecPortSetColorServerProcV4 port#1 color#2 0 0"}));
}

TEST_F(DrawPort, ForwardsPartsOfColorsThatAreNone) {
    port.RGBColor(-1, 2, std::numeric_limits<float>::infinity(), -0.0F);
    port.Gray(1e30F);
    EXPECT_EQ(Called(), (Lines{"HuexNewColorProc 1 4 -0 -1 2 inf", "VecPortSetColorServerProcV4 port#1 color#2 0 0",
                               "HuexNewColorProc 0 1 1e+30", "VecPortSetColorServerProcV4 port#1 color#3 0 0"}));
}

TEST_F(DrawPort, KeepsItsColorWhenNoneCanBeMade) {
    engines.makesColors = false;
    ExpectBadAllocation([&] { port.Gray(0.5F); });
    ExpectBadAllocation([&] { port.RGBColor(0, 0, 0, 1); });
    EXPECT_EQ(Called(), (Lines{"HuexNewColorProc 0 1 0.5", "HuexNewColorProc 1 4 1 0 0 0"}));
    engines.makesColors = true;
    port.Gray(1);
    EXPECT_EQ(Called(), (Lines{"HuexNewColorProc 0 1 1", "VecPortSetColorServerProcV4 port#1 color#2 0 0"}));
}

TEST_F(DrawPort, ThrowsErrorsOfPaints) {
    for (const PortOperation& paint : kPaints) {
        SCOPED_TRACE(paint.procedure);
        engines.Fail(paint.procedure, "no luck", "Vec", 7);
        ExpectKelError("no luck", "Vec", 7, [&] { paint.run(port); });
        EXPECT_EQ(Drawn(), Lines{CallOf(paint.procedure, "port#1")});
        engines.FailNothing();
        EXPECT_NO_THROW(paint.run(port));
        EXPECT_EQ(Drawn(), Lines{CallOf(paint.procedure, "port#1")});
    }
}

TEST_F(DrawPort, ThrowsExhaustedMemoryOfPaintsAsSuch) {
    for (const PortOperation& paint : kPaints) {
        SCOPED_TRACE(paint.procedure);
        engines.Fail(paint.procedure, "no room", "QMZ", 1);
        ExpectBadAllocation([&] { paint.run(port); });
    }
}

TEST_F(DrawPort, TakesOtherErrorsForNoExhaustedMemory) {
    for (const PortOperation& paint : kPaints) {
        SCOPED_TRACE(paint.procedure);
        engines.Fail(paint.procedure, "no luck", "QMZ", 2);
        ExpectKelError("no luck", "QMZ", 2, [&] { paint.run(port); });
        engines.FailNothing();
        engines.Fail(paint.procedure, "no luck", "QMZX", 1);
        ExpectKelError("no luck", "QMZX", 1, [&] { paint.run(port); });
    }
}

TEST_F(DrawPort, ThrowsErrorsThatOutliveThePort) {
    std::optional<TnRasterPort> other(image);
    EXPECT_TRUE(Begin(*other));
    engines.Fail("VecPortFillProcV2", "no luck", "Vec", 7);
    try {
        other->Fill();
        ADD_FAILURE() << "nothing is thrown";
    } catch (const CKelError& error) {
        other.reset();
        EXPECT_EQ(engines.handles.ReferencesTo(error.Handle()), 1);
        EXPECT_STREQ(error.what(), "no luck");
    }
}

TEST_F(DrawPort, DoesNotLookForErrorsOfOtherOperations) {
    engines.Fail("VecPortGetKelErrorProc", "no luck", "Vec", 7);
    for (const PortOperation& operation : kQuietOperations) {
        EXPECT_NO_THROW(operation.run(port)) << operation.procedure;
    }
    EXPECT_NO_THROW(port.SetMatrix(kSomeMatrix));
    EXPECT_EQ(engines.CountOf("VecPortGetKelErrorProc port#1"), 0U);
}

TEST_F(DrawPort, TellsWhetherThereIsAnError) {
    EXPECT_TRUE((std::is_same_v<decltype(port.Error()), long>));
    EXPECT_EQ(port.Error(), 0);
    for (const int number : {1, 2}) {
        engines.FailNothing();
        engines.Fail("VecPortGetKelErrorProc", "no luck", "QMZ", number);
        EXPECT_EQ(port.Error(), 1);
        EXPECT_EQ(port.Error(), 1);
    }
    engines.FailNothing();
    EXPECT_EQ(port.Error(), 0);
    EXPECT_EQ(Called(), Lines(6, "VecPortGetKelErrorProc port#1"));
}

} // namespace
} // namespace tn::test
