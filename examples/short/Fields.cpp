// Interlaced video: the even rows of a frame are its top field and show one moment, the odd ones its bottom field and
// show a later one. A StCoerceToTopFieldOnly scope lets every operation see an image's top field as an image of half
// the height. Here two moments are put together to a frame, and a picture without comb teeth is made of its top field.
#include "TnGraphics/TnGraphics.h"

#include <cstdio>

namespace {

constexpr TnPoint kSize = {24, 8};

const TnColor kBlack(255, 0, 0, 0);
const TnColor kWhite(255, 255, 255, 255);

// A bar in front of black, at one moment of its way to the right.
TnImage Moment(int barLeft) {
    TnImage picture(kSize);
    ColorFill(picture, picture.Bounds(), kBlack);
    ColorFill(picture, {barLeft, 2, 8, 4}, kWhite);
    return picture;
}

// While both scopes are open, row y of either image is its row 2y; the odd rows of the frame stay what they are.
void CopyTopField(const TnImage& source, TnImage& frame) {
    const StCoerceToTopFieldOnly topOfSource(source);
    const StCoerceToTopFieldOnly topOfFrame(frame);
    TnCopy(source, frame, {0, 0});
}

TnImage Woven(const TnImage& top, const TnImage& bottom) {
    TnImage frame(bottom);
    CopyTopField(top, frame);
    return frame;
}

// Every second row is that of the field, and the ones between are mixed of two. The last has nothing below it.
TnImage TopFieldAtFullHeight(const TnImage& frame) {
    const StCoerceToTopFieldOnly top(frame);
    TnImage picture(kSize);
    Transform(frame, picture, MakeMatrix<double>::Scale(1.0, 0.5), InterpolationType::kSmooth);
    return picture;
}

char MarkOf(TnImagePixel pixel) {
    if (pixel.Green() < 64) {
        return '.';
    }
    return pixel.Green() < 192 ? '+' : '#';
}

void Show(const char* title, const TnImage& picture) {
    std::printf("%s, %d x %d\n", title, picture.Size().x, picture.Size().y);
    for (int y = 0; y < picture.Size().y; ++y) {
        const TnRect row = {0, y, picture.Size().x, 1};
        for (auto pixel = picture.begin(row); pixel != picture.end(row); ++pixel) {
            std::putchar(MarkOf(*pixel));
        }
        std::putchar('\n');
    }
}

void ShowTopField(const TnImage& frame) {
    const StCoerceToTopFieldOnly top(frame);
    Show("its top field", frame);
}

} // namespace

int main() {
    const TnImage frame = Woven(Moment(4), Moment(9));
    Show("two moments in a frame", frame);
    ShowTopField(frame);
    Show("the first moment at full height", TopFieldAtFullHeight(frame));
}
