// Every overload and every instance of a template, called once by its name.

#include "tests/public/Pixels.h"
#include "tests/support/CancelAtPoll.h"

#include <gtest/gtest.h>
#include <vector>

namespace tn::test {
namespace {

constexpr TnPoint kAt = {1, 0};
constexpr TnFixedPoint kHalfRight = {{65536 + 32768}, {0}};
constexpr TnRect kAll = {0, 0, 3, 1};
constexpr TnColorTransform kInverted = {{-256, 255}, {-256, 255}, {-256, 255}, {256, 0}};

// A pixel of half-transparent black is put at the middle of three pixels.
class PublicCompositing : public testing::Test {
protected:
    PublicCompositing() {
        SetAll(black_, 0x80000000);
        SetAll(image_, 0xFFFFFFFF);
        SetAll(value_, 0x40);
        SetAll(matte_, 0xC0);
    }

    // The middle pixel, when the others are what they are expected to be.
    TnImagePixel Middle(TnImagePixel beside = 0xFFFFFFFF) {
        EXPECT_EQ(PixelAt(image_, 0, 0), beside);
        EXPECT_EQ(PixelAt(image_, 2, 0), beside);
        return PixelAt(image_, 1, 0);
    }

    TnMattePixel MiddleOfMatte(TnMattePixel beside = 0xC0) {
        EXPECT_EQ(PixelAt(matte_, 0, 0), beside);
        EXPECT_EQ(PixelAt(matte_, 2, 0), beside);
        return PixelAt(matte_, 1, 0);
    }

    TnImage black_{{1, 1}};
    TnImage image_{{3, 1}};
    TnMatte value_{{1, 1}};
    TnMatte matte_{{3, 1}};
};

TEST_F(PublicCompositing, TnCopyBetweenImages) {
    TnCopy<TnImage, TnImage>(black_, image_, kAt);
    EXPECT_EQ(Middle(), TnImagePixel(0x80000000));
}

TEST_F(PublicCompositing, TnCopyBetweenImagesInAClip) {
    TnCopy<TnImage, TnImage>(black_, image_, kAt, {1, 0, 0, 1});
    EXPECT_EQ(Middle(), TnImagePixel(0xFFFFFFFF));
    TnCopy<TnImage, TnImage>(black_, image_, kAt, {1, 0, 1, 1});
    EXPECT_EQ(Middle(), TnImagePixel(0x80000000));
}

TEST_F(PublicCompositing, TnCopyWithATransform) {
    TnCopy(black_, kInverted, 128, image_, kAt, kAll);
    EXPECT_EQ(Middle(), TnImagePixel(0x40FFFFFF));
}

TEST_F(PublicCompositing, TnCopyBetweenMattes) {
    TnCopy<TnMatte, TnMatte>(value_, matte_, kAt);
    EXPECT_EQ(MiddleOfMatte(), TnMattePixel(0x40));
}

TEST_F(PublicCompositing, TnCopyFromAnImageToAMatte) {
    TnCopy<TnImage, TnMatte>(black_, matte_, kAt);
    EXPECT_EQ(MiddleOfMatte(), TnMattePixel(0x80));
    TnCopyAlpha<TnImage, TnMatte>(black_, matte_, {2, 0});
    EXPECT_EQ(PixelAt(matte_, 2, 0), TnMattePixel(0x80));
}

TEST_F(PublicCompositing, TnCopyFromAMatteToAnImage) {
    TnCopy<TnMatte, TnImage>(value_, image_, kAt);
    EXPECT_EQ(Middle(), TnImagePixel(0x40FFFFFF));
    TnCopyAlpha<TnMatte, TnImage>(value_, image_, {2, 0});
    EXPECT_EQ(PixelAt(image_, 2, 0), TnImagePixel(0x40FFFFFF));
}

TEST_F(PublicCompositing, TnCopyColor) {
    TnCopyColor(black_, image_, kAt);
    EXPECT_EQ(Middle(), TnImagePixel(0xFF000000));
}

TEST_F(PublicCompositing, CopyLuminenceToAlpha) {
    SetAll(black_, 0xFFFFFFFF);
    CopyLuminenceToAlpha<TnImage>(black_, image_, kAt);
    EXPECT_EQ(Middle(), TnImagePixel(0x00FFFFFF));
    CopyLuminenceToAlpha<TnMatte>(black_, matte_, kAt);
    EXPECT_EQ(MiddleOfMatte(), TnMattePixel(0));
}

TEST_F(PublicCompositing, CopyAlphaToLuminence) {
    CopyAlphaToLuminence<TnMatte>(value_, image_, kAt);
    EXPECT_EQ(Middle(), TnImagePixel(0xFFBFBFBF));
}

TEST_F(PublicCompositing, TnCopyMapColor) {
    const std::vector<TnImagePixel> from = {0xFF000000};
    const std::vector<TnImagePixel> to = {0xFF0000FF, 0xFF00FF00};
    TnCopyMapColor(black_, image_, kAt, from, to);
    EXPECT_EQ(Middle(), TnImagePixel(0xFF0000FF));
    SetAll(black_, 0xFFFF0000);
    TnCopyMapColor(black_, image_, kAt, from, to);
    EXPECT_EQ(Middle(), TnImagePixel(0xFF00FF00));
}

TEST_F(PublicCompositing, BlendImage) {
    BlendImage(black_, 255, image_, kAt);
    EXPECT_EQ(Middle(), TnImagePixel(0xFF7F7F7F));
}

TEST_F(PublicCompositing, BlendImageWithATransform) {
    SetAll(image_, 0xFF000000);
    BlendImage(black_, kInverted, 255, image_, kAt, kAll);
    EXPECT_EQ(Middle(0xFF000000), TnImagePixel(0xFF808080));
}

// The first column of the source keeps half of its alpha, 64, and is drawn at the whole part of the offset.
TEST_F(PublicCompositing, BlendImageAtASubPixelOffset) {
    BlendImage(black_, {}, 255, image_, kHalfRight, kAll);
    EXPECT_EQ(Middle(), TnImagePixel(0xFFBFBFBF));
}

TEST_F(PublicCompositing, PreBlendImageAndAlpha) {
    SetAll(image_, 0x40FFFFFF);
    PreBlendImageAndAlpha<TnImage>(black_, 255, image_, kAt);
    EXPECT_EQ(Middle(0x40FFFFFF), TnImagePixel(0xA0333333));
}

TEST_F(PublicCompositing, PreBlendImageAndAlphaWithATransform) {
    SetAll(image_, 0);
    PreBlendImageAndAlpha<TnImage>(black_, kInverted, 255, image_, kAt, kAll);
    EXPECT_EQ(Middle(0), TnImagePixel(0x80FFFFFF));
}

TEST_F(PublicCompositing, PreBlendImageAndAlphaAtASubPixelOffset) {
    SetAll(image_, 0);
    PreBlendImageAndAlpha<TnImage>(black_, kInverted, 255, image_, kHalfRight, kAll);
    EXPECT_EQ(Middle(0), TnImagePixel(0x40FFFFFF));
}

TEST_F(PublicCompositing, IntersectAlpha) {
    IntersectAlpha(black_, 255, image_, kAt);
    EXPECT_EQ(Middle(0), TnImagePixel(0x807F7F7F));
}

TEST_F(PublicCompositing, IntersectAlphaWithATransform) {
    IntersectAlpha(black_, kInverted, 255, image_, kAt, kAll);
    EXPECT_EQ(Middle(0), TnImagePixel(0x80FFFFFF));
}

TEST_F(PublicCompositing, IntersectAlphaAtASubPixelOffset) {
    IntersectAlpha(black_, {}, 255, image_, kHalfRight, kAll);
    EXPECT_EQ(Middle(0), TnImagePixel(0x40BFBFBF));
}

TEST_F(PublicCompositing, IntersectAlphaOfMattes) {
    IntersectAlpha(value_, 255, matte_, kAt);
    EXPECT_EQ(MiddleOfMatte(0), TnMattePixel(0x40));
    IntersectAlpha(value_, 128, image_, kAt);
    EXPECT_EQ(Middle(0), TnImagePixel(0x20FFFFFF));
}

TEST_F(PublicCompositing, IntersectAlphaNoColor) {
    IntersectAlphaNoColor(black_, 255, image_, kAt);
    EXPECT_EQ(Middle(0), TnImagePixel(0x80FFFFFF));
}

TEST_F(PublicCompositing, IntersectAlphaNoColorWithATransform) {
    IntersectAlphaNoColor(black_, kInverted, 128, image_, kAt, {});
    EXPECT_EQ(Middle(0), TnImagePixel(0x40FFFFFF));
}

TEST_F(PublicCompositing, IntersectAlphaNoColorAtASubPixelOffset) {
    IntersectAlphaNoColor(black_, kInverted, 128, image_, kHalfRight, {});
    EXPECT_EQ(Middle(0), TnImagePixel(0x40FFFFFF));
}

TEST_F(PublicCompositing, SubtractAlpha) {
    SubtractAlpha(black_, 255, image_, kAt);
    EXPECT_EQ(Middle(), TnImagePixel(0x7FFFFFFF));
}

TEST_F(PublicCompositing, SubtractAlphaWithATransform) {
    SubtractAlpha(black_, kInverted, 128, image_, kAt, kAll);
    EXPECT_EQ(Middle(), TnImagePixel(0xBFFFFFFF));
}

TEST_F(PublicCompositing, SubtractAlphaAtASubPixelOffset) {
    SubtractAlpha(black_, {}, 255, image_, kHalfRight, kAll);
    EXPECT_EQ(Middle(), TnImagePixel(0xBFFFFFFF));
}

TEST_F(PublicCompositing, XORAlpha) {
    XORAlpha(black_, 255, image_, kAt);
    EXPECT_EQ(Middle(), TnImagePixel(0x7F7F7F7F));
}

TEST_F(PublicCompositing, XORAlphaWithATransform) {
    SetAll(image_, 0xFF000000);
    XORAlpha(black_, kInverted, 255, image_, kAt, kAll);
    EXPECT_EQ(Middle(0xFF000000), TnImagePixel(0x7F808080));
}

TEST_F(PublicCompositing, XORAlphaAtASubPixelOffset) {
    XORAlpha(black_, {}, 255, image_, kHalfRight, kAll);
    EXPECT_EQ(Middle(), TnImagePixel(0xBFBFBFBF));
}

TEST(PublicCompositingCancelled, ReachesTheHostFromEitherSurface) {
    for (const bool isSourcePolled : {true, false}) {
        TnImage source({5, 40}, true, isSourcePolled ? &PollWatch::Proc : nullptr);
        TnImage destination({5, 40}, true, isSourcePolled ? nullptr : &PollWatch::Proc);
        const auto expectCancelled = [](const auto& operation) {
            const CancelAtPoll cancel(1);
            EXPECT_THROW(operation(), Cancelled);
        };
        expectCancelled([&] { BlendImage(source, 255, destination, kAt); });
        expectCancelled([&] { XORAlpha(source, {}, 255, destination, kHalfRight, destination.Bounds()); });
        expectCancelled([&] { TnCopyMapColor(source, destination, kAt, {}, {0x12345678}); });
        EXPECT_EQ(source.Clients() + destination.Clients(), 0U);
    }
}

} // namespace
} // namespace tn::test
