#include "TnGraphics/transform/Transform.h"

#include "TnGraphics/rows/RowKernels.h"
#include "TnGraphics/transform/Samplers.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <type_traits>

namespace {

// Calls make with each row's first pixel, its number and its length, and between rows the cancel procedures, the
// destination's first.
template <class Source, class Destination, class Make>
void ForEachRow(Destination& destination, const Source* polledSource, const Make& make) {
    auto row = destination.begin();
    const auto length = static_cast<std::size_t>(row.Bounds().width);
    for (std::uint32_t rows = 0; !row.AtEnd();) {
        make(&*row, static_cast<std::int32_t>(rows), length);
        row.NextLine();
        ++rows;
        if (polledSource != nullptr && rows % tn::kLinesPerCancelPoll == 0) {
            polledSource->CancelProc()();
        }
    }
}

// Samples into a row of the source's kind.
template <class Sampler, class Pixel> void SampleInto(Pixel* row, std::size_t length, Sampler& sampler) {
    for (std::size_t column = 0; column < length; column += tn::kPositions) {
        sampler.Sample(row + column, std::min(length - column, tn::kPositions));
    }
}

// Samples an image into a row of a matte, which takes the alphas.
template <class Sampler> void SampleAlphasInto(TnMattePixel* row, std::size_t length, Sampler& sampler) {
    const auto copyAlphas = tn::ActiveKernels<tn::Copying<tn::CopyAlpha, TnImagePixel, TnMattePixel>>().kernel;
    std::array<TnImagePixel, tn::kPositions> chunk;
    for (std::size_t column = 0; column < length; column += tn::kPositions) {
        const std::size_t count = std::min(length - column, tn::kPositions);
        sampler.Sample(chunk.data(), count);
        copyAlphas(chunk.data(), row + column, count, {});
    }
}

template <class Sampler, class Source, class Destination>
void TransformBy(const Source& source, Destination& destination, const tn::TransformMatrix& matrix) {
    const tn::SourceReader<Source> reader(source);
    Sampler sampler(reader, matrix);
    const Source* const polledSource = Sampler::kPollsSource ? &source : nullptr;
    ForEachRow(destination, polledSource,
               [&sampler](typename Destination::Pixel* row, std::int32_t y, std::size_t length) {
                   sampler.StartRow(y);
                   if constexpr (std::is_same_v<Source, Destination>) {
                       SampleInto(row, length, sampler);
                   } else {
                       SampleAlphasInto(row, length, sampler);
                   }
               });
}

template <class Source> struct SmoothProjection { using Sampler = tn::ProjectiveTruncated; };
template <> struct SmoothProjection<TnMatte> { using Sampler = tn::ProjectiveSmooth; };

// Entries that are no numbers make a matrix projective, or choose the mean of boxes.
bool IsProjective(const tn::TransformMatrix& matrix) { return !(matrix.m[2][0] == 0.0 && matrix.m[2][1] == 0.0); }
bool IsStrongReduction(const tn::TransformMatrix& matrix) { return !(matrix.m[0][0] <= 2.0 && matrix.m[1][1] <= 2.0); }

} // namespace

template <class Source, class Destination>
void Transform(const Source& source, Destination& destination, const Matrix<double, 3, 3>& matrix,
               InterpolationType type) {
    const bool isNearest = type == InterpolationType::kNearest;
    if (IsProjective(matrix)) {
        if (isNearest) {
            TransformBy<tn::ProjectiveNearest<Source>>(source, destination, matrix);
        } else {
            TransformBy<typename SmoothProjection<Source>::Sampler>(source, destination, matrix);
        }
    } else if (isNearest) {
        TransformBy<tn::FixedNearest<Source>>(source, destination, matrix);
    } else if (IsStrongReduction(matrix)) {
        TransformBy<tn::AreaSampler<Source>>(source, destination, matrix);
    } else {
        TransformBy<tn::FixedSmooth<Source>>(source, destination, matrix);
    }
}

template TN_EXPORT void Transform(const TnImage&, TnImage&, const Matrix<double, 3, 3>&, InterpolationType);
template TN_EXPORT void Transform(const TnMatte&, TnMatte&, const Matrix<double, 3, 3>&, InterpolationType);
template TN_EXPORT void Transform(const TnImage&, TnMatte&, const Matrix<double, 3, 3>&, InterpolationType);
