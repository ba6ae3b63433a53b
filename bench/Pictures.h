// The pictures that operations are measured on.
#pragma once

#include "TnGraphics/port/TnImage.h"
#include "TnGraphics/port/TnMask.h"
#include "TnGraphics/port/TnMatte.h"
#include "peers/Rows.h"

#include <memory>
#include <string>

namespace tn::bench {

inline constexpr TnPoint kFullHd = {1920, 1080};
inline constexpr TnPoint kCached = {256, 256};

std::string SizeName(const TnPoint& size);
double PixelCount(const TnPoint& size);

/// Pictures differ in their alphas; their colours are random.
enum class Picture {
    kPhotograph, ///< Opaque.
    kTitle,      ///< A soft-edged disc on nothing.
    kNoise,      ///< Every pixel is half transparent, each in its own way.
    kOtherNoise, ///< The same in yet another way, for what noise is combined with.
    kHoles,      ///< The same, but every fourth pixel or so is transparent.
};

/// What sources are chosen from.
inline constexpr Picture kPictures[] = {Picture::kPhotograph, Picture::kTitle, Picture::kNoise};

std::string NameOf(Picture picture);

std::shared_ptr<TnImage> MakePicture(const TnPoint& size, Picture picture);

/// A matte that holds the picture's alphas.
std::shared_ptr<TnMatte> MakeMatte(const TnPoint& size, Picture picture);

/// What DownSample makes one pixel of is as many pixels wide and high.
inline constexpr int kCellSide = 4;

/// A mask of whole cells in no order: every second one is partly set, the others are full or empty.
std::shared_ptr<TnMask> MakeMask(const TnPoint& size);

/// The image's pixels for the peers.
Rows StraightRows(const TnImage& image);

/// The same with colours multiplied by alpha.
Rows PremultipliedRows(const TnImage& image);

/// The matte's pixels for the peers.
ByteRows MatteRows(const TnMatte& matte);

} // namespace tn::bench
