#include "Picture.h"

#include <algorithm>
#include <cmath>

namespace {

// The pixels that the one at this position stands for, at least one.
TnRect Block(const TnPoint& at, const TnPoint& size, const TnPoint& whole) {
    const auto scaled = [](std::int32_t position, std::int32_t extent, std::int32_t wholeExtent) {
        return static_cast<std::int32_t>(std::int64_t{position} * wholeExtent / extent);
    };
    const std::int32_t left = scaled(at.x, size.x, whole.x);
    const std::int32_t top = scaled(at.y, size.y, whole.y);
    return {left, top, std::max(scaled(at.x + 1, size.x, whole.x) - left, 1),
            std::max(scaled(at.y + 1, size.y, whole.y) - top, 1)};
}

TnImagePixel Mean(const TnImage& picture, const TnRect& block) {
    std::uint64_t alpha = 0;
    std::uint64_t red = 0;
    std::uint64_t green = 0;
    std::uint64_t blue = 0;
    std::uint64_t count = 0;
    for (auto pixel = picture.begin(block); !pixel.AtEnd(); ++pixel, ++count) {
        alpha += pixel->Alpha();
        red += pixel->Red();
        green += pixel->Green();
        blue += pixel->Blue();
    }
    const auto mean = [count](std::uint64_t sum) { return static_cast<std::uint32_t>(sum / count); };
    return mean(alpha) << 24 | mean(red) << 16 | mean(green) << 8 | mean(blue);
}

} // namespace

TnRect Inset(const TnRect& rect, double share) {
    const auto dx = static_cast<std::int32_t>(rect.width * share);
    const auto dy = static_cast<std::int32_t>(rect.height * share);
    return {rect.left + dx, rect.top + dy, rect.width - 2 * dx, rect.height - 2 * dy};
}

void CutOutOval(TnImage& image, double innerRadius, double outerRadius) {
    const TnPoint size = image.Size();
    for (auto pixel = image.begin(); !pixel.AtEnd(); ++pixel) {
        const TnPoint at = pixel.Position();
        const double radius = std::hypot(2.0 * at.x / size.x - 1.0, 2.0 * at.y / size.y - 1.0);
        const double coverage = std::clamp((outerRadius - radius) / (outerRadius - innerRadius), 0.0, 1.0);
        pixel->Alpha(static_cast<std::uint8_t>(255.0 * coverage));
    }
}

TnImage Reduced(const TnImage& picture, const TnPoint& size) {
    TnImage reduced(size);
    for (auto pixel = reduced.begin(); !pixel.AtEnd(); ++pixel) {
        *pixel = Mean(picture, Block(pixel.Position(), size, picture.Size()));
    }
    return reduced;
}
