#include "tests/ops/alpha/Questions.h"
#include "tests/support/Cases.h"
#include "tests/support/Surfaces.h"

#include "TnGraphics/ops/AlphaAnalysis.h"

#include <gtest/gtest.h>
#include <limits>
#include <ostream>

namespace tn::test {

namespace model {

void PrintTo(const Inspection& inspection, std::ostream* stream) {
    *stream << (inspection.hasColor ? "color" : "no color") << (inspection.hasAlpha ? ", alpha" : ", no alpha");
}

} // namespace model

namespace {

using model::Inspection;

constexpr int kCases = 4000;
constexpr std::uint32_t kGrey = 0xFF808080;
constexpr Inspection kNothing = {false, false};
constexpr Inspection kColor = {true, false};
constexpr Inspection kAlpha = {false, true};
constexpr Inspection kBoth = {true, true};

TnImage Uniform(const TnPoint& size, std::uint32_t pixel) {
    TnImage image(size, false, &PollWatch::Proc);
    SetAll(image, pixel);
    return image;
}

// The flags are set before, so that all must be written.
Inspection Inspected(const TnImage& image, const TnRect& rect) {
    Inspection flags = kBoth;
    InspectImage(image, rect, flags.hasColor, flags.hasAlpha);
    return flags;
}

Inspection Inspected(const TnImage& image) { return Inspected(image, image.Bounds()); }

// Of a grey opaque image with one other pixel.
Inspection InspectedWith(std::uint32_t pixel) {
    TnImage image = Uniform({40, 3}, kGrey);
    SetPixel(image, 21, 1, pixel);
    return Inspected(image);
}

TEST(InspectImage, FindsNothingInOneGrey) { EXPECT_EQ(Inspected(Uniform({40, 3}, kGrey)), kNothing); }

TEST(InspectImage, FindsNothingInGreysBelowWhite) {
    EXPECT_EQ(InspectedWith(0xFFFEFEFE), kNothing);
    EXPECT_EQ(InspectedWith(0xFF000000), kNothing);
    EXPECT_EQ(Inspected(Uniform({3, 3}, 0x00343434)), kNothing);
}

TEST(InspectImage, TakesWhiteForAColorUnlessItIsTransparent) {
    EXPECT_EQ(InspectedWith(0xFFFFFFFF), kColor);
    EXPECT_EQ(InspectedWith(0x01FFFFFF), kBoth);
    EXPECT_EQ(InspectedWith(0x00FFFFFF), kAlpha);
    EXPECT_EQ(Inspected(Uniform({3, 3}, 0x00FFFFFF)), kNothing);
    EXPECT_EQ(Inspected(Uniform({3, 3}, 0x01FFFFFF)), kColor);
}

TEST(InspectImage, FindsChannelsThatDiffer) {
    EXPECT_EQ(InspectedWith(0xFF818080), kColor);
    EXPECT_EQ(InspectedWith(0xFF808180), kColor);
    EXPECT_EQ(InspectedWith(0xFF808081), kColor);
    EXPECT_EQ(InspectedWith(0xFF818180), kColor);
    EXPECT_EQ(InspectedWith(0xFFFF00FF), kColor);
}

TEST(InspectImage, FindsColorsOfTransparentPixelsToo) { EXPECT_EQ(Inspected(Uniform({3, 3}, 0x00FF0000)), kColor); }

TEST(InspectImage, FindsAlphasThatDiffer) {
    EXPECT_EQ(InspectedWith(0xFE808080), kAlpha);
    EXPECT_EQ(InspectedWith(0x00808080), kAlpha);
    EXPECT_EQ(InspectedWith(0x00818080), kBoth);
}

TEST(InspectImage, FindsNoAlphaInAUniformOne) {
    EXPECT_EQ(Inspected(Uniform({40, 3}, 0x80808080)), kNothing);
    EXPECT_EQ(Inspected(Uniform({40, 3}, 0x00808080)), kNothing);
}

TEST(InspectImage, LooksOnlyIntoTheRectangle) {
    TnImage image = Uniform({40, 5}, kGrey);
    SetPixel(image, 0, 0, 0x00FF0000);
    SetPixel(image, 39, 4, 0x00FF0000);
    EXPECT_EQ(Inspected(image, {1, 0, 39, 4}), kNothing);
    EXPECT_EQ(Inspected(image, {0, 1, 39, 4}), kNothing);
    EXPECT_EQ(Inspected(image, {1, 1, 39, 4}), kBoth);
    EXPECT_EQ(Inspected(image, {0, 0, 1, 1}), kColor);
}

// What is left of the rectangle begins with the pixel that the others are compared with.
TEST(InspectImage, ComparesAlphasWithTheFirstPixelOfTheClippedRectangle) {
    TnImage image = Uniform({4, 4}, 0x40808080);
    SetPixel(image, 0, 0, kGrey);
    EXPECT_EQ(Inspected(image, {1, 1, 3, 3}), kNothing);
    EXPECT_EQ(Inspected(image, {-7, -7, 11, 11}), kAlpha);
    EXPECT_EQ(Inspected(image, {-7, -7, 8, 8}), kNothing);
}

TEST(InspectImage, ComparesAllRowsWithTheFirst) {
    TnImage image = Uniform({4, 2}, kGrey);
    for (int x = 0; x < 4; ++x) {
        SetPixel(image, x, 1, 0xFE808080);
    }
    EXPECT_EQ(Inspected(image), kAlpha);
}

TEST(InspectImage, LooksIntoTheContent) {
    TnImage image = Uniform({9, 9}, 0x00FF0000);
    image.Content({3, 3, 4, 4});
    SetAll(image, kGrey);
    EXPECT_EQ(Inspected(image, {-3, -3, 9, 9}), kNothing);
}

TEST(InspectImage, FindsNothingWithoutPixels) {
    constexpr int kHighest = std::numeric_limits<int>::max();
    const TnImage image = Uniform({4, 4}, 0xFFFF0000);
    for (const TnRect rect :
         {TnRect{0, 0, 0, 0}, {0, 0, 4, 0}, {4, 0, 1, 1}, {2, 2, -1, -1}, {kHighest, 0, kHighest, 4}}) {
        EXPECT_EQ(Inspected(image, rect), kNothing);
    }
    for (const TnPoint size : {TnPoint{0, 0}, {0, 9}, {9, 0}}) {
        EXPECT_EQ(Inspected(TnImage(size)), kNothing);
    }
}

TEST(InspectImage, StopsPollingOnceBothFlagsAreSet) {
    const auto pollsWithBothIn = [](int row) {
        TnImage image = Uniform({5, 100}, kGrey);
        SetPixel(image, 1, row, 0x80FF0000);
        return PollsDuring([&] { EXPECT_EQ(Inspected(image), kBoth); });
    };
    EXPECT_EQ(pollsWithBothIn(0), 0);
    EXPECT_EQ(pollsWithBothIn(31), 0);
    EXPECT_EQ(pollsWithBothIn(32), 1);
    EXPECT_EQ(pollsWithBothIn(99), 3);
}

// The pixel that decides is the last one: no step leads from it into the next row.
TEST(InspectImage, TakesNoStepFromThePixelThatSetsTheSecondFlag) {
    TnImage image = Uniform({5, 100}, kGrey);
    SetPixel(image, 4, 31, 0x80FF0000);
    EXPECT_EQ(PollsDuring([&] { EXPECT_EQ(Inspected(image), kBoth); }), 0);
}

TEST(InspectImage, PollsToTheEndWithOneFlagSet) {
    for (const std::uint32_t pixel : {0xFFFF0000U, 0x80808080U}) {
        TnImage image = Uniform({5, 64}, kGrey);
        SetPixel(image, 1, 0, pixel);
        EXPECT_EQ(PollsDuring([&] { Inspected(image); }), 2);
    }
}

TEST(InspectImage, LeavesTheFlagsOfTheRowsBeforeWhenItIsCancelled) {
    TnImage image = Uniform({5, 100}, kGrey);
    SetPixel(image, 4, 31, 0xFFFF0000);
    SetPixel(image, 0, 32, 0x80808080);
    Inspection flags = kAlpha;
    const CancelAtPoll cancel(1);
    EXPECT_THROW(InspectImage(image, image.Bounds(), flags.hasColor, flags.hasAlpha), Cancelled);
    EXPECT_EQ(flags, kColor);
    EXPECT_EQ(image.Clients(), 0U);
}

// A picture of greys and one alpha, with some pixels that are not.
class GreyPicture : public SparsePicture<TnImage> {
public:
    GreyPicture(Random& random, std::uint32_t alpha)
        : SparsePicture(
              random, [&random, alpha] { return alpha << 24 | Grey(random); },
              [&random, alpha] { return (random.OneIn(2) ? alpha : random.Byte()) << 24 | AnyColor(random); }) {}

private:
    static std::uint32_t Grey(Random& random) { return static_cast<std::uint32_t>(random.Between(0, 254)) * 0x010101; }
    static std::uint32_t AnyColor(Random& random) {
        switch (random.Between(0, 3)) {
        case 0:
            return 0x00FFFFFF;
        case 1:
            return random.Word() & 0x00FFFFFF;
        case 2: // grey but for one bit
            return Grey(random) ^ 1U << random.Between(0, 23);
        default:
            return Grey(random);
        }
    }
};

TEST(InspectImage, EqualsItsModelInRandomPictures) {
    ForEachCase(kCases, [](Random& random) {
        GreyPicture picture(random, random.Alpha());
        const TnRect rect = random.Rect(picture.Surface().Size());
        ExpectAnswer(
            picture, [&](const TnImage& image) { return Inspected(image, rect); },
            model::Inspect(picture.Snapshot(), rect));
    });
}

} // namespace
} // namespace tn::test
