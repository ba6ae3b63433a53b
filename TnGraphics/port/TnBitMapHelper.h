/// \file
/// Abstract pixel storage: where a surface's pixels are and how long a row is.
#pragma once

#include "TnGraphics/TnExport.h"
#include "TnGraphics/geometry/TnPoint.h"

#include <cstdint>

/// The storage behind a surface, owned by it and deleted through the virtual destructor.
///
/// Derive from it to put a surface over pixels of your own. The first byte of row 0 and the row bytes must be multiples
/// of the pixel's size, a row must be at least as long as its pixels, and the address must stay what it is between
/// Lock() and Unlock().
class TN_EXPORT TnBitMapHelper {
public:
    virtual ~TnBitMapHelper();
    TnBitMapHelper(const TnBitMapHelper&) = delete;
    TnBitMapHelper& operator=(const TnBitMapHelper&) = delete;

    /// Address of the first byte of row 0. Asked while the surface is locked; a null address makes every walk empty.
    virtual void* BaseAddr() const = 0;

    /// Length of one row in bytes, which may exceed its pixels.
    virtual std::uint32_t RowBytes() const = 0;

    /// Size of the whole pixel block in bytes.
    virtual std::uint32_t ByteSize() const = 0;

    /// True when the address lies within the block.
    virtual bool Contains(const void* address) const = 0;

    /// Called when the surface's lock count goes from 0 to 1. When it throws, the surface stays unlocked.
    virtual void Lock();

    /// Called when the surface's lock count goes from 1 to 0. Must not throw.
    virtual void Unlock();

    /// For storage that presents its pixels elsewhere; the library never calls it.
    virtual void Refresh() = 0;

    /// Top-left corner of the surface's content rectangle, kept up to date by the surface.
    TnPoint contentOrigin;

protected:
    TnBitMapHelper();
};
