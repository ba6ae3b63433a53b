// Every overload against its model, in random pictures, at every level and cancelled at every poll.

#include "tests/models/CompositingModels.h"
#include "tests/ops/compositing/Forms.h"
#include "tests/support/Cases.h"
#include "tests/support/PairDifferential.h"

#include <gtest/gtest.h>

namespace tn::test {
namespace {

constexpr int kCases = 3100; // of each overload
constexpr int kCasesOfWideRows = 60;

template <class SourceType, class DestinationType>
void ExpectFormLikeModel(Random& random, const Form<SourceType, DestinationType>& form,
                         PairOfPictures<SourceType, DestinationType>& pair) {
    const TnPoint sourceSize = pair.source.Surface().Size();
    const TnPoint size = pair.destination.Surface().Size();
    Request request = RandomRequest(random, sourceSize, size);
    request.to = {random.Pixel()};
    const model::Compositing call = form.CallFor(request, size);
    ExpectPairLikeModel(
        pair, [&](const SourceType& source, DestinationType& destination) { form.run(source, destination, request); },
        [&](auto& source, auto& destination, int poll) {
            model::Composite(call, model::PlaneOf(source), model::PlaneOf(destination), poll);
        },
        model::PollsOf(call, sourceSize, size));
}

// Rows that are longer than what is kept at hand on the way from the source to the destination.
TnPoint WideSize(Random& random) { return {random.Between(200, 1100), random.Between(1, 3)}; }

template <class FormType> class RandomPictures;

template <class SourceType, class DestinationType>
class RandomPictures<Form<SourceType, DestinationType>>
    : public ::testing::TestWithParam<Form<SourceType, DestinationType>> {
protected:
    using Pair = PairOfPictures<SourceType, DestinationType>;

    void ExpectLikeModel() const {
        ForEachCase(kCases, [this](Random& random) {
            Pair pair(random);
            ExpectFormLikeModel(random, this->GetParam(), pair);
        });
    }

    void ExpectLikeModelInWideRows() const {
        ForEachCase(kCasesOfWideRows, [this](Random& random) {
            const TnPoint sourceSize = WideSize(random);
            Pair pair(random, sourceSize, WideSize(random));
            ExpectFormLikeModel(random, this->GetParam(), pair);
        });
    }
};

class ImageToImage : public RandomPictures<ImageForm> {};
class MatteToMatte : public RandomPictures<MatteForm> {};
class ImageToMatte : public RandomPictures<ImageToMatteForm> {};
class MatteToImage : public RandomPictures<MatteToImageForm> {};

TEST_P(ImageToImage, EqualsItsModelInRandomPictures) { ExpectLikeModel(); }
TEST_P(MatteToMatte, EqualsItsModelInRandomPictures) { ExpectLikeModel(); }
TEST_P(ImageToMatte, EqualsItsModelInRandomPictures) { ExpectLikeModel(); }
TEST_P(MatteToImage, EqualsItsModelInRandomPictures) { ExpectLikeModel(); }

TEST_P(ImageToImage, EqualsItsModelInWideRows) { ExpectLikeModelInWideRows(); }
TEST_P(MatteToMatte, EqualsItsModelInWideRows) { ExpectLikeModelInWideRows(); }
TEST_P(ImageToMatte, EqualsItsModelInWideRows) { ExpectLikeModelInWideRows(); }
TEST_P(MatteToImage, EqualsItsModelInWideRows) { ExpectLikeModelInWideRows(); }

INSTANTIATE_TEST_SUITE_P(Compositing, ImageToImage, ::testing::ValuesIn(kImageForms), FormTestName<ImageForm>);
INSTANTIATE_TEST_SUITE_P(Compositing, MatteToMatte, ::testing::ValuesIn(kMatteForms), FormTestName<MatteForm>);
INSTANTIATE_TEST_SUITE_P(Compositing, ImageToMatte, ::testing::ValuesIn(kImageToMatteForms),
                         FormTestName<ImageToMatteForm>);
INSTANTIATE_TEST_SUITE_P(Compositing, MatteToImage, ::testing::ValuesIn(kMatteToImageForms),
                         FormTestName<MatteToImageForm>);

} // namespace
} // namespace tn::test
