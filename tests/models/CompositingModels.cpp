#include "tests/models/CompositingModels.h"

#include "tests/models/EraseModels.h"
#include "tests/models/PollModels.h"
#include "tests/models/RectModels.h"

#include <cstddef>
#include <cstring>

namespace tn::test::model {
namespace {

using Wide = std::int64_t;

Channels CombinedOrMapped(const Compositing& call, const Channels& source, const Channels& destination) {
    return call.combination == Combination::kMapColor ? Mapped(source, destination, call.map)
                                                      : Combined(call.combination, source, destination);
}

// A matte has no colour, and its value is no alpha to the matrix.
Channels PreparedFor(const Compositing& call, const Plane& source, const Channels& pixel) {
    return Prepared(pixel, source.pixelBytes == 1 ? ChannelMatrix{} : call.matrix, call.opacity);
}

int FractionOf(std::int32_t fixed) { return static_cast<int>(Wide{fixed} - Wide{FloorOfFixed(fixed)} * 65536); }

Placement PlacementOf(const Compositing& call, const TnPoint& sourceSize, const TnPoint& destinationSize) {
    return CalcIterBnds(sourceSize, destinationSize, {FloorOfFixed(call.x), FloorOfFixed(call.y)}, call.clip);
}

void CompositeRows(const Compositing& call, const Plane& source, const Plane& destination, int rows) {
    const Placement placement = PlacementOf(call, source.size, destination.size);
    const bool isSubPixel = FractionOf(call.x) != 0 || FractionOf(call.y) != 0;
    for (int y = 0; y < rows; ++y) {
        for (int x = 0; x < placement.destination.width; ++x) {
            const int sourceX = placement.source.left + x;
            const int sourceY = placement.source.top + y;
            const Channels read = isSubPixel ? Sampled(source, sourceX, sourceY, FractionOf(call.x), FractionOf(call.y))
                                             : source.Get(sourceX, sourceY);
            const int destinationX = placement.destination.left + x;
            const int destinationY = placement.destination.top + y;
            const Channels old = destination.Get(destinationX, destinationY);
            destination.Set(destinationX, destinationY, CombinedOrMapped(call, PreparedFor(call, source, read), old));
        }
    }
}

void Clear(const Plane& plane, const TnRect& rect) {
    for (int y = rect.top; y < rect.top + rect.height; ++y) {
        for (int x = rect.left; x < rect.left + rect.width; ++x) {
            plane.Set(x, y, {});
        }
    }
}

} // namespace

std::uint8_t* Plane::At(int x, int y) const { return corner + y * rowBytes + std::int64_t{x} * pixelBytes; }

Channels Plane::Get(int x, int y) const {
    if (pixelBytes == 1) {
        return {*At(x, y), 0, 0, 0};
    }
    std::uint32_t word = 0;
    std::memcpy(&word, At(x, y), sizeof(word));
    return ChannelsOf(word);
}

void Plane::Set(int x, int y, const Channels& pixel) const {
    if (pixelBytes == 1) {
        *At(x, y) = static_cast<std::uint8_t>(pixel.alpha);
        return;
    }
    const std::uint32_t word = PackedWord(pixel);
    std::memcpy(At(x, y), &word, sizeof(word));
}

std::int32_t FixedOffset(std::int32_t whole) {
    const Wide low16 = (Wide{whole} % 65536 + 65536) % 65536;
    return static_cast<std::int32_t>((low16 < 32768 ? low16 : low16 - 65536) * 65536);
}

std::int32_t FloorOfFixed(std::int32_t fixed) {
    Wide whole = Wide{fixed} / 65536;
    while (whole * 65536 > fixed) {
        --whole;
    }
    return static_cast<std::int32_t>(whole);
}

Channels Sampled(const Plane& source, int x, int y, int fractionX, int fractionY) {
    const int gx = (65536 - fractionX) / 256;
    const int gy = (65536 - fractionY) / 256;
    const int weights[] = {(256 - gy) * (256 - gx), (256 - gy) * gx, gy * (256 - gx), gy * gx};
    const TnPoint positions[] = {{x - 1, y - 1}, {x, y - 1}, {x - 1, y}, {x, y}};
    Channels sums;
    int visibleWeight = 0;
    for (int i = 0; i < 4; ++i) {
        const TnPoint at = positions[i];
        const Channels pixel = source.Contains(at.x, at.y) ? source.Get(at.x, at.y) : Channels{};
        if (pixel.alpha != 0) {
            visibleWeight += weights[i];
            sums.alpha += pixel.alpha * weights[i];
            sums.red += pixel.red * weights[i];
            sums.green += pixel.green * weights[i];
            sums.blue += pixel.blue * weights[i];
        }
    }
    if (visibleWeight == 0) {
        return {};
    }
    return {sums.alpha / 65536, sums.red / visibleWeight, sums.green / visibleWeight, sums.blue / visibleWeight};
}

TnRect Overlap(const Compositing& call, const TnPoint& sourceSize, const TnPoint& destinationSize) {
    const Placement placement = PlacementOf(call, sourceSize, destinationSize);
    return placement.isPlaced ? placement.destination : TnRect{0, 0, 0, 0};
}

std::string PollsOf(const Compositing& call, const TnPoint& sourceSize, const TnPoint& destinationSize) {
    const TnRect overlap = Overlap(call, sourceSize, destinationSize);
    std::string polls;
    for (int poll = 0; poll < PollsInRows(overlap.height); ++poll) {
        polls += "ds";
    }
    if (call.erasesOutside) {
        polls.append(static_cast<std::size_t>(PollsIn(WalksOfErasing(destinationSize, overlap))), 'd');
    }
    return polls;
}

void Composite(const Compositing& call, const Plane& source, const Plane& destination, int poll) {
    const TnRect overlap = Overlap(call, source.size, destination.size);
    const int pollsWhileCombining = 2 * PollsInRows(overlap.height);
    const bool isLeftEarly = 0 < poll && poll <= pollsWhileCombining;
    CompositeRows(call, source, destination, isLeftEarly ? (poll + 1) / 2 * 32 : overlap.height);
    if (isLeftEarly || !call.erasesOutside) {
        return;
    }
    const Walks erasing = WalksOfErasing(destination.size, overlap);
    for (const TnRect& cleared : poll == 0 ? erasing : DoneAtPoll(erasing, poll - pollsWhileCombining)) {
        Clear(destination, cleared);
    }
}

} // namespace tn::test::model
