// Private: an operator with the preparation of its source, both chosen once for an operation.
#pragma once

#include "TnGraphics/color/TnColorTransform.h"
#include "TnGraphics/ops/InStep.h"
#include "TnGraphics/rows/RowKernels.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

namespace tn {

/// How many pixels stay in the first-level cache on their way from stage to stage.
inline constexpr std::size_t kChunkPixels = 256;

/// What remains of an alpha, whatever the opacity: the product keeps its low 32 bits, the quotient its low 8.
constexpr std::uint8_t ScaledAlpha(std::uint8_t alpha, int opacity) {
    const auto product = static_cast<std::int32_t>(alpha * static_cast<std::uint32_t>(opacity));
    return static_cast<std::uint8_t>(product / 255);
}

/// A preparation with any opacity, pixel by pixel; kernels know those from 0 to 255.
struct AnyPreparation {
    TnColorTransform transform;
    int opacity;

    TnImagePixel operator()(TnImagePixel pixel) const {
        pixel = ColorTransform(pixel, transform);
        pixel.Alpha(ScaledAlpha(pixel.Alpha(), opacity));
        return pixel;
    }
    TnMattePixel operator()(TnMattePixel pixel) const { return ScaledAlpha(pixel.Value(), opacity); }
};

/// Composites stretches of pixels.
template <class Source, class Destination> class PreparedKernel {
public:
    using Kernel = CompositingKernel<Source, Destination>;
    using Kernels = std::array<Kernel, kPreparationSteps>;

    /// Takes source pixels as they are.
    explicit PreparedKernel(Kernel kernel) : kernel_(kernel) {}

    PreparedKernel(const Kernels& kernels, const TnColorTransform& transform, int opacity)
        : any_{transform, opacity}, wraps_(opacity < 0 || opacity > 255) {
        const bool hasMatrix = !wraps_ && !IsNoChangeColorTransform(transform);
        const bool hasOpacity = !wraps_ && opacity != 255;
        kernel_ = kernels[static_cast<std::size_t>(StepsOf(hasMatrix, hasOpacity))];
        if (hasMatrix) {
            preparation_.scales = FourOf(transform, &TnChannelTransform::scale);
            preparation_.offsets = FourOf(transform, &TnChannelTransform::offset);
        }
        if (hasOpacity) {
            preparation_.opacity = static_cast<std::uint32_t>(opacity);
        }
    }

    /// Composites a row, in step where source and destination share memory.
    void CompositeRow(const Source* source, Destination* destination, std::size_t length) const {
        const std::size_t step = MustGoInStep(source, destination, length) ? 1 : length;
        for (std::size_t column = 0; column < length; column += step) {
            Composite(source + column, destination + column, step);
        }
    }

    /// Composites pixels; where they share memory, none of the source is written before it is read.
    void Composite(const Source* source, Destination* destination, std::size_t length) const {
        if (wraps_) {
            CompositeWrapping(source, destination, length);
        } else {
            kernel_(source, destination, length, preparation_);
        }
    }

private:
    static PreparationSteps StepsOf(bool hasMatrix, bool hasOpacity) {
        if (hasMatrix) {
            return hasOpacity ? PreparationSteps::kMatrixAndOpacity : PreparationSteps::kMatrix;
        }
        return hasOpacity ? PreparationSteps::kOpacity : PreparationSteps::kNone;
    }

    static std::uint64_t FourOf(const TnColorTransform& transform, std::int16_t TnChannelTransform::*field) {
        std::uint64_t four = 0;
        for (const TnChannelTransform& channel : {transform.alpha, transform.red, transform.green, transform.blue}) {
            four = four << 16 | static_cast<std::uint16_t>(channel.*field);
        }
        return four;
    }

    void CompositeWrapping(const Source* source, Destination* destination, std::size_t length) const {
        std::array<Source, kChunkPixels> chunk;
        for (std::size_t column = 0; column < length; column += kChunkPixels) {
            const std::size_t count = std::min(length - column, kChunkPixels);
            std::transform(source + column, source + column + count, chunk.begin(), any_);
            kernel_(chunk.data(), destination + column, count, preparation_);
        }
    }

    Kernel kernel_;
    Preparation preparation_;
    AnyPreparation any_ = {};
    bool wraps_ = false;
};

} // namespace tn
