#include "TnGraphics/port/MatteSampling.h"

#include "TnGraphics/geometry/Rounding.h"
#include "TnGraphics/port/Assertion.h"
#include "TnGraphics/port/Bilinear.h"
#include "TnGraphics/port/TnMatte.h"

namespace tn {

std::optional<MattePosition> PositionOf(float x, float y) {
    const double column = double{x} * 256.0 + 0.5;
    const double row = double{y} * 256.0 + 0.5;
    if (!FitsInt32(column) || !FitsInt32(row)) {
        return std::nullopt;
    }
    return MattePosition{SplitPosition(TruncateToInt32(column)), SplitPosition(TruncateToInt32(row))};
}

bool HasNeighbors(const TnPoint& size, const MattePosition& at) {
    return 0 <= at.column.whole && at.column.whole < std::int64_t{size.x} - 1 && 0 <= at.row.whole &&
           at.row.whole < std::int64_t{size.y} - 1;
}

TnMattePixel BilinearMean(const PixelGrid<TnMattePixel>& grid, const MattePosition& at, TnMattePixel outside) {
    const auto& [column, row] = at;
    if (!grid.Has(column.whole + 1, row.whole + 1)) {
        return outside;
    }
    const TnMattePixel* const upper = grid.At(column.whole, row.whole);
    const TnMattePixel* const lower = grid.At(column.whole, row.whole + 1);
    const BilinearWeights weights(column.part, row.part);
    return static_cast<std::uint8_t>(weights.Sum(upper[0].value, upper[1].value, lower[0].value, lower[1].value) >> 16);
}

} // namespace tn

namespace {

constinit tn::AssertionSite areaLeavesMatte = {"HasArea", "TnMatte::Get(TnFloatRect)", "port/MatteSampling", __LINE__};

TnMattePixel Interpolated(const TnMatte& matte, const tn::MattePosition& at) {
    if (!tn::HasNeighbors(matte.StorageSize(), at)) {
        return matte.OutsidePixel();
    }
    const tn::ClientLock<TnMatte> lock(matte);
    return tn::BilinearMean(tn::ReadAccess::GridOf(matte), at, matte.OutsidePixel());
}

} // namespace

TnMattePixel TnMatte::Get(long x, long y) const { return tn::ReadPixel(*this, x, y); }

void TnMatte::Set(TnMattePixel pixel, long x, long y) { tn::WritePixel(*this, x, y, pixel); }

TnMattePixel TnMatte::Get(TnFixed x, TnFixed y) const {
    return Interpolated(*this, {tn::SplitPosition(x), tn::SplitPosition(y)});
}

TnMattePixel TnMatte::Get(float x, float y) const {
    const auto at = tn::PositionOf(x, y);
    return at ? Interpolated(*this, *at) : OutsidePixel();
}

TnMattePixel TnMatte::Get(const TnFloatRect& rect) const {
    if (!tn::IsArea(rect)) {
        return OutsidePixel();
    }
    const tn::ClientLock<TnMatte> lock(*this);
    const auto grid = tn::ReadAccess::GridOf(*this);
    areaLeavesMatte.AssertInDebug(tn::HasArea(grid, rect));
    return tn::AreaMean(grid, tn::AreaSpan(rect.left, rect.width), tn::AreaSpan(rect.top, rect.height));
}

TnMattePixel TnMatte::Get(long, long, const TnFixed*, unsigned long, const TnFixed*, unsigned long) const {
    return OutsidePixel();
}
