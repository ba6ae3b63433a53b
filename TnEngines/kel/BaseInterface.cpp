#include "TnEngines/abi/kel_procedures.h"
#include "TnEngines/abi/procedure_table.h"
#include "TnEngines/kel/Interfaces.h"

#include <cstdint>

namespace tn::kel {
namespace {

std::int32_t GetInterfaceVersion() noexcept { return abi::kInterfaceVersion; }

constexpr auto kTable = abi::MakeProcedureTable(abi::kBaseInterface, abi::kBaseProcedures,
                                                {&abi::AddressOf<KelGetInterfaceVersionType, &GetInterfaceVersion>});

} // namespace

Table BaseInterface() { return kTable; }

} // namespace tn::kel
