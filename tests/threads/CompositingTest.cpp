// Compositing of distinct surfaces in several threads at once. The mapping of colours is left out: its lists are shared
// by all callers.

#include "tests/ops/compositing/Forms.h"
#include "tests/support/Levels.h"
#include "tests/support/Pictures.h"
#include "tests/support/PixelDiff.h"

#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <thread>
#include <vector>

namespace tn::test {
namespace {

constexpr std::size_t kThreads = 4;
constexpr int kRounds = 12;

template <class SourceType, class DestinationType>
std::string FirstDifference(Random& random, const Form<SourceType, DestinationType>& form) {
    const Picture<SourceType> source(random);
    Picture<DestinationType> destination(random);
    const TnPoint size = destination.Surface().Size();
    const Request request = RandomRequest(random, source.Surface().Size(), size);
    auto modelSource = source.Snapshot();
    auto expected = destination.Snapshot();
    model::Composite(form.CallFor(request, size), model::PlaneOf(modelSource), model::PlaneOf(expected));
    form.run(source.Surface(), destination.Surface(), request);
    const auto result = SamePixels(expected, destination.Snapshot());
    return result ? "" : std::string(form.name) + ": " + result.message();
}

template <class FormType, std::size_t count>
std::string FirstDifference(Random& random, const FormType (&forms)[count]) {
    std::string finding;
    for (const FormType& form : forms) {
        if (form.combination != kMapColor) {
            finding += FirstDifference(random, form);
        }
    }
    return finding;
}

// Assertions belong to the main thread, so the others say what they found.
void RunRounds(std::uint64_t seed, std::string& finding) {
    Random random(seed);
    for (int round = 0; round < kRounds && finding.empty(); ++round) {
        finding = FirstDifference(random, kImageForms) + FirstDifference(random, kMatteForms) +
                  FirstDifference(random, kImageToMatteForms) + FirstDifference(random, kMatteToImageForms);
    }
}

TEST(Compositing, OfDistinctSurfacesCanBeDoneInSeveralThreadsAtOnce) {
    ForEachSupportedLevel([](ProcessorLevel) {
        std::vector<std::string> findings(kThreads);
        std::vector<std::thread> threads;
        for (std::size_t i = 0; i < kThreads; ++i) {
            threads.emplace_back(RunRounds, i, std::ref(findings[i]));
        }
        for (std::thread& thread : threads) {
            thread.join();
        }
        EXPECT_EQ(findings, std::vector<std::string>(kThreads));
    });
}

} // namespace
} // namespace tn::test
