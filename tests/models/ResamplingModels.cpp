#include "tests/models/ResamplingModels.h"

#include <cmath>
#include <cstddef>
#include <optional>

namespace tn::test::model {
namespace {

using Wide = std::int64_t;

constexpr double kTwoTo31 = 2147483648.0;
constexpr double kTwoTo32 = 4294967296.0;
constexpr double kTwoTo63 = 9223372036854775808.0;

enum Element { kM00, kM01, kM02, kM10, kM11, kM12, kM20, kM21, kM22 };

// Positions in 65536ths

Wide FixedEntry(double entry) {
    const double sum = std::trunc(entry * 65536 + 0.5);
    if (!(-kTwoTo63 <= sum && sum < kTwoTo63)) {
        return 0;
    }
    return LowWord(static_cast<Wide>(std::fmod(sum, kTwoTo32)));
}

std::int32_t FixedPosition(double byX, double byY, double constant, Wide x, Wide y) {
    const Wide parts = Wide{LowWord(FixedEntry(byX) * x)} + LowWord(FixedEntry(byY) * y);
    return LowWord(parts + FixedEntry(constant));
}

Channels ReadInFixed(const Resampling& call, const ReadSurface& source, int x, int y) {
    const Elements& m = call.matrix;
    const std::int32_t u = FixedPosition(m[kM00], m[kM01], m[kM02], x, y);
    const std::int32_t v = FixedPosition(m[kM10], m[kM11], m[kM12], x, y);
    return call.nearest ? GetAt(source, FloorQuotient(u, 65536), FloorQuotient(v, 65536)) : GetBetween(source, u, v);
}

// Positions in single precision. Double precision is so much wider that rounding its results once more gives the same.

double Single(double value) { return static_cast<double>(static_cast<float>(value)); }

double SumInSingle(double byX, double byY, double constant, double x, double y) {
    const double products = Single(Single(Single(byY) * y) + Single(Single(byX) * x));
    return Single(products + Single(constant));
}

// One axis of a box: from low to high, cut to what the source has.
struct Edges {
    double low;
    double size;
};

Edges BoxEdges(double centre, double entry, int sourceSize) {
    double half = Single(Single(0.4) * Single(entry));
    if (half < Single(0.6)) {
        half = Single(0.6);
    }
    double low = Single(centre - half);
    double high = Single(centre + half);
    const double farthest = static_cast<double>(sourceSize) - 1;
    low = low < 0 ? 0 : low;
    high = high > farthest ? farthest : high;
    return {low, Single(high - low)};
}

Channels ReadArea(const Resampling& call, const ReadSurface& source, int x, int y) {
    const Elements& m = call.matrix;
    const Edges across = BoxEdges(SumInSingle(m[kM00], m[kM01], m[kM02], x, y), m[kM00], source.contentSize.x);
    const Edges down = BoxEdges(SumInSingle(m[kM10], m[kM11], m[kM12], x, y), m[kM11], source.contentSize.y);
    const TnFloatRect box = {across.low, down.low, across.size, down.size};
    return IsArea(box) && HasArea(source, box) ? GetArea(source, box) : source.outside;
}

struct Homogeneous {
    double x;
    double y;
    double w;
};

Homogeneous RowStart(const Elements& m, int y) {
    return {SumInSingle(m[kM00], m[kM01], m[kM02], 0, y), SumInSingle(m[kM10], m[kM11], m[kM12], 0, y),
            SumInSingle(m[kM20], m[kM21], m[kM22], 0, y)};
}

Homogeneous OneToTheRight(const Homogeneous& at, const Elements& m) {
    return {Single(at.x + Single(m[kM00])), Single(at.y + Single(m[kM10])), Single(at.w + Single(m[kM20]))};
}

std::optional<Wide> Truncated(double value) {
    const double whole = std::trunc(value);
    if (!(-kTwoTo31 <= whole && whole < kTwoTo31)) {
        return std::nullopt;
    }
    return static_cast<Wide>(whole);
}

double AwayFromZero(double value) { return value > 0 ? value + 0.5 : value - 0.5; }

Channels ReadWhole(const ReadSurface& source, double u, double v) {
    const auto x = Truncated(u);
    const auto y = Truncated(v);
    return x && y ? GetAt(source, *x, *y) : source.outside;
}

Channels ReadProjected(const Resampling& call, const ReadSurface& source, const Homogeneous& at) {
    const double u = Single(at.x / at.w);
    const double v = Single(at.y / at.w);
    if (call.nearest) {
        return ReadWhole(source, AwayFromZero(u), AwayFromZero(v));
    }
    if (source.pixelBytes == 1) {
        return GetBetweenAtFloat(source, static_cast<float>(u), static_cast<float>(v));
    }
    return ReadWhole(source, u, v);
}

std::vector<Channels> ProjectedRow(const Resampling& call, const ReadSurface& source, int y, int width) {
    std::vector<Channels> row;
    Homogeneous at = RowStart(call.matrix, y);
    for (int x = 0; x < width; ++x) {
        row.push_back(ReadProjected(call, source, at));
        at = OneToTheRight(at, call.matrix);
    }
    return row;
}

} // namespace

Reading ReadingFor(const Elements& matrix, bool nearest) {
    if (matrix[kM20] != 0 || matrix[kM21] != 0) {
        return nearest ? Reading::kProjectiveNearest : Reading::kProjectiveSmooth;
    }
    if (nearest) {
        return Reading::kNearest;
    }
    return matrix[kM00] <= 2 && matrix[kM11] <= 2 ? Reading::kInterpolated : Reading::kArea;
}

std::string PollsOf(const Resampling& call, const TnPoint& destinationSize) {
    std::string polls;
    const bool isEmpty = destinationSize.x == 0 || destinationSize.y == 0;
    for (int rows = 32; rows <= destinationSize.y && !isEmpty; rows += 32) {
        polls += ReadingFor(call.matrix, call.nearest) == Reading::kArea ? "d" : "ds";
    }
    return polls;
}

int RowsDoneAt(const Resampling& call, int poll) {
    const bool isOneEach = ReadingFor(call.matrix, call.nearest) == Reading::kArea;
    return 32 * (isOneEach ? poll : (poll + 1) / 2);
}

std::vector<Channels> ResampledRow(const Resampling& call, const ReadSurface& source, int y, int width) {
    const Reading reading = ReadingFor(call.matrix, call.nearest);
    if (reading == Reading::kProjectiveNearest || reading == Reading::kProjectiveSmooth) {
        return ProjectedRow(call, source, y, width);
    }
    std::vector<Channels> row;
    for (int x = 0; x < width; ++x) {
        row.push_back(reading == Reading::kArea ? ReadArea(call, source, x, y) : ReadInFixed(call, source, x, y));
    }
    return row;
}

} // namespace tn::test::model
