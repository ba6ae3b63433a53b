// Where a picture lies in a window.
#pragma once

#include "TnGraphics/geometry/TnPoint.h"
#include "TnGraphics/geometry/TnRect.h"

namespace viewer {

/// A rectangle of the picture, in whole pixels, and the one of the window that shows it.
struct Part {
    TnRect picture;
    TnRect window;
};

/// Magnification and place of a picture in a window.
class View {
public:
    explicit View(const TnPoint& picture) : picture_(picture) {}

    /// Shows the whole picture in the middle of the window, at its size where that fits.
    void Fit(const TnPoint& window);

    /// Magnifies or reduces; what is under the cursor stays there.
    void ZoomAt(const TnPoint& cursor, double factor);

    void MoveBy(int dx, int dy);

    /// The pixels of the picture that the window shows, even in part.
    Part VisiblePart(const TnPoint& window) const;

    double Zoom() const { return zoom_; }

private:
    TnPoint picture_;
    double zoom_ = 1.0;
    double left_ = 0.0; // where the picture's corner lies in the window
    double top_ = 0.0;
};

} // namespace viewer
