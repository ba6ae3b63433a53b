// Private: small blocks of memory from a fixed supply.
#pragma once

#include <cstddef>

namespace tn::basekit {

inline constexpr std::size_t kBlockStep = 16;             ///< Sizes are whole steps; blocks are aligned to one.
inline constexpr std::size_t kLargestSmallBlock = 256;    ///< Bytes.
inline constexpr std::size_t kSmallBlocksOfEachSize = 64; ///< One for each bit of a word.

/// Null when all blocks of that size are taken, and for sizes beyond the largest.
void* TakeSmallBlock(std::size_t bytes) noexcept;

/// False for a block that is not from the supply.
bool ReturnSmallBlock(void* block, std::size_t bytes) noexcept;

} // namespace tn::basekit
