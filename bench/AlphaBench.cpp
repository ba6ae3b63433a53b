#include "Comparison.h"
#include "Pictures.h"
#include "Rivals.h"
#include "peers/Peers.h"

#include "TnGraphics/ops/AlphaAnalysis.h"
#include "TnGraphics/ops/AlphaFilter.h"
#include "TnGraphics/ops/DownSample.h"
#include "TnGraphics/ops/Fills.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace tn::bench {
namespace {

constexpr double kPeerLimit = 1.0;
constexpr double kSmallSquareLimit = 1.3;
constexpr double kRadiusLimit = 1.2;
constexpr double kBorderLimit = 0.06;
constexpr double kEmptyLimit = 1.2;
constexpr double kDownSampleLimit = 8.0;

constexpr int kSmallRadius = 3;
constexpr int kLargeRadius = 15;
constexpr int kRadius = 6;
constexpr int kTenfoldRadius = 10 * kRadius;

constexpr int kBorder = 10;
constexpr TnPoint kCorner = {0, 0};
const TnColor kColor = {200, 30, 140, 220};

/// Modes of ProcessAlphaChannel.
enum class Filter { kMean = 1, kMaximum = 2, kMinimum = 3 };

std::string NameOf(Filter filter) {
    const char* const names[] = {"mean", "maximum", "minimum"};
    return names[static_cast<int>(filter) - 1];
}

std::string WorkName(Filter filter, int radius, const std::string& surface, const TnPoint& size) {
    return NameOf(filter) + ", radius " + std::to_string(radius) + ", " + surface + " " + SizeName(size);
}

template <class SurfaceType> Work Filtered(const Shared<SurfaceType>& surface, Filter filter, int radius) {
    return [=] { ProcessAlphaChannel(*surface, static_cast<int>(filter), radius); };
}

Comparison FilteredMatte(Filter filter, int radius, const TnPoint& size, std::vector<Rival> rivals) {
    return {.name = WorkName(filter, radius, "matte", size),
            .items = PixelCount(size),
            .ours = Filtered(MakeMatte(size, Picture::kNoise), filter, radius),
            .rivals = std::move(rivals)};
}

Comparison FilteredImage(Filter filter, int radius, const TnPoint& size) {
    return {.name = WorkName(filter, radius, "image", size),
            .items = PixelCount(size),
            .ours = Filtered(MakePicture(size, Picture::kNoise), filter, radius),
            .rivals = {}};
}

std::vector<Rival> FilteringPeers(Filter filter, int radius, const TnPoint& size) {
    const ByteRows from = MatteRows(*MakeMatte(size, Picture::kNoise));
    const ByteRows to = MatteRows(*MakeMatte(size, Picture::kTitle));
    const double squareLimit = radius == kSmallRadius ? kSmallSquareLimit : kPeerLimit;
    switch (filter) {
    case Filter::kMean:
        return {{"OpenCV, sepFilter2D", OpenCvTriangle(from, to, radius), kPeerLimit},
                {"OpenCV, two boxes", OpenCvTwoBoxes(from, to, radius), {}}};
    case Filter::kMaximum:
        return {{"OpenCV, dilate", OpenCvDilate(from, to, radius), squareLimit}};
    case Filter::kMinimum:
        return {{"OpenCV, erode", OpenCvErode(from, to, radius), squareLimit}};
    }
    return {};
}

std::vector<Comparison> BesidePeers(Filter filter, const TnPoint& size) {
    std::vector<Comparison> comparisons;
    for (const int radius : {kSmallRadius, kLargeRadius}) {
        comparisons.push_back(FilteredMatte(filter, radius, size, FilteringPeers(filter, radius, size)));
        comparisons.push_back(FilteredImage(filter, radius, size));
    }
    return comparisons;
}

std::vector<Comparison> BesideSmallerRadius(Filter filter, const TnPoint& size) {
    const Comparison smaller = FilteredMatte(filter, kRadius, size, {});
    return {smaller, FilteredMatte(filter, kTenfoldRadius, size, {Ours(smaller.name, kRadiusLimit)})};
}

TnRect ContentOf(const TnImage& image) { return CalculateContentArea(image); }

TnRect ContentOf(const TnMatte& matte) { return CalculateContentArea(matte, 0); }

/// A surface without content but for the rectangle.
template <class SurfaceType>
Comparison ContentArea(const std::string& name, const TnPoint& size, const TnRect& rect,
                       std::optional<double> limit = {}) {
    const auto surface = std::make_shared<SurfaceType>(size, true);
    AlphaFill(*surface, rect, 255);
    return {.name = "CalculateContentArea, " + name + " " + SizeName(size),
            .items = PixelCount(size),
            .ours = [surface] { ContentOf(*surface); },
            .rivals = {{"read", [surface] { ReadRows(*surface); }, limit}}};
}

template <class SurfaceType>
Comparison DownSampled(const std::string& name, const TnPoint& size, std::optional<double> limit,
                       void (*reduce)(const TnMask&, SurfaceType&)) {
    const auto mask = MakeMask({kCellSide * size.x, kCellSide * size.y});
    return {.name = "DownSample, " + name + " " + SizeName(size),
            .items = PixelCount(size),
            .ours = [mask, reduce, to = std::make_shared<SurfaceType>(size, true)] { reduce(*mask, *to); },
            .rivals = {CopyByRows(mask, mask, limit)}};
}

} // namespace

Section AlphaFilterComparisons() {
    Section section = {"Alpha filters", {}};
    auto& comparisons = section.comparisons;
    for (const TnPoint& size : {kFullHd, kCached}) {
        for (const Filter filter : {Filter::kMean, Filter::kMaximum, Filter::kMinimum}) {
            std::ranges::move(BesidePeers(filter, size), std::back_inserter(comparisons));
            std::ranges::move(BesideSmallerRadius(filter, size), std::back_inserter(comparisons));
        }
    }
    return section;
}

Section ContentAreaComparisons() {
    const TnPoint& size = kFullHd;
    const TnRect inside = {kBorder, kBorder, size.x - 2 * kBorder, size.y - 2 * kBorder};
    return {"Content areas",
            {ContentArea<TnImage>("image with a border", size, inside, kBorderLimit),
             ContentArea<TnImage>("empty image", size, {}, kEmptyLimit),
             ContentArea<TnMatte>("matte with a border", size, inside), ContentArea<TnMatte>("empty matte", size, {})}};
}

Section DownSampleComparisons() {
    Section section = {"Down-sampling", {}};
    for (const TnPoint& size : {kFullHd, kCached}) {
        section.comparisons.push_back(DownSampled<TnMatte>(
            "matte", size, kDownSampleLimit, [](const TnMask& mask, TnMatte& to) { DownSample(mask, to, kCorner); }));
        section.comparisons.push_back(DownSampled<TnImage>(
            "image", size, {}, [](const TnMask& mask, TnImage& to) { DownSample(mask, to, kColor, kCorner); }));
    }
    return section;
}

} // namespace tn::bench
