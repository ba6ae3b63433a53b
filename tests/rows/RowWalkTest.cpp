#include "TnGraphics/rows/RowWalk.h"

#include "tests/support/CancelAtPoll.h"
#include "tests/support/Cases.h"
#include "tests/support/RecordingStorage.h"

#include "TnGraphics/port/TnImage.h"
#include "TnGraphics/port/TnMatte.h"

#include <gtest/gtest.h>
#include <stdexcept>
#include <vector>

namespace tn::test {
namespace {

// What a walk visited, by address, and how often it polled.
struct Trail {
    std::vector<const void*> pixels;
    int polls = 0;

    friend bool operator==(const Trail&, const Trail&) = default;
};

template <class SurfaceType> Trail TrailOfRows(SurfaceType& surface, const TnRect& rect) {
    Trail trail;
    const PollWatch watch;
    ForEachRow(surface, rect, [&](const typename SurfaceType::Iterator& row, std::size_t length) {
        for (std::size_t column = 0; column < length; ++column) {
            trail.pixels.push_back(&*row + column);
        }
    });
    trail.polls = watch.Polls();
    return trail;
}

template <class SurfaceType> Trail TrailOfPixels(SurfaceType& surface, const TnRect& rect) {
    Trail trail;
    const PollWatch watch;
    const auto end = surface.end(rect);
    for (auto pixel = surface.begin(rect); pixel != end; ++pixel) {
        trail.pixels.push_back(&*pixel);
    }
    trail.polls = watch.Polls();
    return trail;
}

template <class Surface> class RowWalk : public ::testing::Test {
protected:
    Surface tall{{20, 100}, false, &PollWatch::Proc};
};

using SurfaceTypes = ::testing::Types<TnImage, TnMatte>;
TYPED_TEST_SUITE(RowWalk, SurfaceTypes);

TYPED_TEST(RowWalk, VisitsThePixelsOfAWalkByPixelsAndPollsAsOften) {
    ForEachCase(1000, [](Random& random) {
        const TnPoint size = {random.Between(0, 9), random.Side()};
        TypeParam surface(size, false, &PollWatch::Proc);
        if (surface.Storage() != nullptr) {
            surface.Content(random.RectWithin(size));
        }
        const TnRect rect = random.Rect(surface.Size());
        EXPECT_EQ(TrailOfRows(surface, rect), TrailOfPixels(surface, rect));
        EXPECT_EQ(surface.Clients(), 0U);
    });
}

TYPED_TEST(RowWalk, HandsOutOneRowAtATime) {
    std::vector<TnPoint> starts;
    ForEachRow(this->tall, {-3, 98, 8, 9}, [&](const typename TypeParam::Iterator& row, std::size_t length) {
        starts.push_back(row.Position());
        EXPECT_EQ(length, 5U);
    });
    EXPECT_EQ(starts, (std::vector<TnPoint>{{0, 98}, {0, 99}}));
}

TYPED_TEST(RowWalk, DoesNoWorkInAnEmptyRectangle) {
    int rows = 0;
    ForEachRow(this->tall, {20, 0, 5, 5}, [&](const auto&, std::size_t) { ++rows; });
    ForEachRow(this->tall, {0, 0, 0, 5}, [&](const auto&, std::size_t) { ++rows; });
    EXPECT_EQ(rows, 0);
}

TYPED_TEST(RowWalk, HoldsTheLockWhileItWorks) {
    ForEachRow(this->tall, {0, 0, 1, 1}, [&](const auto&, std::size_t) { EXPECT_GE(this->tall.Clients(), 1U); });
    EXPECT_EQ(this->tall.Clients(), 0U);
}

TYPED_TEST(RowWalk, PollsBetweenTheRows) {
    int rows = 0;
    std::vector<int> rowsAtPoll;
    const PollWatch watch([&](int) { rowsAtPoll.push_back(rows); });
    ForEachRow(this->tall, this->tall.Bounds(), [&](const auto&, std::size_t) { ++rows; });
    EXPECT_EQ(rowsAtPoll, (std::vector<int>{32, 64, 96}));
    EXPECT_EQ(rows, 100);
}

TYPED_TEST(RowWalk, ReleasesTheLockWhenTheWorkThrows) {
    int rows = 0;
    const auto failInThirdRow = [&](const auto&, std::size_t) {
        if (++rows == 3) {
            throw std::runtime_error("no more");
        }
    };
    EXPECT_THROW(ForEachRow(this->tall, this->tall.Bounds(), failInThirdRow), std::runtime_error);
    EXPECT_EQ(rows, 3);
    EXPECT_EQ(this->tall.Clients(), 0U);
}

TYPED_TEST(RowWalk, ReleasesTheLockWhenItIsCancelled) {
    for (const int poll : {1, 2, 3}) {
        int rows = 0;
        const CancelAtPoll cancel(poll);
        EXPECT_THROW(ForEachRow(this->tall, this->tall.Bounds(), [&](const auto&, std::size_t) { ++rows; }), Cancelled);
        EXPECT_EQ(rows, 32 * poll);
        EXPECT_EQ(this->tall.Clients(), 0U);
    }
}

TYPED_TEST(RowWalk, UnlocksTheStorageOfACallersOwnWhenItIsCancelled) {
    StorageProbe probe;
    TypeParam surface(new RecordingStorage(probe, 16, 32), {4, 32}, &PollWatch::Proc);
    const CancelAtPoll cancel(1);
    EXPECT_THROW(ForEachRow(surface, surface.Bounds(), [](const auto&, std::size_t) {}), Cancelled);
    EXPECT_EQ(probe.locks, 1);
    EXPECT_EQ(probe.unlocks, 1);
}

} // namespace
} // namespace tn::test
