#include "tests/models/FillModels.h"

#include "tests/models/RectModels.h"

namespace tn::test::model {
namespace {

// Calls work with each pixel of the rectangle and its distance from the rectangle's corner.
template <class Value, class Work> void ForEachPixel(ModelPicture<Value>& picture, const TnRect& rect, Work work) {
    for (int y = 0; y < picture.Height(); ++y) {
        for (int x = 0; x < picture.Width(); ++x) {
            if (Contains(rect, x, y)) {
                work(picture.At(x, y), std::int64_t{x} - rect.left, std::int64_t{y} - rect.top);
            }
        }
    }
}

template <class Value, class Work> void ForEachPixel(ModelPicture<Value>& picture, Work work) {
    for (int y = 0; y < picture.Height(); ++y) {
        for (int x = 0; x < picture.Width(); ++x) {
            work(picture.At(x, y));
        }
    }
}

std::uint32_t OpaqueWordOf(const TnColor& color) { return WithAlpha(WordOf(color), 255); }

int BlendedChannel(int pixel, int color, int alpha) { return (color * (255 - alpha) + pixel * alpha) / 255; }

} // namespace

std::uint32_t WordOf(const TnColor& color) {
    std::uint32_t word = color.alpha;
    word = word * 256 + color.red;
    word = word * 256 + color.green;
    return word * 256 + color.blue;
}

std::uint32_t WithAlpha(std::uint32_t pixel, std::uint8_t alpha) { return pixel % 0x1000000 + alpha * 0x1000000U; }

std::uint32_t WithScaledAlpha(std::uint32_t pixel, std::int64_t factor) {
    const std::int64_t alpha = pixel / 0x1000000;
    const std::int64_t product = alpha * factor;
    const std::int64_t shifted = product >> 16;
    return WithAlpha(pixel, static_cast<std::uint8_t>(shifted & 255));
}

std::uint32_t WithColorBehind(std::uint32_t pixel, const TnColor& color, bool fillTransparent) {
    const int alpha = static_cast<int>(pixel / 0x1000000);
    if (alpha == 255 || (alpha == 0 && !fillTransparent)) {
        return pixel;
    }
    const auto channel = [&](std::uint32_t placeValue, int colorChannel) {
        const int pixelChannel = static_cast<int>(pixel / placeValue % 256);
        const int blended = alpha == 0 ? colorChannel : BlendedChannel(pixelChannel, colorChannel, alpha);
        return static_cast<std::uint32_t>(blended) * placeValue;
    };
    const std::uint32_t blended = channel(0x10000, color.red) + channel(0x100, color.green) + channel(1, color.blue);
    return WithAlpha(blended, static_cast<std::uint8_t>(alpha));
}

std::int64_t OpacityFactor(int percent) {
    constexpr std::int64_t kWords = 0x100000000;
    std::int64_t dividend = std::int64_t{percent} * 65536 % kWords;
    if (dividend >= kWords / 2) {
        dividend -= kWords;
    }
    if (dividend < -kWords / 2) {
        dividend += kWords;
    }
    return dividend / 100;
}

void ColorFill(ModelImage& image, const TnRect& rect, const TnColor& color) {
    ForEachPixel(image, rect, [&](std::uint32_t& pixel, std::int64_t, std::int64_t) { pixel = WordOf(color); });
}

void AlphaFill(ModelImage& image, const TnRect& rect, std::uint8_t alpha) {
    ForEachPixel(image, rect,
                 [=](std::uint32_t& pixel, std::int64_t, std::int64_t) { pixel = WithAlpha(pixel, alpha); });
}

void AlphaFill(ModelMatte& matte, const TnRect& rect, std::uint8_t value) {
    ForEachPixel(matte, rect, [=](std::uint8_t& pixel, std::int64_t, std::int64_t) { pixel = value; });
}

void XFill(ModelImage& image, const TnRect& rect, const TnColor& ground, const TnColor& line) {
    ForEachPixel(image, rect, [&](std::uint32_t& pixel, std::int64_t u, std::int64_t v) {
        const bool onCross = u == v || rect.width - u - 1 == v;
        pixel = OpaqueWordOf(onCross ? line : ground);
    });
}

void CrossHatchFill(ModelImage& image, const TnRect& rect, const TnColor& ground, const TnColor& line,
                    long sizeExponent) {
    const std::int64_t cell = std::int64_t{1} << (sizeExponent & 31);
    ForEachPixel(image, rect, [&](std::uint32_t& pixel, std::int64_t u, std::int64_t v) {
        const std::int64_t column = u % cell;
        const std::int64_t row = v % cell;
        const bool onLine = column == row || cell - 1 - column == row;
        pixel = OpaqueWordOf(onLine ? line : ground);
    });
}

void BlendInColor(ModelImage& image, const TnColor& color, bool fillTransparent) {
    ForEachPixel(image, [&](std::uint32_t& pixel) { pixel = WithColorBehind(pixel, color, fillTransparent); });
}

void BlendInColorAndFillAlpha(ModelImage& image, const TnColor& color, std::uint8_t alpha) {
    ForEachPixel(image, [&](std::uint32_t& pixel) { pixel = WithAlpha(WithColorBehind(pixel, color, true), alpha); });
}

void SetOpacity(ModelImage& image, int percent) {
    const std::int64_t factor = OpacityFactor(percent);
    ForEachPixel(image, [=](std::uint32_t& pixel) { pixel = WithScaledAlpha(pixel, factor); });
}

Walks WalksOfFill(const TnPoint& size, const TnRect& rect) {
    const TnRect walked = SharedRect({0, 0, size.x, size.y}, rect);
    return walked.width > 0 ? Walks{walked} : Walks{};
}

} // namespace tn::test::model
