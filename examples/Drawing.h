// Shapes drawn through ports, and the gradients that they are filled with.
#pragma once

#include "TnGraphics/TnGraphics.h"

/// Draws into a surface: the work gets the port. A TnGraphicsMem must be alive.
template <class SurfaceType, class Work>
void Draw(const SurfaceType& surface, const Work& work, TnDrawPort::AntiAliasPolicy policy = TnDrawPort::kSmooth) {
    TnRasterPort port(surface);
    port.BeginDrawing(policy, 0);
    work(port);
    port.EndDrawing();
}

TnFixedPoint FixedPoint(double x, double y);

/// Paints with the colour from now on. Opacity lowers its alpha.
void PaintWith(TnDrawPort& port, const TnColor& color, double opacity = 1.0);

void StrokeWidth(TnDrawPort& port, double width);

// These add to the path.

void AddCircle(TnDrawPort& port, const TnFloatPoint& centre, double radius);

void AddRectangle(TnDrawPort& port, const TnFloatRect& rect);

/// A bar whose right side leans to the left from its top to its bottom, with rounded corners there.
void AddLeaningBar(TnDrawPort& port, const TnFloatRect& rect, double lean, double radius);

// These paint.

/// A badge: mountains before a low sun.
void DrawEmblem(TnDrawPort& port, const TnFloatPoint& centre, double radius);

/// A thin line around the rectangle, with strong corners.
void DrawBounds(TnDrawPort& port, const TnRect& rect, const TnColor& line, const TnColor& corners);

/// Two colours that turn into one another, from the top-left corner on along the given way.
TnImage Gradient(const TnPoint& size, const TnColor& from, const TnColor& to, const TnPoint& along);
