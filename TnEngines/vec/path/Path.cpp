#include "TnEngines/vec/path/Path.h"

#include <algorithm>

namespace tn::vec {
namespace {

template <class Item> void Reserve(std::vector<Item>& items, std::size_t more) {
    constexpr std::size_t kFew = 32;
    if (items.capacity() - items.size() < more) {
        items.reserve(std::max({items.size() + more, 2 * items.capacity(), kFew}));
    }
}

} // namespace

void Path::Clear() {
    verbs_.clear();
    points_.clear();
    isSpoilt_ = false;
}

void Path::Move(Point to) {
    if (!verbs_.empty() && verbs_.back() == Verb::kMove) {
        points_.back() = to;
    } else {
        MakeRoom(1, 1);
        Add(Verb::kMove, to);
    }
    start_ = current_ = to;
}

void Path::Line(Point to) {
    MakeRoom(2, 2);
    Begin();
    Add(Verb::kLine, to);
}

void Path::Curve(Point control1, Point control2, Point to) {
    MakeRoom(2, 4);
    Begin();
    points_.push_back(control1);
    points_.push_back(control2);
    Add(Verb::kCurve, to);
}

void Path::Close() {
    if (verbs_.empty() || verbs_.back() == Verb::kClose) {
        return;
    }
    MakeRoom(1, 0);
    verbs_.push_back(Verb::kClose);
    current_ = start_;
}

void Path::MakeRoom(std::size_t verbs, std::size_t points) {
    Reserve(verbs_, verbs);
    Reserve(points_, points);
}

// What follows a close goes on from the start of what was closed.
void Path::Begin() {
    if (verbs_.back() == Verb::kClose) {
        Add(Verb::kMove, start_);
    }
}

void Path::Add(Verb verb, Point to) {
    verbs_.push_back(verb);
    points_.push_back(to);
    current_ = to;
}

} // namespace tn::vec
