// Private: procedures of others, through the runtime.
#pragma once

#include "TnEngines/abi/interfaces.h"
#include "TnEngines/vec/Engine.h"

#include <array>
#include <cstddef>

namespace tn::vec {

/// A procedure of an interface, or null.
template <class Type, class Place, std::size_t count>
Type RuntimeProcedure(const char* interfaceName, const std::array<abi::ProcedureName, count>& names, Place place) {
    const KelGetAddressProc getAddress = RuntimeProcedures();
    const abi::ProcedureName& name = names[static_cast<std::size_t>(place)];
    return getAddress == nullptr ? nullptr
                                 : reinterpret_cast<Type>(getAddress(interfaceName, name.method, name.procedure));
}

} // namespace tn::vec
