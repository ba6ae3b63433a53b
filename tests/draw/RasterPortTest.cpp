#include "TnGraphics/draw/TnRasterPort.h"

#include "tests/draw/PortTest.h"
#include "tests/support/AllocationFailure.h"
#include "tests/support/RecordingStorage.h"

#include "TnGraphics/port/ClientLock.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <gtest/gtest.h>
#include <limits>
#include <new>
#include <string>

namespace tn::test {
namespace {

constexpr const char* kBlack = "1 4 1 0 0 0"; // with opaque alpha
constexpr const char* kWhite = "0 1 1";

/// What BeginDrawing calls to make the port with a number, over a bitmap.
Lines BeginCalls(const std::string& bitmap, const std::string& color, int number = 1, int option = 3) {
    const std::string serial = std::to_string(number);
    return {"VecRasterPortNewBitmapPortV3Proc " + bitmap, "HuexNewColorProc " + color,
            "VecPortSetColorServerProcV4 port#" + serial + " color#" + serial + " 0 0",
            "VecPortOptionsProcV3 port#" + serial + " 1 " + std::to_string(option)};
}

const std::uint8_t* AddressIn(const TnBitMapHelper& storage, std::ptrdiff_t offset) {
    return static_cast<const std::uint8_t*>(storage.BaseAddr()) + offset;
}

class RasterPortBegins : public PortTest {
protected:
    RasterPortBegins() { StartAfresh(); }

    /// Expects the creation to succeed now, and the port to be released with the drawing.
    void ExpectToDraw(TnRasterPort& port) {
        engines.ForgetLog();
        EXPECT_TRUE(Begin(port));
        EXPECT_NO_THROW(port.Fill());
        port.EndDrawing();
        EXPECT_TRUE(Drawn().back().starts_with("VecPortReleaseProc"));
    }

    TnImage image{{5, 3}};
    TnMatte matte{{5, 3}};
    TnMask mask{{9, 3}};
};

TEST_F(RasterPortBegins, OnImagesInOpaqueBlack) {
    TnRasterPort port(image);
    EXPECT_TRUE(Begin(port));
    EXPECT_EQ(Called(), BeginCalls("28 0 0 5 3 32 1", kBlack));
    EXPECT_EQ(engines.lastBitmap.pixels, image.Storage()->BaseAddr());
}

TEST_F(RasterPortBegins, OnMattesInWhite) {
    TnRasterPort port(matte);
    EXPECT_TRUE(Begin(port));
    EXPECT_EQ(Called(), BeginCalls("13 0 0 5 3 8 0", kWhite));
    EXPECT_EQ(engines.lastBitmap.pixels, matte.Storage()->BaseAddr());
}

TEST_F(RasterPortBegins, OnMasksInWhite) {
    TnRasterPort port(mask);
    EXPECT_TRUE(Begin(port));
    EXPECT_EQ(Called(), BeginCalls("10 0 0 9 3 1 0", kWhite));
    EXPECT_EQ(engines.lastBitmap.pixels, mask.Storage()->BaseAddr());
}

TEST_F(RasterPortBegins, OnTheContentOfSurfaces) {
    image.Content({3, 1, 2, 2});
    matte.Content({3, 1, 1, 2});
    TnRasterPort imagePort(image);
    EXPECT_TRUE(Begin(imagePort));
    EXPECT_EQ(Called(), BeginCalls("28 0 0 2 2 32 1", kBlack));
    EXPECT_EQ(engines.lastBitmap.pixels, AddressIn(*image.Storage(), 28 + 3 * 4));
    TnRasterPort mattePort(matte);
    EXPECT_TRUE(Begin(mattePort));
    EXPECT_EQ(Called(), BeginCalls("13 0 0 1 2 8 0", kWhite, 2));
    EXPECT_EQ(engines.lastBitmap.pixels, AddressIn(*matte.Storage(), 13 + 3));
}

TEST_F(RasterPortBegins, OnStorageOfTheHost) {
    StorageProbe probe;
    auto* const storage = new RecordingStorage(probe, 64, 3);
    const TnImage hosted(storage, {5, 3});
    TnRasterPort port(hosted);
    EXPECT_TRUE(Begin(port));
    EXPECT_EQ(Called(), BeginCalls("64 0 0 5 3 32 1", kBlack));
    EXPECT_EQ(engines.lastBitmap.pixels, storage->Bytes().data());
}

TEST_F(RasterPortBegins, WithTheOptionOfThePolicy) {
    constexpr std::array<int, 8> kOptions = {3, 0, 2, 0, 0, 16, 19, 19};
    TnRasterPort imagePort(image);
    TnRasterPort maskPort(mask);
    for (int policy = 0; policy < 8; ++policy) {
        const int option = kOptions[static_cast<std::size_t>(policy)];
        EXPECT_TRUE(Begin(imagePort, policy));
        EXPECT_EQ(Called(), BeginCalls("28 0 0 5 3 32 1", kBlack, 2 * policy + 1, option));
        EXPECT_TRUE(Begin(maskPort, policy));
        EXPECT_EQ(Called(), BeginCalls("10 0 0 9 3 1 0", kWhite, 2 * policy + 2, option));
    }
}

TEST_F(RasterPortBegins, WithTheFirstOptionForOtherPolicies) {
    constexpr std::int32_t kSmallest = std::numeric_limits<std::int32_t>::min();
    constexpr std::int32_t kLargest = std::numeric_limits<std::int32_t>::max();
    TnRasterPort port(matte);
    int number = 0;
    for (const int policy : {-1, 8, 9, 256, 0x10001, kSmallest, kLargest}) {
        EXPECT_TRUE(Begin(port, policy));
        EXPECT_EQ(Called(), BeginCalls("13 0 0 5 3 8 0", kWhite, ++number, 3)) << policy;
    }
}

TEST_F(RasterPortBegins, OnSurfacesWithoutPixels) {
    const auto expectToDraw = [&](const auto& surface) {
        TnRasterPort port(surface);
        EXPECT_TRUE(Begin(port));
        EXPECT_TRUE(engines.lastBitmap.right <= 0 || engines.lastBitmap.bottom <= 0);
        for (const PortOperation& operation : kQuietOperations) {
            EXPECT_NO_THROW(operation.run(port)) << operation.procedure;
        }
        for (const PortOperation& paint : kPaints) {
            EXPECT_NO_THROW(paint.run(port)) << paint.procedure;
        }
        EXPECT_EQ(port.Error(), 0);
        engines.ForgetLog();
        port.EndDrawing();
        EXPECT_TRUE(Drawn().back().starts_with("VecPortReleaseProc"));
    };
    for (const TnPoint& size : {TnPoint{0, 0}, TnPoint{0, 5}, TnPoint{5, 0}}) {
        SCOPED_TRACE(testing::Message() << size.x << " x " << size.y);
        expectToDraw(TnImage(size));
        expectToDraw(TnMatte(size));
        expectToDraw(TnMask(size));
    }
}

TEST_F(RasterPortBegins, OnNoBitsOfAMaskThatWasAssignedWhileItWasLocked) {
    const ClientLock<TnMask> lock(mask);
    mask = TnMask({20, 4});
    TnRasterPort port(mask);
    EXPECT_TRUE(Begin(port));
    EXPECT_EQ(Called(), BeginCalls(std::to_string(mask.RowBytes()) + " 0 0 0 0 1 0", kWhite));
    EXPECT_EQ(engines.lastBitmap.pixels, nullptr);
}

TEST_F(RasterPortBegins, TheSameForEachCount) {
    int number = 0;
    for (const long count : {0L, 1L, -1L, 256L, std::numeric_limits<long>::max(), std::numeric_limits<long>::min()}) {
        TnRasterPort port(matte);
        engines.ForgetLog();
        EXPECT_TRUE(port.BeginDrawing(Policy(5), count));
        EXPECT_EQ(Called(), BeginCalls("13 0 0 5 3 8 0", kWhite, ++number, 16));
        port.EndDrawing();
        EXPECT_EQ(Drawn(), Lines{"VecPortReleaseProc port#" + std::to_string(number)});
    }
}

TEST_F(RasterPortBegins, NothingWhenTheEngineReportsAnError) {
    TnRasterPort port(image);
    engines.Fail("VecRasterPortNewBitmapPortV3Proc", "no luck", "Vec", 3);
    ExpectKelError("no luck", "Vec", 3, [&] { Begin(port); });
    engines.FailNothing();
    engines.Fail("VecRasterPortNewBitmapPortV3Proc", "no luck", "QMZ", 2);
    ExpectKelError("no luck", "QMZ", 2, [&] { Begin(port); });
    engines.FailNothing();
    engines.Fail("VecRasterPortNewBitmapPortV3Proc", "no room", "QMZ", 1);
    ExpectBadAllocation([&] { Begin(port); });
    EXPECT_EQ(Drawn(), Lines(3, "VecRasterPortNewBitmapPortV3Proc 28 0 0 5 3 32 1"));
    ExpectNothingToDrawWith(port);
    engines.FailNothing();
    ExpectToDraw(port);
}

TEST_F(RasterPortBegins, NothingWhenTheEngineMakesNoPort) {
    TnRasterPort port(image);
    engines.makesPorts = false;
    EXPECT_FALSE(Begin(port));
    EXPECT_EQ(Drawn(), Lines{"VecRasterPortNewBitmapPortV3Proc 28 0 0 5 3 32 1"});
    ExpectNothingToDrawWith(port);
    engines.makesPorts = true;
    ExpectToDraw(port);
}

TEST_F(RasterPortBegins, NothingWhenAProcedureIsMissing) {
    Lines names = {"VecRasterPortNewBitmapPortV3Proc"};
    for (const abi::ProcedureName& name : abi::kPortProcedures) {
        names.emplace_back(name.procedure);
    }
    for (const abi::ProcedureName& name : abi::kColorProcedures) {
        names.emplace_back(name.procedure);
    }
    TnRasterPort port(image);
    for (const std::string& name : names) {
        SCOPED_TRACE(name);
        ++RecordingEngines::UnregisterCount();
        engines.Hide(name.c_str());
        ExpectMissingInterface([&] { Begin(port); });
        engines.ShowAll();
    }
    ExpectToDraw(port);
}

TEST_F(RasterPortBegins, WithoutAColorOnlyInVain) {
    const std::int64_t before = LiveAllocations();
    {
        TnRasterPort port(image);
        engines.makesColors = false;
        ExpectBadAllocation([&] { Begin(port); });
        EXPECT_EQ(engines.CountOf("VecPortSetColorServerProcV4 port#1 null 0 0"), 0U);
    }
    EXPECT_EQ(ReleasesOf("port#1"), 1U);
    EXPECT_EQ(image.Clients(), 0U);
    engines.ForgetLog();
    EXPECT_EQ(LiveAllocations(), before);
}

TEST_F(RasterPortBegins, NothingWhenMemoryIsExhausted) {
    const std::int64_t before = LiveAllocations();
    bool hasFailed = true;
    for (int nth = 1; hasFailed; ++nth) {
        TnRasterPort port(image);
        {
            const FailAllocation failure(nth);
            try {
                EXPECT_TRUE(Begin(port));
                hasFailed = failure.HasFailed();
                EXPECT_FALSE(hasFailed) << "nobody is told";
            } catch (const std::bad_alloc& exhausted) {
                EXPECT_STREQ(exhausted.what(), "bad allocation");
                EXPECT_TRUE(failure.HasFailed());
            }
        }
        EXPECT_TRUE(nth > 1 || hasFailed) << "nothing is allocated";
        port.EndDrawing();
        EXPECT_EQ(ReleasesOf(("port#" + std::to_string(nth)).c_str()), 1U);
    }
    EXPECT_EQ(LiveAllocations(), before);
}

TEST_F(RasterPortBegins, NothingWithoutARuntime) {
    TheBinding().Stop();
    TnRasterPort port(image);
    ExpectMissingInterface([&] { Begin(port); });
    ExpectNothingToDrawWith(port);
}

using RasterPortHolds = RasterPortBegins;

TEST_F(RasterPortHolds, TheEnginesPortUntilTheEndOfDrawing) {
    TnRasterPort port(image);
    EXPECT_TRUE(Begin(port));
    engines.ForgetLog();
    port.EndDrawing();
    EXPECT_EQ(Drawn(), Lines{"VecPortReleaseProc port#1"});
    ExpectNothingToDrawWith(port);
    port.EndDrawing();
    EXPECT_EQ(Drawn(), Lines());
}

TEST_F(RasterPortHolds, NothingBeforeDrawingBegins) {
    TnRasterPort port(image);
    ExpectNothingToDrawWith(port);
    port.EndDrawing();
    EXPECT_EQ(Drawn(), Lines());
    ExpectToDraw(port);
}

TEST_F(RasterPortHolds, ANewPortForEachDrawing) {
    TnRasterPort port(image);
    for (int number = 1; number <= 3; ++number) {
        EXPECT_TRUE(Begin(port));
        const std::string handle = "port#" + std::to_string(number);
        engines.ForgetLog();
        port.Fill();
        port.EndDrawing();
        EXPECT_EQ(Drawn(),
                  (Lines{CallOf("VecPortFillProcV2", handle.c_str()), CallOf("VecPortReleaseProc", handle.c_str())}));
    }
}

TEST_F(RasterPortHolds, NoPortThatAnotherOneReplaced) {
    const std::int64_t before = LiveAllocations();
    {
        TnRasterPort port(image);
        EXPECT_TRUE(Begin(port));
        EXPECT_TRUE(Begin(port));
        engines.ForgetLog();
        port.Fill();
        port.EndDrawing();
        EXPECT_EQ(Drawn(), (Lines{"VecPortFillProcV2 port#2", "VecPortReleaseProc port#2"}));
        ExpectNothingToDrawWith(port);
        port.EndDrawing();
    }
    EXPECT_EQ(Drawn(), Lines());
    TheBinding().Stop();
    EXPECT_EQ(Drawn(), Lines{"VecPortReleaseProc port#1"});
    EXPECT_EQ(LiveAllocations(), before);
    EXPECT_EQ(engines.handles.Unbalanced(), Lines());
}

TEST_F(RasterPortHolds, NoPortThatNoneReplaced) {
    TnRasterPort port(image);
    EXPECT_TRUE(Begin(port));
    engines.makesPorts = false;
    EXPECT_FALSE(Begin(port));
    ExpectNothingToDrawWith(port);
    port.EndDrawing();
    EXPECT_EQ(Drawn(), Lines());
    TheBinding().Stop();
    EXPECT_EQ(Drawn(), Lines{"VecPortReleaseProc port#1"});
}

TEST_F(RasterPortHolds, APortOfEachTarget) {
    TnRasterPort first(image);
    TnRasterPort second(image);
    EXPECT_TRUE(Begin(first));
    EXPECT_TRUE(Begin(second));
    engines.ForgetLog();
    first.EndDrawing();
    second.Fill();
    EXPECT_EQ(Drawn(), (Lines{"VecPortReleaseProc port#1", "VecPortFillProcV2 port#2"}));
}

} // namespace
} // namespace tn::test
