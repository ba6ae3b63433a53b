// Private: how much of each pixel an area covers, row by row.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <vector>

namespace tn::vec {

inline constexpr std::uint8_t kCovered = 255;

enum class FillRule { kNonZero, kEvenOdd };

constexpr bool IsInside(std::int64_t winding, FillRule rule) {
    return rule == FillRule::kNonZero ? winding != 0 : (winding & 1) != 0;
}

/// Neighbouring pixels of a row. What no span tells of is not covered.
struct CoverageSpan {
    std::int32_t x, length;
    std::uint8_t all;          ///< The coverage of all of them, not 0, where there are no bytes.
    const std::uint8_t* bytes; ///< The coverage of each, or null.
};

/// The spans of a row, from left to right.
class CoverageRow {
public:
    /// Makes room for rows of a width that begin at a column.
    void Reset(std::int32_t left, std::int32_t width) {
        left_ = left;
        bytes_.resize(static_cast<std::size_t>(width));
        spans_.reserve(static_cast<std::size_t>(width));
    }

    void Clear() {
        spans_.clear();
        begin_ = end_ = left_;
    }

    /// Adds pixels of one coverage to the right of those before.
    void Add(std::int32_t x, std::int32_t length, std::uint8_t coverage) {
        if (length >= kLong || (coverage == 0 && begin_ == end_)) {
            Flush();
            begin_ = end_ = x + length;
            if (coverage != 0) {
                spans_.push_back({x, length, coverage, nullptr});
            }
        } else if (length > 0) {
            std::memset(Bytes(x, length), coverage, static_cast<std::size_t>(length));
        }
    }

    /// Adds pixels to the right of those before, whose coverages are to be written.
    std::uint8_t* Bytes(std::int32_t x, std::int32_t length) {
        if (x != end_) {
            Flush();
            begin_ = x;
        }
        end_ = x + length;
        return BytesAt(x);
    }

    void Finish() { Flush(); }

    const std::vector<CoverageSpan>& Spans() const { return spans_; }

private:
    // Shorter spans of one coverage are not worth a span of their own between others.
    static constexpr std::int32_t kLong = 16;

    std::uint8_t* BytesAt(std::int32_t x) { return bytes_.data() + (x - left_); }

    void Flush() {
        if (begin_ < end_) {
            spans_.push_back({begin_, end_ - begin_, 0, BytesAt(begin_)});
        }
    }

    std::int32_t left_ = 0;
    std::int32_t begin_ = 0, end_ = 0; // of the bytes that are no span yet
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
