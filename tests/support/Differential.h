// Comparing an operation with its model: what it writes, how often it polls, what it leaves when it is cancelled.
#pragma once

#include "tests/models/PollModels.h"
#include "tests/support/CancelAtPoll.h"
#include "tests/support/Levels.h"
#include "tests/support/Pictures.h"
#include "tests/support/PixelDiff.h"

#include <gtest/gtest.h>
#include <string>

namespace tn::test {

/// What the model of an operation says of one picture.
template <class Value> struct Expectation {
    ModelPicture<Value> before;
    ModelPicture<Value> after;
    model::Walks walks;
};

/// The operation cancelled at one of its polls leaves exactly the rows walked by then, and no lock.
template <class SurfaceType, class Operation>
void ExpectCancelledLikeModel(Picture<SurfaceType>& picture, const Operation& operation,
                              const Expectation<ValueOf<SurfaceType>>& expectation, int poll) {
    SCOPED_TRACE("cancelled at poll " + std::to_string(poll));
    const model::Walks done = model::DoneAtPoll(expectation.walks, poll);
    picture.Restore(expectation.before);
    const CancelAtPoll cancel(poll);
    EXPECT_THROW(operation(picture.Surface()), Cancelled);
    EXPECT_EQ(cancel.Polls(), poll);
    EXPECT_EQ(picture.Surface().Clients(), 0U);
    EXPECT_TRUE(SamePixels(model::PartlyDone(expectation.before, expectation.after, done), picture.Snapshot()));
}

/// The operation does what the model does, at every level, whether it is cancelled or not.
///
/// \param operation takes the surface
/// \param model     takes the model picture
/// \param walks     the rectangles that the operation walks
template <class SurfaceType, class Operation, class Model>
void ExpectLikeModel(Picture<SurfaceType>& picture, const Operation& operation, const Model& model,
                     const model::Walks& walks) {
    Expectation<ValueOf<SurfaceType>> expectation = {picture.Snapshot(), picture.Snapshot(), walks};
    model(expectation.after);
    ForEachSupportedLevel([&](ProcessorLevel) {
        picture.Restore(expectation.before);
        const PollWatch watch;
        operation(picture.Surface());
        EXPECT_EQ(watch.Polls(), model::PollsIn(walks));
        EXPECT_EQ(picture.Surface().Clients(), 0U);
        EXPECT_TRUE(SamePixels(expectation.after, picture.Snapshot()));
    });
    for (int poll = 1; poll <= model::PollsIn(walks); ++poll) {
        ExpectCancelledLikeModel(picture, operation, expectation, poll);
    }
}

} // namespace tn::test
