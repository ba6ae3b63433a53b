// Compositing of distinct surfaces in several threads at once. The mapping of colours is left out: its lists are shared
// by all callers.

#include "tests/ops/compositing/Forms.h"
#include "tests/support/Pictures.h"
#include "tests/support/PixelDiff.h"
#include "tests/support/Threads.h"

#include <gtest/gtest.h>
#include <string>

namespace tn::test {
namespace {

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

TEST(Compositing, OfDistinctSurfacesCanBeDoneInSeveralThreadsAtOnce) {
    ExpectNoFindingsInThreads(kRounds, [](Random& random) {
        return FirstDifference(random, kImageForms) + FirstDifference(random, kMatteForms) +
               FirstDifference(random, kImageToMatteForms) + FirstDifference(random, kMatteToImageForms);
    });
}

} // namespace
} // namespace tn::test
