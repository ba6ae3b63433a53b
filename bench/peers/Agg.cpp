#include "DrawPeers.h"

#include <agg_conv_curve.h>
#include <agg_conv_stroke.h>
#include <agg_path_storage.h>
#include <agg_pixfmt_gray.h>
#include <agg_pixfmt_rgba.h>
#include <agg_rasterizer_scanline_aa.h>
#include <agg_renderer_base.h>
#include <agg_renderer_scanline.h>
#include <agg_rendering_buffer.h>
#include <agg_scanline_p.h>
#include <agg_scanline_u.h>

namespace tn::bench {
namespace {

using Path = agg::path_storage;
using Flattened = agg::conv_curve<Path>;

/// What belongs to a kind of pixels.
template <class PixelRows> struct Kind;
template <> struct Kind<Rows> {
    using Format = agg::pixfmt_bgra32;
    static agg::rgba8 Color() { return agg::rgba8(kPaint.red, kPaint.green, kPaint.blue); }
};
template <> struct Kind<ByteRows> {
    using Format = agg::pixfmt_gray8;
    static agg::gray8 Color() { return agg::gray8(255); }
};

struct PathPen {
    Path& path;

    void Move(const Spot& to) { path.move_to(to.x, to.y); }
    void Line(const Spot& to) { path.line_to(to.x, to.y); }
    void Curve(const Spot& a, const Spot& b, const Spot& to) { path.curve4(a.x, a.y, b.x, b.y, to.x, to.y); }
    void Close() { path.close_polygon(); }
};

template <class PixelRows, class Scanline> class Canvas {
public:
    using Format = typename Kind<PixelRows>::Format;

    Canvas(const PixelRows& to, const SharedDrawing& drawing)
        : to_(to), drawing_(drawing), width_(static_cast<unsigned>(to.width)),
          height_(static_cast<unsigned>(to.height)) {
        rasterizer_.clip_box(0, 0, to.width, to.height);
        renderer_.color(Kind<PixelRows>::Color());
        line_.width(drawing->lineWidth);
        line_.line_join(agg::miter_join_revert); // Bevelled beyond the limit.
        line_.miter_limit(kMiterLimit);
    }
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    void Draw() {
        for (const Outline& outline : drawing_->outlines) {
            path_.remove_all();
            PathPen pen = {path_};
            Trace(outline, pen);
            Render();
        }
    }

    void DrawRectangles() {
        for (const Outline& outline : drawing_->outlines) {
            const Spot& first = outline.spots[0];
            const Spot& last = outline.spots[2];
            // The last pixels are inside.
            pixels_.copy_bar(int(first.x), int(first.y), int(last.x) - 1, int(last.y) - 1, Kind<PixelRows>::Color());
        }
    }

private:
    void Render() {
        rasterizer_.reset();
        if (drawing_->IsFilled()) {
            rasterizer_.add_path(flattened_);
        } else {
            rasterizer_.add_path(line_);
        }
        agg::render_scanlines(rasterizer_, scanline_, renderer_);
    }

    PixelRows to_;
    SharedDrawing drawing_;
    unsigned width_;
    unsigned height_;
    agg::rendering_buffer buffer_{to_.Bytes(), width_, height_, to_.RowBytes()};
    Format format_{buffer_};
    agg::renderer_base<Format> pixels_{format_};
    agg::renderer_scanline_aa_solid<agg::renderer_base<Format>> renderer_{pixels_};
    agg::rasterizer_scanline_aa<> rasterizer_;
    Scanline scanline_;
    Path path_;
    Flattened flattened_{path_};
    agg::conv_stroke<Flattened> line_{flattened_};
};

template <class Scanline, class PixelRows> Work Prepared(const PixelRows& to, const SharedDrawing& drawing) {
    return [canvas = std::make_shared<Canvas<PixelRows, Scanline>>(to, drawing)] { canvas->Draw(); };
}

template <class PixelRows> Work Prepared(const PixelRows& to, const SharedDrawing& drawing, AggSpans spans) {
    return spans == AggSpans::kPacked ? Prepared<agg::scanline_p8>(to, drawing)
                                      : Prepared<agg::scanline_u8>(to, drawing);
}

template <class PixelRows> Work PreparedRectangles(const PixelRows& to, const SharedDrawing& drawing) {
    return [canvas = std::make_shared<Canvas<PixelRows, agg::scanline_p8>>(to, drawing)] { canvas->DrawRectangles(); };
}

} // namespace

Work AggDraw(const Rows& to, const SharedDrawing& drawing, AggSpans spans) { return Prepared(to, drawing, spans); }
Work AggDraw(const ByteRows& to, const SharedDrawing& drawing, AggSpans spans) { return Prepared(to, drawing, spans); }

Work AggRectangles(const Rows& to, const SharedDrawing& drawing) { return PreparedRectangles(to, drawing); }
Work AggRectangles(const ByteRows& to, const SharedDrawing& drawing) { return PreparedRectangles(to, drawing); }

} // namespace tn::bench
