#include "TnEngines/abi/kel_procedures.h"
#include "TnEngines/abi/procedure_table.h"
#include "TnEngines/kel/Interfaces.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <limits>
#include <new>

namespace tn::kel {
namespace {

// Stands before each block, which thereby stays aligned for every type.
struct alignas(std::max_align_t) BlockHeader {
    std::size_t bytes;
};

BlockHeader* HeaderOf(void* block) { return static_cast<BlockHeader*>(block) - 1; }

void* Allocate(std::size_t bytes) noexcept {
    if (bytes > std::numeric_limits<std::size_t>::max() - sizeof(BlockHeader)) {
        return nullptr;
    }
    void* const memory = ::operator new(sizeof(BlockHeader) + bytes, std::nothrow);
    return memory != nullptr ? ::new (memory) BlockHeader{bytes} + 1 : nullptr;
}

void Free(void* block) noexcept {
    if (block != nullptr) {
        ::operator delete(HeaderOf(block));
    }
}

// Without memory the old block stays as it is.
void* Reallocate(void* block, std::size_t bytes) noexcept {
    void* const resized = Allocate(bytes);
    if (resized != nullptr && block != nullptr) {
        std::memcpy(resized, block, std::min(bytes, HeaderOf(block)->bytes));
        Free(block);
    }
    return resized;
}

constexpr auto kTable =
    abi::MakeProcedureTable(abi::kMemoryInterface, abi::kMemoryProcedures,
                            {&abi::AddressOf<KelAllocateType, &Allocate>,
                             &abi::AddressOf<KelReallocateType, &Reallocate>, &abi::AddressOf<KelFreeType, &Free>});

} // namespace

Table MemoryInterface() { return kTable; }

} // namespace tn::kel
