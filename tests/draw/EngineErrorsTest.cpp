#include "TnGraphics/draw/EngineErrors.h"

#include "tests/fakes/EngineTest.h"
#include "tests/support/AllocationFailure.h"

#include "TnGraphics/draw/CKelError.h"

#include <exception>
#include <gtest/gtest.h>
#include <new>
#include <optional>
#include <type_traits>
#include <utility>

namespace tn::test {
namespace {

class EngineErrors : public EngineTest {
protected:
    EngineErrors() {
        EXPECT_TRUE(Start());
        engines.ForgetLog();
    }

    static void ExpectKelError(KelError error) {
        try {
            ThrowIfError(error);
            ADD_FAILURE() << "nothing is thrown";
        } catch (const CKelError& thrown) {
            EXPECT_EQ(thrown.Handle(), error);
        }
    }

    static void ExpectExhaustedMemory(KelError error) {
        try {
            ThrowIfError(error);
            ADD_FAILURE() << "nothing is thrown";
        } catch (const std::bad_alloc& thrown) {
            EXPECT_STREQ(thrown.what(), "bad allocation");
        }
    }
};

TEST_F(EngineErrors, ThatAreNullAreNone) {
    EXPECT_NO_THROW(ThrowIfError(nullptr));
    EXPECT_TRUE(engines.Log().empty());
}

TEST_F(EngineErrors, OfTheCoreWithNumberOneAreExhaustedMemory) {
    ExpectExhaustedMemory(engines.KeepError("no room", "QMZ", 1));
    ExpectExhaustedMemory(AsError(&engines.handles.CoreError(1)));
}

TEST_F(EngineErrors, OfTheCoreWithOtherNumbersAreKelErrors) {
    for (const std::int32_t number : {2, 0, -1, 257, 0x10001}) {
        SCOPED_TRACE(number);
        ExpectKelError(engines.KeepError("no luck", "QMZ", number));
    }
}

TEST_F(EngineErrors, OfOtherSignaturesAreKelErrors) {
    for (const char* component : {"QMZX", "QMZ ", "QM", "Q", "", "qmz", "QMY", "Kel", "Vec"}) {
        SCOPED_TRACE(component);
        ExpectKelError(engines.KeepError("no luck", component, 1));
    }
}

TEST_F(EngineErrors, ThatAreExhaustedMemoryLeaveNoReference) {
    const KelError error = engines.KeepError("no room", "QMZ", 1);
    ExpectExhaustedMemory(error);
    EXPECT_EQ(engines.handles.ReferencesTo(error), 1);
}

TEST_F(EngineErrors, ThatAreThrownLeaveNoReference) {
    const KelError error = engines.KeepError("no luck", "Vec", 7);
    ExpectKelError(error);
    EXPECT_EQ(engines.handles.ReferencesTo(error), 1);
}

TEST_F(EngineErrors, MayBeForgottenByTheEngineWhileTheyAreThrown) {
    const KelError error = engines.KeepError("no luck", "Vec", 7);
    try {
        ThrowIfError(error);
        ADD_FAILURE() << "nothing is thrown";
    } catch (const CKelError& thrown) {
        engines.LetGo(error);
        EXPECT_EQ(engines.handles.ReferencesTo(error), 1);
        EXPECT_STREQ(thrown.what(), "no luck");
        EXPECT_STREQ(thrown.Component(), "Vec");
        EXPECT_EQ(thrown.Number(), 7);
    }
    EXPECT_EQ(engines.handles.ReferencesTo(error), 0);
}

TEST_F(EngineErrors, AreThrownWithoutMemory) {
    const KelError exhausted = engines.KeepError("no room", "QMZ", 1);
    const KelError other = engines.KeepError("no luck", "Vec", 7);
    const FailAllocation failure(1);
    ExpectExhaustedMemory(exhausted);
    ExpectKelError(other);
    EXPECT_FALSE(failure.HasFailed());
}

using TheKelError = EngineErrors;

TEST_F(TheKelError, IsAStandardException) {
    EXPECT_TRUE((std::is_base_of_v<std::exception, CKelError>));
    EXPECT_FALSE((std::is_base_of_v<std::bad_alloc, CKelError>));
}

TEST_F(TheKelError, AddsAndDropsOneReference) {
    const KelError error = engines.KeepError("no luck", "Vec", 7);
    {
        const CKelError held(error);
        EXPECT_EQ(engines.Calls(), Lines{"KelErrorAddReferenceProc error#1"});
        EXPECT_EQ(engines.handles.ReferencesTo(error), 2);
    }
    EXPECT_EQ(engines.Calls(), (Lines{"KelErrorAddReferenceProc error#1", "KelErrorReleaseProc error#1"}));
}

TEST_F(TheKelError, SharesItsErrorWithCopies) {
    const KelError error = engines.KeepError("no luck", "Vec", 7);
    std::optional<CKelError> first(error);
    const CKelError second(*first);
    EXPECT_EQ(engines.handles.ReferencesTo(error), 3);
    first.reset();
    engines.LetGo(error);
    EXPECT_EQ(engines.handles.ReferencesTo(error), 1);
    EXPECT_STREQ(second.what(), "no luck");
}

TEST_F(TheKelError, DropsItsErrorForAnother) {
    const KelError one = engines.KeepError("one", "Vec", 1);
    const KelError two = engines.KeepError("two", "Vec", 2);
    CKelError error(one);
    error = CKelError(two);
    EXPECT_EQ(engines.handles.ReferencesTo(one), 1);
    EXPECT_EQ(engines.handles.ReferencesTo(two), 2);
    EXPECT_STREQ(error.what(), "two");
}

TEST_F(TheKelError, MayBeAssignedToItself) {
    const KelError one = engines.KeepError("one", "Vec", 1);
    CKelError error(one);
    engines.LetGo(one);
    const CKelError& same = error;
    error = same;
    EXPECT_EQ(engines.handles.ReferencesTo(one), 1);
    EXPECT_STREQ(error.what(), "one");
}

TEST_F(TheKelError, MayHoldNoError) {
    const CKelError none(nullptr);
    const CKelError copy(none);
    EXPECT_STREQ(copy.what(), "");
    EXPECT_STREQ(copy.Component(), "");
    EXPECT_EQ(copy.Number(), 0);
    EXPECT_TRUE(engines.Log().empty());
}

TEST_F(TheKelError, MayOutliveTheBinding) {
    const KelError error = engines.KeepError("late", "Vec", 7);
    {
        const CKelError held(error);
        engines.LetGo(error);
        TheBinding().Stop();
        EXPECT_STREQ(held.what(), "late");
        EXPECT_EQ(engines.handles.ReferencesTo(error), 1);
    }
    EXPECT_EQ(engines.handles.ReferencesTo(error), 0);
}

TEST_F(TheKelError, MayOutliveTheBindingInTheAirToo) {
    const KelError error = engines.KeepError("late", "Vec", 7);
    std::exception_ptr thrown;
    try {
        ThrowIfError(error);
    } catch (...) {
        thrown = std::current_exception();
    }
    engines.LetGo(error);
    TheBinding().Stop();
    EXPECT_EQ(engines.handles.ReferencesTo(error), 1);
    thrown = nullptr;
    EXPECT_EQ(engines.handles.ReferencesTo(error), 0);
}

TEST_F(TheKelError, ReleasesThroughValidProcedures) {
    const KelError error = engines.KeepError("one", "Vec", 7);
    {
        const CKelError held(error);
        ++RecordingEngines::UnregisterCount();
        engines.ForgetLog();
    }
    EXPECT_LT(PlaceOf("get KelErrorInterface Release KelErrorReleaseProc", engines.Log()),
              PlaceOf("KelErrorReleaseProc error#1", engines.Log()));
    EXPECT_EQ(engines.handles.ReferencesTo(error), 1);
}

TEST_F(TheKelError, ReleasesThroughValidProceduresAfterTheStopToo) {
    const KelError error = engines.KeepError("late", "Vec", 7);
    {
        const CKelError held(error);
        TheBinding().Stop();
        ++RecordingEngines::UnregisterCount();
        engines.ForgetLog();
    }
    EXPECT_LT(PlaceOf("get KelErrorInterface Release KelErrorReleaseProc", engines.Log()),
              PlaceOf("KelErrorReleaseProc error#1", engines.Log()));
}

TEST_F(TheKelError, LetsNoReferenceOfANewErrorBehind) {
    try {
        ThrowNewError("some text");
    } catch (const CKelError& error) {
        EXPECT_STREQ(error.what(), "some text");
        EXPECT_STREQ(error.Component(), "Kel");
    }
    EXPECT_EQ(engines.CountOf("KelNewErrorProc \"some text\" Kel 0"), 1U);
    TheBinding().Stop();
    EXPECT_EQ(engines.handles.Unbalanced(), Lines());
}

} // namespace
} // namespace tn::test
