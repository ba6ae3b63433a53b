#include "Peers.h"

#include <pixman.h>

namespace tn::bench {
namespace {

struct Image {
    Rows rows;
    std::shared_ptr<pixman_image_t> handle;
};

Image Wrap(const Rows& rows) {
    auto* const handle =
        pixman_image_create_bits(PIXMAN_a8r8g8b8, rows.width, rows.height, rows.pixels.get(), rows.RowBytes());
    return {rows, {handle, pixman_image_unref}};
}

Work Composite(pixman_op_t operation, const Image& from, const Image& to) {
    return [=] {
        pixman_image_composite32(operation, from.handle.get(), nullptr, to.handle.get(), 0, 0, 0, 0, 0, 0,
                                 to.rows.width, to.rows.height);
    };
}

/// Reads the image through a transform.
Image Seen(const Image& image, const pixman_transform_t& toSource, Reading reading) {
    pixman_image_set_transform(image.handle.get(), &toSource);
    pixman_image_set_filter(image.handle.get(),
                            reading == Reading::kNearest ? PIXMAN_FILTER_NEAREST : PIXMAN_FILTER_BILINEAR, nullptr, 0);
    return image;
}

} // namespace

Work PixmanFill(const Rows& to, std::uint32_t word) {
    const int stride = to.RowBytes() / static_cast<int>(sizeof(std::uint32_t));
    return [=] { pixman_fill(to.pixels.get(), stride, 32, 0, 0, to.width, to.height, word); };
}

Work PixmanCopy(const Rows& from, const Rows& to) { return Composite(PIXMAN_OP_SRC, Wrap(from), Wrap(to)); }

Work PixmanOver(const Rows& from, const Rows& to) { return Composite(PIXMAN_OP_OVER, Wrap(from), Wrap(to)); }

Work PixmanOverAt(const Rows& from, const Rows& to, const Offset& offset) {
    pixman_transform_t toSource;
    pixman_transform_init_translate(&toSource, pixman_double_to_fixed(-offset.x), pixman_double_to_fixed(-offset.y));
    return Composite(PIXMAN_OP_OVER, Seen(Wrap(from), toSource, Reading::kSmooth), Wrap(to));
}

Work PixmanMap(const Rows& from, const Rows& to, const Mapping& mapping, Reading reading) {
    pixman_transform_t toSource;
    for (std::size_t row = 0; row < mapping.size(); ++row) {
        for (std::size_t column = 0; column < mapping.size(); ++column) {
            toSource.matrix[row][column] = pixman_double_to_fixed(mapping[row][column]);
        }
    }
    return Composite(PIXMAN_OP_SRC, Seen(Wrap(from), toSource, reading), Wrap(to));
}

} // namespace tn::bench
