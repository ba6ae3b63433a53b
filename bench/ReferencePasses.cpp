#include "ReferencePasses.h"

#include "TnGraphics/port/TnMask.h"
#include "TnGraphics/port/TnMatte.h"

#include <cstring>

namespace tn::bench {
namespace {

template <class SurfaceType> unsigned char* FirstRow(const SurfaceType& surface) {
    return reinterpret_cast<unsigned char*>(surface.PixelBase());
}

unsigned char* FirstRow(const TnMask& mask) { return mask.PixelAddress(); }

template <class SurfaceType> unsigned char* RowAt(const SurfaceType& surface, int y) {
    return FirstRow(surface) + std::size_t{surface.RowBytes()} * std::size_t(y);
}

template <class SurfaceType> std::size_t BytesOfRow(const SurfaceType& surface) {
    return static_cast<std::size_t>(surface.Size().x) * sizeof(*surface.PixelBase());
}

std::size_t BytesOfRow(const TnMask& mask) { return (static_cast<std::size_t>(mask.Size().x) + 7) / 8; }

template <class SurfaceType, class Pass> void ForEachRow(const SurfaceType& surface, const Pass& pass) {
    surface.AddClient();
    for (int y = 0; y < surface.Size().y; ++y) {
        pass(RowAt(surface, y), BytesOfRow(surface));
    }
    surface.RemoveClient();
}

template <class SurfaceType, class Pass>
void ForEachRowOfBoth(const SurfaceType& from, SurfaceType& to, const Pass& pass) {
    from.AddClient();
    to.AddClient();
    for (int y = 0; y < to.Size().y; ++y) {
        pass(RowAt(from, y), RowAt(to, y), BytesOfRow(to));
    }
    to.RemoveClient();
    from.RemoveClient();
}

} // namespace

void SetRows(TnImage& image, int byte) {
    ForEachRow(image, [byte](unsigned char* row, std::size_t bytes) { std::memset(row, byte, bytes); });
}

template <class SurfaceType> std::uint8_t ReadRows(const SurfaceType& surface) {
    std::uint8_t bits = 0;
    ForEachRow(surface, [&bits](const unsigned char* row, std::size_t bytes) {
        std::uint8_t bitsOfRow = 0;
        for (std::size_t n = 0; n < bytes; ++n) {
            bitsOfRow |= row[n];
        }
        bits |= bitsOfRow;
    });
    return bits;
}

void ReadModifyWriteRows(TnImage& image) {
    ForEachRow(image, [](unsigned char* row, std::size_t bytes) {
        for (std::size_t n = 0; n < bytes; ++n) {
            row[n] ^= 1;
        }
    });
}

template <class SurfaceType> void CopyRows(const SurfaceType& from, SurfaceType& to) {
    ForEachRowOfBoth(from, to, [](const unsigned char* source, unsigned char* destination, std::size_t bytes) {
        std::memcpy(destination, source, bytes);
    });
}

template <class SurfaceType> void ReadReadWriteRows(const SurfaceType& from, SurfaceType& to) {
    ForEachRowOfBoth(
        from, to, [](const unsigned char* __restrict source, unsigned char* __restrict destination, std::size_t bytes) {
            for (std::size_t n = 0; n < bytes; ++n) {
                destination[n] ^= source[n];
            }
        });
}

void CopySmallImage(const TnImage& from, TnImage& to) {
    constexpr std::size_t kRowBytes = 8 * sizeof(TnImagePixel);
    from.AddClient();
    to.AddClient();
    for (int y = 0; y < 8; ++y) {
        std::memcpy(RowAt(to, y), RowAt(from, y), kRowBytes);
    }
    to.RemoveClient();
    from.RemoveClient();
}

template std::uint8_t ReadRows(const TnImage&);
template std::uint8_t ReadRows(const TnMatte&);
template void CopyRows(const TnImage&, TnImage&);
template void CopyRows(const TnMatte&, TnMatte&);
template void CopyRows(const TnMask&, TnMask&);
template void ReadReadWriteRows(const TnImage&, TnImage&);
template void ReadReadWriteRows(const TnMatte&, TnMatte&);

} // namespace tn::bench
