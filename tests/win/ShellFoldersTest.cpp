// The real shell's folders.
#include "TnGraphics/runtime/ShellFolders.h"
#include "TnGraphics/runtime/FontSupport.h"
#include "TnGraphics/runtime/RuntimeState.h"

#include "TnEngines/abi/kel.h"

#include <algorithm>
#include <array>
#include <gtest/gtest.h>
#include <string>

namespace tn::test {
namespace {

std::u16string PathOf(ShellFolder folder) {
    ShellItemList items = nullptr;
    EXPECT_TRUE(kPlatformShell.getFolderLocation(folder, &items));
    std::array<char16_t, kPathUnits> path = {};
    EXPECT_TRUE(kPlatformShell.getPath(items, path.data()));
    ShellAllocator allocator = nullptr;
    EXPECT_TRUE(kPlatformShell.getAllocator(&allocator));
    kPlatformShell.free(allocator, items);
    return path.data();
}

bool IsAbsolute(const std::u16string& path) { return path.size() > 3 && path[1] == u':' && path[2] == u'\\'; }

TEST(WindowsShell, TellsItsFolders) {
    const std::u16string programs = PathOf(ShellFolder::kCommonProgramFiles);
    const std::u16string data = PathOf(ShellFolder::kLocalApplicationData);
    EXPECT_TRUE(IsAbsolute(programs));
    EXPECT_TRUE(IsAbsolute(data));
    EXPECT_NE(programs, data);
    EXPECT_NE(programs.back(), u'\\');
}

TEST(WindowsShell, KnowsNoFolderOfAnUnknownNumber) {
    ShellItemList items = nullptr;
    EXPECT_FALSE(kPlatformShell.getFolderLocation(static_cast<ShellFolder>(0x7F), &items));
}

TEST(WindowsShell, LetsTheFontEngineStart) {
    TheRuntimeState() = {};
    EXPECT_EQ(SetUpFontSupport(KelStartup(0), 18, 0, kSuiteR50), 1U);
    TheRuntimeState() = {};
}

} // namespace
} // namespace tn::test
