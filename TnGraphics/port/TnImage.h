/// \file
/// The 32-bit image.
#pragma once

#include "TnGraphics/geometry/TnFixed.h"
#include "TnGraphics/geometry/TnFloat.h"
#include "TnGraphics/port/SurfaceWalks.h"

/// A surface of 32-bit pixels with straight alpha. See tn::Surface for what it does.
class TN_EXPORT TnImage : public tn::Surface<TnImage> {
public:
    /// An image with pixels of its own. Its outside pixel is transparent white, 0x00FFFFFF.
    ///
    /// \param size       width and height in pixels; 0 x 0 has no storage
    /// \param clear      whether the pixels are set to 0; otherwise they are whatever the memory holds
    /// \param cancelProc called every 32 lines; none takes the class's default, or does nothing where there is none
    /// \throws bad_alloc_bitmap for exhausted memory and for sizes that are negative or too large
    explicit TnImage(const TnPoint& size = {}, bool clear = false, TnCancelProc cancelProc = nullptr);

    /// An image over given storage, which it takes over and deletes. Its outside pixel is transparent white.
    ///
    /// \param storage the storage, or none: the image then cannot be locked unless its size is 0 x 0
    /// \param size    width and height of the storage in pixels
    /// \param cancelProc as above
    TnImage(TnBitMapHelper* storage, const TnPoint& size, TnCancelProc cancelProc = nullptr);

    /// A deep, unlocked copy with the size, content rectangle, cancel procedure and outside pixel of the other one.
    /// \throws std::bad_cast for storage of another kind than WinBitMapHelper, bad_alloc_bitmap for exhausted memory
    TnImage(const TnImage& other);

    /// Takes over deep copies of the other image's pixels, its size, content rectangle and cancel procedure. Lock count
    /// and outside pixel stay. Assigning an image to itself does nothing.
    ///
    /// \throws what the copy throws; the image then has the new size and no storage
    TnImage& operator=(const TnImage& other);

    ~TnImage();

    // Reads and writes by position. Each locks the image for its own time, unless the position lies outside. Positions
    // are relative to the content's top-left corner, but lie outside only beyond the size of the storage, or where they
    // would leave its memory. What lies outside reads as the outside pixel.

    /// The pixel at a position.
    TnImagePixel Get(long x, long y) const;
    TnImagePixel Get(int x, int y) const { return Get(long{x}, long{y}); } ///< The same for plain literals.

    /// What lies at a position between pixels, whose top-left corners are at whole positions: the mean of the pixel and
    /// its right, lower and lower right neighbours, weighted by the upper 8 bits of the fractions. The last column and
    /// the last row are repeated.
    ///
    /// Transparent pixels take part in the alpha, not in the colour, so edges keep their colour; four of them give 0.
    /// Inside a StDisregardAlphaInGet scope all channels are averaged alike. Averages are truncated.
    ///
    /// \image html gallery/GetBetweenPixels.png
    TnImagePixel Get(TnFixed x, TnFixed y) const;

    /// The mean of a rectangle in steps of 1/256 of a pixel, each channel by itself, rounded. A rectangle narrower or
    /// lower than one pixel, or with a field that is no finite number, gives the outside pixel.
    ///
    /// The rectangle is trusted: it must lie inside the image, and so must a further column where it lies within one
    /// column, and a further row where it lies within one row, because these are read as its far edges and weighted
    /// fully. So {0, 0, 1, 1} gives the sum of four pixels, of which the low 8 bits are kept.
    ///
    /// \image html gallery/GetRect.png
    TnImagePixel Get(const TnFloatRect& rect) const;

    /// The sum over a block of nx x ny pixels with (x, y) at its top left, each channel of pixel (x + i, y + j) times
    /// kx[i] x ky[j], of which bits 16 to 23 are kept. The factors' raw values count, in unsigned 32 bits: for unit
    /// gain their products add up to 65536. A block of no pixels gives 0.
    ///
    /// The block is trusted: it must lie inside the image.
    ///
    /// \image html gallery/GetWeighted.png
    TnImagePixel Get(long x, long y, const TnFixed* kx, unsigned long nx, const TnFixed* ky, unsigned long ny) const;

    /// Stores a pixel at a position; outside it does nothing.
    void Set(TnImagePixel pixel, long x, long y);
    void Set(TnImagePixel pixel, int x, int y) { Set(pixel, long{x}, long{y}); } ///< The same for plain literals.
};
