// Private: what the runtime remembers for as long as the process lives.
#pragma once

#include "TnEngines/abi/kel.h"

namespace tn {

struct RuntimeState {
    KelGetAddressProc getAddress = nullptr; ///< From the latest start; never cleared.
    bool fontsStarted = false;              ///< Set by the first attempt; never cleared.
    const char16_t* suite = nullptr;        ///< The folder that fonts are looked for in; the first choice stays.
};

RuntimeState& TheRuntimeState();

} // namespace tn
