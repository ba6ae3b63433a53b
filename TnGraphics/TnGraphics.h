/// \file
/// Everything that a host needs, in one include.
#pragma once

#include "TnGraphics/geometry/TnBox.h"
#include "TnGraphics/geometry/TnFixed.h"
#include "TnGraphics/geometry/TnFloat.h"
#include "TnGraphics/geometry/TnPoint.h"
#include "TnGraphics/geometry/TnRect.h"
#include "TnGraphics/ops/Erase.h"
#include "TnGraphics/ops/Fills.h"
#include "TnGraphics/port/CalcIterBnds.h"
#include "TnGraphics/port/Exceptions.h"
#include "TnGraphics/port/TnBitMapHelper.h"
#include "TnGraphics/port/TnColor.h"
#include "TnGraphics/port/TnImage.h"
#include "TnGraphics/port/TnImagePixel.h"
#include "TnGraphics/port/TnMask.h"
#include "TnGraphics/port/TnMaskPixel.h"
#include "TnGraphics/port/TnMatte.h"
#include "TnGraphics/port/TnMattePixel.h"
#include "TnGraphics/port/WinBitMapHelper.h"
