/// \file
/// What images and mattes have in common: storage, locking, the content rectangle and cancelling.
#pragma once

#include "TnGraphics/TnExport.h"
#include "TnGraphics/geometry/TnPoint.h"
#include "TnGraphics/geometry/TnRect.h"
#include "TnGraphics/port/SurfaceTraits.h"
#include "TnGraphics/port/TnBitMapHelper.h"

#include <cstdint>
#include <memory>

/// Called by pixel loops once every 32 lines. An exception that it throws ends the operation and reaches the caller;
/// every lock is released on the way.
using TnCancelProc = void (*)();

class StCoerceToTopFieldOnly;
class StDisregardAlphaInGet;

namespace tn {

/// What an iterator walks line by line.
enum class Lines {
    kRows,    ///< A line is a row; a step goes one pixel right.
    kColumns, ///< A line is a column; a step goes one pixel down.
};

template <class SurfaceType, Lines lines> class SurfaceIterator;
struct ReadAccess;
struct ReadAccess;

/// Where a walk goes. Addresses are integers, because stepping freely may carry them out of the surface's memory; 0 is
/// nowhere.
struct WalkAddresses {
    TnRect bounds;                ///< The rectangle, in the frame of the content.
    std::uintptr_t start = 0;     ///< Where the walk begins.
    std::uintptr_t lineStart = 0; ///< The first pixel of the line that it begins on.
    std::uintptr_t lineEnd = 0;   ///< The last pixel of that line.
    std::uintptr_t last = 0;      ///< The last line's last pixel.
};

/// A rectangle of pixels over a storage object that it owns; the base of TnImage and TnMatte.
///
/// Pixel addresses are valid only while the surface is locked: between AddClient() and the matching RemoveClient(),
/// which are counted. Every iterator locks for its whole life. Copies are deep, and nothing is ever shared between
/// surfaces.
///
/// Within its storage a surface has a content rectangle, at first all of it. Positions that iterators and operations
/// take are relative to its top-left corner, in the frame of Bounds(), and are clipped to its size.
///
/// A surface belongs to one thread at a time.
template <class SurfaceType> class Surface {
    using Traits = SurfaceTraits<SurfaceType>;

public:
    /// The type of one pixel: TnImagePixel or TnMattePixel.
    using Pixel = typename Traits::Pixel;

    /// Walks row by row, left to right.
    using Iterator = SurfaceIterator<SurfaceType, Lines::kRows>;

    /// Walks column by column, top to bottom.
    using IteratorVertical = SurfaceIterator<SurfaceType, Lines::kColumns>;

    /// Gives the surface a new size and new pixels; the content rectangle is then all of it.
    ///
    /// \param size       width and height in pixels; 0 x 0 has no storage
    /// \param clear      whether the pixels are set to 0
    /// \param cancelProc the new cancel procedure; none keeps the present one
    /// \throws bad_alloc_bitmap for exhausted memory and for sizes that are negative or too large. The surface then has
    /// the
    ///         new size and no storage; it can be given a size again, assigned and destroyed.
    TN_EXPORT void ReInit(const TnPoint& size, bool clear = false, TnCancelProc cancelProc = nullptr);

    /// Locks the surface. The first lock fixes the pixel base at the content rectangle's top-left corner.
    /// \throws std::bad_alloc ("bad allocation") for a sized surface without storage, which then stays unlocked
    TN_EXPORT void AddClient() const;

    /// Undoes one AddClient(). Unbalanced calls are the caller's fault; they are not detected and wrap the count.
    TN_EXPORT void RemoveClient() const;

    /// Number of locks held.
    std::uint32_t Clients() const { return clients_; }

    /// Width and height of the content rectangle.
    TnPoint Size() const { return {content_.width, content_.height}; }

    /// {0, 0, width, height} of the content rectangle: the frame of all positions.
    TnRect Bounds() const { return {0, 0, content_.width, content_.height}; }

    /// The content rectangle within the storage.
    TnRect Content() const { return content_; }

    /// Sets the content rectangle, clipped to the storage; a rectangle wholly outside gives {0, 0, 0, 0}.
    ///
    /// On a locked surface the pixel base stays where it is: the new corner takes effect at the next first lock, and
    /// until then walks that would leave the storage are empty.
    ///
    /// \image html gallery/Content.png
    ///
    /// \throws std::bad_alloc ("bad allocation") for a surface without storage, which then keeps its content
    TN_EXPORT void Content(const TnRect& content);

    /// Width and height of the storage.
    TnPoint StorageSize() const { return size_; }

    /// Distance from one row to the next in bytes.
    std::uint32_t RowBytes() const { return rowBytes_; }

    /// The pixel at the content rectangle's top-left corner while the surface is locked, none otherwise.
    Pixel* PixelBase() const { return static_cast<Pixel*>(pixelBase_); }

    /// The storage, or none. It stays the surface's own.
    TnBitMapHelper* Storage() const { return storage_.get(); }

    /// What reads outside the surface return.
    Pixel OutsidePixel() const { return reading_.outside; }

    /// The procedure that pixel loops call every 32 lines; never null.
    TnCancelProc CancelProc() const { return cancelProc_; }

    /// Sets the cancel procedure of surfaces of this kind that are made later without one; none makes them do nothing.
    TN_EXPORT static void SetDefaultCancelProc(TnCancelProc cancelProc);

    /// The first pixel of the rectangle, clipped to Bounds(); already at the end when nothing is left of it.
    /// \throws std::bad_alloc ("bad allocation") like AddClient()
    Iterator begin(const TnRect& rect) const;
    Iterator begin() const; ///< The first pixel of the content.

    /// The end of the walk that begin(rect) starts: past its last pixel, into which -- steps back.
    Iterator end(const TnRect& rect) const;
    Iterator end() const; ///< The end of the walk over the content.

    /// The first pixel of the rectangle, clipped to Bounds(), for a walk column by column.
    ///
    /// When nothing is left of the rectangle the iterator stands on the content's first pixel, unlike begin(), and is
    /// not at its end: test the rectangle before a walk by columns.
    ///
    /// \throws std::bad_alloc ("bad allocation") like AddClient()
    IteratorVertical beginVertical(const TnRect& rect) const;
    IteratorVertical beginVertical() const; ///< The first pixel of the content.

    /// The end of the walk that beginVertical(rect) starts.
    IteratorVertical endVertical(const TnRect& rect) const;
    IteratorVertical endVertical() const; ///< The end of the walk over the content.

protected:
    Surface(const TnPoint& size, bool clear, TnCancelProc cancelProc);              ///< See TnImage and TnMatte.
    Surface(TnBitMapHelper* storage, const TnPoint& size, TnCancelProc cancelProc); ///< See TnImage and TnMatte.
    Surface(const Surface& other);                                                  ///< See TnImage and TnMatte.
    Surface& operator=(const Surface& other);                                       ///< See TnImage and TnMatte.
    ~Surface();

private:
    template <class, Lines> friend class SurfaceIterator;
    friend class ::StCoerceToTopFieldOnly;
    friend class ::StDisregardAlphaInGet;
    friend struct ReadAccess;

    const SurfaceType& Self() const { return static_cast<const SurfaceType&>(*this); }
    bool HasNoSize() const { return size_ == TnPoint{}; }
    template <class Walk> Walk BeginWalk(const TnRect& rect) const;
    template <class Walk> Walk EndWalk(const TnRect& rect) const;
    void Adopt(std::unique_ptr<TnBitMapHelper> storage);
    void LockPixels() const;
    std::uintptr_t AddressIn(std::uintptr_t origin, const TnPoint& position) const;
    std::uintptr_t WalkBase(const TnRect& walk) const;
    TN_EXPORT WalkAddresses AddressesByRows(const TnRect& bounds, const TnPoint& start) const;
    TN_EXPORT WalkAddresses AddressesByColumns(const TnRect& bounds, const TnPoint& start) const;

    static TnCancelProc defaultCancelProc_;

    // Locks and scopes change how a surface shows its pixels, also when it cannot be changed otherwise.
    std::unique_ptr<TnBitMapHelper> storage_;
    mutable TnPoint size_;
    mutable std::uint32_t rowBytes_ = 0;
    mutable void* pixelBase_ = nullptr;
    mutable TnRect content_;
    mutable std::uint32_t clients_ = 0;
    mutable typename Traits::ReadState reading_;
    TnCancelProc cancelProc_;
    mutable bool contentMoved_ = false; // since the first lock fixed the pixel base
};

} // namespace tn
