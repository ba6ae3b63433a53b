#include "TnEngines/vec/path/PathEditing.h"

#include "TnEngines/vec/path/Flatten.h"

#include <cmath>

namespace tn::vec {
namespace {

struct PathBuilder {
    Path path;

    void Move(Point to) { path.Move(to); }
    void Line(Point to) { path.Line(to); }
    void BeginCurve(Point) {}
    void EndCurve(Point) {}
    void Close() { path.Close(); }
};

class Measure {
public:
    explicit Measure(const Matrix& matrix) : matrix_(matrix) {}

    void Move(Point to) { start_ = current_ = to; }
    void Line(Point to) {
        const Point line = matrix_.UnmapDistance(to - current_);
        length_ += std::sqrt(Dot(line, line));
        current_ = to;
    }
    void Close() { Line(start_); }

    void BeginCurve(Point) {}
    void EndCurve(Point) {}

    double Length() const { return length_; }

private:
    const Matrix& matrix_;
    Point start_ = {}, current_ = {};
    double length_ = 0;
};

// Of one sub-path, whose verbs after the move and points are given.
void AddReversed(std::span<const Verb> verbs, std::span<const Point> points, Path& to) {
    const bool isClosed = !verbs.empty() && verbs.back() == Verb::kClose;
    to.Move(points.back());
    std::size_t at = points.size() - 1;
    for (std::size_t i = verbs.size() - (isClosed ? 1 : 0); i-- > 0;) {
        if (verbs[i] == Verb::kCurve) {
            to.Curve(points[at - 1], points[at - 2], points[at - 3]);
        } else {
            to.Line(points[at - 1]);
        }
        at -= PointsOf(verbs[i]);
    }
    if (isClosed) {
        to.Close();
    }
}

} // namespace

Path Flattened(const Path& path, double flatness) {
    PathBuilder builder;
    Flatten(path, flatness, builder);
    return std::move(builder.path);
}

Path Reversed(const Path& path) {
    Path reversed;
    const std::span<const Verb> verbs = path.Verbs();
    std::size_t point = 0;
    for (std::size_t begin = 0; begin < verbs.size();) {
        std::size_t end = begin + 1;
        std::size_t points = 1;
        for (; end < verbs.size() && verbs[end] != Verb::kMove; ++end) {
            points += PointsOf(verbs[end]);
        }
        AddReversed(verbs.subspan(begin + 1, end - begin - 1), path.Points().subspan(point, points), reversed);
        point += points;
        begin = end;
    }
    return reversed;
}

double LengthOf(const Path& path, double flatness, const Matrix& matrix) {
    Measure measure(matrix);
    Flatten(path, flatness, measure);
    return measure.Length();
}

} // namespace tn::vec
