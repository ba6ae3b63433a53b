// Private: the doors through which exceptions of exhausted memory leave the library, one function for each kind.
#pragma once

namespace tn {

/// There is no memory for pixels: bad_alloc_bitmap.
[[noreturn]] void RaiseBitmapExhausted();

/// Anything else is lacking, such as a surface's storage where it is needed: std::bad_alloc, "bad allocation".
[[noreturn]] void RaiseBadAllocation();

} // namespace tn
