// Private: the lookup of procedures.
#pragma once

namespace tn::kel {

/// Finds what clients registered before what the runtime and its engines offer themselves.
///
/// It allocates nothing, and it may be called before the runtime is started.
void* GetAddress(const char* interfaceName, const char* methodName, const char* procedureName) noexcept;

} // namespace tn::kel
