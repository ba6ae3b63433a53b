#include "TnEngines/vec/port/Port.h"

#include "TnEngines/vec/Engine.h"
#include "TnEngines/vec/scan/VisibleBox.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <memory>
#include <type_traits>
#include <utility>

namespace tn::vec {
namespace {

static_assert(std::is_nothrow_move_constructible_v<GraphicsState>, "a save without memory must keep the earlier ones");

// Infinite coordinates are as far away as numbers reach, so that 0 times them is 0.
Point Finite(Point point) {
    constexpr double kGreatest = std::numeric_limits<float>::max();
    return {std::clamp(point.x, -kGreatest, kGreatest), std::clamp(point.y, -kGreatest, kGreatest)};
}

bool IsBetweenPixels(Point corner) { return corner.x == std::floor(corner.x) && corner.y == std::floor(corner.y); }

bool IsRectOfWholePixels(const Outline& outline) {
    return IsRect(outline) && IsBetweenPixels(outline.LeastCorner()) && IsBetweenPixels(outline.GreatestCorner());
}

constexpr PaintColor kWhite = {255, 255, 255, 255, 255};

} // namespace

Port::Port(const Target& target) : target_(target) { InitClip(); }

// Paths

bool Port::IsSound(const Point& point) {
    const bool isSound = !std::isnan(point.x) && !std::isnan(point.y);
    if (!isSound) {
        state_.path.Spoil();
        errors_.Record(Fault::kPoint);
    }
    return isSound;
}

// Where the matrix is no good, all points are one.
Point Port::ToDevice(Point point) const {
    if (!state_.matrix.IsSound()) {
        return {0, 0};
    }
    return Cut(state_.matrix.Map(Finite(point)));
}

void Port::Move(Point to) {
    if (IsSound(to)) {
        state_.path.Move(ToDevice(to));
    }
}

bool Port::HasCurrentPoint() {
    if (!state_.path.HasCurrentPoint()) {
        errors_.Record(Fault::kNoCurrentPoint);
    }
    return state_.path.HasCurrentPoint();
}

void Port::Line(Point to) {
    if (IsSound(to) && HasCurrentPoint()) {
        state_.path.Line(ToDevice(to));
    }
}

void Port::Curve(Point control1, Point control2, Point to) {
    if (IsSound(control1) && IsSound(control2) && IsSound(to) && HasCurrentPoint()) {
        state_.path.Curve(ToDevice(control1), ToDevice(control2), ToDevice(to));
    }
}

Point Port::FromCurrentPoint(Point distance) const {
    const Point current = state_.path.CurrentPoint();
    if (!state_.matrix.IsSound()) {
        return current;
    }
    return Cut(current + state_.matrix.MapDistance(Finite(distance)));
}

void Port::MoveBy(Point distance) {
    if (IsSound(distance) && HasCurrentPoint()) {
        state_.path.Move(FromCurrentPoint(distance));
    }
}

void Port::LineBy(Point distance) {
    if (IsSound(distance) && HasCurrentPoint()) {
        state_.path.Line(FromCurrentPoint(distance));
    }
}

void Port::CurveBy(Point distance1, Point distance2, Point distance3) {
    if (IsSound(distance1) && IsSound(distance2) && IsSound(distance3) && HasCurrentPoint()) {
        state_.path.Curve(FromCurrentPoint(distance1), FromCurrentPoint(distance2), FromCurrentPoint(distance3));
    }
}

bool Port::CanAdd(const VecRect& rect) { return IsSound({rect.left, rect.top}) && IsSound({rect.right, rect.bottom}); }

void Port::AddRect(const VecRect& rect) {
    if (!CanAdd(rect)) {
        return;
    }
    state_.path.MakeRoom(5, 5);
    Move({rect.left, rect.top});
    Line({rect.right, rect.top});
    Line({rect.right, rect.bottom});
    Line({rect.left, rect.bottom});
    state_.path.Close();
}

void Port::AddEllipse(const VecRect& rect) {
    if (!CanAdd(rect)) {
        return;
    }
    state_.path.MakeRoom(6, 14);
    // The control points that take a cubic curve nearest to a quarter of a circle: 4/3 (sqrt(2) - 1) of the radius.
    constexpr double kRound = 0.5522847498307936;
    const Point leastCorner = Finite({rect.left, rect.top});
    const Point greatestCorner = Finite({rect.right, rect.bottom});
    const Point center = 0.5 * (leastCorner + greatestCorner);
    const Point across = {(greatestCorner.x - leastCorner.x) / 2, 0};
    const Point down = {0, (greatestCorner.y - leastCorner.y) / 2};
    Move(center + across);
    for (const auto& [from, to] : {std::pair(across, down), {down, -across}, {-across, -down}, {-down, across}}) {
        Curve(center + from + kRound * to, center + to + kRound * from, center + to);
    }
    state_.path.Close();
}

void Port::ReplacePath(Path path) {
    if (state_.path.IsSpoilt()) {
        path.Spoil();
    }
    state_.path = std::move(path);
}

bool Port::CurrentPoint(Point& point) const {
    if (!state_.path.HasCurrentPoint() || !state_.matrix.IsInvertible()) {
        return false;
    }
    point = state_.matrix.Unmap(state_.path.CurrentPoint());
    return true;
}

// Painting

KelError Port::Obstacle() {
    if (!IsStarted()) {
        return errors_.Record(Fault::kStopped);
    }
    return state_.path.IsSpoilt() ? errors_.Record(Fault::kPoint) : nullptr;
}

KelError Port::Fill(FillRule rule) {
    if (KelError const obstacle = Obstacle()) {
        return obstacle;
    }
    if (CanShow()) {
        OutlinePath();
        PaintOutline(rule, Color());
    }
    state_.path.Clear();
    return nullptr;
}

KelError Port::Stroke() {
    if (KelError const obstacle = Obstacle()) {
        return obstacle;
    }
    if (!std::isfinite(state_.lineWidth)) {
        return errors_.Record(Fault::kLineWidth);
    }
    if (CanShow()) {
        const double thinness = OutlineStroke();
        PaintOutline(FillRule::kNonZero, Color().Thinned(thinness));
    }
    state_.path.Clear();
    return nullptr;
}

bool Port::CanShow() const { return state_.matrix.IsInvertible() && !state_.clip.IsEmpty(); }

void Port::OutlinePath() {
    outline_.Clear();
    Flatten(state_.path, state_.flatness, outline_);
    outline_.Finish();
}

// Gives how wide a line is of the pixel that it is drawn as; 1 for wider lines.
double Port::OutlineStroke() {
    Pen pen = {std::abs(state_.lineWidth), state_.cap, state_.join, state_.matrix};
    const bool isThinnest = pen.width == 0;
    const bool takesCare = !isThinnest && (state_.options & kVecThinLineCare) != 0;
    const double width = takesCare ? std::min(1.0, GreatestWidth(state_.path, pen, state_.flatness)) : 1;
    if (isThinnest || width < 1) {
        pen.width = 1;
        pen.matrix = {};
    }
    outline_.Clear();
    Stroker(pen, state_.flatness, outline_).Stroke(state_.path);
    outline_.Finish();
    return PaintsSmooth() ? width : 1;
}

bool Port::PaintsSmooth() const { return target_.bitsPerPixel != 1 && (state_.options & kVecSmoothPaint) != 0; }

bool Port::ClipsSmooth() const { return target_.bitsPerPixel != 1 && (state_.options & kVecSmoothClips) != 0; }

void Port::Scan(FillRule rule, bool isSmooth, CoverageSink& sink) {
    if (isSmooth && IsRect(outline_)) {
        rectScan_.Run(outline_, state_.clip.Bounds(), sink);
    } else if (isSmooth) {
        smoothScan_.Run(outline_, rule, state_.clip.Bounds(), sink);
    } else {
        hardScan_.Run(outline_, rule, state_.clip.Bounds(), sink);
    }
}

const PaintColor& Port::Color() const {
    return target_.bitsPerPixel == 32 ? state_.color.ForImages() : state_.color.ForGray();
}

template <class Painter> void Port::PaintThroughClip(FillRule rule, Painter painter) {
    if (state_.clip.Mask() == nullptr) {
        Scan(rule, PaintsSmooth(), painter);
        return;
    }
    MaskedSink masked(*state_.clip.Mask(), state_.clip.Bounds(), painter);
    Scan(rule, PaintsSmooth(), masked);
}

void Port::PaintOutline(FillRule rule, const PaintColor& color) {
    if (color.alpha == 0) {
        return;
    }
    switch (target_.bitsPerPixel) {
    case 32:
        PaintThroughClip(rule, ImagePainter(target_, color));
        break;
    case 8:
        PaintThroughClip(rule, MattePainter(target_, color));
        break;
    default:
        PaintThroughClip(rule, MaskPainter(target_, color));
        break;
    }
}

KelError Port::ClipTo(FillRule rule) {
    if (KelError const obstacle = Obstacle()) {
        return obstacle;
    }
    OutlinePath();
    const Box box = VisibleBox(outline_, state_.clip.Bounds());
    if (box.IsEmpty() || IsRectOfWholePixels(outline_)) {
        state_.clip.Intersect(box);
        return nullptr;
    }
    auto mask = std::make_unique<ClipMask>(box);
    Scan(rule, ClipsSmooth(), *mask);
    state_.clip.Intersect(std::move(mask));
    return nullptr;
}

template <class Operation> KelError Port::WithPathOf(const VecRect& rect, const Operation& operation) {
    Path path = std::exchange(state_.path, {});
    const auto takeBack = [&] { state_.path = std::move(path); };
    try {
        AddRect(rect);
        KelError const error = operation();
        takeBack();
        return error;
    } catch (...) {
        takeBack();
        throw;
    }
}

KelError Port::FillRect(const VecRect& rect) {
    return WithPathOf(rect, [this] { return Fill(FillRule::kNonZero); });
}

KelError Port::StrokeRect(const VecRect& rect) {
    return WithPathOf(rect, [this] { return Stroke(); });
}

KelError Port::ClipToRect(const VecRect& rect) {
    return WithPathOf(rect, [this] { return ClipTo(FillRule::kNonZero); });
}

KelError Port::ErasePage() {
    if (!IsStarted()) {
        return errors_.Record(Fault::kStopped);
    }
    if (state_.clip.IsEmpty()) {
        return nullptr;
    }
    const Box& all = target_.bounds;
    outline_.Clear();
    outline_.Move({1.0 * all.left, 1.0 * all.top});
    outline_.Line({1.0 * all.right, 1.0 * all.top});
    outline_.Line({1.0 * all.right, 1.0 * all.bottom});
    outline_.Line({1.0 * all.left, 1.0 * all.bottom});
    outline_.Finish();
    PaintOutline(FillRule::kNonZero, kWhite);
    return nullptr;
}

bool Port::IsInside(Point point, FillRule rule) {
    if (std::isnan(point.x) || std::isnan(point.y) || state_.path.IsSpoilt()) {
        return false;
    }
    OutlinePath();
    return vec::IsInside(WindingAt(outline_, ToDevice(point)), rule);
}

// Graphics state

void Port::InitGraphics() {
    const std::int32_t options = state_.options;
    state_ = {};
    state_.options = options;
    InitClip();
}

void Port::Save() { saved_.push_back(state_); }

void Port::Restore() {
    if (!saved_.empty()) {
        state_ = std::move(saved_.back());
        saved_.pop_back();
    }
}

void Port::RestoreAll() {
    if (!saved_.empty()) {
        state_ = std::move(saved_.front());
        saved_.clear();
    }
}

} // namespace tn::vec
