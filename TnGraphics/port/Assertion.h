// Private: debug assertions of the library.
#pragma once

#include "TnEngines/abi/basekit.h"

namespace tn {

#if defined(NDEBUG)
inline constexpr bool kDebugBuild = false;
#else
inline constexpr bool kDebugBuild = true;
#endif

/// A place that asserts: one static object for each, which the reader of the dialog can silence for the rest of the
/// run.
struct AssertionSite {
    const char* expression;
    const char* function;
    const char* file;
    int line;
    bool sDisabled = false;

    /// Reports in every build.
    void Assert(bool holds) {
        if (!holds) {
            BasekitAssertionFailed(expression, function, file, line, &sDisabled);
        }
    }

    /// Reports in debug builds.
    void AssertInDebug(bool holds) {
        if constexpr (kDebugBuild) {
            Assert(holds);
        }
    }
};

} // namespace tn
