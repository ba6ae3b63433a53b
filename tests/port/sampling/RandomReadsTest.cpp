// Every read against its model, at random positions in random pictures, with pages that fault around the pixels.

#include "tests/models/SamplingModels.h"
#include "tests/port/SurfaceKinds.h"
#include "tests/port/sampling/ReadSurfaces.h"
#include "tests/support/Cases.h"

#include "TnGraphics/port/StDisregardAlphaInGet.h"

#include <algorithm>
#include <array>
#include <gtest/gtest.h>
#include <limits>
#include <optional>
#include <vector>

namespace tn::test {
namespace {

constexpr int kCases = 3000;
constexpr int kReadsOfACase = 60;
constexpr int kLargeCases = 40;

std::int32_t Position(Random& random, std::int32_t side) {
    constexpr std::array<std::int32_t, 6> kFar = {std::numeric_limits<std::int32_t>::min(),
                                                  std::numeric_limits<std::int32_t>::max(),
                                                  -65536,
                                                  65536,
                                                  0x01000000,
                                                  -32768};
    return random.OneIn(20) ? random.OneOf(kFar) : random.Between(-2, side + 1);
}

TnFixed FixedPosition(Random& random, std::int32_t side) {
    const std::int32_t whole = random.Between(-1, side);
    switch (random.Between(0, 9)) {
    case 0:
        return {static_cast<std::int32_t>(random.Word())};
    case 1:
        return {whole * 65536 - 1};
    case 2:
    case 3:
        return {whole * 65536};
    default:
        return {whole * 65536 + random.Between(0, 65535)};
    }
}

float FloatPosition(Random& random, std::int32_t side) {
    constexpr float kInfinity = std::numeric_limits<float>::infinity();
    constexpr std::array<float, 12> kOdd = {std::numeric_limits<float>::quiet_NaN(),
                                            kInfinity,
                                            -kInfinity,
                                            1e30F,
                                            -1e30F,
                                            16777216.0F,
                                            -16777216.0F,
                                            8388607.5F,
                                            8388608.0F,
                                            -8388608.0F,
                                            -0.0F,
                                            1e-40F};
    if (random.OneIn(10)) {
        return random.OneOf(kOdd);
    }
    return static_cast<float>(random.Between(-1, side)) + static_cast<float>(random.Between(-1024, 1024)) / 1024.0F;
}

// Of a stretch of pixels, in eighths of a 256th.
double AreaField(Random& random, std::int32_t from, std::int32_t to) {
    return random.Between(from * 2048, to * 2048) / 2048.0;
}

TnFloatRect AreaWithin(Random& random, const TnPoint& size) {
    const double left = AreaField(random, 0, size.x);
    const double top = AreaField(random, 0, size.y);
    const double width = random.OneIn(8) ? AreaField(random, 0, 2) : AreaField(random, 0, size.x);
    const double height = random.OneIn(8) ? AreaField(random, 0, 2) : AreaField(random, 0, size.y);
    return random.OneIn(6) ? TnFloatRect{static_cast<double>(random.Between(0, size.x)), top, 1, height}
                           : TnFloatRect{left, top, width, height};
}

std::vector<std::int32_t> Factors(Random& random, std::int32_t most) {
    std::vector<std::int32_t> factors(static_cast<std::size_t>(random.Between(0, most)));
    const bool isWild = random.OneIn(8);
    for (std::int32_t& factor : factors) {
        factor = isWild ? static_cast<std::int32_t>(random.Word()) : random.Between(-64, 256);
    }
    return factors;
}

TnImagePixel KernelSum(const TnImage& image, TnPoint at, const std::vector<std::int32_t>& kx,
                       const std::vector<std::int32_t>& ky) {
    std::vector<TnFixed> x;
    std::vector<TnFixed> y;
    for (const std::int32_t factor : kx) {
        x.push_back({factor});
    }
    for (const std::int32_t factor : ky) {
        y.push_back({factor});
    }
    return image.Get(long{at.x}, long{at.y}, x.data(), static_cast<unsigned long>(x.size()), y.data(),
                     static_cast<unsigned long>(y.size()));
}

template <class SurfaceType> class RandomReads : public ::testing::Test {
protected:
    using Pixel = typename SurfaceType::Pixel;

    static void ExpectPixel(const model::Channels& expected, Pixel actual, const char* read, double x, double y) {
        if (ChannelsOf(actual) != expected) {
            ADD_FAILURE() << read << " at " << x << ", " << y << ": expected " << std::hex
                          << +PixelOf(expected, SurfaceType()).value << ", but it is " << +actual.value;
        }
    }

    static void ExpectArea(Random& random, const SurfaceType& surface, const model::ReadSurface& read) {
        const TnFloatRect rect = AreaWithin(random, read.size);
        if (!model::IsArea(rect) || model::HasArea(read, rect)) {
            SCOPED_TRACE(::testing::PrintToString(std::array<double, 2>{rect.width, rect.height}));
            ExpectPixel(model::GetArea(read, rect), surface.Get(rect), "area", rect.left, rect.top);
        }
    }

    static void ExpectRead(Random& random, const SurfaceType& surface, const model::ReadSurface& read) {
        const TnPoint at = {Position(random, read.size.x), Position(random, read.size.y)};
        ExpectPixel(model::GetAt(read, at.x, at.y), surface.Get(at.x, at.y), "pixel", at.x, at.y);

        const TnFixedPoint between = {FixedPosition(random, read.size.x), FixedPosition(random, read.size.y)};
        ExpectPixel(model::GetBetween(read, between.x.raw, between.y.raw), surface.Get(between.x, between.y), "fixed",
                    between.x.ToDouble(), between.y.ToDouble());
        ExpectArea(random, surface, read);
        ExpectOwnRead(random, surface, read);
    }

    static void ExpectOwnRead(Random& random, const TnMatte& matte, const model::ReadSurface& read) {
        const float x = FloatPosition(random, read.size.x);
        const float y = FloatPosition(random, read.size.y);
        ExpectPixel(model::GetBetweenAtFloat(read, x, y), matte.Get(x, y), "float", x, y);
    }

    static void ExpectOwnRead(Random& random, const TnImage& image, const model::ReadSurface& read) {
        const TnPoint at = {random.Between(0, read.size.x), random.Between(0, read.size.y)};
        const auto kx = Factors(random, std::min(9, read.size.x - at.x));
        const auto ky = Factors(random, std::min(9, read.size.y - at.y));
        const auto farX = at.x + static_cast<std::int64_t>(kx.size()) - 1;
        const auto farY = at.y + static_cast<std::int64_t>(ky.size()) - 1;
        if (kx.empty() || ky.empty() || read.Has(farX, farY)) {
            ExpectPixel(model::GetKernel(read, at.x, at.y, kx, ky), KernelSum(image, at, kx, ky), "kernel", at.x, at.y);
        }
    }
};
TYPED_TEST_SUITE(RandomReads, SurfaceKinds);

TYPED_TEST(RandomReads, EqualTheirModels) {
    ForEachCase(kCases, [](Random& random) {
        const RandomSource<TypeParam> source(random, {random.Between(0, 30), random.Between(0, 20)});
        const model::ReadSurface read = source.Snapshot();
        for (int i = 0; i < kReadsOfACase; ++i) {
            TestFixture::ExpectRead(random, source.Surface(), read);
        }
        EXPECT_EQ(source.Surface().Clients(), 0U);
    });
}

// Areas that are split.
TYPED_TEST(RandomReads, OfLargeAreasEqualTheirModels) {
    ForEachCase(kLargeCases, [](Random& random) {
        const TnPoint size = random.OneIn(3) ? TnPoint{random.Between(2, 5), random.Between(20000, 70000)}
                                             : TnPoint{random.Between(250, 700), random.Between(250, 500)};
        const RandomSource<TypeParam> source(random, size, Surroundings::kBlockBeforePage);
        const model::ReadSurface read = source.Snapshot();
        for (int i = 0; i < 8; ++i) {
            TestFixture::ExpectArea(random, source.Surface(), read);
        }
    });
}

TEST(RandomReadsInAScope, EqualTheirModels) {
    ForEachCase(kCases / 3, [](Random& random) {
        const RandomSource<TnImage> source(random, {random.Between(1, 30), random.Between(1, 20)});
        const TnImagePixel outside = random.Word();
        const StDisregardAlphaInGet scope(source.Surface(), outside);
        model::ReadSurface read = source.Snapshot();
        read.disregardsAlpha = true;
        for (int i = 0; i < kReadsOfACase; ++i) {
            const TnFixedPoint at = {FixedPosition(random, read.size.x), FixedPosition(random, read.size.y)};
            EXPECT_EQ(source.Surface().Get(at.x, at.y),
                      PixelOf(model::GetBetween(read, at.x.raw, at.y.raw), TnImage()));
        }
    });
}

} // namespace
} // namespace tn::test
