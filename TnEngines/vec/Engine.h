// Private: the vector engine's life.
#pragma once

#include "TnEngines/abi/kel.h"

namespace tn::vec {

bool IsStarted();

/// The runtime's procedure that the engine was last started with. It outlives a stop, for the errors of late ports.
KelGetAddressProc RuntimeProcedures();

} // namespace tn::vec
