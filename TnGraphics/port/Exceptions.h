/// \file
/// The exception of exhausted memory.
#pragma once

#include "TnGraphics/TnExport.h"

#include <new>

/// Thrown when there is no memory for a surface's pixels, and for sizes that no memory could hold.
class TN_EXPORT bad_alloc_bitmap : public std::bad_alloc {
public:
    bad_alloc_bitmap() = default;
    bad_alloc_bitmap(const bad_alloc_bitmap&) = default;            ///< There is nothing to copy.
    bad_alloc_bitmap& operator=(const bad_alloc_bitmap&) = default; ///< There is nothing to copy.
    ~bad_alloc_bitmap() override;

    /// "bad allocation" on every platform.
    const char* what() const noexcept override;
};
