#include "TnGraphics/rows/ProcessorLevel.h"

#include "TnGraphics/rows/Portability.h"

namespace tn {

const char* NameOf(ProcessorLevel level) {
    switch (level) {
    case ProcessorLevel::kPortable:
        return "portable";
    case ProcessorLevel::kBaseline:
        return "baseline";
    case ProcessorLevel::kAvx2:
        return "AVX2";
    case ProcessorLevel::kAvx512:
        return "AVX-512";
    }
    return "unknown";
}

bool IsSupported(ProcessorLevel level) {
    switch (level) {
    case ProcessorLevel::kPortable:
    case ProcessorLevel::kBaseline:
        return true;
    case ProcessorLevel::kAvx2:
        return ProcessorHasAvx2();
    case ProcessorLevel::kAvx512:
        return ProcessorHasAvx2() && ProcessorHasAvx512Bw();
    }
    return false;
}

ProcessorLevel BestLevel() {
    ProcessorLevel best = ProcessorLevel::kPortable;
    for (const ProcessorLevel level : kProcessorLevels) {
        if (IsSupported(level)) {
            best = level;
        }
    }
    return best;
}

} // namespace tn
