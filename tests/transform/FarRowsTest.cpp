// Sources and destinations whose rows lie so far apart that offsets need more than 32 bits.

#include "tests/port/sampling/ReadSurfaces.h"
#include "tests/support/Levels.h"
#include "tests/support/PixelDiff.h"
#include "tests/support/SparseStorage.h"
#include "tests/transform/Calls.h"

#include <gtest/gtest.h>

namespace tn::test {
namespace {

constexpr TnPoint kSize = {21, 6};

// All bytes lie within 2 GiB, then within 4 GiB, at last by very little, then not, at last by part of a row.
constexpr std::uint32_t kRowBytes[] = {0x10000010, 0x20000020, 0x2AAAAA98, 0x2AAAAAAC, 0x40000040};

template <class SurfaceType> SurfaceType FarSurface(std::uint32_t rowBytes) {
    return SurfaceType(new SparseStorage(kSize, sizeof(typename SurfaceType::Pixel), rowBytes), kSize);
}

template <class SurfaceType> void PaintRandom(SurfaceType& surface, std::uint32_t seed) {
    Random random(seed);
    for (auto& pixel : surface) {
        pixel = static_cast<ValueOf<SurfaceType>>(random.Pixel() ^ random.Byte());
    }
}

constexpr Matrix3x3 kMatrices[] = {Affine(-1, 0, 20, 0, -1, 5), Affine(0.9, 0.1, 0.25, -0.1, 0.8, 1.5),
                                   Affine(2.5, 0, 0, 0, 1.1, 0.3), HardlyProjective(Affine(1, 0.25, -0.5, 0, 1, 0.25)),
                                   Moving(0.5, 0.5)};

template <class KindsType> class TransformOfFarRows : public ::testing::Test {
protected:
    static void ExpectLikeNearRows(std::uint32_t rowBytes) {
        auto source = FarSurface<typename KindsType::Source>(rowBytes);
        auto destination = FarSurface<typename KindsType::Destination>(rowBytes);
        PaintRandom(source, 1);
        const model::ReadSurface read = ReadSurfaceOfRows(source);
        for (const Matrix3x3& matrix : kMatrices) {
            for (const InterpolationType type : kBothTypes) {
                PaintRandom(destination, 2);
                auto expected = ContentOf(destination);
                model::Resample(CallOf(matrix, type), read, expected);
                Transform(source, destination, matrix, type);
                EXPECT_TRUE(SamePixels(expected, destination)) << ::testing::PrintToString(ElementsOf(matrix));
            }
        }
    }
};
TYPED_TEST_SUITE(TransformOfFarRows, TransformKinds);

TYPED_TEST(TransformOfFarRows, IsThatOfNearRows) {
    ForEachSupportedLevel([](ProcessorLevel) {
        for (const std::uint32_t rowBytes : kRowBytes) {
            TestFixture::ExpectLikeNearRows(rowBytes);
        }
    });
}

} // namespace
} // namespace tn::test
