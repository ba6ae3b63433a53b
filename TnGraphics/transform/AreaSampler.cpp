#include "TnGraphics/transform/Samplers.h"

namespace tn {
namespace {

static_assert(kPositions <= kMostBoxes);

BoxAxis AxisOf(const float (&entries)[3], float scale, std::int32_t size) {
    constexpr float kSmallestHalf = 0.6F;
    const float half = 0.4F * scale;
    return {entries[0], entries[1], entries[2], half < kSmallestHalf ? kSmallestHalf : half,
            static_cast<float>(std::int64_t{size} - 1)};
}

BoxField FieldOf(const TransformMatrix& matrix, const TnPoint& size) {
    const auto entries = InSinglePrecision(matrix);
    return {AxisOf(entries.m[0], entries.m[0][0], size.x), AxisOf(entries.m[1], entries.m[1][1], size.y)};
}

// Kernels take boxes of limited size, and hold their places in 32 bits.
bool SuitsKernels(const BoxAxis& axis) {
    constexpr float kLargestHalf = (kMostPixelsAcrossBox - 2) / 2.0F;
    constexpr float kFarthest = 1 << 22;
    return axis.half <= kLargestHalf && axis.farthest < kFarthest;
}

struct Stretch {
    double start;
    double size;
};

// A position that is no number stays so, and has no mean.
Stretch BoxAlong(const BoxAxis& axis, float x, float y) {
    const float middle = (axis.perRow * y + axis.perColumn * x) + axis.origin;
    const float low = middle - axis.half < 0.0F ? 0.0F : middle - axis.half;
    const float high = middle + axis.half > axis.farthest ? axis.farthest : middle + axis.half;
    const float size = high - low;
    return {low, size};
}

} // namespace

template <class Source>
AreaSampler<Source>::AreaSampler(const SourceReader<Source>& reader, const TransformMatrix& matrix)
    : reader_(reader), field_(FieldOf(matrix, reader.Surface().Size())),
      suitsKernels_(reader.SuitsBoxKernels() && SuitsKernels(field_.x) && SuitsKernels(field_.y)) {}

template <class Source> void AreaSampler<Source>::Sample(typename Source::Pixel* row, std::size_t count) {
    if (suitsKernels_) {
        ActiveKernels<PlacingBoxes>().kernel(field_, y_, x_, boxes_, count);
        reader_.Average({boxes_.left, boxes_.width, boxes_.top, boxes_.height}, row, count);
    } else {
        for (std::size_t i = 0; i < count; ++i) {
            row[i] = reader_.Mean(Box(static_cast<float>(x_ + static_cast<std::int32_t>(i)), static_cast<float>(y_)));
        }
    }
    x_ += static_cast<std::int32_t>(count);
}

template <class Source> TnFloatRect AreaSampler<Source>::Box(float x, float y) const {
    const Stretch columns = BoxAlong(field_.x, x, y);
    const Stretch rows = BoxAlong(field_.y, x, y);
    return {columns.start, rows.start, columns.size, rows.size};
}

template class AreaSampler<TnImage>;
template class AreaSampler<TnMatte>;

} // namespace tn
