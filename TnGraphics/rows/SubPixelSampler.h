// Private: what lies between the pixels of an image.
#pragma once

#include "TnGraphics/port/TnImagePixel.h"
#include "TnGraphics/rows/PixelAlphas.h"

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
///
/// Transparent pixels take no part in the colour, which the visible ones share by their weights, but they do in the
/// alpha. Where nothing visible has a weight, all channels are 0.
template <class Pixels> class SubPixelSampler {
public:
    struct Neighbors {
        Pixels upperLeft, upperRight, lowerLeft, lowerRight;
    };

    // Lanes take weights of a byte across. Where one pixel has all the weight, the other one is replaced by it.
    SubPixelSampler(const TnImagePixel* upper, const TnImagePixel* lower, const SubPixelWeights& weights)
        : upper_(upper), lower_(lower), left_(weights.right == 256 ? 1 : 0), right_(weights.right == 0 ? 0 : 1),
          weights_(left_ == right_ ? 128 : weights.right, weights.lower) {}

    /// The pixels from the column on.
    Pixels operator()(std::size_t column) const {
        const TnImagePixel* const upper = upper_ + column;
        const TnImagePixel* const lower = lower_ + column;
        return Sample({Pixels::Load(upper + left_), Pixels::Load(upper + right_), Pixels::Load(lower + left_),
                       Pixels::Load(lower + right_)});
    }

    /// The first of them.
    Pixels First(std::size_t column, std::size_t count) const {
        const TnImagePixel* const upper = upper_ + column;
        const TnImagePixel* const lower = lower_ + column;
        return Sample({Pixels::LoadFirst(upper + left_, count), Pixels::LoadFirst(upper + right_, count),
                       Pixels::LoadFirst(lower + left_, count), Pixels::LoadFirst(lower + right_, count)});
    }

private:
    using Sums = typename Pixels::Sums;

    Pixels Sample(const Neighbors& pixels) const {
        if (AreVisible(pixels)) {
            return Sums(pixels, weights_).UpperHalves();
        }
        if (AreTransparent(pixels)) {
            return Pixels::All(0);
        }
        const Neighbors colors = {CountedColor(pixels.upperLeft), CountedColor(pixels.upperRight),
                                  CountedColor(pixels.lowerLeft), CountedColor(pixels.lowerRight)};
        return Sums(colors, weights_).DividedByFourth().WithAlphaOf(Sums(pixels, weights_).UpperHalves());
    }

    /// True when all of them in all lanes are visible; then weights need no sum.
    static bool AreVisible(const Neighbors& pixels) {
        const Pixels upper = MinBytes(pixels.upperLeft, pixels.upperRight);
        return !Transparent(MinBytes(upper, MinBytes(pixels.lowerLeft, pixels.lowerRight))).Any();
    }

    static bool AreTransparent(const Neighbors& pixels) {
        const Pixels any = pixels.upperLeft | pixels.upperRight | pixels.lowerLeft | pixels.lowerRight;
        return !(any & Pixels::All(kAlphaBits)).HasBits();
    }

    /// The colour with 1 as fourth channel, so that its sum is that of the visible weights; nothing when transparent.
    static Pixels CountedColor(Pixels pixels) {
        constexpr std::uint32_t kOne = 0x01000000;
        const Pixels counted = (pixels & Pixels::All(~kAlphaBits)) | Pixels::All(kOne);
        return Select(Transparent(pixels), Pixels::All(0), counted);
    }

    const TnImagePixel* upper_;
    const TnImagePixel* lower_;
    std::size_t left_;
    std::size_t right_;
    typename Sums::Weights weights_;
};

} // namespace tn
