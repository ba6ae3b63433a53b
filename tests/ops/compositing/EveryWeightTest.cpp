// The arithmetic of sub-pixel reading over all weights, and of the colour transform over all values.

#include "tests/models/CompositingModels.h"
#include "tests/ops/compositing/Requests.h"
#include "tests/support/Cases.h"
#include "tests/support/Levels.h"
#include "tests/support/PixelDiff.h"
#include "tests/support/Surfaces.h"

#include "TnGraphics/ops/Compositing.h"
#include "TnGraphics/ops/Copies.h"

#include <functional>
#include <gtest/gtest.h>
#include <vector>

namespace tn::test {
namespace {

using Values = std::vector<int>;

int StrideInHaste(int atLeisure, int inHaste) { return HasTimeForEveryValue() ? atLeisure : inHaste; }

class EveryWeight : public ::testing::Test {
protected:
    explicit EveryWeight(const TnPoint& size = {67, 3}) : source_(size), destination_(size) {}

    void PutSource(const std::function<std::uint32_t(std::uint32_t x, std::uint32_t y)>& word) {
        for (int y = 0; y < source_.Size().y; ++y) {
            for (int x = 0; x < source_.Size().x; ++x) {
                SetPixel(source_, x, y, word(static_cast<std::uint32_t>(x), static_cast<std::uint32_t>(y)));
            }
        }
    }

    // Onto transparent pixels a pre-blend writes the samples as they are. Made opaque they show the colour of those,
    // too, whose alpha is 0.
    void ExpectSampledLikeModel(int gx, int gy) {
        ExpectPreBlendedLikeModel(gx, gy, {});
        ExpectPreBlendedLikeModel(gx, gy, {{}, {}, {}, {0, 255}});
    }

    static Values EveryValue(int stride) {
        Values values = {0, 1, 2, 127, 128, 129, 254, 255, 256};
        for (int value = 3; value < 254; value += stride) {
            values.push_back(value);
        }
        return values;
    }

private:
    // 0 is the weight of the largest fractions, 256 that of none.
    static int FractionWithWeight(int weight) { return weight == 0 ? 65535 : 65536 - 256 * weight; }

    void ExpectPreBlendedLikeModel(int gx, int gy, const TnColorTransform& transform) {
        const TnFixedPoint at = {{FractionWithWeight(gx)}, {FractionWithWeight(gy)}};
        ModelImage source = ContentOf(source_);
        ModelImage expected = UniformPicture<std::uint32_t>(source.Width(), source.Height(), 0);
        model::Compositing call;
        call.combination = model::Combination::kPreBlend;
        call.matrix = MatrixOf(transform);
        call.x = at.x.raw;
        call.y = at.y.raw;
        call.clip = destination_.Bounds();
        model::Composite(call, model::PlaneOf(source), model::PlaneOf(expected));
        ForEachSupportedLevel([&](ProcessorLevel) {
            SetAllTransparent();
            PreBlendImageAndAlpha(source_, transform, 255, destination_, at, destination_.Bounds());
            EXPECT_TRUE(SamePixels(expected, destination_)) << "weights " << gx << " and " << gy;
        });
    }

    void SetAllTransparent() {
        for (auto& pixel : destination_) {
            pixel = 0;
        }
    }

    TnImage source_;
    TnImage destination_;
};

std::uint32_t Mixed(std::uint32_t x, std::uint32_t y, std::uint32_t alpha) {
    const std::uint32_t hash = (x * 2654435761U) ^ (y * 40503U * 65537U);
    return alpha << 24 | (hash >> 8 & 0xFFFFFF);
}

TEST_F(EveryWeight, OfVisibleNeighboursIsExact) {
    PutSource([](std::uint32_t x, std::uint32_t y) { return Mixed(x, y, 255 - x - y * 7); });
    for (const int gx : EveryValue(StrideInHaste(1, 5))) {
        for (const int gy : EveryValue(StrideInHaste(3, 50))) {
            ExpectSampledLikeModel(gx, gy);
            ASSERT_FALSE(HasFailure());
        }
    }
}

// Every second and every third pixel is transparent, so that one to four of a group of neighbours are visible.
TEST_F(EveryWeight, OfVisibleAmongTransparentNeighboursIsExact) {
    PutSource(
        [](std::uint32_t x, std::uint32_t y) { return Mixed(x, y, x % 2 == 0 || (x + y) % 3 == 0 ? 0 : 255 - x % 5); });
    for (const int gx : EveryValue(StrideInHaste(3, 50))) {
        for (const int gy : EveryValue(StrideInHaste(1, 5))) {
            ExpectSampledLikeModel(gx, gy);
            ASSERT_FALSE(HasFailure());
        }
    }
}

// One visible pixel among transparent ones: value x weight / weight is the value, exactly.
class EveryLonelyValue : public EveryWeight {
protected:
    EveryLonelyValue() : EveryWeight({512, 2}) {
        PutSource([](std::uint32_t x, std::uint32_t y) { return x % 2 == 0 && y == 0 ? Lonely(x / 2) : 0x00FFFFFF; });
    }

private:
    static std::uint32_t Lonely(std::uint32_t value) {
        return 0xFF000000 | value << 16 | (255 - value) << 8 | (value ^ 0x55);
    }
};

TEST_F(EveryLonelyValue, KeepsItsColorByEveryWeight) {
    for (const int gx : EveryValue(StrideInHaste(1, 10))) {
        for (const int gy : {0, 1, 2, 3, 85, 127, 128, 255, 256}) {
            ExpectSampledLikeModel(gx, gy);
            ASSERT_FALSE(HasFailure());
        }
    }
}

class EveryChannelValue : public AtLevel {};

INSTANTIATE_TEST_SUITE_P(Levels, EveryChannelValue, ::testing::ValuesIn(kProcessorLevels), LevelTestName);

TnColorTransform TransformOf(int scale, int offset) {
    const auto entry = [=](int more) {
        return TnChannelTransform{static_cast<std::int16_t>(scale), static_cast<std::int16_t>(offset + more)};
    };
    return {entry(0), entry(1), entry(-1), entry(0)};
}

Values ManyScales() {
    Values scales = {-32768, -32767, -8191, -513, -512, -511, 511, 512, 513, 8191, 32766, 32767};
    for (int scale = -300; scale <= 300; scale += StrideInHaste(3, 60)) {
        scales.push_back(scale);
    }
    return scales;
}

TEST_P(EveryChannelValue, IsTransformedByManyScalesAndOffsets) {
    TnImage source({256, 1});
    for (int x = 0; x < 256; ++x) {
        const auto value = static_cast<std::uint32_t>(x);
        SetPixel(source, x, 0, value << 24 | value << 16 | (255 - value) << 8 | (value ^ 0x55U));
    }
    TnImage destination({256, 1});
    for (const int scale : ManyScales()) {
        for (const int offset : {-32767, -300, -255, -128, -2, -1, 0, 1, 100, 254, 255, 300, 32766}) {
            const TnColorTransform transform = TransformOf(scale, offset);
            ModelImage expected = ContentOf(source);
            for (std::uint32_t& word : expected.values) {
                word = model::PackedWord(model::Transformed(model::ChannelsOf(word), MatrixOf(transform)));
            }
            TnCopy(source, transform, 255, destination, {0, 0}, destination.Bounds());
            ASSERT_TRUE(SamePixels(expected, destination)) << "scale " << scale << ", offset " << offset;
        }
    }
}

} // namespace
} // namespace tn::test
