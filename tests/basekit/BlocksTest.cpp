#include "tests/support/AllocationFailure.h"

#include "TnEngines/abi/basekit.h"
#include "TnEngines/basekit/SmallBlocks.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <gtest/gtest.h>
#include <vector>

namespace tn::test {
namespace {

struct SizedBlock {
    void* block;
    std::size_t bytes;
    int mark;
};

// Blocks that are all taken at once, each filled with a mark of its own.
class TakenBlocks {
public:
    TakenBlocks() = default;
    ~TakenBlocks() {
        for (const SizedBlock& taken : blocks_) {
            BasekitFreeBlock(taken.block, taken.bytes);
        }
    }
    TakenBlocks(const TakenBlocks&) = delete;
    TakenBlocks& operator=(const TakenBlocks&) = delete;

    void Take(std::size_t bytes) {
        void* const block = BasekitAllocateBlock(bytes);
        ASSERT_NE(block, nullptr);
        const int mark = static_cast<int>(blocks_.size() % 251);
        std::memset(block, mark, bytes);
        blocks_.push_back({block, bytes, mark});
    }

    // Whether no block's bytes were overwritten through another.
    bool AreIntact() const { return std::all_of(blocks_.begin(), blocks_.end(), &IsIntact); }

    const std::vector<SizedBlock>& All() const { return blocks_; }

private:
    static bool IsIntact(const SizedBlock& taken) {
        const auto* const bytes = static_cast<const unsigned char*>(taken.block);
        return std::all_of(bytes, bytes + taken.bytes, [&](unsigned char byte) { return byte == taken.mark; });
    }

    std::vector<SizedBlock> blocks_;
};

std::int64_t HeapBlocksFor(std::size_t bytes) {
    const std::int64_t before = LiveAllocations();
    void* const block = BasekitAllocateBlock(bytes);
    const std::int64_t taken = LiveAllocations() - before;
    BasekitFreeBlock(block, bytes);
    EXPECT_EQ(LiveAllocations(), before);
    return taken;
}

TEST(BasekitBlocks, OfAllSizesLieApart) {
    TakenBlocks taken;
    for (std::size_t bytes = 0; bytes <= 300; ++bytes) {
        taken.Take(bytes);
    }
    EXPECT_TRUE(taken.AreIntact());
}

TEST(BasekitBlocks, OfOneSizeLieApartBeyondTheSupplyToo) {
    for (const std::size_t bytes : {1U, 16U, 17U, 255U, 256U}) {
        TakenBlocks taken;
        for (std::size_t i = 0; i < 2 * basekit::kSmallBlocksOfEachSize; ++i) {
            taken.Take(bytes);
        }
        EXPECT_TRUE(taken.AreIntact()) << bytes;
    }
}

TEST(BasekitBlocks, AreAlignedForEveryType) {
    TakenBlocks taken;
    for (std::size_t bytes = 0; bytes <= 300; ++bytes) {
        taken.Take(bytes);
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(taken.All().back().block) % alignof(std::max_align_t), 0U) << bytes;
    }
}

TEST(BasekitBlocks, ThatAreSmallNeedNoHeap) {
    for (std::size_t bytes = 0; bytes <= basekit::kLargestSmallBlock; ++bytes) {
        EXPECT_EQ(HeapBlocksFor(bytes), 0) << bytes;
    }
}

TEST(BasekitBlocks, ThatAreLargerAreFromTheHeap) {
    EXPECT_EQ(HeapBlocksFor(basekit::kLargestSmallBlock + 1), 1);
    EXPECT_EQ(HeapBlocksFor(10000), 1);
}

TEST(BasekitBlocks, AreFromTheHeapWhenTheSupplyIsTaken) {
    constexpr std::size_t kBytes = 48;
    {
        TakenBlocks taken;
        for (std::size_t i = 0; i < basekit::kSmallBlocksOfEachSize; ++i) {
            taken.Take(kBytes);
        }
        EXPECT_EQ(HeapBlocksFor(kBytes), 1);
        EXPECT_EQ(HeapBlocksFor(kBytes + 1), 0) << "blocks of the next size are still there";
    }
    EXPECT_EQ(HeapBlocksFor(kBytes), 0) << "the supply did not get its blocks back";
}

TEST(BasekitBlocks, AreUsedAgain) {
    const std::int64_t before = LiveAllocations();
    for (std::size_t i = 0; i < 10 * basekit::kSmallBlocksOfEachSize; ++i) {
        void* const block = BasekitAllocateBlock(100);
        EXPECT_EQ(LiveAllocations(), before);
        BasekitFreeBlock(block, 100);
    }
}

TEST(BasekitBlocks, WithoutMemoryAreNull) {
    for (const AllocationFault fault : {AllocationFault::kBadAlloc, AllocationFault::kOther}) {
        const FailAllocation fail(1, fault);
        EXPECT_EQ(BasekitAllocateBlock(1000), nullptr);
        EXPECT_TRUE(fail.HasFailed());
    }
}

TEST(BasekitBlocks, OfNullAreFreedAsNothing) {
    const std::int64_t before = LiveAllocations();
    BasekitFreeBlock(nullptr, 0);
    BasekitFreeBlock(nullptr, 16);
    BasekitFreeBlock(nullptr, 1000);
    EXPECT_EQ(LiveAllocations(), before);
    EXPECT_EQ(HeapBlocksFor(16), 0);
}

} // namespace
} // namespace tn::test
