#include "TnGraphics/color/YuvConversion.h"

#include "TnGraphics/color/ClampToByte.h"
#include "TnGraphics/color/Luma.h"
#include "TnGraphics/port/TnColor.h"

namespace {

constexpr std::int32_t kThousandths = 1000;
constexpr std::int32_t kMiddle = 128; // what u and v are for a grey

} // namespace

void RGBtoYUV(const TnImagePixel& pixel, ColorYUVSpec& yuv) {
    const std::int32_t red = pixel.Red();
    const std::int32_t blue = pixel.Blue();
    const std::int32_t sum = red * tn::kLumaOfRed + pixel.Green() * tn::kLumaOfGreen + blue * tn::kLumaOfBlue;
    const std::int32_t luma = sum / kThousandths;
    yuv.y = static_cast<std::uint8_t>(luma);
    yuv.u = static_cast<std::uint8_t>((blue - luma) * 495 / kThousandths + kMiddle);
    yuv.v = tn::ClampToByte((red - luma) * 877 / kThousandths + kMiddle);
}

void YUVtoRGB(const ColorYUVSpec& yuv, TnImagePixel& pixel) {
    const std::int32_t luma = yuv.y * kThousandths;
    const std::int32_t u = yuv.u - kMiddle;
    const std::int32_t v = yuv.v - kMiddle;
    const std::uint8_t red = tn::ClampToByte((luma + v * 1140) / kThousandths);
    const std::uint8_t green = tn::ClampToByte((luma - u * 395 - v * 580) / kThousandths);
    const std::uint8_t blue = tn::ClampToByte((luma + u * 2032) / kThousandths);
    pixel = TnColor(pixel.Alpha(), red, green, blue);
}
