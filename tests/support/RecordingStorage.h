// Storage of a caller's own kind, which notes what the library asks of it.
#pragma once

#include "TnGraphics/port/TnBitMapHelper.h"

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <vector>

namespace tn::test {

/// What storage that cannot be locked, or cannot say its address, throws.
struct StorageFault : std::runtime_error {
    StorageFault() : std::runtime_error("storage fault") {}
};

/// Shared by a test and the storage under it. It outlives the storage, which belongs to a surface.
struct StorageProbe {
    int locks = 0;
    int unlocks = 0;
    int baseAddrs = 0;
    int refreshes = 0;
    int destructions = 0;
    bool throwAtLock = false;
    bool throwAtBaseAddr = false;

    bool IsLocked() const { return locks != unlocks; }
};

/// Rows of bytes in a vector. Never of the library's own kind, so surfaces over it cannot be copied.
class RecordingStorage : public TnBitMapHelper {
public:
    RecordingStorage(StorageProbe& probe, std::uint32_t rowBytes, std::uint32_t rows, std::uint8_t value = 0)
        : probe_(probe), rowBytes_(rowBytes), bytes_(std::size_t{rowBytes} * rows, value) {
        bytes_.reserve(1); // storage of no bytes has an address too
    }
    ~RecordingStorage() override { ++probe_.destructions; }

    void* BaseAddr() const override {
        ++probe_.baseAddrs;
        ThrowIf(probe_.throwAtBaseAddr);
        return const_cast<std::uint8_t*>(bytes_.data());
    }
    std::uint32_t RowBytes() const override { return rowBytes_; }
    std::uint32_t ByteSize() const override { return static_cast<std::uint32_t>(bytes_.size()); }
    bool Contains(const void* address) const override {
        const auto distance =
            reinterpret_cast<std::uintptr_t>(address) - reinterpret_cast<std::uintptr_t>(bytes_.data());
        return distance < bytes_.size();
    }
    void Lock() override {
        ThrowIf(probe_.throwAtLock);
        ++probe_.locks;
    }
    void Unlock() override { ++probe_.unlocks; }
    void Refresh() override { ++probe_.refreshes; }

    /// Every byte, the spare ones of each row included.
    std::vector<std::uint8_t>& Bytes() { return bytes_; }

private:
    static void ThrowIf(bool wanted) {
        if (wanted) {
            throw StorageFault();
        }
    }

    StorageProbe& probe_;
    std::uint32_t rowBytes_;
    std::vector<std::uint8_t> bytes_;
};

} // namespace tn::test
