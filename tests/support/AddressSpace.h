// A range of addresses, of which only what is committed can be touched.
#pragma once

#include <cstddef>
#include <cstdint>

namespace tn::test {

/// Reserves addresses, in whole pages, without memory behind them.
class AddressSpace {
public:
    /// \throws std::bad_alloc when the system refuses
    explicit AddressSpace(std::uint64_t bytes);
    ~AddressSpace();
    AddressSpace(const AddressSpace&) = delete;
    AddressSpace& operator=(const AddressSpace&) = delete;

    static std::size_t PageBytes();

    /// Puts memory, at first 0, behind every page that the bytes lie on.
    /// \throws std::bad_alloc when the system refuses
    void Commit(std::uint64_t offset, std::size_t bytes);

    std::uint8_t* At(std::uint64_t offset) const { return base_ + offset; }

private:
    std::uint64_t bytes_;
    std::uint8_t* base_;
};

} // namespace tn::test
