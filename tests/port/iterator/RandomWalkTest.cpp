#include "tests/port/WalkKinds.h"
#include "tests/port/iterator/WalkModel.h"
#include "tests/support/CancelAtPoll.h"
#include "tests/support/Cases.h"

#include <array>
#include <functional>
#include <type_traits>

namespace tn::test {
namespace {

constexpr int kCases = 1000;
constexpr int kSteps = 400;
constexpr std::int32_t kLongestSide = 24;

TnRect RandomPart(Random& random, const TnPoint& size) {
    const std::int32_t left = random.Between(0, size.x - 1);
    const std::int32_t top = random.Between(0, size.y - 1);
    return {left, top, random.Between(1, size.x - left), random.Between(1, size.y - top)};
}

// An iterator and its model, taking the same steps over the same surface.
template <class Walk> class ModelledWalk {
    using Surface = typename Walk::Surface;
    using Iterator = typename Walk::Iterator;
    using Pixel = typename Surface::Pixel;
    static constexpr bool kMoveForgetsOutsidePixel = std::is_same_v<Surface, TnMatte>;

    // A step without arguments, of the iterator and of its model.
    struct PlainStep {
        void (*onWalk)(Iterator& walk);
        void (WalkModel::*onModel)();
        bool needsPixel = false;
    };
    static constexpr std::array<PlainStep, 12> kPlainSteps = {{
        {[](Iterator& walk) { ++walk; }, &WalkModel::Increment, true},
        {[](Iterator& walk) { --walk; }, &WalkModel::Decrement},
        {[](Iterator& walk) { walk.NextLine(); }, &WalkModel::NextLine},
        {[](Iterator& walk) { walk.PreviousLine(); }, &WalkModel::PreviousLine},
        {[](Iterator& walk) { walk.Next(); }, &WalkModel::Next, true},
        {[](Iterator& walk) { walk.Prev(); }, &WalkModel::Prev, true},
        {[](Iterator& walk) { walk.NextRow(); }, &WalkModel::NextRow, true},
        {[](Iterator& walk) { walk.PrevRow(); }, &WalkModel::PrevRow, true},
        {[](Iterator& walk) { walk.beginLine(); }, &WalkModel::BeginLine},
        {[](Iterator& walk) { walk.endLine(); }, &WalkModel::EndLine},
        {[](Iterator& walk) { walk.begin(); }, &WalkModel::Begin},
        {[](Iterator& walk) { walk.end(); }, &WalkModel::End},
    }};

public:
    ModelledWalk(const Surface& surface, const TnRect& bounds, WalkModel::Made made)
        : surface_(surface), model_(Walk::kByRows, bounds, made),
          walk_(made == WalkModel::Made::kAtBegin ? Walk::Begin(surface, bounds) : Walk::End(surface, bounds)) {}

    void TakeRandomStep(Random& random) {
        if (random.OneIn(4)) {
            TakeMove(random);
            return;
        }
        const PlainStep& step = random.OneOf(kPlainSteps);
        if (!step.needsPixel || !model_.AtEnd()) {
            Take(step.onWalk, step.onModel);
        }
    }

    void Replace(Random& random) {
        switch (random.Between(0, 2)) {
        case 0:
            return ReplaceByMovedCopy(random);
        case 1:
            return ReplaceByCopy();
        default:
            return ReplaceByAssigned();
        }
    }

    void WriteOutside(std::uint8_t value) {
        outside_ = value;
        walk_[TnPoint{0, -1}] = outside_;
    }

    void Check(int polls) const {
        ASSERT_EQ(polls, model_.Polls());
        ASSERT_EQ(walk_.AtEnd(), model_.AtEnd());
        ASSERT_EQ(walk_.AtStart(), model_.Current() == model_.First());
        ASSERT_EQ(walk_.AtStartOfLine(), model_.Current() == model_.LineStart());
        ASSERT_EQ(walk_.AtEndOfLine(), model_.Current() == model_.LineEnd());
        ASSERT_EQ(walk_.Position(), model_.Current().value_or(TnPoint{0x7FFFFFFF, 0x7FFFFFFF}));
        if (!model_.AtEnd()) {
            ASSERT_EQ(&*walk_, surface_.PixelBase() + NumberOf(*model_.Current()));
        }
    }

    void CheckNeighbor(const TnPoint& d) const {
        const Pixel expected =
            HasNeighbor(d) ? surface_.PixelBase()[NumberOf(*model_.Current()) + NumberOf(d)] : outside_;
        ASSERT_EQ(walk_[d], expected) << d.x << ", " << d.y;
    }

private:
    // Pixels are numbered in the order of their addresses, the content's first being 0.
    std::ptrdiff_t NumberOf(const TnPoint& point) const {
        return point.y * static_cast<std::ptrdiff_t>(surface_.RowBytes() / sizeof(Pixel)) + point.x;
    }

    bool HasNeighbor(const TnPoint& d) const {
        if (model_.AtEnd() || d.y < 0) {
            return false;
        }
        const std::ptrdiff_t current = NumberOf(*model_.Current());
        const std::ptrdiff_t onLine = current + NumberOf(model_.IsByRows() ? TnPoint{d.x, 0} : TnPoint{0, d.y});
        const std::ptrdiff_t neighbor = current + NumberOf(d);
        return NumberOf(model_.LineStart()) <= onLine && onLine <= NumberOf(model_.LineEnd()) &&
               NumberOf(model_.First()) <= neighbor && neighbor <= NumberOf(model_.Last());
    }

    bool IsInContent(const TnPoint& point) const {
        const TnPoint size = surface_.Size();
        return point.x >= 0 && point.y >= 0 && point.x < size.x && point.y < size.y;
    }

    // Steps that would leave the content are the caller's fault and not taken.
    template <class Step, class ModelStep> void Take(const Step& step, const ModelStep& modelStep) {
        WalkModel next = model_;
        std::invoke(modelStep, next);
        if (IsInContent(next.LineStart()) && IsInContent(next.LineEnd()) &&
            IsInContent(next.Current().value_or(next.Last()))) {
            model_ = next;
            step(walk_);
        }
    }

    void TakeMove(Random& random) {
        const TnPoint d = {random.Between(-5, 5), random.Between(0, 4)};
        const std::int32_t n = random.Between(-4, 4);
        switch (random.Between(0, 3)) {
        case 0:
            return Take([d](Iterator& walk) { walk += d; }, MoveBy(d));
        case 1:
            return Take([d](Iterator& walk) { walk -= TnPoint{-d.x, -d.y}; }, MoveBy(d));
        case 2:
            return Take([n](Iterator& walk) { walk += n; }, MoveAlongBy(n));
        default:
            return Take([n](Iterator& walk) { walk -= -n; }, MoveAlongBy(n));
        }
    }

    // At the end these do nothing.
    static auto MoveBy(const TnPoint& d) {
        return [d](WalkModel& model) { model.AtEnd() ? void() : model.Move(d); };
    }
    static auto MoveAlongBy(std::int32_t n) {
        return [n](WalkModel& model) { model.AtEnd() ? void() : model.MoveAlong(n); };
    }

    // The count of line changes starts anew in moved and other copies, and goes on in assigned iterators.
    void ReplaceByMovedCopy(Random& random) {
        if (model_.AtEnd()) {
            return;
        }
        const TnPoint d = {random.Between(-5, 5), random.Between(0, 4)};
        const bool byMinus = random.OneIn(2);
        const auto replace = [&](Iterator& walk) {
            walk = byMinus ? walk - TnPoint{-d.x, -d.y} : walk + d;
            outside_ = kMoveForgetsOutsidePixel ? Pixel(0) : outside_;
        };
        Take(replace, [&](WalkModel& model) {
            model.Move(d);
            model.ForgetLineChanges();
        });
    }

    void ReplaceByCopy() {
        const Iterator copy(walk_);
        walk_ = copy;
        model_.ForgetLineChanges();
    }

    void ReplaceByAssigned() {
        Iterator assigned;
        assigned = walk_;
        walk_ = Iterator();
        walk_ = assigned;
    }

    const Surface& surface_;
    WalkModel model_;
    Iterator walk_;
    Pixel outside_ = KindOf<Surface>::kOutsideWalk;
};

template <class Walk> class RandomWalk : public testing::Test {};
TYPED_TEST_SUITE(RandomWalk, WalkKinds);

TYPED_TEST(RandomWalk, GoesWhereTheModelGoes) {
    ForEachCase(kCases, [](Random& random) {
        const TnPoint size = {random.Between(1, kLongestSide), random.Between(1, kLongestSide)};
        typename TypeParam::Surface surface(size, false, &PollWatch::Proc);
        Paint(*surface.Storage());
        surface.Content(RandomPart(random, size));
        const TnRect bounds = RandomPart(random, surface.Size());
        const PollWatch watch;
        {
            const auto made = random.OneIn(2) ? WalkModel::Made::kAtBegin : WalkModel::Made::kAtEnd;
            ModelledWalk<TypeParam> walk(surface, bounds, made);
            for (int step = 0; step < kSteps && !testing::Test::HasFatalFailure(); ++step) {
                walk.TakeRandomStep(random);
                if (random.OneIn(100)) {
                    walk.Replace(random);
                    walk.WriteOutside(random.Byte());
                }
                walk.Check(watch.Polls());
                walk.CheckNeighbor({random.Between(-4, 4), random.Between(-1, 4)});
            }
        }
        ASSERT_EQ(surface.Clients(), 0U);
    });
}

} // namespace
} // namespace tn::test
