// Raster ports from their making to their end, and the locks that they hold.
#include "TnGraphics/draw/TnRasterPort.h"

#include "tests/draw/PortTest.h"
#include "tests/port/SurfaceKinds.h"
#include "tests/support/AllocationFailure.h"
#include "tests/support/AssertionRecorder.h"
#include "tests/support/RecordingStorage.h"

#include "TnGraphics/port/ClientLock.h"

#include <cstddef>
#include <cstdint>
#include <gtest/gtest.h>
#include <memory>
#include <new>
#include <optional>
#include <string_view>
#include <type_traits>

namespace tn::test {
namespace {

class RasterPortLife : public PortTest {
protected:
    RasterPortLife() { StartAfresh(); }

    TnImage image{{5, 3}};
};

using RasterPortLocks = RasterPortLife;

template <class SurfaceType> void ExpectLockedForLife(const SurfaceType& surface) {
    {
        TnRasterPort port(surface);
        EXPECT_EQ(surface.Clients(), 1U);
        EXPECT_TRUE(port.BeginDrawing(Policy(0), 0));
        port.Fill();
        EXPECT_EQ(surface.Clients(), 1U);
        port.EndDrawing();
        EXPECT_EQ(surface.Clients(), 1U);
        const TnRasterPort other(surface);
        EXPECT_EQ(surface.Clients(), 2U);
    }
    EXPECT_EQ(surface.Clients(), 0U);
}

TEST_F(RasterPortLocks, TheSurfaceForItsLife) {
    ExpectLockedForLife(image);
    ExpectLockedForLife(TnMatte({5, 3}));
    ExpectLockedForLife(TnMask({9, 3}));
}

TEST_F(RasterPortLocks, TheStorageForItsLife) {
    StorageProbe probe;
    const TnMatte hosted(new RecordingStorage(probe, 8, 3), {5, 3});
    {
        const TnRasterPort port(hosted);
        EXPECT_EQ(probe.locks, 1);
        EXPECT_EQ(probe.unlocks, 0);
    }
    EXPECT_EQ(probe.locks, 1);
    EXPECT_EQ(probe.unlocks, 1);
}

TEST_F(RasterPortLocks, TheSurfaceUntilTheEngineHasLetItGo) {
    std::optional<TnRasterPort> port(image);
    EXPECT_TRUE(Begin(*port));
    std::uint32_t clientsAtRelease = 0;
    engines.whenCalled = [&](const char* procedure) {
        if (std::string_view(procedure) == "VecPortReleaseProc") {
            clientsAtRelease = image.Clients();
        }
    };
    port.reset();
    EXPECT_EQ(clientsAtRelease, 1U);
    EXPECT_EQ(image.Clients(), 0U);
}

template <class SurfaceType> void ExpectNoPortOn(const SurfaceType& surface) {
    ExpectBadAllocation([&] { const TnRasterPort port(surface); });
    EXPECT_EQ(surface.Clients(), 0U);
}

TEST_F(RasterPortLocks, NoSurfaceWithoutStorage) {
    ExpectNoPortOn(TnImage(nullptr, {5, 3}));
    ExpectNoPortOn(TnMatte(nullptr, {5, 3}));
    const TnMask source({9, 3});
    TnMask mask({1, 1});
    {
        const FailAllocation failure(1);
        EXPECT_THROW(mask = source, std::bad_alloc);
    }
    EXPECT_EQ(mask.Storage(), nullptr);
    ExpectNoPortOn(mask);
}

TEST_F(RasterPortLocks, NoSurfaceWhoseStorageRefuses) {
    StorageProbe probe;
    const TnImage hosted(new RecordingStorage(probe, 64, 3), {5, 3});
    probe.throwAtLock = true;
    EXPECT_THROW(TnRasterPort port(hosted), StorageFault);
    EXPECT_EQ(hosted.Clients(), 0U);
    probe.throwAtLock = false;
    probe.throwAtBaseAddr = true;
    EXPECT_THROW(TnRasterPort port(hosted), StorageFault);
    EXPECT_EQ(hosted.Clients(), 0U);
    EXPECT_FALSE(probe.IsLocked());
}

TEST_F(RasterPortLocks, NoSurfaceWhenMemoryIsExhausted) {
    const std::int64_t before = LiveAllocations();
    bool hasFailed = true;
    for (int nth = 1; hasFailed; ++nth) {
        const FailAllocation failure(nth);
        try {
            const TnRasterPort port(image);
            hasFailed = failure.HasFailed();
            EXPECT_FALSE(hasFailed) << "nobody is told";
        } catch (const std::bad_alloc&) {
            EXPECT_TRUE(failure.HasFailed());
        }
        EXPECT_EQ(image.Clients(), 0U);
    }
    EXPECT_EQ(LiveAllocations(), before);
}

TEST_F(RasterPortLife, BeginsAndEndsWithoutTheEngines) {
    { const TnRasterPort port(image); }
    EXPECT_EQ(engines.Log(), Lines());
}

TEST_F(RasterPortLife, IsOneThatMayBeEndedAsADrawPort) {
    EXPECT_TRUE((std::is_base_of_v<TnDrawPort, TnRasterPort>));
    EXPECT_FALSE(std::is_copy_constructible_v<TnRasterPort>);
    EXPECT_FALSE(std::is_copy_assignable_v<TnRasterPort>);
    std::unique_ptr<TnDrawPort> port = std::make_unique<TnRasterPort>(image);
    EXPECT_TRUE(Begin(*port));
    port.reset();
    EXPECT_EQ(ReleasesOf("port#1"), 1U);
    EXPECT_EQ(image.Clients(), 0U);
}

TEST_F(RasterPortLife, EndsTheDrawing) {
    std::optional<TnRasterPort> port(image);
    EXPECT_TRUE(Begin(*port));
    port->SaveState();
    engines.ForgetLog();
    port.reset();
    EXPECT_EQ(Drawn(), Lines{"VecPortReleaseProc port#1"});
    TheBinding().Stop();
    EXPECT_EQ(Drawn(), Lines());
}

TEST_F(RasterPortLife, LeavesNoColorBehind) {
    {
        TnRasterPort port(image);
        EXPECT_TRUE(Begin(port));
        port.RGBColor(0.5F, 0.5F, 0.5F, 1);
        port.Gray(0.5F);
    }
    for (const char* color : {"color#1", "color#2", "color#3"}) {
        EXPECT_EQ(engines.CountOf(CallOf("HuexColorReleaseProc", color)), 1U);
    }
}

TEST_F(RasterPortLife, CopiesNothing) {
    TnRasterPort port(image);
    TnRasterPort other(image);
    EXPECT_NO_THROW(port.CopyTo(other));
    EXPECT_TRUE(Begin(port));
    EXPECT_TRUE(Begin(other));
    engines.ForgetLog();
    port.CopyTo(other);
    port.CopyTo(other, {0, 0, 5, 3}, {1, 1, 2, 2});
    EXPECT_EQ(engines.Log(), Lines());
}

/// The bytes of rows of a target, up to the last pixel.
template <class SurfaceType> std::ptrdiff_t SpanOf(const VecBitmap& target) {
    const std::int32_t width = target.right - target.left;
    const std::int32_t height = target.bottom - target.top;
    const bool isEmpty = width < 1 || height < 1;
    return isEmpty ? 0
                   : std::ptrdiff_t{height - 1} * target.rowBytes +
                         std::ptrdiff_t{width} * static_cast<std::ptrdiff_t>(sizeof(typename SurfaceType::Pixel));
}

/// Surfaces that change while they are locked.
template <class SurfaceType> class RasterPortTarget : public PortTest {
protected:
    static constexpr TnRect kAll = {0, 0, 10, 10};
    static constexpr TnRect kBottomRightQuarter = {5, 5, 5, 5};

    RasterPortTarget() { StartAfresh(); }

    /// How many bytes a port's drawing may reach, from its first pixel on, when drawing begins now.
    std::ptrdiff_t SpanOfDrawing(TnRasterPort& port) {
        engines.lastBitmap = {};
        EXPECT_TRUE(Begin(port));
        return SpanOf<SurfaceType>(engines.lastBitmap);
    }

    std::ptrdiff_t BytesFrom(const void* pixels) const {
        const auto* const block = static_cast<const std::uint8_t*>(surface.Storage()->BaseAddr());
        return block + surface.Storage()->ByteSize() - static_cast<const std::uint8_t*>(pixels);
    }

    SurfaceType surface{{10, 10}};
    AssertionRecorder recorder;
};
TYPED_TEST_SUITE(RasterPortTarget, SurfaceKinds);

TYPED_TEST(RasterPortTarget, IsEmptyWhereContentSetSinceTheFirstLockWouldLeaveTheBlock) {
    this->surface.Content(this->kBottomRightQuarter);
    const ClientLock<TypeParam> lock(this->surface);
    this->surface.Content(this->kAll);
    TnRasterPort port(this->surface);
    EXPECT_EQ(this->SpanOfDrawing(port), 0);
}

TYPED_TEST(RasterPortTarget, StandsAtTheBaseOfTheFirstLockInsideTheBlock) {
    const ClientLock<TypeParam> lock(this->surface);
    this->surface.Content(this->kBottomRightQuarter);
    TnRasterPort port(this->surface);
    EXPECT_TRUE(this->Begin(port));
    EXPECT_EQ(this->engines.lastBitmap.pixels, this->surface.Storage()->BaseAddr());
    EXPECT_EQ(this->engines.lastBitmap.right, 5);
    EXPECT_EQ(this->engines.lastBitmap.bottom, 5);
}

TYPED_TEST(RasterPortTarget, IsEmptyWithoutAPixelBase) {
    const ClientLock<TypeParam> lock(this->surface);
    this->surface.ReInit({4, 4});
    TnRasterPort port(this->surface);
    EXPECT_EQ(this->SpanOfDrawing(port), 0);
}

TYPED_TEST(RasterPortTarget, NeverLeavesTheBlock) {
    this->surface.Content(this->kBottomRightQuarter);
    TnRasterPort port(this->surface);
    this->surface.Content(this->kAll);
    const std::ptrdiff_t span = this->SpanOfDrawing(port);
    EXPECT_LE(span, this->BytesFrom(this->engines.lastBitmap.pixels));
}

} // namespace
} // namespace tn::test
