#include "TnGraphics/port/TnMask.h"

#include "tests/port/SurfaceKinds.h"
#include "tests/support/AllocationFailure.h"
#include "tests/support/AssertionRecorder.h"

#include "TnGraphics/port/Assertion.h"
#include "TnGraphics/port/Exceptions.h"
#include "TnGraphics/port/WinBitMapHelper.h"

#include <limits>

namespace tn::test {
namespace {

constexpr int kAllocations = 2; // the storage and its block

void ExpectCannotBeLockedAsMask(const TnMask& mask) {
    EXPECT_EQ(mask.Storage(), nullptr);
    EXPECT_THROW(mask.AddClient(), std::bad_alloc);
    EXPECT_EQ(mask.Clients(), 0U);
    EXPECT_EQ(mask.PixelAddress(), nullptr);
}

TEST(TnMask, HasRowsOfWholeBytesAndEightSpareOnes) {
    const TnMask mask({9, 1});
    const auto* storage = dynamic_cast<const WinBitMapHelper*>(mask.Storage());
    ASSERT_NE(storage, nullptr);
    EXPECT_EQ(storage->Depth(), 1U);
    EXPECT_EQ(storage->Size(), (TnPoint{9, 1}));
    EXPECT_EQ(mask.Size(), (TnPoint{9, 1}));
    EXPECT_EQ(mask.RowBytes(), 10U);
    EXPECT_EQ(storage->ByteSize(), 10U);
}

TEST(TnMask, HasStorageEvenWithoutSize) {
    const TnMask mask({0, 0});
    ASSERT_NE(mask.Storage(), nullptr);
    EXPECT_EQ(mask.RowBytes(), 8U);
    EXPECT_EQ(mask.Storage()->ByteSize(), 0U);
    mask.AddClient();
    EXPECT_EQ(mask.PixelAddress(), mask.Storage()->BaseAddr());
    mask.RemoveClient();
}

TEST(TnMask, IsUnlockedWhenMade) {
    const TnMask mask({9, 4}, false);
    EXPECT_EQ(mask.Clients(), 0U);
    EXPECT_EQ(mask.PixelAddress(), nullptr);
}

TEST(TnMask, ClearSetsEveryPixelToZero) {
    { Paint(*TnMask({9, 4}).Storage()); } // most likely the next block of this size
    const TnMask mask({9, 4}, true);
    EXPECT_EQ(BytesOf(*mask.Storage()), std::vector<std::uint8_t>(40, 0));
}

TEST(TnMask, ImpossibleSizesAreExhaustedMemory) {
    constexpr std::int32_t largest = std::numeric_limits<std::int32_t>::max();
    for (const TnPoint size : {TnPoint{-1, 1}, {1, -1}, {-8, -8}, {largest, largest}}) {
        EXPECT_THROW(TnMask mask(size), bad_alloc_bitmap) << size.x << " x " << size.y;
        EXPECT_THROW(TnMask mask(size, true), bad_alloc_bitmap) << size.x << " x " << size.y;
    }
}

TEST(TnMask, FirstLockFixesThePixelAddressAndTheLastForgetsIt) {
    const TnMask mask({9, 4});
    mask.AddClient();
    mask.AddClient();
    EXPECT_EQ(mask.Clients(), 2U);
    EXPECT_EQ(mask.PixelAddress(), mask.Storage()->BaseAddr());
    mask.RemoveClient();
    EXPECT_EQ(mask.PixelAddress(), mask.Storage()->BaseAddr());
    mask.RemoveClient();
    EXPECT_EQ(mask.Clients(), 0U);
    EXPECT_EQ(mask.PixelAddress(), nullptr);
}

TEST(TnMask, CopyIsDeepAndUnlocked) {
    const TnMask source({9, 4});
    Paint(*source.Storage());
    source.AddClient();
    const TnMask copy(source);
    source.RemoveClient();
    EXPECT_EQ(copy.Clients(), 0U);
    EXPECT_EQ(copy.PixelAddress(), nullptr);
    EXPECT_EQ(copy.Size(), (TnPoint{9, 4}));
    EXPECT_EQ(copy.RowBytes(), 10U);
    EXPECT_NE(copy.Storage()->BaseAddr(), source.Storage()->BaseAddr());
    EXPECT_EQ(BytesOf(*copy.Storage()), BytesOf(*source.Storage()));
}

TEST(TnMask, AssignmentIsDeepAndKeepsTheClients) {
    const TnMask source({9, 4});
    Paint(*source.Storage());
    TnMask target({3, 3});
    target.AddClient();
    target = source;
    EXPECT_EQ(target.Clients(), 1U);
    EXPECT_EQ(target.PixelAddress(), nullptr);
    target.RemoveClient();
    EXPECT_EQ(target.Size(), (TnPoint{9, 4}));
    EXPECT_EQ(target.RowBytes(), 10U);
    EXPECT_EQ(BytesOf(*target.Storage()), BytesOf(*source.Storage()));
}

TEST(TnMask, AssignmentToItselfDoesNothing) {
    TnMask mask({9, 4}, true);
    mask.AddClient();
    const void* storage = mask.Storage();
    const TnMask& same = mask;
    mask = same;
    EXPECT_EQ(mask.Storage(), storage);
    EXPECT_NE(mask.PixelAddress(), nullptr);
    mask.RemoveClient();
}

TEST(TnMask, IsNotMadeOrCopiedWhenMemoryIsExhausted) {
    const TnMask source({9, 4}, true);
    const std::int64_t before = LiveAllocations();
    for (int nth = 1; nth <= kAllocations; ++nth) {
        {
            const FailAllocation failure(nth);
            EXPECT_THROW(TnMask mask({9, 4}), bad_alloc_bitmap);
        }
        const FailAllocation failure(nth);
        EXPECT_THROW(TnMask copy(source), bad_alloc_bitmap);
    }
    EXPECT_EQ(LiveAllocations(), before);
}

TEST(TnMask, FailedAssignmentLeavesTheNewSizeAndNoStorage) {
    const TnMask source({9, 4}, true);
    for (int nth = 1; nth <= kAllocations; ++nth) {
        TnMask target({3, 3});
        {
            const FailAllocation failure(nth);
            EXPECT_THROW(target = source, bad_alloc_bitmap);
        }
        EXPECT_EQ(target.Size(), (TnPoint{9, 4}));
        EXPECT_EQ(target.RowBytes(), 0U);
        ExpectCannotBeLockedAsMask(target);
        target = source;
        EXPECT_EQ(target.RowBytes(), 10U);
    }
}

TEST(TnMask, FailedAssignmentWhileLockedUnlocksNothing) {
    const TnMask source({9, 4}, true);
    TnMask target({3, 3});
    target.AddClient();
    {
        const FailAllocation failure(1);
        EXPECT_THROW(target = source, bad_alloc_bitmap);
    }
    target.RemoveClient();
    ExpectCannotBeLockedAsMask(target);
    ExpectCannotBeLockedAsMask(TnMask(target));
}

TEST(TnMask, UnbalancedUnlockWrapsTheCount) {
    const AssertionRecorder recorder;
    const TnMask mask({9, 4});
    mask.RemoveClient();
    EXPECT_EQ(mask.Clients(), std::numeric_limits<std::uint32_t>::max());
    EXPECT_EQ(recorder.Reports().size(), kDebugBuild ? 1U : 0U);
}

} // namespace
} // namespace tn::test
