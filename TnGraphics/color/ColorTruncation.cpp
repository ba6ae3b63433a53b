#include "TnGraphics/color/ColorTruncation.h"

#include <cstdint>

namespace {

constexpr int kWebStep = 51;
constexpr int kVideoBlack = 16;
constexpr int kVideoSpan = 219; // from black to white, 235

std::uint8_t NearestWebStep(std::uint8_t channel) {
    return static_cast<std::uint8_t>((channel + kWebStep / 2) / kWebStep * kWebStep);
}

std::uint8_t VideoLevel(std::uint8_t channel) {
    return static_cast<std::uint8_t>(channel * kVideoSpan / 255 + kVideoBlack);
}

} // namespace

void RGBTruncToWebColor(TnColor& color) {
    color = {color.alpha, NearestWebStep(color.red), NearestWebStep(color.green), NearestWebStep(color.blue)};
}

void RGBTruncToVideoSafe(TnColor& color) {
    color = {color.alpha, VideoLevel(color.red), VideoLevel(color.green), VideoLevel(color.blue)};
}
