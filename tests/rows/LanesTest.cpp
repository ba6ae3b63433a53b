// Division by 255 over its whole range, which ends below 65535. Lanes of the levels above the baseline can be had
// through kernels alone; they share the vector lanes' source with the baseline.

#include "TnGraphics/rows/lanes/BaselineSet.h"
#include "TnGraphics/rows/lanes/PortableLanes.h"
#include "TnGraphics/rows/lanes/VectorLanes.h"

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

} // namespace
} // namespace tn::test
