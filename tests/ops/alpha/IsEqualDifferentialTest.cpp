#include "tests/models/AlphaModels.h"
#include "tests/models/RectModels.h"
#include "tests/port/SurfaceKinds.h"
#include "tests/support/Cases.h"
#include "tests/support/PairDifferential.h"

#include "TnGraphics/ops/AlphaAnalysis.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace tn::test {
namespace {

constexpr int kCases = 3000;

// A pair of which one is mostly a copy of a part of the other.
template <class SurfaceType> struct AlikePair : PairOfPictures<SurfaceType, SurfaceType> {
    using Model = ModelPicture<ValueOf<SurfaceType>>;

    TnPoint at;

    explicit AlikePair(Random& random)
        : PairOfPictures<SurfaceType, SurfaceType>(random),
          at(RandomPlace(random, this->destination.Surface().Size())) {
        const auto a = this->source.Snapshot();
        auto b = this->destination.Snapshot();
        const auto placement =
            model::CalcIterBnds({a.Width(), a.Height()}, {b.Width(), b.Height()}, at, {0, 0, b.Width(), b.Height()});
        if (placement.isPlaced) {
            CopyOverlap(a, b, placement);
            if (!random.OneIn(3)) {
                ChangeABit(random, b, placement.destination);
            }
            this->destination.Restore(b);
        }
    }

private:
    static TnPoint RandomPlace(Random& random, const TnPoint& size) {
        if (random.OneIn(3)) {
            return {0, 0};
        }
        return {random.Between(-size.x / 2 - 2, size.x), random.Between(-size.y / 2 - 2, size.y)};
    }

    static void CopyOverlap(const Model& a, Model& b, const model::Placement& placement) {
        const TnRect& from = placement.source;
        const TnRect& to = placement.destination;
        for (int y = 0; y < to.height; ++y) {
            for (int x = 0; x < to.width; ++x) {
                b.At(to.left + x, to.top + y) = a.At(from.left + x, from.top + y);
            }
        }
    }

    // Often in the last row or column.
    static void ChangeABit(Random& random, Model& model, const TnRect& rect) {
        const int x = random.OneIn(3) ? rect.width - 1 : random.Between(0, rect.width - 1);
        const int y = random.OneIn(2) ? rect.height - 1 : random.Between(0, rect.height - 1);
        auto& value = model.At(rect.left + x, rect.top + y);
        value = static_cast<ValueOf<SurfaceType>>(value ^ 1U << random.Between(0, 8 * int{sizeof(value)} - 1));
    }
};

template <class SurfaceType> class RandomEquality : public ::testing::Test {
protected:
    // The order in which the two are polled is not told, only that both are.
    static void ExpectPolls(const PairWatch& watch, int ofEach) {
        EXPECT_EQ(std::count(watch.Polls().begin(), watch.Polls().end(), 's'), ofEach);
        EXPECT_EQ(std::count(watch.Polls().begin(), watch.Polls().end(), 'd'), ofEach);
    }

    static void ExpectUnlocked(const AlikePair<SurfaceType>& pair) {
        EXPECT_EQ(pair.source.Surface().Clients(), 0U);
        EXPECT_EQ(pair.destination.Surface().Clients(), 0U);
    }

    static void ExpectAnswerLikeModel(AlikePair<SurfaceType>& pair, const model::Answer<bool>& expected) {
        const SurfaceType& a = pair.source.Surface();
        SurfaceType& b = pair.destination.Surface();
        ForEachSupportedLevel([&](ProcessorLevel) {
            const PairWatch watch;
            EXPECT_EQ(TnIsEqual<SurfaceType>(a, b, pair.at), expected.value);
            ExpectPolls(watch, expected.polls);
            ExpectUnlocked(pair);
        });
        for (int poll = 1; poll <= 2 * expected.polls; ++poll) {
            const PairWatch watch(static_cast<std::size_t>(poll));
            EXPECT_THROW(TnIsEqual<SurfaceType>(a, b, pair.at), Cancelled);
            ExpectUnlocked(pair);
        }
    }
};
TYPED_TEST_SUITE(RandomEquality, SurfaceKinds);

TYPED_TEST(RandomEquality, EqualsItsModel) {
    ForEachCase(kCases, [](Random& random) {
        AlikePair<TypeParam> pair(random);
        const auto a = pair.source.Snapshot();
        const auto b = pair.destination.Snapshot();
        TestFixture::ExpectAnswerLikeModel(pair, model::AreEqual(a, b, pair.at));
        EXPECT_TRUE(SamePixels(a, pair.source.Snapshot()));
        EXPECT_TRUE(SamePixels(b, pair.destination.Snapshot()));
    });
}

} // namespace
} // namespace tn::test
