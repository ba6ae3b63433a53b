// Other libraries doing work that is like ours. Each function prepares what the library needs, outside of the measured
// time, and returns the work. What differs from ours is told in bench/README.md.
#pragma once

#include "Rows.h"
#include "Work.h"

#include <array>

namespace tn::bench {

/// Where a fractional blend lands.
struct Offset {
    double x;
    double y;
};

/// Takes (x, y, 1) of a destination's pixel to where the source is read; the last row divides.
using Mapping = std::array<std::array<double, 3>, 3>;

/// How a source is read between its pixels.
enum class Reading { kNearest, kSmooth };

/// One channel: value x scale + offset.
struct Channel {
    double scale;
    double offset;
};

/// In the order of a pixel's bytes.
struct Channels {
    Channel blue;
    Channel green;
    Channel red;
    Channel alpha;
};

Work PixmanFill(const Rows& to, std::uint32_t word);
Work PixmanCopy(const Rows& from, const Rows& to);
Work PixmanOver(const Rows& from, const Rows& to);
Work PixmanOverAt(const Rows& from, const Rows& to, const Offset& offset);
Work PixmanMap(const Rows& from, const Rows& to, const Mapping& mapping, Reading reading);

Work CairoOver(const Rows& from, const Rows& to);
Work CairoOverAt(const Rows& from, const Rows& to, const Offset& offset);

/// The mapping must be affine.
Work CairoMap(const Rows& from, const Rows& to, const Mapping& mapping, Reading reading);
Work CairoReduce(const Rows& from, const Rows& to);

Work LibyuvCopy(const Rows& from, const Rows& to);
Work LibyuvBlend(const Rows& from, const Rows& to);
Work LibyuvEnlarge(const Rows& from, const Rows& to, Reading reading);
Work LibyuvReduce(const ByteRows& from, const ByteRows& to);

Work OpenCvCopy(const Rows& from, const Rows& to);
Work OpenCvTransform(const Rows& from, const Rows& to, const Channels& channels);
Work OpenCvConvert(const Rows& from, const Rows& to, const Channel& allChannels);
Work OpenCvLookUp(const Rows& from, const Rows& to, const Channels& channels);
Work OpenCvWarp(const Rows& from, const Rows& to, const Mapping& mapping, Reading reading);
Work OpenCvWarp(const ByteRows& from, const ByteRows& to, const Mapping& mapping, Reading reading);
Work OpenCvEnlarge(const Rows& from, const Rows& to, Reading reading);
Work OpenCvReduce(const Rows& from, const Rows& to);
Work OpenCvReduce(const ByteRows& from, const ByteRows& to);

// Filters of the values around each one up to a radius, along rows and along columns.
Work OpenCvTriangle(const ByteRows& from, const ByteRows& to, int radius);
Work OpenCvTwoBoxes(const ByteRows& from, const ByteRows& to, int radius);
Work OpenCvDilate(const ByteRows& from, const ByteRows& to, int radius);
Work OpenCvErode(const ByteRows& from, const ByteRows& to, int radius);

/// Qt divides drawing among the threads of its pool, except on such a thread: there it draws as all others do.
void RunOnOneThread(const Work& work);

/// How the rows of both pictures hold their colours.
enum class QtAlpha { kPremultiplied, kStraight };

Work QtOver(const Rows& from, const Rows& to, QtAlpha alpha);
Work QtOverAt(const Rows& from, const Rows& to, QtAlpha alpha, const Offset& offset);

/// What becomes of what is drawn on. Opaque pictures may do either.
enum class QtDrawing { kReplace, kOver };

Work QtMap(const Rows& from, const Rows& to, QtAlpha alpha, QtDrawing drawing, const Mapping& mapping, Reading reading);

/// Makes a picture of its own, of the size of the given rows.
Work QtReduce(const Rows& from, const Rows& to, QtAlpha alpha);

} // namespace tn::bench
