// Strings that are made in several threads at once, and given from one to another.

#include "tests/support/Threads.h"

#include "TnEngines/abi/basekit.h"

#include <array>
#include <gtest/gtest.h>
#include <mutex>
#include <string>

namespace tn::test {
namespace {

constexpr int kRounds = 2000;

struct Exchange {
    std::mutex mutex;
    std::array<BasekitString, 16> strings;

    void Swap(std::size_t place, BasekitString& text) {
        const std::lock_guard lock(mutex);
        strings.at(place).swap(text);
    }
};

bool IsOfOneLetter(const BasekitString& text) { return text.find_first_not_of(text.front()) == BasekitString::npos; }

TEST(StringsInThreads, KeepTheirTextsAndMayDieElsewhere) {
    Exchange exchange;
    ExpectNoFindingsInThreads(kRounds, [&](Random& random) {
        const auto letter = static_cast<char16_t>(u'a' + random.Between(0, 25));
        BasekitString text(static_cast<std::size_t>(random.Between(8, 200)), letter);
        exchange.Swap(static_cast<std::size_t>(random.Between(0, 15)), text);
        return text.empty() || IsOfOneLetter(text) ? std::string() : std::string("a text was overwritten");
    });
}

} // namespace
} // namespace tn::test
