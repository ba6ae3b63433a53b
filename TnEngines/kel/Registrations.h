// Private: the procedures that clients registered, and the counter of unregistered interfaces.
#pragma once

#include <cstdint>

namespace tn::kel {

/// Adds a procedure, or replaces the one of that name. 0 when there is no memory, and for null arguments.
std::int32_t Register(const char* interfaceName, const char* procedureName, void* procedure) noexcept;

/// Forgets what was registered for an interface and raises the counter, for unknown interfaces too. A null name changes
/// nothing.
void UnregisterInterface(const char* interfaceName) noexcept;

/// Null when no client registered it.
void* FindRegistered(const char* interfaceName, const char* procedureName) noexcept;

const std::uint32_t* GetUnregisterCountAddress() noexcept;

/// The counter itself; it wraps.
std::uint32_t& UnregisterCount() noexcept;

} // namespace tn::kel
