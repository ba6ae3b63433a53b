#include "TnEngines/basekit/AssertionDialog.h"

#include <cstdio>

// A console cannot be asked whether it has heard enough, so each site speaks once.
bool tn::basekit::ShowAssertion(const AssertionReport& report) {
    std::fprintf(stderr, "%s:%d: %s: assertion failed: %s\n", report.file, report.line, report.function,
                 report.expression);
    return true;
}
