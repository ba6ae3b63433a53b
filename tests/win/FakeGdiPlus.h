// GDI+ that paints nothing and notes everything: what is linked with it finds it behind the flat functions.
#pragma once

#include "tests/fakes/QuietText.h"

#include <windows.h>

#include <objidl.h>

#include <gdiplus.h>

#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace tn::test {

/// A palette that an image was given.
struct NotedPalette {
    UINT flags = 0;
    std::vector<Gdiplus::ARGB> entries;
};

/// GDI+ while it lives. One of these lives at a time.
///
/// A test fails when a handle is used that is not alive, and, at the end, when one is left.
class FakeGdiPlus {
public:
    FakeGdiPlus();
    ~FakeGdiPlus();
    FakeGdiPlus(const FakeGdiPlus&) = delete;
    FakeGdiPlus& operator=(const FakeGdiPlus&) = delete;

    // What happened, in order. Handles are told by their names: "graphics#1", "image#1", "block#1" and "null".

    /// Calls with all their arguments, for example "GdipSetCompositingMode graphics#1 1". Not in there are the results
    /// and what the next two say.
    const std::vector<std::string>& Log() const { return log_; }
    const std::vector<NotedPalette>& Palettes() const { return palettes_; }
    const std::vector<const void*>& FirstBytes() const { return firstBytes_; } ///< Of the images' pixels.

    /// The names of handles that are still alive.
    std::vector<std::string> Left() const;

    // What the functions answer

    /// Lets a function do nothing and give this status. What deletes a handle deletes it all the same.
    void Fail(const std::string& function, Gdiplus::Status status) { faults_[function] = status; }
    bool givesMemory = true;

    // For the functions

    /// The living one. Without any the test fails.
    static FakeGdiPlus* Current(const char* function);

    template <class... Arguments> void Note(const char* function, const Arguments&... arguments) {
        log_.emplace_back(CallLine(function, arguments...).Text());
    }
    void NotePalette(const Gdiplus::ColorPalette* palette);
    void NoteFirstByte(const void* pixels) { firstBytes_.push_back(pixels); }

    /// A new handle of a kind, or null where the function is to fail.
    void* Make(const char* function, const char* kind);

    /// A block of memory, or null where there is none.
    void* Allocate(std::size_t bytes);

    /// The name of a living handle of the kind; null has one too.
    CallLine::Word Use(const void* handle, const char* kind);

    /// Use() of a handle for the last time.
    CallLine::Word Delete(const void* handle, const char* kind);

    /// What a function answers that was given this handle.
    Gdiplus::Status StatusOf(const char* function, const void* handle) const;

private:
    struct Handle {
        std::string kind;
        std::string name;
        bool isAlive = true;
        std::unique_ptr<std::byte[]> memory; ///< The handle's value is the address of this.
    };

    void* Add(const char* kind, std::size_t bytes);
    Handle* Find(const void* handle) const;

    std::vector<std::string> log_;
    std::vector<NotedPalette> palettes_;
    std::vector<const void*> firstBytes_;
    std::map<std::string, Gdiplus::Status> faults_;
    std::map<std::string, int> made_;
    std::vector<std::unique_ptr<Handle>> handles_; ///< Deleted ones stay, so that no two have one address.
};

} // namespace tn::test
