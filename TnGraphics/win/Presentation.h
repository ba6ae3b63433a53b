/// \file
/// Showing pictures on a device context through GDI+.
///
/// The host starts GDI+ and keeps it started; without it nothing is shown. What GDI+ refuses is not shown either, and
/// nobody is told: nothing is thrown and nothing kept. A surface is to be locked while its pixels are shown. These
/// functions keep no state and may run on any thread on which the device context may be used.
///
/// Hosts that use the bitmap include gdiplus.h; TnGraphics/win/CDC.h has the device context where the Microsoft
/// Foundation Classes do not.
#pragma once

#include "TnGraphics/TnExport.h"
#include "TnGraphics/geometry/TnRect.h"
#include "TnGraphics/port/TnImage.h"
#include "TnGraphics/port/WinBitMapHelper.h"

#include <memory>

class CDC;
namespace Gdiplus {
class Bitmap;
}

/// The storage of an image, or null when it is not a WinBitMapHelper.
TN_EXPORT WinBitMapHelper* GetWinBitMapHelper(const TnImage& image);

/// A bitmap over the pixels of a storage, which are not copied: the storage must outlive it, locked.
///
/// 32 bits are shown with their alphas. Any other depth is taken for 8 bits of grey whose alpha is the same value: 0 is
/// transparent black, 255 opaque white. GDI+ refuses row bytes that are no multiple of 4; nothing is shown then. So no
/// mask is ever shown.
///
/// \return null for no storage, without memory, and for a storage of 1 bit in which a row read as 8 bits would end
///         beyond its last byte
TN_EXPORT std::unique_ptr<Gdiplus::Bitmap> MakeGDIPlusBitmap(WinBitMapHelper* storage);

/// Shows a rectangle of a storage in a rectangle of a device context, whose pixels are replaced. A device has no
/// alphas: what is left of a translucent pixel is its colour times its alpha.
///
/// Widths alone decide how: a narrower destination is reduced with GDI+'s best filter, a wider one shows each pixel
/// as a rectangle, and equal widths are left to what the device context's graphics do.
///
/// \param source in pixels of the storage
TN_EXPORT void CopyImage(WinBitMapHelper* storage, const TnRect& source, CDC& destination,
                         const TnRect& destinationRect);

/// CopyImage that blends over what is there, by the alphas of the source.
TN_EXPORT void BlendImage(WinBitMapHelper* storage, const TnRect& source, CDC& destination,
                          const TnRect& destinationRect);
