#include "TnEngines/basekit/AssertionDialog.h"

#include <windows.h>

#include <string>

bool tn::basekit::ShowAssertion(const AssertionReport& report) {
    const std::string text = std::string(report.expression) + "\n\n" + report.function + "\n" + report.file +
                             ", line " + std::to_string(report.line) +
                             "\n\nReport this assertion again during this run?";
    const int answer = MessageBoxA(nullptr, text.c_str(), "Assertion failed", MB_YESNO | MB_ICONERROR | MB_TASKMODAL);
    if (IsDebuggerPresent() != FALSE) {
        DebugBreak();
    }
    return answer == IDNO;
}
