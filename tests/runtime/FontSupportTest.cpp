#include "TnGraphics/runtime/FontSupport.h"

#include "tests/fakes/EngineTest.h"
#include "tests/fakes/FakeShell.h"

#include <gtest/gtest.h>
#include <string>

namespace tn::test {
namespace {

class FontSupport : public EngineTest {
protected:
    static std::uint32_t SetUp(int suite) {
        return SetUpFontSupport(RecordingEngines::FirstGetAddress(), 18, 0, suite);
    }

    /// Tries with folders of these lengths, as the first attempt of a process.
    bool Starts(std::size_t sharedLength, std::size_t userLength) {
        FreshLibrary::Forget();
        engines.ForgetLog();
        shell.shared.path.assign(sharedLength, u's');
        shell.user.path.assign(userLength, u'u');
        return SetUp(1) == 1;
    }

    /// The folder of the suite that the last start was given.
    std::u16string SharedFolder() const {
        const std::u16string& path = engines.FontStarts().back().unicodeFolder;
        return path.substr(0, path.size() - std::u16string_view(u"Unicode").size());
    }

    FakeShell shell;
};

TEST_F(FontSupport, AsksTheShellForBothFolders) {
    EXPECT_EQ(SetUp(1), 1U);
    EXPECT_EQ(shell.Log(), (Lines{"location 43", "path 43", "allocator", "free 43", "location 28", "path 28",
                                  "allocator", "free 28"}));
}

TEST_F(FontSupport, GivesTheFontEngineEveryPath) {
    EXPECT_EQ(SetUp(1), 1U);
    ASSERT_EQ(engines.FontStarts().size(), 1U);
    const RecordedFontStart& start = engines.FontStarts()[0];
    EXPECT_EQ(start.version, 1U);
    EXPECT_EQ(start.osFontList, u"C:\\User\\Local\\Norvane\\TypeSupport\\R50\\NorvaneFnt_OSFonts.lst");
    EXPECT_EQ(start.commonFontList, u"C:\\User\\Local\\Norvane\\TypeSupport\\R50\\NorvaneFnt_CommonFonts.lst");
    EXPECT_EQ(start.cmapList, u"C:\\User\\Local\\Norvane\\TypeSupport\\R50\\NorvaneFnt_CMaps.lst");
    EXPECT_EQ(start.fontNamesDatabase, u"C:\\Common\\Norvane\\TypeSupport\\R50\\FntNames.db");
    EXPECT_EQ(start.unicodeFolder, u"C:\\Common\\Norvane\\TypeSupport\\R50\\Unicode");
    EXPECT_EQ(start.cmapsFolder, u"C:\\Common\\Norvane\\TypeSupport\\R50\\CMaps");
    EXPECT_TRUE(start.hasNullSpares);
}

TEST_F(FontSupport, GivesTheFontEngineItsOtherArguments) {
    SetUpFontSupport(RecordingEngines::SecondGetAddress(), 18, 1, 1);
    SetUpFontSupport(nullptr, 7, 0, 1);
    EXPECT_EQ(engines.Log(), (Lines{"GlyphonStartup second 18 1", "GlyphonStartup null 7 0"}));
}

TEST_F(FontSupport, GivesTheStatusOfTheFontEngine) {
    for (const std::uint32_t status : {0U, 7U, 0x80000000U}) {
        engines.glyphonStatus = status;
        EXPECT_EQ(SetUp(1), status);
    }
}

TEST_F(FontSupport, ChoosesTheFolderOfTheFirstSuite) {
    EXPECT_EQ(SetUp(0), 1U);
    EXPECT_EQ(SharedFolder(), u"C:\\Common\\Norvane\\TypeSupport\\R40\\");
    EXPECT_EQ(SetUp(1), 1U);
    EXPECT_EQ(SharedFolder(), u"C:\\Common\\Norvane\\TypeSupport\\R40\\");
}

TEST_F(FontSupport, KeepsTheFolderOfSuiteOneAsWell) {
    EXPECT_EQ(SetUp(1), 1U);
    EXPECT_EQ(SetUp(0), 1U);
    EXPECT_EQ(SharedFolder(), u"C:\\Common\\Norvane\\TypeSupport\\R50\\");
    EXPECT_EQ(engines.FontStarts().back().cmapList,
              u"C:\\User\\Local\\Norvane\\TypeSupport\\R50\\NorvaneFnt_CMaps.lst");
}

TEST_F(FontSupport, KnowsTwoSuitesOnly) {
    for (const int suite : {2, 3, -1, 0x100, 0x10001}) {
        EXPECT_EQ(SetUp(suite), 0U) << suite;
    }
    EXPECT_TRUE(shell.Log().empty());
    EXPECT_TRUE(engines.Log().empty());
}

TEST_F(FontSupport, RefusesOtherSuitesAfterTheChoiceToo) {
    EXPECT_EQ(SetUp(1), 1U);
    EXPECT_EQ(SetUp(2), 0U);
    EXPECT_EQ(engines.FontStarts().size(), 1U);
}

TEST_F(FontSupport, ChoosesNothingForAnUnknownSuite) {
    EXPECT_EQ(SetUp(2), 0U);
    EXPECT_EQ(SetUp(0), 1U);
    EXPECT_EQ(SharedFolder(), u"C:\\Common\\Norvane\\TypeSupport\\R40\\");
}

TEST_F(FontSupport, ChoosesNothingWithoutTheSharedFolder) {
    shell.shared.hasLocation = false;
    EXPECT_EQ(SetUp(1), 0U);
    shell.shared.hasLocation = true;
    shell.shared.hasPath = false;
    EXPECT_EQ(SetUp(1), 0U);
    shell.shared.hasPath = true;
    EXPECT_EQ(SetUp(0), 1U);
    EXPECT_EQ(SharedFolder(), u"C:\\Common\\Norvane\\TypeSupport\\R40\\");
}

TEST_F(FontSupport, ChoosesBeforeTheUsersFolderIsKnown) {
    shell.user.hasLocation = false;
    EXPECT_EQ(SetUp(1), 0U);
    shell.user.hasLocation = true;
    EXPECT_EQ(SetUp(0), 1U);
    EXPECT_EQ(SharedFolder(), u"C:\\Common\\Norvane\\TypeSupport\\R50\\");
}

TEST_F(FontSupport, ChoosesBeforeLengthsAreLookedAt) {
    EXPECT_FALSE(Starts(1023, 10)); // suite 1
    shell.shared.path = u"C:\\Common";
    EXPECT_EQ(SetUp(0), 1U);
    EXPECT_EQ(SharedFolder(), u"C:\\Common\\Norvane\\TypeSupport\\R50\\");
}

TEST_F(FontSupport, GivesUpWithoutTheSharedFolder) {
    shell.shared.hasLocation = false;
    EXPECT_EQ(SetUp(1), 0U);
    EXPECT_EQ(shell.Log(), Lines{"location 43"});
    EXPECT_TRUE(engines.Log().empty());
}

TEST_F(FontSupport, GivesUpWithoutTheUsersFolder) {
    shell.user.hasLocation = false;
    EXPECT_EQ(SetUp(1), 0U);
    EXPECT_EQ(shell.Log(), (Lines{"location 43", "path 43", "allocator", "free 43", "location 28"}));
    EXPECT_TRUE(engines.Log().empty());
}

TEST_F(FontSupport, FreesTheItemListOfAFolderWithoutAPath) {
    shell.shared.hasPath = false;
    EXPECT_EQ(SetUp(1), 0U);
    EXPECT_EQ(shell.Log(), (Lines{"location 43", "path 43", "allocator", "free 43"}));
    EXPECT_TRUE(engines.Log().empty());
}

TEST_F(FontSupport, FreesTheItemListOfAUsersFolderWithoutAPath) {
    shell.user.hasPath = false;
    EXPECT_EQ(SetUp(1), 0U);
    EXPECT_EQ(shell.Log(), (Lines{"location 43", "path 43", "allocator", "free 43", "location 28", "path 28",
                                  "allocator", "free 28"}));
    EXPECT_TRUE(engines.Log().empty());
}

TEST_F(FontSupport, FreesNothingWithoutAnAllocator) {
    shell.hasAllocator = false;
    EXPECT_EQ(SetUp(1), 1U);
    EXPECT_EQ(shell.Log(), (Lines{"location 43", "path 43", "allocator", "location 28", "path 28", "allocator"}));
}

TEST_F(FontSupport, GivesUpAPathlessFolderWithoutAnAllocatorToo) {
    shell.hasAllocator = false;
    shell.shared.hasPath = false;
    EXPECT_EQ(SetUp(1), 0U);
    EXPECT_EQ(shell.Log(), (Lines{"location 43", "path 43", "allocator"}));
}

// The folder of a suite has 25 units. Below the shared folder the longest name has 11, below the user's 26.

TEST_F(FontSupport, TakesSharedFoldersThatLeaveRoomForTheSuite) {
    EXPECT_FALSE(Starts(1024 - 25, 10));
    EXPECT_EQ(shell.Log().back(), "free 43");
    EXPECT_FALSE(Starts(1023 - 25, 10)); // has no room for names, as is found out later
    EXPECT_EQ(shell.Log().back(), "free 28");
    EXPECT_TRUE(engines.Log().empty());
}

TEST_F(FontSupport, TakesSharedFoldersThatLeaveRoomForTheLongestName) {
    EXPECT_TRUE(Starts(1023 - 25 - 11, 10));
    EXPECT_EQ(engines.FontStarts().back().fontNamesDatabase.size(), 1023U);
    EXPECT_TRUE(engines.FontStarts().back().fontNamesDatabase.ends_with(u"s\\Norvane\\TypeSupport\\R50\\FntNames.db"));
    EXPECT_FALSE(Starts(1024 - 25 - 11, 10));
    EXPECT_TRUE(engines.Log().empty());
}

TEST_F(FontSupport, TakesUsersFoldersThatLeaveRoomForTheLongestName) {
    EXPECT_TRUE(Starts(10, 1023 - 25 - 26));
    EXPECT_EQ(engines.FontStarts().back().commonFontList.size(), 1023U);
    EXPECT_TRUE(engines.FontStarts().back().commonFontList.ends_with(
        u"u\\Norvane\\TypeSupport\\R50\\NorvaneFnt_CommonFonts.lst"));
    EXPECT_FALSE(Starts(10, 1024 - 25 - 26));
    EXPECT_TRUE(engines.Log().empty());
}

TEST_F(FontSupport, RefusesUsersFoldersWithoutRoomForTheSuite) {
    EXPECT_FALSE(Starts(10, 1024 - 25));
    EXPECT_FALSE(Starts(10, 1023));
    EXPECT_TRUE(engines.Log().empty());
}

TEST_F(FontSupport, TakesFoldersOfAnyUnits) {
    shell.shared.path = u"\xD800x\xFFFF";
    shell.user.path = u"";
    EXPECT_EQ(SetUp(1), 1U);
    EXPECT_EQ(SharedFolder(), u"\xD800x\xFFFF\\Norvane\\TypeSupport\\R50\\");
    EXPECT_EQ(engines.FontStarts().back().osFontList, u"\\Norvane\\TypeSupport\\R50\\NorvaneFnt_OSFonts.lst");
}

#if !defined(_WIN32)
TEST(PlatformShell, HasNoFolders) {
    ShellItemList items = nullptr;
    EXPECT_FALSE(kPlatformShell.getFolderLocation(ShellFolder::kLocalApplicationData, &items));
    EXPECT_FALSE(kPlatformShell.getFolderLocation(ShellFolder::kCommonProgramFiles, &items));
}
#else
TEST(PlatformShell, KnowsBothFolders) {
    for (const ShellFolder folder : {ShellFolder::kLocalApplicationData, ShellFolder::kCommonProgramFiles}) {
        ShellItemList items = nullptr;
        ASSERT_TRUE(kPlatformShell.getFolderLocation(folder, &items));
        char16_t path[kPathUnits] = {};
        EXPECT_TRUE(kPlatformShell.getPath(items, path));
        EXPECT_GE(std::u16string(path).size(), 3U);
        EXPECT_EQ(path[1], u':');
        ShellAllocator allocator = nullptr;
        ASSERT_TRUE(kPlatformShell.getAllocator(&allocator));
        kPlatformShell.free(allocator, items);
    }
}
#endif

} // namespace
} // namespace tn::test
