#include "tests/engines/Runtime.h"
#include "tests/support/AllocationFailure.h"

#include "TnEngines/kel/TestHooks.h"

#include <limits>
#include <string>

namespace tn::test {
namespace {

// Addresses that stand for procedures.
int theFirst;
int theSecond;

constexpr const char* kInterface = "HostInterface";
constexpr const char* kOtherInterface = "OtherHostInterface";

class KelRegistration : public testing::Test {
protected:
    ~KelRegistration() override {
        for (const char* name : {kInterface, kOtherInterface, abi::kErrorInterface}) {
            unregister_(name);
        }
    }

    KelRegisterProcAddressType register_ = Core<KelRegisterProcAddressType>(abi::Core::kRegisterProcAddress);
    KelUnregisterInterfaceType unregister_ = Core<KelUnregisterInterfaceType>(abi::Core::kUnregisterInterface);
};

TEST_F(KelRegistration, AddsAProcedureUnderItsInterface) {
    EXPECT_EQ(Lookup(kInterface, "Play"), nullptr);
    EXPECT_NE(register_(kInterface, "Play", &theFirst), 0);
    EXPECT_EQ(Lookup(kInterface, "Play"), &theFirst);
    EXPECT_EQ(Lookup(kInterface, "Stop"), nullptr);
    EXPECT_EQ(Lookup(kOtherInterface, "Play"), nullptr);
}

TEST_F(KelRegistration, HoldsSeveralProceduresOfSeveralInterfaces) {
    register_(kInterface, "Play", &theFirst);
    register_(kInterface, "Stop", &theSecond);
    register_(kOtherInterface, "Play", &theSecond);
    EXPECT_EQ(Lookup(kInterface, "Play"), &theFirst);
    EXPECT_EQ(Lookup(kInterface, "Stop"), &theSecond);
    EXPECT_EQ(Lookup(kOtherInterface, "Play"), &theSecond);
}

TEST_F(KelRegistration, ReplacesTheProcedureOfThatName) {
    register_(kInterface, "Play", &theFirst);
    EXPECT_NE(register_(kInterface, "Play", &theSecond), 0);
    EXPECT_EQ(Lookup(kInterface, "Play"), &theSecond);
    unregister_(kInterface);
    EXPECT_EQ(Lookup(kInterface, "Play"), nullptr) << "the replaced one is back";
}

TEST_F(KelRegistration, CopiesTheNames) {
    std::string interfaceName = kInterface;
    std::string procedureName = "Play";
    register_(interfaceName.c_str(), procedureName.c_str(), &theFirst);
    interfaceName.assign(interfaceName.size(), 'x');
    procedureName.assign(procedureName.size(), 'x');
    EXPECT_EQ(Lookup(kInterface, "Play"), &theFirst);
    EXPECT_EQ(Lookup(interfaceName.c_str(), procedureName.c_str()), nullptr);
}

TEST_F(KelRegistration, IsFoundBeforeTheRuntimesOwnProcedure) {
    void* const own = Lookup(abi::kErrorInterface, "KelNewErrorProc");
    register_(abi::kErrorInterface, "KelNewErrorProc", &theFirst);
    EXPECT_EQ(Lookup(abi::kErrorInterface, "KelNewErrorProc"), &theFirst);
    unregister_(abi::kErrorInterface);
    EXPECT_EQ(Lookup(abi::kErrorInterface, "KelNewErrorProc"), own);
}

TEST_F(KelRegistration, RefusesNullArguments) {
    EXPECT_EQ(register_(nullptr, "Play", &theFirst), 0);
    EXPECT_EQ(register_(kInterface, nullptr, &theFirst), 0);
    register_(kInterface, "Play", &theFirst);
    EXPECT_EQ(register_(kInterface, "Play", nullptr), 0);
    EXPECT_EQ(Lookup(kInterface, "Play"), &theFirst);
}

TEST_F(KelRegistration, WithoutMemoryAddsNothing) {
    const std::string interfaceName(100, 'i');
    const std::string procedureName(100, 'p');
    const std::int64_t before = LiveAllocations();
    int failures = 0;
    for (bool failed = true; failed; failures += failed ? 1 : 0) {
        const FailAllocation fail(failures + 1);
        const std::int32_t result = register_(interfaceName.c_str(), procedureName.c_str(), &theFirst);
        failed = fail.HasFailed();
        EXPECT_EQ(result == 0, failed) << "allocation " << failures + 1;
        EXPECT_EQ(Lookup(interfaceName.c_str(), procedureName.c_str()) == nullptr, failed);
        EXPECT_EQ(LiveAllocations() == before, failed);
    }
    EXPECT_GT(failures, 0);
    unregister_(interfaceName.c_str());
    EXPECT_EQ(LiveAllocations(), before);
}

TEST_F(KelRegistration, NeedsNoMemoryToReplace) {
    register_(kInterface, "Play", &theFirst);
    const FailAllocation fail(1);
    EXPECT_NE(register_(kInterface, "Play", &theSecond), 0);
    EXPECT_EQ(Lookup(kInterface, "Play"), &theSecond);
    EXPECT_FALSE(fail.HasFailed());
}

TEST_F(KelRegistration, DoesNotRaiseTheCounter) {
    const std::uint32_t before = UnregisterCountNow();
    register_(kInterface, "Play", &theFirst);
    register_(kInterface, "Play", &theSecond);
    EXPECT_EQ(UnregisterCountNow(), before);
}

TEST_F(KelRegistration, OfAnInterfaceIsForgottenAsAWhole) {
    register_(kInterface, "Play", &theFirst);
    register_(kOtherInterface, "Play", &theFirst);
    register_(kInterface, "Stop", &theSecond);
    unregister_(kInterface);
    EXPECT_EQ(Lookup(kInterface, "Play"), nullptr);
    EXPECT_EQ(Lookup(kInterface, "Stop"), nullptr);
    EXPECT_EQ(Lookup(kOtherInterface, "Play"), &theFirst);
}

TEST_F(KelRegistration, GivesItsMemoryBack) {
    const std::int64_t before = LiveAllocations();
    register_(kInterface, "Play", &theFirst);
    register_(kInterface, "Stop", &theFirst);
    unregister_(kInterface);
    EXPECT_EQ(LiveAllocations(), before);
}

TEST_F(KelRegistration, IsPossibleAgainAfterwards) {
    register_(kInterface, "Play", &theFirst);
    unregister_(kInterface);
    register_(kInterface, "Play", &theSecond);
    EXPECT_EQ(Lookup(kInterface, "Play"), &theSecond);
}

TEST_F(KelRegistration, LeavesTheRuntimesOwnProceduresWhenItIsForgotten) {
    unregister_(abi::kErrorInterface);
    EXPECT_NE(Lookup(abi::kErrorInterface, "KelNewErrorProc"), nullptr);
}

TEST_F(KelRegistration, RaisesTheCounterByOneWhenAnInterfaceIsForgotten) {
    register_(kInterface, "Play", &theFirst);
    register_(kInterface, "Stop", &theFirst);
    const std::uint32_t before = UnregisterCountNow();
    unregister_(kInterface);
    EXPECT_EQ(UnregisterCountNow(), before + 1);
}

TEST_F(KelRegistration, RaisesTheCounterForUnknownInterfacesToo) {
    const std::uint32_t before = UnregisterCountNow();
    unregister_("NeverHeardOf");
    EXPECT_EQ(UnregisterCountNow(), before + 1);
}

TEST_F(KelRegistration, CountsOnFromZeroAfterTheLargestNumber) {
    const std::uint32_t before = UnregisterCountNow();
    kel::SetUnregisterCount(std::numeric_limits<std::uint32_t>::max());
    unregister_(kInterface);
    EXPECT_EQ(UnregisterCountNow(), 0U);
    kel::SetUnregisterCount(before);
}

TEST_F(KelRegistration, OfNullIsNeitherForgottenNorCounted) {
    register_(kInterface, "Play", &theFirst);
    const std::uint32_t before = UnregisterCountNow();
    unregister_(nullptr);
    EXPECT_EQ(UnregisterCountNow(), before);
    EXPECT_EQ(Lookup(kInterface, "Play"), &theFirst);
}

TEST(KelUnregisterCount, StaysAtOneAddress) {
    const auto getAddress = Core<KelGetUnregisterCountAddrType>(abi::Core::kGetUnregisterCountAddr);
    const std::uint32_t* const address = getAddress();
    ASSERT_NE(address, nullptr);
    const std::uint32_t before = *address;
    KelStartup(0);
    EXPECT_EQ(getAddress(), address);
    Core<KelUnregisterInterfaceType>(abi::Core::kUnregisterInterface)("NeverHeardOf");
    EXPECT_EQ(getAddress(), address);
    EXPECT_EQ(*address, before + 1);
}

TEST(KelIsMultiThreaded, SaysNo) { EXPECT_EQ(Core<KelIsMultiThreadedType>(abi::Core::kIsMultiThreaded)(), 0); }

TEST(KelBaseInterface, HasVersion13) {
    const auto version = Procedure<KelGetInterfaceVersionType>(abi::kBaseInterface, abi::kBaseProcedures,
                                                               abi::Base::kGetInterfaceVersion);
    EXPECT_EQ(version(), 13);
}

} // namespace
} // namespace tn::test
