// Private: error objects.
#pragma once

#include "TnEngines/abi/kel.h"

#include <cstdint>

namespace tn::kel {

/// A new error with one reference. Null texts count as empty; without memory it is the core error of exhausted memory.
KelError NewError(const char* message, const char* component, std::int32_t number) noexcept;

/// An error that is always there. Null for a number that has none.
KelError CoreError(std::int32_t number) noexcept;

void AddReference(KelError error) noexcept;
void Release(KelError error) noexcept;

} // namespace tn::kel
