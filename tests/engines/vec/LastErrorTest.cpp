// The error that a port keeps.

#include "tests/engines/vec/PortQuestions.h"

namespace tn::test {
namespace {

using LastErrors = Drawing;
using abi::Port;

TEST_F(LastErrors, AreNoneAsLongAsAllGoesWell) {
    Canvas canvas(8, 8);
    canvas.Smooth();
    canvas.Rect(1, 1, 7, 7);
    canvas.Clip();
    canvas.GSave();
    canvas.Fill();
    canvas.GRestore();
    canvas.Stroke();
    canvas.GRestore();
    canvas.ClosePath();
    canvas.Fill();
    canvas.LineCap(7);
    EXPECT_EQ(canvas.Error(), nullptr);
}

TEST_F(LastErrors, StayUntilThePortIsReleased) {
    Canvas canvas(8, 8);
    canvas.LineTo(1, 1);
    const KelError error = canvas.Error();
    ExpectOwnError(error);
    for (const Port paint : {Port::kFill, Port::kStroke, Port::kClip}) {
        canvas.NewPath();
        canvas.Rect(1, 1, 3, 3);
        EXPECT_EQ(canvas.Paint(paint), nullptr) << "it is told once";
        ExpectOwnError(canvas.Error());
    }
    canvas.GSave();
    canvas.GRestore();
    Do(canvas, Port::kInitGraphics);
    ExpectOwnError(canvas.Error());
    ExpectOwnError(canvas.Error());
}

TEST_F(LastErrors, SayWhatHappened) {
    Canvas canvas(8, 8);
    canvas.LineTo(1, 1);
    const ErrorProcedures errors;
    EXPECT_STRNE(errors.message(canvas.Error()), "");
    const std::string component = errors.component(canvas.Error());
    canvas.MoveTo(kNaN, 1);
    const KelError second = canvas.Fill();
    ExpectOwnError(second);
    EXPECT_EQ(errors.component(second), component);
    EXPECT_STRNE(errors.message(second), "");
}

TEST_F(LastErrors, AreKeptByWhoeverRefersToThem) {
    const ErrorProcedures errors;
    KelError error = nullptr;
    {
        Canvas canvas(8, 8);
        canvas.MoveTo(kNaN, 1);
        error = canvas.Fill();
        ASSERT_NE(error, nullptr);
        errors.addReference(error);
    }
    ExpectOwnError(error);
    errors.release(error);
}

TEST_F(LastErrors, LeaveEverythingAsItWas) {
    Canvas canvas(8, 8);
    canvas.Rect(0, 0, 6, 6);
    canvas.Clip();
    canvas.GSave();
    canvas.NewPath();
    canvas.MoveTo(2, 3);
    canvas.LineTo(5, 4);
    canvas.LineTo(kNaN, 4);
    for (const Port paint : {Port::kFill, Port::kEOFill, Port::kStroke, Port::kClip, Port::kEOClip}) {
        ExpectOwnError(canvas.Paint(paint));
        EXPECT_EQ(PathBounds(canvas), (Numbers4{2, 3, 5, 4}));
        EXPECT_EQ(CurrentPoint(canvas), (Numbers2{5, 4}));
        EXPECT_EQ(ClipBounds(canvas), (Numbers4{0, 0, 6, 6}));
        EXPECT_EQ(Depth(canvas), 1);
    }
    EXPECT_TRUE(IsBlank(canvas));
}

TEST_F(LastErrors, AreEachPortsOwn) {
    Canvas faulty(8, 8);
    const Canvas sound(8, 8);
    faulty.LineTo(1, 1);
    EXPECT_NE(faulty.Error(), nullptr);
    EXPECT_EQ(sound.Error(), nullptr);
    EXPECT_EQ(Canvas(8, 8).Error(), nullptr);
}

TEST_F(LastErrors, OfRectanglesAreReturned) {
    Canvas canvas(8, 8);
    for (const Port paint : {Port::kFillRect, Port::kStrokeRect, Port::kClipRect}) {
        ExpectOwnError(canvas.PaintRect(paint, {1, kNaN, 3, 3}));
    }
    EXPECT_TRUE(IsBlank(canvas));
    EXPECT_EQ(ClipBounds(canvas), (Numbers4{0, 0, 8, 8}));
    EXPECT_NE(canvas.Error(), nullptr);
}

} // namespace
} // namespace tn::test
