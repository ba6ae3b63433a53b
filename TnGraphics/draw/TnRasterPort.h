/// \file
/// Drawing into a surface.
#pragma once

#include "TnGraphics/TnExport.h"
#include "TnGraphics/draw/TnDrawPort.h"
#include "TnGraphics/port/TnImage.h"
#include "TnGraphics/port/TnMask.h"
#include "TnGraphics/port/TnMatte.h"

#include <memory>

namespace tn {
class RasterTarget;
}

/// Draws into the content of an image, in colour, or of a matte or mask, as coverage. The surface is locked for the
/// port's whole life, must outlive it, and may meanwhile not be given a new size or content, nor be assigned.
///
/// \image html gallery/TnRasterPort.png
class TN_EXPORT TnRasterPort final : public TnDrawPort {
public:
    /// \throws std::bad_alloc ("bad allocation") for a surface without storage, and where there is no memory
    explicit TnRasterPort(const TnImage& image);
    explicit TnRasterPort(const TnMatte& matte); ///< On a matte, with the same exception.
    explicit TnRasterPort(const TnMask& mask);   ///< On a mask, with the same exception.

    /// Stops drawing, however many holds there are, and unlocks the surface. Lets no exception out.
    ~TnRasterPort() override;

    /// Begins to draw, in opaque black on an image, in white, which is full coverage, on a matte or mask.
    ///
    /// What an earlier call began without an EndDrawing is left to the end of the TnGraphicsMem. A call that throws
    /// wants an EndDrawing just the same.
    ///
    /// \param count has no meaning
    /// \throws CKelError "Missing Interface" without engines, and what the engine reports; std::bad_alloc ("bad
    ///     allocation") where there is no memory
    bool BeginDrawing(AntiAliasPolicy policy, long count) override;

    void EndDrawing() override;

    void CopyTo(TnDrawPort& port);                                                  ///< Reserved: does nothing.
    void CopyTo(TnDrawPort& port, const TnRect& source, const TnRect& destination); ///< Reserved: does nothing.

private:
    std::unique_ptr<tn::RasterTarget> target_;
    bool isExternal_ = false;
};
