#include "Peers.h"

#include <cstdlib>
#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>
#include <type_traits>

namespace tn::bench {
namespace {

template <class SomeRows> struct Picture {
    static constexpr int kType = std::is_same_v<SomeRows, ByteRows> ? CV_8UC1 : CV_8UC4;

    explicit Picture(const SomeRows& wrapped)
        : rows(wrapped),
          matrix(rows.height, rows.width, kType, rows.Bytes(), static_cast<std::size_t>(rows.RowBytes())) {}

    SomeRows rows;
    cv::Mat matrix;
};

/// Works on the rows where they are, and on this thread alone.
template <class SomeRows, class Operation>
Work On(const SomeRows& from, const SomeRows& to, const Operation& operation) {
    cv::setNumThreads(1);
    return [operation, source = Picture(from), destination = Picture(to)]() mutable {
        operation(source.matrix, destination.matrix);
    };
}

int Interpolation(Reading reading) { return reading == Reading::kNearest ? cv::INTER_NEAREST : cv::INTER_LINEAR; }

template <class SomeRows> Work Resize(const SomeRows& from, const SomeRows& to, int interpolation) {
    return On(from, to, [interpolation](const cv::Mat& source, cv::Mat& destination) {
        cv::resize(source, destination, destination.size(), 0.0, 0.0, interpolation);
    });
}

template <class SomeRows> Work Warp(const SomeRows& from, const SomeRows& to, const Mapping& mapping, Reading reading) {
    const auto& [x, y, w] = mapping;
    const cv::Matx33d matrix = {x[0], x[1], x[2], y[0], y[1], y[2], w[0], w[1], w[2]};
    const bool isAffine = w[0] == 0.0 && w[1] == 0.0;
    const int flags = Interpolation(reading) | cv::WARP_INVERSE_MAP;
    return On(from, to, [matrix, isAffine, flags](const cv::Mat& source, cv::Mat& destination) {
        if (isAffine) {
            cv::warpAffine(source, destination, matrix.get_minor<2, 3>(0, 0), destination.size(), flags);
        } else {
            cv::warpPerspective(source, destination, matrix, destination.size(), flags);
        }
    });
}

/// Weights that grow by one towards the middle, as shares of their sum.
cv::Mat TriangleKernel(int radius) {
    cv::Mat kernel(1, 2 * radius + 1, CV_32F);
    const float sum = static_cast<float>(radius + 1) * static_cast<float>(radius + 1);
    for (int n = 0; n < kernel.cols; ++n) {
        kernel.at<float>(n) = static_cast<float>(radius + 1 - std::abs(n - radius)) / sum;
    }
    return kernel;
}

cv::Mat Square(int radius) { return cv::getStructuringElement(cv::MORPH_RECT, {2 * radius + 1, 2 * radius + 1}); }

} // namespace

Work OpenCvCopy(const Rows& from, const Rows& to) {
    return On(from, to, [](const cv::Mat& source, cv::Mat& destination) { source.copyTo(destination); });
}

Work OpenCvTransform(const Rows& from, const Rows& to, const Channels& channels) {
    const auto& [blue, green, red, alpha] = channels;
    const cv::Matx<double, 4, 5> matrix = {blue.scale, 0,           0,         0,           blue.offset,  //
                                           0,          green.scale, 0,         0,           green.offset, //
                                           0,          0,           red.scale, 0,           red.offset,   //
                                           0,          0,           0,         alpha.scale, alpha.offset};
    return On(from, to,
              [matrix](const cv::Mat& source, cv::Mat& destination) { cv::transform(source, destination, matrix); });
}

Work OpenCvConvert(const Rows& from, const Rows& to, const Channel& allChannels) {
    return On(from, to, [allChannels](const cv::Mat& source, cv::Mat& destination) {
        source.convertTo(destination, -1, allChannels.scale, allChannels.offset);
    });
}

Work OpenCvLookUp(const Rows& from, const Rows& to, const Channels& channels) {
    const auto& [blue, green, red, alpha] = channels;
    cv::Mat table(1, 256, CV_8UC4);
    for (int value = 0; value < 256; ++value) {
        const auto entry = [value](const Channel& channel) {
            return cv::saturate_cast<unsigned char>(value * channel.scale + channel.offset);
        };
        table.at<cv::Vec4b>(value) = {entry(blue), entry(green), entry(red), entry(alpha)};
    }
    return On(from, to, [table](const cv::Mat& source, cv::Mat& destination) { cv::LUT(source, table, destination); });
}

Work OpenCvWarp(const Rows& from, const Rows& to, const Mapping& mapping, Reading reading) {
    return Warp(from, to, mapping, reading);
}

Work OpenCvWarp(const ByteRows& from, const ByteRows& to, const Mapping& mapping, Reading reading) {
    return Warp(from, to, mapping, reading);
}

Work OpenCvEnlarge(const Rows& from, const Rows& to, Reading reading) {
    return Resize(from, to, Interpolation(reading));
}

Work OpenCvReduce(const Rows& from, const Rows& to) { return Resize(from, to, cv::INTER_AREA); }

Work OpenCvReduce(const ByteRows& from, const ByteRows& to) { return Resize(from, to, cv::INTER_AREA); }

// Shares in floating point, from bytes to bytes, are its fastest way. Whole weights have to leave bytes for 16 bits and
// take six times as long.
Work OpenCvTriangle(const ByteRows& from, const ByteRows& to, int radius) {
    return On(from, to, [kernel = TriangleKernel(radius)](const cv::Mat& source, cv::Mat& destination) {
        cv::sepFilter2D(source, destination, -1, kernel, kernel);
    });
}

// Two boxes of radius + 1 values make a triangle, at a cost that does not grow with them, but round in between.
Work OpenCvTwoBoxes(const ByteRows& from, const ByteRows& to, int radius) {
    const cv::Size box = {radius + 1, radius + 1};
    const cv::Mat between(from.height, from.width, CV_8UC1);
    return On(from, to, [=](const cv::Mat& source, cv::Mat& destination) {
        cv::boxFilter(source, between, -1, box, {0, 0});
        cv::boxFilter(between, destination, -1, box, {radius, radius});
    });
}

Work OpenCvDilate(const ByteRows& from, const ByteRows& to, int radius) {
    return On(from, to, [square = Square(radius)](const cv::Mat& source, cv::Mat& destination) {
        cv::dilate(source, destination, square);
    });
}

Work OpenCvErode(const ByteRows& from, const ByteRows& to, int radius) {
    return On(from, to, [square = Square(radius)](const cv::Mat& source, cv::Mat& destination) {
        cv::erode(source, destination, square);
    });
}

} // namespace tn::bench
