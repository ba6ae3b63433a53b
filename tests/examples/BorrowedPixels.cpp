// The storage kind that the guide shows, at work.
#include "TnGraphics/TnGraphics.h"

#include <cstdint>
#include <cstdio>
#include <functional>
#include <vector>

#include "Borrowed.h"

int main() {
    std::vector<std::uint32_t> pixels(10 * 4); // rows of 8 pixels and 2 words behind them
    Borrowed* const storage = new Borrowed(pixels.data(), 40, 4);
    TnImage image(storage, {8, 4});
    ColorFill(image, {6, 3, 100, 100}, TnColor(0x80, 0x10, 0x20, 0x30));
    for (std::size_t x = 4; x < 10; ++x) {
        std::printf("%08X\n", pixels[30 + x]);
    }
    std::printf("%d %d %d\n", storage->Contains(pixels.data()), storage->Contains(pixels.data() + 39),
                storage->Contains(pixels.data() + 40));
}
