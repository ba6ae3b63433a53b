// Private: the instructions of the AVX2 level. Included by the sources of that level and of those above it alone.
#pragma once

#include <cstddef>
#include <cstdint>
#include <immintrin.h>

namespace tn {

/// AVX2 as it is compiled for a level, each of which has functions of its own.
template <class Level> struct Avx2Instructions {
    using Register = __m256i;
    using Mask32 = __m256i;
    using Floats = __m256;

    static Register All16(std::uint16_t value) { return _mm256_set1_epi16(static_cast<short>(value)); }
    static Register All32(std::uint32_t value) { return _mm256_set1_epi32(static_cast<int>(value)); }
    static Register All64(std::uint64_t value) { return _mm256_set1_epi64x(static_cast<long long>(value)); }
    static Register Indices32() { return _mm256_setr_epi32(0, 1, 2, 3, 4, 5, 6, 7); }

    static Register Load(const void* from) { return _mm256_loadu_si256(static_cast<const __m256i*>(from)); }
    static void Store(void* to, Register a) { _mm256_storeu_si256(static_cast<__m256i*>(to), a); }

    // One to seven words. Masked stores are slow on some processors of this level, narrower ones are fast on all.
    static Register LoadFirst(const void* from, std::size_t count) {
        const Register mask = _mm256_cmpgt_epi32(All32(static_cast<std::uint32_t>(count)), Indices32());
        return _mm256_maskload_epi32(static_cast<const int*>(from), mask);
    }
    static void StoreFirst(void* to, Register a, std::size_t count) {
        auto* words = static_cast<std::uint32_t*>(to);
        __m128i part = _mm256_castsi256_si128(a);
        if ((count & 4) != 0) {
            _mm_storeu_si128(reinterpret_cast<__m128i*>(words), part);
            words += 4;
            part = _mm256_extracti128_si256(a, 1);
        }
        if ((count & 2) != 0) {
            _mm_storel_epi64(reinterpret_cast<__m128i*>(words), part);
            words += 2;
            part = _mm_unpackhi_epi64(part, part);
        }
        if ((count & 1) != 0) {
            *words = static_cast<std::uint32_t>(_mm_cvtsi128_si32(part));
        }
    }

    static Register LoadAlphas(const void* from) {
        const __m128i bytes = _mm_loadl_epi64(static_cast<const __m128i*>(from));
        return _mm256_slli_epi32(_mm256_cvtepu8_epi32(bytes), 24);
    }
    static void StoreAlphas(void* to, Register a) {
        const Register alphas = _mm256_srli_epi32(a, 24);
        const __m128i shorts = _mm_packs_epi32(_mm256_castsi256_si128(alphas), _mm256_extracti128_si256(alphas, 1));
        _mm_storel_epi64(static_cast<__m128i*>(to), _mm_packus_epi16(shorts, shorts));
    }

    static Register Gather32(std::uintptr_t base, Register offsets, Mask32 where, Register otherwise) {
        return _mm256_mask_i32gather_epi32(otherwise, reinterpret_cast<const int*>(base), offsets, where, 1);
    }
    static void GatherPairs32(std::uintptr_t base, Register offsets, Register& left, Register& right) {
        const auto* const from = reinterpret_cast<const long long*>(base);
        const Register low = _mm256_i32gather_epi64(from, _mm256_castsi256_si128(offsets), 1);
        const Register high = _mm256_i32gather_epi64(from, _mm256_extracti128_si256(offsets, 1), 1);
        const Register first = _mm256_permute2x128_si256(low, high, 0x20);
        const Register second = _mm256_permute2x128_si256(low, high, 0x31);
        const Register lefts = _mm256_unpacklo_epi32(first, _mm256_srli_si256(first, 8));
        const Register others = _mm256_unpacklo_epi32(second, _mm256_srli_si256(second, 8));
        left = _mm256_unpacklo_epi64(lefts, others);
        right = _mm256_unpackhi_epi64(lefts, others);
    }

    // 16 bytes of a row and of another one at a distance.
    static Register LoadRows(const void* from, std::size_t distance) {
        const auto* const row = static_cast<const char*>(from);
        const __m128i upper = _mm_loadu_si128(reinterpret_cast<const __m128i*>(row));
        const __m128i lower = _mm_loadu_si128(reinterpret_cast<const __m128i*>(row + distance));
        return _mm256_inserti128_si256(_mm256_castsi128_si256(upper), lower, 1);
    }
    static void StoreRows(void* to, std::size_t distance, Register a) {
        auto* const row = static_cast<char*>(to);
        _mm_storeu_si128(reinterpret_cast<__m128i*>(row), _mm256_castsi256_si128(a));
        _mm_storeu_si128(reinterpret_cast<__m128i*>(row + distance), _mm256_extracti128_si256(a, 1));
    }

    static Register And(Register a, Register b) { return _mm256_and_si256(a, b); }
    static Register Or(Register a, Register b) { return _mm256_or_si256(a, b); }
    static Register Xor(Register a, Register b) { return _mm256_xor_si256(a, b); }
    static Mask32 OrMask32(Mask32 a, Mask32 b) { return _mm256_or_si256(a, b); }
    static Mask32 AndMask32(Mask32 a, Mask32 b) { return And(a, b); }
    static bool AnyMask32(Mask32 mask) { return HasBits(mask); }
    static Register Select32(Mask32 mask, Register a, Register b) { return _mm256_blendv_epi8(b, a, mask); }

    static Register WithFourthBytesOf(Register a, Register b) {
        return Or(And(a, All32(0x00FFFFFF)), And(b, All32(0xFF000000)));
    }

    static bool HasBits(Register a) { return _mm256_testz_si256(a, a) == 0; }

    static Register MinBytes(Register a, Register b) { return _mm256_min_epu8(a, b); }
    static Register MaxBytes(Register a, Register b) { return _mm256_max_epu8(a, b); }

    static Register Add8(Register a, Register b) { return _mm256_add_epi8(a, b); }
    static Register Subtract8(Register a, Register b) { return _mm256_sub_epi8(a, b); }
    static Register Greater8(Register a, Register b) { return _mm256_cmpgt_epi8(a, b); }
    static void StoreInTurns8(void* to, Register a, Register b) {
        auto* const bytes = static_cast<char*>(to);
        const Register low = InterleaveLow8(a, b);
        const Register high = InterleaveHigh8(a, b);
        Store(bytes, _mm256_permute2x128_si256(low, high, 0x20));
        Store(bytes + sizeof(Register), _mm256_permute2x128_si256(low, high, 0x31));
    }
    static Register Equal8(Register a, Register b) { return _mm256_cmpeq_epi8(a, b); }
    static Register Select8(Register mask, Register a, Register b) { return _mm256_blendv_epi8(b, a, mask); }

    static Register Add32(Register a, Register b) { return _mm256_add_epi32(a, b); }
    static Register Subtract32(Register a, Register b) { return _mm256_sub_epi32(a, b); }
    static Register Multiply32(Register a, Register b) { return _mm256_mullo_epi32(a, b); }
    static Mask32 Less32(Register a, Register b) { return _mm256_cmpgt_epi32(b, a); }
    static Mask32 Equal32(Register a, Register b) { return _mm256_cmpeq_epi32(a, b); }
    template <int bits> static Register ShiftLeft32(Register a) { return _mm256_slli_epi32(a, bits); }
    template <int bits> static Register ShiftRight32(Register a) { return _mm256_srli_epi32(a, bits); }

    template <int bits> static Register ShiftRightSigned32(Register a) { return _mm256_srai_epi32(a, bits); }

    static Register Add16(Register a, Register b) { return _mm256_add_epi16(a, b); }
    static Register Subtract16(Register a, Register b) { return _mm256_sub_epi16(a, b); }
    static Register Multiply16(Register a, Register b) { return _mm256_mullo_epi16(a, b); }
    static Register MultiplyHigh16(Register a, Register b) { return _mm256_mulhi_epu16(a, b); }
    static Register ShiftRight16(Register a, int bits) { return _mm256_srl_epi16(a, _mm_cvtsi32_si128(bits)); }
    static Register AddSaturated16(Register a, Register b) { return _mm256_adds_epi16(a, b); }
    static Register Signs16(Register a) { return _mm256_srai_epi16(a, 15); }
    static Register OneMoreUnlessLess16(Register count, Register a, Register b) {
        return Add16(Add16(count, All16(1)), _mm256_cmpgt_epi16(b, a));
    }
    static Register WeightedPairs8(Register weights, Register pairs) { return _mm256_maddubs_epi16(weights, pairs); }
    static Register PairSums16(Register a, Register b) { return _mm256_madd_epi16(a, b); }

    static Register Quotients32(Register a, Register b) {
        return _mm256_cvttps_epi32(_mm256_div_ps(_mm256_cvtepi32_ps(a), _mm256_cvtepi32_ps(b)));
    }

    static Floats AllFloats(float value) { return _mm256_set1_ps(value); }
    static Floats FloatsOf(Register a) { return _mm256_cvtepi32_ps(a); }
    static Floats AddFloats(Floats a, Floats b) { return _mm256_add_ps(a, b); }
    static Floats MultiplyFloats(Floats a, Floats b) { return _mm256_mul_ps(a, b); }
    static Register Truncated(Floats a) { return _mm256_cvttps_epi32(a); }

    static Register WidenLow(Register a) { return _mm256_unpacklo_epi8(a, _mm256_setzero_si256()); }
    static Register WidenHigh(Register a) { return _mm256_unpackhi_epi8(a, _mm256_setzero_si256()); }
    static Register Narrow(Register low, Register high) { return _mm256_packus_epi16(low, high); }
    static Register InterleaveLow8(Register a, Register b) { return _mm256_unpacklo_epi8(a, b); }
    static Register InterleaveHigh8(Register a, Register b) { return _mm256_unpackhi_epi8(a, b); }
    static Register InterleaveLow16(Register a, Register b) { return _mm256_unpacklo_epi16(a, b); }
    static Register InterleaveHigh16(Register a, Register b) { return _mm256_unpackhi_epi16(a, b); }
    static Register InterleaveLow32(Register a, Register b) { return _mm256_unpacklo_epi32(a, b); }
    static Register InterleaveHigh32(Register a, Register b) { return _mm256_unpackhi_epi32(a, b); }
    static Register NarrowSigned(Register low, Register high) { return _mm256_packs_epi16(low, high); }
    static Register Narrow32(Register low, Register high) { return _mm256_packs_epi32(low, high); }
    template <int word> static Register SpreadWord32(Register a) { return _mm256_shuffle_epi32(a, word * 0x55); }
    static Register SpreadFourth32(Register a) { return _mm256_shuffle_epi32(a, 0xFF); }
    static Register SpreadAlphaLow(Register a) {
        return _mm256_shuffle_epi8(a, _mm256_broadcastsi128_si256(AlphasOfTwo(3)));
    }
    static Register SpreadAlphaHigh(Register a) {
        return _mm256_shuffle_epi8(a, _mm256_broadcastsi128_si256(AlphasOfTwo(11)));
    }

    static Register AlphaPairsLow(Register a) {
        return _mm256_shuffle_epi8(a, _mm256_broadcastsi128_si256(AlphaBytesOfTwo(3)));
    }
    static Register AlphaPairsHigh(Register a) {
        return _mm256_shuffle_epi8(a, _mm256_broadcastsi128_si256(AlphaBytesOfTwo(11)));
    }

    /// The choice of the alphas of two pixels, the first of them in the given byte, as every byte of each channel.
    static __m128i AlphaBytesOfTwo(int first) {
        const auto a = static_cast<char>(first);
        const auto b = static_cast<char>(first + 4);
        return _mm_setr_epi8(a, a, a, a, a, a, a, a, b, b, b, b, b, b, b, b);
    }

    /// The choice of the alphas of two pixels, the first of them in the given byte, as 16-bit numbers in each channel.
    static __m128i AlphasOfTwo(int first) {
        constexpr char kZero = -128;
        const auto a = static_cast<char>(first);
        const auto b = static_cast<char>(first + 4);
        return _mm_setr_epi8(a, kZero, a, kZero, a, kZero, a, kZero, b, kZero, b, kZero, b, kZero, b, kZero);
    }
};

namespace avx2 {
struct Level;
using InstructionSet = Avx2Instructions<Level>;
} // namespace avx2

} // namespace tn
