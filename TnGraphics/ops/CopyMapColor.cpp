#include "TnGraphics/ops/Copies.h"
#include "TnGraphics/ops/Placement.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace {

constexpr std::uint32_t kColorBits = 0x00FFFFFF;

// The colours of the last call. Each row starts from what is in them by then, since a cancel procedure may make a call
// of its own.
constinit std::vector<TnImagePixel> wanted;
constinit std::vector<TnImagePixel> replacements;

TnImagePixel Replacement(std::uint32_t color) {
    const std::size_t entries = std::min(wanted.size(), replacements.size());
    for (std::size_t i = 0; i < entries; ++i) {
        if ((wanted[i].value & kColorBits) == color) {
            return replacements[i];
        }
    }
    return replacements.back();
}

void ReplaceColors(const TnImagePixel* source, TnImagePixel* destination, std::size_t length) {
    for (std::size_t column = 0; column < length; ++column) {
        destination[column] = Replacement(source[column].value & kColorBits);
    }
}

} // namespace

void TnCopyMapColor(const TnImage& source, TnImage& destination, const TnPoint& at,
                    const std::vector<TnImagePixel>& from, const std::vector<TnImagePixel>& to) {
    wanted = from;
    replacements = to;
    tn::PlaceRows(source, destination, tn::WholePixels(tn::ToFixed(at)), destination.Bounds(),
                  [](const TnImage::Iterator& sourceRow, const TnImage::Iterator& destinationRow, std::size_t length) {
                      if (!replacements.empty()) {
                          ReplaceColors(&*sourceRow, &*destinationRow, length);
                      }
                  });
}
