#include "Png.h"

#include <png.h>
#include <stdexcept>

namespace {

// Our pixels lie in memory as libpng's BGRA does, so it reads and writes the surfaces' own rows.
png_image BgraPicture() {
    png_image picture = {};
    picture.version = PNG_IMAGE_VERSION;
    picture.format = PNG_FORMAT_BGRA;
    return picture;
}

[[noreturn]] void Fail(const std::string& path, const png_image& picture) {
    throw std::runtime_error(path + ": " + picture.message);
}

} // namespace

TnImage ReadPng(const std::string& path) {
    png_image picture = BgraPicture();
    if (png_image_begin_read_from_file(&picture, path.c_str()) == 0) {
        Fail(path, picture);
    }
    picture.format = PNG_FORMAT_BGRA;
    TnImage image({static_cast<std::int32_t>(picture.width), static_cast<std::int32_t>(picture.height)});
    const TnImage::Iterator lock = image.begin();
    const auto stride = static_cast<png_int_32>(image.RowBytes());
    if (png_image_finish_read(&picture, nullptr, image.PixelBase(), stride, nullptr) == 0) {
        Fail(path, picture);
    }
    return image;
}

void WritePng(const TnImage& image, const std::string& path) {
    png_image picture = BgraPicture();
    picture.width = static_cast<png_uint_32>(image.Size().x);
    picture.height = static_cast<png_uint_32>(image.Size().y);
    const TnImage::Iterator lock = image.begin();
    const auto stride = static_cast<png_int_32>(image.RowBytes());
    if (png_image_write_to_file(&picture, path.c_str(), 0, image.PixelBase(), stride, nullptr) == 0) {
        Fail(path, picture);
    }
}
