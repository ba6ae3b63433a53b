// Other libraries doing work that is like ours. Each function prepares what the library needs, outside of the measured
// time, and returns the work. What differs from ours is told in bench/README.md.
#pragma once

#include "Rows.h"
#include "Work.h"

namespace tn::bench {

/// Where a fractional blend lands.
struct Offset {
    double x;
    double y;
};

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

Work CairoOver(const Rows& from, const Rows& to);
Work CairoOverAt(const Rows& from, const Rows& to, const Offset& offset);

Work LibyuvCopy(const Rows& from, const Rows& to);
Work LibyuvBlend(const Rows& from, const Rows& to);

Work OpenCvCopy(const Rows& from, const Rows& to);
Work OpenCvTransform(const Rows& from, const Rows& to, const Channels& channels);
Work OpenCvConvert(const Rows& from, const Rows& to, const Channel& allChannels);
Work OpenCvLookUp(const Rows& from, const Rows& to, const Channels& channels);

/// Qt divides drawing among the threads of its pool, except on such a thread: there it draws as all others do.
void RunOnOneThread(const Work& work);

/// How the rows of both pictures hold their colours.
enum class QtAlpha { kPremultiplied, kStraight };

Work QtOver(const Rows& from, const Rows& to, QtAlpha alpha);
Work QtOverAt(const Rows& from, const Rows& to, QtAlpha alpha, const Offset& offset);

} // namespace tn::bench
