#include "Peers.h"

#include <libyuv.h>

namespace tn::bench {

Work LibyuvCopy(const Rows& from, const Rows& to) {
    return [=] { libyuv::ARGBCopy(from.Bytes(), from.RowBytes(), to.Bytes(), to.RowBytes(), to.width, to.height); };
}

Work LibyuvBlend(const Rows& from, const Rows& to) {
    return [=] {
        libyuv::ARGBBlend(from.Bytes(), from.RowBytes(), to.Bytes(), to.RowBytes(), to.Bytes(), to.RowBytes(), to.width,
                          to.height);
    };
}

Work LibyuvEnlarge(const Rows& from, const Rows& to, Reading reading) {
    const auto filter = reading == Reading::kNearest ? libyuv::kFilterNone : libyuv::kFilterBilinear;
    return [=] {
        libyuv::ARGBScale(from.Bytes(), from.RowBytes(), from.width, from.height, to.Bytes(), to.RowBytes(), to.width,
                          to.height, filter);
    };
}

Work LibyuvReduce(const ByteRows& from, const ByteRows& to) {
    return [=] {
        libyuv::ScalePlane(from.Bytes(), from.RowBytes(), from.width, from.height, to.Bytes(), to.RowBytes(), to.width,
                           to.height, libyuv::kFilterBox);
    };
}

} // namespace tn::bench
