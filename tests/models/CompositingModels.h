// The compositing operations on coordinates, one pixel after the other.
#pragma once

#include "tests/models/CombinationModels.h"
#include "tests/models/ModelPicture.h"

#include "TnGraphics/geometry/TnPoint.h"
#include "TnGraphics/geometry/TnRect.h"

#include <cstdint>
#include <string>

namespace tn::test::model {

/// Pixels in memory. Two planes may lie in the same bytes.
struct Plane {
    std::uint8_t* corner;
    std::int64_t rowBytes;
    int pixelBytes; ///< 4 for an image, 1 for a matte.
    TnPoint size;

    Channels Get(int x, int y) const;
    void Set(int x, int y, const Channels& pixel) const;
    bool Contains(int x, int y) const { return 0 <= x && x < size.x && 0 <= y && y < size.y; }

private:
    std::uint8_t* At(int x, int y) const;
};

/// The content of a picture.
template <class Value> Plane PlaneOf(ModelPicture<Value>& picture) {
    constexpr auto kBytes = static_cast<int>(sizeof(Value));
    const std::int64_t rowBytes = std::int64_t{picture.storageSize.x} * kBytes;
    auto* bytes = reinterpret_cast<std::uint8_t*>(picture.values.data());
    return {bytes + picture.content.top * rowBytes + std::int64_t{picture.content.left} * kBytes,
            rowBytes,
            kBytes,
            {picture.Width(), picture.Height()}};
}

/// A whole coordinate as the operations take it: in 65536ths, of which the low 32 bits are kept.
std::int32_t FixedOffset(std::int32_t whole);

/// The whole number at or below a number in 65536ths.
std::int32_t FloorOfFixed(std::int32_t fixed);

/// The source between its pixels, for the destination pixel that lies over (x, y) of it.
///
/// \param fractionX how far the source is moved right, in 65536ths of a pixel
/// \param fractionY how far it is moved down
Channels Sampled(const Plane& source, int x, int y, int fractionX, int fractionY);

/// One call of an operation.
struct Compositing {
    Combination combination = Combination::kCopy;
    bool erasesOutside = false;
    ChannelMatrix matrix;
    int opacity = 255;
    std::int32_t x = 0; ///< The offset in 65536ths.
    std::int32_t y = 0;
    TnRect clip; ///< In the destination.
    ColorMap map;
};

/// What of the destination is walked; {0, 0, 0, 0} for nothing.
TnRect Overlap(const Compositing& call, const TnPoint& sourceSize, const TnPoint& destinationSize);

/// Which surfaces are polled, in order: 'd' for the destination, 's' for the source.
std::string PollsOf(const Compositing& call, const TnPoint& sourceSize, const TnPoint& destinationSize);

/// Does the operation up to one of its polls, the first being 1; 0 does all of it.
void Composite(const Compositing& call, const Plane& source, const Plane& destination, int poll = 0);

} // namespace tn::test::model
