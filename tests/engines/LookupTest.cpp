#include "tests/engines/Runtime.h"
#include "tests/support/AllocationFailure.h"

#include "TnEngines/abi/engine_tables.h"
#include "TnEngines/kel/GetAddress.h"

#include <set>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace tn::test {
namespace {

using Names = std::span<const abi::ProcedureName>;

// What the runtime and the colour engine offer.
std::vector<std::pair<const char*, Names>> OfferedInterfaces() {
    return {
        {abi::kKel, abi::kCoreProcedures},
        {abi::kBaseInterface, abi::kBaseProcedures},
        {abi::kErrorInterface, abi::kErrorProcedures},
        {abi::kMemoryInterface, abi::kMemoryProcedures},
        {abi::kContainerInterface, abi::kContainerProcedures},
        {abi::kColorInterface, abi::kColorProcedures},
    };
}

TEST(KelStartup, GivesTheSameProcedureAtEveryStart) {
    const KelGetAddressProc first = KelStartup(0);
    EXPECT_NE(first, nullptr);
    EXPECT_EQ(KelStartup(1), first);
    EXPECT_EQ(KelStartup(~std::uint64_t{0}), first);
}

TEST(KelLookup, FindsEveryProcedureOfTheRuntimeAndOfColors) {
    std::set<void*> procedures;
    std::size_t names = 0;
    for (const auto& [interfaceName, list] : OfferedInterfaces()) {
        for (const abi::ProcedureName& name : list) {
            void* const procedure = KelStartup(0)(interfaceName, name.method, name.procedure);
            EXPECT_NE(procedure, nullptr) << interfaceName << ' ' << name.procedure;
            procedures.insert(procedure);
            ++names;
        }
    }
    EXPECT_EQ(procedures.size(), names) << "two names give one procedure";
}

TEST(KelLookup, GivesTheSameProcedureEachTime) {
    EXPECT_EQ(Lookup(abi::kKel, "KelReportError"), Lookup(abi::kKel, "KelReportError"));
}

TEST(KelLookup, IgnoresTheMethodName) {
    const KelGetAddressProc getAddress = KelStartup(0);
    void* const procedure = getAddress(abi::kErrorInterface, "NewError", "KelNewErrorProc");
    EXPECT_NE(procedure, nullptr);
    EXPECT_EQ(getAddress(abi::kErrorInterface, "Something", "KelNewErrorProc"), procedure);
    EXPECT_EQ(getAddress(abi::kErrorInterface, nullptr, "KelNewErrorProc"), procedure);
}

TEST(KelLookup, GivesNullForUnknownNames) {
    EXPECT_EQ(Lookup("KelUnknownInterface", "KelNewErrorProc"), nullptr);
    EXPECT_EQ(Lookup(abi::kErrorInterface, "KelUnknownProc"), nullptr);
    EXPECT_EQ(Lookup("", ""), nullptr);
}

TEST(KelLookup, GivesNullForAProcedureOfAnotherInterface) {
    EXPECT_EQ(Lookup(abi::kMemoryInterface, "KelNewErrorProc"), nullptr);
}

TEST(KelLookup, GivesNullForNullNames) {
    EXPECT_EQ(Lookup(nullptr, "KelNewErrorProc"), nullptr);
    EXPECT_EQ(Lookup(abi::kErrorInterface, nullptr), nullptr);
    EXPECT_EQ(Lookup(nullptr, nullptr), nullptr);
}

TEST(KelLookup, TellsSmallLettersFromCapitals) {
    EXPECT_EQ(Lookup("kel", "KelReportError"), nullptr);
    EXPECT_EQ(Lookup(abi::kKel, "KelReporterror"), nullptr);
}

TEST(KelLookup, TakesNoOtherVersionOfAProcedure) {
    EXPECT_EQ(Lookup(abi::kErrorInterface, "KelNewErrorProcV2"), nullptr);
    EXPECT_EQ(Lookup(abi::kErrorInterface, "KelNewErrorPro"), nullptr);
}

TEST(KelLookup, AllocatesNothing) {
    const auto interfaces = OfferedInterfaces();
    const FailAllocation fail(1);
    for (const auto& [interfaceName, list] : interfaces) {
        for (const abi::ProcedureName& name : list) {
            EXPECT_NE(KelStartup(0)(interfaceName, name.method, name.procedure), nullptr);
        }
    }
    EXPECT_EQ(Lookup("KelUnknownInterface", "KelUnknownProc"), nullptr);
    EXPECT_FALSE(fail.HasFailed());
}

TEST(KelLookup, FindsWhateverTheEnginesOffer) {
    for (const auto procedures : {&HuexProcedures, &VecProcedures}) {
        std::size_t count = 0;
        const EngineProcedure* const first = procedures(&count);
        for (const EngineProcedure& entry : std::span(first, count)) {
            EXPECT_EQ(Lookup(entry.interfaceName, entry.procedureName), entry.procedure()) << entry.procedureName;
        }
    }
}

// Looked up while static objects are made, before anything is started and perhaps before the runtime's own sources have
// had their turn.
void* const theEarlyProcedure = tn::kel::GetAddress(abi::kErrorInterface, nullptr, "KelNewErrorProc");

TEST(KelLookup, WorksBeforeAnyStart) {
    EXPECT_NE(theEarlyProcedure, nullptr);
    EXPECT_EQ(theEarlyProcedure, Lookup(abi::kErrorInterface, "KelNewErrorProc"));
}

} // namespace
} // namespace tn::test
