#include "TnEngines/basekit/AssertionDialog.h"

#include "TnEngines/abi/basekit.h"

#include <utility>

namespace tn::basekit {
namespace {

constinit AssertionDialog theDialog = &ShowAssertion;

} // namespace

AssertionDialog ExchangeAssertionDialog(AssertionDialog dialog) { return std::exchange(theDialog, dialog); }

} // namespace tn::basekit

void BasekitAssertionFailed(const char* expression, const char* function, const char* file, int line, bool* disabled) {
    if (!*disabled) {
        *disabled = tn::basekit::theDialog({expression, function, file, line});
    }
}
