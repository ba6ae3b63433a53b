// Private: the samplers of whole-surface transforms, one for each case. A sampler starts a destination row and then
// makes it from left to right, up to kPositions pixels at a time; kPollsSource says whether the source's cancel
// procedure is called.
#pragma once

#include "TnGraphics/rows/RowKernels.h"
#include "TnGraphics/transform/SourceReader.h"
#include "TnGraphics/transform/Steps.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace tn {

/// Affine: reads the source at positions in 16.16.
///
/// \tparam convert what coordinates become
/// \tparam read    what of SourceReader reads there
template <class Source, auto convert, auto read> class FixedSampler {
public:
    static constexpr bool kPollsSource = true;

    FixedSampler(const SourceReader<Source>& reader, const TransformMatrix& matrix) : reader_(reader), steps_(matrix) {}

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
    FixedSteps steps_;
    Positions positions_;
};

inline std::int32_t WholePart(std::int32_t fixed) { return fixed >> 16; }
inline std::int32_t Unchanged(std::int32_t fixed) { return fixed; }

/// Nearest: the pixel in which a position falls.
template <class Source> using FixedNearest = FixedSampler<Source, WholePart, &SourceReader<Source>::Fetch>;

/// Smooth: between the pixels.
template <class Source> using FixedSmooth = FixedSampler<Source, Unchanged, &SourceReader<Source>::Interpolate>;

/// Projective: reads the source's pixels.
///
/// \tparam Quotient which pixel a position means
template <class Source, class Quotient> class ProjectiveSampler {
public:
    static constexpr bool kPollsSource = true;

    ProjectiveSampler(const SourceReader<Source>& reader, const TransformMatrix& matrix)
        : reader_(reader), steps_(matrix), project_(ActiveKernels<Projecting<Quotient>>().kernel) {}

    void StartRow(std::int32_t y) { steps_.StartRow(y); }
    void Sample(typename Source::Pixel* row, std::size_t count) {
        for (std::size_t i = 0; i < count; ++i) {
            x_[i] = steps_.X();
            y_[i] = steps_.Y();
            w_[i] = steps_.W();
            steps_.Next();
        }
        project_({x_.data(), y_.data(), w_.data()}, positions_.x.data(), positions_.y.data(), count);
        reader_.Fetch(positions_, row, count);
    }

private:
    const SourceReader<Source>& reader_;
    ProjectiveSteps steps_;
    ProjectionKernel project_;
    std::array<float, kPositions> x_;
    std::array<float, kPositions> y_;
    std::array<float, kPositions> w_;
    Positions positions_;
};

/// Nearest: the pixel nearest to the position, halves away from zero.
template <class Source> using ProjectiveNearest = ProjectiveSampler<Source, RoundedQuotient>;

/// Smooth, from an image, which cannot be read between pixels there: the position truncated towards zero.
using ProjectiveTruncated = ProjectiveSampler<TnImage, TruncatedQuotient>;

/// Projective, smooth, from a matte: between the pixels.
class ProjectiveSmooth {
public:
    static constexpr bool kPollsSource = true;

    ProjectiveSmooth(const SourceReader<TnMatte>& reader, const TransformMatrix& matrix)
        : reader_(reader), steps_(matrix) {}

    void StartRow(std::int32_t y) { steps_.StartRow(y); }
    void Sample(TnMattePixel* row, std::size_t count) {
        for (std::size_t i = 0; i < count; ++i) {
            row[i] = reader_.Interpolated(steps_.X() / steps_.W(), steps_.Y() / steps_.W());
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

    AreaSampler(const SourceReader<Source>& reader, const TransformMatrix& matrix);

    void StartRow(std::int32_t y) {
        x_ = 0;
        y_ = y;
    }
    void Sample(typename Source::Pixel* row, std::size_t count);

private:
    TnFloatRect Box(float x, float y) const;

    const SourceReader<Source>& reader_;
    BoxField field_;
    bool suitsKernels_;
    std::int32_t x_ = 0;
    std::int32_t y_ = 0;
    PlacedBoxes boxes_;
};

} // namespace tn
