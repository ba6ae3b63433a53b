#include "TnGraphics/rows/RowKernels.h"

#include "tests/models/FillModels.h"
#include "tests/support/Cases.h"
#include "tests/support/GuardedStorage.h"
#include "tests/support/Levels.h"

#include <algorithm>
#include <cstddef>
#include <functional>
#include <gtest/gtest.h>
#include <vector>

namespace tn::test {
namespace {

using Words = std::vector<std::uint32_t>;

constexpr std::size_t kLongestRow = 140;

// One operator with random settings, as the kernel in force and as plain arithmetic on a pixel and its column.
struct KernelCase {
    const char* name;
    std::function<void(TnImagePixel* row, std::size_t length)> kernel;
    std::function<std::uint32_t(std::uint32_t pixel, std::size_t column)> model;
};

template <class Operator, class Model> KernelCase MakeCase(const char* name, const Operator& op, const Model& model) {
    return {name, [=](TnImagePixel* row, std::size_t length) { ActiveKernel<Operator>()(row, length, op); }, model};
}

KernelCase RandomStorePixel(Random& random) {
    const std::uint32_t word = random.Word();
    return MakeCase("StorePixel", StorePixel{word}, [=](std::uint32_t, std::size_t) { return word; });
}

KernelCase RandomSetAlpha(Random& random) {
    const std::uint8_t alpha = random.Alpha();
    return MakeCase("SetAlpha", SetAlpha{alpha * 0x1000000U},
                    [=](std::uint32_t pixel, std::size_t) { return model::WithAlpha(pixel, alpha); });
}

KernelCase RandomScaleAlpha(Random& random) {
    const std::uint32_t factor = random.Word();
    return MakeCase("ScaleAlpha", ScaleAlpha{factor},
                    [=](std::uint32_t pixel, std::size_t) { return model::WithScaledAlpha(pixel, factor); });
}

KernelCase RandomBlendBehind(Random& random) {
    const TnColor color = random.Color();
    return MakeCase("BlendBehind", BlendBehind{model::WordOf(color)},
                    [=](std::uint32_t pixel, std::size_t) { return model::WithColorBehind(pixel, color, true); });
}

KernelCase RandomBlendBehindVisible(Random& random) {
    const TnColor color = random.Color();
    return MakeCase("BlendBehind where visible", BlendBehindVisible{{model::WordOf(color)}},
                    [=](std::uint32_t pixel, std::size_t) { return model::WithColorBehind(pixel, color, false); });
}

KernelCase RandomBlendBehindAndSetAlpha(Random& random) {
    const TnColor color = random.Color();
    const std::uint8_t alpha = random.Alpha();
    const BlendBehindAndSetAlpha op = {{model::WordOf(color)}, {alpha * 0x1000000U}};
    return MakeCase("BlendBehindAndSetAlpha", op, [=](std::uint32_t pixel, std::size_t) {
        return model::WithAlpha(model::WithColorBehind(pixel, color, true), alpha);
    });
}

KernelCase RandomCrossLines(Random& random) {
    const CrossLines op = {random.Word(),      random.OneIn(2) ? 0xFFFFFFFFU : 7U,
                           random.Word() & 7U, random.Word() & 7U,
                           0xFF000001,         0xFF000002};
    return MakeCase("CrossLines", op, [=](std::uint32_t, std::size_t column) {
        const auto place = static_cast<std::uint32_t>((op.firstColumn + std::uint64_t{column}) & op.cellMask);
        return place == op.falling || place == op.rising ? op.line : op.ground;
    });
}

// Lines at random places would hardly ever be met in a row without cells, so these start close to them.
KernelCase RandomCrossLinesNearby(Random& random) {
    const std::uint32_t first = random.Word();
    const CrossLines op = {first,
                           0xFFFFFFFFU,
                           first + static_cast<std::uint32_t>(random.Side()),
                           first + static_cast<std::uint32_t>(random.Side()),
                           0xFF000001,
                           0xFF000002};
    return MakeCase("CrossLines nearby", op, [=](std::uint32_t, std::size_t column) {
        const std::size_t fallingColumn = op.falling - op.firstColumn;
        const std::size_t risingColumn = op.rising - op.firstColumn;
        return column == fallingColumn || column == risingColumn ? op.line : op.ground;
    });
}

constexpr KernelCase (*kMakers[])(Random&) = {&RandomStorePixel,         &RandomSetAlpha,
                                              &RandomScaleAlpha,         &RandomBlendBehind,
                                              &RandomBlendBehindVisible, &RandomBlendBehindAndSetAlpha,
                                              &RandomCrossLines,         &RandomCrossLinesNearby};

Words RandomWords(Random& random, std::size_t length) {
    Words words(length);
    std::generate(words.begin(), words.end(), [&] { return random.Pixel(); });
    return words;
}

Words Expected(const KernelCase& kernelCase, const Words& pixels) {
    Words expected;
    for (std::size_t column = 0; column < pixels.size(); ++column) {
        expected.push_back(kernelCase.model(pixels[column], column));
    }
    return expected;
}

void Put(const Words& words, TnImagePixel* at) { std::copy(words.begin(), words.end(), at); }

Words Get(const TnImagePixel* from, std::size_t length) { return Words(from, from + length); }

void ExpectKernelLikeModel(const KernelCase& kernelCase, const Words& pixels, TnImagePixel* row) {
    Put(pixels, row);
    kernelCase.kernel(row, pixels.size());
    ASSERT_EQ(Get(row, pixels.size()), Expected(kernelCase, pixels))
        << kernelCase.name << ", " << pixels.size() << " pixels";
}

// Runs the body for every operator, with new settings, on rows of every length.
void ForEachRowLength(const std::function<void(const KernelCase& kernelCase, const Words& pixels)>& body) {
    ForEachCase(1, [&](Random& random) {
        for (const auto& maker : kMakers) {
            for (std::size_t length = 0; length <= kLongestRow; ++length) {
                body(maker(random), RandomWords(random, length));
            }
        }
    });
}

class RowKernelsAtLevel : public AtLevel {};

INSTANTIATE_TEST_SUITE_P(Levels, RowKernelsAtLevel, ::testing::ValuesIn(kProcessorLevels), LevelTestName);

TEST_P(RowKernelsAtLevel, TouchNothingPastTheEndOfARowOfAnyLength) {
    const GuardedStorage storage({static_cast<int>(kLongestRow), 1}, sizeof(TnImagePixel), Guard::kAfterRows);
    auto* const longestRow = static_cast<TnImagePixel*>(storage.BaseAddr());
    ForEachRowLength([&](const KernelCase& kernelCase, const Words& pixels) {
        ExpectKernelLikeModel(kernelCase, pixels, longestRow + kLongestRow - pixels.size());
    });
}

TEST_P(RowKernelsAtLevel, TouchNothingBeforeTheStartOfARowOfAnyLength) {
    const GuardedStorage storage({static_cast<int>(kLongestRow), 1}, sizeof(TnImagePixel), Guard::kBeforeRows);
    auto* const row = static_cast<TnImagePixel*>(storage.BaseAddr());
    ForEachRowLength(
        [&](const KernelCase& kernelCase, const Words& pixels) { ExpectKernelLikeModel(kernelCase, pixels, row); });
}

TEST_P(RowKernelsAtLevel, WorkAtEveryAlignmentAndWriteNothingBesideTheRow) {
    constexpr std::size_t kAlignments = 16; // pixels in the widest vector
    const Words beside(2 * kAlignments + kLongestRow, 0xA5A5A5A5);
    alignas(64) TnImagePixel buffer[2 * kAlignments + kLongestRow];
    ForEachRowLength([&](const KernelCase& kernelCase, const Words& pixels) {
        for (std::size_t start = 0; start < kAlignments; ++start) {
            Words expected = beside;
            std::copy(pixels.begin(), pixels.end(), expected.begin() + static_cast<std::ptrdiff_t>(start));
            Put(expected, buffer);
            kernelCase.kernel(buffer + start, pixels.size());
            const Words changed = Expected(kernelCase, pixels);
            std::copy(changed.begin(), changed.end(), expected.begin() + static_cast<std::ptrdiff_t>(start));
            ASSERT_EQ(Get(buffer, expected.size()), expected)
                << kernelCase.name << ", " << pixels.size() << " pixels from " << start;
        }
    });
}

TEST_P(RowKernelsAtLevel, EqualThePortableOnesInLongRows) {
    ForEachCase(500, [](Random& random) {
        const Words pixels = RandomWords(random, static_cast<std::size_t>(random.Between(0, 700)));
        for (const auto& maker : kMakers) {
            const KernelCase kernelCase = maker(random);
            std::vector<TnImagePixel> row(pixels.size());
            ExpectKernelLikeModel(kernelCase, pixels, row.data());
            const Words inForce = Get(row.data(), row.size());
            const ForcedLevel forced(ProcessorLevel::kPortable);
            ExpectKernelLikeModel(kernelCase, pixels, row.data());
            ASSERT_EQ(inForce, Get(row.data(), row.size())) << kernelCase.name;
        }
    });
}

} // namespace
} // namespace tn::test
