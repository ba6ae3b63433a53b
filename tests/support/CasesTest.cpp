#include "tests/support/Cases.h"

#include "tests/support/AssertionRecorder.h"

#include "TnEngines/abi/basekit.h"

#include <gtest/gtest.h>
#include <vector>

namespace tn::test {
namespace {

std::vector<std::uint64_t> FirstNumbersOfCases() {
    std::vector<std::uint64_t> numbers;
    ForEachCase(10, [&](Random& random) { numbers.push_back(random.Next()); });
    return numbers;
}

TEST(Cases, AreTheSameEachTime) { EXPECT_EQ(FirstNumbersOfCases(), FirstNumbersOfCases()); }

TEST(Random, GivesTheSameNumbersOnEveryPlatform) {
    Random random(1234567); // the published first values of the generator for this seed
    EXPECT_EQ(random.Next(), 6457827717110365317U);
    EXPECT_EQ(random.Next(), 3203168211198807973U);
    EXPECT_EQ(random.Next(), 9817491932198370423U);
}

TEST(Random, StaysWithinItsLimits) {
    Random random(1);
    bool low = false;
    bool high = false;
    for (int i = 0; i < 1000; ++i) {
        const std::int32_t number = random.Between(-3, 3);
        ASSERT_TRUE(-3 <= number && number <= 3);
        low = low || number == -3;
        high = high || number == 3;
    }
    EXPECT_TRUE(low && high);
}

TEST(AssertionRecorder, HearsASiteUntilItIsSilenced) {
    bool disabled = false;
    const auto assertThree = [&] {
        for (int i = 0; i < 3; ++i) {
            BasekitAssertionFailed("a < b", "Function", "file", 7, &disabled);
        }
    };
    {
        const AssertionRecorder recorder;
        assertThree();
        EXPECT_EQ(recorder.Reports(), (std::vector<RecordedAssertion>(3, {"a < b", "Function", "file", 7})));
        EXPECT_FALSE(disabled);
    }
    const AssertionRecorder recorder(AssertionRecorder::Answer::kSilenceForGood);
    assertThree();
    EXPECT_EQ(recorder.Reports().size(), 1U);
    EXPECT_TRUE(disabled);
}

} // namespace
} // namespace tn::test
