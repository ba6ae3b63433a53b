/// \file
/// A scope in which interpolated reads of an image disregard its alpha.
#pragma once

#include "TnGraphics/TnExport.h"
#include "TnGraphics/port/ClientLock.h"
#include "TnGraphics/port/TnImage.h"

/// While one of these is open, TnImage::Get(TnFixed, TnFixed) interpolates all four channels plainly, and reads outside
/// the image return the scope's pixel.
///
/// The scope holds the image locked and is a state of the image: every reader meets it. Scopes nest and must be closed
/// in reverse order for the outside pixel to come back right.
///
/// \image html gallery/StDisregardAlphaInGet.png
class StDisregardAlphaInGet {
public:
    /// \param outside what reads outside the image return meanwhile
    /// \throws std::bad_alloc ("bad allocation") for an image without storage, which then stays as it is
    TN_EXPORT StDisregardAlphaInGet(const TnImage& image, const TnImagePixel& outside);
    TN_EXPORT ~StDisregardAlphaInGet();
    StDisregardAlphaInGet(const StDisregardAlphaInGet&) = delete;
    StDisregardAlphaInGet& operator=(const StDisregardAlphaInGet&) = delete;

private:
    tn::ClientLock<TnImage> lock_;
    TnImagePixel savedOutside_;
};
