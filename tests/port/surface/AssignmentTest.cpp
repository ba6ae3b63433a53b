#include "tests/port/SurfaceKinds.h"

#include <typeinfo>

namespace tn::test {
namespace {

template <class SurfaceType> class SurfaceAssignment : public testing::Test {
protected:
    StorageProbe probe_;
};
TYPED_TEST_SUITE(SurfaceAssignment, SurfaceKinds);

TYPED_TEST(SurfaceAssignment, TakesThePixelsIntoABlockOfItsOwn) {
    const TypeParam source({4, 3});
    Paint(*source.Storage());
    TypeParam target({9, 9});
    target = source;
    EXPECT_NE(target.Storage(), source.Storage());
    EXPECT_EQ(BytesOf(*target.Storage()), BytesOf(*source.Storage()));
}

TYPED_TEST(SurfaceAssignment, TakesTheSizeContentAndRowBytes) {
    TypeParam source({10, 9});
    source.Content({2, 3, 4, 5});
    TypeParam target;
    target = source;
    EXPECT_EQ(target.StorageSize(), (TnPoint{10, 9}));
    EXPECT_EQ(target.Content(), (TnRect{2, 3, 4, 5}));
    EXPECT_EQ(target.RowBytes(), OwnRowBytes<TypeParam>(10));
    EXPECT_EQ(target.Storage()->contentOrigin, TnPoint{});
}

TYPED_TEST(SurfaceAssignment, ReturnsTheTarget) {
    const TypeParam source({4, 3});
    TypeParam target;
    EXPECT_EQ(&(target = source), &target);
}

TYPED_TEST(SurfaceAssignment, DeletesTheOldStorage) {
    TypeParam target(NewRecordingStorage<TypeParam>(this->probe_, {3, 2}), {3, 2});
    target = TypeParam({4, 3});
    EXPECT_EQ(this->probe_.destructions, 1);
}

TYPED_TEST(SurfaceAssignment, ToItselfDoesNothing) {
    TypeParam surface(NewRecordingStorage<TypeParam>(this->probe_, {3, 2}), {3, 2});
    surface.Content({1, 1, 2, 1});
    surface.AddClient();
    const void* pixelBase = surface.PixelBase();
    const TypeParam& same = surface;
    surface = same;
    EXPECT_EQ(this->probe_.destructions, 0);
    EXPECT_EQ(surface.Content(), (TnRect{1, 1, 2, 1}));
    EXPECT_EQ(surface.Clients(), 1U);
    EXPECT_EQ(surface.PixelBase(), pixelBase);
    surface.RemoveClient();
}

TYPED_TEST(SurfaceAssignment, KeepsTheTargetsOutsidePixel) {
    const TypeParam own({4, 3});
    TypeParam overGiven(nullptr, {0, 0});
    overGiven = own;
    EXPECT_EQ(overGiven.OutsidePixel(), KindOf<TypeParam>::kOutsideGivenStorage);

    TypeParam target({4, 3});
    target = TypeParam(nullptr, {0, 0});
    EXPECT_EQ(target.OutsidePixel(), KindOf<TypeParam>::kOutsideOwnStorage);
}

TYPED_TEST(SurfaceAssignment, KeepsTheTargetsClientsAndNotTheSources) {
    const TypeParam source({4, 3});
    source.AddClient();
    source.AddClient();
    TypeParam target({4, 3});
    target.AddClient();
    target = source;
    EXPECT_EQ(target.Clients(), 1U);
    EXPECT_EQ(source.Clients(), 2U);
    EXPECT_NE(source.PixelBase(), nullptr);
    source.RemoveClient();
    source.RemoveClient();
    target.RemoveClient();
}

TYPED_TEST(SurfaceAssignment, FromAnEmptySurfaceEmpties) {
    TypeParam target(NewRecordingStorage<TypeParam>(this->probe_, {3, 2}), {3, 2});
    target = TypeParam();
    EXPECT_EQ(this->probe_.destructions, 1);
    EXPECT_EQ(target.Storage(), nullptr);
    EXPECT_EQ(target.RowBytes(), 0U);
    EXPECT_EQ(target.StorageSize(), TnPoint{});
    EXPECT_EQ(target.Content(), TnRect{});
}

TYPED_TEST(SurfaceAssignment, FromASizedSurfaceWithoutStorageHasNone) {
    TypeParam target({4, 3});
    target = TypeParam(nullptr, {3, 2});
    EXPECT_EQ(target.StorageSize(), (TnPoint{3, 2}));
    EXPECT_EQ(target.RowBytes(), 0U);
    ExpectCannotBeLocked(target);
}

TYPED_TEST(SurfaceAssignment, FromStorageOfACallersOwnKindIsRefused) {
    const TypeParam source(NewRecordingStorage<TypeParam>(this->probe_, {3, 2}), {3, 2});
    TypeParam target({4, 3});
    EXPECT_THROW(target = source, std::bad_cast);
    EXPECT_EQ(target.StorageSize(), (TnPoint{3, 2}));
    EXPECT_EQ(target.Content(), (TnRect{0, 0, 3, 2}));
    ExpectCannotBeLocked(target);
}

TYPED_TEST(SurfaceAssignment, MayBeRepeatedAfterARefusal) {
    const TypeParam refused(NewRecordingStorage<TypeParam>(this->probe_, {3, 2}), {3, 2});
    TypeParam target({4, 3});
    EXPECT_THROW(target = refused, std::bad_cast);
    target = TypeParam({5, 5});
    EXPECT_EQ(target.StorageSize(), (TnPoint{5, 5}));
    ExpectCanBeLocked(target);
}

} // namespace
} // namespace tn::test
