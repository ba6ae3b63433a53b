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

/// Replaces what is drawn on.
Work Draw(const Rows& from, const Rows& to, const Mapping& mapping, cairo_filter_t filter) {
    const Drawing drawing = {Wrap(from), Wrap(to)};
    auto* const context = drawing.context.get();
    cairo_set_source_surface(context, drawing.source.handle.get(), 0.0, 0.0);
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
    return [drawing] { cairo_paint(drawing.context.get()); };
}

} // namespace

Work CairoOver(const Rows& from, const Rows& to) { return CairoOverAt(from, to, {0.0, 0.0}); }

Work CairoOverAt(const Rows& from, const Rows& to, const Offset& offset) {
    const Drawing drawing = {Wrap(from), Wrap(to)};
    auto* const context = drawing.context.get();
    cairo_set_source_surface(context, drawing.source.handle.get(), offset.x, offset.y);
    cairo_pattern_set_filter(cairo_get_source(context), CAIRO_FILTER_BILINEAR);
    return [drawing] { cairo_paint(drawing.context.get()); };
}

Work CairoMap(const Rows& from, const Rows& to, const Mapping& mapping, Reading reading) {
    return Draw(from, to, mapping, reading == Reading::kNearest ? CAIRO_FILTER_NEAREST : CAIRO_FILTER_BILINEAR);
}

Work CairoReduce(const Rows& from, const Rows& to) {
    const Mapping mapping = {{{1.0 * from.width / to.width, 0, 0}, {0, 1.0 * from.height / to.height, 0}, {0, 0, 1}}};
    return Draw(from, to, mapping, CAIRO_FILTER_GOOD);
}

} // namespace tn::bench
