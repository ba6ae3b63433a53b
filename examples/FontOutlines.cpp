#include "FontOutlines.h"

#include <ft2build.h>
#include <optional>
#include <stdexcept>

#include FT_FREETYPE_H
#include FT_OUTLINE_H

namespace {

[[noreturn]] void Fail(const std::string& path, const char* what) {
    throw std::runtime_error("the font '" + path + "' " + what);
}

/// What takes a letter from the font's units, whose y grows upwards, into the picture.
struct Placement {
    TnFloatPoint origin;
    double scale;

    TnFloatPoint operator()(const FT_Vector& at) const {
        return {origin.x + scale * static_cast<double>(at.x), origin.y - scale * static_cast<double>(at.y)};
    }
};

/// Takes an outline, piece by piece, into the path of a port. FreeType calls it and could not bear exceptions.
class Pen {
public:
    Pen(TnDrawPort& port, const Placement& placement) : port_(port), placement_(placement) {}

    void Draw(FT_Outline& outline) {
        const FT_Outline_Funcs calls = {
            [](const FT_Vector* to, void* pen) { return static_cast<Pen*>(pen)->Move(*to); },
            [](const FT_Vector* to, void* pen) { return static_cast<Pen*>(pen)->Line(*to); },
            [](const FT_Vector* a, const FT_Vector* to, void* pen) { return static_cast<Pen*>(pen)->Conic(*a, *to); },
            [](const FT_Vector* a, const FT_Vector* b, const FT_Vector* to, void* pen) {
                return static_cast<Pen*>(pen)->Cubic(*a, *b, *to);
            },
            0,
            0};
        FT_Outline_Decompose(&outline, &calls, this);
        Close();
    }

private:
    int Move(const FT_Vector& to) noexcept {
        Close();
        isOpen_ = true;
        at_ = placement_(to);
        port_.MoveTo(at_);
        return 0;
    }

    int Line(const FT_Vector& to) noexcept {
        at_ = placement_(to);
        port_.LineTo(at_);
        return 0;
    }

    // A conic is the cubic whose control points lie two thirds of the way towards its own one.
    int Conic(const FT_Vector& control, const FT_Vector& to) noexcept {
        const TnFloatPoint middle = placement_(control);
        const TnFloatPoint end = placement_(to);
        const auto towardsMiddle = [&middle](const TnFloatPoint& from) {
            return TnFloatPoint{from.x + (middle.x - from.x) * 2 / 3, from.y + (middle.y - from.y) * 2 / 3};
        };
        port_.CurveTo(towardsMiddle(at_), towardsMiddle(end), end);
        at_ = end;
        return 0;
    }

    int Cubic(const FT_Vector& a, const FT_Vector& b, const FT_Vector& to) noexcept {
        at_ = placement_(to);
        port_.CurveTo(placement_(a), placement_(b), at_);
        return 0;
    }

    void Close() {
        if (isOpen_) {
            port_.ClosePath();
        }
        isOpen_ = false;
    }

    TnDrawPort& port_;
    Placement placement_;
    TnFloatPoint at_;
    bool isOpen_ = false;
};

} // namespace

/// The open file. Lengths are in the font's units.
class Font::File {
public:
    explicit File(const std::string& path);
    ~File();
    File(const File&) = delete;
    File& operator=(const File&) = delete;

    /// Calls for each letter of the text with its outline and where it stands, the ink of the first one at 0.
    template <class Visit> void Walk(std::u32string_view text, const TextStyle& style, const Visit& visit) const;

    double UnitsPerEm() const { return face_->units_per_EM; }

private:
    FT_GlyphSlot Load(FT_UInt letter) const;
    double Kerning(FT_UInt left, FT_UInt right) const;

    FT_Library library_ = nullptr;
    FT_Face face_ = nullptr;
};

Font::File::File(const std::string& path) {
    if (FT_Init_FreeType(&library_) != 0) {
        Fail(path, "cannot be read: FreeType does not start");
    }
    const bool isFont = FT_New_Face(library_, path.c_str(), 0, &face_) == 0;
    if (!isFont || !FT_IS_SCALABLE(face_)) {
        FT_Done_FreeType(library_); // takes the face along
        Fail(path, isFont ? "has no outlines" : "is not there, or is no font");
    }
}

Font::File::~File() { FT_Done_FreeType(library_); }

FT_GlyphSlot Font::File::Load(FT_UInt letter) const {
    if (FT_Load_Glyph(face_, letter, FT_LOAD_NO_SCALE) != 0) {
        throw std::runtime_error("a letter of the font cannot be read");
    }
    return face_->glyph;
}

double Font::File::Kerning(FT_UInt left, FT_UInt right) const {
    FT_Vector kerning = {};
    FT_Get_Kerning(face_, left, right, FT_KERNING_UNSCALED, &kerning);
    return static_cast<double>(kerning.x);
}

template <class Visit>
void Font::File::Walk(std::u32string_view text, const TextStyle& style, const Visit& visit) const {
    std::optional<FT_UInt> previous;
    double at = 0.0;
    for (const char32_t character : text) {
        const FT_UInt letter = FT_Get_Char_Index(face_, character);
        const FT_GlyphSlot slot = Load(letter);
        at += previous ? Kerning(*previous, letter) + style.tracking * UnitsPerEm()
                       : -static_cast<double>(slot->metrics.horiBearingX);
        visit(*slot, at);
        at += static_cast<double>(slot->metrics.horiAdvance);
        previous = letter;
    }
}

Font::Font(const std::string& path) : file_(std::make_shared<const File>(path)) {}

void Font::AddText(TnDrawPort& port, const TnFloatPoint& at, std::u32string_view text, const TextStyle& style) const {
    const double scale = style.size / file_->UnitsPerEm();
    file_->Walk(text, style, [&](FT_GlyphSlotRec& slot, double x) {
        Pen(port, {{at.x + scale * x, at.y}, scale}).Draw(slot.outline);
    });
}

double Font::Width(std::u32string_view text, const TextStyle& style) const {
    double width = 0.0;
    file_->Walk(text, style, [&width](const FT_GlyphSlotRec& slot, double x) {
        width = x + static_cast<double>(slot.metrics.horiBearingX + slot.metrics.width);
    });
    return width * style.size / file_->UnitsPerEm();
}

double Font::CapHeight(const TextStyle& style) const {
    double height = 0.0;
    file_->Walk(U"H", style, [&height](const FT_GlyphSlotRec& slot, double) {
        height = static_cast<double>(slot.metrics.horiBearingY);
    });
    return height * style.size / file_->UnitsPerEm();
}
