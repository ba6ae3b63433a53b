// Private: the samplers of whole-surface transforms, one for each case. A sampler starts a destination row and then
// makes it from left to right, up to kPositions pixels at a time; kPollsSource says whether the source's cancel
// procedure is called.
#pragma once

#include "TnGraphics/geometry/Rounding.h"
#include "TnGraphics/transform/SourceReader.h"
#include "TnGraphics/transform/Steps.h"

#include <cstddef>
#include <cstdint>

namespace tn {

/// A position that every surface has outside.
inline constexpr std::int32_t kNowhere = -1;

/// Truncates a coordinate; one that leaves 32 bits or is no number is nowhere.
inline std::int32_t TruncatedCoordinate(double value) { return FitsInt32(value) ? TruncateToInt32(value) : kNowhere; }

/// Rounds a coordinate, halves away from zero.
inline std::int32_t RoundedCoordinate(double value) {
    return TruncatedCoordinate(value > 0.0 ? value + 0.5 : value - 0.5);
}

/// Reads the source at one position for each pixel.
///
/// \tparam Steps   where the positions are
/// \tparam convert what their coordinates become
/// \tparam read    what of SourceReader reads there
template <class Source, class Steps, auto convert, auto read> class PositionSampler {
public:
    static constexpr bool kPollsSource = true;

    PositionSampler(const SourceReader<Source>& reader, const TransformMatrix& matrix)
        : reader_(reader), steps_(matrix) {}

    void StartRow(std::int32_t y) { steps_.StartRow(y); }
    void Sample(typename Source::Pixel* row, std::size_t count) {
        for (std::size_t i = 0; i < count; ++i) {
            positions_.x[i] = convert(steps_.X());
            positions_.y[i] = convert(steps_.Y());
            steps_.Next();
        }
        (reader_.*read)(positions_, row, count);
    }

private:
    const SourceReader<Source>& reader_;
    Steps steps_;
    Positions positions_;
};

inline std::int32_t WholePart(std::int32_t fixed) { return fixed >> 16; }
inline std::int32_t Unchanged(std::int32_t fixed) { return fixed; }

/// Affine, nearest: the pixel in which a position falls.
template <class Source>
using FixedNearest = PositionSampler<Source, FixedSteps, WholePart, &SourceReader<Source>::Fetch>;

/// Affine, smooth: between the pixels.
template <class Source>
using FixedSmooth = PositionSampler<Source, FixedSteps, Unchanged, &SourceReader<Source>::Interpolate>;

/// Projective, nearest: the pixel nearest to the position.
template <class Source>
using ProjectiveNearest = PositionSampler<Source, ProjectiveSteps, RoundedCoordinate, &SourceReader<Source>::Fetch>;

/// Projective, smooth, from an image, which cannot be read between pixels there: the position is truncated.
using ProjectiveTruncated =
    PositionSampler<TnImage, ProjectiveSteps, TruncatedCoordinate, &SourceReader<TnImage>::Fetch>;

/// Projective, smooth, from a matte: between the pixels.
class ProjectiveSmooth {
public:
    static constexpr bool kPollsSource = true;

    ProjectiveSmooth(const SourceReader<TnMatte>& reader, const TransformMatrix& matrix)
        : reader_(reader), steps_(matrix) {}

    void StartRow(std::int32_t y) { steps_.StartRow(y); }
    void Sample(TnMattePixel* row, std::size_t count) {
        for (std::size_t i = 0; i < count; ++i) {
            row[i] = reader_.Interpolated(steps_.X(), steps_.Y());
            steps_.Next();
        }
    }

private:
    const SourceReader<TnMatte>& reader_;
    ProjectiveSteps steps_;
};

/// Affine, smooth, by more than 2 to 1: the mean of a box around the position, cut at the source's content.
template <class Source> class AreaSampler {
public:
    static constexpr bool kPollsSource = false;

    AreaSampler(const SourceReader<Source>& reader, const TransformMatrix& matrix)
        : reader_(reader), entries_(InSinglePrecision(matrix)), halfWidth_(HalfSize(entries_.m[0][0])),
          halfHeight_(HalfSize(entries_.m[1][1])), farthest_(Farthest(reader.Surface().Size())) {}

    void StartRow(std::int32_t y) {
        x_ = 0;
        y_ = y;
    }
    void Sample(typename Source::Pixel* row, std::size_t count) {
        for (std::size_t i = 0; i < count; ++i) {
            row[i] = reader_.Mean(Box(static_cast<float>(x_), static_cast<float>(y_)));
            ++x_;
        }
    }

private:
    struct Vector {
        float x;
        float y;
    };

    static float HalfSize(float entry) {
        constexpr float kSmallest = 0.6F;
        const float half = 0.4F * entry;
        return half < kSmallest ? kSmallest : half;
    }
    static Vector Farthest(const TnPoint& size) {
        return {static_cast<float>(std::int64_t{size.x} - 1), static_cast<float>(std::int64_t{size.y} - 1)};
    }

    // A position that is no number stays so, and has no mean.
    TnFloatRect Box(float x, float y) const {
        const auto& m = entries_.m;
        const float u = (m[0][1] * y + m[0][0] * x) + m[0][2];
        const float v = (m[1][1] * y + m[1][0] * x) + m[1][2];
        const float left = u - halfWidth_ < 0.0F ? 0.0F : u - halfWidth_;
        const float top = v - halfHeight_ < 0.0F ? 0.0F : v - halfHeight_;
        const float right = u + halfWidth_ > farthest_.x ? farthest_.x : u + halfWidth_;
        const float bottom = v + halfHeight_ > farthest_.y ? farthest_.y : v + halfHeight_;
        const float width = right - left;
        const float height = bottom - top;
        return {left, top, width, height};
    }

    const SourceReader<Source>& reader_;
    Matrix<float, 3, 3> entries_;
    float halfWidth_;
    float halfHeight_;
    Vector farthest_;
    std::int32_t x_ = 0;
    std::int32_t y_ = 0;
};

} // namespace tn
