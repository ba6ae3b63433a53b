// Compiled without vectorisation: what is compared is the walk, pixel by pixel.
#include "Comparison.h"
#include "Pictures.h"

namespace tn::bench {
namespace {

constexpr double kWalkLimit = 2.0;

void Touch(TnImagePixel& pixel) { pixel.value = pixel.value * 3 + 1; }

void WalkWithIterator(TnImage& image) {
    const auto end = image.end();
    for (auto at = image.begin(); at != end; ++at) {
        Touch(*at);
    }
}

void WalkWithPointer(TnImage& image) {
    image.AddClient();
    auto* row = reinterpret_cast<unsigned char*>(image.PixelBase());
    for (int y = 0; y < image.Size().y; ++y, row += image.RowBytes()) {
        auto* const rowEnd = reinterpret_cast<TnImagePixel*>(row) + image.Size().x;
        for (auto* pixel = reinterpret_cast<TnImagePixel*>(row); pixel != rowEnd; ++pixel) {
            Touch(*pixel);
        }
    }
    image.RemoveClient();
}

} // namespace

Section WalkComparisons() {
    const auto image = std::make_shared<TnImage>(kFullHd, true);
    return {.title = "Walking",
            .comparisons = {{.name = "walk with ++ " + SizeName(kFullHd),
                             .items = PixelCount(kFullHd),
                             .ours = [image] { WalkWithIterator(*image); },
                             .rivals = {{"pointer loop", [image] { WalkWithPointer(*image); }, kWalkLimit}}}}};
}

} // namespace tn::bench
