#include "TnEngines/vec/port/CreationError.h"

#include "TnEngines/vec/port/Faults.h"

#include <utility>

namespace tn::vec {
namespace {

constinit KelError theError = nullptr;

} // namespace

KelError KeepCreationError(KelError error) {
    ReleaseError(std::exchange(theError, error));
    return error;
}

void ForgetCreationError() { KeepCreationError(nullptr); }

} // namespace tn::vec
