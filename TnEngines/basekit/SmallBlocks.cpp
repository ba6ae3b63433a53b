#include "TnEngines/basekit/SmallBlocks.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <bit>
#include <cstdint>

namespace tn::basekit {
namespace {

constexpr std::size_t kSizes = kLargestSmallBlock / kBlockStep;

// How many bytes stand before the blocks of a size, which is given in steps from 1.
constexpr std::size_t BytesBefore(std::size_t steps) {
    return kSmallBlocksOfEachSize * kBlockStep * (steps * (steps - 1) / 2);
}

// Threads share the supply without locks: a block belongs to whoever sets its bit, until he clears it again.
struct State {
    alignas(kBlockStep) std::array<std::byte, BytesBefore(kSizes + 1)> memory;
    std::array<std::atomic<std::uint64_t>, kSizes> taken;
};
constinit State theState{};
static_assert(kSmallBlocksOfEachSize == 64 && kBlockStep >= alignof(std::max_align_t));

std::size_t StepsFor(std::size_t bytes) { return (std::max<std::size_t>(bytes, 1) + kBlockStep - 1) / kBlockStep; }

constexpr std::size_t kNone = kSmallBlocksOfEachSize;

// Sets a bit that was clear and gives its place.
std::size_t TakeBit(std::atomic<std::uint64_t>& word) {
    std::uint64_t known = word.load(std::memory_order_relaxed);
    while (~known != 0) {
        const auto place = static_cast<std::size_t>(std::countr_one(known));
        const std::uint64_t bit = std::uint64_t{1} << place;
        const std::uint64_t before = word.fetch_or(bit, std::memory_order_acquire);
        if ((before & bit) == 0) {
            return place;
        }
        known = before;
    }
    return kNone;
}

void ReturnBit(std::atomic<std::uint64_t>& word, std::size_t place) {
    word.fetch_and(~(std::uint64_t{1} << place), std::memory_order_release);
}

} // namespace

void* TakeSmallBlock(std::size_t bytes) noexcept {
    if (bytes > kLargestSmallBlock) {
        return nullptr;
    }
    const std::size_t steps = StepsFor(bytes);
    const std::size_t place = TakeBit(theState.taken[steps - 1]);
    return place != kNone ? &theState.memory[BytesBefore(steps) + place * steps * kBlockStep] : nullptr;
}

bool ReturnSmallBlock(void* block, std::size_t bytes) noexcept {
    if (bytes > kLargestSmallBlock) {
        return false;
    }
    const std::size_t steps = StepsFor(bytes);
    // Addresses elsewhere wrap to offsets beyond the supply.
    const std::size_t offset = reinterpret_cast<std::uintptr_t>(block) -
                               reinterpret_cast<std::uintptr_t>(theState.memory.data()) - BytesBefore(steps);
    const std::size_t place = offset / (steps * kBlockStep);
    if (place >= kSmallBlocksOfEachSize) {
        return false;
    }
    ReturnBit(theState.taken[steps - 1], place);
    return true;
}

} // namespace tn::basekit
