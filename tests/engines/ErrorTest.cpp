#include "tests/engines/Runtime.h"
#include "tests/support/AllocationFailure.h"

#include "TnEngines/kel/ReportedError.h"

#include <limits>
#include <string>

namespace tn::test {
namespace {

const std::string kLongText(300, 'm');
const std::string kLongComponent(300, 'c');

TEST(KelError, SaysWhatItWasMadeOf) {
    const ErrorProcedures errors;
    const KelError error = errors.make("client playEPS failed", "Kel", 7);
    ASSERT_NE(error, nullptr);
    ExpectError(error, "client playEPS failed", "Kel", 7);
    errors.release(error);
}

TEST(KelError, KeepsEveryNumber) {
    const ErrorProcedures errors;
    for (const std::int32_t number :
         {std::numeric_limits<std::int32_t>::min(), -1, 0, 1, std::numeric_limits<std::int32_t>::max()}) {
        const KelError error = errors.make("", "Kel", number);
        EXPECT_EQ(errors.number(error), number);
        errors.release(error);
    }
}

TEST(KelError, CopiesItsTexts) {
    const ErrorProcedures errors;
    std::string message = kLongText;
    std::string component = "Host";
    const KelError error = errors.make(message.c_str(), component.c_str(), 3);
    message.assign(message.size(), 'x');
    component.assign(component.size(), 'x');
    ExpectError(error, kLongText.c_str(), "Host", 3);
    errors.release(error);
}

TEST(KelError, KeepsItsTextsAtOnePlace) {
    const ErrorProcedures errors;
    const KelError error = errors.make(kLongText.c_str(), "Host", 3);
    EXPECT_EQ(errors.message(error), errors.message(error));
    EXPECT_EQ(errors.component(error), errors.component(error));
    errors.release(error);
}

TEST(KelError, TakesNullTextsAsEmpty) {
    const ErrorProcedures errors;
    const KelError error = errors.make(nullptr, nullptr, 3);
    ExpectError(error, "", "", 3);
    errors.release(error);
}

TEST(KelError, LivesUntilItsLastReferenceIsReleased) {
    const ErrorProcedures errors;
    const std::int64_t before = LiveAllocations();
    const KelError error = errors.make("message", "Host", 3);
    const std::int64_t alive = LiveAllocations();
    EXPECT_GT(alive, before);
    errors.addReference(error);
    errors.addReference(error);
    errors.release(error);
    errors.release(error);
    EXPECT_EQ(LiveAllocations(), alive);
    ExpectError(error, "message", "Host", 3);
    errors.release(error);
    EXPECT_EQ(LiveAllocations(), before);
}

TEST(KelError, OfThatComponentIsAnErrorOfItsOwnEachTime) {
    const ErrorProcedures errors;
    const KelError first = errors.make("message", "Host", 3);
    const KelError second = errors.make("message", "Host", 3);
    EXPECT_NE(first, second);
    errors.release(first);
    ExpectError(second, "message", "Host", 3);
    errors.release(second);
}

TEST(KelError, MayBeMadeWithTheCoresSignature) {
    const ErrorProcedures errors;
    const KelError error = errors.make("message", "QMZ", 1);
    EXPECT_NE(error, errors.core(1));
    ExpectError(error, "message", "QMZ", 1);
    errors.release(error);
}

TEST(KelError, WithoutMemoryIsTheCoresOutOfMemory) {
    const ErrorProcedures errors;
    const std::int64_t before = LiveAllocations();
    int failures = 0;
    for (bool failed = true; failed; failures += failed ? 1 : 0) {
        const FailAllocation fail(failures + 1);
        const KelError error = errors.make(kLongText.c_str(), kLongComponent.c_str(), 3);
        failed = fail.HasFailed();
        EXPECT_EQ(error == errors.core(1), failed) << "allocation " << failures + 1;
        errors.release(error);
        EXPECT_EQ(LiveAllocations(), before);
    }
    EXPECT_GT(failures, 0);
}

TEST(KelError, LetsNoExceptionOut) {
    const ErrorProcedures errors;
    const FailAllocation fail(1, AllocationFault::kOther);
    EXPECT_EQ(errors.make("message", "Host", 3), errors.core(1));
    EXPECT_TRUE(fail.HasFailed());
}

TEST(KelError, OfNullIsNoError) {
    const ErrorProcedures errors;
    ExpectError(nullptr, "", "", 0);
    errors.addReference(nullptr);
    errors.release(nullptr);
}

TEST(KelCoreError, HasTheSignatureAndItsNumber) {
    const ErrorProcedures errors;
    for (const std::int32_t number : {0, 1}) {
        const KelError error = errors.core(number);
        ASSERT_NE(error, nullptr);
        EXPECT_STREQ(errors.component(error), "QMZ");
        EXPECT_EQ(errors.number(error), number);
        EXPECT_STRNE(errors.message(error), "");
    }
    EXPECT_NE(errors.core(0), errors.core(1));
}

TEST(KelCoreError, IsAlwaysTheSame) {
    const ErrorProcedures errors;
    EXPECT_EQ(errors.core(0), errors.core(0));
    EXPECT_EQ(errors.core(1), errors.core(1));
}

TEST(KelCoreError, NeedsNoMemory) {
    const ErrorProcedures errors;
    const FailAllocation fail(1);
    EXPECT_NE(errors.core(1), nullptr);
    EXPECT_FALSE(fail.HasFailed());
}

TEST(KelCoreError, DoesNotExistForOtherNumbers) {
    const ErrorProcedures errors;
    for (const std::int32_t number :
         {-1, 2, 3, std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max()}) {
        EXPECT_EQ(errors.core(number), nullptr) << number;
    }
}

TEST(KelCoreError, OutlivesAnyNumberOfReleases) {
    const ErrorProcedures errors;
    for (const std::int32_t number : {0, 1}) {
        const KelError error = errors.core(number);
        errors.release(error);
        errors.release(error);
        errors.addReference(error);
        errors.release(error);
        errors.release(error);
        EXPECT_EQ(errors.core(number), error);
        EXPECT_STREQ(errors.component(error), "QMZ");
        EXPECT_EQ(errors.number(error), number);
    }
}

class KelReportedError : public testing::Test {
protected:
    // A core error in its place lets go of a made one.
    ~KelReportedError() override { report_(errors_.core(0)); }

    ErrorProcedures errors_;
    KelReportErrorType report_ = Core<KelReportErrorType>(abi::Core::kReportError);
};

TEST_F(KelReportedError, IsTheLastOne) {
    report_(errors_.core(0));
    EXPECT_EQ(kel::ReportedError(), errors_.core(0));
    report_(errors_.core(1));
    EXPECT_EQ(kel::ReportedError(), errors_.core(1));
}

TEST_F(KelReportedError, IsKeptAliveUntilTheNext) {
    report_(errors_.core(0));
    const std::int64_t before = LiveAllocations();
    const KelError error = errors_.make("message", "Host", 3);
    report_(error);
    errors_.release(error);
    EXPECT_EQ(kel::ReportedError(), error);
    ExpectError(kel::ReportedError(), "message", "Host", 3);
    report_(errors_.core(0));
    EXPECT_EQ(LiveAllocations(), before);
}

TEST_F(KelReportedError, LeavesTheReportersReferenceAlone) {
    const KelError error = errors_.make("message", "Host", 3);
    report_(error);
    report_(errors_.core(0));
    ExpectError(error, "message", "Host", 3);
    errors_.release(error);
}

TEST_F(KelReportedError, MayBeReportedAgain) {
    const std::int64_t before = LiveAllocations();
    const KelError error = errors_.make("message", "Host", 3);
    report_(error);
    report_(error);
    errors_.release(error);
    report_(kel::ReportedError());
    ExpectError(kel::ReportedError(), "message", "Host", 3);
    report_(errors_.core(0));
    EXPECT_EQ(LiveAllocations(), before);
}

TEST_F(KelReportedError, StaysWhenNullIsReported) {
    report_(errors_.core(1));
    report_(nullptr);
    EXPECT_EQ(kel::ReportedError(), errors_.core(1));
}

TEST_F(KelReportedError, NeedsNoMemory) {
    const FailAllocation fail(1);
    report_(errors_.core(1));
    EXPECT_FALSE(fail.HasFailed());
}

} // namespace
} // namespace tn::test
