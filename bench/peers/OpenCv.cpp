#include "Peers.h"

#include <opencv2/core.hpp>

namespace tn::bench {
namespace {

struct Picture {
    explicit Picture(const Rows& wrapped)
        : rows(wrapped),
          matrix(rows.height, rows.width, CV_8UC4, rows.Bytes(), static_cast<std::size_t>(rows.RowBytes())) {}

    Rows rows;
    cv::Mat matrix;
};

/// Works on the rows where they are, and on this thread alone.
template <class Operation> Work On(const Rows& from, const Rows& to, const Operation& operation) {
    cv::setNumThreads(1);
    return [operation, source = Picture(from), destination = Picture(to)]() mutable {
        operation(source.matrix, destination.matrix);
    };
}

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

} // namespace tn::bench
