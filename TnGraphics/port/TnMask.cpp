#include "TnGraphics/port/TnMask.h"

#include "TnGraphics/port/Locking.h"
#include "TnGraphics/port/Storage.h"

namespace {

constexpr std::uint32_t kMaskDepth = 1;

} // namespace

TnMask::TnMask(const TnPoint& size) : TnMask(size, false) {}

TnMask::TnMask(const TnPoint& size, bool clear) : size_(size) { Adopt(tn::MakeStorage(size, kMaskDepth, clear)); }

TnMask::TnMask(const TnMask& other) : size_(other.size_) { Adopt(tn::CopyStorage(other.storage_.get())); }

TnMask& TnMask::operator=(const TnMask& other) {
    if (this == &other) {
        return *this;
    }
    size_ = other.size_;
    rowBytes_ = 0;
    pixelAddress_ = nullptr;
    storage_.reset();
    Adopt(tn::CopyStorage(other.storage_.get()));
    return *this;
}

TnMask::~TnMask() = default;

void TnMask::AddClient() const {
    tn::CountClient(clients_, [this] { pixelAddress_ = tn::LockStorage(storage_.get()); });
}

void TnMask::RemoveClient() const {
    tn::DiscountClient(clients_, [this] {
        tn::UnlockStorage(storage_.get());
        pixelAddress_ = nullptr;
    });
}

void TnMask::Adopt(std::unique_ptr<TnBitMapHelper> storage) {
    storage_ = std::move(storage);
    rowBytes_ = tn::RowBytesOf(storage_.get());
}
