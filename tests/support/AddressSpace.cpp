#include "tests/support/AddressSpace.h"

#include <new>

#if defined(_WIN32)
#include <windows.h>
#else
#include <sys/mman.h>
#include <unistd.h>
#endif

namespace tn::test {

#if defined(_WIN32)

AddressSpace::AddressSpace(std::uint64_t bytes)
    : bytes_(bytes), base_(static_cast<std::uint8_t*>(VirtualAlloc(nullptr, bytes, MEM_RESERVE, PAGE_NOACCESS))) {
    if (base_ == nullptr) {
        throw std::bad_alloc();
    }
}

AddressSpace::~AddressSpace() { VirtualFree(base_, 0, MEM_RELEASE); }

std::size_t AddressSpace::PageBytes() {
    SYSTEM_INFO info = {};
    GetSystemInfo(&info);
    return info.dwPageSize;
}

void AddressSpace::Commit(std::uint64_t offset, std::size_t bytes) {
    if (bytes > 0 && VirtualAlloc(At(offset), bytes, MEM_COMMIT, PAGE_READWRITE) == nullptr) {
        throw std::bad_alloc();
    }
}

#else

AddressSpace::AddressSpace(std::uint64_t bytes) : bytes_(bytes) {
    void* const base = mmap(nullptr, bytes, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    if (base == MAP_FAILED) {
        throw std::bad_alloc();
    }
    base_ = static_cast<std::uint8_t*>(base);
}

AddressSpace::~AddressSpace() { munmap(base_, bytes_); }

std::size_t AddressSpace::PageBytes() { return static_cast<std::size_t>(sysconf(_SC_PAGESIZE)); }

void AddressSpace::Commit(std::uint64_t offset, std::size_t bytes) {
    const std::uint64_t firstPage = offset - offset % PageBytes();
    if (mprotect(At(firstPage), offset - firstPage + bytes, PROT_READ | PROT_WRITE) != 0) {
        throw std::bad_alloc();
    }
}

#endif

} // namespace tn::test
