// Storage whose rows lie very far apart.
#pragma once

#include "tests/support/AddressSpace.h"

#include "TnGraphics/geometry/TnPoint.h"
#include "TnGraphics/port/TnBitMapHelper.h"

#include <cstddef>
#include <cstdint>

namespace tn::test {

/// Rows of any distance, with memory only where their pixels are. The last row may lie more than 4 GiB from the first,
/// which ByteSize() then cannot tell: it gives its low 32 bits.
class SparseStorage : public TnBitMapHelper {
public:
    SparseStorage(const TnPoint& size, std::size_t pixelBytes, std::uint32_t rowBytes);

    void* BaseAddr() const override { return space_.At(0); }
    std::uint32_t RowBytes() const override { return rowBytes_; }
    std::uint32_t ByteSize() const override { return static_cast<std::uint32_t>(byteSize_); }
    bool Contains(const void* address) const override;
    void Refresh() override {}

private:
    std::uint32_t rowBytes_;
    std::uint64_t byteSize_;
    AddressSpace space_;
};

} // namespace tn::test
