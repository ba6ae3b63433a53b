// A picture of the gallery: panels in rows, each with a caption. Where they are transparent a checkerboard shows.
#pragma once

#include "TnGraphics/TnGraphics.h"

#include <string>
#include <string_view>
#include <vector>

/// The size of a panel. Smaller pictures are put in its middle.
inline constexpr TnPoint kPanel = {120, 84};

class Plate {
public:
    explicit Plate(int columns = 3) : columns_(columns) {}

    /// Adds a picture of the panels' size or smaller.
    Plate& Add(const TnImage& picture, std::string_view caption);

    /// Adds a matte as greys, from black at 0 to white at 255.
    Plate& Add(const TnMatte& matte, std::string_view caption);

    TnImage Picture() const;

private:
    struct Panel {
        TnImage picture;
        std::string caption;
    };

    int columns_;
    std::vector<Panel> panels_;
};

/// A surface before and after the work.
template <class SurfaceType, class Work>
TnImage BeforeAndAfter(const SurfaceType& before, std::string_view after, const Work& work) {
    SurfaceType changed(before);
    work(changed);
    return Plate().Add(before, "before").Add(changed, after).Picture();
}

/// A surface before and after the work, and between them what the work uses.
template <class SourceType, class SurfaceType, class Work>
TnImage BeforeAndAfter(const SurfaceType& before, const SourceType& source, std::string_view sourceName,
                       std::string_view after, const Work& work) {
    SurfaceType changed(before);
    work(changed);
    return Plate().Add(before, "before").Add(source, sourceName).Add(changed, after).Picture();
}
