// Operations on distinct surfaces in several threads at once. Nothing of the library's is shared by them but the row
// kernels in force.

#include "tests/models/EraseModels.h"
#include "tests/models/FillModels.h"
#include "tests/support/Pictures.h"
#include "tests/support/PixelDiff.h"
#include "tests/support/Threads.h"

#include "TnGraphics/ops/Erase.h"
#include "TnGraphics/ops/Fills.h"

#include <gtest/gtest.h>
#include <string>

namespace tn::test {
namespace {

constexpr int kRounds = 50;

// Applies every operation to an image and to its model.
void ApplyToImage(Random& random, TnImage& image, ModelImage& expected) {
    const TnRect rect = random.Rect(image.Size());
    const TnRect kept = random.Rect(image.Size());
    const TnColor ground = random.Color();
    const TnColor line = random.Color();
    const int percent = random.Between(-200, 200);

    SetOpacity(image, percent);
    BlendInColor(image, ground, false);
    AlphaFill(image, rect, line.alpha);
    BlendInColor(image, line, true);
    XFill(image, rect, ground, line);
    CrossHatchFill(image, kept, line, ground, 3);
    EraseOutside<TnImage>(image, kept);
    BlendInColorAndFillAlpha(image, ground, line.alpha);
    ColorFill(image, rect, line);

    model::SetOpacity(expected, percent);
    model::BlendInColor(expected, ground, false);
    model::AlphaFill(expected, rect, line.alpha);
    model::BlendInColor(expected, line, true);
    model::XFill(expected, rect, ground, line);
    model::CrossHatchFill(expected, kept, line, ground, 3);
    model::EraseOutside(expected, kept);
    model::BlendInColorAndFillAlpha(expected, ground, line.alpha);
    model::ColorFill(expected, rect, line);
}

void ApplyToMatte(Random& random, TnMatte& matte, ModelMatte& expected) {
    const TnRect rect = random.Rect(matte.Size());
    const TnRect kept = random.Rect(matte.Size());

    AlphaFill(matte, rect, 200);
    PrepareMargin(matte, kept);

    model::AlphaFill(expected, rect, 200);
    model::EraseOutside(expected, kept);
}

template <class SurfaceType, class Apply> std::string FirstDifference(Random& random, const Apply& apply) {
    Picture<SurfaceType> picture(random);
    auto expected = picture.Snapshot();
    apply(random, picture.Surface(), expected);
    return SamePixels(expected, picture.Snapshot()).message();
}

TEST(DistinctSurfaces, CanBeWorkedOnInSeveralThreadsAtOnce) {
    ExpectNoFindingsInThreads(kRounds, [](Random& random) {
        return FirstDifference<TnImage>(random, &ApplyToImage) + FirstDifference<TnMatte>(random, &ApplyToMatte);
    });
}

} // namespace
} // namespace tn::test
