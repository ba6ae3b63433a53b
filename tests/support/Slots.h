// The slots of virtual functions.
//
// All supported compilers share one C++ binary interface, in which a pointer to a virtual function holds 1 + the offset
// of its slot. The virtual destructor takes the first two slots.
#pragma once

#include <cstddef>
#include <cstring>

namespace tn::test {

#if defined(__GXX_ABI_VERSION)
template <class Function> std::ptrdiff_t SlotOf(Function function) {
    std::ptrdiff_t word = 0;
    static_assert(sizeof(function) >= sizeof(word));
    std::memcpy(&word, &function, sizeof(word));
    return (word - 1) / static_cast<std::ptrdiff_t>(sizeof(void*));
}
#endif

} // namespace tn::test
