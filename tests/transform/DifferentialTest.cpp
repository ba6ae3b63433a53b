// Every instantiation against its model, in random pictures, at every level and cancelled at every poll.

#include "tests/models/ResamplingModels.h"
#include "tests/port/sampling/ReadSurfaces.h"
#include "tests/support/Cases.h"
#include "tests/support/PairDifferential.h"
#include "tests/transform/Calls.h"
#include "tests/transform/RandomMatrices.h"

#include "TnGraphics/port/StDisregardAlphaInGet.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <type_traits>

namespace tn::test {
namespace {

// Of each instantiation.
constexpr int kCases = 18000;
constexpr int kCasesOfWideRows = 1000;
constexpr int kCasesOfBoxes = 8000;

int AsTimeAllows(int cases) { return HasTimeForEveryValue() ? cases : cases / 6; }

template <class SourceType, class DestinationType> struct TransformPair {
    RandomSource<SourceType> source;
    Picture<DestinationType> destination;

    TransformPair(Random& random, const TnPoint& sourceSize, const TnPoint& size)
        : source(random, sourceSize, &PairWatch::SourceProc), destination(random, size, &PairWatch::DestinationProc) {}
};

InterpolationType RandomType(Random& random) {
    constexpr std::array<int, 8> kTypes = {0, 0, 0, 1, 1, 1, 2, -1};
    return static_cast<InterpolationType>(random.OneOf(kTypes));
}

// What an open scope puts in place of the image's alpha and of its outside pixel.
std::optional<TnImagePixel> RandomScope(Random& random) {
    return random.OneIn(4) ? std::optional<TnImagePixel>(random.Word()) : std::nullopt;
}

template <class SourceType, class DestinationType>
void ExpectLikeModel(Random& random, TransformPair<SourceType, DestinationType>& pair, const model::Elements& elements,
                     InterpolationType type) {
    const auto scopeOutside = RandomScope(random);
    SCOPED_TRACE(::testing::PrintToString(elements) + " of type " + std::to_string(static_cast<int>(type)));
    const model::Resampling call = CallOf(MatrixOf(elements), type);
    const auto transform = [&](const SourceType& source, DestinationType& destination) {
        if constexpr (std::is_same_v<SourceType, TnImage>) {
            std::optional<StDisregardAlphaInGet> scope;
            if (scopeOutside) {
                scope.emplace(source, *scopeOutside);
            }
            Transform(source, destination, MatrixOf(elements), type);
        } else {
            Transform(source, destination, MatrixOf(elements), type);
        }
    };
    const auto resample = [&](model::ReadSurface source, auto& destination, int poll) {
        if (std::is_same_v<SourceType, TnImage> && scopeOutside) {
            source.outside = ChannelsOf(*scopeOutside);
            source.disregardsAlpha = true;
        }
        model::Resample(call, source, destination, poll);
    };
    ExpectPairLikeModel(pair, transform, resample, model::PollsOf(call, pair.destination.Surface().Size()));
}

template <class SourceType, class DestinationType>
void ExpectLikeModel(Random& random, TransformPair<SourceType, DestinationType>& pair) {
    RandomMatrix matrix(random, pair.source.Surface().Size(), pair.destination.Surface().Size());
    ExpectLikeModel(random, pair, matrix.Any(), RandomType(random));
}

template <class KindsType> class TransformOfRandomPictures : public ::testing::Test {
protected:
    using Pair = TransformPair<typename KindsType::Source, typename KindsType::Destination>;
};
TYPED_TEST_SUITE(TransformOfRandomPictures, TransformKinds);

TYPED_TEST(TransformOfRandomPictures, EqualsItsModel) {
    ForEachCase(AsTimeAllows(kCases), [](Random& random) {
        const TnPoint sourceSize = {random.Between(0, 90), random.Between(0, 24)};
        const TnPoint size = random.OneIn(3) ? sourceSize : random.Size();
        typename TestFixture::Pair pair(random, sourceSize, size);
        ExpectLikeModel(random, pair);
    });
}

// Rows that are longer than what is positioned at a time.
TYPED_TEST(TransformOfRandomPictures, EqualsItsModelInWideRows) {
    ForEachCase(AsTimeAllows(kCasesOfWideRows), [](Random& random) {
        const TnPoint sourceSize = {random.Between(200, 1100), random.Between(1, 40)};
        typename TestFixture::Pair pair(random, sourceSize, {random.Between(200, 1100), random.Between(1, 3)});
        ExpectLikeModel(random, pair);
    });
}

// Boxes of every width up to some vectors, at every place in the pixels.
TYPED_TEST(TransformOfRandomPictures, EqualsItsModelInBoxes) {
    ForEachCase(AsTimeAllows(kCasesOfBoxes), [](Random& random) {
        const TnPoint sourceSize = {random.Between(2, 150), random.Between(2, 40)};
        typename TestFixture::Pair pair(random, sourceSize, {random.Between(1, 5), random.Between(1, 4)});
        const auto anywhere = [&](int side) { return (RandomFraction(random) + 0.5) * side; };
        model::Elements reduction = {2.1 + std::fabs(RandomFraction(random)) * (random.OneIn(2) ? 80 : 6),
                                     RandomFraction(random),
                                     anywhere(sourceSize.x),
                                     RandomFraction(random),
                                     std::fabs(RandomFraction(random)) * 20,
                                     anywhere(sourceSize.y),
                                     0,
                                     0,
                                     1};
        if (random.OneIn(8)) {
            reduction[static_cast<std::size_t>(random.Between(0, 5))] = OddElement(random);
        }
        ExpectLikeModel(random, pair, reduction, kSmooth);
    });
}

} // namespace
} // namespace tn::test
