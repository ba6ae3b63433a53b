#include "TnEngines/abi/basekit.h"
#include "TnEngines/basekit/Export.h"
#include "TnEngines/basekit/SmallBlocks.h"

BASEKIT_EXPORT void* BasekitAllocateBlock(std::size_t bytes) {
    void* const small = tn::basekit::TakeSmallBlock(bytes);
    return small != nullptr ? small : ::operator new(bytes, std::nothrow);
}

BASEKIT_EXPORT void BasekitFreeBlock(void* block, std::size_t bytes) {
    if (block != nullptr && !tn::basekit::ReturnSmallBlock(block, bytes)) {
        ::operator delete(block);
    }
}
