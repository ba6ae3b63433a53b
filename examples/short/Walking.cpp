// Pixels in the hands of the standard library: surfaces are ranges, and a rectangle of one is a pair of iterators, by
// rows or by columns. An iterator knows where it stands. It keeps its surface locked for as long as it lives, so a walk
// needs neither lock nor address.
#include "TnGraphics/TnGraphics.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <numeric>

namespace {

constexpr int kSide = 16;

TnImagePixel Grey(int level) {
    const auto channel = static_cast<std::uint8_t>(level);
    return TnColor(255, channel, channel, channel);
}

// Pixel (x, y) gets the grey 16 y + x.
TnImage Ramp() {
    TnImage ramp({kSide, kSide});
    std::ranges::generate(ramp, [level = 0]() mutable { return Grey(level++); });
    return ramp;
}

std::ptrdiff_t CountBright(const TnImage& image) {
    return std::count_if(image.begin(), image.end(), [](TnImagePixel pixel) { return pixel.Green() >= 200; });
}

// Two surfaces of different kinds side by side.
TnMatte LumaOf(const TnImage& image) {
    TnMatte luma(image.Size());
    std::transform(image.begin(), image.end(), luma.begin(),
                   [](TnImagePixel pixel) { return TnMattePixel(pixel.Red(), pixel.Green(), pixel.Blue()); });
    return luma;
}

void ShowBrightestIn(const TnMatte& luma, const TnRect& rect) {
    const auto brightest = std::max_element(luma.begin(rect), luma.end(rect));
    const TnPoint at = brightest.Position();
    std::printf("brightest of a square: %d at (%d, %d)\n", brightest->Value(), at.x, at.y);
}

// A walk by columns meets the pixels of a column one below the other, and the leftmost column first.
void ShowFirstFromTheLeft(const TnMatte& luma, int level) {
    const auto first = std::find_if(luma.beginVertical(), luma.endVertical(),
                                    [level](TnMattePixel pixel) { return pixel.Value() > level; });
    std::printf("first above %d by columns: (%d, %d)\n", level, first.Position().x, first.Position().y);
}

int SumOfColumn(const TnMatte& luma, int x) {
    const TnRect column = {x, 0, 1, luma.Size().y};
    return std::accumulate(luma.beginVertical(column), luma.endVertical(column), 0,
                           [](int sum, TnMattePixel pixel) { return sum + pixel.Value(); });
}

void Mirror(TnMatte& matte) {
    for (int y = 0; y < matte.Size().y; ++y) {
        const TnRect row = {0, y, matte.Size().x, 1};
        std::ranges::reverse(matte.begin(row), matte.end(row));
    }
}

// Neighbours are looked up from where an iterator stands; past the end of the row there is the outside pixel, 0.
int CountStepsDown(const TnMatte& matte) {
    int steps = 0;
    for (auto walk = matte.begin(); walk != matte.end(); ++walk) {
        steps += walk[TnPoint{1, 0}].Value() < walk->Value() ? 1 : 0;
    }
    return steps;
}

} // namespace

int main() {
    const TnImage ramp = Ramp();
    std::printf("pixels of 200 and above: %d\n", static_cast<int>(CountBright(ramp)));

    TnMatte luma = LumaOf(ramp);
    ShowBrightestIn(luma, {4, 4, 4, 4});
    ShowFirstFromTheLeft(luma, 200);
    std::printf("sum of column 3: %d\n", SumOfColumn(luma, 3));

    std::printf("steps down to the right: %d\n", CountStepsDown(luma));
    Mirror(luma);
    std::printf("and mirrored: %d\n", CountStepsDown(luma));
    std::printf("locks left: %u\n", ramp.Clients() + luma.Clients());
}
