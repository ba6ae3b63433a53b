// Private: the instructions of the AVX-512 level. Included by that level's source alone.
#pragma once

#include "TnGraphics/rows/lanes/Avx2Set.h"

#include <cstddef>
#include <cstdint>
#include <immintrin.h>

namespace tn::avx512 {

struct Level;

struct InstructionSet {
    using Register = __m512i;
    using Mask32 = __mmask16;

    /// Masked stores reach into the next row as far as the processor can tell, and loads from there wait for them.
    using Narrower = Avx2Instructions<Level>;

    static Register All16(std::uint16_t value) { return _mm512_set1_epi16(static_cast<short>(value)); }
    static Register All32(std::uint32_t value) { return _mm512_set1_epi32(static_cast<int>(value)); }
    static Register All64(std::uint64_t value) { return _mm512_set1_epi64(static_cast<long long>(value)); }
    static Register Indices32() { return _mm512_setr_epi32(0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15); }

    static Register Load(const void* from) { return _mm512_loadu_si512(from); }
    static void Store(void* to, Register a) { _mm512_storeu_si512(to, a); }

    static Register LoadAlphas(const void* from) {
        const __m128i bytes = _mm_loadu_si128(static_cast<const __m128i*>(from));
        return _mm512_slli_epi32(_mm512_cvtepu8_epi32(bytes), 24);
    }
    static void StoreAlphas(void* to, Register a) {
        _mm_storeu_si128(static_cast<__m128i*>(to), _mm512_cvtepi32_epi8(_mm512_srli_epi32(a, 24)));
    }

    static Register Gather32(std::uintptr_t base, Register offsets, Mask32 where, Register otherwise) {
        return _mm512_mask_i32gather_epi32(otherwise, where, offsets, reinterpret_cast<const void*>(base), 1);
    }
    static void GatherPairs32(std::uintptr_t base, Register offsets, Register& left, Register& right) {
        const auto* const from = reinterpret_cast<const void*>(base);
        const Register low = _mm512_i32gather_epi64(_mm512_castsi512_si256(offsets), from, 1);
        const Register high = _mm512_i32gather_epi64(_mm512_extracti64x4_epi64(offsets, 1), from, 1);
        const Register even = Add32(Indices32(), Indices32());
        left = _mm512_permutex2var_epi32(low, even, high);
        right = _mm512_permutex2var_epi32(low, Add32(even, All32(1)), high);
    }

    static Register And(Register a, Register b) { return _mm512_and_si512(a, b); }
    static Register Or(Register a, Register b) { return _mm512_or_si512(a, b); }
    static Register Xor(Register a, Register b) { return _mm512_xor_si512(a, b); }
    static Mask32 OrMask32(Mask32 a, Mask32 b) { return static_cast<Mask32>(a | b); }
    static Mask32 AndMask32(Mask32 a, Mask32 b) { return static_cast<Mask32>(a & b); }
    static bool AnyMask32(Mask32 mask) { return mask != 0; }
    static Register Select32(Mask32 mask, Register a, Register b) { return _mm512_mask_blend_epi32(mask, b, a); }

    static Register WithFourthBytesOf(Register a, Register b) {
        constexpr int kChoice = 0xCA; // first ? second : third, bit by bit
        return _mm512_ternarylogic_epi32(All32(0xFF000000), b, a, kChoice);
    }

    static bool HasBits(Register a) { return _mm512_test_epi32_mask(a, a) != 0; }

    static Register MinBytes(Register a, Register b) { return _mm512_min_epu8(a, b); }
    static Register MaxBytes(Register a, Register b) { return _mm512_max_epu8(a, b); }

    static Register Add32(Register a, Register b) { return _mm512_add_epi32(a, b); }
    static Register Subtract32(Register a, Register b) { return _mm512_sub_epi32(a, b); }
    static Register Multiply32(Register a, Register b) { return _mm512_mullo_epi32(a, b); }
    static Mask32 Less32(Register a, Register b) { return _mm512_cmplt_epi32_mask(a, b); }
    static Mask32 Equal32(Register a, Register b) { return _mm512_cmpeq_epi32_mask(a, b); }
    template <int bits> static Register ShiftLeft32(Register a) { return _mm512_slli_epi32(a, bits); }
    template <int bits> static Register ShiftRight32(Register a) { return _mm512_srli_epi32(a, bits); }

    template <int bits> static Register ShiftRightSigned32(Register a) { return _mm512_srai_epi32(a, bits); }

    static Register Add16(Register a, Register b) { return _mm512_add_epi16(a, b); }
    static Register Subtract16(Register a, Register b) { return _mm512_sub_epi16(a, b); }
    static Register Multiply16(Register a, Register b) { return _mm512_mullo_epi16(a, b); }
    static Register MultiplyHigh16(Register a, Register b) { return _mm512_mulhi_epu16(a, b); }
    static Register AddSaturated16(Register a, Register b) { return _mm512_adds_epi16(a, b); }
    static Register Signs16(Register a) { return _mm512_srai_epi16(a, 15); }
    static Register OneMoreUnlessLess16(Register count, Register a, Register b) {
        return _mm512_mask_add_epi16(count, _mm512_cmpge_epi16_mask(a, b), count, All16(1));
    }
    static Register WeightedPairs8(Register weights, Register pairs) { return _mm512_maddubs_epi16(weights, pairs); }
    static Register PairSums16(Register a, Register b) { return _mm512_madd_epi16(a, b); }

    static Register Quotients32(Register a, Register b) {
        return _mm512_cvttps_epi32(_mm512_div_ps(_mm512_cvtepi32_ps(a), _mm512_cvtepi32_ps(b)));
    }

    static Register WidenLow(Register a) { return _mm512_unpacklo_epi8(a, _mm512_setzero_si512()); }
    static Register WidenHigh(Register a) { return _mm512_unpackhi_epi8(a, _mm512_setzero_si512()); }
    static Register Narrow(Register low, Register high) { return _mm512_packus_epi16(low, high); }
    static Register InterleaveLow8(Register a, Register b) { return _mm512_unpacklo_epi8(a, b); }
    static Register InterleaveHigh8(Register a, Register b) { return _mm512_unpackhi_epi8(a, b); }
    static Register InterleaveLow16(Register a, Register b) { return _mm512_unpacklo_epi16(a, b); }
    static Register InterleaveHigh16(Register a, Register b) { return _mm512_unpackhi_epi16(a, b); }
    static Register InterleaveLow32(Register a, Register b) { return _mm512_unpacklo_epi32(a, b); }
    static Register InterleaveHigh32(Register a, Register b) { return _mm512_unpackhi_epi32(a, b); }
    static Register NarrowSigned(Register low, Register high) { return _mm512_packs_epi16(low, high); }
    static Register Narrow32(Register low, Register high) { return _mm512_packs_epi32(low, high); }
    template <int word> static Register SpreadWord32(Register a) {
        return _mm512_shuffle_epi32(a, static_cast<_MM_PERM_ENUM>(word * 0x55));
    }
    static Register SpreadFourth32(Register a) { return _mm512_shuffle_epi32(a, _MM_PERM_DDDD); }
    static Register AlphaPairsLow(Register a) {
        return _mm512_shuffle_epi8(a, _mm512_broadcast_i32x4(Narrower::AlphaBytesOfTwo(3)));
    }
    static Register AlphaPairsHigh(Register a) {
        return _mm512_shuffle_epi8(a, _mm512_broadcast_i32x4(Narrower::AlphaBytesOfTwo(11)));
    }
    static Register SpreadAlphaLow(Register a) {
        return _mm512_shuffle_epi8(a, _mm512_broadcast_i32x4(Narrower::AlphasOfTwo(3)));
    }
    static Register SpreadAlphaHigh(Register a) {
        return _mm512_shuffle_epi8(a, _mm512_broadcast_i32x4(Narrower::AlphasOfTwo(11)));
    }
};

} // namespace tn::avx512
