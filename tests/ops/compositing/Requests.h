// What callers ask of the compositing operations: offsets, clips, opacities, matrices and colour lists.
#pragma once

#include "tests/models/CompositingModels.h"
#include "tests/support/Random.h"

#include "TnGraphics/color/TnColorTransform.h"
#include "TnGraphics/geometry/TnFixed.h"
#include "TnGraphics/port/TnImagePixel.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>
#include <vector>

namespace tn::test {

/// The arguments of an operation. Each overload takes some of them.
struct Request {
    TnPoint at;
    TnFixedPoint subPixelAt;
    TnRect clip;
    int opacity = 255;
    TnColorTransform transform;
    std::vector<TnImagePixel> from;
    std::vector<TnImagePixel> to;
};

inline model::ChannelMatrix MatrixOf(const TnColorTransform& transform) {
    const auto entry = [](const TnChannelTransform& channel) {
        return model::ScaleAndOffset{channel.scale, channel.offset};
    };
    return {entry(transform.red), entry(transform.green), entry(transform.blue), entry(transform.alpha)};
}

inline model::ColorMap MapOf(const Request& request) {
    return {{request.from.begin(), request.from.end()}, {request.to.begin(), request.to.end()}};
}

/// Mostly useful opacities; also those that wrap, and the ends of the range.
inline int RandomOpacity(Random& random) {
    constexpr int kLow = std::numeric_limits<int>::min();
    constexpr int kHigh = std::numeric_limits<int>::max();
    constexpr std::array<int, 16> kEdges = {0,    1,    127,      128,   254,       256,     -1,      -255,
                                            -256, kLow, kLow + 1, kHigh, kHigh - 1, 8421504, 8421505, -8421505};
    switch (random.Between(0, 7)) {
    case 0:
    case 1:
        return 255;
    case 2:
        return random.OneOf(kEdges);
    case 3:
        return static_cast<int>(random.Word());
    case 4:
        return random.Between(-1000, 1000);
    default:
        return random.Between(0, 255);
    }
}

inline TnChannelTransform RandomChannelTransform(Random& random) {
    constexpr std::array<std::int16_t, 8> kEdges = {-32768, -256, -1, 0, 255, 256, 257, 32767};
    const auto word = [&](int low, int high) {
        return random.OneIn(6) ? random.OneOf(kEdges) : static_cast<std::int16_t>(random.Between(low, high));
    };
    if (random.OneIn(16)) {
        return {static_cast<std::int16_t>(random.Word()), static_cast<std::int16_t>(random.Word())};
    }
    return {word(-600, 600), word(-300, 300)};
}

/// In a third of the cases the identity; often one that changes few channels.
inline TnColorTransform RandomTransform(Random& random) {
    TnColorTransform transform;
    if (random.OneIn(3)) {
        return transform;
    }
    const bool isOfAll = random.OneIn(2);
    for (TnChannelTransform* channel : {&transform.red, &transform.green, &transform.blue, &transform.alpha}) {
        if (isOfAll || random.OneIn(3)) {
            *channel = RandomChannelTransform(random);
        }
    }
    return transform;
}

/// An offset in one direction, nearly always with an overlap; now and then one that wraps to such an offset.
inline std::int32_t RandomOffset(Random& random, std::int32_t sourceLength, std::int32_t destinationLength) {
    constexpr std::array<std::int32_t, 8> kEnds = {
        -32768, -32767, 32766, 32767, std::numeric_limits<int>::min(), std::numeric_limits<int>::max(), -65536, 65535};
    const std::int32_t overlapping = random.Between(std::min(0, 1 - sourceLength), std::max(0, destinationLength - 1));
    switch (random.Between(0, 31)) {
    case 0:
        return random.OneOf(kEnds);
    case 1:
        return random.OneIn(2) ? -sourceLength : destinationLength; // touching
    case 2:
        return overlapping + 65536 * random.Between(-32000, 32000);
    case 3:
    case 4:
    case 5:
    case 6:
    case 7:
    case 8:
    case 9:
        return 0;
    case 10:
    case 11:
    case 12:
    case 13:
        return random.Between(-2, 2);
    default:
        return overlapping;
    }
}

/// A whole coordinate within 16 bits with a fraction, which is often an edge of the weights.
inline TnFixed RandomSubPixelOffset(Random& random, std::int32_t whole) {
    constexpr std::array<std::uint16_t, 12> kEdges = {0, 0, 1, 128, 255, 256, 257, 511, 32768, 65280, 65281, 65535};
    const std::uint32_t fraction = random.OneIn(2) ? random.OneOf(kEdges) : random.Word() & 0xFFFF;
    return {static_cast<std::int32_t>(static_cast<std::uint32_t>(whole) << 16 | fraction)};
}

/// The whole destination, or any rectangle that has to do with it.
inline TnRect RandomClip(Random& random, const TnPoint& destinationSize) {
    return random.OneIn(3) ? TnRect{0, 0, destinationSize.x, destinationSize.y} : random.Rect(destinationSize);
}

inline Request DrawRequest(Random& random, const TnPoint& sourceSize, const TnPoint& destinationSize) {
    Request request;
    request.at = {RandomOffset(random, sourceSize.x, destinationSize.x),
                  RandomOffset(random, sourceSize.y, destinationSize.y)};
    request.subPixelAt = {RandomSubPixelOffset(random, request.at.x), RandomSubPixelOffset(random, request.at.y)};
    request.clip = RandomClip(random, destinationSize);
    request.opacity = RandomOpacity(random);
    request.transform = RandomTransform(random);
    return request;
}

inline bool HasOverlap(const Request& request, const TnPoint& sourceSize, const TnPoint& destinationSize) {
    model::Compositing call;
    call.x = model::FixedOffset(request.at.x);
    call.y = model::FixedOffset(request.at.y);
    call.clip = request.clip;
    return model::Overlap(call, sourceSize, destinationSize).width > 0;
}

/// A request whose colour lists are empty, nearly always with an overlap where there can be one.
inline Request RandomRequest(Random& random, const TnPoint& sourceSize, const TnPoint& destinationSize) {
    Request request = DrawRequest(random, sourceSize, destinationSize);
    for (int draws = 1; draws < 8 && !HasOverlap(request, sourceSize, destinationSize) && !random.OneIn(20); ++draws) {
        request = DrawRequest(random, sourceSize, destinationSize);
    }
    return request;
}

} // namespace tn::test
