#include "TnEngines/vec/Engine.h"

#include "TnEngines/abi/vec.h"
#include "TnEngines/vec/port/CreationError.h"

namespace tn::vec {
namespace {

constexpr uint32_t kVersion = 0x41A11;

struct State {
    KelGetAddressProc getAddress = nullptr;
    bool isStarted = false;
    std::uint64_t starts = 0;
};
constinit State theState;

} // namespace

bool IsStarted() { return theState.isStarted; }

std::uint64_t StartCount() { return theState.starts; }

KelGetAddressProc RuntimeProcedures() { return theState.getAddress; }

} // namespace tn::vec

// A start that fails leaves things as they were.
uint32_t VecStartup(KelGetAddressProc getAddress, uint32_t, uint32_t, uint32_t) {
    if (getAddress == nullptr) {
        return 0;
    }
    tn::vec::ForgetCreationError(); // with the procedures that it was made by
    tn::vec::theState = {getAddress, true, tn::vec::theState.starts + 1};
    return 1;
}

void VecShutdown() {
    tn::vec::ForgetCreationError();
    tn::vec::theState.isStarted = false;
}

uint32_t VecVersion() { return tn::vec::kVersion; }
