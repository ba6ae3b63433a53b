#include "tests/support/AllocationFailure.h"

#include <cstddef>
#include <gtest/gtest.h>
#include <memory>
#include <new>

namespace tn::test {
namespace {

// Unlike new-expressions, these calls may not be optimised away.
struct Deleter {
    void operator()(void* block) const { ::operator delete(block); }
};
using Block = std::unique_ptr<void, Deleter>;

Block NewBlock() { return Block(::operator new(8)); }

TEST(FailAllocation, FailsTheNthAllocationOnly) {
    const FailAllocation fail(3);
    const Block first = NewBlock();
    const Block second = NewBlock();
    EXPECT_FALSE(fail.HasFailed());
    EXPECT_THROW(NewBlock(), std::bad_alloc);
    EXPECT_TRUE(fail.HasFailed());
    EXPECT_NO_THROW(NewBlock());
}

TEST(FailAllocation, FailsAlignedAndArrayAllocations) {
    {
        const FailAllocation fail(1);
        EXPECT_THROW((void)::operator new (8, std::align_val_t{64}), std::bad_alloc);
    }
    const FailAllocation fail(1);
    EXPECT_THROW((void)::operator new[](8), std::bad_alloc);
}

TEST(FailAllocation, GivesNullWhereNothingMayBeThrown) {
    const FailAllocation fail(1);
    EXPECT_EQ(::operator new(8, std::nothrow), nullptr);
}

TEST(FailAllocation, ThrowsAnotherExceptionOnDemand) {
    const FailAllocation fail(1, AllocationFault::kOther);
    EXPECT_THROW(NewBlock(), OtherAllocationFault);
}

TEST(FailAllocation, EndsWithItsScope) {
    { const FailAllocation fail(1); }
    EXPECT_NO_THROW(NewBlock());
}

TEST(LiveAllocations, CountWhatIsNotReleasedYet) {
    const std::int64_t before = LiveAllocations();
    Block block = NewBlock();
    const std::int64_t withBlock = LiveAllocations();
    block.reset();
    const std::int64_t after = LiveAllocations();
    EXPECT_EQ(withBlock, before + 1);
    EXPECT_EQ(after, before);
}

} // namespace
} // namespace tn::test
