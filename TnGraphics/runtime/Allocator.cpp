#include "TnGraphics/runtime/Allocator.h"

#include <cstring>
#include <new>

Allocator::~Allocator() = default;

void* Allocator::Allocate(std::size_t size) {
    void* const block = ::operator new(size, std::nothrow);
    return block == nullptr ? nullptr : std::memset(block, 0, size);
}

// Hosts that replace the array form of release rely on its being called here.
void Allocator::Free(void* block) { ::operator delete[](block); }
