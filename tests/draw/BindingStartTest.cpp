#include "TnGraphics/draw/Binding.h"

#include "tests/fakes/EngineTest.h"
#include "tests/support/AllocationFailure.h"

#include "TnEngines/abi/interfaces.h"
#include "TnGraphics/draw/CKelError.h"

#include <array>
#include <gtest/gtest.h>

namespace tn::test {
namespace {

class BindingStart : public EngineTest {
protected:
    /// Starts a binding that has never been started.
    bool StartAnew() {
        FreshLibrary::Forget();
        engines.ForgetLog();
        return Start();
    }

    /// Asks for a procedure that nobody has: a strict binding throws.
    static bool IsStrict() {
        constexpr std::array<abi::ProcedureName, 1> kNames = {{{"Nothing", "NobodyHasThisProc"}}};
        std::array<void*, 1> procedures = {};
        try {
            TheBinding().Acquire({"NoInterface", kNames}, procedures);
            return false;
        } catch (const CKelError&) {
            return true;
        }
    }
};

const Lines kCoreLookups = {
    "get Kel KelRegisterProcAddress KelRegisterProcAddress", "get Kel KelReportError KelReportError",
    "get Kel KelUnregisterInterface KelUnregisterInterface",
    "get Kel KelGetUnregisterCountAddr KelGetUnregisterCountAddr", "get Kel KelIsMultiThreaded KelIsMultiThreaded"};

const Lines kErrorLookups = {"get KelErrorInterface GetMessage KelErrorGetMessageProc",
                             "get KelErrorInterface GetNumber KelErrorGetNumberProc",
                             "get KelErrorInterface GetComponent KelErrorGetComponentProc",
                             "get KelErrorInterface Release KelErrorReleaseProc",
                             "get KelErrorInterface AddReference KelErrorAddReferenceProc",
                             "get KelErrorInterface GetCoreError KelGetCoreErrorProc",
                             "get KelErrorInterface NewError KelNewErrorProc"};

const Lines kMemoryLookups = {"get KelMemoryInterface Free KelFreeProc",
                              "get KelMemoryInterface Reallocate KelReallocateProc",
                              "get KelMemoryInterface Allocate KelAllocateProc"};

constexpr const char* kBaseLookup = "get KelBaseInterface GetInterfaceVersion KelGetInterfaceVersionProc";

Lines Joined(std::initializer_list<Lines> parts) {
    Lines all;
    for (const Lines& part : parts) {
        all.insert(all.end(), part.begin(), part.end());
    }
    return all;
}

TEST_F(BindingStart, AsksForEveryProcedureInOrder) {
    EXPECT_TRUE(Start());
    EXPECT_EQ(WithoutReferences(engines.Log()), Joined({kCoreLookups,
                                                        {"KelGetUnregisterCountAddr", kBaseLookup},
                                                        kErrorLookups,
                                                        {"KelGetCoreErrorProc 0", "KelGetCoreErrorProc 1"},
                                                        kMemoryLookups}));
}

TEST_F(BindingStart, MakesItStartedAndLive) {
    EXPECT_FALSE(TheBinding().IsStarted());
    EXPECT_FALSE(TheBinding().IsLive());
    EXPECT_TRUE(Start());
    EXPECT_TRUE(TheBinding().IsStarted());
    EXPECT_TRUE(TheBinding().IsLive());
}

TEST_F(BindingStart, KeepsTheCoreErrors) {
    EXPECT_TRUE(Start());
    EXPECT_EQ(TheBinding().CoreError(0), AsError(&engines.handles.CoreError(0)));
    EXPECT_EQ(TheBinding().CoreError(1), AsError(&engines.handles.CoreError(1)));
}

TEST_F(BindingStart, HandsNoNullErrorsToTheRuntime) {
    engines.givesCoreErrors = false;
    EXPECT_NO_THROW(Start());
    TheBinding().Stop();
    EXPECT_EQ(TheBinding().CoreError(0), nullptr);
    EXPECT_EQ(engines.CountOf("KelErrorAddReferenceProc null"), 0U);
    EXPECT_EQ(engines.CountOf("KelErrorReleaseProc null"), 0U);
}

TEST_F(BindingStart, NeedsNoMemory) {
    const FailAllocation failure(1);
    EXPECT_TRUE(Start());
    TheBinding().Stop();
    EXPECT_FALSE(failure.HasFailed());
}

TEST_F(BindingStart, IsStrictOnceTheCoreInterfacesAreThere) {
    EXPECT_FALSE(IsStrict());
    EXPECT_TRUE(Start());
    EXPECT_TRUE(IsStrict());
}

TEST_F(BindingStart, ASecondTimeAsksNothing) {
    EXPECT_TRUE(Start());
    engines.ForgetLog();
    EXPECT_TRUE(Start());
    EXPECT_TRUE(TheBinding().Start(RecordingEngines::SecondGetAddress()));
    EXPECT_TRUE(engines.Log().empty());
}

TEST_F(BindingStart, RefusesANullProcedure) {
    EXPECT_FALSE(TheBinding().Start(nullptr));
    EXPECT_FALSE(TheBinding().IsStarted());
    EXPECT_TRUE(engines.Log().empty());
}

TEST_F(BindingStart, WhileStartedAcceptsANullProcedure) {
    EXPECT_TRUE(Start());
    EXPECT_TRUE(TheBinding().Start(nullptr));
    EXPECT_TRUE(TheBinding().IsStarted());
}

TEST_F(BindingStart, FailsWithoutAnyCoreProcedure) {
    for (const abi::ProcedureName& name : abi::kCoreProcedures) {
        SCOPED_TRACE(name.procedure);
        engines.ShowAll();
        engines.Hide(name.procedure);
        EXPECT_FALSE(StartAnew());
        EXPECT_FALSE(TheBinding().IsStarted());
        EXPECT_FALSE(TheBinding().IsLive());
        EXPECT_TRUE(engines.Calls().empty());
        EXPECT_EQ(Without("get Kel ", engines.Log()), Lines());
    }
}

TEST_F(BindingStart, FailsWithoutTheCountersAddress) {
    engines.givesCounterAddress = false;
    EXPECT_FALSE(Start());
    EXPECT_FALSE(TheBinding().IsStarted());
    EXPECT_EQ(engines.Log(), Joined({kCoreLookups, {"KelGetUnregisterCountAddr"}}));
}

TEST_F(BindingStart, FailsWithAnotherInterfaceVersion) {
    for (const int version : {12, 14, 0, -13}) {
        SCOPED_TRACE(version);
        FreshLibrary::Forget();
        engines.ForgetLog();
        TheBinding().UseInterfaceVersion(version);
        EXPECT_FALSE(Start());
        EXPECT_FALSE(TheBinding().IsStarted());
        EXPECT_EQ(engines.CountOf(kBaseLookup), 0U);
        EXPECT_EQ(engines.Lookups(), kCoreLookups);
    }
}

TEST_F(BindingStart, NeedsInterfacesOfVersion13) {
    TheBinding().UseInterfaceVersion(13);
    EXPECT_TRUE(Start());
}

/// The lookups of an interface as far as the procedure that is missing.
Lines UpTo(const std::string& procedure, const Lines& lookups) {
    const auto last = std::ranges::find_if(lookups, [&](const std::string& line) { return line.ends_with(procedure); });
    return {lookups.begin(), last + 1};
}

TEST_F(BindingStart, FailsWithoutAnyProcedureOfTheErrorInterface) {
    for (const abi::ProcedureName& name : abi::kErrorProcedures) {
        SCOPED_TRACE(name.procedure);
        engines.ShowAll();
        engines.Hide(name.procedure);
        EXPECT_FALSE(StartAnew());
        EXPECT_FALSE(TheBinding().IsStarted());
        EXPECT_FALSE(IsStrict());
        engines.ForgetLog();
        EXPECT_FALSE(Start());
        EXPECT_EQ(
            engines.Log(),
            Joined({kCoreLookups, {"KelGetUnregisterCountAddr", kBaseLookup}, UpTo(name.procedure, kErrorLookups)}));
    }
}

TEST_F(BindingStart, FailsWithoutAnyProcedureOfTheMemoryInterface) {
    for (const abi::ProcedureName& name : abi::kMemoryProcedures) {
        SCOPED_TRACE(name.procedure);
        engines.ShowAll();
        engines.Hide(name.procedure);
        EXPECT_FALSE(StartAnew());
        EXPECT_FALSE(TheBinding().IsStarted());
        EXPECT_EQ(Without("get KelError", Without("get KelBase", Without("get Kel ", engines.Lookups()))),
                  UpTo(name.procedure, kMemoryLookups));
        EXPECT_EQ(engines.handles.Unbalanced(), Lines());
    }
}

TEST_F(BindingStart, FailsWithoutTheBaseInterface) {
    engines.Hide("KelGetInterfaceVersionProc");
    EXPECT_FALSE(Start());
    EXPECT_FALSE(TheBinding().IsStarted());
    EXPECT_EQ(engines.Lookups(), Joined({kCoreLookups, {kBaseLookup}}));
}

TEST_F(BindingStart, CanBeTriedAgainAfterItFailed) {
    for (const char* missing : {"KelReportError", "KelNewErrorProc", "KelAllocateProc"}) {
        SCOPED_TRACE(missing);
        engines.Hide(missing);
        EXPECT_FALSE(StartAnew());
        engines.ShowAll();
        EXPECT_TRUE(Start());
        EXPECT_TRUE(TheBinding().IsLive());
        TheBinding().Stop();
    }
}

TEST_F(BindingStart, KeepsTheProcedureOfAFailedStart) {
    engines.Hide("KelAllocateProc");
    EXPECT_FALSE(Start());
    constexpr std::array<abi::ProcedureName, 1> kNames = {{{"Free", "KelFreeProc"}}};
    std::array<void*, 1> procedures = {};
    EXPECT_TRUE(TheBinding().Acquire({"KelMemoryInterface", kNames}, procedures));
    EXPECT_NE(procedures[0], nullptr);
}

TEST_F(BindingStart, IsLaxAgainWhenItIsTriedAgain) {
    EXPECT_TRUE(Start());
    TheBinding().Stop();
    engines.Hide("KelReallocateProc");
    EXPECT_FALSE(Start());
    EXPECT_FALSE(IsStrict());
}

TEST_F(BindingStart, AsksTheProcedureItIsGivenNow) {
    EXPECT_TRUE(Start());
    TheBinding().Stop();
    engines.ForgetLog();
    EXPECT_TRUE(TheBinding().Start(RecordingEngines::SecondGetAddress()));
    EXPECT_EQ(Without("get-2 ", engines.Lookups()), Lines());
    EXPECT_EQ(engines.Lookups().size(), 16U);
}

} // namespace
} // namespace tn::test
