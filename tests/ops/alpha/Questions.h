// Comparing what an operation finds in a picture with its model: the answer, the polls, and that nothing changes.
#pragma once

#include "tests/models/AlphaModels.h"
#include "tests/support/Levels.h"
#include "tests/support/Pictures.h"
#include "tests/support/PixelDiff.h"
#include "tests/support/Random.h"

#include <algorithm>
#include <array>
#include <gtest/gtest.h>
#include <string>

namespace tn::test {

/// How often a surface polled by PollWatch is polled during a question.
template <class Question> int PollsDuring(const Question& question) {
    const PollWatch watch;
    question();
    return watch.Polls();
}

/// The question is answered like its model answers it at every level, and can be cancelled at every poll.
///
/// \param question takes the surface, as one that cannot be changed
template <class SurfaceType, class Question, class Value>
void ExpectAnswer(Picture<SurfaceType>& picture, const Question& question, const model::Answer<Value>& expected) {
    const SurfaceType& surface = picture.Surface();
    const auto before = picture.Snapshot();
    ForEachSupportedLevel([&](ProcessorLevel) {
        const PollWatch watch;
        EXPECT_EQ(question(surface), expected.value);
        EXPECT_EQ(watch.Polls(), expected.polls);
        EXPECT_EQ(surface.Clients(), 0U);
    });
    for (int poll = 1; poll <= expected.polls && !::testing::Test::HasFailure(); ++poll) {
        SCOPED_TRACE("cancelled at poll " + std::to_string(poll));
        const CancelAtPoll cancel(poll);
        EXPECT_THROW(question(surface), Cancelled);
        EXPECT_EQ(cancel.Polls(), poll);
        EXPECT_EQ(surface.Clients(), 0U);
    }
    EXPECT_TRUE(SamePixels(before, picture.Snapshot()));
}

/// A picture that holds little, so that what looks for something has to look far. Whatever lies beside its content is
/// there to be found by those who look too far.
///
/// \param empty gives a value for a place without anything
/// \param full  gives a value for one of the few others, and for those beside the content
template <class SurfaceType> class SparsePicture : public Picture<SurfaceType> {
public:
    template <class Empty, class Full>
    SparsePicture(Random& random, const Empty& empty, const Full& full)
        : Picture<SurfaceType>(random, LikelySize(random), &PollWatch::Proc) {
        auto model = this->Snapshot();
        std::generate(model.values.begin(), model.values.end(), full);
        for (int y = 0; y < model.Height(); ++y) {
            for (int x = 0; x < model.Width(); ++x) {
                model.At(x, y) = empty();
            }
        }
        if (model.Width() > 0 && model.Height() > 0) {
            for (int spots = NumberOfSpots(random); spots > 0; --spots) {
                model.At(Place(random, model.Width()), Place(random, model.Height())) = full();
            }
        }
        this->Restore(model);
    }

private:
    static TnPoint LikelySize(Random& random) {
        switch (random.Between(0, 7)) {
        case 0:
            return random.Size();
        case 1:
        case 2:
            return {random.Side(), random.Side()};
        case 3:
        case 4: // shorter than a vector
            return {random.Between(1, 16), random.Side()};
        default:
            return {random.Between(1, Random::kLongestSide), random.Between(1, 5)};
        }
    }

    static int NumberOfSpots(Random& random) {
        constexpr std::array<int, 8> kNumbers = {0, 1, 1, 1, 2, 3, 5, 40};
        return random.OneOf(kNumbers);
    }

    // Often one at the end.
    static int Place(Random& random, int side) {
        switch (random.Between(0, 5)) {
        case 0:
            return 0;
        case 1:
            return side - 1;
        default:
            return random.Between(0, side - 1);
        }
    }
};

/// An image of transparent pixels of any colours with a few that are not transparent.
class SparseImage : public SparsePicture<TnImage> {
public:
    explicit SparseImage(Random& random)
        : SparsePicture(
              random, [&random] { return random.Word() & 0x00FFFFFF; },
              [&random] { return Visible(random) << 24 | (random.Word() & 0x00FFFFFF); }) {}

private:
    static std::uint32_t Visible(Random& random) { return static_cast<std::uint32_t>(random.Between(1, 255)); }
};

/// A matte of one value with a few others.
class SparseMatte : public SparsePicture<TnMatte> {
public:
    SparseMatte(Random& random, std::uint8_t background)
        : SparsePicture(
              random, [background] { return background; },
              [&random, background] { return static_cast<std::uint8_t>(background + random.Between(1, 255)); }) {}
};

} // namespace tn::test
