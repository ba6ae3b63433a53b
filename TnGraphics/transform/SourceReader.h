// Private: a locked source surface, read at many positions.
#pragma once

#include "TnGraphics/port/ClientLock.h"
#include "TnGraphics/port/PixelGrid.h"
#include "TnGraphics/port/TnImage.h"
#include "TnGraphics/port/TnMatte.h"
#include "TnGraphics/rows/BoxMeans.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <type_traits>

namespace tn {

/// How many pixels are positioned, sampled and stored at a time; all of it stays in the first-level cache.
inline constexpr std::size_t kPositions = 256;

/// A chunk of positions.
struct Positions {
    alignas(64) std::array<std::int32_t, kPositions> x;
    alignas(64) std::array<std::int32_t, kPositions> y;
};

/// Holds the source locked and reads it as its Get does, without a lock for each pixel.
template <class Source> class SourceReader {
public:
    using Pixel = typename Source::Pixel;

    explicit SourceReader(const Source& source);

    /// Get(x, y) for each position.
    void Fetch(const Positions& positions, Pixel* row, std::size_t count) const;

    /// Get(TnFixed, TnFixed) for each position in 16.16.
    void Interpolate(const Positions& positions, Pixel* row, std::size_t count) const;

    /// Get(float, float), which mattes alone have.
    Pixel Interpolated(float x, float y) const;

    /// Get(const TnFloatRect&) for a rectangle of any kind; what is not inside the source is outside.
    Pixel Mean(const TnFloatRect& rect) const;

    /// Get(const TnFloatRect&) for each box, by kernels.
    void Average(const BoxList& boxes, Pixel* row, std::size_t count) const;

    /// False for surfaces too large for lanes, which hold offsets in 32 bits.
    bool SuitsKernels() const {
        const std::uint64_t rows = static_cast<std::uint64_t>(grid_.size.y) * grid_.rowBytes;
        return rows + static_cast<std::uint64_t>(grid_.size.x) * sizeof(Pixel) <= 0xFFFFFFFF;
    }

    /// False also for mattes that are too narrow, or shown from a place within their storage: several of their values
    /// are read at once.
    bool SuitsBoxKernels() const {
        const bool readsSeveral = std::is_same_v<Source, TnMatte>;
        return SuitsKernels() && (!readsSeveral || (grid_.size.x >= MatteBoxes::kValuesAtOnce && grid_.IsWhole()));
    }

    const Source& Surface() const { return *lock_.Surface(); }
    Pixel Outside() const { return Surface().OutsidePixel(); }

private:
    ClientLock<Source> lock_;
    PixelGrid<Pixel> grid_;
};

} // namespace tn
