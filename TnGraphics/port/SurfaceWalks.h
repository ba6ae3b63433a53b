/// \file
/// How surfaces begin and end their walks. Inline, so that compilers keep an iterator in registers while it walks.
#pragma once

#include "TnGraphics/port/Surface.h"
#include "TnGraphics/port/SurfaceIterator.h"

namespace tn {

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
