#include "Comparison.h"
#include "ReferencePasses.h"

#include "TnGraphics/ops/Fills.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <pixman.h>

namespace tn::bench {
namespace {

constexpr double kFillLimit = 1.15;
constexpr double kSmallImageLimit = 3.0;
const TnColor kColor = {200, 30, 140, 220};

std::string SizeName(const TnPoint& size) { return std::to_string(size.x) + "x" + std::to_string(size.y); }

using Alphas = std::uint8_t (*)(double distance);

// The three pictures that alpha makes: a photograph, a title (a soft-edged disc on nothing), and noise in which every
// pixel is half transparent in a way of its own.
std::uint8_t Opaque(double) { return 255; }
std::uint8_t SoftDisc(double distance) {
    return static_cast<std::uint8_t>(std::clamp(255.0 * (0.8 - distance) * 40.0, 0.0, 255.0));
}
std::uint8_t Noise(double distance) { return static_cast<std::uint8_t>(1 + static_cast<int>(distance * 1e6) % 254); }

std::shared_ptr<TnImage> MakePicture(const TnPoint& size, Alphas alphas) {
    auto image = std::make_shared<TnImage>(size, true);
    std::uint32_t noise = 1;
    for (auto at = image->begin(); !at.AtEnd(); ++at) {
        noise = noise * 1664525U + 1013904223U;
        const TnPoint position = at.Position();
        const double distance = std::hypot(2.0 * position.x / size.x - 1.0, 2.0 * position.y / size.y - 1.0);
        *at = noise ^ (noise >> 15);
        at->Alpha(alphas(distance));
    }
    return image;
}

void PixmanFill(TnImage& image) {
    image.AddClient();
    const auto stride = static_cast<int>(image.RowBytes() / sizeof(std::uint32_t));
    const TnPoint size = image.Size();
    pixman_fill(&image.PixelBase()->value, stride, 32, 0, 0, size.x, size.y, TnImagePixel(kColor));
    image.RemoveClient();
}

Comparison Fill(const TnPoint& size) {
    const auto image = MakePicture(size, Opaque);
    return {.name = "ColorFill " + SizeName(size),
            .items = double(size.x) * size.y,
            .ours = [image] { ColorFill(*image, image->Bounds(), kColor); },
            .referenceName = "memset by rows",
            .reference = [image] { SetRows(*image, 0x5A); },
            .referenceLimit = kFillLimit,
            .peerName = "pixman_fill",
            .peer = [image] { PixmanFill(*image); }};
}

Comparison Edit(const std::string& name, const TnPoint& size, double limit, void (*edit)(TnImage&),
                Alphas alphas = Noise) {
    const auto image = MakePicture(size, alphas);
    return {.name = name + " " + SizeName(size),
            .items = double(size.x) * size.y,
            .ours = [image, edit] { edit(*image); },
            .referenceName = "read-modify-write",
            .reference = [image] { ReadModifyWriteRows(*image); },
            .referenceLimit = limit,
            .peerName = "",
            .peer = nullptr};
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
            .referenceName = "malloc + memset + free",
            .reference = AllocateSetFree,
            .referenceLimit = kSmallImageLimit,
            .peerName = "",
            .peer = nullptr};
}

} // namespace

std::vector<Comparison> FillComparisons() {
    std::vector<Comparison> comparisons = {SmallImage()};
    const std::pair<TnPoint, double> sizes[] = {{{1920, 1080}, 1.5}, {{256, 256}, 3.0}};
    for (const auto& [size, limit] : sizes) {
        comparisons.push_back(Fill(size));
        comparisons.push_back(Edit("AlphaFill", size, limit, [](TnImage& i) { AlphaFill(i, i.Bounds(), 77); }));
        const auto blend = [](TnImage& i) { BlendInColor(i, kColor, true); };
        comparisons.push_back(Edit("BlendInColor, photograph", size, limit, blend, Opaque));
        comparisons.push_back(Edit("BlendInColor, title", size, limit, blend, SoftDisc));
        comparisons.push_back(Edit("BlendInColor, noise", size, limit, blend, Noise));
        comparisons.push_back(Edit("SetOpacity", size, limit, [](TnImage& i) { SetOpacity(i, 99); }));
    }
    return comparisons;
}

} // namespace tn::bench
