#include "tests/models/CompositingModels.h"
#include "tests/ops/compositing/Forms.h"
#include "tests/ops/compositing/OnePixel.h"
#include "tests/support/Cases.h"
#include "tests/support/PairDifferential.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <iterator>

namespace tn::test {
namespace {

using Colors = std::vector<TnImagePixel>;

constexpr std::uint32_t kRed = 0xFFFF0000;
constexpr std::uint32_t kGreen = 0xFF00FF00;
constexpr std::uint32_t kBlue = 0xFF0000FF;
constexpr std::uint32_t kOld = 0x11223344;
constexpr int kCases = 2000;

std::uint32_t Mapped(std::uint32_t source, const Colors& from, const Colors& to) {
    return OnPixel(source, kOld, [&](const TnImage& s, TnImage& d) { TnCopyMapColor(s, d, {0, 0}, from, to); });
}

TEST(TnCopyMapColor, TurnsRedBlueAndEverythingElseIntoTheLastColor) {
    EXPECT_EQ(Mapped(kRed, {kRed}, {kBlue, kGreen}), kBlue);
    EXPECT_EQ(Mapped(kBlue, {kRed}, {kBlue, kGreen}), kGreen);
    EXPECT_EQ(Mapped(kGreen, {kRed}, {kBlue, kGreen}), kGreen);
    EXPECT_EQ(Mapped(0xFFFE0000, {kRed}, {kBlue, kGreen}), kGreen);
}

TEST(TnCopyMapColor, DoesNotCompareAlphas) {
    EXPECT_EQ(Mapped(0x00FF0000, {kRed}, {kBlue, kGreen}), kBlue);
    EXPECT_EQ(Mapped(kRed, {0x12FF0000}, {kBlue, kGreen}), kBlue);
}

TEST(TnCopyMapColor, StoresTheReplacementWithItsAlpha) {
    EXPECT_EQ(Mapped(kRed, {kRed}, {0x00123456, kGreen}), 0x00123456U);
    EXPECT_EQ(Mapped(kBlue, {kRed}, {kGreen, 0x7F123456}), 0x7F123456U);
}

TEST(TnCopyMapColor, TakesTheFirstOfEqualColors) {
    EXPECT_EQ(Mapped(kRed, {0x00FF0000, kRed, kRed}, {kBlue, kGreen, kOld, kRed}), kBlue);
}

TEST(TnCopyMapColor, KeepsTheLastColorForBothAMatchAndTheRestWhenTheListsAreEquallyLong) {
    EXPECT_EQ(Mapped(kRed, {kGreen, kRed}, {kBlue, kGreen}), kGreen);
    EXPECT_EQ(Mapped(kBlue, {kGreen, kRed}, {kBlue, kGreen}), kGreen);
    EXPECT_EQ(Mapped(kGreen, {kGreen, kRed}, {kBlue, kGreen}), kBlue);
}

TEST(TnCopyMapColor, MakesEverythingTheLastColorWithoutColorsToFind) {
    EXPECT_EQ(Mapped(kRed, {}, {kBlue}), kBlue);
    EXPECT_EQ(Mapped(kRed, {}, {kBlue, kGreen}), kGreen);
}

TEST(TnCopyMapColor, ChangesNothingWithoutReplacements) {
    EXPECT_EQ(Mapped(kRed, {}, {}), kOld);
    EXPECT_EQ(Mapped(kRed, {kRed}, {}), kOld);
}

TEST(TnCopyMapColor, CountsAMatchThatHasNoReplacementAsNone) {
    EXPECT_EQ(Mapped(kRed, {kGreen, kBlue, kRed}, {kRed, kBlue}), kBlue);
    EXPECT_EQ(Mapped(kRed, {kGreen, kRed, kRed}, {kBlue}), kBlue);
    EXPECT_EQ(Mapped(kGreen, {kGreen, kRed}, {kRed}), kRed);
}

TEST(TnCopyMapColor, RemembersNothingOfTheListsOfTheCallBefore) {
    EXPECT_EQ(Mapped(kRed, {kRed, kGreen}, {kBlue, kBlue, kGreen}), kBlue);
    EXPECT_EQ(Mapped(kRed, {kGreen}, {kRed, kOld}), kOld);
    EXPECT_EQ(Mapped(kRed, {}, {kGreen}), kGreen);
}

TEST(TnCopyMapColor, DoesNotTouchTheListsItIsGiven) {
    const Colors from = {kRed, kGreen};
    const Colors to = {kBlue, kOld};
    Mapped(kRed, from, to);
    EXPECT_EQ(from, (Colors{kRed, kGreen}));
    EXPECT_EQ(to, (Colors{kBlue, kOld}));
}

// Colours that the source has, in any alpha, and others.
Colors RandomColors(Random& random, const ModelImage& source) {
    Colors colors(static_cast<std::size_t>(random.Between(0, 12)));
    for (TnImagePixel& color : colors) {
        color = random.Pixel();
        if (!source.values.empty() && !random.OneIn(4)) {
            const auto last = static_cast<std::int32_t>(source.values.size()) - 1;
            color = source.values[static_cast<std::size_t>(random.Between(0, last))] ^ random.Word() << 24;
        }
    }
    return colors;
}

const ImageForm& MapForm() {
    return *std::find_if(std::begin(kImageForms), std::end(kImageForms),
                         [](const ImageForm& form) { return form.combination == kMapColor; });
}

// Few colours, so that many pixels match.
void Posterise(Picture<TnImage>& picture) {
    ModelImage pixels = picture.Snapshot();
    for (std::uint32_t& pixel : pixels.values) {
        pixel &= 0xFF808080;
    }
    picture.Restore(pixels);
}

TEST(TnCopyMapColor, EqualsItsModelInRandomPicturesOfFewColors) {
    ForEachCase(kCases, [](Random& random) {
        PairOfPictures<TnImage, TnImage> pair(random);
        Posterise(pair.source);
        const TnPoint sourceSize = pair.source.Surface().Size();
        const TnPoint size = pair.destination.Surface().Size();
        Request request = RandomRequest(random, sourceSize, size);
        request.from = RandomColors(random, pair.source.Snapshot());
        request.to = RandomColors(random, pair.source.Snapshot());
        request.to.push_back(random.Pixel());
        const model::Compositing call = MapForm().CallFor(request, size);
        ExpectPairLikeModel(
            pair, [&](const TnImage& source, TnImage& destination) { MapForm().run(source, destination, request); },
            [&](ModelImage& source, ModelImage& destination, int poll) {
                model::Composite(call, model::PlaneOf(source), model::PlaneOf(destination), poll);
            },
            model::PollsOf(call, sourceSize, size));
    });
}

// A cancel procedure may call the operation again, with lists so long that the library's own must be moved.
TEST(TnCopyMapColor, CanBeCalledFromItsCancelProcedure) {
    constexpr std::size_t kManyColors = 10000;
    TnImage source({9, 100}, false, &PollWatch::Proc);
    TnImage destination({9, 100});
    SetAll(source, kRed);
    SetAll(destination, kOld);
    const PollWatch watch([&](int) {
        const Colors many(kManyColors, kBlue);
        EXPECT_EQ(Mapped(kRed, many, many), kBlue);
    });
    TnCopyMapColor(source, destination, {0, 0}, {kRed}, {kGreen});
    EXPECT_EQ(watch.Polls(), 3);
    for (int y = 0; y < 100; ++y) {
        const std::uint32_t pixel = PixelAt(destination, 4, y);
        EXPECT_TRUE(pixel == kGreen || (y >= 32 && pixel == kBlue)) << "in row " << y;
    }
}

TEST(TnCopyMapColor, CanBeCalledFromItsCancelProcedureWithoutColors) {
    TnImage source({9, 40}, false, &PollWatch::Proc);
    TnImage destination({9, 40});
    SetAll(source, kRed);
    SetAll(destination, kOld);
    const PollWatch watch([&](int) { Mapped(kRed, {}, {}); });
    TnCopyMapColor(source, destination, {0, 0}, {kRed}, {kGreen});
    EXPECT_EQ(PixelAt(destination, 8, 31), TnImagePixel(kGreen));
    const TnImagePixel afterwards = PixelAt(destination, 8, 32);
    EXPECT_TRUE(afterwards == kGreen || afterwards == kOld);
}

} // namespace
} // namespace tn::test
