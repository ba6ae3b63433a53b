// Raster ports and the binding: tables that become outdated, and a binding that stops meanwhile.
#include "TnGraphics/draw/TnRasterPort.h"

#include "tests/draw/PortTest.h"
#include "tests/fakes/FakeShell.h"
#include "tests/support/AllocationFailure.h"

#include "TnGraphics/runtime/TnGraphicsMem.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <gtest/gtest.h>
#include <optional>
#include <string>

namespace tn::test {
namespace {

/// What is looked up to find an interface.
template <std::size_t count>
Lines LookupsOf(const char* interfaceName, const std::array<abi::ProcedureName, count>& names) {
    Lines lines;
    for (auto name = names.rbegin(); name != names.rend(); ++name) {
        lines.push_back(std::string("get ") + interfaceName + " " + name->method + " " + name->procedure);
    }
    return lines;
}

const Lines kPortLookups = LookupsOf("VecRasterPortInterface", abi::kPortProcedures);
const Lines kColorLookups = LookupsOf("HuexColorInterface", abi::kColorProcedures);
const Lines kGStateLookups = {"get VecGStatePortInterface SetMatrix VecGStatePortSetMatrixProc"};
const Lines kCreationLookups = {"get VecNewRasterPortInterface NewBitmapPort VecRasterPortNewBitmapPortV3Proc"};

bool Holds(const Lines& lines, const Lines& part) {
    return std::search(lines.begin(), lines.end(), part.begin(), part.end()) != lines.end();
}

// A procedure of the test's own, for what an engine does behind the library's back.
VecPort givenPort = nullptr;
void TakePort(VecPort port) { givenPort = port; }

class RasterPortTables : public PortTest {
protected:
    RasterPortTables() { StartAfresh(); }

    void OfferNewPath() {
        givenPort = nullptr;
        engines.Offer("VecRasterPortInterface", "VecPortNewPathProc", reinterpret_cast<void*>(&TakePort));
    }

    TnImage image{{5, 3}};
};

TEST_F(RasterPortTables, AreFoundWhenDrawingBegins) {
    TnRasterPort port(image);
    EXPECT_TRUE(Begin(port));
    for (const Lines& lookups : {kCreationLookups, kPortLookups, kColorLookups}) {
        EXPECT_TRUE(Holds(engines.Log(), lookups)) << lookups.front();
    }
    engines.ForgetLog();
    port.Gray(1);
    port.Fill();
    EXPECT_TRUE(Begin(port));
    EXPECT_EQ(engines.Lookups(), Lines());
}

TEST_F(RasterPortTables, AreFoundAgainOnceTheCounterHasChanged) {
    TnRasterPort port(image);
    EXPECT_TRUE(Begin(port));
    port.SetMatrix({});
    const auto lookupsOf = [&](const auto& work) {
        engines.ForgetLog();
        work();
        return engines.Lookups();
    };
    ++RecordingEngines::UnregisterCount();
    EXPECT_EQ(lookupsOf([&] { port.Fill(); }), kPortLookups);
    EXPECT_EQ(lookupsOf([&] { port.Gray(1); }), kColorLookups);
    EXPECT_EQ(lookupsOf([&] { port.SetMatrix({}); }), kGStateLookups);
    EXPECT_EQ(lookupsOf([&] { Begin(port); }), kCreationLookups);
    EXPECT_EQ(lookupsOf([&] { port.Fill(); }), Lines());
}

TEST_F(RasterPortTables, AreFoundAgainByEveryOperation) {
    TnRasterPort port(image);
    EXPECT_TRUE(Begin(port));
    for (const PortOperation& operation : kQuietOperations) {
        ++RecordingEngines::UnregisterCount();
        engines.ForgetLog();
        operation.run(port);
        EXPECT_TRUE(Holds(engines.Log(), kPortLookups)) << operation.procedure;
    }
    for (const PortOperation& paint : kPaints) {
        ++RecordingEngines::UnregisterCount();
        engines.ForgetLog();
        paint.run(port);
        EXPECT_EQ(engines.Lookups(), kPortLookups);
        EXPECT_EQ(engines.Log().back(), CallOf(paint.procedure, "port#1"));
    }
    ++RecordingEngines::UnregisterCount();
    engines.ForgetLog();
    EXPECT_EQ(port.Error(), 0);
    EXPECT_EQ(engines.Lookups(), kPortLookups);
}

TEST_F(RasterPortTables, HoldUntilTheCounterChanges) {
    TnRasterPort port(image);
    EXPECT_TRUE(Begin(port));
    OfferNewPath();
    port.NewPath();
    EXPECT_EQ(givenPort, nullptr);
    ++RecordingEngines::UnregisterCount();
    port.NewPath();
    EXPECT_NE(givenPort, nullptr);
    EXPECT_EQ(engines.CountOf("VecPortNewPathProc port#1"), 1U);
}

TEST_F(RasterPortTables, ThatCannotBeFoundAgainAreMissing) {
    TnRasterPort port(image);
    EXPECT_TRUE(Begin(port));
    engines.Hide("VecPortGetMatrixProc");
    ++RecordingEngines::UnregisterCount();
    engines.ForgetLog();
    for (const PortOperation& operation : kPaints) {
        ExpectMissingInterface([&] { operation.run(port); });
    }
    for (const PortOperation& operation : kQuietOperations) {
        ExpectMissingInterface([&] { operation.run(port); });
    }
    ExpectMissingInterface([&] { port.Error(); });
    EXPECT_EQ(Drawn(), Lines());
    engines.ShowAll();
    port.Fill();
    EXPECT_EQ(Drawn(), Lines{"VecPortFillProcV2 port#1"});
}

TEST_F(RasterPortTables, MayLackWhatEndsTheDrawing) {
    OfferNewPath();
    std::optional<TnRasterPort> port(image);
    EXPECT_TRUE(Begin(*port));
    port->NewPath();
    engines.Hide("VecPortReleaseProc");
    ++RecordingEngines::UnregisterCount();
    port.reset();
    EXPECT_EQ(ReleasesOf("port#1"), 0U);
    EXPECT_EQ(image.Clients(), 0U);
    engines.handles.Release("the engine that went away", givenPort, HandleKind::kPort);
}

using RasterPortAndStop = RasterPortTables;

TEST_F(RasterPortAndStop, IsReleasedByTheBinding) {
    {
        TnRasterPort port(image);
        EXPECT_TRUE(Begin(port));
        engines.ForgetLog();
        TheBinding().Stop();
        EXPECT_EQ(Drawn(), Lines{"VecPortReleaseProc port#1"});
        EXPECT_EQ(engines.handles.Unbalanced(), Lines());
        EXPECT_EQ(image.Clients(), 1U);
        ExpectNothingToDrawWith(port);
        ExpectMissingInterface([&] { Begin(port); });
        engines.ForgetLog();
        port.EndDrawing();
    }
    EXPECT_EQ(engines.Log(), Lines());
    EXPECT_EQ(image.Clients(), 0U);
}

TEST_F(RasterPortAndStop, AsksNobodyInItsEnd) {
    std::optional<TnRasterPort> port(image);
    EXPECT_TRUE(Begin(*port));
    TheBinding().Stop();
    engines.ForgetLog();
    port.reset();
    EXPECT_EQ(engines.Log(), Lines());
    EXPECT_EQ(image.Clients(), 0U);
}

TEST_F(RasterPortAndStop, DrawsOnlyWhatBeginsAfterTheNextStart) {
    TnRasterPort port(image);
    EXPECT_TRUE(Begin(port));
    TheBinding().Stop();
    EXPECT_TRUE(Start());
    ExpectNothingToDrawWith(port);
    EXPECT_TRUE(Begin(port));
    engines.ForgetLog();
    port.Fill();
    port.EndDrawing();
    EXPECT_EQ(Drawn(), (Lines{"VecPortFillProcV2 port#2", "VecPortReleaseProc port#2"}));
    TheBinding().Stop();
    EXPECT_EQ(Drawn(), Lines());
}

TEST_F(RasterPortAndStop, LeavesNoMemoryBehindThatIsReplacedAfterwards) {
    const std::int64_t before = LiveAllocations();
    {
        TnRasterPort port(image);
        EXPECT_TRUE(Begin(port));
        TheBinding().Stop();
        EXPECT_TRUE(Start());
        EXPECT_TRUE(Begin(port));
    }
    TheBinding().Stop();
    EXPECT_EQ(LiveAllocations(), before);
}

class RasterPortAndMem : public PortTest {
protected:
    FakeShell shell;
    TnImage image{{5, 3}};
};

TEST_F(RasterPortAndMem, DrawsWhileThatLives) {
    std::optional<TnGraphicsMem> mem(std::in_place, 0, BasekitFromAscii("en_US"));
    std::optional<TnRasterPort> port(image);
    EXPECT_TRUE(Begin(*port));
    port->Fill();
    mem.reset();
    EXPECT_EQ(ReleasesOf("port#1"), 1U);
    ExpectNothingToDrawWith(*port);
    ExpectMissingInterface([&] { Begin(*port); });
    engines.ForgetLog();
    port.reset();
    EXPECT_EQ(engines.Log(), Lines());
    EXPECT_EQ(image.Clients(), 0U);
}

TEST_F(RasterPortAndMem, ThrowsErrorsOfNobodyWithoutThat) {
    TnRasterPort port(image);
    ExpectKelError("", "", 0, [&] { Begin(port); });
    for (const PortOperation& operation : kQuietOperations) {
        ExpectKelError("", "", 0, [&] { operation.run(port); });
    }
    EXPECT_EQ(port.Error(), 0);
    port.EndDrawing();
    EXPECT_EQ(engines.Log(), Lines());
    EXPECT_EQ(image.Clients(), 1U);
}

} // namespace
} // namespace tn::test
