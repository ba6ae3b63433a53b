/// \file
/// How surfaces begin their walks and how iterators step. Inline, so that compilers keep an iterator in registers.
#pragma once

#include "TnGraphics/port/Surface.h"
#include "TnGraphics/port/SurfaceIterator.h"

#include <cassert>
#include <cstddef>
#include <cstdint>

namespace tn {

template <class SurfaceType, Lines lines>
inline SurfaceIterator<SurfaceType, lines>::SurfaceIterator(const SurfaceIterator& other)
    : SurfaceIterator(other, std::int64_t{0}, std::int64_t{0}) {
    outside_ = other.outside_;
}

template <class SurfaceType, Lines lines>
inline SurfaceIterator<SurfaceType, lines>::SurfaceIterator(const SurfaceIterator& other, const TnRect& rect) {
    if (const SurfaceType* surface = other.lock_.Surface()) {
        if constexpr (kLinesAreRows) {
            *this = surface->begin(rect);
        } else {
            *this = surface->beginVertical(rect);
        }
    }
}

template <class SurfaceType, Lines lines>
inline SurfaceIterator<SurfaceType, lines>::SurfaceIterator(const SurfaceIterator& other, std::int64_t dx,
                                                            std::int64_t dy)
    : bounds_(other.bounds_), lock_(other.lock_), rowBytes_(other.rowBytes_), current_(other.current_),
      lineStart_(other.lineStart_), lineEnd_(other.lineEnd_), first_(other.first_), last_(other.last_) {
    if constexpr (Traits::kMovedIteratorKeepsOutsidePixel) {
        outside_ = other.outside_;
    }
    Move(dx, dy);
}

template <class SurfaceType, Lines lines>
inline SurfaceIterator<SurfaceType, lines>::SurfaceIterator(const SurfaceType& surface, const TnRect& bounds,
                                                            const TnPoint& start)
    : lock_(surface), rowBytes_(surface.RowBytes()) {
    const WalkAddresses walk =
        kLinesAreRows ? surface.AddressesByRows(bounds, start) : surface.AddressesByColumns(bounds, start);
    bounds_ = walk.bounds;
    current_ = first_ = walk.start;
    lineStart_ = walk.lineStart;
    lineEnd_ = walk.lineEnd;
    last_ = walk.last;
}

template <class SurfaceType, Lines lines>
inline SurfaceIterator<SurfaceType, lines>& SurfaceIterator<SurfaceType, lines>::operator++() {
    assert(!AtEnd());
    if (current_ != lineEnd_) [[likely]] {
        current_ += Step();
        return *this;
    }
    return NextLine();
}

template <class SurfaceType, Lines lines>
inline SurfaceIterator<SurfaceType, lines> SurfaceIterator<SurfaceType, lines>::operator++(int) {
    SurfaceIterator old(*this);
    ++*this;
    return old;
}

template <class SurfaceType, Lines lines>
inline SurfaceIterator<SurfaceType, lines>& SurfaceIterator<SurfaceType, lines>::operator--() {
    if (AtEnd()) {
        current_ = last_;
        return *this;
    }
    if (current_ != lineStart_) {
        current_ -= Step();
        return *this;
    }
    return PreviousLine();
}

template <class SurfaceType, Lines lines>
inline SurfaceIterator<SurfaceType, lines> SurfaceIterator<SurfaceType, lines>::operator--(int) {
    SurfaceIterator old(*this);
    --*this;
    return old;
}

template <class SurfaceType, Lines lines> inline void SurfaceIterator<SurfaceType, lines>::Next() {
    assert(!AtEnd());
    current_ += Step();
}

template <class SurfaceType, Lines lines>
inline SurfaceIterator<SurfaceType, lines>& SurfaceIterator<SurfaceType, lines>::NextLine() {
    CountLineChange();
    if (OnLastLine()) {
        current_ = 0;
        return *this;
    }
    lineStart_ += LineStep();
    lineEnd_ += LineStep();
    return beginLine();
}

template <class SurfaceType, Lines lines>
inline SurfaceIterator<SurfaceType, lines>& SurfaceIterator<SurfaceType, lines>::PreviousLine() {
    CountLineChange();
    lineStart_ -= LineStep();
    lineEnd_ -= LineStep();
    return endLine();
}

template <class SurfaceType, Lines lines>
inline SurfaceIterator<SurfaceType, lines>& SurfaceIterator<SurfaceType, lines>::begin() {
    if (bounds_.IsEmpty()) {
        ForgetPixels();
        return *this;
    }
    lineStart_ = first_;
    lineEnd_ = first_ + LineLength();
    return beginLine();
}

template <class SurfaceType, Lines lines>
inline SurfaceIterator<SurfaceType, lines>& SurfaceIterator<SurfaceType, lines>::end() {
    if (bounds_.IsEmpty()) {
        ForgetPixels();
        return *this;
    }
    current_ = 0;
    lineStart_ = last_ - LineLength();
    lineEnd_ = last_;
    return *this;
}

template <class SurfaceType, Lines lines>
inline SurfaceIterator<SurfaceType, lines>& SurfaceIterator<SurfaceType, lines>::beginLine() {
    current_ = lineStart_;
    return *this;
}

template <class SurfaceType, Lines lines>
inline SurfaceIterator<SurfaceType, lines>& SurfaceIterator<SurfaceType, lines>::endLine() {
    current_ = lineEnd_;
    return *this;
}

template <class SurfaceType, Lines lines>
inline SurfaceIterator<SurfaceType, lines>& SurfaceIterator<SurfaceType, lines>::operator+=(const TnPoint& d) {
    if (!AtEnd()) {
        Move(d.x, d.y);
    }
    return *this;
}

template <class SurfaceType, Lines lines>
inline SurfaceIterator<SurfaceType, lines>& SurfaceIterator<SurfaceType, lines>::operator-=(const TnPoint& d) {
    if (!AtEnd()) {
        Move(-std::int64_t{d.x}, -std::int64_t{d.y});
    }
    return *this;
}

template <class SurfaceType, Lines lines>
inline SurfaceIterator<SurfaceType, lines>& SurfaceIterator<SurfaceType, lines>::operator+=(long n) {
    if (!AtEnd()) {
        current_ += static_cast<std::uintptr_t>(n) * Step();
    }
    return *this;
}

template <class SurfaceType, Lines lines>
inline SurfaceIterator<SurfaceType, lines>& SurfaceIterator<SurfaceType, lines>::operator-=(long n) {
    if (!AtEnd()) {
        current_ -= static_cast<std::uintptr_t>(n) * Step();
    }
    return *this;
}

template <class SurfaceType, Lines lines>
inline SurfaceIterator<SurfaceType, lines> SurfaceIterator<SurfaceType, lines>::operator+(const TnPoint& d) const {
    assert(!AtEnd());
    return SurfaceIterator(*this, std::int64_t{d.x}, std::int64_t{d.y});
}

template <class SurfaceType, Lines lines>
inline SurfaceIterator<SurfaceType, lines> SurfaceIterator<SurfaceType, lines>::operator-(const TnPoint& d) const {
    assert(!AtEnd());
    return SurfaceIterator(*this, -std::int64_t{d.x}, -std::int64_t{d.y});
}

template <class SurfaceType, Lines lines>
inline typename SurfaceIterator<SurfaceType, lines>::reference
SurfaceIterator<SurfaceType, lines>::operator[](const TnPoint& d) {
    return HasNeighbor(d) ? UncheckedNeighbor(d.x, d.y) : outside_;
}

template <class SurfaceType, Lines lines>
inline typename SurfaceIterator<SurfaceType, lines>::value_type
SurfaceIterator<SurfaceType, lines>::operator[](const TnPoint& d) const {
    return HasNeighbor(d) ? UncheckedNeighbor(d.x, d.y) : outside_;
}

template <class SurfaceType, Lines lines>
inline std::uintptr_t SurfaceIterator<SurfaceType, lines>::ColumnOffset(std::int64_t columns) {
    return static_cast<std::uintptr_t>(columns) * sizeof(Pixel);
}

// The product keeps its low 32 bits, unsigned: hosts rely on what moves up do by that.
template <class SurfaceType, Lines lines>
inline std::uintptr_t SurfaceIterator<SurfaceType, lines>::RowOffset(std::int64_t rows) const {
    return static_cast<std::uint32_t>(rows) * rowBytes_;
}

template <class SurfaceType, Lines lines>
inline std::uintptr_t SurfaceIterator<SurfaceType, lines>::NeighborAddress(std::int32_t dx, std::int32_t dy) const {
    return current_ + RowOffset(dy) + ColumnOffset(dx);
}

template <class SurfaceType, Lines lines>
inline std::uintptr_t SurfaceIterator<SurfaceType, lines>::LineLength() const {
    const std::int32_t steps = (kLinesAreRows ? bounds_.width : bounds_.height) - 1;
    return static_cast<std::uintptr_t>(steps) * Step();
}

template <class SurfaceType, Lines lines>
inline bool SurfaceIterator<SurfaceType, lines>::HasNeighbor(const TnPoint& d) const {
    const std::uintptr_t along = current_ + (kLinesAreRows ? ColumnOffset(d.x) : RowOffset(d.y));
    const std::uintptr_t neighbor = NeighborAddress(d.x, d.y);
    return !AtEnd() && lineStart_ <= along && along <= lineEnd_ && first_ <= neighbor && neighbor <= last_;
}

template <class SurfaceType, Lines lines> inline void SurfaceIterator<SurfaceType, lines>::CountLineChange() {
    ++lineCount_;
    if (lineCount_ % kLinesPerCancelPoll == 0) {
        lock_.Surface()->CancelProc()();
    }
}

template <class SurfaceType, Lines lines>
inline void SurfaceIterator<SurfaceType, lines>::Move(std::int64_t dx, std::int64_t dy) {
    const std::uintptr_t across = kLinesAreRows ? RowOffset(dy) : ColumnOffset(dx);
    lineStart_ += across;
    lineEnd_ += across;
    current_ += RowOffset(dy) + ColumnOffset(dx);
}

template <class SurfaceType, Lines lines> inline void SurfaceIterator<SurfaceType, lines>::ForgetPixels() {
    current_ = lineStart_ = lineEnd_ = last_ = 0;
}

template <class SurfaceType> inline auto Surface<SurfaceType>::begin(const TnRect& rect) const -> Iterator {
    return BeginWalk<Iterator>(rect);
}

template <class SurfaceType> inline auto Surface<SurfaceType>::begin() const -> Iterator { return begin(Bounds()); }

template <class SurfaceType> inline auto Surface<SurfaceType>::end(const TnRect& rect) const -> Iterator {
    return EndWalk<Iterator>(rect);
}

template <class SurfaceType> inline auto Surface<SurfaceType>::end() const -> Iterator { return end(Bounds()); }

template <class SurfaceType>
inline auto Surface<SurfaceType>::beginVertical(const TnRect& rect) const -> IteratorVertical {
    return BeginWalk<IteratorVertical>(rect);
}

template <class SurfaceType> inline auto Surface<SurfaceType>::beginVertical() const -> IteratorVertical {
    return beginVertical(Bounds());
}

template <class SurfaceType>
inline auto Surface<SurfaceType>::endVertical(const TnRect& rect) const -> IteratorVertical {
    return EndWalk<IteratorVertical>(rect);
}

template <class SurfaceType> inline auto Surface<SurfaceType>::endVertical() const -> IteratorVertical {
    return endVertical(Bounds());
}

template <class SurfaceType>
template <class Walk>
inline Walk Surface<SurfaceType>::BeginWalk(const TnRect& rect) const {
    const TnRect bounds = Intersection(rect, Bounds());
    return Walk(Self(), bounds, {bounds.left, bounds.top});
}

template <class SurfaceType> template <class Walk> inline Walk Surface<SurfaceType>::EndWalk(const TnRect& rect) const {
    const TnRect bounds = Intersection(rect, Bounds());
    Walk walk(Self(), bounds, bounds.BottomRight());
    walk.current_ = 0;
    return walk;
}

} // namespace tn
