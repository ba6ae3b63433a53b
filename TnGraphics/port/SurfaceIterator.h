/// \file
/// The cursor over a rectangle of one surface, row by row or column by column.
#pragma once

#include "TnGraphics/TnExport.h"
#include "TnGraphics/geometry/TnPoint.h"
#include "TnGraphics/geometry/TnRect.h"
#include "TnGraphics/port/ClientLock.h"
#include "TnGraphics/port/Surface.h"
#include "TnGraphics/port/SurfaceTraits.h"

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <limits>

namespace tn {

/// How many line changes of a walk there are from one call of the cancel procedure to the next.
inline constexpr std::uint32_t kLinesPerCancelPoll = 32;

/// A cursor over a rectangle of one surface, line by line. It holds the surface locked for its whole life and calls the
/// surface's cancel procedure once every 32 line changes.
///
/// The surface must outlive the iterator and may meanwhile not be given a new size or content, nor be assigned. Only
/// what says so is checked: stepping past the end or before the first line, and reading there, are the caller's faults.
///
/// Row offsets are formed as the unsigned 32-bit product d.y x row bytes and added as such. So moves up are not what
/// they seem: give +=, + and the neighbours d.y >= 0, and -= and - d.y <= 0. Moves to the side go both ways.
///
/// \tparam SurfaceType TnImage or TnMatte
/// \tparam lines       what it walks line by line
template <class SurfaceType, Lines lines> class SurfaceIterator {
    using Traits = SurfaceTraits<SurfaceType>;
    using Pixel = typename Traits::Pixel;

public:
    using iterator_category = std::bidirectional_iterator_tag; ///< It steps both ways.
    using value_type = Pixel;                                  ///< TnImagePixel or TnMattePixel.
    using difference_type = std::int64_t;                      ///< Counts pixels.
    using pointer = Pixel*;                                    ///< Into the locked surface.
    using reference = Pixel&;                                  ///< Into the locked surface.

    /// No surface and no pixel: to be assigned, compared and destroyed, nothing else.
    SurfaceIterator() = default;

    /// Stands where the other one does, with a lock of its own; its line count starts at 0.
    SurfaceIterator(const SurfaceIterator& other);

    /// What the surface of the other iterator gives as begin(rect), or beginVertical(rect).
    SurfaceIterator(const SurfaceIterator& other, const TnRect& rect);

    /// Stands where the other one does, its line count included.
    SurfaceIterator& operator=(const SurfaceIterator& other) = default;

    ~SurfaceIterator() = default;

    reference operator*() const { return *PixelAt(current_); } ///< The current pixel. Not at the end.
    pointer operator->() const { return PixelAt(current_); }   ///< Its address. Not at the end.

    /// True when both stand on the same pixel, or both nowhere.
    friend bool operator==(const SurfaceIterator& a, const SurfaceIterator& b) { return a.current_ == b.current_; }

    /// One pixel on, from a line's last pixel to the next line's first, from the last line to the end. Not at the end.
    SurfaceIterator& operator++();
    SurfaceIterator operator++(int); ///< As ++, giving the old position.

    /// One pixel back, from a line's first pixel to the previous line's last, from the end to the last pixel.
    SurfaceIterator& operator--();
    SurfaceIterator operator--(int); ///< As --, giving the old position.

    void Next();                               ///< One pixel along the line, whatever is there. Not at the end.
    void Prev() { current_ -= Step(); }        ///< One pixel back along the line, whatever is there.
    void NextRow() { current_ += LineStep(); } ///< Across to the next line, whatever is there.
    void PrevRow() { current_ -= LineStep(); } ///< Across to the previous line, whatever is there.

    /// To the first pixel of the next line, from the last line to the end.
    ///
    /// The last line is known by its last pixel for rows, but by the current pixel for columns: an iterator by columns
    /// in the last column goes to the end only from its bottom pixel, otherwise to the column beyond.
    SurfaceIterator& NextLine();

    /// To the last pixel of the previous line, whatever is there.
    SurfaceIterator& PreviousLine();

    SurfaceIterator& begin(); ///< To the pixel at which the iterator was made.
    SurfaceIterator& end();   ///< To the end, on the last line.

    SurfaceIterator& beginLine(); ///< To the line's first pixel.
    SurfaceIterator& endLine();   ///< To the line's last pixel, not past it.

    bool AtStart() const { return current_ == first_; }           ///< On the pixel at which the iterator was made.
    bool AtEnd() const { return current_ == 0; }                  ///< Past the last pixel.
    bool AtStartOfLine() const { return current_ == lineStart_; } ///< On the line's first pixel.
    bool AtEndOfLine() const { return current_ == lineEnd_; }     ///< On the line's last pixel.

    /// Moves pixel and line by d, unless at the end.
    SurfaceIterator& operator+=(const TnPoint& d);
    SurfaceIterator& operator-=(const TnPoint& d); ///< Moves pixel and line by -d, unless at the end.

    /// Moves n pixels along the line, whatever is there, unless at the end.
    SurfaceIterator& operator+=(long n);
    SurfaceIterator& operator-=(long n); ///< Moves n pixels back along the line, unless at the end.

    SurfaceIterator operator+(const TnPoint& d) const; ///< A copy, moved by d. Not at the end.
    SurfaceIterator operator-(const TnPoint& d) const; ///< A copy, moved by -d. Not at the end.

    /// The pixel d away, if it lies on this line and between the walk's first and last pixel after the step across
    /// lines; otherwise the iterator's own outside pixel, in which writes are lost.
    reference operator[](const TnPoint& d);
    value_type operator[](const TnPoint& d) const; ///< The same by value.

    /// The pixel dx columns and dy rows away, unchecked.
    reference UncheckedNeighbor(std::int32_t dx, std::int32_t dy) { return *PixelAt(NeighborAddress(dx, dy)); }

    /// The same by value.
    value_type UncheckedNeighbor(std::int32_t dx, std::int32_t dy) const { return *PixelAt(NeighborAddress(dx, dy)); }

    /// The rectangle walked, in the surface's content frame.
    TnRect Bounds() const { return bounds_; }

    /// Where the current pixel lies in the surface's content frame; (0x7FFFFFFF, 0x7FFFFFFF) at the end.
    TN_EXPORT TnPoint Position() const;

protected:
    /// Locks the surface and stands on the start pixel; nowhere when the surface has no pixels to give.
    SurfaceIterator(const SurfaceType& surface, const TnRect& bounds, const TnPoint& start);

    /// A copy moved dx columns and dy rows; first and last pixel stay.
    SurfaceIterator(const SurfaceIterator& other, std::int64_t dx, std::int64_t dy);

private:
    template <class> friend class Surface;
    template <class S, Lines l> friend TnPoint ReportedPosition(const SurfaceIterator<S, l>& iterator);

    static constexpr bool kLinesAreRows = lines == Lines::kRows;

    static Pixel* PixelAt(std::uintptr_t address) { return reinterpret_cast<Pixel*>(address); }
    static std::uintptr_t ColumnOffset(std::int64_t columns);
    std::uintptr_t RowOffset(std::int64_t rows) const;
    std::uintptr_t NeighborAddress(std::int32_t dx, std::int32_t dy) const;
    std::uintptr_t Step() const { return kLinesAreRows ? sizeof(Pixel) : rowBytes_; }
    std::uintptr_t LineStep() const { return kLinesAreRows ? rowBytes_ : sizeof(Pixel); }
    std::uintptr_t LineLength() const;
    bool OnLastLine() const { return (kLinesAreRows ? lineEnd_ : current_) == last_; }
    bool HasNeighbor(const TnPoint& d) const;
    std::uintptr_t ByteDistance() const;
    TnPoint PositionAt(std::uintptr_t byteDistance) const;

    void CountLineChange();
    void Move(std::int64_t dx, std::int64_t dy);
    void ForgetPixels();

    TnRect bounds_;
    ClientLock<SurfaceType> lock_;
    std::uint32_t rowBytes_ = 0;
    std::uintptr_t current_ = 0;
    std::uintptr_t lineStart_ = 0;
    std::uintptr_t lineEnd_ = 0; // the line's last pixel
    std::uintptr_t first_ = 0;
    std::uintptr_t last_ = 0;
    Pixel outside_ = Traits::kOutsideWalk;
    std::uint32_t lineCount_ = 0;
};

} // namespace tn
