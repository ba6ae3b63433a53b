// Private: how the platform's shell tells its folders.
#pragma once

#include <cstddef>

namespace tn {

/// Room for a path, in UTF-16 units, its terminating zero included.
inline constexpr std::size_t kPathUnits = 1024;

/// Folders as the shell numbers them.
enum class ShellFolder { kLocalApplicationData = 0x1C, kCommonProgramFiles = 0x2B };

/// A list of items that names a folder; the shell's to interpret.
using ShellItemList = void*;

/// The shell's allocator.
using ShellAllocator = void*;

/// What is asked of the shell. A platform without one has all of it fail.
struct Shell {
    bool (*getFolderLocation)(ShellFolder folder, ShellItemList* items);

    /// \param path kPathUnits units
    bool (*getPath)(ShellItemList items, char16_t* path);

    bool (*getAllocator)(ShellAllocator* allocator);
    void (*free)(ShellAllocator allocator, ShellItemList items);
};

/// The shell in use.
const Shell& TheShell();

/// Puts another shell in place of the present one, which is returned. It is not copied.
const Shell* ExchangeShell(const Shell* shell);

/// The platform's own.
extern const Shell kPlatformShell;

} // namespace tn
