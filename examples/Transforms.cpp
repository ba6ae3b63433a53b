#include "Transforms.h"

#include "ContactSheet.h"
#include "Mapping.h"
#include "Picture.h"
#include "PixelText.h"

#include <string>
#include <string_view>

namespace {

constexpr TnPoint kTile = {320, 212};
constexpr TnPoint kPhoto = {198, 124};
constexpr TnPoint kSmall = {80, 53};
constexpr TnColor kPaper = {255, 44, 38, 52};
constexpr TnColor kClearPaper = {0, 44, 38, 52};
constexpr TnColor kInk = {255, 240, 232, 214};
constexpr TnColor kAmber = {255, 255, 176, 32};

TnRect Centred(const TnPoint& size) { return {(kTile.x - size.x) / 2, (kTile.y - size.y) / 2, size.x, size.y}; }

// A print on paper, with fine lines. What surrounds it is transparent but has the paper's colour, for a matte that
// reaches a little farther.
TnImage MakePrint(const TnImage& subject) {
    TnImage print(kTile);
    ColorFill(print, print.Bounds(), kClearPaper);
    TnRect photo = Centred(kPhoto);
    photo.top -= 8;
    TnRect paper = Grown(photo, 9);
    paper.height += 16;
    ColorFill(print, paper, kPaper);
    DrawFrame(print, Grown(photo, 2), kInk);
    TnCopy(Fitted(subject, kPhoto), print, {photo.left, photo.top});
    DrawText(print, {photo.left, photo.top + photo.height + 8}, "A print with lines one pixel wide", kInk, 1);
    return print;
}

TnRect DetailAt(const TnPoint& corner, int magnification) {
    return {corner.x, corner.y, kTile.x / magnification, kTile.y / magnification};
}

class TransformSheet {
public:
    TransformSheet(const TnImage& backdrop, const TnImage& subject)
        : backdrop_(Fitted(backdrop, kTile)), subject_(subject), print_(MakePrint(subject)) {}

    TnImage Make();

private:
    void AddPair(const TnImage& nearest, const TnImage& smooth, const TnRect& detail, std::string_view name,
                 std::string_view nearestRemark, std::string_view smoothRemark);
    void AddPicture(TnImage picture, const TnRect& detail, std::string_view name, std::string_view remark);
    TnImage Seen(const Mapping& mapping, InterpolationType type) const;
    TnImage SeenWithMatte(const Mapping& mapping) const;
    TnImage Moment(int n) const;
    void AddRotated();
    void AddSkewed();
    void AddInPerspective();
    void AddEnlarged();
    void AddFitted();
    void AddFields();

    TnImage backdrop_;
    const TnImage& subject_;
    TnImage print_;
    ContactSheet sheet_{kTile, 4, 6, "A photograph through matrices, nearest and smooth",
                        "On the right what lies in the amber frames, magnified pixel by pixel"};
};

void TransformSheet::AddPicture(TnImage picture, const TnRect& detail, std::string_view name, std::string_view remark) {
    DrawFrame(picture, Grown(detail, 1), kAmber);
    sheet_.Add(picture, name, remark);
}

void TransformSheet::AddPair(const TnImage& nearest, const TnImage& smooth, const TnRect& detail, std::string_view name,
                             std::string_view nearestRemark, std::string_view smoothRemark) {
    const std::string magnification = std::to_string(kTile.x / detail.width) + " times";
    AddPicture(nearest, detail, std::string(name) + ", nearest", nearestRemark);
    AddPicture(smooth, detail, std::string(name) + ", smooth", smoothRemark);
    sheet_.Add(Magnified(nearest, detail, kTile), "Nearest", magnification);
    sheet_.Add(Magnified(smooth, detail, kTile), "Smooth", magnification);
}

// Transforms ask where each pixel of the destination comes from, so the mapping of the print is turned round.
TnImage TransformSheet::Seen(const Mapping& mapping, InterpolationType type) const {
    TnImage tile(kTile);
    Transform(print_, tile, Inverse(About({kTile.x / 2.0, kTile.y / 2.0}, mapping)), type);
    return tile;
}

// In perspective mattes are read between the pixels, images are not: the matte gives the print smooth edges.
TnImage TransformSheet::SeenWithMatte(const Mapping& mapping) const {
    const Mapping toPrint = Inverse(About({kTile.x / 2.0, kTile.y / 2.0}, mapping));
    TnMatte outline(kTile);
    TnCopyAlpha(print_, outline, {0, 0});
    TnMatte matte(kTile);
    Transform(outline, matte, toPrint, InterpolationType::kSmooth);
    TnImage tile = Seen(mapping, InterpolationType::kSmooth);
    TnCopyAlpha(matte, tile, {0, 0});
    return tile;
}

void TransformSheet::AddRotated() {
    const Mapping turn = MakeMatrix<double>::Rotate(-12);
    AddPair(Seen(turn, InterpolationType::kNearest), Seen(turn, InterpolationType::kSmooth), DetailAt({64, 140}, 5),
            "Rotated", "by 12 degrees", "between the pixels");
}

void TransformSheet::AddSkewed() {
    const Mapping skew = MakeMatrix<double>::Skew(-0.3, 0.1);
    AddPair(Seen(skew, InterpolationType::kNearest), Seen(skew, InterpolationType::kSmooth), DetailAt({38, 126}, 5),
            "Skewed", "in both directions", "between the pixels");
}

void TransformSheet::AddInPerspective() {
    const Mapping tilt =
        Product(MakeMatrix<double>::Scale(1.1, 1.2), MakeMatrix<double>::Perspective(-45, -12, 0.0027));
    AddPair(Seen(tilt, InterpolationType::kNearest), SeenWithMatte(tilt), DetailAt({52, 50}, 5), "In perspective",
            "tilted about two axes", "its outline by a matte");
}

void TransformSheet::AddEnlarged() {
    const TnImage small = Fitted(subject_, kSmall);
    AddPair(Fitted(small, kTile, InterpolationType::kNearest), Fitted(small, kTile), DetailAt({150, 60}, 4), "Enlarged",
            "by 4", "between the pixels");
}

void TransformSheet::AddFitted() {
    const bool isStrong = subject_.Size().x > 2 * kTile.x && subject_.Size().y > 2 * kTile.y;
    AddPair(Fitted(subject_, kTile, InterpolationType::kNearest), Fitted(subject_, kTile), DetailAt({150, 60}, 4),
            "Fitted", "to 320 x 212 pixels", isStrong ? "the mean of boxes" : "between the pixels");
}

// The subject moves to the right.
TnImage TransformSheet::Moment(int n) const {
    TnImage moment = backdrop_;
    TnImage cutOut = Fitted(subject_, {210, 168});
    CutOutOval(cutOut, 0.94, 1.0);
    BlendImage(cutOut, 255, moment, {48 + 10 * n, 20});
    return moment;
}

void TransformSheet::AddFields() {
    TnImage earlier = Moment(0);
    TnImage woven = Moment(1);
    TnImage topField(kTile);
    {
        const StCoerceToTopFieldOnly fromField(earlier);
        const StCoerceToTopFieldOnly toField(woven);
        TnCopy(earlier, woven, {0, 0});
        Transform(woven, topField, MakeMatrix<double>::Scale(1.0, 0.5), InterpolationType::kSmooth);
    }
    const TnRect detail = DetailAt({210, 60}, 4);
    AddPicture(woven, detail, "Interlaced", "two moments in two fields");
    AddPicture(topField, detail, "Its top field only", "scaled to full height");
    sheet_.Add(Magnified(woven, detail, kTile), "Interlaced", "4 times");
    sheet_.Add(Magnified(topField, detail, kTile), "Its top field only", "4 times");
}

TnImage TransformSheet::Make() {
    AddRotated();
    AddSkewed();
    AddInPerspective();
    AddEnlarged();
    AddFitted();
    AddFields();
    return sheet_.Picture();
}

} // namespace

TnImage MakeTransformSheet(const TnImage& backdrop, const TnImage& subject) {
    return TransformSheet(backdrop, subject).Make();
}
