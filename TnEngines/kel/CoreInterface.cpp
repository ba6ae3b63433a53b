#include "TnEngines/abi/kel_procedures.h"
#include "TnEngines/abi/procedure_table.h"
#include "TnEngines/kel/Interfaces.h"
#include "TnEngines/kel/Registrations.h"
#include "TnEngines/kel/ReportedError.h"

#include <cstdint>

namespace tn::kel {
namespace {

std::int32_t IsMultiThreaded() noexcept { return 0; }

constexpr auto kTable = abi::MakeProcedureTable(
    abi::kKel, abi::kCoreProcedures,
    {&abi::AddressOf<KelRegisterProcAddressType, &Register>, &abi::AddressOf<KelReportErrorType, &ReportError>,
     &abi::AddressOf<KelUnregisterInterfaceType, &UnregisterInterface>,
     &abi::AddressOf<KelGetUnregisterCountAddrType, &GetUnregisterCountAddress>,
     &abi::AddressOf<KelIsMultiThreadedType, &IsMultiThreaded>});

} // namespace

Table CoreInterface() { return kTable; }

} // namespace tn::kel
