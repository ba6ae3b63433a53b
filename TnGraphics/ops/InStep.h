// Private: rows that share memory.
//
// Pixels of source and destination are read and written in step. Kernels read ahead of what they write, and may do so
// wherever that makes no difference.
#pragma once

#include <cstddef>
#include <cstdint>
#include <type_traits>

namespace tn {

/// The addresses of the pixels of a row.
class RowSpan {
public:
    template <class Pixel>
    RowSpan(const Pixel* row, std::size_t length)
        : begin_(reinterpret_cast<std::uintptr_t>(row)), end_(begin_ + length * sizeof(Pixel)) {}

    bool Overlaps(const RowSpan& other) const { return begin_ < other.end_ && other.begin_ < end_; }
    bool IsAfter(const RowSpan& other) const { return begin_ > other.begin_; }

private:
    std::uintptr_t begin_;
    std::uintptr_t end_;
};

/// True when pixels of the source row are written as destination pixels before they are read, so that a kernel must be
/// given one pixel at a time. Writing at or behind the place of reading does no harm.
template <class Source, class Destination>
bool MustGoInStep(const Source* source, const Destination* destination, std::size_t length) {
    const RowSpan read(source, length);
    const RowSpan written(destination, length);
    return read.Overlaps(written) && (!std::is_same_v<Source, Destination> || written.IsAfter(read));
}

} // namespace tn
