#include "tests/models/CombinationModels.h"

#include "tests/models/ColorModels.h"

#include <cstddef>

namespace tn::test::model {
namespace {

using Wide = std::int64_t;

// The value of the low 32 bits, the highest of them counted as negative.
Wide Low32(Wide value) {
    constexpr Wide kCount = Wide{1} << 32;
    const Wide low = (value % kCount + kCount) % kCount;
    return low < kCount / 2 ? low : low - kCount;
}

template <class Mix> Channels WithColors(const Channels& source, const Channels& destination, int alpha, Mix mix) {
    return {alpha, mix(source.red, destination.red), mix(source.green, destination.green),
            mix(source.blue, destination.blue)};
}

Channels WithAlpha(Channels pixel, int alpha) {
    pixel.alpha = alpha;
    return pixel;
}

int Remaining(int sa, int da) { return da - (da * sa) / 255; }

// The colours of both in the shares of the combined alpha.
Channels WeighedByShares(const Channels& source, const Channels& destination, int alpha) {
    const int sa = source.alpha;
    const int w = Remaining(sa, destination.alpha);
    const int n = w + sa;
    return WithColors(source, destination, alpha, [=](int s, int d) { return (s * sa + d * w) / n; });
}

Channels WeighedByOpacity(const Channels& source, const Channels& destination, int alpha) {
    const int sa = source.alpha;
    return WithColors(source, destination, alpha, [=](int s, int d) { return (s * sa + d * (255 - sa)) / 255; });
}

Channels Blended(const Channels& source, const Channels& destination) {
    const int sa = source.alpha;
    const int da = destination.alpha;
    if (sa == 0) {
        return destination;
    }
    if (sa == 255) {
        return source;
    }
    return WeighedByOpacity(source, destination, sa + da - (da * sa) / 255);
}

Channels PreBlended(const Channels& source, const Channels& destination) {
    const int sa = source.alpha;
    const int da = destination.alpha;
    if (sa == 0) {
        return destination;
    }
    if (sa == 255 || da == 0) {
        return source;
    }
    if (da == 255) {
        return WeighedByOpacity(source, destination, 255);
    }
    return WeighedByShares(source, destination, Remaining(sa, da) + sa);
}

Channels Intersected(const Channels& source, const Channels& destination) {
    const int sa = source.alpha;
    const int da = destination.alpha;
    if (da == 0) {
        return destination;
    }
    if (sa == 0) {
        return WithAlpha(destination, 0);
    }
    return WeighedByShares(source, destination, sa < da ? sa : da);
}

Channels IntersectedInAlpha(const Channels& source, const Channels& destination) {
    if (destination.alpha == 0) {
        return destination;
    }
    return source.alpha < destination.alpha ? WithAlpha(destination, source.alpha) : destination;
}

Channels Xored(const Channels& source, const Channels& destination) {
    const int sa = source.alpha;
    const int da = destination.alpha;
    if (Remaining(sa, da) + sa == 0) {
        return destination;
    }
    const int larger = sa > da ? sa : da;
    return WeighedByShares(source, destination, larger - (sa * da) / 255);
}

int InvertedLuminance(const Channels& pixel) { return 255 - YuvOfRgb({pixel.red, pixel.green, pixel.blue})[0]; }

Channels Grey(int alpha, int value) { return {alpha, value, value, value}; }

bool IsSameColor(const Channels& a, const Channels& b) {
    return a.red == b.red && a.green == b.green && a.blue == b.blue;
}

} // namespace

Channels ChannelsOf(std::uint32_t word) {
    const auto byte = [=](std::uint32_t placeValue) { return static_cast<int>(word / placeValue % 256); };
    return {byte(0x1000000), byte(0x10000), byte(0x100), byte(1)};
}

std::uint32_t PackedWord(const Channels& pixel) {
    return static_cast<std::uint32_t>(pixel.alpha) * 0x1000000U + static_cast<std::uint32_t>(pixel.red) * 0x10000U +
           static_cast<std::uint32_t>(pixel.green) * 0x100U + static_cast<std::uint32_t>(pixel.blue);
}

Channels Transformed(const Channels& pixel, const ChannelMatrix& matrix) {
    const auto channel = [](int value, const ScaleAndOffset& entry) {
        return TransformedChannel(value, entry.scale, entry.offset);
    };
    return {channel(pixel.alpha, matrix.alpha), channel(pixel.red, matrix.red), channel(pixel.green, matrix.green),
            channel(pixel.blue, matrix.blue)};
}

int ScaledAlpha(int alpha, int opacity) {
    const Wide quotient = Low32(Wide{alpha} * opacity) / 255;
    return static_cast<int>((quotient % 256 + 256) % 256);
}

Channels Prepared(const Channels& pixel, const ChannelMatrix& matrix, int opacity) {
    const Channels transformed = Transformed(pixel, matrix);
    return opacity == 255 ? transformed : WithAlpha(transformed, ScaledAlpha(transformed.alpha, opacity));
}

Channels Combined(Combination combination, const Channels& source, const Channels& destination) {
    switch (combination) {
    case Combination::kBlend:
        return Blended(source, destination);
    case Combination::kPreBlend:
        return PreBlended(source, destination);
    case Combination::kIntersect:
        return Intersected(source, destination);
    case Combination::kIntersectNoColor:
        return IntersectedInAlpha(source, destination);
    case Combination::kSubtract:
        return WithAlpha(destination, Remaining(source.alpha, destination.alpha));
    case Combination::kXor:
        return Xored(source, destination);
    case Combination::kCopyAlpha:
        return WithAlpha(destination, source.alpha);
    case Combination::kCopyColor:
        return WithAlpha(source, destination.alpha);
    case Combination::kLuminanceToAlpha:
        return WithAlpha(destination, InvertedLuminance(source));
    case Combination::kAlphaToLuminance:
        return Grey(destination.alpha, 255 - source.alpha);
    case Combination::kCopy:
    case Combination::kMapColor:
        break;
    }
    return source;
}

Channels Mapped(const Channels& source, const Channels& destination, const ColorMap& map) {
    if (map.to.empty()) {
        return destination;
    }
    std::size_t found = 0;
    while (found < map.from.size() && !IsSameColor(ChannelsOf(map.from[found]), source)) {
        ++found;
    }
    const bool isReplaced = found < map.from.size() && found < map.to.size();
    return ChannelsOf(isReplaced ? map.to[found] : map.to.back());
}

} // namespace tn::test::model
