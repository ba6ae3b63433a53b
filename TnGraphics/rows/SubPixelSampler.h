// Private: what lies between the pixels of an image, everywhere at the same distance from them.
#pragma once

#include "TnGraphics/port/TnImagePixel.h"
#include "TnGraphics/rows/BilinearSampler.h"

#include <cstddef>
#include <cstdint>

namespace tn {

/// The weights of the right and of the lower ones of four neighbouring pixels, 0 to 256 each. A left one has 256 less
/// that of the right, and likewise an upper one; a pixel weighs the product of both.
struct SubPixelWeights {
    std::uint32_t right;
    std::uint32_t lower;
};

/// Samples amid the pixels of two rows: amid pixels i and i + 1 of both for pixel i.
template <class Pixels> class SubPixelSampler {
public:
    // Lanes take weights of a byte across. Where one pixel has all the weight, the other one is replaced by it.
    SubPixelSampler(const TnImagePixel* upper, const TnImagePixel* lower, const SubPixelWeights& weights)
        : upper_(upper), lower_(lower), left_(weights.right == 256 ? 1 : 0), right_(weights.right == 0 ? 0 : 1),
          weights_(left_ == right_ ? 128 : weights.right, weights.lower) {}

    /// The pixels from the column on.
    Pixels operator()(std::size_t column) const {
        const TnImagePixel* const upper = upper_ + column;
        const TnImagePixel* const lower = lower_ + column;
        return VisibleMean(Neighbors<Pixels>{Pixels::Load(upper + left_), Pixels::Load(upper + right_),
                                             Pixels::Load(lower + left_), Pixels::Load(lower + right_)},
                           weights_);
    }

    /// The first of them.
    Pixels First(std::size_t column, std::size_t count) const {
        const TnImagePixel* const upper = upper_ + column;
        const TnImagePixel* const lower = lower_ + column;
        return VisibleMean(
            Neighbors<Pixels>{Pixels::LoadFirst(upper + left_, count), Pixels::LoadFirst(upper + right_, count),
                              Pixels::LoadFirst(lower + left_, count), Pixels::LoadFirst(lower + right_, count)},
            weights_);
    }

private:
    const TnImagePixel* upper_;
    const TnImagePixel* lower_;
    std::size_t left_;
    std::size_t right_;
    typename Pixels::Sums::Weights weights_;
};

} // namespace tn
