/// \file
/// The library's own pixel storage: one block of the heap.
#pragma once

#include "TnGraphics/port/TnBitMapHelper.h"

#include <cstdint>
#include <memory>

/// Pixels in one heap block, the storage behind every surface that the library allocates.
///
/// A row holds its pixels in whole bytes and 8 spare bytes after them.
class TN_EXPORT WinBitMapHelper : public TnBitMapHelper {
public:
    /// Allocates the block.
    ///
    /// \param size  width and height in pixels; either may be 0
    /// \param depth bits per pixel: 32, 8 or 1
    /// \param clear whether the block is set to 0, in whole 32-bit words: up to 3 bytes at its very end, which belong
    /// to
    ///              no pixel, stay as they come
    /// \throws bad_alloc_bitmap when memory is exhausted, when the width or height is negative, and when the row bytes
    ///         or the byte size do not fit 32 bits
    WinBitMapHelper(const TnPoint& size, std::uint32_t depth, bool clear);

    /// A deep copy, in whole 32-bit words as above. The copy's content origin is 0, 0.
    /// \throws bad_alloc_bitmap when memory is exhausted
    WinBitMapHelper(const WinBitMapHelper& source);

    ~WinBitMapHelper() override;
    WinBitMapHelper& operator=(const WinBitMapHelper&) = delete;

    void* BaseAddr() const override;
    std::uint32_t RowBytes() const override;
    std::uint32_t ByteSize() const override;

    /// True from the block's first byte up to and including the address one past its end.
    bool Contains(const void* address) const override;

    void Lock() override;
    void Unlock() override;
    void Refresh() override;

    virtual std::uint32_t ImageBytes() const; ///< The byte size again.
    virtual std::uint32_t Depth() const;      ///< Bits per pixel.
    virtual TnPoint Size() const;             ///< Width and height in pixels.

private:
    std::uint32_t depth_;
    std::unique_ptr<std::uint8_t[]> pixels_;
    std::uint32_t rowBytes_;
    std::uint32_t byteSize_;
    TnPoint size_;
};
