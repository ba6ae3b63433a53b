// Surfaces that cannot be locked, cannot be read or have nothing to read, and the locks that every operation leaves.

#include "tests/support/AllocationFailure.h"
#include "tests/support/AssertionRecorder.h"
#include "tests/support/CancelAtPoll.h"
#include "tests/support/RecordingStorage.h"
#include "tests/support/Surfaces.h"

#include "TnGraphics/ops/AlphaAnalysis.h"
#include "TnGraphics/ops/AlphaEditing.h"

#include <functional>
#include <gtest/gtest.h>
#include <limits>
#include <new>

namespace tn::test {
namespace {

template <class SurfaceType> struct NamedOperation {
    const char* name;
    void (*run)(SurfaceType& surface);
};

template <class SurfaceType> struct OperationsOn;

// Each of them reads every row of a transparent image, or of a matte of 0.
template <> struct OperationsOn<TnImage> {
    static constexpr NamedOperation<TnImage> kAll[] = {
        {"TestForAlpha", [](TnImage& image) { TestForAlpha(image); }},
        {"CalculateContentArea", [](TnImage& image) { CalculateContentArea(image); }},
        {"CalculateContentArea of a rectangle",
         [](TnImage& image) {
             CalculateContentArea(image, {-3, -3, 1000, 1000});
         }},
        {"GetRepresentativeBrightness", [](TnImage& image) { GetRepresentativeBrightness(image); }},
        {"InspectImage",
         [](TnImage& image) {
             bool hasColor = true;
             bool hasAlpha = true;
             InspectImage(image, image.Bounds(), hasColor, hasAlpha);
         }},
        {"TnIsEqual",
         [](TnImage& image) {
             TnIsEqual<TnImage>(image, image, {0, 0});
         }},
        {"BuildAlpha",
         [](TnImage& image) {
             BuildAlpha(image, {0, 1, 2, 3});
         }},
        {"SetAlphaRect", [](TnImage& image) { SetAlphaRect(image, image.Bounds()); }},
    };
};

template <> struct OperationsOn<TnMatte> {
    static constexpr NamedOperation<TnMatte> kAll[] = {
        {"CalculateContentArea", [](TnMatte& matte) { CalculateContentArea(matte, 0); }},
        {"CalculateContentArea of a rectangle",
         [](TnMatte& matte) {
             CalculateContentArea(matte, 0, {-3, -3, 1000, 1000});
         }},
        {"TnIsEqual",
         [](TnMatte& matte) {
             TnIsEqual<TnMatte>(matte, matte, {0, 0});
         }},
        {"InvertAlpha", [](TnMatte& matte) { InvertAlpha<TnMatte>(matte); }},
    };
};

template <class SurfaceType> class EveryAlphaOperation : public ::testing::Test {
protected:
    using Operation = NamedOperation<SurfaceType>;

    static constexpr TnPoint kSize = {10, 40};

    static void ForEach(const std::function<void(const Operation&)>& body) {
        for (const Operation& operation : OperationsOn<SurfaceType>::kAll) {
            SCOPED_TRACE(operation.name);
            body(operation);
        }
    }

    static SurfaceType OnRecordingStorage(StorageProbe& probe) {
        return SurfaceType(new RecordingStorage(probe, 40, static_cast<std::uint32_t>(kSize.y)), kSize,
                           &PollWatch::Proc);
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
};

using SurfaceTypes = ::testing::Types<TnImage, TnMatte>;
TYPED_TEST_SUITE(EveryAlphaOperation, SurfaceTypes);

TYPED_TEST(EveryAlphaOperation, ThrowsBadAllocationOnASurfaceWithoutStorage) {
    this->ForEach([this](const auto& operation) {
        TypeParam surface(nullptr, this->kSize);
        this->ExpectNoStorage(operation, surface);
    });
}

TYPED_TEST(EveryAlphaOperation, ThrowsBadAllocationOnASurfaceThatGotNoMemory) {
    this->ForEach([this](const auto& operation) {
        TypeParam surface(this->kSize);
        EXPECT_THROW(surface.ReInit({5, std::numeric_limits<int>::max()}), std::bad_alloc);
        this->ExpectNoStorage(operation, surface);
    });
}

TYPED_TEST(EveryAlphaOperation, DoesNothingAndNeverPollsOnASurfaceWithoutColumnsOrRows) {
    this->ForEach([](const auto& operation) {
        for (const TnPoint size : {TnPoint{0, 0}, TnPoint{0, 100}, TnPoint{100, 0}}) {
            TypeParam surface(size, false, &PollWatch::Proc);
            const PollWatch watch;
            EXPECT_NO_THROW(operation.run(surface));
            EXPECT_EQ(watch.Polls(), 0);
            EXPECT_EQ(surface.Clients(), 0U);
        }
    });
}

TYPED_TEST(EveryAlphaOperation, TakesASurfaceOfOnePixel) {
    this->ForEach([](const auto& operation) {
        TypeParam surface({1, 1}, true, &PollWatch::Proc);
        const PollWatch watch;
        EXPECT_NO_THROW(operation.run(surface));
        EXPECT_EQ(watch.Polls(), 0);
        EXPECT_EQ(surface.Clients(), 0U);
    });
}

TYPED_TEST(EveryAlphaOperation, TakesAnEmptyContent) {
    this->ForEach([this](const auto& operation) {
        TypeParam surface(this->kSize, true);
        for (const TnRect content : {TnRect{99, 99, 1, 1}, {3, 3, 0, 4}, {3, 3, 4, 0}}) {
            surface.Content(content);
            EXPECT_NO_THROW(operation.run(surface));
            EXPECT_EQ(surface.Clients(), 0U);
        }
    });
}

TYPED_TEST(EveryAlphaOperation, AllocatesNothing) {
    this->ForEach([this](const auto& operation) {
        TypeParam surface(this->kSize, true);
        const FailAllocation fail(1);
        EXPECT_NO_THROW(operation.run(surface));
        EXPECT_FALSE(fail.HasFailed());
    });
}

TYPED_TEST(EveryAlphaOperation, UnlocksTheStorageAsOftenAsItLocksIt) {
    this->ForEach([this](const auto& operation) {
        StorageProbe probe;
        TypeParam surface = this->OnRecordingStorage(probe);
        operation.run(surface);
        EXPECT_GT(probe.locks, 0);
        EXPECT_FALSE(probe.IsLocked());
        EXPECT_EQ(probe.refreshes, 0);
    });
}

TYPED_TEST(EveryAlphaOperation, LeavesTheLocksOfItsCallerAlone) {
    this->ForEach([this](const auto& operation) {
        TypeParam surface(this->kSize, true);
        surface.AddClient();
        const void* const base = surface.PixelBase();
        operation.run(surface);
        EXPECT_EQ(surface.Clients(), 1U);
        EXPECT_EQ(surface.PixelBase(), base);
        surface.RemoveClient();
    });
}

TYPED_TEST(EveryAlphaOperation, PassesOnWhatTheStorageThrows) {
    this->ForEach([this](const auto& operation) {
        for (const bool atLock : {true, false}) {
            StorageProbe probe;
            probe.throwAtLock = atLock;
            probe.throwAtBaseAddr = !atLock;
            TypeParam surface = this->OnRecordingStorage(probe);
            EXPECT_THROW(operation.run(surface), StorageFault);
            EXPECT_EQ(surface.Clients(), 0U);
            EXPECT_FALSE(probe.IsLocked());
        }
    });
}

TYPED_TEST(EveryAlphaOperation, UnlocksTheStorageWhenItIsCancelled) {
    this->ForEach([this](const auto& operation) {
        StorageProbe probe;
        TypeParam surface = this->OnRecordingStorage(probe);
        const CancelAtPoll cancel(1);
        EXPECT_THROW(operation.run(surface), Cancelled);
        EXPECT_GT(probe.locks, 0);
        EXPECT_FALSE(probe.IsLocked());
        EXPECT_EQ(surface.Clients(), 0U);
    });
}

// Walks that would leave the block are empty.
TYPED_TEST(EveryAlphaOperation, DoesNotLeaveTheBlockOfASurfaceThatGotANewSizeOrContentWhileLocked) {
    const AssertionRecorder recorder;
    this->ForEach([this](const auto& operation) {
        TypeParam resized(this->kSize, true);
        resized.AddClient();
        resized.ReInit({70, 70}, true);
        EXPECT_NO_THROW(operation.run(resized));
        EXPECT_EQ(resized.Clients(), 1U);
        resized.RemoveClient();

        TypeParam moved(this->kSize, true);
        moved.Content({9, 38, 1, 2});
        moved.AddClient();
        moved.Content({0, 0, this->kSize.x, this->kSize.y});
        EXPECT_NO_THROW(operation.run(moved));
        EXPECT_EQ(moved.Clients(), 1U);
        moved.RemoveClient();
    });
}

} // namespace
} // namespace tn::test
