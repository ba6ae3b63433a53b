#include "TnGraphics/runtime/TnGraphicsMem.h"

#include "tests/draw/NotingRecords.h"
#include "tests/fakes/EngineTest.h"
#include "tests/fakes/FakeShell.h"

#include <cstring>
#include <gtest/gtest.h>
#include <limits>
#include <optional>
#include <string_view>
#include <type_traits>

namespace tn::test {
namespace {

const BasekitString kEnglish = BasekitFromAscii("en_US");

bool IsEntry(const std::string& line) {
    for (const char* entry : {"KelStartup", "Huex", "Vec", "Glyphon"}) {
        if (line.starts_with(entry)) {
            return true;
        }
    }
    return false;
}

class GraphicsMem : public EngineTest {
protected:
    /// The calls of the engines' entries.
    Lines Entries() const {
        Lines lines = engines.Log();
        std::erase_if(lines, [](const std::string& line) { return !IsEntry(line); });
        return lines;
    }

    Lines EntriesSince(std::size_t before) const {
        const Lines entries = Entries();
        return {entries.begin() + static_cast<std::ptrdiff_t>(before), entries.end()};
    }

    /// The japanese flag that the font engine gets in a fresh process.
    std::uint32_t JapaneseFor(const BasekitString& locale) {
        FreshLibrary::Forget();
        { const TnGraphicsMem mem(0, locale); }
        return engines.FontStarts().back().japanese;
    }

    FakeShell shell;
};

TEST_F(GraphicsMem, StartsTheEnginesInOrder) {
    const TnGraphicsMem mem(12345, kEnglish);
    EXPECT_EQ(Entries(), (Lines{"KelStartup 12345", "HuexStartup first 0", "VecStartup first 268817 0 0",
                                "GlyphonStartup first 18 0"}));
}

TEST_F(GraphicsMem, StartsTheBindingBetweenTheRuntimeAndTheColorEngine) {
    const TnGraphicsMem mem(12345, kEnglish);
    EXPECT_TRUE(TheBinding().IsLive());
    const Lines log = engines.Log();
    EXPECT_EQ(log.front(), "KelStartup 12345");
    EXPECT_EQ(log[1], "get Kel KelRegisterProcAddress KelRegisterProcAddress");
    EXPECT_EQ(PlaceOf("HuexStartup first 0", log), log.size() - 3);
    EXPECT_EQ(PlaceOf("get KelMemoryInterface Allocate KelAllocateProc", log), log.size() - 4);
}

TEST_F(GraphicsMem, HandsTheSizeToTheRuntime) {
    for (const std::uint64_t size :
         {std::uint64_t{0}, std::uint64_t{1} << 32, std::numeric_limits<std::uint64_t>::max()}) {
        engines.ForgetLog();
        { const TnGraphicsMem mem(size, kEnglish); }
        EXPECT_EQ(Entries().front(), "KelStartup " + std::to_string(size));
    }
}

TEST_F(GraphicsMem, StopsTheEnginesInOrder) {
    std::optional<TnGraphicsMem> mem(std::in_place, 0, kEnglish);
    engines.ForgetLog();
    mem.reset();
    const Lines log = engines.Log();
    ASSERT_GE(log.size(), 3U);
    EXPECT_EQ(Lines(log.begin(), log.begin() + 3), (Lines{"GlyphonShutdown", "VecShutdown", "HuexShutdown"}));
    EXPECT_FALSE(TheBinding().IsStarted());
    EXPECT_EQ(engines.handles.Unbalanced(), Lines());
}

TEST_F(GraphicsMem, StopsTheBindingLast) {
    outcomes = {};
    stopsThrow = false;
    TheBinding().UseClients(kNotingRecords);
    std::optional<TnGraphicsMem> mem(std::in_place, 0, kEnglish);
    engines.ForgetLog();
    mem.reset();
    EXPECT_EQ(WithoutReferences(engines.Log()),
              (Lines{"GlyphonShutdown", "VecShutdown", "HuexShutdown", "stop 1", "stop 2", "stop 3"}));
}

TEST_F(GraphicsMem, GivesTheProcedureOfTheRuntime) {
    EXPECT_EQ(TnGraphicsMem::GetKelGetAddressProc(), nullptr);
    {
        const TnGraphicsMem mem(0, kEnglish);
        EXPECT_EQ(TnGraphicsMem::GetKelGetAddressProc(), RecordingEngines::FirstGetAddress());
    }
    EXPECT_EQ(TnGraphicsMem::GetKelGetAddressProc(), RecordingEngines::FirstGetAddress());
}

TEST_F(GraphicsMem, GivesTheLatestProcedureOfTheRuntime) {
    const TnGraphicsMem first(0, kEnglish);
    engines.startupGives = RecordingEngines::GetAddress::kSecond;
    {
        const TnGraphicsMem second(0, kEnglish);
        EXPECT_EQ(TnGraphicsMem::GetKelGetAddressProc(), RecordingEngines::SecondGetAddress());
    }
    EXPECT_EQ(TnGraphicsMem::GetKelGetAddressProc(), RecordingEngines::SecondGetAddress());
    engines.startupGives = RecordingEngines::GetAddress::kNull;
    const TnGraphicsMem third(0, kEnglish);
    EXPECT_EQ(TnGraphicsMem::GetKelGetAddressProc(), nullptr);
}

TEST_F(GraphicsMem, TellsWhichEnginesStarted) {
    for (const std::uint32_t status : {1U, 2U, 0x100U, 0x80000000U}) {
        engines.vecStatus = status;
        engines.huexStatus = 0;
        const TnGraphicsMem vec(0, kEnglish);
        EXPECT_TRUE(vec.IsVecStarted());
        EXPECT_FALSE(vec.IsHuexStarted());
        engines.vecStatus = 0;
        engines.huexStatus = status;
        const TnGraphicsMem huex(0, kEnglish);
        EXPECT_FALSE(huex.IsVecStarted());
        EXPECT_TRUE(huex.IsHuexStarted());
    }
}

TEST_F(GraphicsMem, IsTheFlagsOfTheVectorAndTheColorEngine) {
    ASSERT_EQ(sizeof(TnGraphicsMem), 2 * sizeof(bool));
    EXPECT_FALSE(std::is_polymorphic_v<TnGraphicsMem>);
    engines.huexStatus = 0;
    const TnGraphicsMem mem(0, kEnglish);
    bool flags[2] = {};
    std::memcpy(flags, &mem, sizeof(flags));
    EXPECT_TRUE(flags[0]);
    EXPECT_FALSE(flags[1]);
}

TEST_F(GraphicsMem, StopsEnginesThatDidNotStart) {
    engines.vecStatus = 0;
    engines.huexStatus = 0;
    engines.glyphonStatus = 0;
    { const TnGraphicsMem mem(0, kEnglish); }
    EXPECT_EQ(EntriesSince(4), (Lines{"GlyphonShutdown", "VecShutdown", "HuexShutdown"}));
}

TEST_F(GraphicsMem, GoesOnWithoutAProcedureOfTheRuntime) {
    engines.startupGives = RecordingEngines::GetAddress::kNull;
    { const TnGraphicsMem mem(9, kEnglish); }
    EXPECT_EQ(engines.Log(), (Lines{"KelStartup 9", "HuexStartup null 0", "VecStartup null 268817 0 0",
                                    "GlyphonStartup null 18 0", "GlyphonShutdown", "VecShutdown", "HuexShutdown"}));
    EXPECT_FALSE(TheBinding().IsStarted());
}

TEST_F(GraphicsMem, GoesOnWithoutABinding) {
    engines.Hide("KelAllocateProc");
    {
        const TnGraphicsMem mem(9, kEnglish);
        EXPECT_FALSE(TheBinding().IsStarted());
        EXPECT_TRUE(mem.IsVecStarted());
    }
    EXPECT_EQ(Entries(), (Lines{"KelStartup 9", "HuexStartup first 0", "VecStartup first 268817 0 0",
                                "GlyphonStartup first 18 0", "GlyphonShutdown", "VecShutdown", "HuexShutdown"}));
}

TEST_F(GraphicsMem, GoesOnWithClientRecordsThatFail) {
    TheBinding().UseClients(kNotingRecords);
    stopsThrow = false;
    outcomes = {Outcome::kStarts, Outcome::kThrowsException, Outcome::kStarts};
    EXPECT_NO_THROW(TnGraphicsMem(9, kEnglish));
    EXPECT_EQ(engines.CountOf("stop 1"), 1U);
    EXPECT_EQ(engines.CountOf("HuexStartup first 0"), 1U);
}

TEST_F(GraphicsMem, LetsNothingOutThatRecordsThrowWhenTheyStop) {
    TheBinding().UseClients(kNotingRecords);
    outcomes = {};
    stopsThrow = true;
    EXPECT_NO_THROW(TnGraphicsMem(9, kEnglish));
    EXPECT_EQ(engines.CountOf("stop 3"), 1U);
}

TEST_F(GraphicsMem, GoesOnWithoutTheContainerInterface) {
    TheBinding().UseClients(kNotingRecords);
    TheBinding().UseContainers(kNotingContainers);
    outcomes = {};
    stopsThrow = false;
    engines.Hide("KelRegisterContainerCallbackProc");
    EXPECT_NO_THROW(TnGraphicsMem(9, kEnglish));
    EXPECT_EQ(engines.CountOf("HuexStartup first 0"), 1U);
}

TEST_F(GraphicsMem, IsJapaneseForOneSpellingOnly) {
    EXPECT_EQ(JapaneseFor(BasekitFromAscii("ja_JP")), 1U);
    for (const char* locale :
         {"ja_jp", "ja", "ja_JP.UTF-8", "", "ja_JP ", " ja_JP", "JA_JP", "ja-JP", "ja_J", "en_US"}) {
        EXPECT_EQ(JapaneseFor(BasekitFromAscii(locale)), 0U) << locale;
    }
    EXPECT_EQ(JapaneseFor(BasekitFromAscii(std::string_view("ja_JP\0", 6))), 0U);
    EXPECT_EQ(JapaneseFor(BasekitString(u"ja_J\x0150")), 0U);
}

TEST_F(GraphicsMem, StartsFontsFromTheFoldersOfSuiteOne) {
    const TnGraphicsMem mem(0, kEnglish);
    ASSERT_EQ(engines.FontStarts().size(), 1U);
    EXPECT_EQ(engines.FontStarts()[0].unicodeFolder, u"C:\\Common\\Norvane\\TypeSupport\\R50\\Unicode");
}

TEST_F(GraphicsMem, DoesNotTryFontsAgainThatFailed) {
    engines.glyphonStatus = 0;
    { const TnGraphicsMem mem(0, kEnglish); }
    engines.glyphonStatus = 1;
    { const TnGraphicsMem mem(0, kEnglish); }
    EXPECT_EQ(engines.FontStarts().size(), 1U);
    EXPECT_EQ(engines.CountOf("GlyphonShutdown"), 2U);
}

TEST_F(GraphicsMem, DoesNotTryFontsAgainWithoutFolders) {
    shell.shared.hasLocation = false;
    { const TnGraphicsMem mem(0, kEnglish); }
    shell.shared.hasLocation = true;
    { const TnGraphicsMem mem(0, kEnglish); }
    EXPECT_EQ(shell.Log(), Lines{"location 43"});
    EXPECT_TRUE(engines.FontStarts().empty());
    EXPECT_EQ(engines.CountOf("GlyphonShutdown"), 2U);
}

TEST_F(GraphicsMem, BesideAnotherStartsEnginesButNeitherBindingNorFonts) {
    const TnGraphicsMem first(1, kEnglish);
    engines.ForgetLog();
    const TnGraphicsMem second(2, kEnglish);
    EXPECT_EQ(engines.Log(), (Lines{"KelStartup 2", "HuexStartup first 0", "VecStartup first 268817 0 0"}));
}

TEST_F(GraphicsMem, BesideAnotherGivesTheEnginesTheNewProcedure) {
    const TnGraphicsMem first(1, kEnglish);
    engines.startupGives = RecordingEngines::GetAddress::kSecond;
    engines.ForgetLog();
    const TnGraphicsMem second(2, kEnglish);
    EXPECT_EQ(engines.Log(), (Lines{"KelStartup 2", "HuexStartup second 0", "VecStartup second 268817 0 0"}));
}

TEST_F(GraphicsMem, BesideAnotherStopsAllThatTheFirstStarted) {
    std::optional<TnGraphicsMem> first(std::in_place, 1, kEnglish);
    { const TnGraphicsMem second(2, kEnglish); }
    EXPECT_FALSE(TheBinding().IsStarted());
    engines.ForgetLog();
    first.reset();
    EXPECT_EQ(engines.Log(), (Lines{"GlyphonShutdown", "VecShutdown", "HuexShutdown"}));
}

TEST_F(GraphicsMem, AfterAnotherStartsAllButTheFontsAgain) {
    { const TnGraphicsMem first(1, BasekitFromAscii("ja_JP")); }
    engines.ForgetLog();
    {
        const TnGraphicsMem second(2, kEnglish);
        EXPECT_TRUE(TheBinding().IsLive());
        EXPECT_EQ(Entries(), (Lines{"KelStartup 2", "HuexStartup first 0", "VecStartup first 268817 0 0"}));
        EXPECT_EQ(engines.CountOf("KelGetUnregisterCountAddr"), 1U);
    }
    EXPECT_EQ(EntriesSince(3), (Lines{"GlyphonShutdown", "VecShutdown", "HuexShutdown"}));
    EXPECT_EQ(engines.FontStarts().size(), 1U);
}

} // namespace
} // namespace tn::test
