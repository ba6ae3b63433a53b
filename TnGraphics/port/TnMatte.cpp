#include "TnGraphics/port/TnMatte.h"

TnMatte::TnMatte(const TnPoint& size, bool clear, TnCancelProc cancelProc) : Surface(size, clear, cancelProc) {}

TnMatte::TnMatte(TnBitMapHelper* storage, const TnPoint& size, TnCancelProc cancelProc)
    : Surface(storage, size, cancelProc) {}

TnMatte::TnMatte(const TnMatte& other) = default;

TnMatte& TnMatte::operator=(const TnMatte& other) = default;

TnMatte::~TnMatte() = default;
