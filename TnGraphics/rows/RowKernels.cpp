#include "TnGraphics/rows/RowKernels.h"

namespace tn {
namespace {

struct Choice {
    ProcessorLevel level;
    const RowKernels* kernels;
};

const RowKernels& KernelsOf(ProcessorLevel level) {
    switch (level) {
    case ProcessorLevel::kPortable:
        return portable::kRowKernels;
    case ProcessorLevel::kBaseline:
        return baseline::kRowKernels;
    case ProcessorLevel::kAvx2:
        return avx2::kRowKernels;
    case ProcessorLevel::kAvx512:
        return avx512::kRowKernels;
    }
    return portable::kRowKernels;
}

// Complete before any initialiser runs, so an early caller merely gets the slower kernels.
constinit Choice inUse = {ProcessorLevel::kPortable, &portable::kRowKernels};

[[maybe_unused]] const bool chosenAtLoad = (ForceLevel(BestLevel()), true);

} // namespace

const RowKernels& ActiveRowKernels() { return *inUse.kernels; }

ProcessorLevel ActiveLevel() { return inUse.level; }

void ForceLevel(ProcessorLevel level) { inUse = {level, &KernelsOf(level)}; }

} // namespace tn
