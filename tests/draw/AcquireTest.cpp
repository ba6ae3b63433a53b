// Finding the procedures of an interface.
#include "tests/fakes/EngineTest.h"

#include "TnGraphics/draw/Binding.h"
#include "TnGraphics/draw/CKelError.h"

#include <array>
#include <gtest/gtest.h>

namespace tn::test {
namespace {

constexpr std::array<abi::ProcedureName, 3> kNames = {
    {{"First", "FirstProc"}, {"Second", "SecondProcV2"}, {"Third", "ThirdProcV5"}}};
constexpr InterfaceRequest kRequest = {"SomeInterface", kNames};

class Acquire : public EngineTest {
protected:
    Acquire() {
        for (std::size_t i = 0; i < kNames.size(); ++i) {
            engines.Offer("SomeInterface", kNames[i].procedure, &places[i]);
        }
    }

    bool AcquireAll() { return TheBinding().Acquire(kRequest, procedures); }

    /// Asks while the binding is lax but knows whom to ask.
    void FailToStart() {
        engines.Hide("KelAllocateProc");
        EXPECT_FALSE(Start());
        engines.ShowAll();
        engines.ForgetLog();
    }

    void StartStrictly() {
        EXPECT_TRUE(Start());
        engines.ForgetLog();
    }

    std::array<int, 3> places = {};
    std::array<void*, 3> procedures = {};
};

TEST_F(Acquire, AsksByInterfaceMethodAndProcedureFromTheLastToTheFirst) {
    StartStrictly();
    EXPECT_TRUE(AcquireAll());
    EXPECT_EQ(engines.Log(), (Lines{"get SomeInterface Third ThirdProcV5", "get SomeInterface Second SecondProcV2",
                                    "get SomeInterface First FirstProc"}));
}

TEST_F(Acquire, StoresEachProcedureAtItsPlace) {
    StartStrictly();
    EXPECT_TRUE(AcquireAll());
    EXPECT_EQ(procedures, (std::array<void*, 3>{&places[0], &places[1], &places[2]}));
}

TEST_F(Acquire, ReplacesWhatWasThere) {
    StartStrictly();
    procedures.fill(this);
    EXPECT_TRUE(AcquireAll());
    EXPECT_EQ(procedures, (std::array<void*, 3>{&places[0], &places[1], &places[2]}));
}

TEST_F(Acquire, OfNothingSucceedsWithoutAsking) {
    EXPECT_TRUE(TheBinding().Acquire({"SomeInterface", {}}, {}));
    StartStrictly();
    EXPECT_TRUE(TheBinding().Acquire({"SomeInterface", {}}, {}));
    EXPECT_TRUE(engines.Log().empty());
}

TEST_F(Acquire, LaxlyGivesFalseAndKeepsWhatItFound) {
    FailToStart();
    engines.Hide("SecondProcV2");
    procedures.fill(this);
    EXPECT_FALSE(AcquireAll());
    EXPECT_EQ(procedures, (std::array<void*, 3>{this, nullptr, &places[2]}));
}

TEST_F(Acquire, LaxlyStopsAskingAtTheFirstNull) {
    FailToStart();
    engines.Hide("SecondProcV2");
    EXPECT_FALSE(AcquireAll());
    EXPECT_EQ(engines.Log(), (Lines{"get SomeInterface Third ThirdProcV5", "get SomeInterface Second SecondProcV2"}));
}

TEST_F(Acquire, LaxlyFindsAllThatIsThere) {
    FailToStart();
    EXPECT_TRUE(AcquireAll());
    EXPECT_EQ(procedures, (std::array<void*, 3>{&places[0], &places[1], &places[2]}));
}

TEST_F(Acquire, BeforeAnyStartFindsNothing) {
    EXPECT_FALSE(AcquireAll());
    EXPECT_TRUE(engines.Log().empty());
}

TEST_F(Acquire, StrictlyThrowsAnErrorWithoutAText) {
    StartStrictly();
    engines.Hide("SecondProcV2");
    try {
        AcquireAll();
        ADD_FAILURE() << "nothing is thrown";
    } catch (const CKelError& error) {
        EXPECT_STREQ(error.what(), "");
        EXPECT_STREQ(error.Component(), "Kel");
    }
    EXPECT_EQ(procedures, (std::array<void*, 3>{nullptr, nullptr, &places[2]}));
    EXPECT_EQ(engines.CountOf("KelNewErrorProc \"\" Kel 0"), 1U);
    EXPECT_EQ(engines.Lookups(),
              (Lines{"get SomeInterface Third ThirdProcV5", "get SomeInterface Second SecondProcV2"}));
    EXPECT_EQ(engines.handles.ReferencesTo(&engines.handles.CoreError(0)),
              engines.handles.ReferencesTo(&engines.handles.CoreError(1)));
}

TEST_F(Acquire, StrictlyMissesNoPlace) {
    StartStrictly();
    for (const abi::ProcedureName& name : kNames) {
        engines.ShowAll();
        engines.Hide(name.procedure);
        EXPECT_THROW(AcquireAll(), CKelError) << name.procedure;
    }
}

TEST_F(Acquire, AsksForOneVersionOfAProcedureOnly) {
    StartStrictly();
    engines.Hide("ThirdProcV5");
    engines.Offer("SomeInterface", "ThirdProc", &places[2]);
    engines.Offer("SomeInterface", "ThirdProcV4", &places[2]);
    EXPECT_THROW(AcquireAll(), CKelError);
    EXPECT_EQ(engines.Lookups(), Lines{"get SomeInterface Third ThirdProcV5"});
}

} // namespace
} // namespace tn::test
