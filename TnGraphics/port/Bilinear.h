// Private: how a position between four pixels weighs them.
#pragma once

#include <cstdint>

namespace tn {

/// The weights of four neighbouring pixels, 65536 in all.
struct BilinearWeights {
    std::uint32_t upperLeft;
    std::uint32_t upperRight;
    std::uint32_t lowerLeft;
    std::uint32_t lowerRight;

    /// \param right how far the position is from the left pixels towards the right ones, in 256ths: 0 to 256
    /// \param lower how far it is from the upper ones towards the lower ones
    constexpr BilinearWeights(std::uint32_t right, std::uint32_t lower)
        : upperLeft((256 - right) * (256 - lower)), upperRight(right * (256 - lower)), lowerLeft((256 - right) * lower),
          lowerRight(right * lower) {}

    /// The sum of four values, each times its weight.
    constexpr std::uint32_t Sum(std::uint32_t ul, std::uint32_t ur, std::uint32_t ll, std::uint32_t lr) const {
        return ul * upperLeft + ur * upperRight + ll * lowerLeft + lr * lowerRight;
    }
};

} // namespace tn
