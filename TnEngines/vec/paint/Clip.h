// Private: what of a target may be painted.
#pragma once

#include "TnEngines/vec/scan/Box.h"
#include "TnEngines/vec/scan/Coverage.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace tn::vec {

/// How much of each pixel of a box may be painted.
class ClipMask final : public CoverageSink {
public:
    explicit ClipMask(const Box& box);

    void Cover(std::int32_t top, std::int32_t bottom, const CoverageRow& row) override;
    void Multiply(const ClipMask& by);

    const std::uint8_t* At(std::int32_t x, std::int32_t y) const { return coverage_.data() + Offset(x, y); }

    /// The least box that holds all that may be painted.
    Box Content() const;

    bool IsFull() const;

private:
    std::size_t Offset(std::int32_t x, std::int32_t y) const {
        return static_cast<std::size_t>(y - box_.top) * static_cast<std::size_t>(box_.Width()) +
               static_cast<std::size_t>(x - box_.left);
    }

    Box box_;
    std::vector<std::uint8_t> coverage_;
};

/// A box and, unless all of it may be painted, a mask. Clips only shrink; copies share their mask.
class Clip {
public:
    Clip() = default;
    explicit Clip(const Box& box) : box_(box) {}

    const Box& Bounds() const { return box_; }
    bool IsEmpty() const { return box_.IsEmpty(); }

    void Intersect(const Box& box);
    void Intersect(std::unique_ptr<ClipMask> mask);

    /// Null where all of the box may be painted.
    const ClipMask* Mask() const { return mask_.get(); }

private:
    Box box_;
    std::shared_ptr<const ClipMask> mask_;
};

/// Lets through what a mask does.
class MaskedSink final : public CoverageSink {
public:
    /// For coverage within a box that lies within the mask's.
    MaskedSink(const ClipMask& mask, const Box& box, CoverageSink& sink);
    void Cover(std::int32_t top, std::int32_t bottom, const CoverageRow& row) override;

private:
    void AddMasked(const CoverageSpan& span, std::int32_t y);

    const ClipMask& mask_;
    CoverageSink& sink_;
    CoverageRow masked_;
};

} // namespace tn::vec
