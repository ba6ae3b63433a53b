#include "TnGraphics/port/Assertion.h"

#include "tests/support/AssertionRecorder.h"

#include <gtest/gtest.h>

namespace tn::test {
namespace {

AssertionSite SomeSite() { return {"width > 0", "Draw", "port/Somewhere", 12}; }

TEST(AssertionSite, SaysWhatItAssertsAndWhere) {
    const AssertionRecorder recorder;
    SomeSite().Assert(false);
    EXPECT_EQ(recorder.Reports(), (std::vector<RecordedAssertion>{{"width > 0", "Draw", "port/Somewhere", 12}}));
}

TEST(AssertionSite, SaysNothingOfWhatHolds) {
    const AssertionRecorder recorder;
    SomeSite().Assert(true);
    SomeSite().AssertInDebug(true);
    EXPECT_TRUE(recorder.Reports().empty());
}

TEST(AssertionSite, ReportsEachTimeUntilItIsSilenced) {
    AssertionSite site = SomeSite();
    {
        const AssertionRecorder recorder;
        site.Assert(false);
        site.Assert(false);
        EXPECT_EQ(recorder.Reports().size(), 2U);
    }
    const AssertionRecorder recorder(AssertionRecorder::Answer::kSilenceForGood);
    site.Assert(false);
    site.Assert(false);
    EXPECT_EQ(recorder.Reports().size(), 1U);
}

TEST(AssertionSite, StaysSilentForTheRestOfTheRun) {
    AssertionSite site = SomeSite();
    {
        const AssertionRecorder recorder(AssertionRecorder::Answer::kSilenceForGood);
        site.Assert(false);
    }
    const AssertionRecorder recorder;
    site.Assert(false);
    site.AssertInDebug(false);
    EXPECT_TRUE(site.sDisabled);
    EXPECT_TRUE(recorder.Reports().empty());
}

TEST(AssertionSite, IsSilencedAlone) {
    const AssertionRecorder recorder(AssertionRecorder::Answer::kSilenceForGood);
    AssertionSite first = SomeSite();
    AssertionSite second = SomeSite();
    first.Assert(false);
    second.Assert(false);
    EXPECT_EQ(recorder.Reports().size(), 2U);
}

TEST(AssertionSite, InDebugIsSilentInReleaseBuilds) {
    const AssertionRecorder recorder;
    SomeSite().AssertInDebug(false);
#if defined(NDEBUG)
    EXPECT_TRUE(recorder.Reports().empty());
#else
    EXPECT_EQ(recorder.Reports().size(), 1U);
#endif
}

} // namespace
} // namespace tn::test
