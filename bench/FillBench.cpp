#include "Comparison.h"
#include "Pictures.h"
#include "ReferencePasses.h"
#include "peers/Peers.h"

#include "TnGraphics/ops/Fills.h"

#include <cstdlib>
#include <cstring>

namespace tn::bench {
namespace {

constexpr double kFillLimit = 1.15;
constexpr double kSmallImageLimit = 3.0;
const TnColor kColor = {200, 30, 140, 220};

/// A pass that spoils what it works on.
Rival OnCopy(const std::string& name, const TnImage& image, void (*pass)(TnImage&), double limit) {
    return {name, [scratch = std::make_shared<TnImage>(image), pass] { pass(*scratch); }, limit};
}

Comparison Fill(const TnPoint& size) {
    const auto image = MakePicture(size, Picture::kPhotograph);
    return {.name = "ColorFill " + SizeName(size),
            .items = PixelCount(size),
            .ours = [image] { ColorFill(*image, image->Bounds(), kColor); },
            .rivals = {OnCopy(
                           "memset by rows", *image, [](TnImage& i) { SetRows(i, 0x5A); }, kFillLimit),
                       {"pixman_fill", PixmanFill(StraightRows(*image), TnImagePixel(kColor)), {}}}};
}

Comparison Edit(const std::string& name, const TnPoint& size, double limit, void (*edit)(TnImage&),
                Picture picture = Picture::kNoise) {
    const auto image = MakePicture(size, picture);
    return {.name = name + " " + SizeName(size),
            .items = PixelCount(size),
            .ours = [image, edit] { edit(*image); },
            .rivals = {OnCopy("read-modify-write", *image, ReadModifyWriteRows, limit)}};
}

void MakeFillDestroy() {
    TnImage image({8, 8});
    ColorFill(image, image.Bounds(), kColor);
}

void AllocateSetFree() {
    constexpr std::size_t kBytes = 8 * (8 * 4 + 8);
    void* block = std::malloc(kBytes);
    // Told about by an address, the compiler keeps the block.
    asm volatile("" : "+r"(block));
    std::memset(block, 0x5A, kBytes);
    asm volatile("" : : "r"(block) : "memory");
    std::free(block);
}

Comparison SmallImage() {
    return {.name = "8x8: make, fill, destroy",
            .items = 1,
            .ours = MakeFillDestroy,
            .rivals = {{"malloc + memset + free", AllocateSetFree, kSmallImageLimit}}};
}

} // namespace

Section FillComparisons() {
    Section section = {"Fills and edits in place", {SmallImage()}};
    auto& comparisons = section.comparisons;
    const std::pair<TnPoint, double> sizes[] = {{kFullHd, 1.5}, {kCached, 3.0}};
    for (const auto& [size, limit] : sizes) {
        comparisons.push_back(Fill(size));
        comparisons.push_back(Edit("AlphaFill", size, limit, [](TnImage& i) { AlphaFill(i, i.Bounds(), 77); }));
        for (const Picture picture : kPictures) {
            const auto blend = [](TnImage& i) { BlendInColor(i, kColor, true); };
            comparisons.push_back(Edit("BlendInColor, " + NameOf(picture), size, limit, blend, picture));
        }
        comparisons.push_back(Edit("SetOpacity", size, limit, [](TnImage& i) { SetOpacity(i, 99); }));
    }
    return section;
}

} // namespace tn::bench
