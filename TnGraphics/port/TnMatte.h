/// \file
/// The 8-bit matte.
#pragma once

#include "TnGraphics/geometry/TnFixed.h"
#include "TnGraphics/geometry/TnFloat.h"
#include "TnGraphics/port/SurfaceWalks.h"

/// A surface of 8-bit coverages: alpha channels, smooth masks, luminance keys. See tn::Surface for what it does.
class TN_EXPORT TnMatte : public tn::Surface<TnMatte> {
public:
    /// A matte with pixels of its own. Its outside pixel is 0.
    ///
    /// \param size       width and height in pixels; 0 x 0 has no storage
    /// \param clear      whether the pixels are set to 0; otherwise they are whatever the memory holds
    /// \param cancelProc called every 32 lines; none takes the class's default, or does nothing where there is none
    /// \throws bad_alloc_bitmap for exhausted memory and for sizes that are negative or too large
    explicit TnMatte(const TnPoint& size = {}, bool clear = false, TnCancelProc cancelProc = nullptr);

    /// A matte over given storage, which it takes over and deletes. Its outside pixel is 255, unlike the other kind's.
    ///
    /// \param storage the storage, or none: the matte then cannot be locked unless its size is 0 x 0
    /// \param size    width and height of the storage in pixels
    /// \param cancelProc as above
    TnMatte(TnBitMapHelper* storage, const TnPoint& size, TnCancelProc cancelProc = nullptr);

    /// A deep, unlocked copy with the size, content rectangle and cancel procedure of the other one. Its outside pixel
    /// is 0, whatever the other one's is.
    ///
    /// \throws std::bad_cast for storage of another kind than WinBitMapHelper, bad_alloc_bitmap for exhausted memory
    TnMatte(const TnMatte& other);

    /// Takes over deep copies of the other matte's pixels, its size, content rectangle and cancel procedure. Lock count
    /// and outside pixel stay. Assigning a matte to itself does nothing.
    ///
    /// \throws what the copy throws; the matte then has the new size and no storage
    TnMatte& operator=(const TnMatte& other);

    ~TnMatte();

    // Reads and writes by position. Each locks the matte for its own time, unless the position lies outside. Positions
    // are relative to the content's top-left corner, but lie outside only beyond the size of the storage, or where they
    // would leave its memory. What lies outside reads as the outside pixel.

    /// The value at a position.
    TnMattePixel Get(long x, long y) const;
    TnMattePixel Get(int x, int y) const { return Get(long{x}, long{y}); } ///< The same for plain literals.

    /// The value between pixels, as the image's, but in the last column and in the last row, where a neighbour is
    /// missing, positions are outside.
    ///
    /// \image html gallery/GetMatteBetweenPixels.png
    TnMattePixel Get(TnFixed x, TnFixed y) const;

    /// The same at a position that is rounded to 1/256 of a pixel. A coordinate that is no number, or whose 256fold
    /// leaves 32 bits, is outside.
    TnMattePixel Get(float x, float y) const;

    /// The mean of a rectangle, as the image's, but truncated.
    TnMattePixel Get(const TnFloatRect& rect) const;

    /// The outside pixel: mattes have no weighted read. Here so that the two kinds of surface can be used alike.
    TnMattePixel Get(long x, long y, const TnFixed* kx, unsigned long nx, const TnFixed* ky, unsigned long ny) const;

    /// Stores a value at a position; outside it does nothing.
    void Set(TnMattePixel pixel, long x, long y);
    void Set(TnMattePixel pixel, int x, int y) { Set(pixel, long{x}, long{y}); } ///< The same for plain literals.
};
