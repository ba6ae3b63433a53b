// Private: what this compiler says in words of its own.
#pragma once

#include <cstdint>

/// Before a function that must become part of its caller, so that what it is given stays in registers.
#define TN_ALWAYS_INLINE [[gnu::always_inline]] inline

namespace tn {

/// A number without sign of 128 bits.
__extension__ using Unsigned128 = unsigned __int128;

/// Has the processor fetch what is at an address, if there is anything.
TN_ALWAYS_INLINE void PrefetchRead(std::uintptr_t address) {
    __builtin_prefetch(reinterpret_cast<const void*>(address));
}

inline bool ProcessorHasAvx2() {
    __builtin_cpu_init();
    return __builtin_cpu_supports("avx2") != 0;
}

inline bool ProcessorHasAvx512Bw() {
    __builtin_cpu_init();
    return __builtin_cpu_supports("avx512f") != 0 && __builtin_cpu_supports("avx512bw") != 0 &&
           __builtin_cpu_supports("avx512vl") != 0 && __builtin_cpu_supports("avx512dq") != 0;
}

} // namespace tn
