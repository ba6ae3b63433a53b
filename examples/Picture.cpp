#include "Picture.h"

#include <algorithm>
#include <cmath>

namespace {

// The largest part of the middle that has the shape of the size.
TnRect MiddleOfShape(const TnRect& rect, const TnPoint& shape) {
    const auto longest = [](std::int32_t extent, std::int32_t other, std::int32_t along, std::int32_t across) {
        return std::clamp<std::int32_t>(static_cast<std::int32_t>(std::int64_t{other} * along / across), 1, extent);
    };
    const std::int32_t width = longest(rect.width, rect.height, shape.x, shape.y);
    const std::int32_t height = longest(rect.height, rect.width, shape.y, shape.x);
    return {rect.left + (rect.width - width) / 2, rect.top + (rect.height - height) / 2, width, height};
}

// Positions are pixels' top-left corners, so the middle of the pixels that one stands for is half of the others away.
double ToMiddle(double pixelsPerPixel) { return std::max((pixelsPerPixel - 1.0) / 2.0, 0.0); }

} // namespace

TnRect Inset(const TnRect& rect, double share) {
    const auto dx = static_cast<std::int32_t>(rect.width * share);
    const auto dy = static_cast<std::int32_t>(rect.height * share);
    return {rect.left + dx, rect.top + dy, rect.width - 2 * dx, rect.height - 2 * dy};
}

TnRect Grown(const TnRect& rect, std::int32_t by) {
    return {rect.left - by, rect.top - by, rect.width + 2 * by, rect.height + 2 * by};
}

void DrawFrame(TnImage& image, const TnRect& rect, const TnColor& color) {
    ColorFill(image, {rect.left, rect.top, rect.width, 1}, color);
    ColorFill(image, {rect.left, rect.top + rect.height - 1, rect.width, 1}, color);
    ColorFill(image, {rect.left, rect.top, 1, rect.height}, color);
    ColorFill(image, {rect.left + rect.width - 1, rect.top, 1, rect.height}, color);
}

TnImage Magnified(TnImage picture, const TnRect& detail, const TnPoint& size) {
    picture.Content(detail);
    TnImage magnified(size);
    const auto toDetail = MakeMatrix<double>::Scale(1.0 * detail.width / size.x, 1.0 * detail.height / size.y);
    Transform(picture, magnified, toDetail, InterpolationType::kNearest);
    return magnified;
}

void CutOutOval(TnImage& image, double innerRadius, double outerRadius) {
    const TnPoint size = image.Size();
    for (auto pixel = image.begin(); !pixel.AtEnd(); ++pixel) {
        const TnPoint at = pixel.Position();
        const double radius = std::hypot(2.0 * at.x / size.x - 1.0, 2.0 * at.y / size.y - 1.0);
        const double coverage = std::clamp((outerRadius - radius) / (outerRadius - innerRadius), 0.0, 1.0);
        pixel->Alpha(static_cast<std::uint8_t>(255.0 * coverage));
    }
}

TnImage Fitted(TnImage picture, const TnPoint& size, InterpolationType type) {
    picture.Content(MiddleOfShape(picture.Content(), size));
    const double horizontal = 1.0 * picture.Size().x / size.x;
    const double vertical = 1.0 * picture.Size().y / size.y;
    auto toPicture = MakeMatrix<double>::Scale(horizontal, vertical);
    toPicture.m[0][2] = ToMiddle(horizontal);
    toPicture.m[1][2] = ToMiddle(vertical);
    TnImage fitted(size);
    Transform(picture, fitted, toPicture, type);
    return fitted;
}
