/// \file
/// Drawing by paths.
///
/// A port forwards each call at once to the vector engine. Positions are in user space, which a new port shares with
/// the pixels of its target: pixel (i, j) is the square from (i, j) to (i + 1, j + 1), y grows downwards. Points are
/// handed on in single precision.
///
/// All calls but Error and EndDrawing are for the time between BeginDrawing and EndDrawing. Outside it, and without a
/// TnGraphicsMem, they throw CKelError "Missing Interface", whose text is empty where no engine was ever started. Clip,
/// EvenOddClip, Fill, EvenOddFill and Stroke throw CKelError where the engine reports an error, and std::bad_alloc
/// ("bad allocation") where it has no memory. Gray and RGBColor throw std::bad_alloc where there is no memory for a
/// colour. Errors of all other calls are told by Error().
///
/// The engines keep lists for the whole process: only one thread at a time may use ports, whatever they draw on.
#pragma once

#include "TnGraphics/TnExport.h"
#include "TnGraphics/geometry/Matrix.h"
#include "TnGraphics/geometry/TnFixed.h"
#include "TnGraphics/geometry/TnFloat.h"
#include "TnGraphics/geometry/TnPoint.h"
#include "TnGraphics/geometry/TnRect.h"

#include <cstdint>
#include <memory>

namespace tn {
class EnginePort;
}

/// Paths, paints and a graphics state, whatever they are drawn on. For the frame, exceptions and threads see
/// TnDrawPort.h.
class TN_EXPORT TnDrawPort {
public:
    /// How the ends of open paths look.
    enum CapStyle : std::int32_t {
        kButtCap = 0,  ///< Cut off at the end.
        kRoundCap = 1, ///< A disc around the end.
        kSquareCap = 2 ///< Half the line's width beyond the end.
    };

    /// How the corners of lines look.
    enum JoinStyle : std::int32_t {
        kMiterJoin = 0, ///< Pointed, or cut off where the point would be long.
        kRoundJoin = 1, ///< A disc around the corner.
        kBevelJoin = 2  ///< Cut off.
    };

    /// Which edges are smooth. Some do the same: they name what a host may want apart. Other values count as kSmooth.
    enum AntiAliasPolicy : std::int32_t {
        kSmooth = 0,          ///< All edges.
        kHard = 1,            ///< None.
        kSmoothPaint = 2,     ///< Edges of painted areas, not those of clips.
        kHardShapes = 3,      ///< None.
        kHardText = 4,        ///< None.
        kHardThinLines = 5,   ///< None; lines narrower than a pixel get a pixel's width.
        kSmoothThinLines = 6, ///< All; lines narrower than a pixel get its width and less alpha.
        kSmoothEverything = 7 ///< The same.
    };

    TnDrawPort(const TnDrawPort&) = delete;
    TnDrawPort& operator=(const TnDrawPort&) = delete;
    virtual ~TnDrawPort();

    /// Begins to draw. Each call wants an EndDrawing.
    ///
    /// \image html gallery/BeginDrawing.png
    ///
    /// \return true when there is something to draw with
    virtual bool BeginDrawing(AntiAliasPolicy policy, long count) = 0;

    /// Ends drawing: gives up what there was to draw with, and the states that were saved. Nothing where nothing is
    /// begun.
    virtual void EndDrawing() = 0;

    /// Forgets the path.
    ///
    /// \image html gallery/NewPath.png
    void NewPath();

    /// Begins a part of the path at a whole position. Lines and curves need such a beginning; without one they add
    /// nothing, and Error() tells.
    ///
    /// \image html gallery/MoveTo.png
    void MoveTo(const TnPoint& to);

    /// Begins a part of the path at a sub-pixel position.
    void MoveTo(const TnFixedPoint& to);

    /// Begins a part of the path at any position.
    void MoveTo(const TnFloatPoint& to);

    /// Adds a line from the current point to a whole position.
    ///
    /// \image html gallery/MoveTo.png
    void LineTo(const TnPoint& to);

    /// Adds a line from the current point to a sub-pixel position.
    void LineTo(const TnFixedPoint& to);

    /// Adds a line from the current point to any position.
    void LineTo(const TnFloatPoint& to);

    /// Adds a Bezier curve from the current point, with two control points.
    ///
    /// \image html gallery/CurveTo.png
    void CurveTo(const TnFixedPoint& control1, const TnFixedPoint& control2, const TnFixedPoint& to);

    /// The same at any position.
    void CurveTo(const TnFloatPoint& control1, const TnFloatPoint& control2, const TnFloatPoint& to);

    /// Adds a line to where the part of the path began, and ends it.
    ///
    /// \image html gallery/ClosePath.png
    void ClosePath();

    /// Adds a rectangle, clockwise from its top-left corner: a line back to it, and a close. One without width or
    /// height is added, too.
    ///
    /// \image html gallery/DrawRect.png
    void DrawRect(const TnRect& rect);

    /// The same at a sub-pixel position.
    void DrawRect(const TnFixedRect& rect);

    /// Paints from now on only inside the path, by the non-zero rule, and inside earlier clips. Nothing is inside of an
    /// empty path. The path stays, for a fill or a stroke, or until NewPath.
    ///
    /// \image html gallery/Clip.png
    void Clip();

    /// Clip by the even-odd rule.
    ///
    /// \image html gallery/EvenOddClip.png
    void EvenOddClip();

    /// Paints the inside of the path, by the non-zero rule, and forgets the path.
    ///
    /// \image html gallery/Fill.png
    void Fill();

    /// Fill by the even-odd rule.
    ///
    /// \image html gallery/EvenOddFill.png
    void EvenOddFill();

    /// Paints a line along the path and forgets the path.
    ///
    /// \image html gallery/Stroke.png
    void Stroke();

    /// Keeps colour, matrix, clip, line style, path and the choice of smooth edges on a stack.
    ///
    /// \image html gallery/SaveState.png
    void SaveState();

    /// Takes them back from there. Every call wants a SaveState before it; without one it does nothing.
    ///
    /// \image html gallery/SaveState.png
    void RestoreState();

    /// Sets how wide strokes are, in user space: at first 1. 0 is the thinnest line, one pixel wide; a negative width
    /// counts without its sign.
    ///
    /// \image html gallery/LineWidth.png
    void LineWidth(const TnFixed& width);

    /// Sets how the ends of open paths look: at first kButtCap. Other values than the enumerators are not supported.
    ///
    /// \image html gallery/LineCap.png
    void LineCap(CapStyle style);

    /// Sets how corners look: at first kMiterJoin, whose points reach up to ten times the width and are cut off where
    /// they would be longer. Other values than the enumerators are not supported.
    ///
    /// \image html gallery/LineJoin.png
    void LineJoin(JoinStyle style);

    /// Moves what comes; acts before the transformations so far.
    ///
    /// \image html gallery/TranslatePort.png
    void Translate(const TnFixedPoint& by);

    /// Scales what comes; acts before the transformations so far.
    ///
    /// \image html gallery/ScalePort.png
    void Scale(const TnFixedPoint& by);

    /// Replaces the transformation, in single precision. The matrix's third row is not looked at.
    ///
    /// \image html gallery/SetMatrix.png
    void SetMatrix(const Matrix<double, 3, 3>& matrix);

    /// Paints with a grey, from 0, black, to 1, white.
    ///
    /// \image html gallery/Gray.png
    void Gray(float gray);

    /// Paints with a colour of parts from 0 to 1.
    ///
    /// \image html gallery/RGBColor.png
    void RGBColor(float red, float green, float blue, float alpha);

    /// 1 when a call has failed since drawing began, otherwise 0; 0 too where nothing is begun.
    long Error() const;

protected:
    TnDrawPort();

    std::int32_t holds_ = 0; ///< EndDrawing lowers it, and gives up enginePort_ unless it stays above 0.
    std::unique_ptr<tn::EnginePort> enginePort_; ///< What there is to draw with, or none.
};
