// Private: lines of some width along paths.
#pragma once

#include "TnEngines/vec/path/Flatten.h"
#include "TnEngines/vec/path/Matrix.h"
#include "TnEngines/vec/path/Outline.h"
#include "TnEngines/vec/path/Path.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace tn::vec {

enum class Cap : std::int32_t { kButt, kRound, kSquare };
enum class Join : std::int32_t { kMiter, kRound, kBevel };

/// How long a pointed corner may be, in widths of the line.
inline constexpr double kMiterLimit = 10;

/// How to stroke: a line's look and the matrix that makes an ellipse of its round pen.
struct Pen {
    double width = 1; ///< Above 0, in user space.
    Cap cap = Cap::kButt;
    Join join = Join::kMiter;
    Matrix matrix; ///< Invertible.
};

/// How many pixels wide the widest line of a path's stroke comes out: where a matrix scales unevenly, that depends on
/// where lines lead. A path without lines counts as the pen is at its widest.
double GreatestWidth(const Path& path, const Pen& pen, double flatness);

/// Adds the outline of a path's stroke to an outline. The outline winds around no place of it 0 times, and around no
/// other place.
///
/// Each side of a sub-path runs beside its lines. On the inner side of a corner it goes through the corner itself, so
/// that it is the sum of the outlines of one rectangle a line and one wedge a corner, all in the same sense.
class Stroker {
public:
    Stroker(const Pen& pen, double flatness, Outline& outline);

    void Stroke(const Path& path);

    // As Flatten tells of a path
    void Move(Point to);
    void Line(Point to);
    void BeginCurve(Point heading);
    void EndCurve(Point heading);
    void Close();

private:
    /// How a side meets the one before it: in a corner of the path, or within a curve.
    enum class Meeting { kCorner, kSmooth };

    /// A line of the path. At the ends of curves are sides without length, which head where the curve does.
    struct Side {
        Point start;   ///< In device space.
        Point along;   ///< Of length 1, in user space.
        double length; ///< In user space.
        Meeting meeting;
    };

    void AddSide(Point line, double times, Meeting meeting);
    void EndSubPath(bool isClosed);
    void StrokeDot();
    void StrokeOpen();
    void StrokeClosed();

    /// To the side of a line along a direction.
    Point Offset(Point along) const { return {-halfWidth_ * along.y, halfWidth_ * along.x}; }
    void LineTo(Point corner, Point offset) { outline_.Line(corner + pen_.matrix.MapDistance(offset)); }
    void MoveTo(Point corner, Point offset) { outline_.Move(corner + pen_.matrix.MapDistance(offset)); }
    void AddCap(Point end, Point along);
    void AddDisc(Point center);
    void AddHalfDisc(Point center, Point along);
    void AddDiscBesideShort(Point center, double length);
    void AddMeeting(const Side& from, const Side& to, bool isBackwards);
    bool IsNearlyStraight(const Side& from, const Side& to) const;
    bool MustPassCorner(const Side& from, const Side& to) const;
    void AddOuterCorner(Point corner, Point from, Point to, Join join);
    void AddRoundCorner(Point corner, Point from, Point to);
    void AddArc(Point corner, Point from, Point to, int depth);

    Pen pen_;
    Outline& outline_;
    double halfWidth_;
    double flatness_;
    double flatCosine_;        // of the angle of a chord that is as good as its arc
    std::vector<Side> sides_;  // of the sub-path
    std::vector<Point> discs_; // to be added after the sub-path
    Point start_ = {}, current_ = {};
    Meeting next_ = Meeting::kCorner;
    bool hasLines_ = false; // if only such that lead nowhere
};

} // namespace tn::vec
