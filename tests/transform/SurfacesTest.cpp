// Surfaces of all shapes: empty, a line, with content rectangles, without storage, in scopes.

#include "tests/port/sampling/SmallPictures.h"
#include "tests/support/PixelDiff.h"
#include "tests/transform/Calls.h"

#include "TnGraphics/port/StCoerceToTopFieldOnly.h"
#include "TnGraphics/port/StDisregardAlphaInGet.h"

#include <gtest/gtest.h>
#include <new>
#include <type_traits>

namespace tn::test {
namespace {

// With both types they lead to every way of sampling.
constexpr Matrix3x3 kMatrices[] = {Moving(0, 0), Scaling(3, 3), HardlyProjective(Moving(0, 0)), Scaling(0, 0)};

template <class KindsType> class TransformedSurfaces : public ::testing::Test {
protected:
    using Source = typename KindsType::Source;
    using Destination = typename KindsType::Destination;

    static constexpr auto kOld = static_cast<ValueOf<Destination>>(0x99999999);

    template <class Body> static void ForEachSampling(const Body& body) {
        for (const Matrix3x3& matrix : kMatrices) {
            for (const InterpolationType type : kBothTypes) {
                body(matrix, type);
            }
        }
    }

    // What a destination pixel holds where the source's outside pixel was written.
    static ValueOf<Destination> OutsideOf(const Source& source) {
        constexpr bool kIsToAlpha = !std::is_same_v<Source, Destination>;
        return static_cast<ValueOf<Destination>>(kIsToAlpha ? std::uint32_t{source.OutsidePixel().value} >> 24
                                                            : source.OutsidePixel().value);
    }

    Destination destination_ = [] {
        Destination destination({4, 3});
        SetAll(destination, kOld);
        return destination;
    }();
};
TYPED_TEST_SUITE(TransformedSurfaces, TransformKinds);

TYPED_TEST(TransformedSurfaces, AreOutsideEverywhereOfAnEmptySource) {
    this->ForEachSampling([this](const Matrix3x3& matrix, InterpolationType type) {
        for (const TnPoint size : {TnPoint{0, 0}, {0, 5}, {5, 0}}) {
            const typename TestFixture::Source source(size);
            SetAll(this->destination_, this->kOld);
            Transform(source, this->destination_, matrix, type);
            EXPECT_TRUE(SamePixels(UniformPicture(4, 3, this->OutsideOf(source)), this->destination_));
            EXPECT_EQ(source.Clients(), 0U);
        }
    });
}

TYPED_TEST(TransformedSurfaces, MayBeEmptyDestinations) {
    const typename TestFixture::Source source({3, 3}, true);
    this->ForEachSampling([&](const Matrix3x3& matrix, InterpolationType type) {
        for (const TnPoint size : {TnPoint{0, 0}, {0, 5}, {5, 0}}) {
            typename TestFixture::Destination destination(size);
            EXPECT_NO_THROW(Transform(source, destination, matrix, type));
            EXPECT_EQ(source.Clients() + destination.Clients(), 0U);
        }
    });
}

TYPED_TEST(TransformedSurfaces, OfASingleColumnOrRowAreThatAndTheOutside) {
    for (const TnPoint size : {TnPoint{1, 3}, {4, 1}, {1, 1}}) {
        typename TestFixture::Source source(size);
        SetAll(source, static_cast<ValueOf<typename TestFixture::Source>>(0x55555555));
        Transform(source, this->destination_, Moving(0, 0), kNearest);
        for (int y = 0; y < 3; ++y) {
            for (int x = 0; x < 4; ++x) {
                const bool isInside = x < size.x && y < size.y;
                EXPECT_EQ(PixelAt(this->destination_, x, y),
                          isInside ? static_cast<ValueOf<typename TestFixture::Destination>>(0x55555555)
                                   : this->OutsideOf(source));
            }
        }
    }
}

TYPED_TEST(TransformedSurfaces, HaveTheOutsideAroundASmallerSource) {
    typename TestFixture::Source source({2, 1});
    SetAll(source, static_cast<ValueOf<typename TestFixture::Source>>(0x55555555));
    Transform(source, this->destination_, Moving(-1, -1), kNearest);
    auto expected = UniformPicture(4, 3, this->OutsideOf(source));
    expected.At(1, 1) = expected.At(2, 1) = static_cast<ValueOf<typename TestFixture::Destination>>(0x55555555);
    EXPECT_TRUE(SamePixels(expected, this->destination_));
}

TYPED_TEST(TransformedSurfaces, NeedStorage) {
    this->ForEachSampling([this](const Matrix3x3& matrix, InterpolationType type) {
        const typename TestFixture::Source withoutStorage(nullptr, {3, 3});
        try {
            Transform(withoutStorage, this->destination_, matrix, type);
            ADD_FAILURE() << "nothing was thrown";
        } catch (const std::bad_alloc& exception) {
            EXPECT_STREQ(exception.what(), "bad allocation");
        }
        EXPECT_EQ(withoutStorage.Clients() + this->destination_.Clients(), 0U);
        EXPECT_TRUE(SamePixels(UniformPicture(4, 3, this->kOld), this->destination_));

        const typename TestFixture::Source source({3, 3}, true);
        typename TestFixture::Destination nowhere(nullptr, {3, 3});
        EXPECT_THROW(Transform(source, nowhere, matrix, type), std::bad_alloc);
        EXPECT_EQ(source.Clients() + nowhere.Clients(), 0U);
    });
}

// Contents

TYPED_TEST(TransformedSurfaces, AreTheirContents) {
    typename TestFixture::Source source({6, 5});
    PaintNumbers(source);
    source.Content({2, 1, 3, 3});
    typename TestFixture::Destination copied({4, 4});
    Transform(source, copied, Moving(0, 0), kNearest);
    const auto expected = ContentOf(copied);

    this->destination_.Content({1, 1, 2, 2});
    Transform(source, this->destination_, Moving(0, 0), kNearest);
    EXPECT_EQ(PixelAt(this->destination_, 0, 0), expected.At(0, 0));
    EXPECT_EQ(PixelAt(this->destination_, 1, 1), expected.At(1, 1));
    this->destination_.Content({0, 0, 4, 3});
    EXPECT_EQ(PixelAt(this->destination_, 0, 0), this->kOld);
    EXPECT_EQ(PixelAt(this->destination_, 3, 2), this->kOld);
    EXPECT_EQ(PixelAt(this->destination_, 3, 1), this->kOld);
    EXPECT_EQ(PixelAt(this->destination_, 1, 1), expected.At(0, 0));
}

TEST(TransformedContents, CountFromTheirCorners) {
    TnImage source({6, 5});
    PaintNumbers(source);
    source.Content({2, 1, 3, 3});
    const auto copied = Transformed<TnImage>(source, {3, 3}, Moving(0, 0), kNearest);
    EXPECT_EQ(copied.Get(0, 0), TnImagePixel(NumberOf(2, 1)));
    EXPECT_EQ(copied.Get(2, 2), TnImagePixel(NumberOf(4, 3)));
}

// Positions go on beside the content, up to the storage's size and in its block; boxes end with the content.
TEST(TransformedContents, GoOnBesideThemButInBoxes) {
    TnImage source({9, 9}, true);
    PaintNumbers(source);
    source.Content({0, 0, 5, 5});
    const auto copied = Transformed<TnImage>(source, {9, 9}, Moving(0, 0), kNearest);
    EXPECT_EQ(copied.Get(8, 8), TnImagePixel(NumberOf(8, 8)));
    const auto reduced = Transformed<TnImage>(source, {3, 3}, Scaling(3, 3), kSmooth);
    EXPECT_NE(reduced.Get(1, 1), source.OutsidePixel());
    EXPECT_EQ(reduced.Get(2, 1), source.OutsidePixel());
}

// Scopes

TEST(TransformInScopes, WritesTheScopesOutsidePixel) {
    TnImage source({1, 1});
    source.Set(0xFF112233, 0, 0);
    const StDisregardAlphaInGet scope(source, 0xAB000001);
    const auto image = Transformed<TnImage>(source, {2, 1}, Moving(0, 0), kNearest);
    EXPECT_EQ(image.Get(1, 0), TnImagePixel(0xAB000001));
    EXPECT_EQ(Transformed<TnMatte>(source, {2, 1}, Moving(0, 0), kNearest).Get(1, 0), TnMattePixel(0xAB));
}

TEST(TransformInScopes, DisregardsAlpha) {
    const auto source = SurfaceOf<TnImage>({{0xFFFF0000, 0x000000FF}});
    const Matrix3x3 matrix = Moving(0.5, 0);
    EXPECT_EQ(Transformed<TnImage>(source, {1, 1}, matrix, kSmooth).Get(0, 0), TnImagePixel(0x7FFF0000));
    const StDisregardAlphaInGet scope(source, 0);
    EXPECT_EQ(Transformed<TnImage>(source, {1, 1}, matrix, kSmooth).Get(0, 0), TnImagePixel(0x7F7F007F));
}

TEST(TransformInScopes, ReadsTheTopField) {
    TnImage source({5, 7});
    PaintNumbers(source);
    const StCoerceToTopFieldOnly field(source);
    const auto copied = Transformed<TnImage>(source, {5, 4}, Moving(0, 0), kNearest);
    EXPECT_EQ(copied.Get(4, 2), TnImagePixel(NumberOf(4, 4)));
    EXPECT_EQ(copied.Get(4, 3), source.OutsidePixel());
}

TEST(TransformInScopes, WritesTheTopField) {
    TnImage source({3, 2});
    PaintNumbers(source);
    TnImage destination({3, 5}, true);
    {
        const StCoerceToTopFieldOnly field(destination);
        Transform(source, destination, Moving(0, 0), kNearest);
    }
    EXPECT_EQ(destination.Get(1, 0), TnImagePixel(NumberOf(1, 0)));
    EXPECT_EQ(destination.Get(1, 1), TnImagePixel(0));
    EXPECT_EQ(destination.Get(1, 2), TnImagePixel(NumberOf(1, 1)));
    EXPECT_EQ(destination.Get(1, 4), TnImagePixel(0));
}

// To mattes

TEST(TransformOfImagesToMattes, IsOpaqueInsideAnOpaqueImage) {
    TnImage source({2, 2});
    SetAll(source, 0xFF123456);
    EXPECT_TRUE(SamePixels(SurfaceOf<TnMatte>({{255, 255, 0}, {255, 255, 0}}),
                           Transformed<TnMatte>(source, {3, 2}, Moving(0, 0), kSmooth)));
}

} // namespace
} // namespace tn::test
