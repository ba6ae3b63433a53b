// Private: tables of an interface's procedures.
#pragma once

#include "TnEngines/abi/interfaces.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace tn {

/// What is asked of the runtime for an interface.
struct InterfaceRequest {
    const char* interfaceName;
    std::span<const abi::ProcedureName> procedures;
};

/// The procedures of an interface and when they were found. Anything but its life is up to the binding.
struct InterfaceCache {
    InterfaceRequest request;
    std::span<void*> procedures;
    bool isFilled = false;
    std::uint32_t start = 0;           ///< The start of the binding at which they were found.
    std::uint32_t unregisterCount = 0; ///< The runtime's counter then.
};

/// A table with room for a procedure for each name of a list, at the places that an enumeration names.
template <class Place, std::size_t count> class ProcedureTable {
public:
    constexpr ProcedureTable(const char* interfaceName, const std::array<abi::ProcedureName, count>& procedures)
        : cache_{{interfaceName, procedures}, procedures_} {}
    ProcedureTable(const ProcedureTable&) = delete;
    ProcedureTable& operator=(const ProcedureTable&) = delete;

    InterfaceCache& Cache() { return cache_; }

    /// The procedure at a place, or null.
    template <class Procedure> Procedure At(Place place) const {
        return reinterpret_cast<Procedure>(procedures_[static_cast<std::size_t>(place)]);
    }

private:
    std::array<void*, count> procedures_ = {};
    InterfaceCache cache_;
};

} // namespace tn
