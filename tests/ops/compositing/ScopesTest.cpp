// Compositing while scopes change what an image shows.

#include "tests/ops/compositing/Forms.h"
#include "tests/support/Cases.h"
#include "tests/support/Pictures.h"
#include "tests/support/PixelDiff.h"

#include "TnGraphics/port/StCoerceToTopFieldOnly.h"
#include "TnGraphics/port/StDisregardAlphaInGet.h"

#include <gtest/gtest.h>

namespace tn::test {
namespace {

constexpr int kCases = 100; // of each overload
constexpr TnImagePixel kOpaqueOutside = 0xFF123456;

ModelImage Composited(const ImageForm& form, const Request& request, ModelImage source, ModelImage destination) {
    const TnPoint size = {destination.Width(), destination.Height()};
    model::Composite(form.CallFor(request, size), model::PlaneOf(source), model::PlaneOf(destination));
    return destination;
}

// The scope is one of reads at positions, which operations do not make.
TEST(CompositingInAScope, IsTheSameWhileAlphasAreDisregardedInReads) {
    for (const ImageForm& form : kImageForms) {
        SCOPED_TRACE(form.name);
        ForEachCase(kCases, [&](Random& random) {
            const Picture<TnImage> source(random);
            Picture<TnImage> destination(random);
            Request request = RandomRequest(random, source.Surface().Size(), destination.Surface().Size());
            request.to = {0x12345678};
            const ModelImage expected = Composited(form, request, source.Snapshot(), destination.Snapshot());
            const StDisregardAlphaInGet ofSource(source.Surface(), kOpaqueOutside);
            const StDisregardAlphaInGet ofDestination(destination.Surface(), kOpaqueOutside);
            form.run(source.Surface(), destination.Surface(), request);
            EXPECT_TRUE(SamePixels(expected, destination.Snapshot()));
        });
    }
}

// The even rows as a picture of their own.
ModelImage TopFieldOf(const ModelImage& picture) {
    ModelImage field = UniformPicture<std::uint32_t>(picture.storageSize.x, picture.storageSize.y / 2, 0);
    for (int y = 0; y < field.Height(); ++y) {
        for (int x = 0; x < field.Width(); ++x) {
            field.At(x, y) = picture.At(x, 2 * y);
        }
    }
    return field;
}

ModelImage WithTopField(ModelImage picture, const ModelImage& field) {
    for (int y = 0; y < field.Height(); ++y) {
        for (int x = 0; x < field.Width(); ++x) {
            picture.At(x, 2 * y) = field.At(x, y);
        }
    }
    return picture;
}

void Randomise(Random& random, TnImage& image) {
    for (TnImagePixel& pixel : image) {
        pixel = random.Pixel();
    }
}

TEST(CompositingInAScope, OfTopFieldsReadsAndWritesEvenRowsOnly) {
    for (const ImageForm& form : kImageForms) {
        SCOPED_TRACE(form.name);
        ForEachCase(kCases, [&](Random& random) {
            TnImage source({random.Between(1, 40), random.Between(2, 12)});
            TnImage destination({random.Between(1, 40), random.Between(2, 12)});
            Randomise(random, source);
            Randomise(random, destination);
            const TnPoint sourceField = {source.Size().x, source.Size().y / 2};
            Request request = RandomRequest(random, sourceField, {destination.Size().x, destination.Size().y / 2});
            request.to = {0x12345678};
            const ModelImage before = ContentOf(destination);
            const ModelImage field = Composited(form, request, TopFieldOf(ContentOf(source)), TopFieldOf(before));
            {
                const StCoerceToTopFieldOnly ofSource(source);
                const StCoerceToTopFieldOnly ofDestination(destination);
                form.run(source, destination, request);
            }
            EXPECT_TRUE(SamePixels(WithTopField(before, field), destination));
        });
    }
}

} // namespace
} // namespace tn::test
