#include "tests/port/WalkKinds.h"
#include "tests/support/AssertionRecorder.h"
#include "tests/support/SparseStorage.h"

#include "TnGraphics/port/Assertion.h"
#include "TnGraphics/port/ReportedPosition.h"

namespace tn::test {
namespace {

constexpr TnPoint kNowhere = {0x7FFFFFFF, 0x7FFFFFFF};
constexpr const char* kExpression = "byteDistance <= std::numeric_limits<std::uint32_t>::max()";

// How the four places introduce themselves.
template <class Walk> RecordedAssertion SiteOf();
template <> RecordedAssertion SiteOf<ByRows<TnImage>>() {
    return {kExpression, "TnImage::Iterator::Position", "port/TnImageIterator", 205};
}
template <> RecordedAssertion SiteOf<ByColumns<TnImage>>() {
    return {kExpression, "TnImage::IteratorVertical::Position", "port/TnImageIteratorV", 165};
}
template <> RecordedAssertion SiteOf<ByRows<TnMatte>>() {
    return {kExpression, "TnMatte::Iterator::Position", "port/TnMatteIterator", 174};
}
template <> RecordedAssertion SiteOf<ByColumns<TnMatte>>() {
    return {kExpression, "TnMatte::IteratorVertical::Position", "port/TnMatteIteratorV", 166};
}

template <class Walk> class WalkPosition : public WalkTest<Walk> {};
TYPED_TEST_SUITE(WalkPosition, WalkKinds);

TYPED_TEST(WalkPosition, IsTheCornerAtTheBegin) { EXPECT_EQ(this->Begin({3, 2, 5, 5}).Position(), (TnPoint{3, 2})); }

TYPED_TEST(WalkPosition, IsNowhereAtTheEnd) {
    EXPECT_EQ(this->End({3, 2, 5, 5}).Position(), kNowhere);
    auto walk = this->Begin({3, 2, 5, 5});
    EXPECT_EQ(walk.end().Position(), kNowhere);
    EXPECT_EQ(typename TestFixture::Iterator().Position(), kNowhere);
}

TYPED_TEST(WalkPosition, FollowsTheWalk) {
    auto walk = this->Begin({3, 2, 5, 5});
    for (std::int32_t across = 0; across < 5; ++across) {
        for (std::int32_t along = 0; along < 5; ++along) {
            const TnPoint d = TypeParam::At(along, across);
            ASSERT_EQ(walk.Position(), (TnPoint{3 + d.x, 2 + d.y}));
            ++walk;
        }
    }
    EXPECT_EQ(walk.Position(), kNowhere);
}

TYPED_TEST(WalkPosition, IsInTheFrameOfTheContent) {
    this->surface_.Content({4, 5, 7, 8});
    EXPECT_EQ(TypeParam::Begin(this->surface_).Position(), TnPoint{});
    EXPECT_EQ((--this->End({0, 0, 100, 100})).Position(), (TnPoint{6, 7}));
}

// Storage that misleads about its only row.
class RowOfNoBytes : public RecordingStorage {
public:
    explicit RowOfNoBytes(StorageProbe& probe) : RecordingStorage(probe, 40, 1) {}
    std::uint32_t RowBytes() const override { return 0; }
};

TYPED_TEST(WalkPosition, DividesByNoRowOfNoBytes) {
    StorageProbe probe;
    const typename TestFixture::Surface surface(new RowOfNoBytes(probe), {5, 1});
    EXPECT_EQ(TypeParam::Begin(surface, {2, 0, 1, 1}).Position(), (TnPoint{2, 0}));
}

// Two rows as far apart as 32 bits can tell.
template <class Walk> class FarWalkPosition : public testing::Test {
protected:
    using Surface = typename Walk::Surface;
    static constexpr std::uint32_t kPixelBytes = KindOf<Surface>::kPixelBytes;
    static constexpr std::uint32_t kRowBytes = 0xFFFFFFFF / kPixelBytes * kPixelBytes;

    const Surface surface_{new SparseStorage({4, 2}, kPixelBytes, kRowBytes), {4, 2}};
    AssertionRecorder recorder_;
};
TYPED_TEST_SUITE(FarWalkPosition, WalkKinds);

TYPED_TEST(FarWalkPosition, IsNoMatterUpToTheLast32BitDistance) {
    const auto walk = TypeParam::Begin(this->surface_, {0, 1, 1, 1});
    EXPECT_EQ(walk.Position(), (TnPoint{0, 1}));
    EXPECT_TRUE(this->recorder_.Reports().empty());
}

TYPED_TEST(FarWalkPosition, AssertsInDebugBuildsPastTheLast32BitDistance) {
    const auto walk = TypeParam::Begin(this->surface_, {1, 1, 1, 1});
    walk.Position();
    walk.Position();
    if (kDebugBuild) {
        const RecordedAssertion site = SiteOf<TypeParam>();
        EXPECT_EQ(this->recorder_.Reports(), (std::vector{site, site}));
    } else {
        EXPECT_TRUE(this->recorder_.Reports().empty());
    }
}

TYPED_TEST(FarWalkPosition, IsRightAllTheSame) {
    const auto walk = TypeParam::Begin(this->surface_, {3, 1, 1, 1});
    EXPECT_EQ(walk.Position(), (TnPoint{3, 1}));
}

TYPED_TEST(FarWalkPosition, AsksNothingAtTheEnd) {
    const auto end = TypeParam::End(this->surface_);
    EXPECT_EQ(end.Position(), kNowhere);
    EXPECT_TRUE(this->recorder_.Reports().empty());
}

TEST(ReportedPosition, ReportsInEveryBuild) {
    AssertionRecorder recorder;
    const TnImage image(new SparseStorage({4, 2}, 4, 0xFFFFFFFC), {4, 2});
    EXPECT_EQ(ReportedPosition(image.begin({0, 1, 1, 1})), (TnPoint{0, 1}));
    EXPECT_TRUE(recorder.Reports().empty());
    EXPECT_EQ(ReportedPosition(image.begin({2, 1, 1, 1})), (TnPoint{2, 1}));
    EXPECT_EQ(recorder.Reports(), (std::vector{SiteOf<ByRows<TnImage>>()}));
}

TEST(ReportedPosition, SpeaksForTheRestOfTheLine) {
    AssertionRecorder recorder;
    const TnImage image(new SparseStorage({4, 2}, 4, 0xFFFFFFFC), {4, 2});
    EXPECT_EQ(ReportedPosition(image.begin({0, 1, 2, 1})), (TnPoint{0, 1}));
    EXPECT_EQ(recorder.Reports(), (std::vector{SiteOf<ByRows<TnImage>>()}));
}

} // namespace
} // namespace tn::test
