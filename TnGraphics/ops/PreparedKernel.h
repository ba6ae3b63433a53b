// Private: an operator with the preparation of its source, both chosen once for an operation.
#pragma once

#include "TnGraphics/color/TnColorTransform.h"
#include "TnGraphics/ops/InStep.h"
#include "TnGraphics/rows/RowKernels.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace tn {

/// How many pixels stay in the first-level cache on their way from stage to stage.
inline constexpr std::size_t kChunkPixels = 256;

/// A preparation with any opacity, pixel by pixel; kernels know those from 0 to 255.
struct AnyPreparation {
    TnColorTransform transform;
    int opacity = 255;

    TnImagePixel operator()(TnImagePixel pixel) const;
    TnMattePixel operator()(TnMattePixel pixel) const;
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
        if (wraps_ || MustGoInStep(source, destination, length)) [[unlikely]] {
            CompositeWithCare(source, destination, length);
        } else {
            kernel_(source, destination, length, preparation_);
        }
    }

    /// Composites pixels from memory of their own.
    void Composite(const Source* source, Destination* destination, std::size_t length) const {
        if (wraps_) [[unlikely]] {
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

    // Rare, and kept out of the way of what is not.
    void CompositeWithCare(const Source* source, Destination* destination, std::size_t length) const;
    void CompositeWrapping(const Source* source, Destination* destination, std::size_t length) const;

    Kernel kernel_;
    Preparation preparation_;
    AnyPreparation any_;
    bool wraps_ = false;
};

} // namespace tn
