#include "TnGraphics/ops/AlphaFilter.h"

#include "TnGraphics/ops/FarFilters.h"
#include "TnGraphics/rows/LineGroups.h"
#include "TnGraphics/rows/RowKernels.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <type_traits>

namespace {

template <class Filter> tn::ColumnKernel KernelOf() { return tn::ActiveKernels<tn::FilteringColumns<Filter>>().kernel; }

template <bool keepsHalf> tn::ColumnKernel MeansWithin(int radius) {
    const bool isNear = static_cast<std::size_t>(radius) <= tn::kLongRadius;
    return isNear ? KernelOf<tn::TriangleMeans<keepsHalf>>() : &tn::FilterByFarMeans<keepsHalf>;
}

tn::ColumnKernel FilterOf(int mode, int radius) {
    switch (mode) {
    case 1:
        return MeansWithin<false>(radius);
    case 2:
        return KernelOf<tn::WindowExtremes<tn::Maximum>>();
    case 3:
        return KernelOf<tn::WindowExtremes<tn::Minimum>>();
    case 4:
        return MeansWithin<true>(radius);
    default:
        return &tn::FilterByRuns;
    }
}

tn::MatteRows From(const tn::MatteRows& rows, std::int64_t row, std::int64_t column) {
    return {rows.first + static_cast<std::size_t>(row) * rows.rowBytes + column, rows.rowBytes};
}

/// A matte that stays locked.
class WorkingMatte {
public:
    explicit WorkingMatte(const TnPoint& size) : matte_(size), first_(matte_.begin()) {}

    tn::MatteRows Rows() const { return {&*first_, matte_.RowBytes()}; }

private:
    TnMatte matte_;
    TnMatte::Iterator first_;
};

/// Lines that are turned: their values lie side by side. It takes no more memory than the lines do, however few and
/// long they are.
class TurnedLines {
public:
    TurnedLines(std::int64_t lines, std::int32_t length)
        : matte_({length, static_cast<std::int32_t>(lines)}), lines_(static_cast<std::size_t>(lines)) {}

    tn::MatteRows Rows() const { return {matte_.Rows().first, lines_}; }

private:
    WorkingMatte matte_;
    std::size_t lines_;
};

/// The alphas of a surface on their way through the two passes. Only the second one changes the surface.
template <class SurfaceType> class AlphaFilter {
    static constexpr bool kIsMatte = std::is_same_v<SurfaceType, TnMatte>;

public:
    AlphaFilter(SurfaceType& surface, tn::ColumnKernel filter, int radius)
        : surface_(surface), filter_(filter), radius_(static_cast<std::size_t>(radius)), size_(surface.Size()),
          first_(surface.begin()), alphas_(size_) {}

    /// Rows are turned into columns some at a time and back.
    void FilterRows() {
        const std::int64_t height = size_.y;
        const std::int64_t count = std::min(height, tn::kLinesInGroup);
        const TurnedLines turned(count, size_.x);
        const TurnedLines filtered(count, size_.x);
        const auto turning = tn::ActiveKernels<tn::Turning>();
        const auto rows = static_cast<std::size_t>(count);
        const auto length = static_cast<std::size_t>(size_.x);
        VisitLineGroups(surface_.begin(), height, [&](const tn::LineGroup& group) {
            const std::int64_t first = std::min(group.first, height - count); // full groups are faster
            turning.intoColumns(SourceRows(first, count), turned.Rows(), rows, length);
            filter_({turned.Rows(), filtered.Rows(), rows, length, radius_});
            turning.intoRows(filtered.Rows(), From(alphas_.Rows(), first, 0), rows, length);
            return false;
        });
    }

    void FilterColumns() {
        const TurnedLines filtered(std::min(std::int64_t{size_.x}, tn::kLinesInGroup), kIsMatte ? 0 : size_.y);
        VisitLineGroups(surface_.beginVertical(), size_.x, [&](const tn::LineGroup& group) {
            const tn::MatteRows from = From(alphas_.Rows(), 0, group.first);
            const auto columns = static_cast<std::size_t>(group.count);
            const auto length = static_cast<std::size_t>(size_.y);
            if constexpr (kIsMatte) {
                filter_({from, From(SurfaceRows(), 0, group.first), columns, length, radius_});
            } else {
                filter_({from, filtered.Rows(), columns, length, radius_});
                SetAlphas(filtered.Rows(), group);
            }
            return false;
        });
    }

private:
    tn::MatteRows SurfaceRows() const { return {&*first_, surface_.RowBytes()}; }

    /// Rows of the surface's alphas.
    tn::MatteRows SourceRows(std::int64_t first, std::int64_t count) const {
        if constexpr (kIsMatte) {
            return From(SurfaceRows(), first, 0);
        } else {
            using Copying = tn::Copying<tn::CopyAlpha, TnImagePixel, TnMattePixel>;
            const tn::MatteRows alphas = From(alphas_.Rows(), first, 0);
            for (std::int64_t row = 0; row < count; ++row) {
                tn::ActiveKernels<Copying>().kernel(ImageRow(first + row), From(alphas, row, 0).first,
                                                    static_cast<std::size_t>(size_.x), {});
            }
            return alphas;
        }
    }

    void SetAlphas(const tn::MatteRows& alphas, const tn::LineGroup& columns) const {
        using Copying = tn::Copying<tn::CopyAlpha, TnMattePixel, TnImagePixel>;
        const auto kernel = tn::ActiveKernels<Copying>().kernel;
        for (std::int64_t row = 0; row < size_.y; ++row) {
            kernel(From(alphas, row, 0).first, ImageRow(row) + columns.first, static_cast<std::size_t>(columns.count),
                   {});
        }
    }

    TnImagePixel* ImageRow(std::int64_t row) const {
        const auto bytes = static_cast<std::uintptr_t>(row) * surface_.RowBytes();
        return reinterpret_cast<TnImagePixel*>(reinterpret_cast<std::uintptr_t>(&*first_) + bytes);
    }

    SurfaceType& surface_;
    tn::ColumnKernel filter_;
    std::size_t radius_;
    TnPoint size_;
    typename SurfaceType::Iterator first_;
    WorkingMatte alphas_;
};

} // namespace

template <class SurfaceType> void ProcessAlphaChannel(SurfaceType& surface, int mode, int radius) {
    if (radius < 0 || surface.begin().AtEnd()) {
        return;
    }
    AlphaFilter<SurfaceType> filter(surface, FilterOf(mode, radius), radius);
    filter.FilterRows();
    filter.FilterColumns();
}

template TN_EXPORT void ProcessAlphaChannel(TnImage& surface, int mode, int radius);
template TN_EXPORT void ProcessAlphaChannel(TnMatte& surface, int mode, int radius);
