#include "TnGraphics/port/TnBitMapHelper.h"

TnBitMapHelper::TnBitMapHelper() = default;

TnBitMapHelper::~TnBitMapHelper() = default;

void TnBitMapHelper::Lock() {}

void TnBitMapHelper::Unlock() {}
