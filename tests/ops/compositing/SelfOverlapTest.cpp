// One surface as source and destination, and two surfaces in the same bytes: read and written strictly in step.

#include "tests/ops/compositing/Forms.h"
#include "tests/support/Cases.h"
#include "tests/support/Levels.h"
#include "tests/support/PairWatch.h"
#include "tests/support/SharedStorage.h"
#include "tests/support/Surfaces.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <vector>

namespace tn::test {
namespace {

constexpr int kCasesOfAForm = 400;

using Bytes = std::vector<std::uint8_t>;
using Values = std::vector<int>;

// A row of pixels with the values 1, 2, 3 and so on, copied into itself.
Values CopiedInARow(int width, int by) {
    TnImage image({width, 1});
    auto written = image.begin();
    for (int value = 1; value <= width; ++value, written.Next()) {
        *written = static_cast<std::uint32_t>(value);
    }
    TnCopy(image, image, {by, 0});
    Values values;
    auto read = image.begin();
    for (int x = 0; x < width; ++x, read.Next()) {
        values.push_back(static_cast<int>(read->value));
    }
    return values;
}

TEST(SelfOverlap, AMoveToTheRightSmears) {
    EXPECT_EQ(CopiedInARow(6, 1), (Values{1, 1, 1, 1, 1, 1}));
    EXPECT_EQ(CopiedInARow(6, 2), (Values{1, 2, 1, 2, 1, 2}));
    EXPECT_EQ(CopiedInARow(6, 3), (Values{1, 2, 3, 1, 2, 3}));
}

TEST(SelfOverlap, AMoveToTheLeftMoves) {
    EXPECT_EQ(CopiedInARow(6, -1), (Values{2, 3, 4, 5, 6, 6}));
    EXPECT_EQ(CopiedInARow(6, -4), (Values{5, 6, 3, 4, 5, 6}));
}

TEST(SelfOverlap, MovesByAnyDistanceInALongRow) {
    constexpr int kWidth = 300;
    for (int by = -kWidth; by <= kWidth; ++by) {
        Values expected(kWidth);
        for (int x = 0; x < kWidth; ++x) {
            expected[static_cast<std::size_t>(x)] = x + 1;
        }
        for (int x = std::max(0, by); x < std::min(kWidth, kWidth + by); ++x) {
            expected[static_cast<std::size_t>(x)] = expected[static_cast<std::size_t>(x - by)];
        }
        ForEachSupportedLevel([&](ProcessorLevel) { EXPECT_EQ(CopiedInARow(kWidth, by), expected) << "by " << by; });
    }
}

TEST(SelfOverlap, AMoveDownSmearsRowsAndAMoveUpMovesThem) {
    TnMatte matte({40, 4});
    const auto paint = [&] {
        for (int y = 0; y < 4; ++y) {
            for (int x = 0; x < 40; ++x) {
                SetPixel(matte, x, y, static_cast<std::uint8_t>(y + 1));
            }
        }
    };
    const auto rows = [&] {
        return Values{PixelAt(matte, 39, 0), PixelAt(matte, 39, 1), PixelAt(matte, 39, 2), PixelAt(matte, 39, 3)};
    };
    paint();
    TnCopy(matte, matte, {0, 1});
    EXPECT_EQ(rows(), (Values{1, 1, 1, 1}));
    paint();
    TnCopy(matte, matte, {0, -1});
    EXPECT_EQ(rows(), (Values{2, 3, 4, 4}));
}

TEST(SelfOverlap, TwoContentsOfOneStorageOverlapLikeOneSurface) {
    Bytes bytes(4 * 40);
    const auto surface = [&](std::size_t firstPixel) {
        return TnImage(new SharedStorage(bytes, 4 * firstPixel, 160), {39, 1});
    };
    TnImage left = surface(0);
    TnImage right = surface(1);
    SetAll(right, 0x22222222);
    SetPixel(left, 0, 0, 0x11111111);
    TnCopy(left, right, {0, 0});
    EXPECT_EQ(PixelAt(right, 38, 0), TnImagePixel(0x11111111));
    EXPECT_EQ(bytes, Bytes(160, 0x11));
}

// Where a surface lies in the bytes.
struct Site {
    std::size_t firstByte;
    std::uint32_t rowBytes;
    TnPoint size;

    template <class SurfaceType> SurfaceType MakeSurface(Bytes& bytes, TnCancelProc cancelProc) const {
        return SurfaceType(new SharedStorage(bytes, firstByte, rowBytes), size, cancelProc);
    }
    template <class SurfaceType> model::Plane PlaneIn(Bytes& bytes) const {
        return {bytes.data() + firstByte, rowBytes, static_cast<int>(sizeof(typename SurfaceType::Pixel)), size};
    }
};

constexpr std::size_t kMarginBytes = 6144; // room for neighbouring rows and columns on either side

Site RandomSite(Random& random) {
    const std::int32_t width = random.OneIn(10) ? random.Between(200, 600) : random.Between(1, 140);
    const TnPoint size = {width, random.OneIn(10) ? random.Between(30, 70) : random.Between(1, 5)};
    return {kMarginBytes, static_cast<std::uint32_t>(4 * (size.x + random.Between(0, 3))), size};
}

// Near the other one: few pixels and rows away, rarely with rows of another length.
template <class SurfaceType> Site RandomSiteNear(Random& random, const Site& other) {
    constexpr int kStep = sizeof(typename SurfaceType::Pixel);
    Site site = other;
    const int rowsAway = random.OneIn(2) ? 0 : random.Between(-2, 2);
    const int bytesAway = rowsAway * static_cast<int>(other.rowBytes) + kStep * random.Between(-70, 70);
    site.firstByte = static_cast<std::size_t>(static_cast<int>(other.firstByte) + bytesAway);
    if (random.OneIn(8)) {
        site.rowBytes += 4;
    }
    if (random.OneIn(4)) {
        site.size = {random.Between(1, other.size.x), random.Between(1, other.size.y)};
    }
    return site;
}

// Random pixels, which repeat after a prime number of them.
Bytes RandomBytes(Random& random, const Site& site) {
    std::vector<std::uint32_t> pixels(509);
    std::generate(pixels.begin(), pixels.end(), [&] { return random.Pixel(); });
    const auto* first = reinterpret_cast<const std::uint8_t*>(pixels.data());
    const std::size_t size = 2 * kMarginBytes + (site.rowBytes + 4) * static_cast<std::size_t>(site.size.y);
    Bytes bytes;
    while (bytes.size() < size) {
        bytes.insert(bytes.end(), first, first + 4 * pixels.size());
    }
    bytes.resize(size);
    return bytes;
}

// Mostly few pixels and rows away, so that what is read has just been written.
Request RandomMove(Random& random, const Site& source, const Site& destination) {
    Request request = RandomRequest(random, source.size, destination.size);
    if (!random.OneIn(8)) {
        request.at = {random.OneIn(3) ? 0 : random.Between(-70, 70), random.OneIn(2) ? 0 : random.Between(-2, 2)};
        request.subPixelAt = {RandomSubPixelOffset(random, request.at.x), RandomSubPixelOffset(random, request.at.y)};
    }
    request.to = {random.Pixel()};
    return request;
}

void ExpectSameBytes(const Bytes& expected, const Bytes& actual) {
    if (expected != actual) {
        const auto [e, a] = std::mismatch(expected.begin(), expected.end(), actual.begin());
        ADD_FAILURE() << "the byte at " << e - expected.begin() << " is " << int{*a} << " and not " << int{*e};
    }
}

// Expects what the model makes of a copy of the bytes.
template <class FormType, class Run>
void ExpectInStep(const FormType& form, const Request& request, Bytes& bytes, const model::Plane& source,
                  const model::Plane& destination, const Run& run) {
    const Bytes before = bytes;
    model::Composite(form.CallFor(request, destination.size), source, destination);
    const Bytes expected = bytes;
    ForEachSupportedLevel([&](ProcessorLevel) {
        std::copy(before.begin(), before.end(), bytes.begin());
        run();
        ExpectSameBytes(expected, bytes);
    });
}

template <class SurfaceType> void MoveWithinOneSurface(Random& random, const Form<SurfaceType, SurfaceType>& form) {
    const Site site = RandomSite(random);
    Bytes bytes = RandomBytes(random, site);
    SurfaceType surface = site.MakeSurface<SurfaceType>(bytes, &PairWatch::DestinationProc);
    const Request request = RandomMove(random, site, site);
    const model::Plane plane = site.PlaneIn<SurfaceType>(bytes);
    const std::string polls = model::PollsOf(form.CallFor(request, site.size), site.size, site.size);
    ExpectInStep(form, request, bytes, plane, plane, [&] {
        const PairWatch watch;
        form.run(surface, surface, request);
        EXPECT_EQ(watch.Polls(), std::string(polls.size(), 'd'));
        EXPECT_EQ(surface.Clients(), 0U);
    });
}

template <class SourceType, class DestinationType>
void MoveBetweenSurfaces(Random& random, const Form<SourceType, DestinationType>& form) {
    const Site to = RandomSite(random);
    const Site from = RandomSiteNear<SourceType>(random, to);
    Bytes bytes = RandomBytes(random, to);
    const SourceType source = from.MakeSurface<SourceType>(bytes, &PairWatch::SourceProc);
    DestinationType destination = to.MakeSurface<DestinationType>(bytes, &PairWatch::DestinationProc);
    const Request request = RandomMove(random, from, to);
    ExpectInStep(form, request, bytes, from.PlaneIn<SourceType>(bytes), to.PlaneIn<DestinationType>(bytes),
                 [&] { form.run(source, destination, request); });
}

TEST(SelfOverlap, EveryFormWithinOneSurfaceIsDoneInStep) {
    const auto each = [](const auto& forms) {
        for (const auto& form : forms) {
            SCOPED_TRACE(form.name);
            ForEachCase(kCasesOfAForm, [&](Random& random) { MoveWithinOneSurface(random, form); });
        }
    };
    each(kImageForms);
    each(kMatteForms);
}

TEST(SelfOverlap, EveryFormBetweenSurfacesInTheSameBytesIsDoneInStep) {
    ForEachForm([](const auto& form) {
        ForEachCase(kCasesOfAForm, [&](Random& random) { MoveBetweenSurfaces(random, form); });
    });
}

} // namespace
} // namespace tn::test
