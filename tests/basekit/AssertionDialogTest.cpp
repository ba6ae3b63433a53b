#include "TnEngines/basekit/AssertionDialog.h"

#include "tests/support/AssertionRecorder.h"

#include "TnEngines/abi/basekit.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace tn::test {
namespace {

void FailAt(int line, bool& disabled) {
    BasekitAssertionFailed("width > 0", "Draw", "port/Somewhere", line, &disabled);
}

TEST(BasekitAssertionFailed, HandsEverythingToTheDialog) {
    const AssertionRecorder recorder;
    bool disabled = false;
    FailAt(12, disabled);
    EXPECT_FALSE(disabled);
    EXPECT_EQ(recorder.Reports(), (std::vector<RecordedAssertion>{{"width > 0", "Draw", "port/Somewhere", 12}}));
}

TEST(BasekitAssertionFailed, SetsTheFlagWhenTheReaderHasHeardEnough) {
    const AssertionRecorder recorder(AssertionRecorder::Answer::kSilenceForGood);
    bool disabled = false;
    FailAt(12, disabled);
    EXPECT_TRUE(disabled);
}

TEST(BasekitAssertionFailed, AsksNobodyWhileTheFlagIsSet) {
    const AssertionRecorder recorder;
    bool disabled = true;
    FailAt(12, disabled);
    EXPECT_TRUE(disabled);
    EXPECT_TRUE(recorder.Reports().empty());
}

TEST(AssertionDialog, IsExchangedForAnother) {
    const auto silent = [](const basekit::AssertionReport&) { return true; };
    const basekit::AssertionDialog previous = basekit::ExchangeAssertionDialog(silent);
    EXPECT_EQ(previous, &basekit::ShowAssertion);
    EXPECT_EQ(basekit::ExchangeAssertionDialog(previous), static_cast<basekit::AssertionDialog>(silent));
}

#if !defined(_WIN32)
TEST(AssertionDialog, IsOneLineOnStderrForEachSite) {
    bool disabled = false;
    testing::internal::CaptureStderr();
    FailAt(12, disabled);
    FailAt(12, disabled);
    const std::string text = testing::internal::GetCapturedStderr();
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 1);
    for (const char* part : {"width > 0", "Draw", "port/Somewhere", "12"}) {
        EXPECT_NE(text.find(part), std::string::npos) << part;
    }
}
#endif

} // namespace
} // namespace tn::test
