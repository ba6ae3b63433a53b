// The divisions of lanes over their whole ranges. Lanes of the levels above the baseline can be had through kernels
// alone; they share the vector lanes' source with the baseline.

#include "TnGraphics/rows/lanes/BaselineSet.h"
#include "TnGraphics/rows/lanes/PortableLanes.h"
#include "TnGraphics/rows/lanes/VectorSums.h"

#include <array>
#include <gtest/gtest.h>

namespace tn::test {
namespace {

using BaselineChannels = ChannelLanes<baseline::InstructionSet>;

TEST(PortableLanes, DivideEveryNumberBelow65535By255) {
    for (std::uint32_t number = 0; number < 65535; ++number) {
        const auto quotient = DividedBy255(portable::Channels::All16(static_cast<std::uint16_t>(number)));
        for (const std::uint16_t channel : quotient.values) {
            ASSERT_EQ(channel, number / 255) << number;
        }
    }
}

TEST(BaselineLanes, DivideEveryNumberBelow65535By255) {
    for (std::uint32_t number = 0; number < 65535; ++number) {
        const BaselineChannels quotient = DividedBy255(BaselineChannels::All16(static_cast<std::uint16_t>(number)));
        std::array<std::uint16_t, 16> channels = {};
        baseline::InstructionSet::Store(&channels[0], quotient.low);
        baseline::InstructionSet::Store(&channels[8], quotient.high);
        for (const std::uint16_t channel : channels) {
            ASSERT_EQ(channel, number / 255) << number;
        }
    }
}

using BaselinePixels = PixelLanes<baseline::InstructionSet>;

// The quotients of 16 channels, all sums by the same divisor.
std::array<std::uint16_t, 16> QuotientsByShare(std::uint32_t sum, std::uint32_t divisor) {
    const auto quotient =
        Divided(BaselineChannels::All16(static_cast<std::uint16_t>(sum)), BaselinePixels::All(divisor));
    std::array<std::uint16_t, 16> channels = {};
    baseline::InstructionSet::Store(&channels[0], quotient.low);
    baseline::InstructionSet::Store(&channels[8], quotient.high);
    return channels;
}

// Weighted sums of two colours are at most 255 times their shares.
TEST(BaselineLanes, DivideEverySumByEveryTotalOfShares) {
    for (std::uint32_t divisor = 1; divisor <= 255; ++divisor) {
        for (std::uint32_t sum = 0; sum <= 255 * divisor; ++sum) {
            for (const std::uint16_t channel : QuotientsByShare(sum, divisor)) {
                ASSERT_EQ(channel, sum / divisor) << sum << " / " << divisor;
            }
        }
    }
}

std::array<std::uint32_t, 4> TruncatedQuotients(const std::array<std::uint32_t, 4>& a,
                                                const std::array<std::uint32_t, 4>& b) {
    using Set = baseline::InstructionSet;
    std::array<std::uint32_t, 4> quotients = {};
    Set::Store(quotients.data(), Set::Quotients32(Set::Load(a.data()), Set::Load(b.data())));
    return quotients;
}

// A quotient grows with its dividend, so it is right everywhere if it is right on both sides of each step.
TEST(BaselineLanes, DivideSumsByEveryWeightOfVisiblePixels) {
    for (std::uint32_t weight = 1; weight <= 65536; ++weight) {
        for (std::uint32_t value = 1; value <= 255; value += 2) {
            const std::uint32_t sum = value * weight;
            const auto quotients =
                TruncatedQuotients({sum - 1, sum, sum + weight - 1, sum + weight}, {weight, weight, weight, weight});
            const std::array<std::uint32_t, 4> expected = {value - 1, value, value, value + 1};
            ASSERT_EQ(quotients, expected) << sum << " / " << weight;
        }
    }
}

TEST(BaselineLanes, DivideSumsOfBoxesOnBothSidesOfEachStep) {
    constexpr std::uint32_t kLargestSum = 1U << 26;
    for (std::uint32_t size = 256; size < kLargestSum / 2; size += 1 + size / 257) {
        for (std::uint32_t value = 1; value <= 1024 && value * size < kLargestSum; ++value) {
            const std::uint32_t sum = value * size;
            std::array<std::uint32_t, 4> quotients = {};
            const BaselinePixels below = Quotients(BaselinePixels::All(sum - 1), BaselinePixels::All(size));
            baseline::InstructionSet::Store(quotients.data(), below.words);
            ASSERT_EQ(quotients[0], value - 1) << sum - 1 << " / " << size;
            const BaselinePixels at = Quotients(BaselinePixels::All(sum), BaselinePixels::All(size));
            baseline::InstructionSet::Store(quotients.data(), at.words);
            ASSERT_EQ(quotients[0], value) << sum << " / " << size;
        }
    }
}

} // namespace
} // namespace tn::test
