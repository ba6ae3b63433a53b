// The outlines of a font's letters as paths to draw, through FreeType.
#pragma once

#include "TnGraphics/TnGraphics.h"

#include <memory>
#include <string>
#include <string_view>

/// How a line of text is set.
struct TextStyle {
    double size;           ///< Height of the font's em in pixels.
    double tracking = 0.0; ///< Space added between letters, in ems.
};

/// A font from a file. Lines of text are kerned; they begin and end where their ink does, so that lines of different
/// sizes stand flush.
class Font {
public:
    /// \throws std::runtime_error that names the file, where it holds no font of outlines
    explicit Font(const std::string& path);

    /// Adds the outlines of a line of text to the path of a port that is drawing.
    /// \param at where the ink of the first letter begins, on the line that letters stand on
    void AddText(TnDrawPort& port, const TnFloatPoint& at, std::u32string_view text, const TextStyle& style) const;

    /// From where the ink begins to where it ends.
    double Width(std::u32string_view text, const TextStyle& style) const;

    /// Height of a flat capital.
    double CapHeight(const TextStyle& style) const;

private:
    class File;
    std::shared_ptr<const File> file_;
};

/// The two weights that lettering is set in.
struct Typeface {
    Font light;
    Font bold;
};
