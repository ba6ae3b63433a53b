#include "TnGraphics/port/StCoerceToTopFieldOnly.h"

StCoerceToTopFieldOnly::StCoerceToTopFieldOnly(const TnImage& image)
    : lock_(image), savedSize_(image.size_), savedRowBytes_(image.rowBytes_) {
    Show({savedSize_.x, savedSize_.y / 2}, 2 * savedRowBytes_);
}

StCoerceToTopFieldOnly::~StCoerceToTopFieldOnly() { Show(savedSize_, savedRowBytes_); }

// The pixel base stays at the corner of the content that the first lock met.
void StCoerceToTopFieldOnly::Show(const TnPoint& size, std::uint32_t rowBytes) const {
    const TnImage& image = *lock_.Surface();
    image.contentMoved_ = image.contentMoved_ || image.content_.left != 0 || image.content_.top != 0;
    image.size_ = size;
    image.content_ = {0, 0, size.x, size.y};
    image.rowBytes_ = rowBytes;
}
