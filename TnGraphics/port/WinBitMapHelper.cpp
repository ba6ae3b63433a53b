#include "TnGraphics/port/WinBitMapHelper.h"

#include "TnGraphics/port/Raise.h"

#include <cstring>
#include <limits>
#include <new>

namespace {

constexpr std::uint64_t kSpareRowBytes = 8;

std::uint32_t FieldOrRaise(std::uint64_t value) {
    if (value > std::numeric_limits<std::uint32_t>::max()) {
        tn::RaiseBitmapExhausted();
    }
    return static_cast<std::uint32_t>(value);
}

std::uint32_t RowBytesFor(const TnPoint& size, std::uint32_t depth) {
    if (size.x < 0 || size.y < 0) {
        tn::RaiseBitmapExhausted();
    }
    const std::uint64_t bits = static_cast<std::uint64_t>(size.x) * depth;
    return FieldOrRaise(((bits + 7) >> 3) + kSpareRowBytes);
}

std::uint8_t* AllocateBlock(std::uint32_t byteSize) {
    try {
        return new std::uint8_t[byteSize];
    } catch (const std::bad_alloc&) {
        tn::RaiseBitmapExhausted();
    }
}

// Blocks are cleared and copied in whole 32-bit words.
std::size_t WholeWordBytes(std::uint32_t byteSize) { return byteSize & ~std::uint32_t{3}; }

} // namespace

WinBitMapHelper::WinBitMapHelper(const TnPoint& size, std::uint32_t depth, bool clear)
    : depth_(depth), rowBytes_(RowBytesFor(size, depth)),
      byteSize_(FieldOrRaise(std::uint64_t{rowBytes_} * static_cast<std::uint32_t>(size.y))), size_(size) {
    pixels_.reset(AllocateBlock(byteSize_));
    if (clear) {
        std::memset(pixels_.get(), 0, WholeWordBytes(byteSize_));
    }
}

WinBitMapHelper::WinBitMapHelper(const WinBitMapHelper& source)
    : TnBitMapHelper(), depth_(source.depth_), pixels_(AllocateBlock(source.byteSize_)), rowBytes_(source.rowBytes_),
      byteSize_(source.byteSize_), size_(source.size_) {
    std::memcpy(pixels_.get(), source.pixels_.get(), WholeWordBytes(byteSize_));
}

WinBitMapHelper::~WinBitMapHelper() = default;

void* WinBitMapHelper::BaseAddr() const { return pixels_.get(); }

std::uint32_t WinBitMapHelper::RowBytes() const { return rowBytes_; }

std::uint32_t WinBitMapHelper::ByteSize() const { return byteSize_; }

bool WinBitMapHelper::Contains(const void* address) const {
    const auto at = reinterpret_cast<std::uintptr_t>(address);
    const auto begin = reinterpret_cast<std::uintptr_t>(pixels_.get());
    return begin <= at && at <= begin + byteSize_;
}

void WinBitMapHelper::Lock() {}

void WinBitMapHelper::Unlock() {}

void WinBitMapHelper::Refresh() {}

std::uint32_t WinBitMapHelper::ImageBytes() const { return byteSize_; }

std::uint32_t WinBitMapHelper::Depth() const { return depth_; }

TnPoint WinBitMapHelper::Size() const { return size_; }
