// Two chains that go through one pixel, against what works out any number of edges.
#include "tests/support/Cases.h"

#include "TnEngines/vec/scan/PairArea.h"
#include "TnEngines/vec/scan/PixelArea.h"

#include <array>
#include <gtest/gtest.h>
#include <vector>

namespace tn::test {
namespace {

using vec::FillRule;

constexpr std::array<FillRule, 2> kRules = {FillRule::kNonZero, FillRule::kEvenOdd};
constexpr std::array<std::int32_t, 2> kDirections = {1, -1};

/// Heights from 0 to 1, and where the two chains are at each of them.
struct Pair {
    std::vector<double> heights;
    std::array<std::vector<double>, 2> x;
};

double InsideByPair(const Pair& pair, std::int64_t winding, std::array<std::int32_t, 2> directions, FillRule rule) {
    vec::PairArea area;
    for (std::size_t i = 1; i < pair.heights.size(); ++i) {
        area.Add(pair.heights[i] - pair.heights[i - 1], pair.x[0][i - 1], pair.x[0][i], pair.x[1][i - 1], pair.x[1][i]);
    }
    return area.Inside(winding, directions[0], directions[1], rule);
}

double InsideByEdges(const Pair& pair, std::int64_t winding, std::array<std::int32_t, 2> directions, FillRule rule) {
    vec::LeftWindings left;
    left.Clear();
    left.Add(0, vec::kWhole, static_cast<std::int32_t>(winding));
    vec::PixelArea area;
    area.Clear();
    for (std::size_t chain = 0; chain < 2; ++chain) {
        for (std::size_t i = 1; i < pair.heights.size(); ++i) {
            area.Add({pair.heights[i - 1], pair.heights[i], pair.x[chain][i - 1], pair.x[chain][i], directions[chain]});
        }
    }
    return area.Inside(left, rule);
}

// But for crossings within a 4096th of the height, which edges are not cut at.
void ExpectTheSame(const Pair& pair) {
    constexpr double kUncut = 1.0 / 4096 / 2;
    for (const FillRule rule : kRules) {
        for (const std::int64_t winding : {-2, -1, 0, 1, 2}) {
            for (const std::int32_t first : kDirections) {
                for (const std::int32_t second : kDirections) {
                    ASSERT_NEAR(InsideByPair(pair, winding, {first, second}, rule),
                                InsideByEdges(pair, winding, {first, second}, rule), kUncut)
                        << "winding " << winding << " directions " << first << ' ' << second;
                }
            }
        }
    }
}

TEST(PairAreas, AreThoseOfTheirEdges) {
    ForEachCase(4000, [](Random& random) {
        const auto x = [&] { return random.OneIn(4) ? random.Between(-1, 2) : random.Between(-1000, 2000) / 1000.0; };
        Pair pair = {{0}, {}};
        for (int lines = random.Between(0, 3); lines > 0; --lines) {
            const double left = 1 - pair.heights.back();
            pair.heights.push_back(pair.heights.back() + left * random.Between(1, 999) / 1000);
        }
        pair.heights.push_back(1);
        for (std::size_t i = 0; i < pair.heights.size(); ++i) {
            pair.x[0].push_back(x());
            pair.x[1].push_back(random.OneIn(4) ? pair.x[0].back() : x());
        }
        ExpectTheSame(pair);
    });
}

TEST(PairAreas, OfCrossingDiagonalsAreHalves) {
    const Pair diagonals = {{0, 1}, {{{0, 1}, {1, 0}}}};
    EXPECT_DOUBLE_EQ(InsideByPair(diagonals, 0, {1, -1}, FillRule::kNonZero), 0.5);
    EXPECT_DOUBLE_EQ(InsideByPair(diagonals, 0, {1, 1}, FillRule::kNonZero), 0.75);
    EXPECT_DOUBLE_EQ(InsideByPair(diagonals, 0, {1, 1}, FillRule::kEvenOdd), 0.5);
    EXPECT_DOUBLE_EQ(InsideByPair(diagonals, 1, {1, 1}, FillRule::kNonZero), 1);
}

// The nearly level, the far and the nearly upright.
TEST(PairAreas, OfExtremeLines) {
    ExpectTheSame({{0, 1}, {{{-3e8, 3e8}, {5e8, -5e8}}}});
    ExpectTheSame({{0, 1}, {{{-1e9, 0.5}, {0.5, 1e9}}}});
    ExpectTheSame({{0, 1}, {{{0.3, 0.3 + 1e-12}, {0.3 + 1e-12, 0.3}}}});
    ExpectTheSame({{0, 1}, {{{1 - 1e-9, 1 + 1e-9}, {1 + 1e-9, 1 - 1e-9}}}});
    ExpectTheSame({{0, 1}, {{{-1e-9, 1e-9}, {0, 0}}}});
}

} // namespace
} // namespace tn::test
