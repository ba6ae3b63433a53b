// The library as if it had just been loaded.
#pragma once

#include "TnGraphics/draw/Binding.h"
#include "TnGraphics/runtime/RuntimeState.h"

namespace tn::test {

/// Lets the library forget what it knew of engines, when it is made and when it is destroyed.
struct FreshLibrary {
    FreshLibrary() { Forget(); }
    ~FreshLibrary() {
        TheBinding().Stop();
        Forget();
    }
    FreshLibrary(const FreshLibrary&) = delete;
    FreshLibrary& operator=(const FreshLibrary&) = delete;

    static void Forget() {
        RenewBinding();
        TheRuntimeState() = {};
    }
};

} // namespace tn::test
