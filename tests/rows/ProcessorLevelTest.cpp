#include "tests/support/Levels.h"

#include <algorithm>
#include <functional>
#include <gtest/gtest.h>
#include <iterator>
#include <set>
#include <stdexcept>
#include <string>

namespace tn::test {
namespace {

const RowKernels& TableOf(ProcessorLevel level) {
    switch (level) {
    case ProcessorLevel::kPortable:
        return portable::kRowKernels;
    case ProcessorLevel::kBaseline:
        return baseline::kRowKernels;
    case ProcessorLevel::kAvx2:
        return avx2::kRowKernels;
    case ProcessorLevel::kAvx512:
        return avx512::kRowKernels;
    }
    throw std::invalid_argument("no such level");
}

// True when two levels share none of the kernels of an entry of the table.
template <class Kernels> bool AreDistinct(const Kernels& a, const Kernels& b) {
    if constexpr (requires { a.kernels; }) {
        return std::ranges::mismatch(a.kernels, b.kernels, std::not_equal_to()).in1 == a.kernels.end();
    } else {
        return a.kernel != b.kernel;
    }
}

template <class Predicate, class Pixel>
bool AreDistinct(const Searching<Predicate, Pixel>& a, const Searching<Predicate, Pixel>& b) {
    return a.first != b.first && a.last != b.last && a.row != b.row;
}

bool AreDistinct(const Turning& a, const Turning& b) {
    return a.intoColumns != b.intoColumns && a.intoRows != b.intoRows;
}

template <class Kernels> bool AreDistinctAt(ProcessorLevel level, ProcessorLevel other) {
    const Kernels& kernels = TableOf(level);
    const Kernels& others = TableOf(other);
    return AreDistinct(kernels, others);
}

template <class... Kernels> void ExpectKernelsOfTheirOwn(const KernelTable<Kernels...>&) {
    for (const ProcessorLevel level : kProcessorLevels) {
        for (const ProcessorLevel other : kProcessorLevels) {
            if (level != other) {
                EXPECT_TRUE((AreDistinctAt<Kernels>(level, other) && ...)) << NameOf(level) << " and " << NameOf(other);
            }
        }
    }
}

class EachLevel : public AtLevel {};

TEST_P(EachLevel, IsInForceWithKernelsOfItsOwn) {
    EXPECT_EQ(ActiveLevel(), GetParam());
    EXPECT_EQ(&ActiveRowKernels(), &TableOf(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(Levels, EachLevel, ::testing::ValuesIn(kProcessorLevels), LevelTestName);

TEST(ProcessorLevels, HaveRunUpToAvx2) {
    std::set<ProcessorLevel> ran;
    ForEachSupportedLevel([&](ProcessorLevel level) {
        EXPECT_EQ(ActiveLevel(), level);
        EXPECT_EQ(&ActiveRowKernels(), &TableOf(level));
        ran.insert(level);
    });
    EXPECT_TRUE(ran.contains(ProcessorLevel::kPortable));
    EXPECT_TRUE(ran.contains(ProcessorLevel::kBaseline));
    EXPECT_TRUE(ran.contains(ProcessorLevel::kAvx2)) << "run the tests on a processor with AVX2";
}

TEST(ProcessorLevels, ChooseTheBestOneWhenTheLibraryLoads) {
    EXPECT_EQ(ActiveLevel(), BestLevel());
    EXPECT_EQ(&ActiveRowKernels(), &TableOf(BestLevel()));
    EXPECT_TRUE(IsSupported(BestLevel()));
}

TEST(ProcessorLevels, AreSupportedWithAllBelowTheBestOne) {
    for (const ProcessorLevel level : kProcessorLevels) {
        EXPECT_EQ(IsSupported(level), level <= BestLevel()) << NameOf(level);
    }
}

TEST(ProcessorLevels, ShareNoKernel) { ExpectKernelsOfTheirOwn(portable::kRowKernels); }

TEST(ProcessorLevels, HaveDistinctNames) {
    std::set<std::string> names;
    for (const ProcessorLevel level : kProcessorLevels) {
        names.insert(NameOf(level));
    }
    EXPECT_EQ(names.size(), std::size(kProcessorLevels));
}

} // namespace
} // namespace tn::test
