// An image over pixels of someone else: a capture card keeps its frame in memory of its own, with long rows, maps it
// only on demand and shows it when it is told to. A storage kind of a few lines is all that is needed for every
// operation to work on the card's pixels in place.
#include "TnGraphics/TnGraphics.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <stdexcept>
#include <typeinfo>
#include <vector>

namespace {

// Stands for a driver: 64 x 36 pixels in rows of 80 words, of which the last 16 are the card's own.
struct CaptureCard {
    static constexpr TnPoint kSize = {64, 36};
    static constexpr int kRowWords = 80;
    static constexpr std::uint32_t kCardsOwn = 0xCDCDCDCD;

    void* Map() {
        if (isUnplugged) {
            throw std::runtime_error("the card is unplugged");
        }
        ++maps;
        return memory.data();
    }
    void Unmap() { ++unmaps; }
    void Show() { ++framesShown; }

    std::vector<std::uint32_t> memory = std::vector<std::uint32_t>(kRowWords * kSize.y, kCardsOwn);
    int maps = 0;
    int unmaps = 0;
    int framesShown = 0;
    bool isUnplugged = false;
};

// The card's frame as storage. It is mapped as long as its image is locked, and then has an address.
class CardFrame final : public TnBitMapHelper {
public:
    explicit CardFrame(CaptureCard& card) : card_(card) {}

    void* BaseAddr() const override { return mapped_; }
    std::uint32_t RowBytes() const override { return CaptureCard::kRowWords * 4; }
    std::uint32_t ByteSize() const override { return RowBytes() * CaptureCard::kSize.y; }
    bool Contains(const void* address) const override {
        const auto distance = reinterpret_cast<std::uintptr_t>(address) - reinterpret_cast<std::uintptr_t>(mapped_);
        return mapped_ != nullptr && distance < ByteSize();
    }
    void Lock() override { mapped_ = card_.Map(); }
    void Unlock() override {
        mapped_ = nullptr;
        card_.Unmap();
    }
    void Refresh() override { card_.Show(); }

private:
    CaptureCard& card_;
    void* mapped_ = nullptr;
};

// While an iterator lives its image is locked, so the frame is mapped once for both operations.
void DrawLogo(TnImage& frame) {
    const auto mapped = frame.begin();
    ColorFill(frame, frame.Bounds(), TnColor(255, 0, 64, 128));
    TnImage logo({16, 8});
    ColorFill(logo, logo.Bounds(), TnColor(255, 255, 255, 255));
    BlendImage(logo, 128, frame, {44, 24});
}

// The library can copy only storage of its own kind, so copies of foreign pixels are made by an operation.
TnImage Snapshot(const TnImage& frame) {
    TnImage copy(frame.Size());
    TnCopy(frame, copy, {0, 0});
    return copy;
}

void SayWhetherItCanBeCopied(const TnImage& frame) {
    try {
        const TnImage copy(frame);
        std::printf("the frame was copied\n");
    } catch (const std::bad_cast&) {
        std::printf("the frame itself cannot be copied\n");
    }
}

void DrawUnplugged(CaptureCard& card, TnImage& frame) {
    card.isUnplugged = true;
    try {
        ColorFill(frame, frame.Bounds(), TnColor(255, 0, 0, 0));
    } catch (const std::runtime_error& error) {
        std::printf("%s; the frame has %u locks\n", error.what(), frame.Clients());
    }
}

} // namespace

int main() {
    CaptureCard card;
    TnImage frame(new CardFrame(card), CaptureCard::kSize); // the image deletes the storage
    DrawLogo(frame);
    frame.Storage()->Refresh();
    std::printf("mapped %d time, unmapped %d time, shown %d time\n", card.maps, card.unmaps, card.framesShown);

    std::printf("in the card: %08X, under the logo %08X\n", card.memory[0],
                card.memory[24 * CaptureCard::kRowWords + 44]);
    std::printf("words left to the card: %d\n",
                static_cast<int>(std::count(card.memory.begin(), card.memory.end(), CaptureCard::kCardsOwn)));

    SayWhetherItCanBeCopied(frame);
    std::printf("in a snapshot: %08X\n", Snapshot(frame).Get(44, 24).value);
    DrawUnplugged(card, frame);
}
