/// \file
/// Blocks of memory through an object.
#pragma once

#include "TnGraphics/TnExport.h"

#include <cstddef>

/// Gives blocks of the ordinary heap.
class TN_EXPORT Allocator {
public:
    Allocator() = default;
    Allocator(const Allocator&) = default;            ///< There is nothing to copy.
    Allocator& operator=(const Allocator&) = default; ///< There is nothing to copy.
    virtual ~Allocator();

    /// A block of bytes that are all 0. Null when there is no memory; nothing is thrown.
    virtual void* Allocate(std::size_t size);

    /// Takes back a block of Allocate, or null.
    virtual void Free(void* block);
};
