// The filter of alphas by numbers that can be followed with a pencil.

#include "tests/ops/alpha/AlphaFilterPictures.h"
#include "tests/support/Cases.h"
#include "tests/support/Levels.h"
#include "tests/support/PixelDiff.h"
#include "tests/support/Surfaces.h"

#include "TnGraphics/port/ClientLock.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <gtest/gtest.h>
#include <limits>
#include <vector>

namespace tn::test {
namespace {

constexpr int kLowest = std::numeric_limits<int>::min();
constexpr int kHighest = std::numeric_limits<int>::max();
constexpr std::array<int, 6> kOtherModes = {-1, 0, 5, 6, kLowest, kHighest};

Grid UniformGrid(int width, int height, int alpha) {
    return Grid(static_cast<std::size_t>(height), Values(static_cast<std::size_t>(width), alpha));
}

Grid Transposed(const Grid& grid) {
    Grid transposed(grid.front().size(), Values(grid.size()));
    for (std::size_t y = 0; y < grid.size(); ++y) {
        for (std::size_t x = 0; x < grid[y].size(); ++x) {
            transposed[x][y] = grid[y][x];
        }
    }
    return transposed;
}

template <class SurfaceType>
void ExpectFilteredAtEveryLevel(const Grid& before, const AlphaFilter& filter, const Grid& expected) {
    using Value = ValueOf<SurfaceType>;
    const auto unfiltered = SurfaceOf<SurfaceType>(PictureOf<Value>(before));
    const auto picture = PictureOf<Value>(expected);
    ForEachSupportedLevel([&](ProcessorLevel) {
        SurfaceType surface = unfiltered;
        filter.Run(surface);
        EXPECT_TRUE(SamePixels(picture, surface));
    });
}

// The alphas become the expected ones, in an image and in a matte, and colours stay.
void ExpectFiltered(const Grid& before, const AlphaFilter& filter, const Grid& expected) {
    SCOPED_TRACE(filter.Text());
    ExpectFilteredAtEveryLevel<TnImage>(before, filter, expected);
    ExpectFilteredAtEveryLevel<TnMatte>(before, filter, expected);
}

// The same along a row and along a column.
void ExpectLineFiltered(const Values& before, const AlphaFilter& filter, const Values& expected) {
    ExpectFiltered({before}, filter, {expected});
    ExpectFiltered(Transposed({before}), filter, Transposed({expected}));
}

TEST(ProcessAlphaChannel, SpreadsASingleValueByTheWeights) {
    // The weights 1, 2, 1 of 4: 255 / 4 is 63.75, 510 / 4 is 127.5.
    ExpectLineFiltered({0, 0, 0, 255, 0, 0, 0}, {1, 1}, {0, 0, 63, 127, 63, 0, 0});
    // The weights 1, 2, 3, 2, 1 of 9: 28.33, 56.67, 85.
    ExpectLineFiltered({0, 0, 0, 0, 255, 0, 0, 0, 0}, {1, 2}, {0, 0, 28, 56, 85, 56, 28, 0, 0});
}

TEST(ProcessAlphaChannel, SpreadsAlongRowsAndThenAlongColumns) {
    // The row becomes 0, 63, 127, 63, 0. Of 63 the columns make 15.75 and 31.5, of 127 31.75 and 63.5.
    const Grid before = {{0, 0, 0, 0, 0}, {0, 0, 0, 0, 0}, {0, 0, 255, 0, 0}, {0, 0, 0, 0, 0}, {0, 0, 0, 0, 0}};
    ExpectFiltered(before, {1, 1},
                   {{0, 0, 0, 0, 0}, {0, 15, 31, 15, 0}, {0, 31, 63, 31, 0}, {0, 15, 31, 15, 0}, {0, 0, 0, 0, 0}});
}

TEST(ProcessAlphaChannel, TruncatesBetweenThePasses) {
    // Two in a line weigh 2 and 1. Rows give 3/3 3/3 and 2/3 4/3, columns of 1 0 then 2/3 1/3 and of 1 1 3/3 3/3.
    // Columns first would leave 0 1 and 0 1 for the rows, which make 0 of that.
    ExpectFiltered({{1, 1}, {0, 2}}, {1, 1}, {{0, 1}, {0, 1}});
}

TEST(ProcessAlphaChannel, DropsTheWeightsOfNeighborsThatTheLineLacks) {
    ExpectLineFiltered({255, 0, 0}, {1, 1}, {170, 63, 0});  // 255 x 2 / 3, 255 x 1 / 4
    ExpectLineFiltered({255, 0, 0}, {1, 2}, {127, 72, 42}); // 255 x 3 / 6, 255 x 2 / 7, 255 x 1 / 6
    ExpectLineFiltered({10, 20}, {1, 5}, {14, 15});         // (10 x 6 + 20 x 5) / 11, (10 x 5 + 20 x 6) / 11
    // Rows give 170 63 0. Columns: 170 x 2 / 3, 170 / 4; 63 x 2 / 3, 63 / 4.
    ExpectFiltered({{255, 0, 0}, {0, 0, 0}, {0, 0, 0}}, {1, 1}, {{113, 42, 0}, {42, 15, 0}, {0, 0, 0}});
}

TEST(ProcessAlphaChannel, GrowsToTheLargestNeighbor) {
    ExpectFiltered({{5, 0, 0, 0}, {0, 0, 0, 9}, {0, 7, 0, 0}}, {2, 1}, {{5, 5, 9, 9}, {7, 7, 9, 9}, {7, 7, 9, 9}});
    ExpectLineFiltered({0, 0, 0, 3, 0, 0, 0, 0, 4}, {2, 2}, {0, 3, 3, 3, 3, 3, 4, 4, 4});
}

TEST(ProcessAlphaChannel, ShrinksToTheSmallestNeighbor) {
    ExpectFiltered({{250, 255, 255, 255}, {255, 255, 255, 246}, {255, 248, 255, 255}}, {3, 1},
                   {{250, 250, 246, 246}, {248, 248, 246, 246}, {248, 248, 246, 246}});
    ExpectLineFiltered({9, 9, 9, 3, 9, 9, 9, 9, 4}, {3, 2}, {9, 3, 3, 3, 3, 3, 4, 4, 4});
}

TEST(ProcessAlphaChannel, KeepsHalfTransparentValuesInMode4) {
    const Values before = {0, 128, 255, 128, 0};
    ExpectLineFiltered(before, {1, 1}, {42, 127, 191, 127, 42}); // 128 / 3, 511 / 4, 766 / 4
    ExpectLineFiltered(before, {4, 1}, {42, 128, 191, 128, 42});
    // The row becomes 42 128 42. Columns: 42 / 3, 42 x 2 / 4; 128 / 3.
    ExpectFiltered({{0, 0, 0}, {0, 128, 0}, {0, 0, 0}}, {4, 1}, {{14, 42, 14}, {21, 128, 21}, {14, 42, 14}});
}

TEST(ProcessAlphaChannel, KeepsHalfTransparentValuesInMode4AlsoWhereRowsMadeThem) {
    // Rows give 128 64 and 0 0. Columns: 128 x 2 / 3, 128 / 3; 64 x 2 / 3, 64 / 3.
    const Grid before = {{192, 0}, {0, 0}};
    ExpectFiltered(before, {1, 1}, {{85, 42}, {42, 21}});
    ExpectFiltered(before, {4, 1}, {{128, 42}, {42, 21}});
}

TEST(ProcessAlphaChannel, ChangesNothingInRadius0OfModes1To4) {
    const Grid grid = {{0, 1, 127, 128}, {128, 129, 254, 255}, {255, 255, 255, 255}, {0, 0, 0, 0}};
    for (const int mode : {1, 2, 3, 4}) {
        ExpectFiltered(grid, {mode, 0}, grid);
    }
}

TEST(ProcessAlphaChannel, KeepsUniformPicturesInModes1To4) {
    for (const int radius : {0, 1, 2, 15, 16, 40, 126, 127, 1000, kHighest}) {
        for (const int alpha : {0, 1, 2, 100, 127, 128, 254, 255}) {
            const Grid grid = UniformGrid(37, 5, alpha);
            for (const int mode : {1, 2, 3, 4}) {
                ExpectFiltered(grid, {mode, radius}, grid);
            }
        }
    }
}

// A picture of equal rows: '#' is 255, 'o' is 254, '.' is 0.
Grid EqualRows(const std::string& row, int height) {
    Values values;
    for (const char c : row) {
        values.push_back(c == '#' ? 255 : c == 'o' ? 254 : 0);
    }
    return Grid(static_cast<std::size_t>(height), values);
}

Grid GridOf(const Rows& rows) {
    Grid grid;
    for (const std::string& row : rows) {
        grid.push_back(EqualRows(row, 1).front());
    }
    return grid;
}

void ExpectInOtherModes(const Grid& before, int radius, const Rows& expected) {
    for (const int mode : kOtherModes) {
        ExpectFiltered(before, {mode, radius}, GridOf(expected));
    }
}

// Of seven rows with runs of 255 in the same columns, radius 1 leaves the rows 3 to 5.
Rows SevenRowsOf(const std::string& row) {
    const std::string empty(row.size(), '.');
    return {empty, empty, empty, row, row, row, empty};
}

TEST(ProcessAlphaChannel, Gives255BehindLongRunsInOtherModes) {
    // Values count from position 1 on and one ahead, so the fourth in a row is at position 4 and shows at 3. The value
    // past the end ends the run.
    ExpectInOtherModes(EqualRows("######", 7), 1, SevenRowsOf("...##."));
    ExpectInOtherModes(EqualRows(".#######.", 7), 1, SevenRowsOf("...####.."));
    ExpectInOtherModes(EqualRows("..######.", 7), 1, SevenRowsOf("....###.."));
}

TEST(ProcessAlphaChannel, NeedsMoreThanFullRunsInOtherModes) {
    ExpectInOtherModes(EqualRows("..###....", 7), 1, SevenRowsOf("........."));
    ExpectInOtherModes(EqualRows("..####...", 7), 1, SevenRowsOf("....#...."));
    ExpectInOtherModes(EqualRows("####", 7), 1, SevenRowsOf("....")); // three count
}

TEST(ProcessAlphaChannel, EndsRunsAtAnyOtherValueInOtherModes) {
    ExpectInOtherModes(EqualRows("#####o###", 7), 1, SevenRowsOf("...#....."));
    ExpectInOtherModes(EqualRows("ooooooooo", 7), 1, SevenRowsOf("........."));
}

TEST(ProcessAlphaChannel, CountsRunsAnewInEachLine) {
    // With radius 0 nothing ends a run between lines but their change.
    ExpectInOtherModes(EqualRows("###", 3), 0, {"...", ".##", ".##"});
    ExpectInOtherModes(EqualRows(".###", 3), 0, {"....", "..##", "..##"});
}

TEST(ProcessAlphaChannel, Gives0InOtherModesWhereOneSideIsShort) {
    for (const int radius : {0, 1, 126, 127, kHighest}) {
        for (const int mode : kOtherModes) {
            ExpectFiltered(UniformGrid(1, 1, 255), {mode, radius}, UniformGrid(1, 1, 0));
            ExpectFiltered(UniformGrid(90, 1, 255), {mode, radius}, UniformGrid(90, 1, 0));
            ExpectFiltered(UniformGrid(1, 90, 255), {mode, radius}, UniformGrid(1, 90, 0));
        }
    }
}

TEST(ProcessAlphaChannel, CountsLongRunsInOtherModes) {
    constexpr int kSide = 390;
    for (const int radius : {16, 126, 127, 128}) {
        // The first to have more than n values at and before it, up to the last whose neighbours are all there.
        const auto isBehind = [&](int i) { return 2 * radius + 1 <= i && i < kSide - radius; };
        Grid expected = UniformGrid(kSide, kSide, 0);
        for (int y = 0; y < kSide; ++y) {
            for (int x = 0; x < kSide; ++x) {
                expected[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)] =
                    isBehind(x) && isBehind(y) ? 255 : 0;
            }
        }
        ExpectFiltered(UniformGrid(kSide, kSide, 255), {0, radius}, expected);
    }
}

constexpr int kMiddle = 200;

// A line with one value in its middle.
Values WithMiddle(int ground, int middle) {
    Values line(2 * kMiddle + 1, ground);
    line[kMiddle] = middle;
    return line;
}

// A line by the distance from its middle.
template <class Value> Values ByDistance(const Value& value) {
    Values line;
    for (int i = 0; i <= 2 * kMiddle; ++i) {
        line.push_back(value(std::abs(i - kMiddle)));
    }
    return line;
}

TEST(ProcessAlphaChannel, SoftensExactlyWithCenterWeightsAround127) {
    const Values before = WithMiddle(0, 255);
    // 255 x (127 - distance) / 127^2 is at least 2 in the middle only and at least 1 up to distance 63.
    ExpectLineFiltered(before, {1, 126}, ByDistance([](int d) { return d == 0 ? 2 : d <= 63 ? 1 : 0; }));
    // 255 x 128 / 128^2 is 1.99; distance 63 has 255 x 65 of 16384, distance 64 too little.
    ExpectLineFiltered(before, {1, 127}, ByDistance([](int d) { return d <= 63 ? 1 : 0; }));
    // 255 x 129 / 129^2 is 1.98; distance 63 has 255 x 66 of 16641, distance 64 too little.
    ExpectLineFiltered(before, {1, 128}, ByDistance([](int d) { return d <= 63 ? 1 : 0; }));
}

// A matte of one row, written and read in place.
class MatteRow {
public:
    explicit MatteRow(int width) : matte_({width, 1}), lock_(matte_) {}

    void Fill(int value) {
        std::fill_n(matte_.PixelBase(), matte_.Size().x, TnMattePixel(static_cast<std::uint8_t>(value)));
    }
    int At(int x) const { return matte_.PixelBase()[x].value; }
    void Put(int x, int value) { matte_.PixelBase()[x].value = static_cast<std::uint8_t>(value); }
    void Filter(int mode, int radius) { ProcessAlphaChannel(matte_, mode, radius); }

private:
    TnMatte matte_;
    tn::ClientLock<TnMatte> lock_;
};

// Where all neighbours have one value, the weighted sum is that value times the weights. One less at a neighbour of
// weight 1 is the largest sum that makes a mean one less.
void ExpectTruncatedBelowWholeMeans(int radius, int step) {
    MatteRow row(2 * radius + 1);
    for (const int position : {0, 1, radius / 2, radius - 1, radius}) { // clipped ever less
        for (int value = 255 - radius % step; value > 0; value -= step) {
            row.Fill(value);
            row.Put(position + radius, value - 1);
            row.Filter(1, radius);
            ASSERT_EQ(row.At(position), value - 1) << "radius " << radius << ", position " << position;
        }
    }
}

TEST(ProcessAlphaChannel, TruncatesTheSumsJustBelowEveryWholeMean) {
    const int step = IsSoaking() ? 1 : HasTimeForEveryValue() ? 5 : 51;
    ForEachSupportedLevel([step](ProcessorLevel) {
        for (int radius = 1; radius <= 130; ++radius) {
            ExpectTruncatedBelowWholeMeans(radius, step);
        }
    });
}

TEST(ProcessAlphaChannel, GrowsAndShrinksExactlyByTheRadius) {
    for (const int radius : {1, 14, 15, 16, 31, 32, 63, 64, 126, 127, 128, 199, 200, 201}) {
        ExpectLineFiltered(WithMiddle(3, 9), {2, radius}, ByDistance([=](int d) { return d <= radius ? 9 : 3; }));
        ExpectLineFiltered(WithMiddle(9, 3), {3, radius}, ByDistance([=](int d) { return d <= radius ? 3 : 9; }));
    }
}

TEST(ProcessAlphaChannel, StaysExactWithRadiiFarBeyondTheLine) {
    const Values before = {255, 0, 0};
    // 255 x 1001 / 3000, 255 x 1000 / 3001, 255 x 999 / 3000
    ExpectLineFiltered(before, {1, 1000}, {85, 84, 84});
    // 85 x 2^31 / (2^31 - 1), and just under 85
    ExpectLineFiltered(before, {1, kHighest}, {85, 84, 84});
    ExpectLineFiltered({255, 128, 0}, {4, kHighest}, {127, 128, 127}); // outer: 127.66
    for (const int radius : {2, 1000, kHighest}) {
        ExpectFiltered({{5, 9, 7}, {6, 6, 6}}, {2, radius}, UniformGrid(3, 2, 9));
        ExpectFiltered({{5, 9, 7}, {6, 6, 6}}, {3, radius}, UniformGrid(3, 2, 5));
    }
    for (const int mode : kOtherModes) {
        ExpectFiltered(UniformGrid(9, 9, 255), {mode, 1000}, UniformGrid(9, 9, 0));
        ExpectFiltered(UniformGrid(9, 9, 255), {mode, kHighest}, UniformGrid(9, 9, 0));
    }
}

TEST(ProcessAlphaChannel, ChangesNothingForNegativeRadii) {
    const Grid grid = {{0, 1, 127, 128, 255}, {255, 255, 255, 255, 255}, {255, 255, 255, 255, 255}};
    for (const int radius : {-1, -2, -126, -127, kLowest + 1, kLowest}) {
        for (const int mode : kEveryKindOfMode) {
            ExpectFiltered(grid, {mode, radius}, grid);
        }
    }
}

} // namespace
} // namespace tn::test
