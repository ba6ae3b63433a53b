// Private: the error of the last port that could not be made, which no port can keep.
#pragma once

#include "TnEngines/abi/kel.h"

namespace tn::vec {

/// Keeps an error, in place of the one before it, and lends it.
KelError KeepCreationError(KelError error);

void ForgetCreationError();

} // namespace tn::vec
