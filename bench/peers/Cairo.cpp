#include "Peers.h"

#include <cairo.h>

namespace tn::bench {
namespace {

struct Surface {
    Rows rows;
    std::shared_ptr<cairo_surface_t> handle;
};

Surface Wrap(const Rows& rows) {
    auto* const handle = cairo_image_surface_create_for_data(rows.Bytes(), CAIRO_FORMAT_ARGB32, rows.width, rows.height,
                                                             rows.RowBytes());
    return {rows, {handle, cairo_surface_destroy}};
}

/// Draws the one surface onto the other.
struct Drawing {
    Surface source;
    Surface destination;
    std::shared_ptr<cairo_t> context{cairo_create(destination.handle.get()), cairo_destroy};
};

} // namespace

Work CairoOver(const Rows& from, const Rows& to) { return CairoOverAt(from, to, {0.0, 0.0}); }

Work CairoOverAt(const Rows& from, const Rows& to, const Offset& offset) {
    const Drawing drawing = {Wrap(from), Wrap(to)};
    auto* const context = drawing.context.get();
    cairo_set_source_surface(context, drawing.source.handle.get(), offset.x, offset.y);
    cairo_pattern_set_filter(cairo_get_source(context), CAIRO_FILTER_BILINEAR);
    return [drawing] { cairo_paint(drawing.context.get()); };
}

} // namespace tn::bench
