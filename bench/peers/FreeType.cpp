#include "DrawPeers.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <ft2build.h>
#include <limits>

#include FT_FREETYPE_H
#include FT_OUTLINE_H
#include FT_STROKER_H

namespace tn::bench {
namespace {

/// Positions are in 1/64 of a pixel.
FT_Pos Fixed(double position) { return std::lround(64.0 * position); }
FT_Vector Fixed(const Spot& spot) { return {Fixed(spot.x), Fixed(spot.y)}; }

/// Arrays for an outline, which keep their room.
class Points {
public:
    void Clear() {
        points_.clear();
        tags_.clear();
        ends_.clear();
    }

    void Move(const Spot& to) {
        EndContour();
        Add(to, FT_CURVE_TAG_ON);
    }
    void Line(const Spot& to) { Add(to, FT_CURVE_TAG_ON); }
    void Curve(const Spot& a, const Spot& b, const Spot& to) {
        Add(a, FT_CURVE_TAG_CUBIC);
        Add(b, FT_CURVE_TAG_CUBIC);
        Add(to, FT_CURVE_TAG_ON);
    }
    void Close() {} // Every contour is closed.

    /// The outline of what has been added, in these arrays.
    FT_Outline Finish() {
        EndContour();
        return View(points_.size(), ends_.size());
    }

    /// An empty outline with room for a number of points.
    FT_Outline Room(std::size_t points, std::size_t contours) {
        points_.resize(points);
        tags_.resize(points);
        ends_.resize(contours);
        return View(0, 0);
    }

private:
    void Add(const Spot& spot, int tag) {
        points_.push_back(Fixed(spot));
        tags_.push_back(static_cast<char>(tag));
    }
    void EndContour() {
        if (!points_.empty()) {
            ends_.push_back(static_cast<short>(points_.size() - 1));
        }
    }
    FT_Outline View(std::size_t points, std::size_t contours) {
        return {static_cast<short>(contours),
                static_cast<short>(points),
                points_.data(),
                tags_.data(),
                ends_.data(),
                FT_OUTLINE_NONE};
    }

    std::vector<FT_Vector> points_;
    std::vector<char> tags_;
    std::vector<short> ends_;
};

class Canvas {
public:
    Canvas(const ByteRows& to, const SharedDrawing& drawing) : to_(to), drawing_(drawing) {
        Check(FT_Init_FreeType(&library_));
        Check(FT_Stroker_New(library_, &stroker_));
        FT_Stroker_Set(stroker_, Fixed(drawing->lineWidth / 2), FT_STROKER_LINECAP_BUTT,
                       FT_STROKER_LINEJOIN_MITER_FIXED, FT_Fixed{kMiterLimit} << 16);
        bitmap_.rows = static_cast<unsigned>(to.height);
        bitmap_.width = static_cast<unsigned>(to.width);
        bitmap_.pitch = -to.RowBytes(); // y grows downwards.
        bitmap_.buffer = to.Bytes();
        bitmap_.num_grays = 256;
        bitmap_.pixel_mode = FT_PIXEL_MODE_GRAY;
    }
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;
    ~Canvas() {
        FT_Stroker_Done(stroker_);
        FT_Done_FreeType(library_);
    }

    void Draw() {
        for (const Outline& outline : drawing_->outlines) {
            DrawOne(outline);
        }
    }

    bool CanDraw() {
        return std::ranges::all_of(drawing_->outlines, [this](const Outline& outline) { return DrawOne(outline); });
    }

private:
    static void Check(FT_Error error) {
        if (error != 0) {
            std::abort();
        }
    }

    bool DrawOne(const Outline& outline) {
        path_.Clear();
        Trace(outline, path_);
        FT_Outline path = path_.Finish();
        return drawing_->IsFilled() ? Render(path) : RenderLine(path);
    }

    bool Render(FT_Outline& path) { return FT_Outline_Get_Bitmap(library_, &path, &bitmap_) == 0; }

    bool RenderLine(FT_Outline& path) {
        constexpr FT_UInt kMostPoints = std::numeric_limits<short>::max();
        constexpr FT_Bool kOpen = 1;
        FT_UInt points = 0;
        FT_UInt contours = 0;
        if (FT_Stroker_ParseOutline(stroker_, &path, kOpen) != 0 ||
            FT_Stroker_GetCounts(stroker_, &points, &contours) != 0 || points > kMostPoints) {
            return false;
        }
        FT_Outline line = line_.Room(points, contours);
        FT_Stroker_Export(stroker_, &line);
        return Render(line);
    }

    ByteRows to_;
    SharedDrawing drawing_;
    FT_Library library_ = nullptr;
    FT_Stroker stroker_ = nullptr;
    FT_Bitmap bitmap_ = {};
    Points path_;
    Points line_;
};

} // namespace

Work FreeTypeDraw(const ByteRows& to, const SharedDrawing& drawing) {
    const auto canvas = std::make_shared<Canvas>(to, drawing);
    if (!canvas->CanDraw()) {
        return nullptr;
    }
    return [canvas] { canvas->Draw(); };
}

} // namespace tn::bench
