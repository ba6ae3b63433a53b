// The two kinds of surface, for typed tests, and what sets them apart.
#pragma once

#include "tests/support/RecordingStorage.h"

#include "TnGraphics/port/TnImage.h"
#include "TnGraphics/port/TnMatte.h"

#include <cstddef>
#include <cstdint>
#include <gtest/gtest.h>
#include <vector>

namespace tn::test {

using SurfaceKinds = ::testing::Types<TnImage, TnMatte>;

/// What hosts know of a kind of surface.
template <class SurfaceType> struct KindOf;

template <> struct KindOf<TnImage> {
    static constexpr std::uint32_t kPixelBytes = 4;
    static constexpr TnImagePixel kOutsideOwnStorage = 0x00FFFFFF;
    static constexpr TnImagePixel kOutsideGivenStorage = 0x00FFFFFF;
    static constexpr TnImagePixel kOutsideWalk = 0x00FFFFFF;
};

template <> struct KindOf<TnMatte> {
    static constexpr std::uint32_t kPixelBytes = 1;
    static constexpr TnMattePixel kOutsideOwnStorage = 0;
    static constexpr TnMattePixel kOutsideGivenStorage = 255;
    static constexpr TnMattePixel kOutsideWalk = 0;
};

/// Length of a row of the library's own storage: the pixels and 8 spare bytes.
template <class SurfaceType> constexpr std::uint32_t OwnRowBytes(std::uint32_t width) {
    return width * KindOf<SurfaceType>::kPixelBytes + 8;
}

/// Every byte of the storage, the spare ones included.
inline std::vector<std::uint8_t> BytesOf(const TnBitMapHelper& storage) {
    const auto* block = static_cast<const std::uint8_t*>(storage.BaseAddr());
    return {block, block + storage.ByteSize()};
}

/// Gives every byte of the storage a value that differs from its neighbours', to the side and in short rows above.
inline void Paint(const TnBitMapHelper& storage) {
    auto* block = static_cast<std::uint8_t*>(storage.BaseAddr());
    for (std::uint32_t i = 0; i < storage.ByteSize(); ++i) {
        block[i] = static_cast<std::uint8_t>(i * 151 + 11);
    }
}

/// Storage for pixels of a kind of surface, in rows without spare bytes.
template <class SurfaceType> RecordingStorage* NewRecordingStorage(StorageProbe& probe, const TnPoint& size) {
    return new RecordingStorage(probe, static_cast<std::uint32_t>(size.x) * KindOf<SurfaceType>::kPixelBytes,
                                static_cast<std::uint32_t>(size.y));
}

/// The address so many bytes past the start of the storage.
inline void* AddressIn(const TnBitMapHelper& storage, std::size_t byteOffset) {
    return static_cast<std::uint8_t*>(storage.BaseAddr()) + byteOffset;
}

/// Expects the surface to be locked in vain: a sized surface without storage.
template <class SurfaceType> void ExpectCannotBeLocked(const SurfaceType& surface) {
    EXPECT_EQ(surface.Storage(), nullptr);
    try {
        surface.AddClient();
        ADD_FAILURE() << "locked";
    } catch (const std::bad_alloc& exception) {
        EXPECT_STREQ(exception.what(), "bad allocation");
    }
    EXPECT_EQ(surface.Clients(), 0U);
}

/// Expects the surface to be lockable, and leaves it unlocked.
template <class SurfaceType> void ExpectCanBeLocked(const SurfaceType& surface) {
    ASSERT_NE(surface.Storage(), nullptr);
    surface.AddClient();
    EXPECT_NE(surface.PixelBase(), nullptr);
    surface.RemoveClient();
    EXPECT_EQ(surface.PixelBase(), nullptr);
    EXPECT_EQ(surface.Clients(), 0U);
}

} // namespace tn::test
