#include "Comparison.h"
#include "Pictures.h"
#include "Rivals.h"
#include "peers/Peers.h"

#include "TnGraphics/ops/Copies.h"

namespace tn::bench {
namespace {

constexpr double kCopyLimit = 1.1;
constexpr double kMatrixLimit = 1.0;
constexpr TnColorTransform kTint = {.red = {230, 20}, .green = {200, -10}, .blue = {300, 5}, .alpha = {250, 1}};

Comparison Copy(const TnPoint& size) {
    const auto from = MakePicture(size, Picture::kNoise);
    const auto to = MakePicture(size, Picture::kPhotograph);
    const Rows source = StraightRows(*from);
    const Rows destination = StraightRows(*to);
    return {.name = "TnCopy " + SizeName(size),
            .items = PixelCount(size),
            .ours =
                [=] {
                    TnCopy(*from, *to, {0, 0});
                },
            .rivals = {CopyByRows(from, to, kCopyLimit),
                       {"pixman", PixmanCopy(source, destination), {}},
                       {"OpenCV", OpenCvCopy(source, destination), {}},
                       {"libyuv", LibyuvCopy(source, destination), {}}}};
}

Channels TintForPeers() {
    const auto channel = [](const TnChannelTransform& c) { return Channel{c.scale / 256.0, double(c.offset)}; };
    return {channel(kTint.blue), channel(kTint.green), channel(kTint.red), channel(kTint.alpha)};
}

Comparison CopyWithMatrix(const TnPoint& size) {
    const auto from = MakePicture(size, Picture::kNoise);
    const auto to = MakePicture(size, Picture::kPhotograph);
    const Rows source = StraightRows(*from);
    const Rows destination = StraightRows(*to);
    const Channels channels = TintForPeers();
    return {.name = "TnCopy with matrix " + SizeName(size),
            .items = PixelCount(size),
            .ours =
                [=] {
                    TnCopy(*from, kTint, 255, *to, {0, 0}, to->Bounds());
                },
            .rivals = {{"OpenCV, transform", OpenCvTransform(source, destination, channels), kMatrixLimit},
                       {"OpenCV, convertTo", OpenCvConvert(source, destination, channels.red), kMatrixLimit},
                       {"OpenCV, LUT", OpenCvLookUp(source, destination, channels), {}},
                       ReadReadWrite(from, to)}};
}

} // namespace

Section CopyComparisons() {
    Section section = {"Copying", {}};
    for (const TnPoint& size : {kFullHd, kCached}) {
        section.comparisons.push_back(Copy(size));
        section.comparisons.push_back(CopyWithMatrix(size));
    }
    return section;
}

} // namespace tn::bench
