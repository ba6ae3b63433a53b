#include "TnGraphics/runtime/FontSupport.h"

#include "TnEngines/abi/glyphon.h"
#include "TnGraphics/runtime/RuntimeState.h"
#include "TnGraphics/runtime/ShellFolders.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

namespace tn {
namespace {

constexpr const char16_t* kFolderR40 = u"\\Norvane\\TypeSupport\\R40\\";
constexpr const char16_t* kFolderR50 = u"\\Norvane\\TypeSupport\\R50\\";

/// A path of at most kPathUnits - 1 units and the zero after it.
class Path {
public:
    const char16_t* Text() const { return units_.data(); }

    /// Makes it the path of a shell's folder.
    bool Assign(ShellFolder folder) {
        const Shell& shell = TheShell();
        ShellItemList items = nullptr;
        if (!shell.getFolderLocation(folder, &items)) {
            return false;
        }
        const bool hasPath = shell.getPath(items, units_.data());
        ShellAllocator allocator = nullptr;
        if (shell.getAllocator(&allocator)) {
            shell.free(allocator, items);
        }
        return hasPath;
    }

    /// Makes it the path of something in a folder.
    bool Assign(const Path& folder, std::u16string_view name) {
        units_ = folder.units_;
        return Append(name);
    }

    /// False for a path that has no room for the text.
    bool Append(std::u16string_view text) {
        const auto length = static_cast<std::size_t>(std::ranges::find(units_, u'\0') - units_.begin());
        if (length + text.size() >= kPathUnits) {
            return false;
        }
        text.copy(units_.data() + length, text.size());
        units_[length + text.size()] = 0;
        return true;
    }

private:
    std::array<char16_t, kPathUnits> units_ = {};
};

const char16_t* ChosenSuite(int suite) {
    RuntimeState& state = TheRuntimeState();
    if (state.suite == nullptr) {
        state.suite = suite == kSuiteR50 ? kFolderR50 : kFolderR40;
    }
    return state.suite;
}

bool AssignSuiteFolder(Path& path, ShellFolder folder, int suite) {
    return path.Assign(folder) && path.Append(ChosenSuite(suite));
}

} // namespace

std::uint32_t SetUpFontSupport(KelGetAddressProc getAddress, std::uint32_t client, std::uint32_t japanese, int suite) {
    if (suite != kSuiteR40 && suite != kSuiteR50) {
        return 0;
    }
    Path shared;
    Path user;
    if (!AssignSuiteFolder(shared, ShellFolder::kCommonProgramFiles, suite) ||
        !AssignSuiteFolder(user, ShellFolder::kLocalApplicationData, suite)) {
        return 0;
    }
    Path osFonts;
    Path commonFonts;
    Path cmapList;
    Path fontNames;
    Path unicode;
    Path cmaps;
    const bool allFit = osFonts.Assign(user, u"NorvaneFnt_OSFonts.lst") &&
                        commonFonts.Assign(user, u"NorvaneFnt_CommonFonts.lst") &&
                        cmapList.Assign(user, u"NorvaneFnt_CMaps.lst") && fontNames.Assign(shared, u"FntNames.db") &&
                        unicode.Assign(shared, u"Unicode") && cmaps.Assign(shared, u"CMaps");
    if (!allFit) {
        return 0;
    }
    const FontSupportParams params = {1,       osFonts.Text(),   commonFonts.Text(),
                                      nullptr, fontNames.Text(), unicode.Text(),
                                      nullptr, cmaps.Text(),     cmapList.Text()};
    return GlyphonStartup(getAddress, client, japanese, &params);
}

} // namespace tn
