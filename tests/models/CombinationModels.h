// What the compositing operations make of a source pixel and a destination pixel, in plain numbers.
#pragma once

#include <cstdint>
#include <vector>

namespace tn::test::model {

/// A pixel in plain numbers. That of a matte has the value as its alpha.
struct Channels {
    int alpha = 0;
    int red = 0;
    int green = 0;
    int blue = 0;

    friend constexpr bool operator==(const Channels&, const Channels&) = default;
};

Channels ChannelsOf(std::uint32_t word);
std::uint32_t PackedWord(const Channels& pixel);

struct ScaleAndOffset {
    int scale = 256;
    int offset = 0;
};

/// What happens to each channel of a source before it is combined.
struct ChannelMatrix {
    ScaleAndOffset red;
    ScaleAndOffset green;
    ScaleAndOffset blue;
    ScaleAndOffset alpha;
};

Channels Transformed(const Channels& pixel, const ChannelMatrix& matrix);

/// Product in 32 bits, quotient truncated, low byte.
int ScaledAlpha(int alpha, int opacity);

/// A source pixel transformed, and then its alpha scaled; the opacity 255 leaves alphas alone.
Channels Prepared(const Channels& pixel, const ChannelMatrix& matrix, int opacity);

/// How a prepared source pixel is combined with a destination pixel.
enum class Combination {
    kBlend,
    kPreBlend,
    kIntersect,
    kIntersectNoColor,
    kSubtract,
    kXor,
    kCopy,
    kCopyAlpha,
    kCopyColor,
    kLuminanceToAlpha,
    kAlphaToLuminance,
    kMapColor,
};

/// Everything but the mapping of colours, which needs its lists.
Channels Combined(Combination combination, const Channels& source, const Channels& destination);

struct ColorMap {
    std::vector<std::uint32_t> from;
    std::vector<std::uint32_t> to;
};

Channels Mapped(const Channels& source, const Channels& destination, const ColorMap& map);

} // namespace tn::test::model
