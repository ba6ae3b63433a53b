// The arithmetic of the kernels over all of its values.

#include "TnGraphics/rows/RowKernels.h"

#include "tests/models/FillModels.h"
#include "tests/support/Cases.h"
#include "tests/support/Levels.h"

#include <algorithm>
#include <cstddef>
#include <gtest/gtest.h>
#include <vector>

namespace tn::test {
namespace {

using Words = std::vector<TnImagePixel>;

class KernelArithmetic : public AtLevel {};

INSTANTIATE_TEST_SUITE_P(Levels, KernelArithmetic, ::testing::ValuesIn(kProcessorLevels), LevelTestName);

template <class Operator> void RunInForce(Words& row, const Operator& op) {
    ActiveKernel<Operator>()(row.data(), row.size(), op);
}

void ExpectSameWords(const Words& expected, const Words& actual) {
    const auto [e, a] = std::mismatch(expected.begin(), expected.end(), actual.begin());
    if (e != expected.end()) {
        FAIL() << std::hex << "pixel " << e - expected.begin() << ": expected 0x" << e->value << ", but it is 0x"
               << a->value;
    }
}

// A pixel whose three channels run through the values in different orders.
TnImagePixel PixelOf(std::uint32_t alpha, std::uint32_t value) {
    return alpha << 24 | value << 16 | (255 - value) << 8 | (value ^ 0x55U);
}

// Every alpha with every value of a channel, each alpha in a stretch of its own.
Words EveryAlphaAndValue() {
    Words row;
    for (std::uint32_t i = 0; i < 65536; ++i) {
        row.push_back(PixelOf(i / 256, i % 256));
    }
    return row;
}

// The same with all the alphas for each value, so that no vector holds transparent or opaque pixels alone.
Words EveryValueAndAlpha() {
    Words row;
    for (std::uint32_t i = 0; i < 65536; ++i) {
        row.push_back(PixelOf(i % 256, i / 256));
    }
    return row;
}

// What becomes of one channel of EveryAlphaAndValue, by alpha and value, for a colour channel.
class BlendedChannel {
public:
    BlendedChannel(int color, bool fillTransparent) {
        for (int alpha = 0; alpha < 256; ++alpha) {
            for (int value = 0; value < 256; ++value) {
                At(alpha, value) = static_cast<std::uint8_t>(Blended(color, value, alpha, fillTransparent));
            }
        }
    }

    std::uint32_t Of(std::uint32_t alpha, std::uint32_t value) const { return table_[alpha * 256 + value]; }

private:
    static int Blended(int color, int value, int alpha, bool fillTransparent) {
        if (alpha == 0) {
            return fillTransparent ? color : value;
        }
        return (color * (255 - alpha) + value * alpha) / 255;
    }

    std::uint8_t& At(int alpha, int value) { return table_[static_cast<std::size_t>(alpha * 256 + value)]; }

    std::vector<std::uint8_t> table_ = std::vector<std::uint8_t>(65536);
};

void ExpectBlended(const Words& pixels, std::uint8_t color, bool fillTransparent) {
    const TnColor channels = {0, color, static_cast<std::uint8_t>(color + 85), static_cast<std::uint8_t>(color + 170)};
    const BlendedChannel red(channels.red, fillTransparent);
    const BlendedChannel green(channels.green, fillTransparent);
    const BlendedChannel blue(channels.blue, fillTransparent);
    Words expected(pixels.size());
    std::transform(pixels.begin(), pixels.end(), expected.begin(), [&](std::uint32_t pixel) {
        const std::uint32_t alpha = pixel >> 24;
        return alpha << 24 | red.Of(alpha, pixel >> 16 & 255) << 16 | green.Of(alpha, pixel >> 8 & 255) << 8 |
               blue.Of(alpha, pixel & 255);
    });
    Words actual = pixels;
    const BlendBehind blend = {model::WordOf(channels)};
    if (fillTransparent) {
        RunInForce(actual, blend);
    } else {
        RunInForce(actual, BlendBehindVisible{blend});
    }
    ExpectSameWords(expected, actual);
}

void ExpectBlendedWithEveryColor(const Words& pixels) {
    const int step = HasTimeForEveryValue() ? 1 : 17; // of the colours, the ends included: 255 = 15 x 17
    for (int color = 0; color < 256 && !::testing::Test::HasFatalFailure(); color += step) {
        SCOPED_TRACE(color);
        ExpectBlended(pixels, static_cast<std::uint8_t>(color), true);
        ExpectBlended(pixels, static_cast<std::uint8_t>(color), false);
    }
}

TEST_P(KernelArithmetic, BlendsEveryValueOfEveryChannelWithEveryAlphaAndColor) {
    ExpectBlendedWithEveryColor(EveryAlphaAndValue());
}

TEST_P(KernelArithmetic, BlendsMixedAlphasLikeStretchesOfOne) { ExpectBlendedWithEveryColor(EveryValueAndAlpha()); }

std::vector<std::uint32_t> SomeFactors() {
    std::vector<std::uint32_t> factors;
    for (int percent = -300; percent <= 300; ++percent) {
        factors.push_back(static_cast<std::uint32_t>(percent * 65536 / 100));
    }
    for (int bit = 0; bit < 32; ++bit) {
        const std::uint32_t power = 1U << bit;
        factors.insert(factors.end(), {power - 1, power, power + 1});
    }
    return factors;
}

TEST_P(KernelArithmetic, ScalesEveryAlpha) {
    Words pixels;
    for (std::uint32_t alpha = 0; alpha < 256; ++alpha) {
        pixels.push_back(alpha << 24 | 0xFEDCBA);
    }
    for (const std::uint32_t factor : SomeFactors()) {
        SCOPED_TRACE(factor);
        Words expected = pixels;
        for (TnImagePixel& pixel : expected) {
            pixel = model::WithScaledAlpha(pixel, factor);
        }
        Words actual = pixels;
        RunInForce(actual, ScaleAlpha{factor});
        ExpectSameWords(expected, actual);
    }
}

TEST_P(KernelArithmetic, SetsEveryAlpha) {
    const Words pixels = EveryAlphaAndValue();
    for (std::uint32_t alpha = 0; alpha < 256; alpha += 51) {
        SCOPED_TRACE(alpha);
        Words expected = pixels;
        for (TnImagePixel& pixel : expected) {
            pixel = model::WithAlpha(pixel, static_cast<std::uint8_t>(alpha));
        }
        Words actual = pixels;
        RunInForce(actual, SetAlpha{alpha << 24});
        ExpectSameWords(expected, actual);
    }
}

} // namespace
} // namespace tn::test
