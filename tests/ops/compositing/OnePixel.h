// The operations on surfaces of one pixel. What they do there, they do to each pixel of an overlap.
#pragma once

#include "tests/support/Surfaces.h"

#include "TnGraphics/ops/Compositing.h"
#include "TnGraphics/ops/Copies.h"

#include <cstdint>

namespace tn::test {

/// A matte of one value.
class OneValueMatte : public TnMatte {
public:
    explicit OneValueMatte(std::uint8_t value) : TnMatte({1, 1}) { SetPixel(*this, 0, 0, value); }

    int Value() const { return PixelAt(*this, 0, 0); }
};

/// What an operation makes of a destination pixel.
template <class Operation>
std::uint32_t OnPixel(std::uint32_t source, std::uint32_t destination, const Operation& operation) {
    const OnePixelImage from(source);
    OnePixelImage to(destination);
    operation(from, to);
    return to.Word();
}

inline std::uint32_t Blended(std::uint32_t source, std::uint32_t destination, int opacity = 255) {
    return OnPixel(source, destination, [=](const TnImage& s, TnImage& d) { BlendImage(s, opacity, d, {0, 0}); });
}

inline std::uint32_t PreBlended(std::uint32_t source, std::uint32_t destination, int opacity = 255) {
    return OnPixel(source, destination, [=](const TnImage& s, TnImage& d) {
        PreBlendImageAndAlpha(s, opacity, d, {0, 0});
    });
}

inline std::uint32_t Intersected(std::uint32_t source, std::uint32_t destination, int opacity = 255) {
    return OnPixel(source, destination, [=](const TnImage& s, TnImage& d) { IntersectAlpha(s, opacity, d, {0, 0}); });
}

inline std::uint32_t IntersectedNoColor(std::uint32_t source, std::uint32_t destination, int opacity = 255) {
    return OnPixel(source, destination, [=](const TnImage& s, TnImage& d) {
        IntersectAlphaNoColor(s, opacity, d, {0, 0});
    });
}

inline std::uint32_t Subtracted(std::uint32_t source, std::uint32_t destination, int opacity = 255) {
    return OnPixel(source, destination, [=](const TnImage& s, TnImage& d) { SubtractAlpha(s, opacity, d, {0, 0}); });
}

inline std::uint32_t Xored(std::uint32_t source, std::uint32_t destination, int opacity = 255) {
    return OnPixel(source, destination, [=](const TnImage& s, TnImage& d) { XORAlpha(s, opacity, d, {0, 0}); });
}

} // namespace tn::test
