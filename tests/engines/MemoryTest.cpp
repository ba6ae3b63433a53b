#include "tests/engines/Runtime.h"
#include "tests/support/AllocationFailure.h"

#include <cstddef>
#include <cstdint>
#include <limits>

namespace tn::test {
namespace {

class KelMemory : public testing::Test {
protected:
    template <class Type> static Type At(abi::Memory place) {
        return Procedure<Type>(abi::kMemoryInterface, abi::kMemoryProcedures, place);
    }

    static unsigned char* Bytes(void* block) { return static_cast<unsigned char*>(block); }

    static void Number(void* block, std::size_t count) {
        for (std::size_t i = 0; i < count; ++i) {
            Bytes(block)[i] = NumberAt(i);
        }
    }

    static bool IsNumbered(void* block, std::size_t count) {
        for (std::size_t i = 0; i < count; ++i) {
            if (Bytes(block)[i] != NumberAt(i)) {
                return false;
            }
        }
        return true;
    }

    static unsigned char NumberAt(std::size_t i) { return static_cast<unsigned char>(i * 7 + 1); }

    KelAllocateType allocate_ = At<KelAllocateType>(abi::Memory::kAllocate);
    KelReallocateType reallocate_ = At<KelReallocateType>(abi::Memory::kReallocate);
    KelFreeType free_ = At<KelFreeType>(abi::Memory::kFree);
};

TEST_F(KelMemory, GivesBlocksThatHoldTheirBytes) {
    const std::int64_t before = LiveAllocations();
    void* const first = allocate_(1000);
    void* const second = allocate_(1);
    ASSERT_NE(first, nullptr);
    ASSERT_NE(second, nullptr);
    Number(first, 1000);
    *Bytes(second) = 99;
    EXPECT_TRUE(IsNumbered(first, 1000));
    free_(first);
    EXPECT_EQ(*Bytes(second), 99);
    free_(second);
    EXPECT_EQ(LiveAllocations(), before);
}

TEST_F(KelMemory, AlignsBlocksForEveryType) {
    for (std::size_t bytes = 0; bytes < 70; ++bytes) {
        void* block = allocate_(bytes);
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(block) % alignof(std::max_align_t), 0U) << bytes;
        block = reallocate_(block, bytes + 5);
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(block) % alignof(std::max_align_t), 0U) << bytes;
        free_(block);
    }
}

TEST_F(KelMemory, GivesABlockOfNoBytes) {
    void* const block = allocate_(0);
    EXPECT_NE(block, nullptr);
    free_(block);
}

TEST_F(KelMemory, KeepsTheBytesOfABlockThatGrows) {
    void* const block = allocate_(10);
    Number(block, 10);
    void* const larger = reallocate_(block, 1000);
    ASSERT_NE(larger, nullptr);
    EXPECT_TRUE(IsNumbered(larger, 10));
    Number(larger, 1000);
    EXPECT_TRUE(IsNumbered(larger, 1000));
    free_(larger);
}

TEST_F(KelMemory, KeepsTheFirstBytesOfABlockThatShrinks) {
    void* const block = allocate_(1000);
    Number(block, 1000);
    void* const smaller = reallocate_(block, 10);
    ASSERT_NE(smaller, nullptr);
    EXPECT_TRUE(IsNumbered(smaller, 10));
    void* const none = reallocate_(smaller, 0);
    EXPECT_NE(none, nullptr);
    free_(none);
}

TEST_F(KelMemory, ReleasesTheBlockThatWasResized) {
    const std::int64_t before = LiveAllocations();
    void* const block = reallocate_(allocate_(10), 20);
    EXPECT_EQ(LiveAllocations(), before + 1);
    free_(block);
    EXPECT_EQ(LiveAllocations(), before);
}

TEST_F(KelMemory, ResizesNullToANewBlock) {
    void* const block = reallocate_(nullptr, 10);
    ASSERT_NE(block, nullptr);
    Number(block, 10);
    EXPECT_TRUE(IsNumbered(block, 10));
    free_(block);
}

TEST_F(KelMemory, FreesNullAsNothing) {
    const std::int64_t before = LiveAllocations();
    free_(nullptr);
    EXPECT_EQ(LiveAllocations(), before);
}

TEST_F(KelMemory, ThatIsExhaustedIsNull) {
    for (const AllocationFault fault : {AllocationFault::kBadAlloc, AllocationFault::kOther}) {
        const FailAllocation fail(1, fault);
        EXPECT_EQ(allocate_(10), nullptr);
        EXPECT_TRUE(fail.HasFailed());
    }
}

TEST_F(KelMemory, ThatIsExhaustedLeavesTheOldBlock) {
    void* const block = allocate_(10);
    Number(block, 10);
    {
        const FailAllocation fail(1);
        EXPECT_EQ(reallocate_(block, 20), nullptr);
        EXPECT_TRUE(fail.HasFailed());
    }
    EXPECT_TRUE(IsNumbered(block, 10));
    free_(block);
}

TEST_F(KelMemory, HasNoBlocksOfImpossibleSizes) {
    constexpr std::size_t kLargest = std::numeric_limits<std::size_t>::max();
    void* const block = allocate_(10);
    Number(block, 10);
    for (const std::size_t bytes : {kLargest, kLargest - 1, kLargest - 15, kLargest - 16, kLargest / 2}) {
        EXPECT_EQ(allocate_(bytes), nullptr) << bytes;
        EXPECT_EQ(reallocate_(block, bytes), nullptr) << bytes;
    }
    EXPECT_TRUE(IsNumbered(block, 10));
    free_(block);
}

} // namespace
} // namespace tn::test
