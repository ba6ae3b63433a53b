// Tests of ports upon recording engines, and every operation that a port forwards.
#pragma once

#include "tests/fakes/EngineTest.h"

#include "TnGraphics/draw/CKelError.h"
#include "TnGraphics/draw/TnDrawPort.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <gtest/gtest.h>
#include <new>
#include <string>
#include <string_view>

namespace tn::test {

/// An operation and the procedure that it is forwarded to.
struct PortOperation {
    const char* procedure;
    void (*run)(TnDrawPort& port);
};

/// Those that throw what the engine reports.
inline constexpr std::array<PortOperation, 5> kPaints = {{
    {"VecPortClipProcV2", [](TnDrawPort& port) { port.Clip(); }},
    {"VecPortEOClipProcV2", [](TnDrawPort& port) { port.EvenOddClip(); }},
    {"VecPortFillProcV2", [](TnDrawPort& port) { port.Fill(); }},
    {"VecPortEOFillProcV2", [](TnDrawPort& port) { port.EvenOddFill(); }},
    {"VecPortStrokeProcV2", [](TnDrawPort& port) { port.Stroke(); }},
}};

/// All others but Error().
inline constexpr std::array<PortOperation, 21> kQuietOperations = {{
    {"VecPortNewPathProc", [](TnDrawPort& port) { port.NewPath(); }},
    {"VecPortMoveToProc", [](TnDrawPort& port) { port.MoveTo(TnPoint{}); }},
    {"VecPortMoveToProc", [](TnDrawPort& port) { port.MoveTo(TnFixedPoint{}); }},
    {"VecPortMoveToProc", [](TnDrawPort& port) { port.MoveTo(TnFloatPoint{}); }},
    {"VecPortLineToProc", [](TnDrawPort& port) { port.LineTo(TnPoint{}); }},
    {"VecPortLineToProc", [](TnDrawPort& port) { port.LineTo(TnFixedPoint{}); }},
    {"VecPortLineToProc", [](TnDrawPort& port) { port.LineTo(TnFloatPoint{}); }},
    {"VecPortCurveToProc", [](TnDrawPort& port) { port.CurveTo(TnFixedPoint{}, {}, {}); }},
    {"VecPortCurveToProc", [](TnDrawPort& port) { port.CurveTo(TnFloatPoint{}, {}, {}); }},
    {"VecPortClosePathProc", [](TnDrawPort& port) { port.ClosePath(); }},
    {"VecPortLineToProc", [](TnDrawPort& port) { port.DrawRect(TnRect{}); }},
    {"VecPortLineToProc", [](TnDrawPort& port) { port.DrawRect(TnFixedRect{}); }},
    {"VecPortGSaveProc", [](TnDrawPort& port) { port.SaveState(); }},
    {"VecPortGRestoreProc", [](TnDrawPort& port) { port.RestoreState(); }},
    {"VecPortSetLineWidthProc", [](TnDrawPort& port) { port.LineWidth({}); }},
    {"VecPortSetLineCapProc", [](TnDrawPort& port) { port.LineCap(TnDrawPort::kButtCap); }},
    {"VecPortSetLineJoinProc", [](TnDrawPort& port) { port.LineJoin(TnDrawPort::kMiterJoin); }},
    {"VecPortTranslateProc", [](TnDrawPort& port) { port.Translate({}); }},
    {"VecPortScaleProc", [](TnDrawPort& port) { port.Scale({}); }},
    {"VecPortSetColorServerProcV4", [](TnDrawPort& port) { port.Gray(0); }},
    {"VecPortSetColorServerProcV4", [](TnDrawPort& port) { port.RGBColor(0, 0, 0, 0); }},
}};

/// A call with a handle, for example "port#1", and further arguments.
template <class... Arguments>
std::string CallOf(const char* procedure, const char* handle, const Arguments&... arguments) {
    return std::string(std::string_view(CallLine(procedure, CallLine::Word{handle}, arguments...).Text()));
}

inline TnDrawPort::AntiAliasPolicy Policy(int number) { return static_cast<TnDrawPort::AntiAliasPolicy>(number); }

/// Expects a CKelError with a text, of a component.
template <class Work> void ExpectKelError(const char* message, const char* component, int number, const Work& work) {
    try {
        work();
        ADD_FAILURE() << "nothing is thrown";
    } catch (const CKelError& error) {
        EXPECT_STREQ(error.what(), message);
        EXPECT_STREQ(error.Component(), component);
        EXPECT_EQ(error.Number(), number);
    }
}

template <class Work> void ExpectMissingInterface(const Work& work) {
    ExpectKelError("Missing Interface", "Kel", 0, work);
}

template <class Work> void ExpectBadAllocation(const Work& work) {
    try {
        work();
        ADD_FAILURE() << "nothing is thrown";
    } catch (const std::bad_alloc& exhausted) {
        EXPECT_STREQ(exhausted.what(), "bad allocation");
    }
}

class PortTest : public EngineTest {
protected:
    /// The library keeps the tables that other tests filled. A counter that no test has seen before outdates them.
    PortTest() {
        static std::uint32_t seenByNobody = 0;
        RecordingEngines::UnregisterCount() = seenByNobody += 1000;
    }

    void StartAfresh() {
        EXPECT_TRUE(Start());
        engines.ForgetLog();
    }

    /// What was called since this was asked last. When a colour is released is up to the library.
    Lines Called() {
        const Lines calls = Without("HuexColorReleaseProc", engines.Calls());
        engines.ForgetLog();
        return calls;
    }

    /// What the vector engine was asked to do since this was asked last.
    Lines Drawn() { return Without("Kel", Called()); }

    std::size_t ReleasesOf(const char* port) { return engines.CountOf(CallOf("VecPortReleaseProc", port)); }

    static bool Begin(TnDrawPort& port, int policy = 0) { return port.BeginDrawing(Policy(policy), 0); }

    /// Every operation throws, and none reaches the vector engine.
    void ExpectNothingToDrawWith(TnDrawPort& port) {
        engines.ForgetLog();
        for (const PortOperation& operation : kPaints) {
            ExpectMissingInterface([&] { operation.run(port); });
        }
        for (const PortOperation& operation : kQuietOperations) {
            ExpectMissingInterface([&] { operation.run(port); });
        }
        ExpectMissingInterface([&] { port.SetMatrix({}); });
        EXPECT_EQ(port.Error(), 0);
        EXPECT_EQ(Drawn(), Lines());
    }
};

} // namespace tn::test
