#include "TnGraphics/runtime/ShellFolders.h"

#include <windows.h>

#include <shlobj.h>

namespace tn {
namespace {

static_assert(sizeof(wchar_t) == sizeof(char16_t));

bool GetFolderLocation(ShellFolder folder, ShellItemList* items) {
    PIDLIST_ABSOLUTE list = nullptr;
    const bool isFound = SUCCEEDED(SHGetSpecialFolderLocation(nullptr, static_cast<int>(folder), &list));
    *items = list;
    return isFound;
}

bool GetPath(ShellItemList items, char16_t* path) {
    const auto* const list = static_cast<PCIDLIST_ABSOLUTE>(items);
    return SHGetPathFromIDListW(list, reinterpret_cast<wchar_t*>(path)) != FALSE;
}

bool GetAllocator(ShellAllocator* allocator) {
    IMalloc* shellAllocator = nullptr;
    const bool isFound = SUCCEEDED(SHGetMalloc(&shellAllocator));
    *allocator = shellAllocator;
    return isFound;
}

void Free(ShellAllocator allocator, ShellItemList items) {
    auto* const shellAllocator = static_cast<IMalloc*>(allocator);
    shellAllocator->Free(items);
    shellAllocator->Release();
}

} // namespace

const Shell kPlatformShell = {&GetFolderLocation, &GetPath, &GetAllocator, &Free};

} // namespace tn
