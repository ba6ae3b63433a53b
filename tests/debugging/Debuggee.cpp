// What the debugger is asked to show. The pixels are stored one by one, so that it is plain what must be seen.

#include "TnGraphics/TnGraphics.h"

#include <cstdint>
#include <cstring>

namespace {

// Storage that only shows its pixels to those who lock it.
class ForeignStorage : public TnBitMapHelper {
public:
    void* BaseAddr() const override { return const_cast<std::uint8_t*>(bytes_); }
    std::uint32_t RowBytes() const override { return 4; }
    std::uint32_t ByteSize() const override { return sizeof(bytes_); }
    bool Contains(const void* address) const override { return bytes_ <= address && address < bytes_ + sizeof(bytes_); }
    void Refresh() override {}

private:
    std::uint8_t bytes_[8] = {0, 255, 0, 255, 255, 0, 255, 0};
};

// From black to white, with a transparent pixel before each and a row of half transparent white below.
void DrawGreys(TnImage& image) {
    for (int i = 0; i < 4; ++i) {
        image.Set(0x00FFFFFF, 2 * i, 0);
        image.Set(0xFF000000U + 0x00555555U * static_cast<std::uint32_t>(i), 2 * i + 1, 0);
        image.Set(0x80FFFFFF, 2 * i, 1);
        image.Set(0x80FFFFFF, 2 * i + 1, 1);
    }
}

// White in the left quarter and in the lowest fifth, transparent elsewhere.
void DrawCorner(TnImage& image) {
    for (int y = 0; y < 200; ++y) {
        for (int x = 0; x < 256; ++x) {
            image.Set(x < 64 || y >= 160 ? 0xFFFFFFFF : 0, x, y);
        }
    }
}

// Pixel (2, 0) and column 9.
void DrawMask(TnMask& mask) {
    mask.AddClient();
    mask.PixelAddress()[0] = 0x20;
    for (std::uint32_t row = 0; row < 2; ++row) {
        mask.PixelAddress()[row * mask.RowBytes() + 1] = 0x40;
    }
    mask.RemoveClient();
}

// Columns of white and black in turn.
void DrawStripes(TnMatte& matte) {
    for (int y = 0; y < 4; ++y) {
        for (int x = 0; x < 128; x += 2) {
            matte.Set(std::uint8_t{255}, x, y);
        }
    }
}

void Stop([[maybe_unused]] const TnImage& shown) {}

} // namespace

int main() {
    [[maybe_unused]] const TnImagePixel pixel(0x80FF4000);
    [[maybe_unused]] const TnMattePixel coverage(std::uint8_t{200});
    [[maybe_unused]] const TnMaskPixel inside(true);
    [[maybe_unused]] const TnMaskPixel outside(false);
    [[maybe_unused]] const TnColor color(255, 16, 22, 48);
    [[maybe_unused]] const TnPoint point{-3, 7};
    [[maybe_unused]] const TnRect rect{-1, 20, 280, 60};
    [[maybe_unused]] const TnFixed fixed{-32769};
    [[maybe_unused]] const TnFixedPoint between{{98304}, {-16384}};
    alignas(TnImage) unsigned char unmade[sizeof(TnImage)];
    TnImage empty;
    TnImage greys({8, 2});
    TnImage corner({256, 200});
    TnImage window({8, 2});
    TnMatte matte({3, 2}, true);
    TnMatte stripes({128, 4}, true);
    TnMatte foreign(new ForeignStorage, {4, 2});
    TnMatte locked(new ForeignStorage, {4, 2});
    TnMask mask({10, 2}, true);
    TnImage lockedImage({3, 2}, true);
    TnMask lockedMask({10, 2}, true);

    std::memset(unmade, 0x7F, sizeof(unmade));
    DrawGreys(greys);
    DrawCorner(corner);
    DrawGreys(window);
    window.Content({1, 0, 5, 1});
    matte.Set(std::uint8_t{255}, 0, 0);
    matte.Set(std::uint8_t{128}, 1, 1);
    DrawStripes(stripes);
    locked.AddClient();
    locked.AddClient();
    DrawMask(mask);
    DrawMask(lockedMask);
    lockedMask.AddClient();
    for (int i = 0; i < 4; ++i) {
        lockedImage.Set(0xFF000001U + static_cast<std::uint32_t>(i), 1 + i % 2, i / 2);
    }
    lockedImage.Content({1, 0, 2, 2});
    lockedImage.AddClient();

    Stop(greys);
    lockedImage.RemoveClient();
    lockedMask.RemoveClient();
    locked.RemoveClient();
    locked.RemoveClient();
    return 0;
}
