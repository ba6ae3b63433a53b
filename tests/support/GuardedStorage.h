// Storage in which touching a byte beside a row faults.
#pragma once

#include "tests/support/AddressSpace.h"

#include "TnGraphics/geometry/TnPoint.h"
#include "TnGraphics/port/TnBitMapHelper.h"

#include <cstddef>
#include <cstdint>

namespace tn::test {

/// Which end of each row lies at an inaccessible page.
enum class Guard {
    kAfterRows,  ///< The byte after a row's last pixel faults.
    kBeforeRows, ///< The byte before a row's first pixel faults.
};

/// Rows on memory pages of their own, each with an inaccessible page on either side.
///
/// A row touches one of the two pages with its end or its start; between the row and the other page lie up to a page of
/// spare bytes.
class GuardedStorage : public TnBitMapHelper {
public:
    GuardedStorage(const TnPoint& size, std::size_t pixelBytes, Guard guard);

    void* BaseAddr() const override;
    std::uint32_t RowBytes() const override;
    std::uint32_t ByteSize() const override;
    bool Contains(const void* address) const override;
    void Refresh() override {}

private:
    std::size_t rowPages_;
    std::size_t rowBytes_;
    std::size_t rows_;
    std::size_t firstByte_;
    AddressSpace space_;
};

} // namespace tn::test
