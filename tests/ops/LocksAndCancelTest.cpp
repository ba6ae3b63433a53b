#include "tests/support/AllocationFailure.h"
#include "tests/support/CancelAtPoll.h"
#include "tests/support/PixelDiff.h"
#include "tests/support/RecordingStorage.h"
#include "tests/support/Surfaces.h"

#include "TnGraphics/ops/Erase.h"
#include "TnGraphics/ops/Fills.h"
#include "TnGraphics/port/Exceptions.h"

#include <functional>
#include <gtest/gtest.h>
#include <limits>

namespace tn::test {
namespace {

constexpr TnColor kColor = {0x40, 0x10, 0x20, 0x30};
constexpr TnColor kLine = {0x40, 0xE0, 0xE1, 0xE2};

template <class SurfaceType> struct NamedOperation {
    const char* name;
    void (*run)(SurfaceType& surface);
};

template <class SurfaceType> struct OperationsOn;

// Each of them writes every row of the content.
template <> struct OperationsOn<TnImage> {
    static constexpr NamedOperation<TnImage> kAll[] = {
        {"ColorFill", [](TnImage& image) { ColorFill(image, image.Bounds(), kColor); }},
        {"AlphaFill", [](TnImage& image) { AlphaFill(image, image.Bounds(), 0x40); }},
        {"XFill", [](TnImage& image) { XFill(image, image.Bounds(), kColor, kLine); }},
        {"CrossHatchFill", [](TnImage& image) { CrossHatchFill(image, image.Bounds(), kColor, kLine, 3); }},
        {"BlendInColor", [](TnImage& image) { BlendInColor(image, kColor, true); }},
        {"BlendInColorAndFillAlpha", [](TnImage& image) { BlendInColorAndFillAlpha(image, kColor, 0x40); }},
        {"SetOpacity", [](TnImage& image) { SetOpacity(image, 50); }},
        {"EraseOutside", [](TnImage& image) { EraseOutside<TnImage>(image, {}); }},
        {"PrepareMargin", [](TnImage& image) { PrepareMargin(image, {}); }},
    };
};

template <> struct OperationsOn<TnMatte> {
    static constexpr NamedOperation<TnMatte> kAll[] = {
        {"AlphaFill", [](TnMatte& matte) { AlphaFill(matte, matte.Bounds(), 0x40); }},
        {"EraseOutside", [](TnMatte& matte) { EraseOutside<TnMatte>(matte, {}); }},
        {"PrepareMargin", [](TnMatte& matte) { PrepareMargin(matte, {}); }},
    };
};

template <class SurfaceType> class EveryOperation : public ::testing::Test {
protected:
    using Operation = NamedOperation<SurfaceType>;

    static constexpr auto kOld = static_cast<typename SurfaceType::Pixel>(0x80A1B2C3);
    static constexpr std::uint32_t kRowBytes = 40;

    static void ForEach(const std::function<void(const Operation&)>& body) {
        for (const Operation& operation : OperationsOn<SurfaceType>::kAll) {
            SCOPED_TRACE(operation.name);
            body(operation);
        }
    }

    static void ExpectNoStorage(const Operation& operation, SurfaceType& surface) {
        try {
            operation.run(surface);
            ADD_FAILURE() << "nothing was thrown";
        } catch (const std::bad_alloc& exception) {
            EXPECT_STREQ(exception.what(), "bad allocation");
        }
        EXPECT_EQ(surface.Clients(), 0U);
    }

    static SurfaceType OnRecordingStorage(StorageProbe& probe, const TnPoint& size) {
        return SurfaceType(new RecordingStorage(probe, kRowBytes, static_cast<std::uint32_t>(size.y), 0x80), size,
                           &PollWatch::Proc);
    }
};

using SurfaceTypes = ::testing::Types<TnImage, TnMatte>;
TYPED_TEST_SUITE(EveryOperation, SurfaceTypes);

TYPED_TEST(EveryOperation, ThrowsBadAllocationOnASurfaceWithoutStorage) {
    this->ForEach([this](const auto& operation) {
        TypeParam surface(nullptr, {5, 3});
        this->ExpectNoStorage(operation, surface);
    });
}

TYPED_TEST(EveryOperation, ThrowsBadAllocationOnASurfaceThatGotNoMemory) {
    this->ForEach([this](const auto& operation) {
        TypeParam surface({5, 3});
        EXPECT_THROW(surface.ReInit({5, std::numeric_limits<int>::max()}), bad_alloc_bitmap);
        this->ExpectNoStorage(operation, surface);
    });
}

TYPED_TEST(EveryOperation, DoesNothingOnASurfaceOfNoSize) {
    this->ForEach([](const auto& operation) {
        TypeParam surface;
        EXPECT_NO_THROW(operation.run(surface));
        EXPECT_EQ(surface.Clients(), 0U);
    });
}

TYPED_TEST(EveryOperation, DoesNothingAndNeverPollsOnASurfaceWithoutColumnsOrRows) {
    this->ForEach([](const auto& operation) {
        for (const TnPoint size : {TnPoint{0, 100}, TnPoint{100, 0}}) {
            TypeParam surface(size, false, &PollWatch::Proc);
            const PollWatch watch;
            EXPECT_NO_THROW(operation.run(surface));
            EXPECT_EQ(watch.Polls(), 0);
            EXPECT_EQ(surface.Clients(), 0U);
        }
    });
}

TYPED_TEST(EveryOperation, AllocatesNothing) {
    this->ForEach([](const auto& operation) {
        TypeParam surface({10, 40});
        const FailAllocation fail(1);
        EXPECT_NO_THROW(operation.run(surface));
        EXPECT_FALSE(fail.HasFailed());
    });
}

TYPED_TEST(EveryOperation, UnlocksTheStorageAsOftenAsItLocksIt) {
    this->ForEach([this](const auto& operation) {
        StorageProbe probe;
        TypeParam surface = this->OnRecordingStorage(probe, {10, 3});
        operation.run(surface);
        EXPECT_GT(probe.locks, 0);
        EXPECT_FALSE(probe.IsLocked());
        EXPECT_EQ(probe.refreshes, 0);
    });
}

TYPED_TEST(EveryOperation, LeavesTheLocksOfItsCallerAlone) {
    this->ForEach([](const auto& operation) {
        TypeParam surface({10, 3});
        surface.AddClient();
        const void* const base = surface.PixelBase();
        operation.run(surface);
        EXPECT_EQ(surface.Clients(), 1U);
        EXPECT_EQ(surface.PixelBase(), base);
        surface.RemoveClient();
    });
}

TYPED_TEST(EveryOperation, PassesOnWhatTheStorageThrowsAtTheLock) {
    this->ForEach([this](const auto& operation) {
        StorageProbe probe;
        probe.throwAtLock = true;
        TypeParam surface = this->OnRecordingStorage(probe, {10, 3});
        EXPECT_THROW(operation.run(surface), StorageFault);
        EXPECT_EQ(surface.Clients(), 0U);
        EXPECT_FALSE(probe.IsLocked());
    });
}

TYPED_TEST(EveryOperation, UnlocksStorageThatCannotSayItsAddress) {
    this->ForEach([this](const auto& operation) {
        StorageProbe probe;
        probe.throwAtBaseAddr = true;
        TypeParam surface = this->OnRecordingStorage(probe, {10, 3});
        EXPECT_THROW(operation.run(surface), StorageFault);
        EXPECT_EQ(surface.Clients(), 0U);
        EXPECT_FALSE(probe.IsLocked());
    });
}

TYPED_TEST(EveryOperation, PollsOnceEvery32Rows) {
    this->ForEach([](const auto& operation) {
        for (const int rows : {1, 31, 32, 33, 63, 64, 100}) {
            TypeParam surface({5, rows}, false, &PollWatch::Proc);
            const PollWatch watch;
            operation.run(surface);
            EXPECT_EQ(watch.Polls(), rows / 32) << rows << " rows";
        }
    });
}

TYPED_TEST(EveryOperation, HasDoneExactlyTheRowsBeforeThePollThatCancelsIt) {
    this->ForEach([this](const auto& operation) {
        for (const int poll : {1, 2, 3}) {
            TypeParam cancelled({9, 100}, false, &PollWatch::Proc);
            TypeParam completed({9, 32 * poll});
            SetAll(cancelled, this->kOld);
            SetAll(completed, this->kOld);
            {
                const CancelAtPoll cancel(poll);
                EXPECT_THROW(operation.run(cancelled), Cancelled);
            }
            EXPECT_EQ(cancelled.Clients(), 0U);
            operation.run(completed);
            const auto untouched = UniformPicture(9, 100 - 32 * poll, this->kOld.value);
            cancelled.Content({0, 32 * poll, 9, 100});
            EXPECT_TRUE(SamePixels(untouched, cancelled));
            cancelled.Content({0, 0, 9, 32 * poll});
            EXPECT_TRUE(SamePixels(completed, cancelled));
        }
    });
}

TYPED_TEST(EveryOperation, UnlocksTheStorageWhenItIsCancelled) {
    this->ForEach([this](const auto& operation) {
        StorageProbe probe;
        TypeParam surface = this->OnRecordingStorage(probe, {10, 40});
        const CancelAtPoll cancel(1);
        EXPECT_THROW(operation.run(surface), Cancelled);
        EXPECT_GT(probe.locks, 0);
        EXPECT_FALSE(probe.IsLocked());
        EXPECT_EQ(surface.Clients(), 0U);
    });
}

TEST(EraseOutside, AsksNothingOfASurfaceWithoutStorageWhenThereIsNothingToClear) {
    TnImage image(nullptr, {5, 3});
    EXPECT_NO_THROW(EraseOutside<TnImage>(image, {0, 0, 5, 3}));
}

TEST(ColorFill, ThrowsOnASurfaceWithoutStorageAlsoForAnEmptyRectangle) {
    TnImage image(nullptr, {5, 3});
    EXPECT_THROW(ColorFill(image, {}, kColor), std::bad_alloc);
}

} // namespace
} // namespace tn::test
