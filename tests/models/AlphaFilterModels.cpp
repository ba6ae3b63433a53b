#include "tests/models/AlphaFilterModels.h"

#include <algorithm>
#include <cstddef>

namespace tn::test::model {
namespace {

using Wide = std::int64_t;

constexpr std::uint8_t kKept = 128;

Wide LengthOf(const Line& line) { return static_cast<Wide>(line.size()); }

// The value at a position that may lie past the end.
int ValueAhead(const Line& line, Wide position) {
    return position < LengthOf(line) ? line[static_cast<std::size_t>(position)] : 0;
}

// How many values of 0 and of 255 were met last, one after the other.
struct Runs {
    Wide zeros = 0;
    Wide full = 0;

    void Meet(int value) {
        zeros = value == 0 ? zeros + 1 : 0;
        full = value == 255 ? full + 1 : 0;
    }
};

// Calls take with the distance and the value of each neighbour that the line has, the position itself included.
template <class Take> void ForEachTap(const Line& line, Wide position, Wide radius, const Take& take) {
    for (Wide k = std::max(-radius, -position); k <= radius && position + k < LengthOf(line); ++k) {
        take(k < 0 ? -k : k, line[static_cast<std::size_t>(position + k)]);
    }
}

std::uint8_t WeightedMean(const Line& line, Wide position, Wide radius) {
    Wide sum = 0;
    Wide weights = 0;
    ForEachTap(line, position, radius, [&](Wide distance, std::uint8_t value) {
        const Wide weight = radius + 1 - distance;
        sum += weight * value;
        weights += weight;
    });
    return static_cast<std::uint8_t>(sum / weights);
}

std::uint8_t Largest(const Line& line, Wide position, Wide radius) {
    std::uint8_t largest = 0;
    ForEachTap(line, position, radius, [&](Wide, std::uint8_t value) { largest = std::max(largest, value); });
    return largest;
}

std::uint8_t Smallest(const Line& line, Wide position, Wide radius) {
    std::uint8_t smallest = 255;
    ForEachTap(line, position, radius, [&](Wide, std::uint8_t value) { smallest = std::min(smallest, value); });
    return smallest;
}

std::uint8_t SpanValue(const Line& line, Wide position, int mode, Wide radius) {
    switch (mode) {
    case 1:
    case 4:
        return WeightedMean(line, position, radius);
    case 2:
        return Largest(line, position, radius);
    case 3:
        return Smallest(line, position, radius);
    default:
        return 0;
    }
}

} // namespace

Line FilteredLine(const Line& line, int mode, int radius) {
    const Wide wideRadius = radius;
    const Wide taps = 2 * wideRadius + 1;
    Runs runs;
    Line filtered;
    for (Wide position = 0; position < LengthOf(line); ++position) {
        const std::uint8_t value = line[static_cast<std::size_t>(position)];
        runs.Meet(ValueAhead(line, position + wideRadius));
        if (runs.full > taps) {
            filtered.push_back(255);
        } else if (runs.zeros > taps) {
            filtered.push_back(0);
        } else if (mode == 4 && value == kKept) {
            filtered.push_back(kKept);
        } else {
            filtered.push_back(SpanValue(line, position, mode, wideRadius));
        }
    }
    return filtered;
}

} // namespace tn::test::model
