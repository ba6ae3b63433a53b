// Private: paths as they are built.
#pragma once

#include "TnEngines/vec/path/Point.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace tn::vec {

/// How a path goes on, and how many points that takes.
enum class Verb : std::uint8_t { kMove, kLine, kCurve, kClose };

constexpr std::size_t PointsOf(Verb verb) { return verb == Verb::kCurve ? 3 : verb == Verb::kClose ? 0 : 1; }

/// Sub-paths of lines and cubic curves in device space. Each begins with a move and ends with a close or the next move.
/// Every operation does all or, without memory, nothing.
class Path {
public:
    void Clear();

    /// Makes sure of memory for as many more verbs and points.
    void MakeRoom(std::size_t verbs, std::size_t points);

    /// A move right after another takes its place.
    void Move(Point to);

    /// Lines and curves need a current point.
    void Line(Point to);
    void Curve(Point control1, Point control2, Point to);

    /// Goes back to where the sub-path began; nothing where that was done or nothing is begun.
    void Close();

    /// Notes a point that is no point. The path is not to be painted.
    void Spoil() { isSpoilt_ = true; }
    bool IsSpoilt() const { return isSpoilt_; }

    bool IsEmpty() const { return verbs_.empty(); }
    bool HasCurrentPoint() const { return !IsEmpty(); }
    Point CurrentPoint() const { return current_; }

    std::span<const Verb> Verbs() const { return verbs_; }
    std::span<const Point> Points() const { return points_; }

private:
    void Begin();
    void Add(Verb verb, Point to);

    std::vector<Verb> verbs_;
    std::vector<Point> points_;
    Point start_ = {};
    Point current_ = {};
    bool isSpoilt_ = false;
};

} // namespace tn::vec
