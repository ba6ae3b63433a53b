#include "ReferencePasses.h"

#include <cstring>

namespace tn::bench {
namespace {

template <class Pass> void ForEachRow(TnImage& image, const Pass& pass) {
    image.AddClient();
    auto* row = reinterpret_cast<unsigned char*>(image.PixelBase());
    for (int y = 0; y < image.Size().y; ++y, row += image.RowBytes()) {
        pass(reinterpret_cast<std::uint32_t*>(row), static_cast<std::size_t>(image.Size().x));
    }
    image.RemoveClient();
}

} // namespace

void SetRows(TnImage& image, int byte) {
    ForEachRow(image,
               [byte](std::uint32_t* row, std::size_t length) { std::memset(row, byte, length * sizeof(*row)); });
}

void ReadModifyWriteRows(TnImage& image) {
    ForEachRow(image, [](std::uint32_t* row, std::size_t length) {
        for (std::size_t x = 0; x < length; ++x) {
            row[x] ^= 0x01010101U;
        }
    });
}

} // namespace tn::bench
