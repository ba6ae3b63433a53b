#include "Pictures.h"

#include <algorithm>
#include <cmath>
#include <new>
#include <type_traits>

namespace tn::bench {
namespace {

constexpr std::align_val_t kRowAlignment{64};

std::uint8_t NoiseAt(double distance) { return static_cast<std::uint8_t>(1 + static_cast<int>(distance * 1e6) % 254); }

/// The distance is 0 in the middle, 1 at the middle of each edge.
std::uint8_t AlphaAt(Picture picture, double distance) {
    switch (picture) {
    case Picture::kTitle:
        return static_cast<std::uint8_t>(std::clamp(255.0 * (0.8 - distance) * 40.0, 0.0, 255.0));
    case Picture::kNoise:
        return NoiseAt(distance);
    case Picture::kOtherNoise:
        return static_cast<std::uint8_t>(255 - NoiseAt(distance));
    case Picture::kHoles:
        return NoiseAt(distance) < 64 ? 0 : NoiseAt(distance);
    case Picture::kPhotograph:
        break;
    }
    return 255;
}

double Distance(const TnPoint& at, const TnPoint& size) {
    return std::hypot(2.0 * at.x / size.x - 1.0, 2.0 * at.y / size.y - 1.0);
}

/// A number without visible relation to the next one.
std::uint32_t Scattered(std::uint32_t number) {
    number = (number ^ number >> 16) * 0x45D9F3BU;
    number = (number ^ number >> 16) * 0x45D9F3BU;
    return number ^ number >> 16;
}

/// Four pixels of a cell as four bits.
std::uint32_t RowOfCell(const TnPoint& cell, int row) {
    const std::uint32_t kind = Scattered(static_cast<std::uint32_t>(cell.y * 65536 + cell.x));
    if ((kind & 1U) == 0) {
        return (kind & 2U) == 0 ? 0 : 15;
    }
    // The first two rows see to it that the cell is neither empty nor full.
    return row == 0 ? 6 : row == 1 ? 9 : Scattered(kind + static_cast<std::uint32_t>(row)) % 16;
}

std::uint32_t Premultiplied(TnImagePixel pixel) {
    const std::uint32_t alpha = pixel.Alpha();
    const auto times = [alpha](std::uint32_t channel) { return (channel * alpha + 127) / 255; };
    return alpha << 24 | times(pixel.Red()) << 16 | times(pixel.Green()) << 8 | times(pixel.Blue());
}

template <class Element> std::shared_ptr<Element[]> AlignedBlock(std::size_t elements) {
    auto* const block = static_cast<Element*>(::operator new(elements * sizeof(Element), kRowAlignment));
    return {block, [](Element* released) { ::operator delete(released, kRowAlignment); }};
}

template <class Converted, class SurfaceType, class Convert>
Converted ConvertedRows(const SurfaceType& surface, const Convert& convert) {
    using Element = std::remove_reference_t<decltype(Converted::pixels[0])>;
    const TnPoint size = surface.Size();
    const Converted rows = {AlignedBlock<Element>(static_cast<std::size_t>(PixelCount(size))), size.x, size.y};
    std::transform(surface.begin(), surface.end(), rows.pixels.get(), convert);
    return rows;
}

} // namespace

std::string SizeName(const TnPoint& size) { return std::to_string(size.x) + "x" + std::to_string(size.y); }

double PixelCount(const TnPoint& size) { return double(size.x) * size.y; }

std::string NameOf(Picture picture) {
    const char* const names[] = {"photograph", "title", "noise", "other noise", "holes"};
    return names[static_cast<int>(picture)];
}

std::shared_ptr<TnImage> MakePicture(const TnPoint& size, Picture picture) {
    auto image = std::make_shared<TnImage>(size, true);
    auto noise = static_cast<std::uint32_t>(picture) + 1;
    for (auto at = image->begin(); !at.AtEnd(); ++at) {
        noise = noise * 1664525U + 1013904223U;
        *at = noise ^ (noise >> 15);
        at->Alpha(AlphaAt(picture, Distance(at.Position(), size)));
    }
    return image;
}

std::shared_ptr<TnMatte> MakeMatte(const TnPoint& size, Picture picture) {
    auto matte = std::make_shared<TnMatte>(size, true);
    for (auto at = matte->begin(); !at.AtEnd(); ++at) {
        at->Value(AlphaAt(picture, Distance(at.Position(), size)));
    }
    return matte;
}

std::shared_ptr<TnMask> MakeMask(const TnPoint& size) {
    auto mask = std::make_shared<TnMask>(size, true);
    mask->AddClient();
    for (int y = 0; y < size.y; ++y) {
        std::uint8_t* const row = mask->PixelAddress() + std::size_t{mask->RowBytes()} * std::size_t(y);
        for (int cell = 0; cell < size.x / kCellSide; ++cell) {
            const std::uint32_t pixels = RowOfCell({cell, y / kCellSide}, y % kCellSide);
            row[cell / 2] |= static_cast<std::uint8_t>(cell % 2 == 0 ? pixels << 4 : pixels);
        }
    }
    mask->RemoveClient();
    return mask;
}

Rows StraightRows(const TnImage& image) {
    return ConvertedRows<Rows>(image, [](TnImagePixel pixel) { return pixel.value; });
}

Rows PremultipliedRows(const TnImage& image) { return ConvertedRows<Rows>(image, Premultiplied); }

ByteRows MatteRows(const TnMatte& matte) {
    return ConvertedRows<ByteRows>(matte, [](TnMattePixel pixel) { return pixel.value; });
}

} // namespace tn::bench
