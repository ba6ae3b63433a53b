/// \file
/// The 32-bit image.
#pragma once

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
};
