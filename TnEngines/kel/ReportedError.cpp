#include "TnEngines/kel/ReportedError.h"

#include "TnEngines/kel/Errors.h"

#include <utility>

namespace tn::kel {
namespace {

constinit KelError theReportedError = nullptr;

} // namespace

void ReportError(KelError error) noexcept {
    if (error != nullptr) {
        AddReference(error);
        Release(std::exchange(theReportedError, error));
    }
}

KelError ReportedError() noexcept { return theReportedError; }

} // namespace tn::kel
