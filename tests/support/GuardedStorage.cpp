#include "tests/support/GuardedStorage.h"

namespace tn::test {
namespace {

std::size_t PagesFor(std::size_t bytes) { return (bytes + AddressSpace::PageBytes() - 1) / AddressSpace::PageBytes(); }

} // namespace

GuardedStorage::GuardedStorage(const TnPoint& size, std::size_t pixelBytes, Guard guard)
    : rowPages_(PagesFor(static_cast<std::size_t>(size.x) * pixelBytes)),
      rowBytes_((rowPages_ + 1) * AddressSpace::PageBytes()), rows_(static_cast<std::size_t>(size.y)),
      firstByte_(AddressSpace::PageBytes()), space_(rows_ * rowBytes_ + AddressSpace::PageBytes()) {
    if (guard == Guard::kAfterRows) {
        firstByte_ = rowBytes_ - static_cast<std::size_t>(size.x) * pixelBytes;
    }
    for (std::size_t row = 0; row < rows_; ++row) {
        space_.Commit(AddressSpace::PageBytes() + row * rowBytes_, rowPages_ * AddressSpace::PageBytes());
    }
}

void* GuardedStorage::BaseAddr() const { return space_.At(firstByte_); }

std::uint32_t GuardedStorage::RowBytes() const { return static_cast<std::uint32_t>(rowBytes_); }

std::uint32_t GuardedStorage::ByteSize() const { return static_cast<std::uint32_t>(rows_ * rowBytes_); }

bool GuardedStorage::Contains(const void* address) const {
    const auto begin = reinterpret_cast<std::uintptr_t>(BaseAddr());
    const auto at = reinterpret_cast<std::uintptr_t>(address);
    return begin <= at && at - begin < rows_ * rowBytes_;
}

} // namespace tn::test
