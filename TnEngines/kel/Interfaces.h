// Private: the runtime's own interfaces, each in a source of its own.
#pragma once

#include "TnEngines/abi/engine_tables.h"

#include <span>

namespace tn::kel {

using Table = std::span<const EngineProcedure>;

Table CoreInterface();
Table BaseInterface();
Table ErrorInterface();
Table MemoryInterface();
Table ContainerInterface();

} // namespace tn::kel
