// Private: a port over the pixels of a client.
#pragma once

#include "TnEngines/abi/vec_procedures.h"
#include "TnEngines/vec/paint/Clip.h"
#include "TnEngines/vec/paint/Painters.h"
#include "TnEngines/vec/path/Matrix.h"
#include "TnEngines/vec/path/Outline.h"
#include "TnEngines/vec/path/Path.h"
#include "TnEngines/vec/path/Stroker.h"
#include "TnEngines/vec/port/ColorServer.h"
#include "TnEngines/vec/port/Faults.h"
#include "TnEngines/vec/scan/HardScan.h"
#include "TnEngines/vec/scan/RectScan.h"
#include "TnEngines/vec/scan/SmoothScan.h"

#include <cstdint>
#include <vector>

namespace tn::vec {

/// What a save keeps.
struct GraphicsState {
    Path path;
    Matrix matrix;
    Clip clip;
    ColorServer color;
    double lineWidth = 1;
    Cap cap = Cap::kButt;
    Join join = Join::kMiter;
    std::int32_t options = 0;
    double flatness = kFlatness;
};

/// All operations do what the procedures of TnEngines/abi/vec_procedures.h say. They throw std::bad_alloc, and have
/// then changed neither path nor clip nor the saved states.
class Port {
public:
    explicit Port(const Target& target);

    GraphicsState& State() { return state_; }
    Faults& Errors() { return errors_; }
    const Box& Bounds() const { return target_.bounds; }

    // Paths, in user space. A coordinate that is no number is recorded, and the element left out.
    void Move(Point to);
    void Line(Point to);
    void Curve(Point control1, Point control2, Point to);
    void MoveBy(Point distance);
    void LineBy(Point distance);
    void CurveBy(Point distance1, Point distance2, Point distance3);
    void AddRect(const VecRect& rect);
    void AddEllipse(const VecRect& rect);

    /// Takes over a path that was made of the port's own; it is spoilt where that is.
    void ReplacePath(Path path);

    /// The current point in user space; false where there is none, or no user space to have it in.
    bool CurrentPoint(Point& point) const;

    // Painting. Each gives null or the error that it recorded.
    KelError Fill(FillRule rule);
    KelError Stroke();
    KelError FillRect(const VecRect& rect);
    KelError StrokeRect(const VecRect& rect);
    KelError ErasePage();
    KelError ClipTo(FillRule rule);
    KelError ClipToRect(const VecRect& rect);

    bool IsInside(Point point, FillRule rule);

    void InitClip() { state_.clip = Clip(target_.bounds); }
    void InitGraphics();
    void Save();
    void Restore();
    void RestoreAll();
    std::size_t SaveDepth() const { return saved_.size(); }

    // References of clients
    void AddReference() { ++references_; }
    bool ReleaseReference() { return --references_ == 0; }

private:
    bool IsSound(const Point& point);
    bool CanAdd(const VecRect& rect);
    bool HasCurrentPoint();
    Point ToDevice(Point point) const;
    Point FromCurrentPoint(Point distance) const;

    KelError Obstacle();
    bool CanShow() const;
    bool PaintsSmooth() const;
    bool ClipsSmooth() const;
    const PaintColor& Color() const;
    void OutlinePath();
    double OutlineStroke();
    void Scan(FillRule rule, bool isSmooth, CoverageSink& sink);
    void PaintOutline(FillRule rule, const PaintColor& color);
    template <class Painter> void PaintThroughClip(FillRule rule, Painter painter);
    template <class Operation> KelError WithPathOf(const VecRect& rect, const Operation& operation);

    Target target_;
    GraphicsState state_;
    std::vector<GraphicsState> saved_;
    Faults errors_;
    std::size_t references_ = 1;

    // Kept from one painting to the next, for their memory
    Outline outline_;
    RectScan rectScan_;
    SmoothScan smoothScan_;
    HardScan hardScan_;
};

} // namespace tn::vec
