// The resampling of a whole surface through a matrix, pixel by pixel.
#pragma once

#include "tests/models/ModelPicture.h"
#include "tests/models/SamplingModels.h"
#include "tests/models/TransformModels.h"

#include <cstdint>
#include <string>
#include <vector>

namespace tn::test::model {

/// How the source is read.
enum class Reading {
    kNearest,           ///< At positions in 65536ths, rounded down.
    kInterpolated,      ///< At positions in 65536ths, between the pixels.
    kArea,              ///< The means of boxes.
    kProjectiveNearest, ///< At quotients in single precision, rounded.
    kProjectiveSmooth,  ///< At quotients in single precision; an image truncated, a matte between the pixels.
};

Reading ReadingFor(const Elements& matrix, bool nearest);

/// One call.
struct Resampling {
    Elements matrix = {};
    bool nearest = false;
};

/// Which surfaces are polled, in order: 'd' for the destination, 's' for the source.
std::string PollsOf(const Resampling& call, const TnPoint& destinationSize);

/// Rows that are done at one of the polls, the first being 1.
int RowsDoneAt(const Resampling& call, int poll);

/// What the source gives for the pixels of one destination row.
std::vector<Channels> ResampledRow(const Resampling& call, const ReadSurface& source, int y, int width);

/// The value of a pixel; a matte takes the alpha, of a matte and of an image.
inline void Store(const Channels& pixel, std::uint32_t& value) { value = PackedWord(pixel); }
inline void Store(const Channels& pixel, std::uint8_t& value) { value = static_cast<std::uint8_t>(pixel.alpha); }

/// Does the call up to one of its polls; 0 does all of it.
template <class Value>
void Resample(const Resampling& call, const ReadSurface& source, ModelPicture<Value>& destination, int poll = 0) {
    const int rows = poll == 0 ? destination.Height() : RowsDoneAt(call, poll);
    for (int y = 0; y < rows; ++y) {
        const std::vector<Channels> row = ResampledRow(call, source, y, destination.Width());
        for (int x = 0; x < destination.Width(); ++x) {
            Store(row[static_cast<std::size_t>(x)], destination.At(x, y));
        }
    }
}

} // namespace tn::test::model
