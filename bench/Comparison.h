// What is compared with what. Every line of the table is one of these; all are measured in one process and run.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace tn::bench {

/// Something to measure, repeated by the benchmark.
using Work = std::function<void()>;

/// Our work beside the passes that bound it, over the same pixels.
struct Comparison {
    std::string name;
    double items; ///< Pixels, or 1, by which times are divided.
    Work ours;

    std::string referenceName;
    Work reference;
    double referenceLimit; ///< Our time over the reference's may not exceed this.

    std::string peerName; ///< Empty when no peer does comparable work.
    Work peer;
};

std::vector<Comparison> FillComparisons();
std::vector<Comparison> WalkComparisons();

} // namespace tn::bench
