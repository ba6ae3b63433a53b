/// \file
/// The 1-bit mask.
#pragma once

#include "TnGraphics/TnExport.h"
#include "TnGraphics/geometry/TnPoint.h"
#include "TnGraphics/port/TnBitMapHelper.h"
#include "TnGraphics/port/TnMaskPixel.h"

#include <cstdint>
#include <memory>

/// A surface of 1-bit pixels, the leftmost pixel of a byte in its most significant bit.
///
/// It has no content rectangle, outside pixel or cancel procedure. Its pixel address is valid only while it is locked.
class TnMask {
public:
    using Pixel = TnMaskPixel; ///< The truth value of one pixel.

    /// A mask with pixels of its own, even when the size is 0 x 0. They are whatever the memory holds.
    ///
    /// \param size width and height in pixels
    /// \throws bad_alloc_bitmap for exhausted memory and for sizes that are negative or too large
    TN_EXPORT explicit TnMask(const TnPoint& size);

    /// The same, with the choice of setting the pixels to 0.
    TN_EXPORT TnMask(const TnPoint& size, bool clear);

    /// A deep, unlocked copy.
    /// \throws bad_alloc_bitmap for exhausted memory
    TN_EXPORT TnMask(const TnMask& other);

    /// Takes over a deep copy of the other mask's pixels and its size. The lock count stays. Assigning a mask to itself
    /// does nothing.
    /// \throws as the copy; the mask then has the new size and no storage
    TN_EXPORT TnMask& operator=(const TnMask& other);

    TN_EXPORT ~TnMask();

    /// Locks the mask; the first lock fixes the pixel address.
    /// \throws std::bad_alloc ("bad allocation") for a mask without storage, which then stays unlocked
    TN_EXPORT void AddClient() const;

    /// Undoes one AddClient(). Unbalanced calls are the caller's fault.
    TN_EXPORT void RemoveClient() const;

    /// Number of locks held.
    std::uint32_t Clients() const { return clients_; }

    /// Width and height in pixels.
    TnPoint Size() const { return size_; }

    /// Distance from one row to the next in bytes.
    std::uint32_t RowBytes() const { return rowBytes_; }

    /// The first byte of row 0 while the mask is locked, none otherwise.
    std::uint8_t* PixelAddress() const { return static_cast<std::uint8_t*>(pixelAddress_); }

    /// The storage. It stays the mask's own.
    TnBitMapHelper* Storage() const { return storage_.get(); }

private:
    void Adopt(std::unique_ptr<TnBitMapHelper> storage);

    TnPoint size_;
    std::uint32_t rowBytes_ = 0;
    mutable void* pixelAddress_ = nullptr;
    std::unique_ptr<TnBitMapHelper> storage_;
    mutable std::uint32_t clients_ = 0;
};
