#include "TnEngines/vec/paint/Clip.h"

#include "TnEngines/vec/paint/SpanKernels.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace tn::vec {
namespace {

void Write(const CoverageSpan& span, std::uint8_t* to) {
    const auto count = static_cast<std::size_t>(span.length);
    if (span.bytes != nullptr) {
        std::memcpy(to, span.bytes, count);
    } else {
        std::memset(to, span.all, count);
    }
}

} // namespace

ClipMask::ClipMask(const Box& box)
    : box_(box), coverage_(static_cast<std::size_t>(box.Width()) * static_cast<std::size_t>(box.Height())) {}

void ClipMask::Cover(std::int32_t top, std::int32_t bottom, const CoverageRow& row) {
    for (std::int32_t y = top; y < bottom; ++y) {
        for (const CoverageSpan& span : row.Spans()) {
            Write(span, coverage_.data() + Offset(span.x, y));
        }
    }
}

void ClipMask::Multiply(const ClipMask& by) {
    for (std::int32_t y = box_.top; y < box_.bottom; ++y) {
        Kernels().multiply(coverage_.data() + Offset(box_.left, y), static_cast<std::size_t>(box_.Width()),
                           by.At(box_.left, y));
    }
}

Box ClipMask::Content() const {
    Box content = {box_.right, box_.bottom, box_.left, box_.top};
    for (std::int32_t y = box_.top; y < box_.bottom; ++y) {
        const std::uint8_t* const row = At(box_.left, y);
        const std::uint8_t* const end = row + box_.Width();
        const auto isSeen = [](std::uint8_t coverage) { return coverage != 0; };
        const std::uint8_t* const first = std::find_if(row, end, isSeen);
        if (first == end) {
            continue;
        }
        const auto last = std::find_if(std::make_reverse_iterator(end), std::make_reverse_iterator(first), isSeen);
        content = {std::min(content.left, box_.left + static_cast<std::int32_t>(first - row)), std::min(content.top, y),
                   std::max(content.right, box_.left + static_cast<std::int32_t>(last.base() - row)), y + 1};
    }
    return content;
}

bool ClipMask::IsFull() const {
    return std::ranges::all_of(coverage_, [](std::uint8_t coverage) { return coverage == kCovered; });
}

void Clip::Intersect(const Box& box) {
    box_ = Intersection(box_, box);
    if (box_.IsEmpty()) {
        mask_.reset();
    }
}

void Clip::Intersect(std::unique_ptr<ClipMask> mask) {
    if (mask_ != nullptr) {
        mask->Multiply(*mask_);
    }
    const Box box = Intersection(box_, mask->Content());
    if (box.IsEmpty() || mask->IsFull()) {
        mask.reset();
    }
    std::shared_ptr<const ClipMask> shared = std::move(mask);
    box_ = box;
    mask_ = std::move(shared);
}

MaskedSink::MaskedSink(const ClipMask& mask, const Box& box, CoverageSink& sink) : mask_(mask), sink_(sink) {
    masked_.Reset(box.left, box.Width());
}

void MaskedSink::Cover(std::int32_t top, std::int32_t bottom, const CoverageRow& row) {
    for (std::int32_t y = top; y < bottom; ++y) {
        masked_.Clear();
        for (const CoverageSpan& span : row.Spans()) {
            AddMasked(span, y);
        }
        sink_.Cover(y, y + 1, masked_);
    }
}

void MaskedSink::AddMasked(const CoverageSpan& span, std::int32_t y) {
    std::uint8_t* const bytes = masked_.Bytes(span.x, span.length);
    Write(span, bytes);
    Kernels().multiply(bytes, static_cast<std::size_t>(span.length), mask_.At(span.x, y));
}

} // namespace tn::vec
