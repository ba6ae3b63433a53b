// Private: errors of the runtime and the engines, and how they become exceptions.
#pragma once

#include "TnEngines/abi/kel.h"

#include <cstdint>

namespace tn {

// What the runtime offers for errors. Without it, and for null errors, references are nobody's, texts empty and numbers
// 0.

void AddReference(KelError error) noexcept;
void Release(KelError error) noexcept;
const char* ComponentOf(KelError error) noexcept;
const char* MessageOf(KelError error) noexcept;
std::int32_t NumberOf(KelError error) noexcept;

/// A new error of the component "Kel", which is the caller's to release. Null where the runtime cannot make one.
KelError NewError(const char* message) noexcept;

/// Throws a new error of the component "Kel".
[[noreturn]] void ThrowNewError(const char* message);

/// Throws what an engine's procedure gave back, unless that is null: std::bad_alloc ("bad allocation") for exhausted
/// memory, CKelError for any other error.
void ThrowIfError(KelError error);

} // namespace tn
