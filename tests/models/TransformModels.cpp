#include "tests/models/TransformModels.h"

#include <cmath>

namespace tn::test::model {
namespace {

constexpr double kTwoTo32 = 4294967296.0;
constexpr double kTwoTo63 = 9223372036854775808.0;

// Double precision is so much wider that rounding its result once more gives what single precision gives at once.
double Single(double value) { return static_cast<double>(static_cast<float>(value)); }

double SumInSingle(double byY, double y, double byX, double x, double constant) {
    const double first = Single(Single(byY) * y);
    const double second = Single(Single(byX) * x);
    return Single(Single(first + second) + Single(constant));
}

std::int32_t Low32(std::int64_t value) { return static_cast<std::int32_t>(value & 0xFFFFFFFF); }

std::int32_t Rounded(double value) {
    const double magnitude = std::floor(std::fabs(value) + 0.5);
    if (std::isnan(magnitude) || magnitude >= kTwoTo63) {
        return 0;
    }
    const auto low = static_cast<std::int64_t>(std::fmod(magnitude, kTwoTo32));
    return Low32(std::signbit(value) ? -low : low);
}

std::int64_t FixedElement(double element) { return Rounded(element * 65536); }

// Doubles hold 53 bits of the product; what is below them is rounded off before the cut.
std::int64_t FixedProduct(std::int64_t a, std::int64_t b) {
    return Low32(static_cast<std::int64_t>(static_cast<double>(a * b)) / 65536);
}

std::int64_t SumInFixed(double byY, std::int64_t y, double byX, std::int64_t x, double constant) {
    return Low32(FixedProduct(FixedElement(byY), y) + FixedProduct(FixedElement(byX), x) + FixedElement(constant));
}

std::int64_t FixedReciprocal(std::int64_t value) { return Low32((std::int64_t{1} << 32) / value); }

} // namespace

Pair<double> MappedInSingle(const Pair<double>& point, const Elements& elements) {
    const auto& [m00, m01, m02, m10, m11, m12, m20, m21, m22] = elements;
    const double pointX = Single(point.x);
    const double pointY = Single(point.y);
    const double x = SumInSingle(m01, pointY, m00, pointX, m02);
    const double y = SumInSingle(m11, pointY, m10, pointX, m12);
    const double w = SumInSingle(m21, pointY, m20, pointX, m22);
    if ((Single(m20) == 0 && Single(m21) == 0) || w == 0) {
        return {x, y};
    }
    const double reciprocal = Single(1 / w);
    return {Single(x * reciprocal), Single(y * reciprocal)};
}

Pair<std::int32_t> MappedAndRounded(const Pair<std::int32_t>& point, const Elements& elements) {
    const Pair<double> mapped = MappedInSingle({static_cast<double>(point.x), static_cast<double>(point.y)}, elements);
    return {Rounded(mapped.x), Rounded(mapped.y)};
}

Pair<std::int32_t> MappedInFixed(const Pair<std::int32_t>& point, const Elements& elements) {
    const auto& [m00, m01, m02, m10, m11, m12, m20, m21, m22] = elements;
    const std::int64_t x = SumInFixed(m01, point.y, m00, point.x, m02);
    const std::int64_t y = SumInFixed(m11, point.y, m10, point.x, m12);
    const std::int64_t w = SumInFixed(m21, point.y, m20, point.x, m22);
    if ((FixedElement(m20) == 0 && FixedElement(m21) == 0) || w == 0) {
        return {Low32(x), Low32(y)};
    }
    const std::int64_t reciprocal = FixedReciprocal(w);
    return {Low32(FixedProduct(x, reciprocal)), Low32(FixedProduct(y, reciprocal))};
}

} // namespace tn::test::model
