// Private: the callbacks that clients want called for containers. The runtime makes none, so it never calls them.
#pragma once

#include "TnEngines/abi/kel_procedures.h"

#include <cstdint>

namespace tn::kel {

/// Whether a callback is remembered for a flag.
bool IsContainerCallback(KelContainerCallback callback, std::int32_t flag) noexcept;

} // namespace tn::kel
