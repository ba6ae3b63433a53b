// Raster ports that are held more than once, that do not make the engine's port themselves, and that fail to begin.
#include "TnGraphics/draw/TnRasterPort.h"

#include "tests/draw/PortTest.h"

#include <cstdint>
#include <gtest/gtest.h>
#include <optional>
#include <string>

namespace tn::test {
namespace {

/// Raises the counts that no host can raise.
struct HoldsOf : TnDrawPort {
    static constexpr std::int32_t TnDrawPort::*Member() { return &HoldsOf::holds_; }
};

// Sets what no host can set: that the engine's port is from outside. Explicit instantiations may name private members.
bool TnRasterPort::*IsExternal();
template <bool TnRasterPort::*member> struct Opened {
    friend bool TnRasterPort::*IsExternal() { return member; }
};
template struct Opened<&TnRasterPort::isExternal_>;

class RasterPortHeld : public PortTest {
protected:
    RasterPortHeld() { StartAfresh(); }

    std::int32_t& Holds() { return *port.*HoldsOf::Member(); }

    TnImage image{{5, 3}};
    std::optional<TnRasterPort> port{std::in_place, image};
};

TEST_F(RasterPortHeld, IsReleasedByTheEndThatLeavesNoHold) {
    EXPECT_TRUE(Begin(*port));
    Holds() = 2;
    engines.ForgetLog();
    port->EndDrawing();
    EXPECT_EQ(Holds(), 1);
    EXPECT_EQ(Drawn(), Lines());
    port->Fill();
    EXPECT_EQ(Drawn(), Lines{"VecPortFillProcV2 port#1"});
    port->EndDrawing();
    EXPECT_EQ(Holds(), 0);
    EXPECT_EQ(Drawn(), Lines{"VecPortReleaseProc port#1"});
    ExpectNothingToDrawWith(*port);
}

TEST_F(RasterPortHeld, IsHeldByNoBeginning) {
    EXPECT_EQ(Holds(), 0);
    EXPECT_TRUE(Begin(*port));
    EXPECT_TRUE(Begin(*port));
    EXPECT_EQ(Holds(), 0);
}

TEST_F(RasterPortHeld, LessThanNeverIsReleasedByEveryEnd) {
    for (int ends = 1; ends <= 3; ++ends) {
        port->EndDrawing();
        EXPECT_EQ(Holds(), -ends);
    }
    EXPECT_TRUE(Begin(*port));
    engines.ForgetLog();
    port->EndDrawing();
    EXPECT_EQ(Holds(), -4);
    EXPECT_EQ(Drawn(), Lines{"VecPortReleaseProc port#1"});
}

TEST_F(RasterPortHeld, IsReleasedInThePortsEndHoweverOften) {
    EXPECT_TRUE(Begin(*port));
    Holds() = 3;
    engines.ForgetLog();
    std::uint32_t clientsAtRelease = 0;
    engines.whenCalled = [&](const char*) { clientsAtRelease = image.Clients(); };
    port.reset();
    engines.whenCalled = nullptr;
    EXPECT_EQ(Drawn(), Lines{"VecPortReleaseProc port#1"});
    EXPECT_EQ(clientsAtRelease, 1U);
    EXPECT_EQ(image.Clients(), 0U);
}

class RasterPortFromOutside : public RasterPortHeld {
protected:
    /// Takes the engine's port for one that somebody else made.
    void TakeForExternal() {
        *port.*IsExternal() = true;
        engines.ForgetLog();
    }
};

TEST_F(RasterPortFromOutside, IsDrawnWithAsItIs) {
    EXPECT_TRUE(Begin(*port));
    TakeForExternal();
    EXPECT_TRUE(Begin(*port, 5));
    EXPECT_EQ(engines.Log(), Lines());
    port->Fill();
    port->EndDrawing();
    EXPECT_EQ(Drawn(), (Lines{"VecPortFillProcV2 port#1", "VecPortReleaseProc port#1"}));
}

TEST_F(RasterPortFromOutside, IsNotMadeWhereThereIsNone) {
    TakeForExternal();
    EXPECT_FALSE(Begin(*port));
    EXPECT_EQ(engines.Log(), Lines());
    ExpectNothingToDrawWith(*port);
}

TEST_F(RasterPortFromOutside, IsReleasedInThePortsEnd) {
    EXPECT_TRUE(Begin(*port));
    TakeForExternal();
    port.reset();
    EXPECT_EQ(Drawn(), Lines{"VecPortReleaseProc port#1"});
}

class RasterPortFailsToBegin : public RasterPortHeld {
protected:
    /// Expects the port with a number to be what is drawn with until the end.
    void ExpectToDrawWith(const char* handle) {
        engines.ForgetLog();
        port->Fill();
        port->EndDrawing();
        EXPECT_EQ(Drawn(), (Lines{CallOf("VecPortFillProcV2", handle), CallOf("VecPortReleaseProc", handle)}));
    }
};

TEST_F(RasterPortFailsToBegin, AndGoesOnWithTheEarlierDrawing) {
    EXPECT_TRUE(Begin(*port));
    engines.Fail("VecRasterPortNewBitmapPortV3Proc", "no luck", "Vec", 3);
    ExpectKelError("no luck", "Vec", 3, [&] { Begin(*port); });
    engines.FailNothing();
    engines.Hide("VecRasterPortNewBitmapPortV3Proc");
    ++RecordingEngines::UnregisterCount();
    ExpectMissingInterface([&] { Begin(*port); });
    ExpectToDrawWith("port#1");
    TheBinding().Stop();
    EXPECT_EQ(Drawn(), Lines());
}

TEST_F(RasterPortFailsToBegin, AtTheColorAndKeepsTheNewPort) {
    engines.makesColors = false;
    ExpectBadAllocation([&] { Begin(*port); });
    EXPECT_EQ(engines.CountOf("VecPortOptionsProcV3 port#1 1 3"), 0U);
    ExpectToDrawWith("port#1");
}

TEST_F(RasterPortFailsToBegin, AtTheColorAndKeepsTheNewPortInPlaceOfTheEarlierOne) {
    EXPECT_TRUE(Begin(*port));
    engines.makesColors = false;
    ExpectBadAllocation([&] { Begin(*port); });
    ExpectToDrawWith("port#2");
    TheBinding().Stop();
    EXPECT_EQ(Drawn(), Lines{"VecPortReleaseProc port#1"});
}

TEST_F(RasterPortFailsToBegin, AtTheOptionAndKeepsTheNewPort) {
    engines.whenCalled = [&](const std::string& procedure) {
        if (procedure == "VecPortSetColorServerProcV4") {
            engines.Hide("VecPortOptionsProcV3");
            ++RecordingEngines::UnregisterCount();
        }
    };
    ExpectMissingInterface([&] { Begin(*port); });
    EXPECT_EQ(engines.CountOf("VecPortSetColorServerProcV4 port#1 color#1 0 0"), 1U);
    EXPECT_EQ(engines.CountOf("VecPortOptionsProcV3 port#1 1 3"), 0U);
    engines.ShowAll();
    ExpectToDrawWith("port#1");
}

} // namespace
} // namespace tn::test
