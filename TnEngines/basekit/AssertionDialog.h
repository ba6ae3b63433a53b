// Private: who shows failed assertions.
#pragma once

namespace tn::basekit {

/// What an assertion says of itself.
struct AssertionReport {
    const char* expression;
    const char* function;
    const char* file;
    int line;
};

/// Shows a failed assertion; returns true when the site shall be silent for the rest of the run.
using AssertionDialog = bool (*)(const AssertionReport& report);

/// The platform's own dialog. Where there is none it is a line on stderr, one for each site.
bool ShowAssertion(const AssertionReport& report);

/// Puts another dialog in place of the present one, which is returned.
AssertionDialog ExchangeAssertionDialog(AssertionDialog dialog);

} // namespace tn::basekit
