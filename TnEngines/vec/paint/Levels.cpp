#include "TnEngines/vec/paint/Levels.h"

#include "TnEngines/vec/paint/SpanKernels.h"

namespace tn::vec {
namespace {

// Complete before any initialiser runs, so an early caller merely gets the slower kernels.
constinit const SpanKernels* inUse = &baseline::kSpanKernels;

[[maybe_unused]] const bool chosenAtLoad = (ForceLevel(BestLevel()), true);

} // namespace

bool IsSupported(Level level) {
    __builtin_cpu_init();
    switch (level) {
    case Level::kBaseline:
        return true;
    case Level::kAvx2:
        return __builtin_cpu_supports("avx2") != 0;
    case Level::kAvx512:
        return IsSupported(Level::kAvx2) && __builtin_cpu_supports("avx512f") != 0 &&
               __builtin_cpu_supports("avx512bw") != 0 && __builtin_cpu_supports("avx512vl") != 0 &&
               __builtin_cpu_supports("avx512dq") != 0;
    }
    return false;
}

Level BestLevel() {
    Level best = Level::kBaseline;
    for (const Level level : kLevels) {
        best = IsSupported(level) ? level : best;
    }
    return best;
}

void ForceLevel(Level level) {
    switch (level) {
    case Level::kBaseline:
        inUse = &baseline::kSpanKernels;
        break;
    case Level::kAvx2:
        inUse = &avx2::kSpanKernels;
        break;
    case Level::kAvx512:
        inUse = &avx512::kSpanKernels;
        break;
    }
}

const SpanKernels& Kernels() { return *inUse; }

} // namespace tn::vec
