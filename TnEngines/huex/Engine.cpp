#include "TnEngines/huex/Engine.h"

#include "TnEngines/abi/huex.h"

namespace tn::huex {
namespace {

constinit bool isStarted = false;

} // namespace

bool IsStarted() { return isStarted; }

} // namespace tn::huex

// Colours need nothing of the runtime, so its procedure is not kept. A start that fails leaves things as they were.
uint32_t HuexStartup(KelGetAddressProc getAddress, uint32_t) {
    if (getAddress == nullptr) {
        return 0;
    }
    tn::huex::isStarted = true;
    return 1;
}

void HuexShutdown() { tn::huex::isStarted = false; }
