#include "DrawPeers.h"
#include "Peers.h"

#include <cairo.h>

namespace tn::bench {
namespace {

using Context = std::shared_ptr<cairo_t>;

template <class PixelRows> constexpr cairo_format_t kFormat = CAIRO_FORMAT_A8;
template <> constexpr cairo_format_t kFormat<Rows> = CAIRO_FORMAT_ARGB32;

template <class PixelRows> struct Surface {
    PixelRows rows;
    std::shared_ptr<cairo_surface_t> handle;
};

template <class PixelRows> Surface<PixelRows> Wrap(const PixelRows& rows) {
    auto* const handle =
        cairo_image_surface_create_for_data(rows.Bytes(), kFormat<PixelRows>, rows.width, rows.height, rows.RowBytes());
    return {rows, {handle, cairo_surface_destroy}};
}

/// Draws the one surface onto the other.
struct Painting {
    Surface<Rows> source;
    Surface<Rows> destination;
    Context context{cairo_create(destination.handle.get()), cairo_destroy};
};

/// Replaces what is drawn on.
Work Draw(const Rows& from, const Rows& to, const Mapping& mapping, cairo_filter_t filter) {
    const Painting painting = {Wrap(from), Wrap(to)};
    auto* const context = painting.context.get();
    cairo_set_source_surface(context, painting.source.handle.get(), 0.0, 0.0);
    const auto& [x, y, unused] = mapping;
    const cairo_matrix_t toSource = {
        .xx = x[0],
        .yx = y[0],
        .xy = x[1],
        .yy = y[1],
        .x0 = x[2],
        .y0 = y[2],
    };
    cairo_pattern_set_matrix(cairo_get_source(context), &toSource);
    cairo_pattern_set_filter(cairo_get_source(context), filter);
    cairo_set_operator(context, CAIRO_OPERATOR_SOURCE);
    return [painting] { cairo_paint(painting.context.get()); };
}

struct ContextPen {
    cairo_t* context;

    void Move(const Spot& to) { cairo_move_to(context, to.x, to.y); }
    void Line(const Spot& to) { cairo_line_to(context, to.x, to.y); }
    void Curve(const Spot& a, const Spot& b, const Spot& to) {
        cairo_curve_to(context, a.x, a.y, b.x, b.y, to.x, to.y);
    }
    void Close() { cairo_close_path(context); }
};

void SetPaint(cairo_t* context, const Drawing& drawing) {
    cairo_set_source_rgb(context, kPaint.red / 255.0, kPaint.green / 255.0, kPaint.blue / 255.0);
    cairo_set_line_width(context, drawing.lineWidth);
    cairo_set_miter_limit(context, kMiterLimit);
}

void DrawPath(cairo_t* context, const Outline& outline, bool isFilled) {
    ContextPen pen = {context};
    Trace(outline, pen);
    if (isFilled) {
        cairo_fill(context);
    } else {
        cairo_stroke(context);
    }
}

void DrawRectangle(cairo_t* context, const Outline& outline, bool) {
    const Spot& first = outline.spots[0];
    const Spot& last = outline.spots[2];
    cairo_rectangle(context, first.x, first.y, last.x - first.x, last.y - first.y);
    cairo_fill(context);
}

using DrawingOfOne = void(cairo_t* context, const Outline& outline, bool isFilled);

template <class PixelRows> Work DrawInto(const PixelRows& to, const SharedDrawing& drawing, DrawingOfOne* drawOne) {
    const Surface<PixelRows> surface = Wrap(to);
    const Context context = {cairo_create(surface.handle.get()), cairo_destroy};
    SetPaint(context.get(), *drawing);
    return [surface, context, drawing, drawOne] {
        for (const Outline& outline : drawing->outlines) {
            drawOne(context.get(), outline, drawing->IsFilled());
        }
    };
}

template <class PixelRows> Work BeginDrawEnd(const PixelRows& to, const SharedDrawing& drawing) {
    return [surface = Wrap(to), drawing] {
        for (const Outline& outline : drawing->outlines) {
            cairo_t* const context = cairo_create(surface.handle.get());
            DrawPath(context, outline, drawing->IsFilled());
            cairo_destroy(context);
        }
    };
}

} // namespace

Work CairoOver(const Rows& from, const Rows& to) { return CairoOverAt(from, to, {0.0, 0.0}); }

Work CairoOverAt(const Rows& from, const Rows& to, const Offset& offset) {
    const Painting painting = {Wrap(from), Wrap(to)};
    auto* const context = painting.context.get();
    cairo_set_source_surface(context, painting.source.handle.get(), offset.x, offset.y);
    cairo_pattern_set_filter(cairo_get_source(context), CAIRO_FILTER_BILINEAR);
    return [painting] { cairo_paint(painting.context.get()); };
}

Work CairoMap(const Rows& from, const Rows& to, const Mapping& mapping, Reading reading) {
    return Draw(from, to, mapping, reading == Reading::kNearest ? CAIRO_FILTER_NEAREST : CAIRO_FILTER_BILINEAR);
}

Work CairoReduce(const Rows& from, const Rows& to) {
    const Mapping mapping = {{{1.0 * from.width / to.width, 0, 0}, {0, 1.0 * from.height / to.height, 0}, {0, 0, 1}}};
    return Draw(from, to, mapping, CAIRO_FILTER_GOOD);
}

Work CairoDraw(const Rows& to, const SharedDrawing& drawing) { return DrawInto(to, drawing, DrawPath); }
Work CairoDraw(const ByteRows& to, const SharedDrawing& drawing) { return DrawInto(to, drawing, DrawPath); }

Work CairoRectangles(const Rows& to, const SharedDrawing& drawing) { return DrawInto(to, drawing, DrawRectangle); }
Work CairoRectangles(const ByteRows& to, const SharedDrawing& drawing) { return DrawInto(to, drawing, DrawRectangle); }

Work CairoBeginDrawEnd(const Rows& to, const SharedDrawing& drawing) { return BeginDrawEnd(to, drawing); }
Work CairoBeginDrawEnd(const ByteRows& to, const SharedDrawing& drawing) { return BeginDrawEnd(to, drawing); }

} // namespace tn::bench
