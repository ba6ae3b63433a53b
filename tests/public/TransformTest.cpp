#include "tests/public/Pixels.h"

#include <gtest/gtest.h>

namespace tn::test {
namespace {

using Make = MakeMatrix<double>;

class PublicTransform : public testing::Test {
protected:
    PublicTransform() {
        for (int x = 0; x < 4; ++x) {
            image_.Set(0x40000000U * static_cast<unsigned>(x) + 0x3F000000U, x, 0);
            matte_.Set(static_cast<std::uint8_t>(10 + 10 * x), x, 0);
            matte_.Set(static_cast<std::uint8_t>(20 + 10 * x), x, 1);
        }
    }

    TnImage image_{{4, 1}};
    TnMatte matte_{{4, 2}};
    TnImage toImage_{{3, 1}};
    TnMatte toMatte_{{3, 1}};
};

TEST_F(PublicTransform, TakesImagesToImages) {
    Transform(image_, toImage_, Make::Translate(2, 0), InterpolationType::kNearest);
    EXPECT_EQ(PixelAt(toImage_, 0, 0), TnImagePixel(0xBF000000));
    EXPECT_EQ(PixelAt(toImage_, 1, 0), TnImagePixel(0xFF000000));
    EXPECT_EQ(PixelAt(toImage_, 2, 0), TnImagePixel(0x00FFFFFF));
    Transform(image_, toImage_, Make::Translate(0.5, 0), InterpolationType::kSmooth);
    EXPECT_EQ(PixelAt(toImage_, 0, 0), TnImagePixel(0x5F000000));
}

TEST_F(PublicTransform, TakesMattesToMattes) {
    Transform(matte_, toMatte_, Make::Translate(2, 0), InterpolationType::kNearest);
    EXPECT_EQ(PixelAt(toMatte_, 0, 0), TnMattePixel(30));
    EXPECT_EQ(PixelAt(toMatte_, 2, 0), TnMattePixel(0));
    Transform(matte_, toMatte_, Make::Translate(0.5, 0.5), InterpolationType::kSmooth);
    EXPECT_EQ(PixelAt(toMatte_, 0, 0), TnMattePixel(20));
    EXPECT_EQ(PixelAt(toMatte_, 2, 0), TnMattePixel(40));
}

TEST_F(PublicTransform, TakesTheAlphasOfImagesToMattes) {
    Transform(image_, toMatte_, Make::Translate(2, 0), InterpolationType::kNearest);
    EXPECT_EQ(PixelAt(toMatte_, 0, 0), TnMattePixel(0xBF));
    EXPECT_EQ(PixelAt(toMatte_, 2, 0), TnMattePixel(0));
    Transform(image_, toMatte_, Make::Translate(0.5, 0), InterpolationType::kSmooth);
    EXPECT_EQ(PixelAt(toMatte_, 0, 0), TnMattePixel(0x5F));
}

TEST_F(PublicTransform, ReducesByMeans) {
    TnImage large({8, 8});
    SetAll(large, 0xFF646464);
    Transform(large, toImage_, Make::Scale(3, 3), InterpolationType::kSmooth);
    EXPECT_EQ(PixelAt(toImage_, 1, 0), TnImagePixel(0xFF646464));
}

TEST_F(PublicTransform, ProjectsPictures) {
    const Matrix<double, 3, 3> halving = {{{1, 0, 2}, {0, 1, 0}, {0, 0.5, 2}}};
    for (const InterpolationType type : {InterpolationType::kNearest, InterpolationType::kSmooth}) {
        Transform(image_, toImage_, halving, type);
        EXPECT_EQ(PixelAt(toImage_, 0, 0), TnImagePixel(0x7F000000));
        EXPECT_EQ(PixelAt(toImage_, 2, 0), TnImagePixel(0xBF000000));
    }
    Transform(matte_, toMatte_, halving, InterpolationType::kSmooth);
    EXPECT_EQ(PixelAt(toMatte_, 1, 0), TnMattePixel(25));
}

} // namespace
} // namespace tn::test
