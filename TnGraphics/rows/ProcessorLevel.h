// Private: the instruction sets that row kernels exist for.
#pragma once

namespace tn {

enum class ProcessorLevel {
    kPortable, ///< One pixel at a time, on any processor.
    kBaseline, ///< SSE2, which every x86-64 processor has.
    kAvx2,     ///< AVX2.
    kAvx512,   ///< AVX-512 with the byte and word instructions.
};

inline constexpr ProcessorLevel kProcessorLevels[] = {ProcessorLevel::kPortable, ProcessorLevel::kBaseline,
                                                      ProcessorLevel::kAvx2, ProcessorLevel::kAvx512};

const char* NameOf(ProcessorLevel level);

/// True when this processor, and the system under it, can run the level.
bool IsSupported(ProcessorLevel level);

/// The highest supported level.
ProcessorLevel BestLevel();

} // namespace tn
