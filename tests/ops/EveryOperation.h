// What all operations on one surface do about locks, storage, memory and cancelling.
#pragma once

#include "tests/support/AllocationFailure.h"
#include "tests/support/CancelAtPoll.h"
#include "tests/support/RecordingStorage.h"

#include "TnGraphics/port/Exceptions.h"
#include "TnGraphics/port/TnImage.h"
#include "TnGraphics/port/TnMatte.h"

#include <cstdint>
#include <functional>
#include <gtest/gtest.h>
#include <limits>
#include <new>

namespace tn::test {

template <class SurfaceType> struct NamedOperation {
    const char* name;
    void (*run)(SurfaceType& surface);
};

/// The tests of a list of operations, each of which goes through all rows of a surface of zeros. A list says on what
/// kind of Surface it works, and which operations kAll are.
template <class List> class EveryOperation : public ::testing::Test {
protected:
    using Surface = typename List::Surface;
    using Operation = NamedOperation<Surface>;

    static constexpr TnPoint kSize = {10, 40};

    static void ForEach(const std::function<void(const Operation&)>& body) {
        for (const Operation& operation : List::kAll) {
            SCOPED_TRACE(operation.name);
            body(operation);
        }
    }

    static Surface OnRecordingStorage(StorageProbe& probe) {
        return Surface(new RecordingStorage(probe, 40, static_cast<std::uint32_t>(kSize.y)), kSize, &PollWatch::Proc);
    }

    static void ExpectNoStorage(const Operation& operation, Surface& surface) {
        try {
            operation.run(surface);
            ADD_FAILURE() << "nothing was thrown";
        } catch (const std::bad_alloc& exception) {
            EXPECT_STREQ(exception.what(), "bad allocation");
        }
        EXPECT_EQ(surface.Clients(), 0U);
    }
};

TYPED_TEST_SUITE_P(EveryOperation);

TYPED_TEST_P(EveryOperation, ThrowsBadAllocationOnASurfaceWithoutStorage) {
    this->ForEach([this](const auto& operation) {
        typename TypeParam::Surface surface(nullptr, this->kSize);
        this->ExpectNoStorage(operation, surface);
    });
}

TYPED_TEST_P(EveryOperation, ThrowsBadAllocationOnASurfaceThatGotNoMemory) {
    this->ForEach([this](const auto& operation) {
        typename TypeParam::Surface surface(this->kSize);
        EXPECT_THROW(surface.ReInit({5, std::numeric_limits<int>::max()}), bad_alloc_bitmap);
        this->ExpectNoStorage(operation, surface);
    });
}

TYPED_TEST_P(EveryOperation, DoesNothingAndNeverPollsOnASurfaceWithoutColumnsOrRows) {
    this->ForEach([](const auto& operation) {
        for (const TnPoint size : {TnPoint{0, 0}, TnPoint{0, 100}, TnPoint{100, 0}}) {
            typename TypeParam::Surface surface(size, false, &PollWatch::Proc);
            const PollWatch watch;
            EXPECT_NO_THROW(operation.run(surface));
            EXPECT_EQ(watch.Polls(), 0);
            EXPECT_EQ(surface.Clients(), 0U);
        }
    });
}

TYPED_TEST_P(EveryOperation, TakesASurfaceOfOnePixel) {
    this->ForEach([](const auto& operation) {
        typename TypeParam::Surface surface({1, 1}, true, &PollWatch::Proc);
        const PollWatch watch;
        EXPECT_NO_THROW(operation.run(surface));
        EXPECT_EQ(watch.Polls(), 0);
        EXPECT_EQ(surface.Clients(), 0U);
    });
}

TYPED_TEST_P(EveryOperation, TakesAnEmptyContent) {
    this->ForEach([this](const auto& operation) {
        typename TypeParam::Surface surface(this->kSize, true);
        for (const TnRect content : {TnRect{99, 99, 1, 1}, {3, 3, 0, 4}, {3, 3, 4, 0}}) {
            surface.Content(content);
            EXPECT_NO_THROW(operation.run(surface));
            EXPECT_EQ(surface.Clients(), 0U);
        }
    });
}

TYPED_TEST_P(EveryOperation, AllocatesNothing) {
    this->ForEach([this](const auto& operation) {
        typename TypeParam::Surface surface(this->kSize, true);
        const FailAllocation fail(1);
        EXPECT_NO_THROW(operation.run(surface));
        EXPECT_FALSE(fail.HasFailed());
    });
}

TYPED_TEST_P(EveryOperation, UnlocksTheStorageAsOftenAsItLocksIt) {
    this->ForEach([this](const auto& operation) {
        StorageProbe probe;
        auto surface = this->OnRecordingStorage(probe);
        operation.run(surface);
        EXPECT_GT(probe.locks, 0);
        EXPECT_FALSE(probe.IsLocked());
        EXPECT_EQ(probe.refreshes, 0);
    });
}

TYPED_TEST_P(EveryOperation, LeavesTheLocksOfItsCallerAlone) {
    this->ForEach([this](const auto& operation) {
        typename TypeParam::Surface surface(this->kSize, true);
        surface.AddClient();
        const void* const base = surface.PixelBase();
        operation.run(surface);
        EXPECT_EQ(surface.Clients(), 1U);
        EXPECT_EQ(surface.PixelBase(), base);
        surface.RemoveClient();
    });
}

TYPED_TEST_P(EveryOperation, PassesOnWhatTheStorageThrows) {
    this->ForEach([this](const auto& operation) {
        for (const bool atLock : {true, false}) {
            StorageProbe probe;
            probe.throwAtLock = atLock;
            probe.throwAtBaseAddr = !atLock;
            auto surface = this->OnRecordingStorage(probe);
            EXPECT_THROW(operation.run(surface), StorageFault);
            EXPECT_EQ(surface.Clients(), 0U);
            EXPECT_FALSE(probe.IsLocked());
        }
    });
}

TYPED_TEST_P(EveryOperation, UnlocksTheStorageWhenItIsCancelled) {
    this->ForEach([this](const auto& operation) {
        StorageProbe probe;
        auto surface = this->OnRecordingStorage(probe);
        const CancelAtPoll cancel(1);
        EXPECT_THROW(operation.run(surface), Cancelled);
        EXPECT_GT(probe.locks, 0);
        EXPECT_FALSE(probe.IsLocked());
        EXPECT_EQ(surface.Clients(), 0U);
    });
}

REGISTER_TYPED_TEST_SUITE_P(EveryOperation, ThrowsBadAllocationOnASurfaceWithoutStorage,
                            ThrowsBadAllocationOnASurfaceThatGotNoMemory,
                            DoesNothingAndNeverPollsOnASurfaceWithoutColumnsOrRows, TakesASurfaceOfOnePixel,
                            TakesAnEmptyContent, AllocatesNothing, UnlocksTheStorageAsOftenAsItLocksIt,
                            LeavesTheLocksOfItsCallerAlone, PassesOnWhatTheStorageThrows,
                            UnlocksTheStorageWhenItIsCancelled);

} // namespace tn::test
