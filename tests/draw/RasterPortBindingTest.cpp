// Raster ports and the binding: tables that become outdated, and a binding that stops meanwhile.
#include "TnGraphics/draw/TnRasterPort.h"

#include "tests/draw/PortTest.h"
#include "tests/fakes/FakeShell.h"
#include "tests/support/AllocationFailure.h"

#include "TnGraphics/runtime/TnGraphicsMem.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <gtest/gtest.h>
#include <optional>
#include <set>
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

// Procedures of the test's own, for what an engine does behind the library's back.
VecPort givenPort = nullptr;
void TakePort(VecPort port) { givenPort = port; }

constexpr const char* kTaken = "a color is taken";
HuexColor givenColor = nullptr;
void TakeColor(VecPort, HuexColor color, std::int32_t, std::int32_t) {
    givenColor = color;
    if (RecordingEngines* const engines = RecordingEngines::Current(kTaken)) {
        engines->Note(kTaken);
    }
}

void ReleaseWhatIsGone(HuexColor) { ADD_FAILURE() << "colors are released by a procedure that went away"; }

/// The pairs of an interface that were looked up, from the table's first to its last: "method procedure".
Lines PairsOf(const std::string& interfaceName, const Lines& lookups) {
    const std::string beginning = "get " + interfaceName + " ";
    Lines pairs;
    for (auto line = lookups.rbegin(); line != lookups.rend(); ++line) {
        if (line->starts_with(beginning)) {
            pairs.push_back(line->substr(beginning.size()));
        }
    }
    return pairs;
}

/// How many of them look up a procedure.
std::ptrdiff_t LookupsOf(const std::string& procedure, const Lines& pairs) {
    return std::ranges::count_if(pairs, [&](const std::string& pair) { return pair.ends_with(" " + procedure); });
}

class RasterPortTables : public PortTest {
protected:
    RasterPortTables() { StartAfresh(); }

    void OfferNewPath() {
        givenPort = nullptr;
        engines.Offer("VecRasterPortInterface", "VecPortNewPathProc", reinterpret_cast<void*>(&TakePort));
    }

    /// Lets something happen while the engine takes a colour, whose release of now must not be called any more then.
    template <class Work> void WhileAColorIsTaken(const Work& work) {
        engines.Offer("VecRasterPortInterface", "VecPortSetColorServerProcV4", reinterpret_cast<void*>(&TakeColor));
        engines.Offer("HuexColorInterface", "HuexColorReleaseProc", reinterpret_cast<void*>(&ReleaseWhatIsGone));
        engines.whenCalled = [=](const std::string& procedure) {
            if (procedure == kTaken) {
                work();
            }
        };
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

TEST_F(RasterPortTables, HaveThePairsThatEveryKindOfPortShares) {
    TnRasterPort port(image);
    EXPECT_TRUE(Begin(port));
    const Lines pairs = PairsOf("VecRasterPortInterface", engines.Lookups());
    ASSERT_EQ(pairs.size(), 66U);
    EXPECT_EQ(pairs.front(), "GetPortType VecPortGetPortTypeProc");
    EXPECT_LT(PlaceOf("Clip VecPortClipProcV2", pairs), pairs.size());
    EXPECT_LT(PlaceOf("Fill VecPortFillProcV2", pairs), pairs.size());
    EXPECT_EQ(std::set<std::string>(pairs.begin(), pairs.end()).size(), pairs.size());
}

TEST_F(RasterPortTables, HaveOneVersionOfEveryProcedureThatIsCalled) {
    constexpr std::array<const char*, 20> kCalled = {
        "VecPortNewPathProc",      "VecPortMoveToProc",           "VecPortLineToProc",      "VecPortCurveToProc",
        "VecPortClosePathProc",    "VecPortClipProcV2",           "VecPortEOClipProcV2",    "VecPortFillProcV2",
        "VecPortEOFillProcV2",     "VecPortStrokeProcV2",         "VecPortGSaveProc",       "VecPortGRestoreProc",
        "VecPortSetLineWidthProc", "VecPortSetLineCapProc",       "VecPortSetLineJoinProc", "VecPortTranslateProc",
        "VecPortScaleProc",        "VecPortSetColorServerProcV4", "VecPortGetKelErrorProc", "VecPortOptionsProcV3"};
    TnRasterPort port(image);
    EXPECT_TRUE(Begin(port));
    port.SetMatrix({});
    const Lines pairs = PairsOf("VecRasterPortInterface", engines.Lookups());
    for (const std::string procedure : kCalled) {
        const std::string unversioned = procedure.substr(0, procedure.rfind("Proc") + 4);
        for (const char* version : {"", "V2", "V3", "V4", "V5"}) {
            const std::string other = unversioned + version;
            EXPECT_EQ(LookupsOf(other, pairs), other == procedure ? 1 : 0) << other;
        }
    }
    EXPECT_EQ(PairsOf("VecNewRasterPortInterface", engines.Lookups()),
              Lines{"NewBitmapPort VecRasterPortNewBitmapPortV3Proc"});
    EXPECT_EQ(LookupsOf("VecGStatePortSetMatrixProc", engines.Lookups()), 1);
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

TEST_F(RasterPortTables, AreFoundAgainToReleaseAColor) {
    WhileAColorIsTaken([&] { engines.Unregister("HuexColorInterface"); });
    TnRasterPort port(image);
    EXPECT_TRUE(Begin(port));
    EXPECT_EQ(engines.CountOf("HuexColorReleaseProc color#1"), 1U);
    EXPECT_EQ(engines.handles.ReferencesTo(givenColor), 0);
}

TEST_F(RasterPortTables, MayLackWhatReleasesAColor) {
    WhileAColorIsTaken([&] {
        engines.Unregister("HuexColorInterface");
        engines.Hide("HuexColorReleaseProc");
    });
    TnRasterPort port(image);
    EXPECT_TRUE(Begin(port));
    const HuexColor left = givenColor;
    EXPECT_EQ(engines.handles.ReferencesTo(left), 1);
    EXPECT_EQ(engines.CountOf("VecPortOptionsProcV3 port#1 1 3"), 1U);
    ExpectMissingInterface([&] { port.Gray(1); });
    engines.whenCalled = nullptr;
    engines.ShowAll();
    port.Gray(1);
    EXPECT_EQ(engines.CountOf("HuexColorReleaseProc color#2"), 1U);
    engines.handles.Release("the engine that went away", left, HandleKind::kColor);
}

TEST_F(RasterPortTables, ThatAreMissingOnceAColorIsMadeLeaveNoColorBehind) {
    TnRasterPort port(image);
    EXPECT_TRUE(Begin(port));
    engines.Offer("HuexColorInterface", "HuexColorReleaseProc", reinterpret_cast<void*>(&ReleaseWhatIsGone));
    ++RecordingEngines::UnregisterCount();
    engines.whenCalled = [&](const std::string& procedure) {
        if (procedure == "HuexNewColorProc") {
            engines.Unregister("HuexColorInterface");
            engines.Hide("VecPortGetMatrixProc");
        }
    };
    engines.ForgetLog();
    ExpectMissingInterface([&] { port.Gray(1); });
    EXPECT_EQ(engines.CountOf("VecPortSetColorServerProcV4 port#1 color#2 0 0"), 0U);
    EXPECT_EQ(engines.CountOf("HuexColorReleaseProc color#2"), 1U);
    engines.ShowAll();
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
