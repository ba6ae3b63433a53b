// The arithmetic of the operators over all values of two channels and two alphas. Two pictures of 256 x 256 pixels hold
// two of the four numbers each time: columns run through one, rows through the other, and the calls through the rest.

#include "tests/models/CombinationModels.h"
#include "tests/support/Cases.h"
#include "tests/support/Levels.h"
#include "tests/support/PixelDiff.h"

#include "TnGraphics/ops/Compositing.h"

#include <cstring>
#include <gtest/gtest.h>
#include <set>
#include <vector>

namespace tn::test {
namespace {

using model::Combination;

struct Operation {
    const char* name;
    Combination combination;
    void (*run)(const TnImage& source, TnImage& destination);
};

constexpr TnPoint kCorner = {0, 0};

constexpr Operation kOperations[] = {
    {"BlendImage", Combination::kBlend, [](const TnImage& s, TnImage& d) { BlendImage(s, 255, d, kCorner); }},
    {"PreBlendImageAndAlpha", Combination::kPreBlend,
     [](const TnImage& s, TnImage& d) { PreBlendImageAndAlpha(s, 255, d, kCorner); }},
    {"IntersectAlpha", Combination::kIntersect,
     [](const TnImage& s, TnImage& d) { IntersectAlpha(s, 255, d, kCorner); }},
    {"XORAlpha", Combination::kXor, [](const TnImage& s, TnImage& d) { XORAlpha(s, 255, d, kCorner); }},
};

// Those that leave colours alone.
constexpr Operation kOperationsOnAlphas[] = {
    {"IntersectAlphaNoColor", Combination::kIntersectNoColor,
     [](const TnImage& s, TnImage& d) { IntersectAlphaNoColor(s, 255, d, kCorner); }},
    {"SubtractAlpha", Combination::kSubtract, [](const TnImage& s, TnImage& d) { SubtractAlpha(s, 255, d, kCorner); }},
};

using Words = std::vector<std::uint32_t>;

constexpr std::size_t kWords = 65536;

// Three channels with different orders of the values, so that pairs of them differ too.
std::uint32_t Word(std::uint32_t alpha, std::uint32_t value) {
    return alpha << 24 | value << 16 | (255 - value) << 8 | (value ^ 0x55U);
}

// The same with other orders.
std::uint32_t OtherWord(std::uint32_t alpha, std::uint32_t value) {
    return alpha << 24 | (value ^ 0xAAU) << 16 | value << 8 | (255 - value);
}

// A picture whose rows can be filled at once.
class Square {
public:
    Square() : image_({256, 256}) {}

    TnImage& Image() { return image_; }

    void Put(const Words& words) {
        ForEachRow([&](void* row, std::size_t first) { std::memcpy(row, &words[first], kRowBytes); });
    }

    Words Get() {
        Words words(kWords);
        ForEachRow([&](void* row, std::size_t first) { std::memcpy(&words[first], row, kRowBytes); });
        return words;
    }

private:
    static constexpr std::size_t kRowBytes = 1024;

    template <class Work> void ForEachRow(const Work& work) {
        image_.AddClient();
        auto* row = reinterpret_cast<std::uint8_t*>(image_.PixelBase());
        for (std::size_t y = 0; y < 256; ++y, row += image_.RowBytes()) {
            work(row, y * 256);
        }
        image_.RemoveClient();
    }

    TnImage image_;
};

template <class Value> Words EveryWord(const Value& value) {
    Words words;
    for (std::uint32_t y = 0; y < 256; ++y) {
        for (std::uint32_t x = 0; x < 256; ++x) {
            words.push_back(value(x, y));
        }
    }
    return words;
}

Words Expected(Combination combination, const Words& source, const Words& destination) {
    Words expected(kWords);
    for (std::size_t i = 0; i < kWords; ++i) {
        expected[i] = model::PackedWord(
            model::Combined(combination, model::ChannelsOf(source[i]), model::ChannelsOf(destination[i])));
    }
    return expected;
}

class EveryQuadruple : public ::testing::TestWithParam<Operation> {
protected:
    void ExpectLikeModel(const Words& source, const Words& destination) {
        const Words expected = Expected(GetParam().combination, source, destination);
        source_.Put(source);
        ForEachSupportedLevel([&](ProcessorLevel) {
            destination_.Put(destination);
            GetParam().run(source_.Image(), destination_.Image());
            ExpectSame(expected, destination_.Get(), source, destination);
        });
    }

private:
    static void ExpectSame(const Words& expected, const Words& actual, const Words& source, const Words& destination) {
        if (expected == actual) {
            return;
        }
        std::size_t i = 0;
        while (expected[i] == actual[i]) {
            ++i;
        }
        ADD_FAILURE() << std::hex << "0x" << source[i] << " and 0x" << destination[i] << " give 0x" << actual[i]
                      << " and not 0x" << expected[i];
    }

    Square source_;
    Square destination_;
};

void PrintTo(const Operation& operation, std::ostream* out) { *out << operation.name; }

std::string OperationTestName(const ::testing::TestParamInfo<Operation>& info) { return info.param.name; }

INSTANTIATE_TEST_SUITE_P(OnColors, EveryQuadruple, ::testing::ValuesIn(kOperations), OperationTestName);
INSTANTIATE_TEST_SUITE_P(OnAlphas, EveryQuadruple, ::testing::ValuesIn(kOperationsOnAlphas), OperationTestName);

using SomeValues = std::set<std::uint32_t>;

// Values at which rules change, and as many between as there is time for.
SomeValues Edges() {
    return HasTimeForEveryValue() ? SomeValues{0, 1, 2, 127, 128, 253, 254, 255} : SomeValues{0, 1, 128, 254, 255};
}

SomeValues EdgesAndEvery(std::uint32_t stride) {
    SomeValues values = Edges();
    for (std::uint32_t value = 0; value < 256; value += stride) {
        values.insert(value);
    }
    return values;
}

TEST_P(EveryQuadruple, EqualsItsModelForEveryPairOfAlphasWithSomeColors) {
    const SomeValues colors = HasTimeForEveryValue() ? EdgesAndEvery(51) : Edges();
    for (const std::uint32_t s : colors) {
        for (const std::uint32_t d : colors) {
            if (!HasFailure()) {
                ExpectLikeModel(EveryWord([=](std::uint32_t x, std::uint32_t) { return Word(x, s); }),
                                EveryWord([=](std::uint32_t, std::uint32_t y) { return OtherWord(y, d); }));
            }
        }
    }
}

TEST_P(EveryQuadruple, EqualsItsModelForEveryPairOfColorsWithSomeAlphas) {
    const std::uint32_t stride = IsSoaking() ? 1 : 28;
    const SomeValues alphas = HasTimeForEveryValue() ? EdgesAndEvery(stride) : Edges();
    for (const std::uint32_t sa : alphas) {
        const Words source = EveryWord([=](std::uint32_t x, std::uint32_t) { return Word(sa, x); });
        for (const std::uint32_t da : alphas) {
            if (!HasFailure()) {
                ExpectLikeModel(source, EveryWord([=](std::uint32_t, std::uint32_t y) { return Word(da, y); }));
            }
        }
    }
}

// Alphas change from pixel to pixel, so that no vector holds one rule alone.
TEST_P(EveryQuadruple, EqualsItsModelForMixedAlphas) {
    for (const std::uint32_t d : Edges()) {
        ExpectLikeModel(EveryWord([=](std::uint32_t x, std::uint32_t y) { return Word(x * 83 + y, x ^ y); }),
                        EveryWord([=](std::uint32_t x, std::uint32_t y) { return Word(x + y * 59, d + x); }));
    }
}

} // namespace
} // namespace tn::test
