// Private: which ports are alive.
#pragma once

#include "TnEngines/vec/port/Port.h"

#include <cstdint>
#include <memory>

namespace tn::vec {

/// Takes over a port and gives its handle, which no other port ever gets. \throws std::bad_alloc
VecPort Register(std::unique_ptr<Port> port);

/// Null for what is no handle of a living port. The handle is not looked behind.
Port* Find(VecPort handle);

/// Ends a port that is alive.
void Unregister(VecPort handle);

} // namespace tn::vec
