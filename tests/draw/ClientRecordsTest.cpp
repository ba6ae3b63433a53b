#include "TnGraphics/draw/ClientRecords.h"

#include "tests/draw/NotingRecords.h"
#include "tests/fakes/EngineTest.h"

#include "TnGraphics/draw/CKelError.h"

#include <gtest/gtest.h>
#include <optional>
#include <set>
#include <string>

namespace tn::test {
namespace {

constexpr std::array<abi::ProcedureName, 1> kFreeName = {{{"Free", "KelFreeProc"}}};
enum class FreePlace { kFree };
ProcedureTable<FreePlace, 1> someTable = {"KelMemoryInterface", kFreeName};

bool UseTable() { return TheBinding().Validate(someTable.Cache(), Need::kRequired); }

bool RaiseCounterAndFail() {
    ++RecordingEngines::UnregisterCount();
    return false;
}

void StopNothing() {}

constexpr std::array<ClientRecord, 1> kTableUsers = {{{"user", &UseTable, &StopNothing}}};
constexpr std::array<ClientRecord, 1> kRaisers = {{{"raiser", &RaiseCounterAndFail, &StopNothing}}};

class ClientRecords : public EngineTest {
protected:
    ClientRecords() {
        outcomes = {};
        stopsThrow = false;
        TheBinding().UseClients(kNotingRecords);
    }

    /// What the records and the container interface noted.
    Lines Noted() const { return Without("KelG", WithoutReferences(engines.Calls())); }
};

TEST_F(ClientRecords, StartInOrderAfterEverythingElse) {
    EXPECT_TRUE(Start());
    EXPECT_EQ(Noted(), (Lines{"start 1", "start 2", "start 3"}));
    const Lines log = engines.Log();
    EXPECT_EQ(Lines(log.end() - 3, log.end()), (Lines{"start 1", "start 2", "start 3"}));
}

TEST_F(ClientRecords, StartWhileItIsStrictButNotYetLive) {
    bool isLive = true;
    bool isStrict = false;
    engines.whenCalled = [&](const std::string& call) {
        if (call == "start 2") {
            isLive = TheBinding().IsLive();
            constexpr std::array<abi::ProcedureName, 1> kNames = {{{"Nothing", "NobodyHasThisProc"}}};
            std::array<void*, 1> procedures = {};
            try {
                TheBinding().Acquire({"NoInterface", kNames}, procedures);
            } catch (const CKelError&) {
                isStrict = true;
            }
        }
    };
    EXPECT_TRUE(Start());
    EXPECT_FALSE(isLive);
    EXPECT_TRUE(isStrict);
}

TEST_F(ClientRecords, MayUseTablesWhenTheyStart) {
    TheBinding().UseClients(kTableUsers);
    EXPECT_TRUE(Start());
}

TEST_F(ClientRecords, ThatFailAndRaiseTheCounterLeaveNoOldProcedureInUse) {
    TheBinding().UseClients(kRaisers);
    EXPECT_FALSE(Start());
    EXPECT_EQ(engines.CountOf("get KelErrorInterface Release KelErrorReleaseProc"), 2U);
    EXPECT_EQ(engines.handles.Unbalanced(), Lines());
}

TEST_F(ClientRecords, BeforeAFailingOneAreStoppedInOrder) {
    for (const Outcome outcome : {Outcome::kFails, Outcome::kThrowsException, Outcome::kThrowsNumber}) {
        outcomes = {Outcome::kStarts, Outcome::kStarts, outcome};
        engines.ForgetLog();
        EXPECT_FALSE(Start());
        EXPECT_FALSE(TheBinding().IsStarted());
        EXPECT_FALSE(TheBinding().IsLive());
        EXPECT_EQ(Noted(), (Lines{"start 1", "start 2", "start 3", "stop 1", "stop 2"}));
    }
}

TEST_F(ClientRecords, AfterAFailingOneAreNotStarted) {
    for (const Outcome outcome : {Outcome::kFails, Outcome::kThrowsException, Outcome::kThrowsNumber}) {
        outcomes = {Outcome::kStarts, outcome, Outcome::kStarts};
        engines.ForgetLog();
        EXPECT_FALSE(Start());
        EXPECT_EQ(Noted(), (Lines{"start 1", "start 2", "stop 1"}));
    }
}

TEST_F(ClientRecords, AreNotStoppedWhenTheFirstFails) {
    outcomes = {Outcome::kFails, Outcome::kStarts, Outcome::kStarts};
    EXPECT_FALSE(Start());
    EXPECT_EQ(Noted(), Lines{"start 1"});
}

TEST_F(ClientRecords, ThatFailedLeaveNoReferences) {
    outcomes[1] = Outcome::kThrowsException;
    EXPECT_FALSE(Start());
    EXPECT_EQ(engines.handles.Unbalanced(), Lines());
}

TEST_F(ClientRecords, ThatFailedAreStartedByTheNextStart) {
    outcomes[1] = Outcome::kFails;
    EXPECT_FALSE(Start());
    outcomes[1] = Outcome::kStarts;
    engines.ForgetLog();
    EXPECT_TRUE(Start());
    EXPECT_EQ(Noted(), (Lines{"start 1", "start 2", "start 3"}));
    EXPECT_TRUE(TheBinding().IsLive());
}

TEST_F(ClientRecords, AreNotStartedWithoutTheCoreInterfaces) {
    engines.Hide("KelAllocateProc");
    EXPECT_FALSE(Start());
    EXPECT_EQ(Noted(), Lines());
}

TEST_F(ClientRecords, AreLeftAloneByASecondStart) {
    EXPECT_TRUE(Start());
    engines.ForgetLog();
    EXPECT_TRUE(Start());
    EXPECT_EQ(Noted(), Lines());
}

TEST_F(ClientRecords, StopInOrder) {
    EXPECT_TRUE(Start());
    engines.ForgetLog();
    TheBinding().Stop();
    EXPECT_EQ(Noted(), (Lines{"stop 1", "stop 2", "stop 3"}));
}

TEST_F(ClientRecords, AreAllStoppedWhateverTheyThrow) {
    stopsThrow = true;
    EXPECT_TRUE(Start());
    engines.ForgetLog();
    EXPECT_NO_THROW(TheBinding().Stop());
    EXPECT_EQ(Noted(), (Lines{"stop 1", "stop 2", "stop 3"}));
    EXPECT_FALSE(TheBinding().IsStarted());
}

TEST_F(ClientRecords, BeforeAFailingOneAreAllStoppedWhateverTheyThrow) {
    stopsThrow = true;
    outcomes[2] = Outcome::kFails;
    EXPECT_NO_THROW(EXPECT_FALSE(Start()));
    EXPECT_EQ(Noted(), (Lines{"start 1", "start 2", "start 3", "stop 1", "stop 2"}));
}

TEST_F(ClientRecords, StopWhenItIsNoLongerLive) {
    EXPECT_TRUE(Start());
    std::optional<bool> isLive;
    engines.whenCalled = [&](const std::string& call) {
        if (call == "stop 1") {
            isLive = TheBinding().IsLive();
        }
    };
    TheBinding().Stop();
    EXPECT_EQ(isLive, false);
}

TEST_F(ClientRecords, OfTheLibraryAreOneForEachKindOfSharedObject) {
    std::set<std::string> names;
    for (const ClientRecord& record : kSharedKindRecords) {
        names.insert(record.name);
        EXPECT_TRUE(record.start());
        record.stop();
    }
    EXPECT_EQ(names.size(), 10U);
    EXPECT_TRUE(engines.Log().empty());
}

class Containers : public ClientRecords {};

TEST_F(Containers, AreNobodysConcernWhileThereAreNone) {
    EXPECT_TRUE(Start());
    TheBinding().Stop();
    EXPECT_EQ(Without("get KelContainerInterface", engines.Log()), engines.Log());
    EXPECT_EQ(Without("KelRegisterContainer", engines.Log()), engines.Log());
    EXPECT_EQ(Without("KelUnregisterContainer", engines.Log()), engines.Log());
}

TEST_F(Containers, AreRegisteredAfterTheClientRecords) {
    TheBinding().UseContainers(kNotingContainers);
    EXPECT_TRUE(Start());
    EXPECT_EQ(Noted(), (Lines{"start 1", "start 2", "start 3", "KelRegisterContainerCallbackProc 1"}));
    EXPECT_NE(engines.containerCallback, nullptr);
    EXPECT_TRUE(TheBinding().IsLive());
}

TEST_F(Containers, AreNotRegisteredWhenAClientRecordFails) {
    TheBinding().UseContainers(kNotingContainers);
    outcomes[2] = Outcome::kFails;
    EXPECT_FALSE(Start());
    EXPECT_EQ(engines.CountOf("KelRegisterContainerCallbackProc 1"), 0U);
}

TEST_F(Containers, HaveACallbackThatAcceptsEveryEvent) {
    TheBinding().UseContainers(kNotingContainers);
    EXPECT_TRUE(Start());
    EXPECT_EQ(engines.containerCallback(nullptr, 0), nullptr);
    EXPECT_EQ(engines.containerCallback(&engines, 1), nullptr);
}

TEST_F(Containers, AreUnregisteredAndStoppedBeforeTheClientRecords) {
    TheBinding().UseContainers(kNotingContainers);
    EXPECT_TRUE(Start());
    engines.ForgetLog();
    TheBinding().Stop();
    EXPECT_EQ(Noted(), (Lines{"KelUnregisterContainerCallbackProc 1", "stop container 1", "stop container 2", "stop 1",
                              "stop 2", "stop 3"}));
    EXPECT_EQ(engines.containerCallback, nullptr);
}

TEST_F(Containers, AreUnregisteredThroughAValidTable) {
    TheBinding().UseContainers(kNotingContainers);
    EXPECT_TRUE(Start());
    engines.ForgetLog();
    TheBinding().Stop();
    EXPECT_EQ(Without("get KelContainerInterface", engines.Log()), engines.Log());

    EXPECT_TRUE(Start());
    ++RecordingEngines::UnregisterCount();
    engines.ForgetLog();
    TheBinding().Stop();
    const Lines log = engines.Log();
    EXPECT_LT(PlaceOf("get KelContainerInterface RegisterCallback KelRegisterContainerCallbackProc", log),
              PlaceOf("KelUnregisterContainerCallbackProc 1", log));
    EXPECT_LT(PlaceOf("KelUnregisterContainerCallbackProc 1", log), log.size());
}

TEST_F(Containers, AreStoppedEvenIfTheyCannotBeUnregistered) {
    TheBinding().UseContainers(kNotingContainers);
    EXPECT_TRUE(Start());
    ++RecordingEngines::UnregisterCount();
    engines.Hide("KelUnregisterContainerCallbackProc");
    engines.ForgetLog();
    TheBinding().Stop();
    EXPECT_EQ(engines.CountOf("KelUnregisterContainerCallbackProc 1"), 0U);
    EXPECT_EQ(Without("KelNewErrorProc", Noted()),
              (Lines{"stop container 1", "stop container 2", "stop 1", "stop 2", "stop 3"}));
    EXPECT_FALSE(TheBinding().IsStarted());
}

TEST_F(Containers, WithoutTheirInterfaceFailTheStart) {
    TheBinding().UseContainers(kNotingContainers);
    engines.Hide("KelRegisterContainerCallbackProc");
    EXPECT_FALSE(Start());
    EXPECT_FALSE(TheBinding().IsStarted());
    EXPECT_EQ(Without("KelNewErrorProc", Noted()),
              (Lines{"start 1", "start 2", "start 3", "stop 1", "stop 2", "stop 3"}));
    EXPECT_EQ(engines.handles.Unbalanced(), Lines());
}

TEST_F(Containers, MayBeRefusedByTheRuntime) {
    TheBinding().UseContainers(kNotingContainers);
    engines.Fail("KelRegisterContainerCallbackProc", "no containers today", "Kel", 3);
    EXPECT_TRUE(Start());
    EXPECT_TRUE(TheBinding().IsLive());
    EXPECT_EQ(engines.CountOf("KelRegisterContainerCallbackProc 1"), 1U);
    EXPECT_EQ(engines.containerCallback, nullptr);
    TheBinding().Stop();
    engines.LetAllGo();
    EXPECT_EQ(engines.handles.Unbalanced(), Lines());
}

} // namespace
} // namespace tn::test
