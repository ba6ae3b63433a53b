#include "TnGraphics/ops/AlphaAnalysis.h"
#include "TnGraphics/rows/LineGroups.h"
#include "TnGraphics/rows/RowKernels.h"

#include <cstddef>
#include <cstdint>
#include <optional>

namespace {

/// The scans for content. Each is a walk of its own, which polls the surface's cancel procedure as it goes, and stops
/// at the first content.
template <class SurfaceType> class ContentScans {
    using Pixel = typename SurfaceType::Pixel;
    using Search = tn::Searching<tn::DiffersFrom, Pixel>;

public:
    ContentScans(const SurfaceType& surface, const tn::DiffersFrom& isContent)
        : surface_(surface), isContent_(isContent) {}

    /// The first content row by row, if it is not the last pixel of the rectangle.
    std::optional<TnPoint> FromTop(const TnRect& rect) const {
        const auto walk = surface_.begin(rect);
        std::optional<TnPoint> found;
        VisitLineGroups(walk, rect.height, [&](const tn::LineGroup& rows) {
            const bool isLastGroup = rows.first + rows.count == rect.height;
            for (std::int64_t y = rows.first; y < rows.first + rows.count && !found; ++y) {
                const bool isLastRow = y + 1 == rect.height;
                const std::int64_t length = rect.width - (isLastRow ? 1 : 0);
                found = FirstIn(RowOf(walk, y), length, rect.left, rect.top + y);
            }
            return found || isLastGroup;
        });
        return found;
    }

    /// The first content column by column.
    std::optional<TnPoint> FromLeft(const TnRect& rect) const {
        const auto walk = surface_.beginVertical(rect);
        std::optional<TnPoint> found;
        VisitLineGroups(walk, rect.width, [&](const tn::LineGroup& columns) {
            std::int64_t length = columns.count;
            ForEachContentRow(walk, rect.height, columns.first, length, [&](const Pixel* row, std::int64_t y) {
                found = FirstIn(row, length, rect.left + columns.first, rect.top + y);
                length = found->x - rect.left - columns.first; // what lies further left comes first
            });
            return found.has_value();
        });
        return found;
    }

    /// The row of the last content row by row, in a rectangle that has content.
    std::int32_t FromBottom(const TnRect& rect) const {
        const auto walk = surface_.begin(rect);
        std::int64_t bottom = rect.height - std::int64_t{1};
        VisitLineGroupsBackward(LastLine(surface_.end(rect)), rect.height, [&](const tn::LineGroup& rows) {
            while (bottom >= rows.first && !HasContent(RowOf(walk, bottom), rect.width)) {
                --bottom;
            }
            return bottom >= rows.first;
        });
        return static_cast<std::int32_t>(rect.top + bottom);
    }

    /// The column of the last content column by column, in a rectangle that has content.
    std::int32_t FromRight(const TnRect& rect) const {
        const auto walk = surface_.beginVertical(rect);
        std::int64_t right = -1;
        VisitLineGroupsBackward(LastLine(surface_.endVertical(rect)), rect.width, [&](const tn::LineGroup& columns) {
            std::int64_t first = columns.first; // of those that may come later than what is found
            std::int64_t length = columns.count;
            ForEachContentRow(walk, rect.height, first, length, [&](const Pixel* row, std::int64_t) {
                const auto last = kernels_.last(row, static_cast<std::size_t>(length), isContent_);
                right = first + static_cast<std::int64_t>(last);
                first = right + 1;
                length = columns.first + columns.count - first;
            });
            return right >= columns.first;
        });
        return static_cast<std::int32_t>(rect.left + right);
    }

private:
    template <class Iterator> static Iterator LastLine(Iterator end) { return --end; }

    // The rows of a rectangle by their numbers, from an iterator that stands on its first pixel.
    template <class Iterator> const Pixel* RowOf(const Iterator& walk, std::int64_t row) const {
        const auto bytes = static_cast<std::uintptr_t>(row) * surface_.RowBytes();
        return reinterpret_cast<const Pixel*>(reinterpret_cast<std::uintptr_t>(&*walk) + bytes);
    }

    /// Calls use with each row that has content in some columns, which use may narrow.
    template <class Iterator, class Use>
    void ForEachContentRow(const Iterator& walk, std::int64_t rows, const std::int64_t& column,
                           const std::int64_t& length, const Use& use) const {
        for (std::int64_t y = 0; length > 0; ++y) {
            const Pixel* const start = RowOf(walk, y) + column;
            const auto rowsLeft = static_cast<std::size_t>(rows - y);
            const auto count = static_cast<std::size_t>(length);
            y += static_cast<std::int64_t>(kernels_.row(start, surface_.RowBytes(), rowsLeft, count, isContent_));
            if (y == rows) {
                return;
            }
            use(RowOf(walk, y) + column, y);
        }
    }

    std::optional<TnPoint> FirstIn(const Pixel* row, std::int64_t length, std::int64_t x, std::int64_t y) const {
        const auto count = static_cast<std::size_t>(length);
        const std::size_t first = kernels_.first(row, count, isContent_);
        if (first == count) {
            return {};
        }
        return TnPoint{static_cast<std::int32_t>(x + static_cast<std::int64_t>(first)), static_cast<std::int32_t>(y)};
    }

    bool HasContent(const Pixel* row, std::int32_t length) const {
        const auto count = static_cast<std::size_t>(length);
        return kernels_.last(row, count, isContent_) < count;
    }

    const SurfaceType& surface_;
    tn::DiffersFrom isContent_;
    Search kernels_ = tn::ActiveKernels<Search>();
};

template <class SurfaceType>
TnRect ContentArea(const SurfaceType& surface, const TnRect& rect, const tn::DiffersFrom& isContent) {
    const ContentScans<SurfaceType> scans(surface, isContent);
    const auto walk = surface.begin(rect); // locks for all scans
    const TnRect area = walk.Bounds();
    const auto highest = area.IsEmpty() ? std::nullopt : scans.FromTop(area);
    if (!highest) {
        return {};
    }
    const std::int32_t right = area.left + area.width;
    const std::int32_t bottom = area.top + area.height;
    const TnPoint leftmost =
        scans.FromLeft({area.left, area.top, highest->x - area.left, area.height}).value_or(*highest);
    const std::int32_t lastRow = scans.FromBottom({leftmost.x, leftmost.y, right - leftmost.x, bottom - leftmost.y});
    const std::int32_t height = lastRow - highest->y + 1;
    const std::int32_t lastColumn = scans.FromRight({leftmost.x, highest->y, right - leftmost.x, height});
    return {leftmost.x, highest->y, lastColumn - leftmost.x + 1, height};
}

} // namespace

TnRect CalculateContentArea(const TnImage& image, TnRect rect) { return ContentArea(image, rect, {0, tn::kAlphaBits}); }

TnRect CalculateContentArea(const TnImage& image) { return CalculateContentArea(image, image.Bounds()); }

TnRect CalculateContentArea(const TnMatte& matte, TnMattePixel background, TnRect rect) {
    return ContentArea(matte, rect, {std::uint32_t{background.value} << 24, tn::kAlphaBits});
}

TnRect CalculateContentArea(const TnMatte& matte, TnMattePixel background) {
    return CalculateContentArea(matte, background, matte.Bounds());
}
