#include "tests/ops/compositing/Forms.h"
#include "tests/support/Levels.h"
#include "tests/support/Pictures.h"
#include "tests/support/PixelDiff.h"
#include "tests/support/SparseStorage.h"

#include <gtest/gtest.h>

namespace tn::test {
namespace {

constexpr TnPoint kSize = {21, 6};
constexpr std::uint32_t kFarRowBytes = 0x40000040; // row 4 lies more than 4 GiB from row 0, by part of a row

template <class SurfaceType> SurfaceType FarSurface() {
    return SurfaceType(new SparseStorage(kSize, sizeof(typename SurfaceType::Pixel), kFarRowBytes), kSize);
}

template <class SurfaceType> void Paint(SurfaceType& surface, std::uint32_t seed) {
    Random random(seed);
    for (auto& pixel : surface) {
        pixel = static_cast<ValueOf<SurfaceType>>(random.Word());
    }
}

// The offset lets the source stick out above, so that rows above the overlap are read.
Request RequestUpwards() {
    Request request;
    request.at = {1, -2};
    request.subPixelAt = {{65536 + 16384}, {-2 * 65536 + 49152}};
    request.clip = {0, 0, kSize.x, kSize.y};
    request.to = {0x12345678};
    return request;
}

TEST(CompositingOfFarRows, IsThatOfNearRows) {
    ForEachForm([]<class SourceType, class DestinationType>(const Form<SourceType, DestinationType>& form) {
        SourceType farSource = FarSurface<SourceType>();
        DestinationType farDestination = FarSurface<DestinationType>();
        Paint(farSource, 1);
        ForEachSupportedLevel([&](ProcessorLevel) {
            Paint(farDestination, 2);
            auto source = ContentOf(farSource);
            auto expected = ContentOf(farDestination);
            model::Composite(form.CallFor(RequestUpwards(), kSize), model::PlaneOf(source), model::PlaneOf(expected));
            form.run(farSource, farDestination, RequestUpwards());
            EXPECT_TRUE(SamePixels(expected, farDestination));
        });
    });
}

} // namespace
} // namespace tn::test
