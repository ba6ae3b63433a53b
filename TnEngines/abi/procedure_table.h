// Private: how an engine writes down the procedures of an interface, in tables that are complete before it runs.
#pragma once

#include "TnEngines/abi/engine_tables.h"
#include "TnEngines/abi/interfaces.h"

#include <array>
#include <cstddef>

namespace tn::abi {

using GiveAddress = void* (*)();

/// Stands for a procedure, which must be of the type that callers take it for.
template <class Type, Type kProcedure> void* AddressOf() { return reinterpret_cast<void*>(kProcedure); }

/// The table of an interface; the procedures stand in the order of their names.
template <std::size_t count>
consteval std::array<EngineProcedure, count> MakeProcedureTable(const char* interfaceName,
                                                                const std::array<ProcedureName, count>& names,
                                                                const GiveAddress (&procedures)[count]) {
    std::array<EngineProcedure, count> table{};
    for (std::size_t i = 0; i < count; ++i) {
        table[i] = {interfaceName, names[i].procedure, procedures[i]};
    }
    return table;
}

} // namespace tn::abi
