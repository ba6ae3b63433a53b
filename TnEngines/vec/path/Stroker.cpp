#include "TnEngines/vec/path/Stroker.h"

#include <algorithm>
#include <cmath>

namespace tn::vec {
namespace {

// Shorter lines have no direction worth the name.
constexpr double kLeastLength = 1.0 / (1 << 20);

// A quarter of a circle gets no more than 2 to the power of this chords.
constexpr int kDeepestArc = 10;

// A chord over an angle is r (1 - cos(angle / 2)) away from its arc.
double FlatCosine(double radius, double flatness) {
    const double cosine = 1 - std::min(1.0, flatness / radius); // of half the angle
    return 2 * cosine * cosine - 1;
}

// Looks for the line that a matrix makes the widest.
class WidestLine {
public:
    explicit WidestLine(const Matrix& matrix) : matrix_(matrix), determinant_(std::abs(matrix.Determinant())) {}

    void Move(Point to) { start_ = current_ = to; }
    void Line(Point to) {
        LookAt(to - current_);
        current_ = to;
    }
    void BeginCurve(Point) {}
    void EndCurve(Point) {}
    void Close() { Line(start_); }

    /// How many times as wide it is in device space as in user space; 0 without lines.
    double Scale() const { return scale_; }

private:
    // A line and its width span an area, which the determinant scales.
    void LookAt(Point line) {
        const Point inUserSpace = matrix_.UnmapDistance(line);
        const double lengths = std::sqrt(Dot(inUserSpace, inUserSpace) / Dot(line, line));
        if (std::isfinite(lengths)) {
            scale_ = std::max(scale_, determinant_ * lengths);
        }
    }

    const Matrix& matrix_;
    double determinant_;
    Point start_ = {}, current_ = {};
    double scale_ = 0;
};

} // namespace

double GreatestWidth(const Path& path, const Pen& pen, double flatness) {
    WidestLine widest(pen.matrix);
    Flatten(path, flatness, widest);
    return pen.width * (widest.Scale() > 0 ? widest.Scale() : pen.matrix.GreatestScale());
}

Stroker::Stroker(const Pen& pen, double flatness, Outline& outline)
    : pen_(pen), outline_(outline), halfWidth_(pen.width / 2), flatness_(flatness),
      flatCosine_(FlatCosine(halfWidth_ * pen.matrix.GreatestScale(), flatness)) {}

void Stroker::Stroke(const Path& path) {
    Flatten(path, flatness_, *this);
    EndSubPath(false);
}

void Stroker::Move(Point to) {
    EndSubPath(false);
    start_ = current_ = to;
}

void Stroker::Line(Point to) {
    hasLines_ = true;
    const Point line = to - current_;
    if (Dot(line, line) >= kLeastLength * kLeastLength) {
        AddSide(line, 1, next_);
        current_ = to;
    }
}

void Stroker::BeginCurve(Point heading) {
    AddSide(heading, 0, next_);
    next_ = Meeting::kSmooth;
}

void Stroker::EndCurve(Point heading) {
    AddSide(heading, 0, next_);
    next_ = Meeting::kCorner;
}

// A side from the current point, as many times as long as the line. There is none where the line leads nowhere, or the
// matrix is so nearly singular that there is no telling of directions.
void Stroker::AddSide(Point line, double times, Meeting meeting) {
    const Point inUserSpace = pen_.matrix.UnmapDistance(line);
    const double length = std::sqrt(Dot(inUserSpace, inUserSpace));
    if (length > 0 && std::isfinite(length)) {
        sides_.push_back({current_, (1 / length) * inUserSpace, times * length, meeting});
    }
}

void Stroker::Close() {
    Line(start_);
    EndSubPath(true);
}

void Stroker::EndSubPath(bool isClosed) {
    if (sides_.empty()) {
        if (hasLines_) {
            StrokeDot();
        }
    } else if (isClosed) {
        StrokeClosed();
    } else {
        StrokeOpen();
    }
    for (const Point center : discs_) {
        AddDisc(center);
    }
    discs_.clear();
    sides_.clear();
    current_ = start_;
    next_ = Meeting::kCorner;
    hasLines_ = false;
}

void Stroker::StrokeDot() {
    if (pen_.cap != Cap::kButt) {
        const Point along = {1, 0};
        MoveTo(start_, Offset(along));
        AddCap(start_, along);
        AddCap(start_, -along);
        outline_.Close();
    }
}

void Stroker::AddDisc(Point center) {
    const Point along = {1, 0};
    MoveTo(center, Offset(along));
    AddHalfDisc(center, along);
    AddHalfDisc(center, -along);
    outline_.Close();
}

void Stroker::AddHalfDisc(Point center, Point along) {
    const Point offset = Offset(along);
    const Point beyond = halfWidth_ * along;
    AddArc(center, offset, beyond, kDeepestArc);
    AddArc(center, beyond, -offset, kDeepestArc);
}

void Stroker::StrokeOpen() {
    MoveTo(start_, Offset(sides_.front().along));
    for (std::size_t i = 1; i < sides_.size(); ++i) {
        AddMeeting(sides_[i - 1], sides_[i], false);
    }
    LineTo(current_, Offset(sides_.back().along));
    AddCap(current_, sides_.back().along);
    for (std::size_t i = sides_.size() - 1; i > 0; --i) {
        AddMeeting(sides_[i - 1], sides_[i], true);
    }
    LineTo(start_, -Offset(sides_.front().along));
    AddCap(start_, -sides_.front().along);
    outline_.Close();
    if (pen_.cap == Cap::kRound) {
        AddDiscBesideShort(start_, sides_.front().length);
        AddDiscBesideShort(current_, sides_.back().length);
    }
}

// Half of a disc is not enough beside a line that does not hold the other half.
void Stroker::AddDiscBesideShort(Point center, double length) {
    if (length < halfWidth_) {
        discs_.push_back(center);
    }
}

void Stroker::StrokeClosed() {
    const std::size_t count = sides_.size();
    MoveTo(start_, Offset(sides_.back().along));
    for (std::size_t i = 0; i < count; ++i) {
        AddMeeting(sides_[(i + count - 1) % count], sides_[i], false);
    }
    outline_.Close();
    MoveTo(start_, -Offset(sides_.front().along));
    for (std::size_t i = count; i-- > 0;) {
        AddMeeting(sides_[i], sides_[(i + 1) % count], true);
    }
    outline_.Close();
}

// From one side of a line's end to the other.
void Stroker::AddCap(Point end, Point along) {
    const Point offset = Offset(along);
    const Point beyond = halfWidth_ * along;
    switch (pen_.cap) {
    case Cap::kButt:
        break;
    case Cap::kRound:
        AddHalfDisc(end, along);
        break;
    case Cap::kSquare:
        LineTo(end, offset + beyond);
        LineTo(end, beyond - offset);
        break;
    }
    LineTo(end, -offset);
}

// Where the second side meets the first, on the side of the offsets: the outer one where the lines turn away from it.
// Where they turn back on themselves, both are.
void Stroker::AddMeeting(const Side& first, const Side& second, bool isBackwards) {
    const Point from = isBackwards ? -second.along : first.along;
    const Point to = isBackwards ? -first.along : second.along;
    const Point corner = second.start;
    if (IsNearlyStraight(first, second)) {
        const Point along = from + to;
        LineTo(corner, Offset((1 / std::sqrt(Dot(along, along))) * along));
        return;
    }
    LineTo(corner, Offset(from));
    const double turn = Cross(from, to);
    if (turn < 0 || (turn == 0 && Dot(from, to) < 0)) {
        AddOuterCorner(corner, from, to, second.meeting == Meeting::kSmooth ? Join::kRound : pen_.join);
        if (pen_.join == Join::kRound && second.meeting == Meeting::kCorner) {
            AddDiscBesideShort(corner, std::min(first.length, second.length));
        }
    } else if (MustPassCorner(first, second)) {
        outline_.Line(corner);
    }
    LineTo(corner, Offset(to));
}

// One point will do where the arc between two is as good as its chord, and the inner sides meet.
bool Stroker::IsNearlyStraight(const Side& from, const Side& to) const {
    return to.meeting == Meeting::kSmooth && Dot(from.along, to.along) >= std::max(flatCosine_, 0.5) &&
           !MustPassCorner(from, to);
}

// On the inner side. Where both lines are long enough, what the way through the corner would go around lies within
// both.
bool Stroker::MustPassCorner(const Side& from, const Side& to) const {
    return Dot(from.along, to.along) < 0 ||
           halfWidth_ * std::abs(Cross(from.along, to.along)) > std::min(from.length, to.length);
}

void Stroker::AddOuterCorner(Point corner, Point from, Point to, Join join) {
    const double cosine = Dot(from, to);
    if (join == Join::kRound) {
        AddRoundCorner(corner, from, to);
    } else if (join == Join::kMiter && (1 + cosine) * kMiterLimit * kMiterLimit >= 2) {
        LineTo(corner, (1 / (1 + cosine)) * (Offset(from) + Offset(to)));
    }
}

void Stroker::AddRoundCorner(Point corner, Point from, Point to) {
    if (Dot(from, to) >= 0) {
        AddArc(corner, Offset(from), Offset(to), kDeepestArc);
        return;
    }
    const Point apart = from - to;
    const Point middle = (halfWidth_ / std::sqrt(Dot(apart, apart))) * apart;
    AddArc(corner, Offset(from), middle, kDeepestArc);
    AddArc(corner, middle, Offset(to), kDeepestArc);
}

// An arc of at most a quarter of a circle around a corner; its start is there already.
void Stroker::AddArc(Point corner, Point from, Point to, int depth) {
    if (depth > 0 && Dot(from, to) < flatCosine_ * halfWidth_ * halfWidth_) {
        const Point between = from + to;
        const Point middle = (halfWidth_ / std::sqrt(Dot(between, between))) * between;
        AddArc(corner, from, middle, depth - 1);
        AddArc(corner, middle, to, depth - 1);
    } else {
        LineTo(corner, to);
    }
}

} // namespace tn::vec
