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

} // namespace tn::bench
