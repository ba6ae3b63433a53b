#include "TnGraphics/runtime/Allocator.h"

#include "tests/support/AllocationFailure.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <gtest/gtest.h>
#include <limits>
#include <memory>
#include <type_traits>
#include <vector>

namespace tn::test {
namespace {

/// Leaves free blocks behind that are full of ones.
void DirtyHeap(std::size_t size) {
    std::vector<std::unique_ptr<std::uint8_t[]>> blocks;
    for (int i = 0; i < 50; ++i) {
        blocks.push_back(std::make_unique<std::uint8_t[]>(size));
        std::memset(blocks.back().get(), 0xFF, size);
    }
}

TEST(Allocator, GivesBlocksOfZeros) {
    Allocator allocator;
    for (const std::size_t size : {1U, 2U, 7U, 8U, 40U, 1000U, 100000U}) {
        DirtyHeap(size);
        auto* const block = static_cast<std::uint8_t*>(allocator.Allocate(size));
        ASSERT_NE(block, nullptr);
        EXPECT_EQ(std::count(block, block + size, 0), static_cast<std::ptrdiff_t>(size)) << size;
        allocator.Free(block);
    }
}

TEST(Allocator, GivesABlockOfNoBytes) {
    Allocator allocator;
    void* block = nullptr;
    EXPECT_NO_THROW(block = allocator.Allocate(0));
    EXPECT_NE(block, nullptr);
    allocator.Free(block);
}

TEST(Allocator, GivesNullForImpossibleSizes) {
    Allocator allocator;
    volatile std::size_t size = std::numeric_limits<std::size_t>::max();
    EXPECT_EQ(allocator.Allocate(size), nullptr);
    size = std::numeric_limits<std::size_t>::max() / 2;
    EXPECT_EQ(allocator.Allocate(size), nullptr);
}

TEST(Allocator, GivesNullWhenMemoryIsExhausted) {
    Allocator allocator;
    const FailAllocation failure(1);
    void* block = &allocator;
    EXPECT_NO_THROW(block = allocator.Allocate(16));
    EXPECT_TRUE(failure.HasFailed());
    EXPECT_EQ(block, nullptr);
}

TEST(Allocator, TakesEveryBlockBack) {
    Allocator allocator;
    const std::int64_t before = LiveAllocations();
    void* const block = allocator.Allocate(24);
    EXPECT_EQ(LiveAllocations(), before + 1);
    allocator.Free(block);
    EXPECT_EQ(LiveAllocations(), before);
}

TEST(Allocator, TakesNull) {
    Allocator allocator;
    EXPECT_NO_THROW(allocator.Free(nullptr));
}

TEST(Allocator, HoldsNothing) {
    EXPECT_EQ(sizeof(Allocator), sizeof(void*));
    EXPECT_TRUE(std::has_virtual_destructor_v<Allocator>);
}

TEST(Allocator, MayBeReplacedByADerivedOne) {
    struct Counting : Allocator {
        explicit Counting(int& count) : count_(count) {}
        ~Counting() override { ++count_; }
        void* Allocate(std::size_t) override {
            ++count_;
            return nullptr;
        }
        void Free(void*) override { ++count_; }

        int& count_;
    };
    int count = 0;
    const std::int64_t before = LiveAllocations();
    {
        const std::unique_ptr<Allocator> allocator = std::make_unique<Counting>(count);
        EXPECT_EQ(allocator->Allocate(5), nullptr);
        allocator->Free(nullptr);
        EXPECT_EQ(count, 2);
    }
    EXPECT_EQ(count, 3);
    EXPECT_EQ(LiveAllocations(), before);
}

} // namespace
} // namespace tn::test
