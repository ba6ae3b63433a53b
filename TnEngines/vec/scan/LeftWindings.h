// Private: how an outline winds around the points along a row's height, at some column of it.
#pragma once

#include "TnEngines/vec/scan/Coverage.h"

#include <algorithm>
#include <cstdint>
#include <vector>

namespace tn::vec {

struct WindingRange {
    std::int64_t least, greatest;

    void Add(const WindingRange& other) {
        least = std::min(least, other.least);
        greatest = std::max(greatest, other.greatest);
    }
    friend WindingRange operator+(const WindingRange& range, std::int64_t by) {
        return {range.least + by, range.greatest + by};
    }
};

/// The winding along the left side of a pixel: one number at the row's top, and changes on the way down.
class LeftWindings {
public:
    struct Change {
        std::int32_t height; ///< From the row's top, 1..kWhole - 1.
        std::int64_t by;     ///< Not 0.
    };

    void Clear() {
        atTop_ = 0;
        changes_.clear();
    }

    /// Adds an edge that lies wholly to the left.
    void Add(std::int32_t top, std::int32_t bottom, std::int32_t direction) {
        if (top == 0 && bottom == kWhole) {
            atTop_ += direction;
        } else {
            ChangeAt(top, direction);
            ChangeAt(bottom, -direction);
        }
    }

    std::int64_t AtTop() const { return atTop_; }
    const std::vector<Change>& Changes() const { return changes_; }
    bool IsLevel() const { return changes_.empty(); }

    /// The windings between two heights.
    WindingRange Between(std::int32_t top, std::int32_t bottom) const {
        std::int64_t winding = atTop_;
        auto change = changes_.begin();
        for (; change != changes_.end() && change->height <= top; ++change) {
            winding += change->by;
        }
        WindingRange range = {winding, winding};
        for (; change != changes_.end() && change->height < bottom; ++change) {
            winding += change->by;
            range.Add({winding, winding});
        }
        return range;
    }

    /// How much of the height is inside, of kWhole.
    std::int32_t Inside(FillRule rule) const {
        if (IsLevel()) {
            return IsInside(atTop_, rule) ? kWhole : 0;
        }
        std::int64_t winding = atTop_;
        std::int32_t from = 0, inside = 0;
        for (const Change& change : changes_) {
            inside += IsInside(winding, rule) ? change.height - from : 0;
            winding += change.by;
            from = change.height;
        }
        return inside + (IsInside(winding, rule) ? kWhole - from : 0);
    }

private:
    void ChangeAt(std::int32_t height, std::int32_t by) {
        if (height <= 0) {
            atTop_ += by;
            return;
        }
        if (height >= kWhole) {
            return;
        }
        const auto place = std::ranges::lower_bound(changes_, height, {}, &Change::height);
        if (place == changes_.end() || place->height != height) {
            changes_.insert(place, {height, by});
        } else if ((place->by += by) == 0) {
            changes_.erase(place);
        }
    }

    std::int64_t atTop_ = 0;
    std::vector<Change> changes_;
};

} // namespace tn::vec
