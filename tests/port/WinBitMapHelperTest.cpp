#include "TnGraphics/port/WinBitMapHelper.h"

#include "tests/support/AllocationFailure.h"

#include "TnGraphics/port/Exceptions.h"

#include <algorithm>
#include <cstring>
#include <gtest/gtest.h>
#include <limits>
#include <memory>
#include <vector>

namespace tn::test {
namespace {

constexpr std::uint32_t kImageDepth = 32;
constexpr std::uint32_t kMatteDepth = 8;
constexpr std::uint32_t kMaskDepth = 1;
constexpr std::int32_t kLargest = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t kSmallest = std::numeric_limits<std::int32_t>::min();

std::uint8_t* BlockOf(const WinBitMapHelper& storage) { return static_cast<std::uint8_t*>(storage.BaseAddr()); }

std::vector<std::uint8_t> BytesOf(const WinBitMapHelper& storage) {
    return {BlockOf(storage), BlockOf(storage) + storage.ByteSize()};
}

void Fill(const WinBitMapHelper& storage, std::uint8_t value) {
    std::memset(BlockOf(storage), value, storage.ByteSize());
}

// Leaves free blocks full of the value behind, one of which the next block of this size most likely is.
void DirtyHeap(const TnPoint& size, std::uint8_t value) {
    std::vector<std::unique_ptr<WinBitMapHelper>> storages;
    for (int i = 0; i < 100; ++i) {
        storages.push_back(std::make_unique<WinBitMapHelper>(size, kMatteDepth, false));
        Fill(*storages.back(), value);
    }
}

bool HeapGivesCleanBlocks(const TnPoint& size) {
    DirtyHeap(size, 0xA5);
    return BytesOf(WinBitMapHelper(size, kMatteDepth, false)).back() == 0;
}

TEST(WinBitMapHelper, HasRowsOfWholeBytesAndEightSpareOnes) {
    EXPECT_EQ(WinBitMapHelper({3, 2}, kImageDepth, false).RowBytes(), 20U);
    EXPECT_EQ(WinBitMapHelper({3, 2}, kMatteDepth, false).RowBytes(), 11U);
    EXPECT_EQ(WinBitMapHelper({9, 1}, kMaskDepth, false).RowBytes(), 10U);
    EXPECT_EQ(WinBitMapHelper({8, 1}, kMaskDepth, false).RowBytes(), 9U);
    EXPECT_EQ(WinBitMapHelper({0, 1}, kMaskDepth, false).RowBytes(), 8U);
}

TEST(WinBitMapHelper, HasRowsOneAfterAnother) {
    EXPECT_EQ(WinBitMapHelper({3, 2}, kImageDepth, false).ByteSize(), 40U);
    EXPECT_EQ(WinBitMapHelper({3, 2}, kMatteDepth, false).ByteSize(), 22U);
    EXPECT_EQ(WinBitMapHelper({9, 1}, kMaskDepth, false).ByteSize(), 10U);
}

TEST(WinBitMapHelper, WithoutWidthHasTheSpareBytesAlone) {
    const WinBitMapHelper storage({0, 5}, kImageDepth, true);
    EXPECT_EQ(storage.RowBytes(), 8U);
    EXPECT_EQ(storage.ByteSize(), 40U);
    EXPECT_EQ(BytesOf(storage), std::vector<std::uint8_t>(40, 0));
}

TEST(WinBitMapHelper, WithoutHeightHasAnAddressAllTheSame) {
    const WinBitMapHelper storage({5, 0}, kImageDepth, true);
    EXPECT_EQ(storage.RowBytes(), 28U);
    EXPECT_EQ(storage.ByteSize(), 0U);
    EXPECT_NE(storage.BaseAddr(), nullptr);
}

TEST(WinBitMapHelper, SaysWhatItWasMadeFor) {
    const WinBitMapHelper storage({9, 4}, kMaskDepth, false);
    EXPECT_EQ(storage.Depth(), kMaskDepth);
    EXPECT_EQ(storage.Size(), (TnPoint{9, 4}));
    EXPECT_EQ(storage.ImageBytes(), storage.ByteSize());
    EXPECT_EQ(storage.contentOrigin, TnPoint{});
}

TEST(WinBitMapHelper, ClearsEveryPixelAndSpareByte) {
    constexpr TnPoint size = {3, 4};
    DirtyHeap(size, 0xA5);
    const WinBitMapHelper storage(size, kMatteDepth, true);
    EXPECT_EQ(BytesOf(storage), std::vector<std::uint8_t>(44, 0));
}

TEST(WinBitMapHelper, ClearsWholeWordsAndLeavesTheRemainder) {
    constexpr TnPoint size = {3, 5}; // 5 rows of 11 bytes: 13 words and 3 bytes
    if (HeapGivesCleanBlocks(size)) {
        GTEST_SKIP() << "on this system uncleared bytes are 0 as well";
    }
    DirtyHeap(size, 0xA5);
    const WinBitMapHelper storage(size, kMatteDepth, true);
    std::vector<std::uint8_t> bytes = BytesOf(storage);
    EXPECT_TRUE(std::any_of(bytes.begin() + 52, bytes.end(), [](std::uint8_t byte) { return byte != 0; }));
    bytes.resize(52);
    EXPECT_EQ(bytes, std::vector<std::uint8_t>(52, 0));
}

TEST(WinBitMapHelper, ContainsItsBlockAndTheAddressOnePastIt) {
    const WinBitMapHelper storage({3, 2}, kMatteDepth, false);
    const std::uint8_t* block = BlockOf(storage);
    EXPECT_TRUE(storage.Contains(block));
    EXPECT_TRUE(storage.Contains(block + 21));
    EXPECT_TRUE(storage.Contains(block + 22));
    EXPECT_FALSE(storage.Contains(nullptr));

    const auto address = reinterpret_cast<std::uintptr_t>(block);
    EXPECT_FALSE(storage.Contains(reinterpret_cast<const void*>(address - 1)));
    EXPECT_FALSE(storage.Contains(reinterpret_cast<const void*>(address + 23)));
}

TEST(WinBitMapHelper, CopyHasABlockOfItsOwn) {
    const WinBitMapHelper storage({3, 4}, kMatteDepth, false);
    Fill(storage, 0x5A);
    const WinBitMapHelper copy(storage);
    Fill(storage, 0);
    EXPECT_NE(copy.BaseAddr(), storage.BaseAddr());
    EXPECT_EQ(BytesOf(copy), std::vector<std::uint8_t>(44, 0x5A));
}

TEST(WinBitMapHelper, CopySaysTheSameOfItself) {
    const WinBitMapHelper storage({9, 4}, kMaskDepth, true);
    const WinBitMapHelper copy(storage);
    EXPECT_EQ(copy.Depth(), storage.Depth());
    EXPECT_EQ(copy.Size(), storage.Size());
    EXPECT_EQ(copy.RowBytes(), storage.RowBytes());
    EXPECT_EQ(copy.ByteSize(), storage.ByteSize());
}

TEST(WinBitMapHelper, CopyStartsWithItsContentOriginAtZero) {
    WinBitMapHelper storage({3, 4}, kMatteDepth, true);
    storage.contentOrigin = {1, 2};
    EXPECT_EQ(WinBitMapHelper(storage).contentOrigin, TnPoint{});
}

TEST(WinBitMapHelper, CopiesWholeWordsAndLeavesTheRemainder) {
    constexpr TnPoint size = {3, 5};
    const WinBitMapHelper storage(size, kMatteDepth, false);
    Fill(storage, 0x5A);
    DirtyHeap(size, 0xA5);
    const WinBitMapHelper copy(storage);
    std::vector<std::uint8_t> bytes = BytesOf(copy);
    EXPECT_NE((std::vector<std::uint8_t>(bytes.begin() + 52, bytes.end())), std::vector<std::uint8_t>(3, 0x5A));
    bytes.resize(52);
    EXPECT_EQ(bytes, std::vector<std::uint8_t>(52, 0x5A));
}

TEST(WinBitMapHelper, DoesNothingWhenLockedUnlockedAndRefreshed) {
    WinBitMapHelper storage({3, 4}, kMatteDepth, true);
    const void* block = storage.BaseAddr();
    storage.Lock();
    storage.Refresh();
    storage.Unlock();
    EXPECT_EQ(storage.BaseAddr(), block);
    EXPECT_EQ(BytesOf(storage), std::vector<std::uint8_t>(44, 0));
}

TEST(WinBitMapHelper, TakesNegativeSizesForExhaustedMemory) {
    for (const TnPoint size : {TnPoint{-1, 1}, {1, -1}, {-4, -4}, {0, -1}, {kSmallest, 0}, {kSmallest, kSmallest}}) {
        EXPECT_THROW(WinBitMapHelper(size, kImageDepth, false), bad_alloc_bitmap) << size.x << " x " << size.y;
    }
}

TEST(WinBitMapHelper, TakesRowBytesPast32BitsForExhaustedMemory) {
    EXPECT_EQ(WinBitMapHelper({1073741821, 0}, kImageDepth, false).RowBytes(), 4294967292U);
    EXPECT_THROW(WinBitMapHelper({1073741822, 0}, kImageDepth, false), bad_alloc_bitmap);
    EXPECT_THROW(WinBitMapHelper({kLargest, 1}, kImageDepth, false), bad_alloc_bitmap);
    EXPECT_EQ(WinBitMapHelper({kLargest, 0}, kMatteDepth, false).RowBytes(), 2147483655U);
}

TEST(WinBitMapHelper, TakesAByteSizePast32BitsForExhaustedMemory) {
    EXPECT_THROW(WinBitMapHelper({0, 536870912}, kImageDepth, false), bad_alloc_bitmap);
    EXPECT_THROW(WinBitMapHelper({65528, 65536}, kMatteDepth, false), bad_alloc_bitmap);
    EXPECT_THROW(WinBitMapHelper({kLargest, kLargest}, kMaskDepth, false), bad_alloc_bitmap);
}

TEST(WinBitMapHelper, SaysBadAllocationOnEveryPlatform) {
    try {
        const WinBitMapHelper storage({-1, 1}, kImageDepth, false);
        FAIL();
    } catch (const std::bad_alloc& exception) {
        EXPECT_STREQ(exception.what(), "bad allocation");
    }
}

TEST(WinBitMapHelper, ReportsExhaustedMemoryAsItsOwnKind) {
    const WinBitMapHelper source({3, 4}, kMatteDepth, true);
    const std::int64_t before = LiveAllocations();
    {
        const FailAllocation failure(1);
        EXPECT_THROW(WinBitMapHelper({3, 4}, kMatteDepth, true), bad_alloc_bitmap);
    }
    {
        const FailAllocation failure(1);
        EXPECT_THROW(WinBitMapHelper{source}, bad_alloc_bitmap);
    }
    EXPECT_EQ(LiveAllocations(), before);
}

TEST(WinBitMapHelper, LetsOtherExceptionsOfTheHeapPass) {
    const FailAllocation failure(1, AllocationFault::kOther);
    EXPECT_THROW(WinBitMapHelper({3, 4}, kMatteDepth, true), OtherAllocationFault);
}

} // namespace
} // namespace tn::test
