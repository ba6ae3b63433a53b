#include "TnGraphics/port/Surface.h"

#include "TnGraphics/port/Locking.h"
#include "TnGraphics/port/Raise.h"
#include "TnGraphics/port/Storage.h"
#include "TnGraphics/port/TnImage.h"
#include "TnGraphics/port/TnMatte.h"

namespace tn {
namespace {

void DoNothing() {}

TnCancelProc FirstOf(TnCancelProc given, TnCancelProc byDefault) {
    if (given != nullptr) {
        return given;
    }
    return byDefault != nullptr ? byDefault : &DoNothing;
}

TnRect Whole(const TnPoint& size) { return {0, 0, size.x, size.y}; }

constinit AssertionSite walkLeavesStorage = {"walkEnd <= blockEnd", "Surface::WalkBase", "port/Surface", __LINE__};

} // namespace

template <class SurfaceType> TnCancelProc Surface<SurfaceType>::defaultCancelProc_ = nullptr;

template <class SurfaceType>
Surface<SurfaceType>::Surface(const TnPoint& size, bool clear, TnCancelProc cancelProc)
    : size_(size), content_(Whole(size)), reading_{Traits::kOutsideOwnStorage},
      cancelProc_(FirstOf(cancelProc, defaultCancelProc_)) {
    if (!HasNoSize()) {
        Adopt(MakeStorage(size, Traits::kDepth, clear));
    }
}

template <class SurfaceType>
Surface<SurfaceType>::Surface(TnBitMapHelper* storage, const TnPoint& size, TnCancelProc cancelProc)
    : size_(size), content_(Whole(size)), reading_{Traits::kOutsideGivenStorage},
      cancelProc_(FirstOf(cancelProc, defaultCancelProc_)) {
    Adopt(std::unique_ptr<TnBitMapHelper>(storage));
}

template <class SurfaceType>
Surface<SurfaceType>::Surface(const Surface& other)
    : size_(other.size_), content_(other.content_), reading_{Traits::kOutsideOwnStorage},
      cancelProc_(other.cancelProc_) {
    if constexpr (Traits::kCopyKeepsOutsidePixel) {
        reading_.outside = other.reading_.outside;
    }
    if (!HasNoSize()) {
        Adopt(CopyStorage(other.storage_.get()));
    }
}

template <class SurfaceType> Surface<SurfaceType>& Surface<SurfaceType>::operator=(const Surface& other) {
    if (this == &other) {
        return *this;
    }
    cancelProc_ = other.cancelProc_;
    storage_.reset();
    pixelBase_ = nullptr;
    rowBytes_ = 0;
    size_ = other.size_;
    content_ = other.content_;
    if (!HasNoSize()) {
        Adopt(CopyStorage(other.storage_.get()));
    }
    return *this;
}

template <class SurfaceType> Surface<SurfaceType>::~Surface() = default;

template <class SurfaceType>
void Surface<SurfaceType>::ReInit(const TnPoint& size, bool clear, TnCancelProc cancelProc) {
    cancelProc_ = FirstOf(cancelProc, cancelProc_);
    storage_.reset();
    pixelBase_ = nullptr;
    size_ = size;
    content_ = Whole(size);
    if (!HasNoSize()) {
        Adopt(MakeStorage(size, Traits::kDepth, clear));
    }
}

template <class SurfaceType> void Surface<SurfaceType>::AddClient() const {
    CountClient(clients_, [this] {
        if (!HasNoSize()) {
            LockPixels();
        }
    });
}

template <class SurfaceType> void Surface<SurfaceType>::RemoveClient() const {
    DiscountClient(clients_, [this] {
        if (!HasNoSize()) {
            UnlockStorage(storage_.get());
            pixelBase_ = nullptr;
        }
    });
}

template <class SurfaceType> void Surface<SurfaceType>::Content(const TnRect& content) {
    if (storage_ == nullptr) {
        RaiseBadAllocation();
    }
    content_ = Intersection(content, Whole(size_));
    contentMoved_ = true;
    storage_->contentOrigin = {content_.left, content_.top};
}

template <class SurfaceType> void Surface<SurfaceType>::SetDefaultCancelProc(TnCancelProc cancelProc) {
    defaultCancelProc_ = cancelProc;
}

template <class SurfaceType> void Surface<SurfaceType>::Adopt(std::unique_ptr<TnBitMapHelper> storage) {
    storage_ = std::move(storage);
    rowBytes_ = RowBytesOf(storage_.get());
}

template <class SurfaceType> void Surface<SurfaceType>::LockPixels() const {
    const auto block = reinterpret_cast<std::uintptr_t>(LockStorage(storage_.get()));
    pixelBase_ = block == 0 ? nullptr : reinterpret_cast<void*>(AddressIn(block, {content_.left, content_.top}));
    contentMoved_ = false;
}

template <class SurfaceType>
std::uintptr_t Surface<SurfaceType>::AddressIn(std::uintptr_t origin, const TnPoint& position) const {
    return origin + static_cast<std::uintptr_t>(position.y) * rowBytes_ +
           static_cast<std::uintptr_t>(position.x) * sizeof(Pixel);
}

// The pixel base keeps the content corner of the first lock. A content rectangle that was set since then may reach past
// the storage from there; such a walk gets no address.
template <class SurfaceType> std::uintptr_t Surface<SurfaceType>::WalkBase(const TnRect& walk) const {
    const auto base = reinterpret_cast<std::uintptr_t>(pixelBase_);
    if (!contentMoved_ || base == 0 || walk.IsEmpty()) {
        return base;
    }
    const std::uintptr_t blockEnd = reinterpret_cast<std::uintptr_t>(storage_->BaseAddr()) + storage_->ByteSize();
    const std::uintptr_t walkEnd = AddressIn(base, walk.BottomRight()) + sizeof(Pixel);
    const bool staysInside = walkEnd <= blockEnd;
    walkLeavesStorage.AssertInDebug(staysInside);
    return staysInside ? base : 0;
}

template <class SurfaceType>
WalkAddresses Surface<SurfaceType>::AddressesByRows(const TnRect& bounds, const TnPoint& start) const {
    const std::uintptr_t base = WalkBase(bounds);
    if (base == 0 || bounds.IsEmpty()) {
        return {};
    }
    const TnPoint corner = bounds.BottomRight();
    return {bounds, AddressIn(base, start), AddressIn(base, {bounds.left, start.y}),
            AddressIn(base, {corner.x, start.y}), AddressIn(base, corner)};
}

// Unlike a walk by rows, one by columns over nothing stands on the content's first pixel: hosts test the rectangle.
template <class SurfaceType>
WalkAddresses Surface<SurfaceType>::AddressesByColumns(const TnRect& bounds, const TnPoint& start) const {
    const std::uintptr_t base = WalkBase(bounds);
    if (base == 0) {
        return {};
    }
    const TnPoint corner = bounds.BottomRight();
    return {bounds, AddressIn(base, start), AddressIn(base, {start.x, bounds.top}),
            AddressIn(base, {start.x, corner.y}), AddressIn(base, corner)};
}

template class Surface<TnImage>;
template class Surface<TnMatte>;

} // namespace tn
