// Storage in bytes that belong to somebody else, so that surfaces can share them.
#pragma once

#include "TnGraphics/port/TnBitMapHelper.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace tn::test {

/// Rows of any distance, from any byte of a vector on. The vector must outlive the storage and keep its size.
class SharedStorage : public TnBitMapHelper {
public:
    SharedStorage(std::vector<std::uint8_t>& bytes, std::size_t firstByte, std::uint32_t rowBytes)
        : bytes_(bytes), firstByte_(firstByte), rowBytes_(rowBytes) {}

    void* BaseAddr() const override { return bytes_.data() + firstByte_; }
    std::uint32_t RowBytes() const override { return rowBytes_; }
    std::uint32_t ByteSize() const override { return static_cast<std::uint32_t>(bytes_.size() - firstByte_); }
    bool Contains(const void* address) const override {
        return reinterpret_cast<std::uintptr_t>(address) - reinterpret_cast<std::uintptr_t>(BaseAddr()) < ByteSize();
    }
    void Refresh() override {}

private:
    std::vector<std::uint8_t>& bytes_;
    std::size_t firstByte_;
    std::uint32_t rowBytes_;
};

} // namespace tn::test
