// A host that never draws pays nothing for the engines.
#include "tests/fakes/EngineTest.h"

#include "TnGraphics/ops/AlphaFilter.h"
#include "TnGraphics/ops/Compositing.h"
#include "TnGraphics/ops/Fills.h"

#include <gtest/gtest.h>

namespace tn::test {
namespace {

class RasterOnly : public EngineTest {};

// A call before there were engines would have failed the program.
TEST_F(RasterOnly, LoadingCallsNoEngine) { EXPECT_EQ(engines.Log(), Lines()); }

TEST_F(RasterOnly, OperationsOnPixelsCallNoEngine) {
    TnImage image({64, 64});
    ColorFill(image, image.Bounds(), TnColor(128, 1, 2, 3));
    TnImage other({64, 64}, true);
    BlendImage(image, 200, other, {3, 4});
    ProcessAlphaChannel(other, 1, 3);
    EXPECT_EQ(engines.Log(), Lines());
    EXPECT_FALSE(TheBinding().IsStarted());
}

} // namespace
} // namespace tn::test
