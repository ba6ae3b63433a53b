// Comparing an operation on two surfaces with its model: what it writes, whom it polls, what it leaves when cancelled.
#pragma once

#include "tests/support/Levels.h"
#include "tests/support/PairWatch.h"
#include "tests/support/Pictures.h"
#include "tests/support/PixelDiff.h"

#include <gtest/gtest.h>
#include <string>

namespace tn::test {

/// A source and a destination of their own, which are polled by the procedures of PairWatch. Seldom is one of them
/// empty.
template <class SourceType, class DestinationType> struct PairOfPictures {
    Picture<SourceType> source;
    Picture<DestinationType> destination;

    /// Of like sizes, or of equal ones.
    explicit PairOfPictures(Random& random) : PairOfPictures(random, LikelySize(random)) {}

    PairOfPictures(Random& random, const TnPoint& sourceSize, const TnPoint& destinationSize)
        : source(random, sourceSize, &PairWatch::SourceProc),
          destination(random, destinationSize, &PairWatch::DestinationProc) {
        if (!random.OneIn(16)) {
            ShowSomething(source.Surface());
            ShowSomething(destination.Surface());
        }
    }

private:
    PairOfPictures(Random& random, const TnPoint& size)
        : PairOfPictures(random, size, random.OneIn(3) ? size : LikelySize(random)) {}

    // Few rows, or narrow ones that are enough for several cancel polls.
    static TnPoint LikelySize(Random& random) {
        if (random.OneIn(16)) {
            return random.Size();
        }
        return random.OneIn(8) ? TnPoint{random.Between(1, 40), random.Between(32, Random::kLongestSide)}
                               : TnPoint{random.Between(1, Random::kLongestSide), random.Between(1, 7)};
    }

    template <class SurfaceType> static void ShowSomething(SurfaceType& surface) {
        if (surface.Bounds().IsEmpty() && surface.Storage() != nullptr) {
            surface.Content({0, 0, surface.StorageSize().x, surface.StorageSize().y});
        }
    }
};

/// One run of the operation, cancelled at a poll or not, leaves what the model leaves and no lock.
///
/// \param operation takes the surfaces
/// \param expected  the whole destination afterwards
/// \param polls     the surfaces polled, up to the one that is cancelled
template <class Pair, class Operation, class Model>
void ExpectOneRun(Pair& pair, const Operation& operation, const Model& expected, const std::string& polls,
                  bool isCancelled) {
    const PairWatch watch(isCancelled ? polls.size() : 0);
    if (isCancelled) {
        EXPECT_THROW(operation(pair.source.Surface(), pair.destination.Surface()), Cancelled);
    } else {
        operation(pair.source.Surface(), pair.destination.Surface());
    }
    EXPECT_EQ(watch.Polls(), polls);
    EXPECT_EQ(pair.source.Surface().Clients(), 0U);
    EXPECT_EQ(pair.destination.Surface().Clients(), 0U);
    EXPECT_TRUE(SamePixels(expected, pair.destination.Snapshot()));
}

/// The operation does what the model does, at every level and cancelled at every poll, and keeps the source.
///
/// \param operation takes the surfaces
/// \param model     takes the model pictures and the poll at which it is left, 0 for none
/// \param polls     the surfaces polled when nothing is cancelled
template <class Pair, class Operation, class Model>
void ExpectPairLikeModel(Pair& pair, const Operation& operation, const Model& model, const std::string& polls) {
    auto source = pair.source.Snapshot();
    const auto before = pair.destination.Snapshot();
    const auto expectedAt = [&](int poll) {
        auto destination = before;
        model(source, destination, poll);
        return destination;
    };
    const auto completed = expectedAt(0);
    ForEachSupportedLevel([&](ProcessorLevel) {
        pair.destination.Restore(before);
        ExpectOneRun(pair, operation, completed, polls, false);
    });
    for (std::size_t poll = 1; poll <= polls.size() && !::testing::Test::HasFailure(); ++poll) {
        SCOPED_TRACE("cancelled at poll " + std::to_string(poll) + " of " + polls);
        pair.destination.Restore(before);
        ExpectOneRun(pair, operation, expectedAt(static_cast<int>(poll)), polls.substr(0, poll), true);
    }
    EXPECT_TRUE(SamePixels(source, pair.source.Snapshot())) << "in the source";
}

} // namespace tn::test
