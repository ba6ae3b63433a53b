// Surfaces to be read, and what the models know of them.
#pragma once

#include "tests/models/SamplingModels.h"
#include "tests/support/AddressSpace.h"
#include "tests/support/GuardedStorage.h"
#include "tests/support/Pictures.h"
#include "tests/support/Random.h"

#include "TnGraphics/port/TnImage.h"
#include "TnGraphics/port/TnMatte.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <gtest/gtest.h>
#include <vector>

namespace tn::test {

/// One block of rows with an inaccessible page right after its last byte, or right before its first one.
class GuardedBlock : public TnBitMapHelper {
public:
    GuardedBlock(std::uint32_t rowBytes, std::uint32_t rows, Guard guard)
        : rowBytes_(rowBytes), bytes_(std::size_t{rowBytes} * rows), pages_(bytes_ / AddressSpace::PageBytes() + 1),
          space_((pages_ + 2) * AddressSpace::PageBytes()), firstByte_(AddressSpace::PageBytes()) {
        if (guard == Guard::kAfterRows) {
            firstByte_ += pages_ * AddressSpace::PageBytes() - bytes_;
        }
        space_.Commit(AddressSpace::PageBytes(), pages_ * AddressSpace::PageBytes());
    }

    void* BaseAddr() const override { return space_.At(firstByte_); }
    std::uint32_t RowBytes() const override { return rowBytes_; }
    std::uint32_t ByteSize() const override { return static_cast<std::uint32_t>(bytes_); }
    bool Contains(const void* address) const override {
        return reinterpret_cast<std::uintptr_t>(address) - reinterpret_cast<std::uintptr_t>(BaseAddr()) < bytes_;
    }
    void Refresh() override {}

private:
    std::uint32_t rowBytes_;
    std::size_t bytes_;
    std::size_t pages_;
    AddressSpace space_;
    std::size_t firstByte_;
};

inline model::Channels ChannelsOf(TnImagePixel pixel) { return model::ChannelsOf(pixel.value); }
inline model::Channels ChannelsOf(TnMattePixel pixel) { return {pixel.value, 0, 0, 0}; }

inline TnImagePixel PixelOf(const model::Channels& pixel, const TnImage&) { return model::PackedWord(pixel); }
inline TnMattePixel PixelOf(const model::Channels& pixel, const TnMatte&) {
    return static_cast<std::uint8_t>(pixel.alpha);
}

/// What reads of a surface depend on, without its bytes: rows of the given distance, from the content's corner.
template <class SurfaceType> model::ReadSurface ShapeOf(const SurfaceType& surface, std::uint32_t rowBytes) {
    constexpr auto kPixelBytes = static_cast<int>(sizeof(typename SurfaceType::Pixel));
    const TnRect content = surface.Content();
    model::ReadSurface read;
    read.rowBytes = rowBytes;
    read.corner = std::int64_t{content.top} * rowBytes + std::int64_t{content.left} * kPixelBytes;
    read.pixelBytes = kPixelBytes;
    read.size = surface.StorageSize();
    read.contentSize = surface.Size();
    read.outside = ChannelsOf(surface.OutsidePixel());
    return read;
}

/// All that reads of a surface depend on.
template <class SurfaceType> model::ReadSurface ReadSurfaceOf(const SurfaceType& surface) {
    model::ReadSurface read = ShapeOf(surface, surface.RowBytes());
    if (const TnBitMapHelper* const storage = surface.Storage()) {
        const auto* const block = static_cast<const std::uint8_t*>(storage->BaseAddr());
        read.block.assign(block, block + storage->ByteSize());
    }
    return read;
}

/// The same for rows between which nothing can be touched; the content begins in the first column. The model has no
/// bytes between the rows.
template <class SurfaceType> model::ReadSurface ReadSurfaceOfRows(const SurfaceType& surface) {
    const auto width = static_cast<std::size_t>(surface.StorageSize().x) * sizeof(typename SurfaceType::Pixel);
    model::ReadSurface read = ShapeOf(surface, static_cast<std::uint32_t>(width));
    const auto* row = static_cast<const std::uint8_t*>(surface.Storage()->BaseAddr());
    for (std::int32_t y = 0; y < read.size.y; ++y) {
        read.block.insert(read.block.end(), row, row + width);
        row += surface.RowBytes();
    }
    return read;
}

namespace model {

/// For comparing a source with what it was.
inline ::testing::AssertionResult SamePixels(const ReadSurface& expected, const ReadSurface& actual) {
    return expected.block == actual.block ? ::testing::AssertionSuccess()
                                          : ::testing::AssertionFailure() << "some pixels differ";
}

} // namespace model

/// What lies around the pixels of a surface.
enum class Surroundings {
    kOwnStorage,      ///< The library's own storage.
    kBlockBeforePage, ///< A page that faults after the block.
    kBlockAfterPage,  ///< A page that faults before the block.
    kRowsBeforePages, ///< A page that faults after each row; the content begins in the first column.
    kRowsAfterPages,  ///< A page that faults before each row, and one further on; the content likewise.
};

/// A surface with random bytes all over its block, and a random content rectangle.
template <class SurfaceType> class RandomSource {
public:
    RandomSource(Random& random, const TnPoint& size, TnCancelProc cancelProc = nullptr)
        : RandomSource(random, size, random.OneIn(2) ? Surroundings::kOwnStorage : random.OneOf(kAll), cancelProc) {}

    RandomSource(Random& random, const TnPoint& size, Surroundings surroundings, TnCancelProc cancelProc = nullptr)
        : surroundings_(surroundings), surface_(MakeSurface(random, size, surroundings, cancelProc)) {
        if (surface_.Storage() == nullptr) {
            return;
        }
        Paint(random);
        TnRect content = random.RectWithin(size);
        if (HasRowsOfTheirOwn()) {
            content.left = 0;
        }
        surface_.Content(content);
    }

    SurfaceType& Surface() { return surface_; }
    const SurfaceType& Surface() const { return surface_; }

    model::ReadSurface Snapshot() const {
        return HasRowsOfTheirOwn() ? ReadSurfaceOfRows(surface_) : ReadSurfaceOf(surface_);
    }

private:
    static constexpr std::array<Surroundings, 5> kAll = {Surroundings::kOwnStorage, Surroundings::kBlockBeforePage,
                                                         Surroundings::kBlockAfterPage, Surroundings::kRowsBeforePages,
                                                         Surroundings::kRowsAfterPages};
    static constexpr std::size_t kPixelBytes = sizeof(typename SurfaceType::Pixel);

    static TnBitMapHelper* NewStorage(Random& random, const TnPoint& size, Surroundings surroundings) {
        const auto rowBytes = static_cast<std::uint32_t>((size.x + random.Between(0, 2)) * int{kPixelBytes});
        const auto rows = static_cast<std::uint32_t>(size.y);
        switch (surroundings) {
        case Surroundings::kBlockBeforePage:
            return new GuardedBlock(rowBytes, rows, Guard::kAfterRows);
        case Surroundings::kBlockAfterPage:
            return new GuardedBlock(rowBytes, rows, Guard::kBeforeRows);
        case Surroundings::kRowsBeforePages:
            return new GuardedStorage(size, kPixelBytes, Guard::kAfterRows);
        default:
            return new GuardedStorage(size, kPixelBytes, Guard::kBeforeRows);
        }
    }

    static SurfaceType MakeSurface(Random& random, const TnPoint& size, Surroundings surroundings,
                                   TnCancelProc cancelProc) {
        if (surroundings == Surroundings::kOwnStorage) {
            return SurfaceType(size, false, cancelProc);
        }
        return SurfaceType(NewStorage(random, size, surroundings), size, cancelProc);
    }

    bool HasRowsOfTheirOwn() const {
        return surroundings_ == Surroundings::kRowsBeforePages || surroundings_ == Surroundings::kRowsAfterPages;
    }

    static void SetRandom(Random& random, TnImagePixel& pixel) { pixel = random.Pixel(); }
    static void SetRandom(Random& random, TnMattePixel& pixel) { pixel = random.Alpha(); }

    void Paint(Random& random) {
        const auto width = static_cast<std::size_t>(surface_.StorageSize().x);
        const std::size_t columns = HasRowsOfTheirOwn() ? width : surface_.RowBytes() / kPixelBytes;
        auto* row = static_cast<std::uint8_t*>(surface_.Storage()->BaseAddr());
        for (std::int32_t y = 0; y < surface_.StorageSize().y; ++y) {
            for (std::size_t x = 0; x < columns; ++x) {
                SetRandom(random, reinterpret_cast<typename SurfaceType::Pixel*>(row)[x]);
            }
            row += surface_.RowBytes();
        }
    }

    Surroundings surroundings_;
    SurfaceType surface_;
};

} // namespace tn::test
