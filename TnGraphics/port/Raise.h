// Private: the doors through which exceptions leave the surfaces, one function for each kind.
#pragma once

namespace tn {

/// There is no memory for pixels: bad_alloc_bitmap.
[[noreturn]] void RaiseBitmapExhausted();

/// A surface without storage is locked or given a content rectangle: std::bad_alloc, "bad allocation".
[[noreturn]] void RaiseNoStorage();

} // namespace tn
