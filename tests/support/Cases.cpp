#include "tests/support/Cases.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <gtest/gtest.h>
#include <optional>
#include <string>

namespace tn::test {
namespace {

constexpr std::uint64_t kFixedSeed = 20;
constexpr int kSoakFactor = 50;

std::optional<std::uint64_t> NumberFromEnvironment(const char* name) {
    const char* text = std::getenv(name);
    if (text == nullptr) {
        return std::nullopt;
    }
    return std::strtoull(text, nullptr, 10);
}

std::uint64_t FreshSeed() {
    auto now = static_cast<std::uint64_t>(std::chrono::system_clock::now().time_since_epoch().count());
    const std::uint64_t seed = SplitMix64(now);
    std::printf("fresh random cases: TN_SEED=%llu\n", static_cast<unsigned long long>(seed));
    return seed;
}

std::uint64_t ChooseBaseSeed() {
    if (const auto given = NumberFromEnvironment("TN_SEED")) {
        return *given;
    }
    return IsSoaking() ? FreshSeed() : kFixedSeed;
}

void RunCase(std::uint64_t number, const std::function<void(Random&)>& body) {
    SCOPED_TRACE("TN_CASE=" + std::to_string(number) + " runs this case alone");
    if (std::getenv("TN_TRACE") != nullptr) {
        std::fprintf(stderr, "TN_CASE=%s\n", std::to_string(number).c_str());
    }
    Random random(number);
    body(random);
}

} // namespace

bool IsSoaking() {
    static const bool soaking = std::getenv("TN_SOAK") != nullptr;
    return soaking;
}

bool HasTimeForEveryValue() {
#if defined(__OPTIMIZE__)
    return true;
#else
    return IsSoaking();
#endif
}

std::uint64_t BaseSeed() {
    static const std::uint64_t seed = ChooseBaseSeed();
    return seed;
}

void ForEachCase(int count, const std::function<void(Random& random)>& body) {
    if (const auto number = NumberFromEnvironment("TN_CASE")) {
        RunCase(*number, body);
        return;
    }
    std::uint64_t numbers = BaseSeed();
    const int cases = IsSoaking() ? count * kSoakFactor : count;
    for (int i = 0; i < cases && !::testing::Test::HasFailure(); ++i) {
        RunCase(SplitMix64(numbers), body);
    }
}

} // namespace tn::test
