#include "tests/support/AllocationFailure.h"

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <cstdlib>
#include <new>

#if defined(_WIN32)
#include <malloc.h>
#endif

namespace {

using tn::test::AllocationFault;

constinit std::atomic<std::int64_t> liveAllocations = 0;
constinit std::atomic<int> allocationsUntilFault = 0; // 0 and below: none will fail
constinit AllocationFault faultToThrow = AllocationFault::kBadAlloc;

void ThrowIfDue() {
    if (allocationsUntilFault > 0 && --allocationsUntilFault == 0) {
        if (faultToThrow == AllocationFault::kOther) {
            throw tn::test::OtherAllocationFault();
        }
        throw std::bad_alloc();
    }
}

void* Counted(void* block) {
    if (block == nullptr) {
        throw std::bad_alloc();
    }
    ++liveAllocations;
    return block;
}

void* Allocate(std::size_t size) {
    ThrowIfDue();
    return Counted(std::malloc(std::max<std::size_t>(size, 1)));
}

void Release(void* block) noexcept {
    if (block != nullptr) {
        --liveAllocations;
        std::free(block);
    }
}

void* AllocateAligned(std::size_t size, std::align_val_t alignment) {
    ThrowIfDue();
    const auto bytes = static_cast<std::size_t>(alignment);
    const std::size_t wholeBlocks = (std::max<std::size_t>(size, 1) + bytes - 1) / bytes * bytes;
#if defined(_WIN32)
    return Counted(_aligned_malloc(wholeBlocks, bytes));
#else
    return Counted(std::aligned_alloc(bytes, wholeBlocks));
#endif
}

void ReleaseAligned(void* block) noexcept {
#if defined(_WIN32)
    if (block != nullptr) {
        --liveAllocations;
        _aligned_free(block);
    }
#else
    Release(block);
#endif
}

template <class Allocation> void* NullIfThrown(const Allocation& allocation) noexcept {
    try {
        return allocation();
    } catch (...) {
        return nullptr;
    }
}

} // namespace

namespace tn::test {

std::int64_t LiveAllocations() { return liveAllocations; }

FailAllocation::FailAllocation(int nth, AllocationFault fault) {
    faultToThrow = fault;
    allocationsUntilFault = nth;
}

FailAllocation::~FailAllocation() { allocationsUntilFault = 0; }

bool FailAllocation::HasFailed() const { return allocationsUntilFault == 0; }

} // namespace tn::test

// clang-format off
void* operator new(std::size_t size) { return Allocate(size); }
void* operator new[](std::size_t size) { return Allocate(size); }
void* operator new(std::size_t size, std::align_val_t alignment) { return AllocateAligned(size, alignment); }
void* operator new[](std::size_t size, std::align_val_t alignment) { return AllocateAligned(size, alignment); }

void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return NullIfThrown([=] { return Allocate(size); });
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
    return NullIfThrown([=] { return Allocate(size); });
}
void* operator new(std::size_t size, std::align_val_t alignment, const std::nothrow_t&) noexcept {
    return NullIfThrown([=] { return AllocateAligned(size, alignment); });
}
void* operator new[](std::size_t size, std::align_val_t alignment, const std::nothrow_t&) noexcept {
    return NullIfThrown([=] { return AllocateAligned(size, alignment); });
}

void operator delete(void* block) noexcept { Release(block); }
void operator delete[](void* block) noexcept { Release(block); }
void operator delete(void* block, std::size_t) noexcept { Release(block); }
void operator delete[](void* block, std::size_t) noexcept { Release(block); }
void operator delete(void* block, const std::nothrow_t&) noexcept { Release(block); }
void operator delete[](void* block, const std::nothrow_t&) noexcept { Release(block); }
void operator delete(void* block, std::align_val_t) noexcept { ReleaseAligned(block); }
void operator delete[](void* block, std::align_val_t) noexcept { ReleaseAligned(block); }
void operator delete(void* block, std::size_t, std::align_val_t) noexcept { ReleaseAligned(block); }
void operator delete[](void* block, std::size_t, std::align_val_t) noexcept { ReleaseAligned(block); }
void operator delete(void* block, std::align_val_t, const std::nothrow_t&) noexcept { ReleaseAligned(block); }
void operator delete[](void* block, std::align_val_t, const std::nothrow_t&) noexcept { ReleaseAligned(block); }
// clang-format on
