#include "Comparison.h"
#include "Pictures.h"
#include "Rivals.h"
#include "peers/Peers.h"

#include "TnGraphics/geometry/MakeMatrix.h"
#include "TnGraphics/transform/Transform.h"

#include <algorithm>
#include <array>
#include <utility>

namespace tn::bench {
namespace {

using TransformMatrix = Matrix<double, 3, 3>;

constexpr double kDegrees = 30.0;
constexpr int kEnlargement = 2;
constexpr int kReduction = 3;

constexpr Reading kReadings[] = {Reading::kNearest, Reading::kSmooth};

/// Ours ask about alphas where they read between pixels, so the pictures differ in these.
constexpr Picture kSources[] = {Picture::kPhotograph, Picture::kTitle, Picture::kHoles};

/// How much of each peer's time ours may take.
struct Limits {
    std::optional<double> openCv = {};
    std::optional<double> pixman = {};
    std::optional<double> cairo = {};
    std::optional<double> qtPremultiplied = {};
};

constexpr Limits kFastestPeer = {.openCv = 1.0, .pixman = 1.0, .cairo = 1.0, .qtPremultiplied = 1.0};
constexpr Limits kQt = {.qtPremultiplied = 1.0};
constexpr Limits kOpenCv = {.openCv = 1.0};
constexpr double kAreaLimit = 1.0;
constexpr double kMatteAreaLimit = 1.3;

TnPoint Divided(const TnPoint& size, int divisor) { return {size.x / divisor, size.y / divisor}; }

/// What is reduced to whole pixels: peers are slower where blocks cut pixels.
TnPoint WholeBlocks(const TnPoint& size) {
    return {size.x / kReduction * kReduction, size.y / kReduction * kReduction};
}

/// The matrix with the middle of the size in place of the origin.
TransformMatrix AboutMiddle(TransformMatrix matrix, const TnPoint& size) {
    auto& m = matrix.m;
    const double x = size.x / 2.0;
    const double y = size.y / 2.0;
    for (auto& row : m) {
        row[2] -= row[0] * x + row[1] * y;
    }
    for (int column = 0; column < 3; ++column) {
        m[0][column] += x * m[2][column];
        m[1][column] += y * m[2][column];
    }
    return matrix;
}

TransformMatrix Rotation(const TnPoint& size) { return AboutMiddle(MakeMatrix<double>::Rotate(kDegrees), size); }

/// The left edge is read from 1 / 0.8 times as far away from the middle, the right one from 1 / 1.2 times as far.
TransformMatrix Perspective(const TnPoint& size) {
    TransformMatrix matrix = MakeMatrix<double>::Identity();
    matrix.m[2][0] = 0.4 / size.x;
    matrix.m[2][1] = 0.2 / size.y;
    return AboutMiddle(matrix, size);
}

Mapping ForPeers(const TransformMatrix& matrix) {
    Mapping mapping;
    std::ranges::transform(matrix.m, mapping.begin(), [](const auto& row) { return std::to_array(row); });
    return mapping;
}

InterpolationType Interpolation(Reading reading) {
    return reading == Reading::kNearest ? InterpolationType::kNearest : InterpolationType::kSmooth;
}

template <class SurfaceType>
Work Transformed(const Shared<SurfaceType>& from, const Shared<SurfaceType>& to, const TransformMatrix& matrix,
                 Reading reading) {
    return [=] { Transform(*from, *to, matrix, Interpolation(reading)); };
}

std::string WorkName(const std::string& work, Reading reading) {
    return work + (reading == Reading::kNearest ? ", nearest" : ", smooth");
}

/// A picture as we and as the peers hold it.
struct Source {
    Source(const TnPoint& size, Picture what)
        : picture(what), image(MakePicture(size, picture)), straight(StraightRows(*image)),
          premultiplied(PremultipliedRows(*image)) {}

    Picture picture;
    Shared<TnImage> image;
    Rows straight;
    Rows premultiplied;
};

/// What is written; how colours are held does not matter there.
struct Destination {
    explicit Destination(const TnPoint& size)
        : image(MakePicture(size, Picture::kPhotograph)), rows(StraightRows(*image)) {}

    Shared<TnImage> image;
    Rows rows;
};

/// Every way to see pictures of one size through matrices.
class ImageTransforms {
public:
    ImageTransforms(const TnPoint& size, Picture picture, const Destination& destination)
        : size_(size), source_(size, picture), destination_(destination) {}

    Comparison Rotated(Reading reading) const {
        return Seen(WorkName("rotation", reading), Rotation(size_), reading,
                    reading == Reading::kNearest ? kFastestPeer : kQt);
    }
    Comparison InPerspective(Reading reading) const {
        return Seen(WorkName("perspective", reading), Perspective(size_), reading, kOpenCv);
    }
    Comparison Enlarged(Reading reading) const;
    Comparison Reduced() const;

private:
    Comparison Seen(const std::string& work, const TransformMatrix& matrix, Reading reading,
                    const Limits& limits) const;
    static std::string Name(const std::string& work, const Source& source, const TnPoint& size) {
        return work + ", " + NameOf(source.picture) + " " + SizeName(size);
    }

    TnPoint size_;
    Source source_;
    Destination destination_;
};

std::vector<Rival> MappingPeers(const Source& source, const Destination& destination, const TransformMatrix& matrix,
                                Reading reading, const Limits& limits) {
    const Mapping mapping = ForPeers(matrix);
    const Rows& from = source.premultiplied;
    const Rows& to = destination.rows;
    const auto qt = [&](const Rows& rows, QtAlpha alpha, QtDrawing drawing = QtDrawing::kReplace) {
        return QtMap(rows, to, alpha, drawing, mapping, reading);
    };
    std::vector<Rival> rivals = {
        {"OpenCV, alpha ignored", OpenCvWarp(source.straight, to, mapping, reading), limits.openCv},
        {"Qt, premultiplied", qt(from, QtAlpha::kPremultiplied), limits.qtPremultiplied},
        {"Qt, straight", qt(source.straight, QtAlpha::kStraight), {}},
        {"pixman, premultiplied", PixmanMap(from, to, mapping, reading), limits.pixman}};
    if (source.picture == Picture::kPhotograph) {
        rivals.push_back(
            {"Qt, drawn over", qt(from, QtAlpha::kPremultiplied, QtDrawing::kOver), limits.qtPremultiplied});
    }
    const bool isAffine = matrix.m[2][0] == 0.0 && matrix.m[2][1] == 0.0;
    if (isAffine) {
        rivals.push_back({"cairo, premultiplied", CairoMap(from, to, mapping, reading), limits.cairo});
    }
    return rivals;
}

Comparison ImageTransforms::Seen(const std::string& work, const TransformMatrix& matrix, Reading reading,
                                 const Limits& limits) const {
    return {.name = Name(work, source_, size_),
            .items = PixelCount(size_),
            .ours = Transformed(source_.image, destination_.image, matrix, reading),
            .rivals = MappingPeers(source_, destination_, matrix, reading, limits)};
}

Comparison ImageTransforms::Enlarged(Reading reading) const {
    const Source source(Divided(size_, kEnlargement), source_.picture);
    const TransformMatrix matrix = MakeMatrix<double>::Scale(1.0 / kEnlargement, 1.0 / kEnlargement);
    std::vector<Rival> rivals = MappingPeers(source, destination_, matrix, reading, {});
    rivals.push_back({"OpenCV resize, alpha ignored", OpenCvEnlarge(source.straight, destination_.rows, reading), {}});
    rivals.push_back({"libyuv, alpha ignored", LibyuvEnlarge(source.straight, destination_.rows, reading), {}});
    return {.name = Name(WorkName("enlargement by 2", reading), source, size_),
            .items = PixelCount(size_),
            .ours = Transformed(source.image, destination_.image, matrix, reading),
            .rivals = std::move(rivals)};
}

Comparison ImageTransforms::Reduced() const {
    const Source source(WholeBlocks(size_), source_.picture);
    const Destination reduced(Divided(size_, kReduction));
    const Rows& to = reduced.rows;
    return {.name = Name("reduction by 3", source, source.image->Size()),
            .items = PixelCount(source.image->Size()),
            .ours = Transformed(source.image, reduced.image, MakeMatrix<double>::Scale(kReduction, kReduction),
                                Reading::kSmooth),
            .rivals = {{"Qt, premultiplied", QtReduce(source.premultiplied, to, QtAlpha::kPremultiplied), kAreaLimit},
                       {"Qt, straight", QtReduce(source.straight, to, QtAlpha::kStraight), {}},
                       {"OpenCV, alpha ignored", OpenCvReduce(source.straight, to), {}},
                       {"cairo, premultiplied", CairoReduce(source.premultiplied, to), {}}}};
}

/// The same for mattes.
class MatteTransforms {
public:
    explicit MatteTransforms(const TnPoint& size)
        : size_(size), from_(MakeMatte(size, Picture::kNoise)), to_(MakeMatte(size, Picture::kTitle)),
          source_(MatteRows(*from_)), destination_(MatteRows(*to_)) {}

    Comparison Rotated(Reading reading) const { return Seen(WorkName("rotation", reading), Rotation(size_), reading); }
    Comparison InPerspective(Reading reading) const {
        return Seen(WorkName("perspective", reading), Perspective(size_), reading);
    }
    Comparison Reduced() const;

private:
    Comparison Seen(const std::string& work, const TransformMatrix& matrix, Reading reading) const {
        return {.name = Name(work, size_),
                .items = PixelCount(size_),
                .ours = Transformed(from_, to_, matrix, reading),
                .rivals = {{"OpenCV", OpenCvWarp(source_, destination_, ForPeers(matrix), reading), {}}}};
    }
    static std::string Name(const std::string& work, const TnPoint& size) { return work + ", matte " + SizeName(size); }

    TnPoint size_;
    Shared<TnMatte> from_;
    Shared<TnMatte> to_;
    ByteRows source_;
    ByteRows destination_;
};

Comparison MatteTransforms::Reduced() const {
    const auto from = MakeMatte(WholeBlocks(size_), Picture::kNoise);
    const auto reduced = MakeMatte(Divided(size_, kReduction), Picture::kTitle);
    const ByteRows source = MatteRows(*from);
    const ByteRows to = MatteRows(*reduced);
    return {
        .name = Name("reduction by 3", from->Size()),
        .items = PixelCount(from->Size()),
        .ours = Transformed(from, reduced, MakeMatrix<double>::Scale(kReduction, kReduction), Reading::kSmooth),
        .rivals = {{"libyuv", LibyuvReduce(source, to), kMatteAreaLimit}, {"OpenCV", OpenCvReduce(source, to), {}}}};
}

} // namespace

Section TransformComparisons() {
    Section section = {"Transforms", {}};
    auto& comparisons = section.comparisons;
    for (const TnPoint& size : {kFullHd, kCached}) {
        const Destination destination(size);
        for (const Picture picture : kSources) {
            const ImageTransforms transforms(size, picture, destination);
            for (const Reading reading : kReadings) {
                comparisons.push_back(transforms.Rotated(reading));
                comparisons.push_back(transforms.Enlarged(reading));
                comparisons.push_back(transforms.InPerspective(reading));
            }
            comparisons.push_back(transforms.Reduced());
        }
        const MatteTransforms mattes(size);
        for (const Reading reading : kReadings) {
            comparisons.push_back(mattes.Rotated(reading));
            comparisons.push_back(mattes.InPerspective(reading));
        }
        comparisons.push_back(mattes.Reduced());
    }
    return section;
}

} // namespace tn::bench
