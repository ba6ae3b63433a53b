// Other libraries drawing paths. Each function prepares contexts and painters, outside of the measured time, and
// returns the work, which builds every path anew and draws it. What differs from ours is told in bench/README.md.
#pragma once

#include "Outline.h"
#include "Rows.h"
#include "Work.h"

#include <memory>

namespace tn::bench {

using SharedDrawing = std::shared_ptr<const Drawing>;

/// How AGG hands coverage from its rasteriser to what writes pixels.
enum class AggSpans {
    kCoverages, ///< One for each pixel, `scanline_u8`.
    kPacked,    ///< One for each stretch that is alike, `scanline_p8`.
};

Work AggDraw(const Rows& to, const SharedDrawing& drawing, AggSpans spans);
Work AggDraw(const ByteRows& to, const SharedDrawing& drawing, AggSpans spans);

Work CairoDraw(const Rows& to, const SharedDrawing& drawing);
Work CairoDraw(const ByteRows& to, const SharedDrawing& drawing);

Work QtDraw(const Rows& to, const SharedDrawing& drawing);
Work QtDraw(const ByteRows& to, const SharedDrawing& drawing);

/// No work where the library fails to draw one of the paths.
Work FreeTypeDraw(const ByteRows& to, const SharedDrawing& drawing);

// The same rectangles, upright ones, through calls of their own.

/// On whole pixels only.
Work AggRectangles(const Rows& to, const SharedDrawing& drawing);
Work AggRectangles(const ByteRows& to, const SharedDrawing& drawing);

Work CairoRectangles(const Rows& to, const SharedDrawing& drawing);
Work CairoRectangles(const ByteRows& to, const SharedDrawing& drawing);

Work QtRectangles(const Rows& to, const SharedDrawing& drawing);
Work QtRectangles(const ByteRows& to, const SharedDrawing& drawing);

/// For each path makes a context, fills the path in its first colour, opaque black, and destroys it.
Work CairoBeginDrawEnd(const Rows& to, const SharedDrawing& drawing);
Work CairoBeginDrawEnd(const ByteRows& to, const SharedDrawing& drawing);

} // namespace tn::bench
