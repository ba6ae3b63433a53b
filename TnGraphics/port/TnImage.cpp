#include "TnGraphics/port/TnImage.h"

TnImage::TnImage(const TnPoint& size, bool clear, TnCancelProc cancelProc) : Surface(size, clear, cancelProc) {}

TnImage::TnImage(TnBitMapHelper* storage, const TnPoint& size, TnCancelProc cancelProc)
    : Surface(storage, size, cancelProc) {}

TnImage::TnImage(const TnImage& other) = default;

TnImage& TnImage::operator=(const TnImage& other) = default;

TnImage::~TnImage() = default;
