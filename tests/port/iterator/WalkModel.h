// A walk told in coordinates.
#pragma once

#include "TnGraphics/geometry/TnRect.h"

#include <cstdint>
#include <optional>

namespace tn::test {

/// What an iterator over the bounds shall do, for as long as every pixel it touches has coordinates in the content.
class WalkModel {
public:
    enum class Made { kAtBegin, kAtEnd };

    WalkModel(bool byRows, const TnRect& bounds, Made made) : byRows_(byRows), bounds_(bounds), last_(Corner()) {
        const bool atBegin = made == Made::kAtBegin;
        first_ = atBegin ? TnPoint{bounds.left, bounds.top} : last_;
        current_ = lineStart_ = atBegin ? first_ : Sum(last_, Along(1 - Length()));
        lineEnd_ = Sum(lineStart_, Along(Length() - 1));
        if (!atBegin) {
            current_.reset();
        }
    }

    const std::optional<TnPoint>& Current() const { return current_; }
    const TnPoint& LineStart() const { return lineStart_; }
    const TnPoint& LineEnd() const { return lineEnd_; }
    const TnPoint& First() const { return first_; }
    const TnPoint& Last() const { return last_; }
    bool AtEnd() const { return !current_.has_value(); }
    bool IsByRows() const { return byRows_; }

    /// Number of cancel polls so far; it goes on through ForgetLineChanges().
    int Polls() const { return polls_; }

    void Increment() { current_ == lineEnd_ ? NextLine() : Next(); }
    void Decrement() {
        if (AtEnd()) {
            current_ = last_;
        } else {
            current_ == lineStart_ ? PreviousLine() : Prev();
        }
    }
    void NextLine() {
        CountLineChange();
        if (byRows_ ? lineEnd_ == last_ : current_ == last_) {
            current_.reset();
        } else {
            MoveLine(Across(1));
            current_ = lineStart_;
        }
    }
    void PreviousLine() {
        CountLineChange();
        MoveLine(Across(-1));
        current_ = lineEnd_;
    }
    void Next() { MovePixel(Along(1)); }
    void Prev() { MovePixel(Along(-1)); }
    void NextRow() { MovePixel(Across(1)); }
    void PrevRow() { MovePixel(Across(-1)); }
    void BeginLine() { current_ = lineStart_; }
    void EndLine() { current_ = lineEnd_; }
    void Begin() {
        current_ = lineStart_ = first_;
        lineEnd_ = Sum(first_, Along(Length() - 1));
    }
    void End() {
        current_.reset();
        lineEnd_ = last_;
        lineStart_ = Sum(last_, Along(1 - Length()));
    }
    void Move(const TnPoint& d) {
        MoveLine(byRows_ ? TnPoint{0, d.y} : TnPoint{d.x, 0});
        MovePixel(d);
    }
    void MoveAlong(std::int32_t n) { MovePixel(Along(n)); }
    void ForgetLineChanges() { lineChanges_ = 0; }

private:
    static TnPoint Sum(const TnPoint& a, const TnPoint& b) { return {a.x + b.x, a.y + b.y}; }
    TnPoint Along(std::int32_t n) const { return byRows_ ? TnPoint{n, 0} : TnPoint{0, n}; }
    TnPoint Across(std::int32_t n) const { return byRows_ ? TnPoint{0, n} : TnPoint{n, 0}; }
    TnPoint Corner() const { return {bounds_.left + bounds_.width - 1, bounds_.top + bounds_.height - 1}; }
    std::int32_t Length() const { return byRows_ ? bounds_.width : bounds_.height; }

    void CountLineChange() {
        if (++lineChanges_ % 32 == 0) {
            ++polls_;
        }
    }
    void MoveLine(const TnPoint& d) {
        lineStart_ = Sum(lineStart_, d);
        lineEnd_ = Sum(lineEnd_, d);
    }
    void MovePixel(const TnPoint& d) { current_ = Sum(*current_, d); }

    bool byRows_;
    TnRect bounds_;
    TnPoint last_;
    TnPoint first_;
    TnPoint lineStart_;
    TnPoint lineEnd_;
    std::optional<TnPoint> current_;
    int lineChanges_ = 0;
    int polls_ = 0;
};

} // namespace tn::test
