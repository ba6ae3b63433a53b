#include "tests/port/WalkKinds.h"
#include "tests/support/CancelAtPoll.h"

namespace tn::test {
namespace {

// A surface of 70 lines that polls the watch of the test.
template <class Walk> class WalkPolling : public testing::Test {
protected:
    using Iterator = typename Walk::Iterator;

    static constexpr TnRect TenBySixtyFour() { return LinesFrom<Walk>({2, 3}, 10, 64); }

    Iterator Begin(std::int32_t length, std::int32_t lines) const {
        return Walk::Begin(surface_, LinesFrom<Walk>({2, 3}, length, lines));
    }

    static void ChangeLines(Iterator& walk, int count) {
        for (int i = 0; i < count; ++i) {
            walk.NextLine();
        }
    }

    // Polls of a walk over so many lines of three pixels, by ++ from its begin to its end.
    static int PollsOfWalkOver(const typename Walk::Surface& surface, std::int32_t lines) {
        const PollWatch watch;
        const TnRect bounds = LinesFrom<Walk>({2, 3}, 3, lines);
        const auto end = Walk::End(surface, bounds);
        for (auto walk = Walk::Begin(surface, bounds); walk != end; ++walk) {
        }
        return watch.Polls();
    }

    typename Walk::Surface surface_{Walk::At(16, 70), true, &PollWatch::Proc};
};
TYPED_TEST_SUITE(WalkPolling, WalkKinds);

TYPED_TEST(WalkPolling, ComesTwiceIn64Lines) {
    const PollWatch watch;
    const auto end = TypeParam::End(this->surface_, this->TenBySixtyFour());
    for (auto walk = TypeParam::Begin(this->surface_, this->TenBySixtyFour()); walk != end; ++walk) {
    }
    EXPECT_EQ(watch.Polls(), 2);
}

TYPED_TEST(WalkPolling, CountsTheStepOntoTheEnd) {
    EXPECT_EQ(this->PollsOfWalkOver(this->surface_, 1), 0);
    EXPECT_EQ(this->PollsOfWalkOver(this->surface_, 31), 0);
    EXPECT_EQ(this->PollsOfWalkOver(this->surface_, 32), 1);
    EXPECT_EQ(this->PollsOfWalkOver(this->surface_, 33), 1);
    EXPECT_EQ(this->PollsOfWalkOver(this->surface_, 63), 1);
    EXPECT_EQ(this->PollsOfWalkOver(this->surface_, 64), 2);
}

TYPED_TEST(WalkPolling, ComesBeforeThe32ndLineChange) {
    auto walk = this->Begin(3, 64);
    typename TestFixture::Iterator atPoll;
    const PollWatch watch([&](int) { atPoll = walk; });
    while (watch.Polls() == 0 && !walk.AtEnd()) {
        ++walk;
    }
    EXPECT_TRUE(atPoll.AtEndOfLine());
    const TnPoint d = TypeParam::At(2, 31);
    EXPECT_EQ(atPoll.Position(), (TnPoint{2 + d.x, 3 + d.y}));
    EXPECT_TRUE(walk.AtStartOfLine());
}

TYPED_TEST(WalkPolling, CountsEveryKindOfLineChange) {
    const PollWatch watch;
    auto walk = this->Begin(1, 64);
    for (int i = 0; i < 8; ++i) {
        walk.NextLine();
        ++walk;
        walk.PreviousLine();
        EXPECT_EQ(watch.Polls(), 0);
        --walk;
    }
    EXPECT_EQ(watch.Polls(), 1);
}

TYPED_TEST(WalkPolling, CountsNothingElse) {
    const PollWatch watch;
    auto walk = this->Begin(3, 40);
    this->ChangeLines(walk, 31);
    for (int i = 0; i < 40; ++i) {
        ++walk;
        --walk;
        walk.Next();
        walk.Prev();
        walk.NextRow();
        walk.PrevRow();
        walk.endLine();
        walk.beginLine();
        walk += 1;
        walk -= 1;
        walk += TnPoint{0, 0};
        walk -= TnPoint{0, 0};
        walk.end();
        --walk;
        walk.begin();
    }
    EXPECT_EQ(watch.Polls(), 0);
    walk.NextLine();
    EXPECT_EQ(watch.Polls(), 1);
}

TYPED_TEST(WalkPolling, OnePixelCountsOneLineChange) {
    const PollWatch watch;
    auto walk = this->Begin(1, 1);
    ++walk;
    EXPECT_TRUE(walk.AtEnd());
    for (int changes = 1; changes < 32; ++changes) {
        EXPECT_EQ(watch.Polls(), 0);
        ++walk.begin();
    }
    EXPECT_EQ(watch.Polls(), 1);
}

TYPED_TEST(WalkPolling, StartsAnewInCopies) {
    const PollWatch watch;
    auto walk = this->Begin(3, 64);
    this->ChangeLines(walk, 31);
    auto copy(walk);
    auto moved = walk + TnPoint{0, 0};
    auto movedBack = walk - TnPoint{0, 0};
    typename TestFixture::Iterator remade(walk, TnRect{2, 3, 40, 40});
    for (auto* other : {&copy, &moved, &movedBack, &remade}) {
        this->ChangeLines(*other, 1);
        EXPECT_EQ(watch.Polls(), 0);
    }
    this->ChangeLines(copy, 31);
    EXPECT_EQ(watch.Polls(), 1);
}

TYPED_TEST(WalkPolling, StartsAnewInTheOldPositionOfAPostIncrement) {
    const PollWatch watch;
    auto walk = this->Begin(3, 64);
    this->ChangeLines(walk, 31);
    auto old = walk++;
    this->ChangeLines(old, 1);
    EXPECT_EQ(watch.Polls(), 0);
    this->ChangeLines(walk, 1);
    EXPECT_EQ(watch.Polls(), 1);
}

TYPED_TEST(WalkPolling, GoesOnInAssignedIterators) {
    const PollWatch watch;
    auto walk = this->Begin(3, 64);
    this->ChangeLines(walk, 31);
    typename TestFixture::Iterator assigned = this->Begin(1, 1);
    assigned = walk;
    this->ChangeLines(assigned, 1);
    EXPECT_EQ(watch.Polls(), 1);
}

// Cancels at the step, the 32nd line change: the walk then stands where it stood before, on the line where it was.
template <class Iterator, class Step> void ExpectCancelledInPlace(Iterator walk, const Step& step) {
    const CancelAtPoll cancel(1);
    for (int i = 0; i < 15; ++i) {
        walk.NextLine().PreviousLine();
    }
    walk.NextLine();
    Iterator before(walk);
    EXPECT_THROW(step(walk), Cancelled);
    EXPECT_TRUE(walk == before);
    EXPECT_EQ(PixelOf(walk.beginLine()), PixelOf(before.beginLine()));
    EXPECT_EQ(PixelOf(walk.endLine()), PixelOf(before.endLine()));
}

TYPED_TEST(WalkPolling, ThrowingLeavesTheAddressesAsTheyWere) {
    ExpectCancelledInPlace(this->Begin(1, 64), [](auto& walk) { ++walk; });
    ExpectCancelledInPlace(this->Begin(1, 64), [](auto& walk) { --walk; });
    ExpectCancelledInPlace(this->Begin(3, 64), [](auto& walk) { walk.NextLine(); });
    ExpectCancelledInPlace(this->Begin(3, 64), [](auto& walk) { walk.PreviousLine(); });
}

TYPED_TEST(WalkPolling, ThrowingLeavesTheLineChangeCounted) {
    const CancelAtPoll cancel(1);
    auto walk = this->Begin(3, 70);
    this->ChangeLines(walk, 31);
    EXPECT_THROW(walk.NextLine(), Cancelled);
    this->ChangeLines(walk, 31);
    EXPECT_EQ(cancel.Polls(), 1);
    this->ChangeLines(walk, 1);
    EXPECT_EQ(cancel.Polls(), 2);
}

TYPED_TEST(WalkPolling, ThrowingReleasesTheLocksOnTheWayOut) {
    const CancelAtPoll cancel(1);
    const auto walkOverAll = [this] {
        const auto end = TypeParam::End(this->surface_);
        for (auto walk = TypeParam::Begin(this->surface_); walk != end; ++walk) {
        }
    };
    EXPECT_THROW(walkOverAll(), Cancelled);
    EXPECT_EQ(this->surface_.Clients(), 0U);
    EXPECT_EQ(this->surface_.PixelBase(), nullptr);
}

} // namespace
} // namespace tn::test
