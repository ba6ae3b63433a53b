#include "TnGraphics/port/StDisregardAlphaInGet.h"

StDisregardAlphaInGet::StDisregardAlphaInGet(const TnImage& image, const TnImagePixel& outside)
    : lock_(image), savedOutside_(image.OutsidePixel()) {
    ++image.reading_.disregardAlpha;
    image.reading_.outside = outside;
}

StDisregardAlphaInGet::~StDisregardAlphaInGet() {
    const TnImage& image = *lock_.Surface();
    --image.reading_.disregardAlpha;
    image.reading_.outside = savedOutside_;
}
