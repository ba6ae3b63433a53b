#include "TnGraphics/port/Storage.h"

#include "tests/support/AllocationFailure.h"
#include "tests/support/RecordingStorage.h"

#include "TnGraphics/port/Exceptions.h"
#include "TnGraphics/port/WinBitMapHelper.h"

#include <gtest/gtest.h>
#include <typeinfo>

namespace tn::test {
namespace {

constexpr std::uint32_t kMatteDepth = 8;
constexpr int kAllocations = 2; // the object and its block

TEST(MakeStorage, MakesTheLibrarysOwnKind) {
    const auto storage = MakeStorage({3, 2}, kMatteDepth, true);
    const auto* own = dynamic_cast<const WinBitMapHelper*>(storage.get());
    ASSERT_NE(own, nullptr);
    EXPECT_EQ(own->Size(), (TnPoint{3, 2}));
    EXPECT_EQ(own->Depth(), kMatteDepth);
}

TEST(MakeStorage, AllocatesTheObjectAndItsBlock) {
    const std::int64_t before = LiveAllocations();
    const auto storage = MakeStorage({3, 2}, kMatteDepth, true);
    EXPECT_EQ(LiveAllocations(), before + kAllocations);
}

TEST(MakeStorage, ReportsEveryExhaustionAsItsOwnKindAndLeavesNothing) {
    const std::int64_t before = LiveAllocations();
    for (int nth = 1; nth <= kAllocations; ++nth) {
        const FailAllocation failure(nth);
        EXPECT_THROW(MakeStorage({3, 2}, kMatteDepth, true), bad_alloc_bitmap);
        EXPECT_TRUE(failure.HasFailed());
        EXPECT_EQ(LiveAllocations(), before);
    }
}

TEST(MakeStorage, LetsOtherExceptionsPass) {
    for (int nth = 1; nth <= kAllocations; ++nth) {
        const FailAllocation failure(nth, AllocationFault::kOther);
        EXPECT_THROW(MakeStorage({3, 2}, kMatteDepth, true), OtherAllocationFault);
    }
}

TEST(CopyStorage, GivesNoneForNone) { EXPECT_EQ(CopyStorage(nullptr), nullptr); }

TEST(CopyStorage, RefusesStorageOfACallersOwnKind) {
    StorageProbe probe;
    const RecordingStorage storage(probe, 8, 1);
    EXPECT_THROW(CopyStorage(&storage), std::bad_cast);
}

TEST(CopyStorage, ReportsEveryExhaustionAsItsOwnKindAndLeavesNothing) {
    const auto source = MakeStorage({3, 2}, kMatteDepth, true);
    const std::int64_t before = LiveAllocations();
    for (int nth = 1; nth <= kAllocations; ++nth) {
        const FailAllocation failure(nth);
        EXPECT_THROW(CopyStorage(source.get()), bad_alloc_bitmap);
        EXPECT_TRUE(failure.HasFailed());
        EXPECT_EQ(LiveAllocations(), before);
    }
}

TEST(CopyStorage, LetsOtherExceptionsPass) {
    const auto source = MakeStorage({3, 2}, kMatteDepth, true);
    for (int nth = 1; nth <= kAllocations; ++nth) {
        const FailAllocation failure(nth, AllocationFault::kOther);
        EXPECT_THROW(CopyStorage(source.get()), OtherAllocationFault);
    }
}

TEST(RowBytesOf, IsZeroForNone) {
    EXPECT_EQ(RowBytesOf(nullptr), 0U);
    EXPECT_EQ(RowBytesOf(MakeStorage({3, 2}, kMatteDepth, true).get()), 11U);
}

} // namespace
} // namespace tn::test
