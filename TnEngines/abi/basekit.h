/// \file
/// The core utility library `basekit`, as far as the library needs it.
#pragma once

#include <cstddef>
#include <limits>
#include <new>
#include <string>
#include <string_view>

extern "C" {

/// Reports a failed debug assertion in the assertion dialog.
///
/// \param expression the asserted expression
/// \param function   the function that asserts
/// \param file       its source file
/// \param line       its line there
/// \param disabled   the site's own flag: while it is set nothing is reported; the dialog sets it when the reader wants
///                   to hear no more of this site for the rest of the run
void BasekitAssertionFailed(const char* expression, const char* function, const char* file, int line, bool* disabled);

/// A block for a string's text, aligned for every type. Null when there is no memory.
///
/// Small blocks come from a fixed supply, so that most strings need no heap. Any thread may use any block.
void* BasekitAllocateBlock(std::size_t bytes);

/// Takes a block back, which may be null.
///
/// \param block a block
/// \param bytes the size that it was asked for with
void BasekitFreeBlock(void* block, std::size_t bytes);

/// Writes as many UTF-16 units as there are ASCII characters. What is not ASCII becomes the replacement character,
/// U+FFFD.
void BasekitConvertAscii(const char* ascii, std::size_t length, char16_t* to);

/// Compares by code units: negative, 0 or positive where the first text comes before the second, equals it or follows
/// it.
int BasekitCompare(const char16_t* a, std::size_t aLength, const char16_t* b, std::size_t bLength);
}

/// Thrown when there is no memory for a string.
class BasekitBadAlloc : public std::bad_alloc {
public:
    /// "bad allocation" on every platform.
    const char* what() const noexcept override { return "bad allocation"; }
};

/// The allocator of strings, over the library's blocks. All allocators are equal.
template <class T> struct BasekitBlockAllocator {
    using value_type = T; ///< What is allocated.

    BasekitBlockAllocator() = default;

    /// An allocator for another type, equal like all others.
    template <class U> BasekitBlockAllocator(const BasekitBlockAllocator<U>&) noexcept {}

    /// A block for as many values, uninitialised.
    /// \throws BasekitBadAlloc without memory, also where the size in bytes does not fit std::size_t
    T* allocate(std::size_t count) {
        void* const block = count <= std::numeric_limits<std::size_t>::max() / sizeof(T)
                                ? BasekitAllocateBlock(count * sizeof(T))
                                : nullptr;
        if (block == nullptr) {
            throw BasekitBadAlloc();
        }
        return static_cast<T*>(block);
    }

    /// Takes back a block of allocate(), which was asked for with the same count.
    void deallocate(T* block, std::size_t count) noexcept { BasekitFreeBlock(block, count * sizeof(T)); }

    /// True: any allocator takes back any block.
    template <class U> bool operator==(const BasekitBlockAllocator<U>&) const noexcept { return true; }
};

/// A UTF-16 string.
using BasekitString = std::basic_string<char16_t, std::char_traits<char16_t>, BasekitBlockAllocator<char16_t>>;

/// A string of ASCII characters as UTF-16.
inline BasekitString BasekitFromAscii(std::string_view ascii) {
    BasekitString text(ascii.size(), u'\0');
    BasekitConvertAscii(ascii.data(), ascii.size(), text.data());
    return text;
}
