// The least that memory asks of any operation over the rows of a surface, as fast as this machine's compiler makes it.
#pragma once

#include "TnGraphics/port/TnImage.h"

#include <cstdint>

namespace tn::bench {

/// Row by row std::memset.
void SetRows(TnImage& image, int byte);

/// Row by row, every byte is read. Returns the bits that are set in any of them.
template <class SurfaceType> std::uint8_t ReadRows(const SurfaceType& surface);

/// Row by row, every pixel is read, changed by the cheapest instruction and written.
void ReadModifyWriteRows(TnImage& image);

/// Row by row std::memcpy between surfaces of one size, masks too.
template <class SurfaceType> void CopyRows(const SurfaceType& from, SurfaceType& to);

/// Row by row, every pixel of both surfaces is read, and written to the second one: what a blend must move.
template <class SurfaceType> void ReadReadWriteRows(const SurfaceType& from, SurfaceType& to);

/// Locks both images, copies eight rows of eight pixels and unlocks.
void CopySmallImage(const TnImage& from, TnImage& to);

} // namespace tn::bench
