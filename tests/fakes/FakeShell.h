// A shell whose folders and faults a test chooses, and which notes what it is asked.
#pragma once

#include "TnGraphics/runtime/ShellFolders.h"

#include <string>
#include <vector>

namespace tn::test {

/// The shell while it lives. One of these lives at a time.
class FakeShell {
public:
    FakeShell();
    ~FakeShell();
    FakeShell(const FakeShell&) = delete;
    FakeShell& operator=(const FakeShell&) = delete;

    /// What one of the two folders is, and what fails when it is asked for.
    struct Folder {
        std::u16string path;
        bool hasLocation = true;
        bool hasPath = true;
    };
    Folder shared = {u"C:\\Common"};
    Folder user = {u"C:\\User\\Local"};
    bool hasAllocator = true;

    /// For example "location 43", "path 43", "allocator", "free 43": the folder by its number.
    const std::vector<std::string>& Log() const { return log_; }

private:
    static bool GetFolderLocation(ShellFolder folder, ShellItemList* items);
    static bool GetPath(ShellItemList items, char16_t* path);
    static bool GetAllocator(ShellAllocator* allocator);
    static void Free(ShellAllocator allocator, ShellItemList items);

    Folder& ByNumber(int number);

    std::vector<std::string> log_;
    const Shell* previous_ = nullptr;
};

} // namespace tn::test
