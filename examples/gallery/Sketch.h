// Drawing through a port on paper, and what several pictures draw.
#pragma once

#include "../Drawing.h"
#include "Plate.h"
#include "Scene.h"

/// A panel of paper on which the work draws in night blue.
template <class Work> TnImage Drawn(const Work& work) {
    TnImage paper(kPanel);
    ColorFill(paper, paper.Bounds(), kPaper);
    Draw(paper, [&](TnDrawPort& port) {
        PaintWith(port, kNight);
        work(port);
    });
    return paper;
}

// These add to the path.

/// A star drawn in one go, whose lines cross.
void AddPentagram(TnDrawPort& port);

// These paint.

void StrokeThin(TnDrawPort& port, const TnColor& color);
void StrokeWide(TnDrawPort& port, double width, const TnColor& color = kNight);
void FillStripes(TnDrawPort& port);
