// Memory that runs out at a chosen allocation. The executable's operators new and delete are replaced to that end.
#pragma once

#include <cstdint>

namespace tn::test {

/// Number of blocks that operator new has given and operator delete has not got back yet.
std::int64_t LiveAllocations();

/// What an allocation throws that fails for another reason than exhausted memory.
struct OtherAllocationFault {};

enum class AllocationFault { kBadAlloc, kOther };

/// Lets the nth operator new from here on fail, the first being 1; those after it succeed again.
///
/// The nothrow forms give null instead of throwing. One of these lives at a time.
class FailAllocation {
public:
    explicit FailAllocation(int nth, AllocationFault fault = AllocationFault::kBadAlloc);
    ~FailAllocation();
    FailAllocation(const FailAllocation&) = delete;
    FailAllocation& operator=(const FailAllocation&) = delete;

    /// True once the allocation has failed.
    bool HasFailed() const;
};

} // namespace tn::test
