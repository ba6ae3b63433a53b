// Takes a picture through fills, patterns, blending towards a colour, opacity and erasing, combines it with a second
// one by every operator, shows that one through matrices, gives both lettering, shadows and textures by their alphas,
// draws a title card over them with a font's letters, and writes what comes out.
#include "Alpha.h"
#include "EdgeSheet.h"
#include "FontOutlines.h"
#include "Operators.h"
#include "Picture.h"
#include "Png.h"
#include "TitleCard.h"
#include "Transforms.h"

#include <algorithm>
#include <cstdio>
#include <exception>
#include <string>
#include <utility>

namespace {

constexpr TnColor kMidnight = {255, 16, 22, 48};
constexpr TnColor kSteel = {255, 58, 72, 104};
constexpr TnColor kAmber = {255, 255, 176, 32};
constexpr TnColor kPaper = {255, 236, 232, 222};

// Surfaces call this every 32 rows; a host would move its progress bar here, or throw to cancel.
void ShowProgress() {
    static int calls = 0;
    if (++calls % 8 == 0) {
        std::putchar('.');
        std::fflush(stdout);
    }
}

// The n-th of several columns of equal width.
TnRect Column(const TnRect& rect, int n, int columns) {
    const std::int32_t left = rect.width * n / columns;
    const std::int32_t right = rect.width * (n + 1) / columns;
    return {rect.left + left, rect.top, right - left, rect.height};
}

// Opaque in the middle, transparent towards the corners.
void MakeVignette(TnImage& image) { CutOutOval(image, 0.35, 1.35); }

void DrawColorBars(TnImage& image, const TnRect& rect) {
    constexpr TnColor kBars[] = {{255, 191, 191, 191}, {255, 191, 191, 0}, {255, 0, 191, 191}, {255, 0, 191, 0},
                                 {255, 191, 0, 191},   {255, 191, 0, 0},   {255, 0, 0, 191}};
    for (int n = 0; n < 7; ++n) {
        ColorFill(image, Column(rect, n, 7), kBars[n]);
    }
}

void DrawHatches(TnImage& image, const TnRect& rect) {
    for (int n = 0; n < 6; ++n) {
        CrossHatchFill(image, Inset(Column(rect, n, 6), 0.04), kSteel, n % 2 == 0 ? kAmber : kPaper, n + 2);
    }
}

// Where the picture is made translucent, the colour put behind it shows through.
void DrawLowerThird(TnImage& image) {
    const TnPoint size = image.Size();
    const TnRect bar = {0, size.y * 3 / 4, size.x, size.y / 8};
    AlphaFill(image, bar, 70);
    BlendInColorAndFillAlpha(image, kMidnight, 255);
    ColorFill(image, {bar.left, bar.top, bar.width, size.y / 160}, kAmber);
    CrossHatchFill(image, Column(Inset(bar, 0.1), 7, 8), kSteel, kAmber, 4);
}

TnImage MakeSlate(const TnImage& photo) {
    const std::int32_t unit = std::max(photo.Size().x / 24, 1);
    TnImage slate({24 * unit, 18 * unit});
    ColorFill(slate, slate.Bounds(), kMidnight);
    DrawColorBars(slate, {0, 0, 24 * unit, 3 * unit});
    DrawHatches(slate, {0, 14 * unit, 24 * unit, 4 * unit});
    XFill(slate, {16 * unit, 4 * unit, 7 * unit, 7 * unit}, kSteel, kPaper);
    ColorFill(slate, {unit, 4 * unit, 14 * unit, 9 * unit}, kPaper);
    TnImage window = photo;
    window.Content({photo.Size().x / 4, photo.Size().y / 4, 14 * unit - unit / 2, 9 * unit - unit / 2});
    TnCopy(window, slate, {unit + unit / 4, 4 * unit + unit / 4});
    return slate;
}

class Gallery {
public:
    explicit Gallery(std::string folder) : folder_(std::move(folder)) {}

    template <class Make> void Add(const char* name, const char* what, const Make& make) {
        std::printf("%d. %s ", ++count_, what);
        const TnImage picture = make();
        const std::string path = folder_ + "/" + std::to_string(count_) + "-" + name + ".png";
        WritePng(picture, path);
        std::printf(" %s\n", path.c_str());
    }

private:
    std::string folder_;
    int count_ = 0;
};

TnImage ReadPicture(const std::string& path) {
    TnImage picture = ReadPng(path);
    std::printf("%s: %d x %d pixels\n", path.c_str(), picture.Size().x, picture.Size().y);
    return picture;
}

struct Arguments {
    std::string folder;
    std::string lightFont;
    std::string boldFont;
    std::string photo;
    std::string subject;
};

void Run(const Arguments& given) {
    TnImage::SetDefaultCancelProc(ShowProgress);
    const TnGraphicsMem graphics(64 << 20, BasekitFromAscii("en_US"));
    const Typeface type = {Font(given.lightFont), Font(given.boldFont)};
    const TnImage photo = ReadPicture(given.photo);
    const TnImage subject = ReadPicture(given.subject);

    Gallery gallery(given.folder);
    const auto edited = [&photo](auto edit) {
        return [&photo, edit] {
            TnImage image = photo;
            edit(image);
            return image;
        };
    };
    gallery.Add("slate", "a slate of colour bars, hatches, a cross and a window of the picture",
                [&photo] { return MakeSlate(photo); });
    gallery.Add("blended", "the picture fading to midnight blue", edited([](TnImage& image) {
                    MakeVignette(image);
                    BlendInColorAndFillAlpha(image, kMidnight, 255);
                }));
    gallery.Add("vignette", "the picture cut out by a soft oval", edited(MakeVignette));
    gallery.Add("opacity", "the picture at 40 per cent", edited([](TnImage& image) { SetOpacity(image, 40); }));
    gallery.Add("safe-area", "the picture erased outside the title-safe area",
                edited([](TnImage& image) { EraseOutside(image, Inset(image.Bounds(), 0.1)); }));
    gallery.Add("lower-third", "a caption bar through which the picture shows", edited(DrawLowerThird));
    gallery.Add("operators", "a cut-out of the second picture combined with the first by each operator",
                [&] { return MakeOperatorSheet(photo, subject); });
    gallery.Add("transforms",
                "the second picture through matrices, nearest and smooth, and the top field of interlaced video",
                [&] { return MakeTransformSheet(photo, subject); });
    gallery.Add("alpha", "lettering and cut-outs with smooth edges, shadows, outlines and textures",
                [&] { return MakeAlphaSheet(photo, subject); });
    gallery.Add("title-card", "a title card: lettering from a font, shapes and shadows, and a turned print",
                [&] { return MakeTitleCard(photo, subject, type); });
    gallery.Add("edges", "lettering and lines with edges of masks and of mattes", [&] { return MakeEdgeSheet(type); });
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 5 || argc > 6) {
        std::fprintf(stderr, "usage: demo folder light-font bold-font picture.png [cut-out.png]\n");
        return 2;
    }
    try {
        Run({argv[1], argv[2], argv[3], argv[4], argv[argc - 1]});
    } catch (const std::exception& problem) {
        std::fprintf(stderr, "demo: %s\n", problem.what());
        return 1;
    }
    return 0;
}
