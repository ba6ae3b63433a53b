// How errors of the engine reach whoever draws through a raster port.

#include "tests/runtime/FreshLibrary.h"
#include "tests/support/AllocationFailure.h"

#include "TnGraphics/draw/CKelError.h"
#include "TnGraphics/draw/TnRasterPort.h"
#include "TnGraphics/runtime/TnGraphicsMem.h"

#include <gtest/gtest.h>
#include <limits>
#include <new>

namespace tn::test {
namespace {

class RasterPortErrors : public ::testing::Test {
    FreshLibrary fresh_;

protected:
    // A shape that takes memory to paint.
    void AddShape() {
        port_.NewPath();
        port_.MoveTo(TnFloatPoint{1, 1});
        port_.CurveTo(TnFloatPoint{90, 5}, TnFloatPoint{-30, 40}, TnFloatPoint{50, 60});
        port_.LineTo(TnFloatPoint{10, 33});
    }

    TnGraphicsMem graphics_{1 << 20, BasekitFromAscii("en_US")};
    TnMatte matte_{{64, 64}};
    TnRasterPort port_{matte_};
};

using Paint = void (TnDrawPort::*)();

TEST_F(RasterPortErrors, OfExhaustedMemoryAreTheStandardException) {
    for (const Paint paint : {Paint{&TnDrawPort::Fill}, Paint{&TnDrawPort::EvenOddFill}, Paint{&TnDrawPort::Stroke},
                              Paint{&TnDrawPort::Clip}, Paint{&TnDrawPort::EvenOddClip}}) {
        bool hasFailed = true;
        for (int nth = 1; hasFailed; ++nth) {
            ASSERT_TRUE(port_.BeginDrawing(TnDrawPort::kSmooth, 0));
            AddShape();
            bool isThrown = false;
            {
                const FailAllocation failure(nth);
                try {
                    (port_.*paint)();
                } catch (const std::bad_alloc& exhausted) {
                    isThrown = true;
                    EXPECT_STREQ(exhausted.what(), "bad allocation");
                }
                hasFailed = failure.HasFailed();
            }
            EXPECT_EQ(isThrown, hasFailed) << nth;
            EXPECT_EQ(port_.Error(), hasFailed ? 1 : 0);
            (port_.*paint)();
            port_.EndDrawing();
        }
    }
}

TEST_F(RasterPortErrors, OfTheEngineAreItsOwn) {
    ASSERT_TRUE(port_.BeginDrawing(TnDrawPort::kSmooth, 0));
    AddShape();
    port_.LineTo(TnFloatPoint{std::numeric_limits<double>::quiet_NaN(), 1});
    try {
        port_.Fill();
        FAIL();
    } catch (const CKelError& error) {
        EXPECT_STRNE(error.what(), "");
        EXPECT_STREQ(error.Component(), "Vec");
    }
    AddShape();
    port_.Fill();
    port_.EndDrawing();
}

} // namespace
} // namespace tn::test
