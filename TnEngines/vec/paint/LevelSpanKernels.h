// Private: the span kernels, once for each processor level. The compiler makes lanes of the loops.
#pragma once

#include "TnEngines/vec/paint/Blending.h"
#include "TnEngines/vec/paint/SpanKernels.h"

namespace tn::vec {
namespace {

void FillImage(std::uint8_t* pixels, std::size_t count, std::uint32_t word) {
    for (std::size_t i = 0; i < count; ++i) {
        StoreWord(pixels + 4 * i, word);
    }
}

void BlendImage(std::uint8_t* pixels, std::size_t count, std::uint32_t color, std::uint32_t alpha) {
    for (std::size_t i = 0; i < count; ++i) {
        StoreWord(pixels + 4 * i, Blended(LoadWord(pixels + 4 * i), color, alpha));
    }
}

// Most spans are short and have many a pixel that takes no arithmetic; lanes pay in longer ones.
void BlendImageCovered(std::uint8_t* pixels, std::size_t count, std::uint32_t color, const std::uint8_t* coverage) {
    constexpr std::size_t kLanes = 8;
    const std::uint32_t alpha = color >> 24;
    for (; count >= kLanes; count -= kLanes, pixels += 4 * kLanes, coverage += kLanes) {
        for (std::size_t i = 0; i < kLanes; ++i) {
            StoreWord(pixels + 4 * i, Blended(LoadWord(pixels + 4 * i), color, CoveredAlpha(alpha, coverage[i])));
        }
    }
    for (std::size_t i = 0; i < count; ++i) {
        StoreWord(pixels + 4 * i, BlendedByCase(LoadWord(pixels + 4 * i), color, CoveredAlpha(alpha, coverage[i])));
    }
}

void BlendMatte(std::uint8_t* pixels, std::size_t count, std::uint32_t value, std::uint32_t alpha) {
    for (std::size_t i = 0; i < count; ++i) {
        pixels[i] = static_cast<std::uint8_t>(BlendedMatte(pixels[i], value, alpha));
    }
}

void BlendMatteCovered(std::uint8_t* pixels, std::size_t count, std::uint32_t value, std::uint32_t alpha,
                       const std::uint8_t* coverage) {
    constexpr std::size_t kLanes = 8;
    const auto blendAt = [=](std::size_t i) {
        pixels[i] = static_cast<std::uint8_t>(BlendedMatte(pixels[i], value, CoveredAlpha(alpha, coverage[i])));
    };
    std::size_t done = 0;
    for (; done + kLanes <= count; done += kLanes) {
        for (std::size_t i = 0; i < kLanes; ++i) {
            blendAt(done + i);
        }
    }
    for (; done < count; ++done) {
        blendAt(done);
    }
}

void Multiply(std::uint8_t* coverage, std::size_t count, const std::uint8_t* by) {
    for (std::size_t i = 0; i < count; ++i) {
        coverage[i] = static_cast<std::uint8_t>(Nearest255th(static_cast<std::uint32_t>(coverage[i] * by[i])));
    }
}

constexpr SpanKernels kLevelKernels = {&FillImage,  &BlendImage,        &BlendImageCovered,
                                       &BlendMatte, &BlendMatteCovered, &Multiply};

} // namespace
} // namespace tn::vec
