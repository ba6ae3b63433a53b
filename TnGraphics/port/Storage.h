// Private: how surfaces come by their storage.
#pragma once

#include "TnGraphics/port/TnBitMapHelper.h"

#include <cstdint>
#include <memory>

namespace tn {

/// New storage of the library's own kind; see WinBitMapHelper for the parameters.
/// \throws bad_alloc_bitmap for exhausted memory and impossible sizes
std::unique_ptr<TnBitMapHelper> MakeStorage(const TnPoint& size, std::uint32_t depth, bool clear);

/// A deep copy of storage of the library's own kind; none for none.
/// \throws std::bad_cast for storage of another kind, bad_alloc_bitmap for exhausted memory
std::unique_ptr<TnBitMapHelper> CopyStorage(const TnBitMapHelper* source);

/// The row bytes of storage, 0 for none.
std::uint32_t RowBytesOf(const TnBitMapHelper* storage);

} // namespace tn
