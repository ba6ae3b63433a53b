#include "tests/port/WalkKinds.h"

namespace tn::test {
namespace {

template <class Walk> class WalkNeighbor : public WalkTest<Walk> {
protected:
    using Iterator = typename Walk::Iterator;
    using Kind = KindOf<typename Walk::Surface>;

    // Both forms of the checked neighbour find the pixel.
    static void ExpectNeighbor(Iterator& walk, const TnPoint& d, typename Walk::Surface::Pixel* pixel) {
        const Iterator& constant = walk;
        EXPECT_EQ(&walk[d], pixel) << d.x << ", " << d.y;
        EXPECT_EQ(constant[d], *pixel) << d.x << ", " << d.y;
    }

    // Both forms give the iterator's outside pixel.
    static void ExpectOutside(Iterator& walk, const TnPoint& d) {
        const Iterator& constant = walk;
        EXPECT_EQ(constant[d], Kind::kOutsideWalk) << d.x << ", " << d.y;
        const auto* given = reinterpret_cast<const std::uint8_t*>(&walk[d]);
        const auto* self = reinterpret_cast<const std::uint8_t*>(&walk);
        EXPECT_TRUE(self <= given && given < self + sizeof(Iterator)) << d.x << ", " << d.y;
    }
};
TYPED_TEST_SUITE(WalkNeighbor, WalkKinds);

template <class SurfaceType> class VerticalNeighbor : public WalkNeighbor<ByColumns<SurfaceType>> {};
TYPED_TEST_SUITE(VerticalNeighbor, SurfaceKinds);

TYPED_TEST(WalkNeighbor, IsFoundOnTheLine) {
    auto walk = this->Begin(this->kBounds);
    ++walk;
    this->ExpectNeighbor(walk, {0, 0}, this->InBounds(1, 0));
    this->ExpectNeighbor(walk, TypeParam::At(1, 0), this->InBounds(2, 0));
}

TYPED_TEST(WalkNeighbor, IsFoundToTheRightAndBelow) {
    auto walk = this->Begin(this->kBounds);
    this->ExpectNeighbor(walk, TypeParam::At(0, 1), this->InBounds(0, 1));
    this->ExpectNeighbor(walk, TypeParam::At(2, 3), this->InBounds(2, 3));
}

TYPED_TEST(WalkNeighbor, PastTheLinesEndIsOutside) {
    auto walk = this->Begin(this->kBounds);
    this->ExpectOutside(walk, TypeParam::At(3, 0));
    this->ExpectOutside(walk, TypeParam::At(3, 1));
}

TYPED_TEST(WalkNeighbor, BeforeTheLinesStartIsOutside) {
    auto walk = this->Begin(this->kBounds);
    walk.NextLine();
    this->ExpectOutside(walk, TypeParam::At(-1, 0));
}

TYPED_TEST(WalkNeighbor, BelowTheBoundsIsOutside) {
    auto walk = --this->End({3, 2, 5, 6});
    walk.begin(); // the last pixel is this walk's first
    this->ExpectOutside(walk, {0, 1});
    this->ExpectNeighbor(walk, {0, 0}, this->PixelAt({7, 7}));
}

TYPED_TEST(WalkNeighbor, LinesBeyondTheLastAreOutside) {
    auto walk = this->Begin(this->kBounds);
    walk.endLine();
    this->ExpectNeighbor(walk, TypeParam::At(0, 3), this->InBounds(2, 3));
    this->ExpectOutside(walk, TypeParam::At(0, 4));
}

TYPED_TEST(WalkNeighbor, AboveIsAlwaysOutside) {
    auto walk = this->Begin({3, 2, 5, 6});
    walk += TnPoint{2, 3};
    for (std::int32_t dy = -1; dy >= -5; --dy) {
        this->ExpectOutside(walk, {0, dy});
        this->ExpectOutside(walk, {1, dy});
    }
}

TYPED_TEST(WalkNeighbor, IsWrittenThroughTheReference) {
    auto walk = this->Begin(this->kBounds);
    walk[TypeParam::At(1, 2)] = 77;
    EXPECT_EQ(*this->InBounds(1, 2), typename TestFixture::Pixel(77));
}

TYPED_TEST(WalkNeighbor, WritesToAnOutsideOneAreLost) {
    const std::vector<std::uint8_t> before = BytesOf(*this->surface_.Storage());
    auto walk = this->Begin(this->kBounds);
    walk[TnPoint{0, -1}] = 77;
    walk[TypeParam::At(3, 0)] = 78;
    EXPECT_EQ(BytesOf(*this->surface_.Storage()), before);
    EXPECT_EQ(this->Begin(this->kBounds)[TypeParam::At(3, 0)], TestFixture::Kind::kOutsideWalk);
}

TYPED_TEST(WalkNeighbor, WritesToAnOutsideOneLandInTheIteratorsOwn) {
    auto walk = this->Begin(this->kBounds);
    walk[TnPoint{0, -1}] = 77;
    const auto& constant = walk;
    EXPECT_EQ((constant[TypeParam::At(3, 0)]), typename TestFixture::Pixel(77));
}

TYPED_TEST(WalkNeighbor, OutsideOneIsCopiedAndAssigned) {
    auto walk = this->Begin(this->kBounds);
    walk[TnPoint{0, -1}] = 77;
    const auto copy(walk);
    EXPECT_EQ((copy[TnPoint{0, -1}]), typename TestFixture::Pixel(77));
    typename TestFixture::Iterator assigned;
    assigned = walk;
    EXPECT_EQ((assigned[TnPoint{0, -1}]), typename TestFixture::Pixel(77));
}

TYPED_TEST(WalkNeighbor, MovedCopyOfAnImagesWalkKeepsTheOutsideOneAndAMattesForgetsIt) {
    constexpr bool isImage = std::is_same_v<typename TypeParam::Surface, TnImage>;
    auto walk = this->Begin(this->kBounds);
    walk[TnPoint{0, -1}] = 77;
    const typename TestFixture::Pixel expected = isImage ? 77 : 0;
    const auto moved = walk + TnPoint{0, 0};
    EXPECT_EQ((moved[TnPoint{0, -1}]), expected);
    const auto movedBack = walk - TnPoint{0, 0};
    EXPECT_EQ((movedBack[TnPoint{0, -1}]), expected);
}

TYPED_TEST(WalkNeighbor, OfAnIteratorWithoutPixelsIsOutside) {
    typename TestFixture::Iterator none;
    this->ExpectOutside(none, {0, 0});
    this->ExpectOutside(none, {1, 1});
    auto end = this->End(this->kBounds);
    this->ExpectOutside(end, {0, 0});
    this->ExpectOutside(end, {-1, 0});
}

// The line is tested before the step to the side, the walk's first and last address after it. Pixels beside the bounds
// that lie between those two in memory are handed out.
TYPED_TEST(VerticalNeighbor, MayLieBesideTheBounds) {
    auto walk = this->Begin({3, 2, 4, 5});
    this->ExpectNeighbor(walk, {9, 0}, this->PixelAt({12, 2}));
    this->ExpectNeighbor(walk, {-2, 1}, this->PixelAt({1, 3}));
    this->ExpectOutside(walk, {-1, 0});
    walk.endLine();
    this->ExpectNeighbor(walk, {3, 0}, this->PixelAt({6, 6}));
    this->ExpectOutside(walk, {4, 0});
}

TYPED_TEST(WalkNeighbor, UncheckedIsAnyPixelBelowOrBeside) {
    auto walk = this->Begin(this->kBounds);
    const auto& constant = walk;
    for (const TnPoint d : {TnPoint{0, 0}, {-3, 0}, {9, 0}, {-2, 5}, {6, 7}}) {
        auto* pixel = this->PixelAt({this->kBounds.left + d.x, this->kBounds.top + d.y});
        EXPECT_EQ(&walk.UncheckedNeighbor(d.x, d.y), pixel);
        EXPECT_EQ(constant.UncheckedNeighbor(d.x, d.y), *pixel);
    }
}

TYPED_TEST(WalkNeighbor, UncheckedIsWrittenThroughTheReference) {
    auto walk = this->Begin(this->kBounds);
    walk.UncheckedNeighbor(-3, 4) = 77;
    EXPECT_EQ(*this->PixelAt({0, 6}), typename TestFixture::Pixel(77));
}

// Rows of 2^30 bytes: four of them wrap to none at all.
TYPED_TEST(WalkNeighbor, RowProductsWrapAt32Bits) {
    constexpr std::uint32_t rowBytes = std::uint32_t{1} << 30;
    StorageProbe probe;
    class FarRows : public RecordingStorage {
    public:
        explicit FarRows(StorageProbe& storageProbe) : RecordingStorage(storageProbe, 40, 1, 9) {}
        std::uint32_t RowBytes() const override { return rowBytes; }
    };
    const typename TestFixture::Surface surface(new FarRows(probe), {5, 1});
    auto walk = TypeParam::Begin(surface);
    auto* pixel = &*walk;
    EXPECT_EQ(&walk.UncheckedNeighbor(0, 4), pixel);
    EXPECT_EQ(&walk.UncheckedNeighbor(2, -8), pixel + 2);
    EXPECT_EQ(&(walk[TnPoint{0, 4}]), pixel);
    EXPECT_TRUE((walk + TnPoint{0, -4} == walk));
}

} // namespace
} // namespace tn::test
