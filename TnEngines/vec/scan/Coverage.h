// Private: how much of each pixel an area covers, row by row.
#pragma once

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <vector>

namespace tn::vec {

inline constexpr std::uint8_t kCovered = 255;

/// Heights and areas within a row are counted in these parts of a pixel.
inline constexpr std::int32_t kWhole = 1 << 14;

/// An area of 0..kWhole as coverage.
inline std::uint8_t CoverageOf(std::int64_t area) {
    return static_cast<std::uint8_t>((static_cast<std::uint64_t>(area) * kCovered + kWhole / 2) / kWhole);
}

/// A value of 0..255 rounded to nearest.
inline std::uint8_t NearestByte(double value) {
    return static_cast<std::uint8_t>(static_cast<int>(std::floor(value + 0.5)));
}

enum class FillRule { kNonZero, kEvenOdd };

constexpr bool IsInside(std::int64_t winding, FillRule rule) {
    return rule == FillRule::kNonZero ? winding != 0 : (winding & 1) != 0;
}

/// Neighbouring pixels of a row. What no span tells of is not covered.
struct CoverageSpan {
    std::int32_t x, length;
    const std::uint8_t* bytes; ///< The coverage of each, or null.
    std::uint8_t all;          ///< The coverage of all of them, not 0, where there are no bytes.
};

/// The spans of a row, which is built from left to right.
class CoverageRow {
public:
    /// Makes room for rows of a width that begin at a column.
    void Reset(std::int32_t left, std::int32_t width) {
        left_ = left;
        bytes_.resize(static_cast<std::size_t>(width));
        spans_.resize(static_cast<std::size_t>(width));
        Clear();
    }

    void Clear() { count_ = 0; }

    /// Adds pixels of one coverage.
    void Add(std::int32_t x, std::int32_t length, std::uint8_t coverage) {
        if (length < kLong && IsEndOfBytes(x)) {
            std::memset(Bytes(x, length), coverage, static_cast<std::size_t>(length));
        } else if (coverage != 0) {
            spans_[count_++] = {x, length, nullptr, coverage};
        }
    }

    /// Adds pixels whose coverages are to be written.
    std::uint8_t* Bytes(std::int32_t x, std::int32_t length) {
        std::uint8_t* const bytes = bytes_.data() + (x - left_);
        if (IsEndOfBytes(x)) {
            spans_[count_ - 1].length += length;
        } else {
            spans_[count_++] = {x, length, bytes, 0};
        }
        return bytes;
    }

    std::span<const CoverageSpan> Spans() const { return {spans_.data(), count_}; }

private:
    // Shorter spans of one coverage are not worth a span of their own after others.
    static constexpr std::int32_t kLong = 8;

    bool IsEndOfBytes(std::int32_t x) const {
        return count_ != 0 && spans_[count_ - 1].bytes != nullptr &&
               spans_[count_ - 1].x + spans_[count_ - 1].length == x;
    }

    std::int32_t left_ = 0;
    std::size_t count_ = 0;
    std::vector<std::uint8_t> bytes_;
    std::vector<CoverageSpan> spans_;
};

/// Takes coverage from top to bottom.
class CoverageSink {
public:
    /// The same spans for each row from top to bottom, which is exclusive.
    virtual void Cover(std::int32_t top, std::int32_t bottom, const CoverageRow& row) = 0;

protected:
    ~CoverageSink() = default;
};

} // namespace tn::vec
