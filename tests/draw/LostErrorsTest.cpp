// Errors while the runtime has taken their procedures away.
#include "TnGraphics/draw/EngineErrors.h"

#include "tests/fakes/EngineTest.h"

#include "TnGraphics/draw/CKelError.h"

#include <cstddef>
#include <gtest/gtest.h>
#include <string>

namespace tn::test {
namespace {

constexpr const char* NameOf(abi::Error which) {
    return abi::kErrorProcedures[static_cast<std::size_t>(which)].procedure;
}

bool areGone = false;

/// The runtime's procedure of errors, until it goes away: then nobody may call it any more.
template <abi::Error which, class Type> struct Leaving;
template <abi::Error which, class Result, class... Arguments> struct Leaving<which, Result (*)(Arguments...)> {
    static Result Call(Arguments... arguments) {
        EXPECT_FALSE(areGone) << NameOf(which) << " is called after it went away";
        void* const own = RuntimeProcedure("KelErrorInterface", NameOf(which));
        return reinterpret_cast<Result (*)(Arguments...)>(own)(arguments...);
    }
};

/// Each test is for a procedure that does not come back.
class LostErrors : public EngineTest, public testing::WithParamInterface<abi::Error> {
protected:
    LostErrors() {
        areGone = false;
        Offer<abi::Error::kNewError, KelNewErrorType>();
        Offer<abi::Error::kGetCoreError, KelGetCoreErrorType>();
        Offer<abi::Error::kAddReference, KelErrorAddReferenceType>();
        Offer<abi::Error::kRelease, KelErrorReleaseType>();
        Offer<abi::Error::kGetComponent, KelErrorGetComponentType>();
        Offer<abi::Error::kGetNumber, KelErrorGetNumberType>();
        Offer<abi::Error::kGetMessage, KelErrorGetMessageType>();
        EXPECT_TRUE(Start());
    }

    void TakeErrorsAway() {
        engines.Unregister("KelErrorInterface");
        areGone = true;
        engines.Hide(NameOf(GetParam()));
        engines.ForgetLog();
    }

private:
    template <abi::Error which, class Type> void Offer() {
        engines.Offer("KelErrorInterface", NameOf(which), reinterpret_cast<void*>(&Leaving<which, Type>::Call));
    }
};

TEST_P(LostErrors, SayNothing) {
    const KelError error = engines.KeepError("late", "Vec", 7);
    const CKelError held(error);
    TakeErrorsAway();
    EXPECT_STREQ(held.what(), "");
    EXPECT_STREQ(held.Component(), "");
    EXPECT_EQ(held.Number(), 0);
    EXPECT_EQ(engines.Calls(), Lines());
    engines.ShowAll();
    EXPECT_STREQ(held.what(), "late");
    EXPECT_STREQ(held.Component(), "Vec");
    EXPECT_EQ(held.Number(), 7);
}

TEST_P(LostErrors, AddAndDropNoReferences) {
    const KelError error = engines.KeepError("late", "Vec", 7);
    const CKelError held(error);
    TakeErrorsAway();
    {
        const CKelError another(error);
        CKelError copy(held);
        copy = another;
    }
    EXPECT_EQ(engines.Calls(), Lines());
    EXPECT_EQ(engines.handles.ReferencesTo(error), 2);
    engines.ShowAll();
}

TEST_P(LostErrors, AreThrownWithoutAText) {
    TakeErrorsAway();
    EXPECT_EQ(NewError("some text"), nullptr);
    try {
        ThrowNewError("some text");
    } catch (const CKelError& error) {
        EXPECT_EQ(error.Handle(), nullptr);
        EXPECT_STREQ(error.what(), "");
    }
    EXPECT_EQ(engines.Calls(), Lines());
    engines.ShowAll();
}

TEST_P(LostErrors, AreLeftToThemselvesByTheStop) {
    TakeErrorsAway();
    TheBinding().Stop();
    EXPECT_FALSE(TheBinding().IsStarted());
    EXPECT_EQ(engines.Calls(), Lines());
    EXPECT_EQ(engines.handles.Unbalanced(), (Lines{"core#0: 1", "core#1: 1"}));
    for (const int number : {0, 1}) {
        engines.handles.Release("the runtime that went away", &engines.handles.CoreError(number),
                                HandleKind::kCoreError);
    }
}

using enum abi::Error;
INSTANTIATE_TEST_SUITE_P(Without, LostErrors,
                         testing::Values(kNewError, kGetCoreError, kAddReference, kRelease, kGetComponent, kGetNumber,
                                         kGetMessage),
                         [](const auto& test) { return std::string(NameOf(test.param)); });

} // namespace
} // namespace tn::test
