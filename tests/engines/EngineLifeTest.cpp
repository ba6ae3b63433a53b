// Starts, stops and versions of the colour, vector and font engines.

#include "tests/engines/Runtime.h"
#include "tests/support/AllocationFailure.h"

#include "TnEngines/abi/glyphon.h"
#include "TnEngines/abi/huex.h"
#include "TnEngines/abi/vec.h"
#include "TnEngines/huex/Engine.h"
#include "TnEngines/vec/Engine.h"

namespace tn::test {
namespace {

constexpr std::uint32_t kVecClient = 0x41A11;
constexpr std::uint32_t kGlyphonClient = 18;

void* FindNothing(const char*, const char*, const char*) { return nullptr; }

// Leaves the engines stopped, as they are before the first start.
class EngineLife : public testing::Test {
protected:
    EngineLife() { StopAll(); }
    ~EngineLife() override { StopAll(); }

    static void StopAll() {
        HuexShutdown();
        VecShutdown();
        GlyphonShutdown();
    }

    KelGetAddressProc runtime_ = KelStartup(0);
};

using HuexLife = EngineLife;
using VecLife = EngineLife;
using GlyphonLife = EngineLife;

TEST_F(HuexLife, StartsWithAProcedure) {
    EXPECT_EQ(HuexStartup(runtime_, 0), 1U);
    EXPECT_TRUE(huex::IsStarted());
}

TEST_F(HuexLife, DoesNotStartWithoutAProcedure) {
    EXPECT_EQ(HuexStartup(nullptr, 0), 0U);
    EXPECT_FALSE(huex::IsStarted());
}

TEST_F(HuexLife, KeepsGoingWhenAnotherStartFails) {
    HuexStartup(runtime_, 0);
    EXPECT_EQ(HuexStartup(nullptr, 0), 0U);
    EXPECT_TRUE(huex::IsStarted());
}

TEST_F(HuexLife, DoesNotCountItsStarts) {
    HuexStartup(runtime_, 0);
    EXPECT_EQ(HuexStartup(runtime_, 0), 1U);
    HuexShutdown();
    EXPECT_FALSE(huex::IsStarted());
}

TEST_F(HuexLife, StopsAnyNumberOfTimesAndStartsAgain) {
    HuexShutdown();
    HuexShutdown();
    EXPECT_EQ(HuexStartup(runtime_, 0), 1U);
    HuexShutdown();
    HuexShutdown();
    EXPECT_FALSE(huex::IsStarted());
    EXPECT_EQ(HuexStartup(runtime_, 0), 1U);
    EXPECT_TRUE(huex::IsStarted());
}

TEST_F(VecLife, StartsWithAProcedure) {
    EXPECT_EQ(VecStartup(runtime_, kVecClient, 0, 0), 1U);
    EXPECT_TRUE(vec::IsStarted());
    EXPECT_EQ(vec::RuntimeProcedures(), runtime_);
}

TEST_F(VecLife, DoesNotStartWithoutAProcedure) {
    EXPECT_EQ(VecStartup(nullptr, kVecClient, 0, 0), 0U);
    EXPECT_FALSE(vec::IsStarted());
}

TEST_F(VecLife, KeepsGoingWhenAnotherStartFails) {
    VecStartup(runtime_, kVecClient, 0, 0);
    EXPECT_EQ(VecStartup(nullptr, kVecClient, 0, 0), 0U);
    EXPECT_TRUE(vec::IsStarted());
    EXPECT_EQ(vec::RuntimeProcedures(), runtime_);
}

TEST_F(VecLife, StopsAnyNumberOfTimesAndStartsAgain) {
    VecShutdown();
    VecShutdown();
    EXPECT_EQ(VecStartup(runtime_, kVecClient, 0, 0), 1U);
    EXPECT_EQ(VecStartup(runtime_, kVecClient, 0, 0), 1U);
    VecShutdown();
    EXPECT_FALSE(vec::IsStarted());
    VecShutdown();
    EXPECT_EQ(VecStartup(runtime_, kVecClient, 0, 0), 1U);
    EXPECT_TRUE(vec::IsStarted());
}

TEST_F(VecLife, TakesTheProcedureOfItsLastStart) {
    VecStartup(&FindNothing, kVecClient, 0, 0);
    EXPECT_EQ(vec::RuntimeProcedures(), &FindNothing);
    VecStartup(runtime_, kVecClient, 0, 0);
    EXPECT_EQ(vec::RuntimeProcedures(), runtime_);
}

TEST_F(VecLife, KeepsTheProcedureWhenItStops) {
    VecStartup(runtime_, kVecClient, 0, 0);
    VecShutdown();
    EXPECT_EQ(vec::RuntimeProcedures(), runtime_);
}

TEST_F(VecLife, HasAVersionBeforeDuringAndAfter) {
    EXPECT_EQ(VecVersion(), 0x41A11U);
    VecStartup(runtime_, kVecClient, 0, 0);
    EXPECT_EQ(VecVersion(), 0x41A11U);
    VecShutdown();
    EXPECT_EQ(VecVersion(), 0x41A11U);
}

constexpr FontSupportParams RecordOfVersion(std::uint32_t version) {
    FontSupportParams params{};
    params.version = version;
    return params;
}

TEST_F(GlyphonLife, StartsWithAProcedureAndARecord) {
    const FontSupportParams params = RecordOfVersion(1);
    EXPECT_EQ(GlyphonStartup(runtime_, kGlyphonClient, 0, &params), 1U);
    EXPECT_EQ(GlyphonStartup(runtime_, kGlyphonClient, 1, &params), 1U);
}

TEST_F(GlyphonLife, NeedsNoneOfTheFilesToExist) {
    FontSupportParams params = RecordOfVersion(1);
    params.osFontList = u"/no/such/file";
    params.commonFontList = u"";
    params.fontNamesDatabase = u"/no/such/file";
    params.unicodeFolder = u"/no/such/folder";
    params.cmapsFolder = u"/no/such/folder";
    params.cmapList = u"/no/such/file";
    EXPECT_EQ(GlyphonStartup(runtime_, kGlyphonClient, 0, &params), 1U);
}

TEST_F(GlyphonLife, DoesNotStartWithoutAProcedure) {
    const FontSupportParams params = RecordOfVersion(1);
    EXPECT_EQ(GlyphonStartup(nullptr, kGlyphonClient, 0, &params), 0U);
}

TEST_F(GlyphonLife, DoesNotStartWithoutARecord) { EXPECT_EQ(GlyphonStartup(runtime_, kGlyphonClient, 0, nullptr), 0U); }

TEST_F(GlyphonLife, DoesNotStartWithARecordOfAnotherVersion) {
    for (const std::uint32_t version : {0U, 2U, 0x80000001U, ~0U}) {
        const FontSupportParams params = RecordOfVersion(version);
        EXPECT_EQ(GlyphonStartup(runtime_, kGlyphonClient, 0, &params), 0U) << version;
    }
}

TEST_F(GlyphonLife, CopiesNothing) {
    const FontSupportParams params = RecordOfVersion(1);
    const std::int64_t before = LiveAllocations();
    const FailAllocation fail(1);
    EXPECT_EQ(GlyphonStartup(runtime_, kGlyphonClient, 0, &params), 1U);
    EXPECT_FALSE(fail.HasFailed());
    EXPECT_EQ(LiveAllocations(), before);
}

TEST_F(GlyphonLife, StopsAnyNumberOfTimesAndStartsAgain) {
    GlyphonShutdown();
    GlyphonShutdown();
    const FontSupportParams params = RecordOfVersion(1);
    EXPECT_EQ(GlyphonStartup(runtime_, kGlyphonClient, 0, &params), 1U);
    GlyphonShutdown();
    GlyphonShutdown();
    EXPECT_EQ(GlyphonStartup(runtime_, kGlyphonClient, 0, &params), 1U);
}

TEST_F(GlyphonLife, HasAConstantVersionWithoutTheHighestBit) {
    const std::uint32_t version = GlyphonVersion();
    EXPECT_NE(version, 0U);
    EXPECT_EQ(version >> 31, 0U);
    const FontSupportParams params = RecordOfVersion(1);
    GlyphonStartup(runtime_, kGlyphonClient, 0, &params);
    EXPECT_EQ(GlyphonVersion(), version);
}

TEST_F(EngineLife, EndsBeforeTheRuntimesErrorsDo) {
    HuexStartup(runtime_, 0);
    VecStartup(runtime_, kVecClient, 0, 0);
    const ErrorProcedures errors;
    const KelError early = errors.make("early", "Host", 3);
    StopAll();
    ExpectError(early, "early", "Host", 3);
    errors.addReference(early);
    errors.release(early);
    errors.release(early);
    const KelError late = errors.make("late", "Host", 4);
    ExpectError(late, "late", "Host", 4);
    errors.release(late);
    EXPECT_STREQ(errors.component(errors.core(1)), "QMZ");
    EXPECT_NE(Lookup(abi::kErrorInterface, "KelErrorReleaseProc"), nullptr);
}

TEST_F(EngineLife, AllocatesNothing) {
    const FailAllocation fail(1);
    KelStartup(1);
    HuexStartup(runtime_, 0);
    VecStartup(runtime_, kVecClient, 0, 0);
    StopAll();
    EXPECT_FALSE(fail.HasFailed());
}

} // namespace
} // namespace tn::test
