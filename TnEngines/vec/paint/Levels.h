// Private: the instruction sets that kernels exist for.
#pragma once

namespace tn::vec {

enum class Level {
    kBaseline, ///< SSE2, which every x86-64 processor has.
    kAvx2,
    kAvx512, ///< With the byte and word instructions.
};

inline constexpr Level kLevels[] = {Level::kBaseline, Level::kAvx2, Level::kAvx512};

/// True when this processor, and the system under it, can run the level.
bool IsSupported(Level level);

/// The highest supported level, which is in use from the start.
Level BestLevel();

/// Uses a level that is supported from now on. For tests and benchmarks.
void ForceLevel(Level level);

} // namespace tn::vec
