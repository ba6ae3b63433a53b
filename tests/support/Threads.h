// Running random rounds in several threads at once.
#pragma once

#include "tests/support/Levels.h"
#include "tests/support/Random.h"

#include <cstddef>
#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <thread>
#include <vector>

namespace tn::test {

/// Does one round of work and says what it found wrong; nothing when all was right. Assertions belong to the main
/// thread.
using RandomRound = std::function<std::string(Random& random)>;

/// Runs rounds in several threads at once, each with random values of its own, at every level.
inline void ExpectNoFindingsInThreads(int rounds, const RandomRound& round) {
    constexpr std::size_t kThreads = 4;
    ForEachSupportedLevel([&](ProcessorLevel) {
        std::vector<std::string> findings(kThreads);
        std::vector<std::thread> threads;
        for (std::size_t i = 0; i < kThreads; ++i) {
            threads.emplace_back([&round, rounds, i, &finding = findings[i]] {
                Random random(i);
                for (int n = 0; n < rounds && finding.empty(); ++n) {
                    finding = round(random);
                }
            });
        }
        for (std::thread& thread : threads) {
            thread.join();
        }
        EXPECT_EQ(findings, std::vector<std::string>(kThreads));
    });
}

} // namespace tn::test
