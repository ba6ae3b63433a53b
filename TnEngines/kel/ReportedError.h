// Private: the last error that was reported to the runtime.
#pragma once

#include "TnEngines/abi/kel.h"

namespace tn::kel {

/// Keeps a reference to the error in place of the one before it. Null is no error and reports nothing.
void ReportError(KelError error) noexcept;

/// Null when none was reported.
KelError ReportedError() noexcept;

} // namespace tn::kel
