// The embedded runtime as its clients see it: by names.
#pragma once

#include "TnEngines/abi/interfaces.h"
#include "TnEngines/abi/kel_procedures.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <gtest/gtest.h>

namespace tn::test {

/// Looks a procedure up as clients do.
inline void* Lookup(const char* interfaceName, const char* procedureName) {
    return KelStartup(0)(interfaceName, procedureName, procedureName);
}

/// A procedure by its place in its interface's list.
template <class Type, class Place, std::size_t count>
Type Procedure(const char* interfaceName, const std::array<abi::ProcedureName, count>& names, Place place) {
    const abi::ProcedureName& name = names.at(static_cast<std::size_t>(place));
    return reinterpret_cast<Type>(KelStartup(0)(interfaceName, name.method, name.procedure));
}

template <class Type> Type Core(abi::Core place) { return Procedure<Type>(abi::kKel, abi::kCoreProcedures, place); }

/// The procedures of errors.
struct ErrorProcedures {
    template <class Type> static Type At(abi::Error place) {
        return Procedure<Type>(abi::kErrorInterface, abi::kErrorProcedures, place);
    }

    KelNewErrorType make = At<KelNewErrorType>(abi::Error::kNewError);
    KelGetCoreErrorType core = At<KelGetCoreErrorType>(abi::Error::kGetCoreError);
    KelErrorAddReferenceType addReference = At<KelErrorAddReferenceType>(abi::Error::kAddReference);
    KelErrorReleaseType release = At<KelErrorReleaseType>(abi::Error::kRelease);
    KelErrorGetComponentType component = At<KelErrorGetComponentType>(abi::Error::kGetComponent);
    KelErrorGetNumberType number = At<KelErrorGetNumberType>(abi::Error::kGetNumber);
    KelErrorGetMessageType message = At<KelErrorGetMessageType>(abi::Error::kGetMessage);
};

/// Expects what an error says of itself.
inline void ExpectError(KelError error, const char* message, const char* component, int number) {
    const ErrorProcedures errors;
    EXPECT_STREQ(errors.message(error), message);
    EXPECT_STREQ(errors.component(error), component);
    EXPECT_EQ(errors.number(error), number);
}

/// The counter of unregistered interfaces, read anew at each call.
inline std::uint32_t UnregisterCountNow() {
    return *Core<KelGetUnregisterCountAddrType>(abi::Core::kGetUnregisterCountAddr)();
}

} // namespace tn::test
