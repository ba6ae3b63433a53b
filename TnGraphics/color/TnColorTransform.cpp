#include "TnGraphics/color/TnColorTransform.h"

#include "TnGraphics/color/ClampToByte.h"

namespace {

std::uint8_t Transformed(std::uint8_t channel, const TnChannelTransform& transform) {
    return tn::ClampToByte(((channel * transform.scale) >> 8) + transform.offset);
}

// The low 32 bits of the product.
std::int32_t WrappedProduct(std::int32_t a, std::int32_t b) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(a) * static_cast<std::uint32_t>(b));
}

std::int16_t LowWord(std::int32_t value) { return static_cast<std::int16_t>(value); }

} // namespace

bool operator==(const TnColorTransform& a, const TnColorTransform& b) {
    return a.red == b.red && a.green == b.green && a.blue == b.blue && a.alpha == b.alpha;
}

bool IsNoChangeColorTransform(const TnColorTransform& transform) { return transform == TnColorTransform(); }

TnColorTransform GetColorMatrixForBlend(const TnColor& color, int percent) {
    const std::int32_t mix = WrappedProduct(percent, 255) / 100;
    const std::int16_t scale = LowWord(WrappedProduct(255 - mix, 256) / 255);
    const auto towards = [=](std::uint8_t channel) {
        return TnChannelTransform{scale, LowWord(WrappedProduct(channel, mix) / 255)};
    };
    return {towards(color.red), towards(color.green), towards(color.blue), {}};
}

TnColor ColorTransform(const TnColor& color, const TnColorTransform& transform) {
    return {Transformed(color.alpha, transform.alpha), Transformed(color.red, transform.red),
            Transformed(color.green, transform.green), Transformed(color.blue, transform.blue)};
}

TnImagePixel ColorTransform(const TnImagePixel& pixel, const TnColorTransform& transform) {
    return ColorTransform(TnColor(pixel.Alpha(), pixel.Red(), pixel.Green(), pixel.Blue()), transform);
}

TnMattePixel ColorTransform(const TnMattePixel& pixel, const TnColorTransform&) { return pixel; }
