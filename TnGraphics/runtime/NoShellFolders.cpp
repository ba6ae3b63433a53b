#include "TnGraphics/runtime/ShellFolders.h"

namespace tn {

const Shell kPlatformShell = {
    [](ShellFolder, ShellItemList*) { return false; },
    [](ShellItemList, char16_t*) { return false; },
    [](ShellAllocator*) { return false; },
    [](ShellAllocator, ShellItemList) {},
};

} // namespace tn
