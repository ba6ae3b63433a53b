// Private: the vector engine's life.
#pragma once

#include "TnEngines/abi/kel.h"

#include <cstdint>

namespace tn::vec {

bool IsStarted();

/// How often the engine has been started.
std::uint64_t StartCount();

/// The runtime's procedure that the engine was last started with. It outlives a stop, for the errors of late ports.
KelGetAddressProc RuntimeProcedures();

} // namespace tn::vec
