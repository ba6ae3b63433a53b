#include "TnGraphics/port/SurfaceIterator.h"

#include "TnGraphics/port/Assertion.h"
#include "TnGraphics/port/ReportedPosition.h"
#include "TnGraphics/port/TnImage.h"
#include "TnGraphics/port/TnMatte.h"

namespace tn {
namespace {

constexpr std::int32_t kNowhere = std::numeric_limits<std::int32_t>::max();

constexpr const char* kFarPosition = "byteDistance <= std::numeric_limits<std::uint32_t>::max()";

// The names and lines by which developers of hosts know these four places.
template <class Iterator> AssertionSite farPosition;
template <>
constinit AssertionSite farPosition<TnImage::Iterator> = {kFarPosition, "TnImage::Iterator::Position",
                                                          "port/TnImageIterator", 205};
template <>
constinit AssertionSite farPosition<TnImage::IteratorVertical> = {kFarPosition, "TnImage::IteratorVertical::Position",
                                                                  "port/TnImageIteratorV", 165};
template <>
constinit AssertionSite farPosition<TnMatte::Iterator> = {kFarPosition, "TnMatte::Iterator::Position",
                                                          "port/TnMatteIterator", 174};
template <>
constinit AssertionSite farPosition<TnMatte::IteratorVertical> = {kFarPosition, "TnMatte::IteratorVertical::Position",
                                                                  "port/TnMatteIteratorV", 166};

constexpr bool FitsUnsigned32(std::uintptr_t byteDistance) {
    return byteDistance <= std::numeric_limits<std::uint32_t>::max();
}

} // namespace

template <class SurfaceType, Lines lines> std::uintptr_t SurfaceIterator<SurfaceType, lines>::ByteDistance() const {
    return current_ - reinterpret_cast<std::uintptr_t>(lock_.Surface()->PixelBase());
}

template <class SurfaceType, Lines lines>
TnPoint SurfaceIterator<SurfaceType, lines>::PositionAt(std::uintptr_t byteDistance) const {
    if (rowBytes_ == 0) {
        return {static_cast<std::int32_t>(byteDistance / sizeof(Pixel)), 0};
    }
    return {static_cast<std::int32_t>(byteDistance % rowBytes_ / sizeof(Pixel)),
            static_cast<std::int32_t>(byteDistance / rowBytes_)};
}

template <class SurfaceType, Lines lines> TnPoint SurfaceIterator<SurfaceType, lines>::Position() const {
    if (AtEnd()) {
        return {kNowhere, kNowhere};
    }
    const std::uintptr_t byteDistance = ByteDistance();
    farPosition<SurfaceIterator>.AssertInDebug(FitsUnsigned32(byteDistance));
    return PositionAt(byteDistance);
}

template <class SurfaceType, Lines lines>
TnPoint ReportedPosition(const SurfaceIterator<SurfaceType, lines>& iterator) {
    const std::uintptr_t byteDistance = iterator.ByteDistance();
    const std::uintptr_t lastOfLine = byteDistance + (iterator.lineEnd_ - iterator.current_);
    farPosition<SurfaceIterator<SurfaceType, lines>>.Assert(FitsUnsigned32(lastOfLine));
    return iterator.PositionAt(byteDistance);
}

template TnPoint SurfaceIterator<TnImage, Lines::kRows>::Position() const;
template TnPoint SurfaceIterator<TnImage, Lines::kColumns>::Position() const;
template TnPoint SurfaceIterator<TnMatte, Lines::kRows>::Position() const;
template TnPoint SurfaceIterator<TnMatte, Lines::kColumns>::Position() const;

template TnPoint ReportedPosition(const TnImage::Iterator& iterator);

} // namespace tn
