#include "tests/support/SparseStorage.h"

namespace tn::test {

SparseStorage::SparseStorage(const TnPoint& size, std::size_t pixelBytes, std::uint32_t rowBytes)
    : rowBytes_(rowBytes), byteSize_(std::uint64_t{rowBytes} * static_cast<std::uint32_t>(size.y)), space_(byteSize_) {
    for (std::int32_t row = 0; row < size.y; ++row) {
        space_.Commit(std::uint64_t{rowBytes} * static_cast<std::uint32_t>(row),
                      static_cast<std::size_t>(size.x) * pixelBytes);
    }
}

bool SparseStorage::Contains(const void* address) const {
    return reinterpret_cast<std::uintptr_t>(address) - reinterpret_cast<std::uintptr_t>(space_.At(0)) < byteSize_;
}

} // namespace tn::test
