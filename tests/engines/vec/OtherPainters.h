// The same shapes as others paint them.
#pragma once

#include "tests/models/CoverageModels.h"
#include "tests/models/StrokeModels.h"

#include <cairo.h>
#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_OUTLINE_H

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <gtest/gtest.h>
#include <vector>

namespace tn::test {

inline constexpr std::int32_t kSide = 40;

/// Coverages row by row.
using Levels = std::vector<int>;
using Curves = std::vector<model::Cubic>;

/// Lines are straight curves.
inline bool IsLine(const model::Cubic& curve) {
    const auto areSame = [](const model::Vertex& a, const model::Vertex& b) { return a.x == b.x && a.y == b.y; };
    return areSame(curve.from, curve.control1) && areSame(curve.to, curve.control2);
}

/// Closed parts.
struct Shape {
    std::vector<Curves> parts;

    model::Polygons Flattened() const {
        model::Polygons polygons;
        for (const Curves& curves : parts) {
            model::Polygon& polygon = polygons.emplace_back(model::Polygon{curves.front().from});
            for (const model::Cubic& curve : curves) {
                model::Flatten(curve, IsLine(curve) ? HUGE_VAL : 1.0 / 16384, polygon);
            }
        }
        return polygons;
    }
};

/// Draws a shape by anything with the usual four verbs.
template <class Path> void Trace(const Shape& shape, Path& path) {
    for (const Curves& curves : shape.parts) {
        path.Move(curves.front().from);
        for (const model::Cubic& curve : curves) {
            IsLine(curve) ? path.Line(curve.to) : path.Curve(curve);
        }
        path.Close();
    }
}

class CairoCanvas {
public:
    CairoCanvas() {
        cairo_set_source_rgba(cairo_, 1, 1, 1, 1);
        cairo_set_antialias(cairo_, CAIRO_ANTIALIAS_BEST);
        cairo_set_tolerance(cairo_, 1.0 / 64);
    }
    ~CairoCanvas() {
        cairo_destroy(cairo_);
        cairo_surface_destroy(surface_);
    }
    CairoCanvas(const CairoCanvas&) = delete;
    CairoCanvas& operator=(const CairoCanvas&) = delete;

    void Move(const model::Vertex& v) { cairo_move_to(cairo_, v.x, v.y); }
    void Line(const model::Vertex& v) { cairo_line_to(cairo_, v.x, v.y); }
    void Curve(const model::Cubic& c) {
        cairo_curve_to(cairo_, c.control1.x, c.control1.y, c.control2.x, c.control2.y, c.to.x, c.to.y);
    }
    void Close() { cairo_close_path(cairo_); }

    Levels Fill(model::FillRule rule) {
        cairo_set_fill_rule(cairo_,
                            rule == model::FillRule::kNonZero ? CAIRO_FILL_RULE_WINDING : CAIRO_FILL_RULE_EVEN_ODD);
        cairo_fill(cairo_);
        return Painted();
    }

    Levels Stroke(const model::StrokeStyle& style) {
        constexpr cairo_line_cap_t kCaps[] = {CAIRO_LINE_CAP_BUTT, CAIRO_LINE_CAP_ROUND, CAIRO_LINE_CAP_SQUARE};
        constexpr cairo_line_join_t kJoins[] = {CAIRO_LINE_JOIN_MITER, CAIRO_LINE_JOIN_ROUND, CAIRO_LINE_JOIN_BEVEL};
        cairo_set_line_width(cairo_, style.width);
        cairo_set_line_cap(cairo_, kCaps[static_cast<int>(style.cap)]);
        cairo_set_line_join(cairo_, kJoins[static_cast<int>(style.join)]);
        cairo_stroke(cairo_);
        return Painted();
    }

private:
    Levels Painted() const {
        cairo_surface_flush(surface_);
        const unsigned char* const bytes = cairo_image_surface_get_data(surface_);
        const std::ptrdiff_t stride = cairo_image_surface_get_stride(surface_);
        Levels levels;
        for (std::ptrdiff_t i = 0; i < std::ptrdiff_t{kSide} * kSide; ++i) {
            levels.push_back(bytes[i / kSide * stride + i % kSide]);
        }
        return levels;
    }

    cairo_surface_t* surface_ = cairo_image_surface_create(CAIRO_FORMAT_A8, kSide, kSide);
    cairo_t* cairo_ = cairo_create(surface_);
};

/// An outline in 64ths of pixels, y growing upwards.
class FreeTypeOutline {
public:
    explicit FreeTypeOutline(FT_Library library) : library_(library) {}

    void Move(const model::Vertex& v) { Add(v, FT_CURVE_TAG_ON); }
    void Line(const model::Vertex& v) { Add(v, FT_CURVE_TAG_ON); }
    void Curve(const model::Cubic& c) {
        Add(c.control1, FT_CURVE_TAG_CUBIC);
        Add(c.control2, FT_CURVE_TAG_CUBIC);
        Add(c.to, FT_CURVE_TAG_ON);
    }
    void Close() { ends_.push_back(static_cast<short>(points_.size() - 1)); }

    Levels Fill(model::FillRule rule) {
        FT_Outline outline{};
        outline.n_contours = static_cast<short>(ends_.size());
        outline.n_points = static_cast<short>(points_.size());
        outline.points = points_.data();
        outline.tags = tags_.data();
        outline.contours = ends_.data();
        outline.flags = rule == model::FillRule::kEvenOdd ? FT_OUTLINE_EVEN_ODD_FILL : FT_OUTLINE_NONE;
        std::vector<unsigned char> bytes(std::size_t{kSide} * kSide);
        FT_Bitmap bitmap{};
        bitmap.rows = kSide;
        bitmap.width = kSide;
        bitmap.pitch = kSide;
        bitmap.buffer = bytes.data();
        bitmap.num_grays = 256;
        bitmap.pixel_mode = FT_PIXEL_MODE_GRAY;
        EXPECT_EQ(FT_Outline_Get_Bitmap(library_, &outline, &bitmap), 0);
        return {bytes.begin(), bytes.end()};
    }

private:
    void Add(const model::Vertex& v, int tag) {
        points_.push_back({std::lround(v.x * 64), std::lround((kSide - v.y) * 64)});
        tags_.push_back(static_cast<char>(tag));
    }

    FT_Library library_;
    std::vector<FT_Vector> points_;
    std::vector<char> tags_;
    std::vector<short> ends_;
};

struct FreeTypeFill {
    FT_Library library;

    Levels operator()(const Shape& shape, model::FillRule rule) const {
        FreeTypeOutline outline(library);
        Trace(shape, outline);
        return outline.Fill(rule);
    }
};

inline Levels FillByCairo(const Shape& shape, model::FillRule rule) {
    CairoCanvas other;
    Trace(shape, other);
    return other.Fill(rule);
}

} // namespace tn::test
