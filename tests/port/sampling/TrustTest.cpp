// Reads that trust the caller: debug builds say so when the trust is misplaced. The pixels read beside the surfaces
// here are the spare bytes of their rows.

#include "tests/support/AssertionRecorder.h"

#include "TnGraphics/port/TnImage.h"
#include "TnGraphics/port/TnMatte.h"

#include <gtest/gtest.h>

namespace tn::test {
namespace {

#if defined(NDEBUG)
constexpr std::size_t kReports = 0;
#else
constexpr std::size_t kReports = 1;
#endif

constexpr TnFixed kUnit = {1};

TEST(TrustedReads, OfABlockBesideTheImageAreReportedInDebugBuilds) {
    const TnImage image({4, 2}, true);
    const AssertionRecorder recorder;
    static_cast<void>(image.Get(4L, 0L, &kUnit, 1UL, &kUnit, 1UL));
    EXPECT_EQ(recorder.Reports().size(), kReports);
}

TEST(TrustedReads, OfAnAreaBesideTheImageAreReportedInDebugBuilds) {
    const TnImage image({4, 3}, true);
    const AssertionRecorder recorder;
    static_cast<void>(image.Get(TnFloatRect{3.0, 0.0, 1.5, 1.5}));
    EXPECT_EQ(recorder.Reports().size(), kReports);
}

TEST(TrustedReads, OfAnAreaBesideTheMatteAreReportedInDebugBuilds) {
    const TnMatte matte({4, 3}, true);
    const AssertionRecorder recorder;
    static_cast<void>(matte.Get(TnFloatRect{3.0, 0.0, 1.5, 1.5}));
    EXPECT_EQ(recorder.Reports().size(), kReports);
}

TEST(TrustedReads, InsideAreNotReported) {
    const TnImage image({4, 3}, true);
    const TnMatte matte({4, 3}, true);
    const AssertionRecorder recorder;
    static_cast<void>(image.Get(3L, 2L, &kUnit, 1UL, &kUnit, 1UL));
    static_cast<void>(image.Get(7L, 7L, &kUnit, 0UL, &kUnit, 1UL));
    static_cast<void>(image.Get(TnFloatRect{2.0, 1.0, 1.0, 1.0}));
    static_cast<void>(matte.Get(TnFloatRect{2.0, 1.0, 2.0, 2.0}));
    EXPECT_TRUE(recorder.Reports().empty());
}

} // namespace
} // namespace tn::test
