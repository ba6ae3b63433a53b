// Private: the instructions of the baseline level, SSE2. Included by that level's source alone.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <emmintrin.h>

namespace tn::baseline {

struct InstructionSet {
    using Register = __m128i;
    using Mask32 = __m128i;
    using Floats = __m128;

    static Register All16(std::uint16_t value) { return _mm_set1_epi16(static_cast<short>(value)); }
    static Register All32(std::uint32_t value) { return _mm_set1_epi32(static_cast<int>(value)); }
    static Register All64(std::uint64_t value) { return _mm_set1_epi64x(static_cast<long long>(value)); }
    static Register Indices32() { return _mm_setr_epi32(0, 1, 2, 3); }

    static Register Load(const void* from) { return _mm_loadu_si128(static_cast<const __m128i*>(from)); }
    static void Store(void* to, Register a) { _mm_storeu_si128(static_cast<__m128i*>(to), a); }

    // One to three words: a pair, a single one, or a pair and a single one.
    static Register LoadFirst(const void* from, std::size_t count) {
        const auto* words = static_cast<const std::uint32_t*>(from);
        const Register pair =
            (count & 2) != 0 ? _mm_loadl_epi64(static_cast<const __m128i*>(from)) : _mm_setzero_si128();
        if ((count & 1) == 0) {
            return pair;
        }
        const Register single = _mm_cvtsi32_si128(static_cast<int>(words[count & 2]));
        return (count & 2) != 0 ? _mm_unpacklo_epi64(pair, single) : single;
    }
    static void StoreFirst(void* to, Register a, std::size_t count) {
        auto* words = static_cast<std::uint32_t*>(to);
        if ((count & 2) != 0) {
            _mm_storel_epi64(static_cast<__m128i*>(to), a);
            a = _mm_unpackhi_epi64(a, a);
        }
        if ((count & 1) != 0) {
            words[count & 2] = static_cast<std::uint32_t>(_mm_cvtsi128_si32(a));
        }
    }

    static Register LoadAlphas(const void* from) {
        int bytes = 0;
        std::memcpy(&bytes, from, sizeof(bytes));
        const Register zero = _mm_setzero_si128();
        return _mm_unpacklo_epi16(zero, _mm_unpacklo_epi8(zero, _mm_cvtsi32_si128(bytes)));
    }
    static void StoreAlphas(void* to, Register a) {
        const Register alphas = _mm_srli_epi32(a, 24);
        const Register shorts = _mm_packs_epi32(alphas, alphas);
        const int bytes = _mm_cvtsi128_si32(_mm_packus_epi16(shorts, shorts));
        std::memcpy(to, &bytes, sizeof(bytes));
    }

    static Register Gather32(std::uintptr_t base, Register offsets, Mask32 where, Register otherwise) {
        std::int32_t from[4];
        std::uint32_t words[4];
        Store(from, offsets);
        Store(words, otherwise);
        const int lanes = _mm_movemask_ps(_mm_castsi128_ps(where));
        for (int i = 0; i < 4; ++i) {
            if ((lanes >> i & 1) != 0) {
                std::memcpy(&words[i], reinterpret_cast<const void*>(base + static_cast<std::uintptr_t>(from[i])), 4);
            }
        }
        return Load(words);
    }
    static void GatherPairs32(std::uintptr_t base, Register offsets, Register& left, Register& right) {
        std::int32_t from[4];
        Store(from, offsets);
        const auto pair = [&](int lane) {
            return _mm_loadl_epi64(reinterpret_cast<const __m128i*>(base + static_cast<std::uintptr_t>(from[lane])));
        };
        const Register first = _mm_unpacklo_epi32(pair(0), pair(1));
        const Register second = _mm_unpacklo_epi32(pair(2), pair(3));
        left = _mm_unpacklo_epi64(first, second);
        right = _mm_unpackhi_epi64(first, second);
    }

    // 16 bytes of one row; longer registers hold those of another row too.
    static Register LoadRows(const void* from, std::size_t) { return Load(from); }
    static void StoreRows(void* to, std::size_t, Register a) { Store(to, a); }

    static Register And(Register a, Register b) { return _mm_and_si128(a, b); }
    static Register Or(Register a, Register b) { return _mm_or_si128(a, b); }
    static Register Xor(Register a, Register b) { return _mm_xor_si128(a, b); }
    static Mask32 OrMask32(Mask32 a, Mask32 b) { return _mm_or_si128(a, b); }
    static Mask32 AndMask32(Mask32 a, Mask32 b) { return And(a, b); }
    static bool AnyMask32(Mask32 mask) { return _mm_movemask_epi8(mask) != 0; }
    static Register Select32(Mask32 mask, Register a, Register b) {
        return _mm_or_si128(_mm_and_si128(mask, a), _mm_andnot_si128(mask, b));
    }

    static Register WithFourthBytesOf(Register a, Register b) {
        return Or(And(a, All32(0x00FFFFFF)), And(b, All32(0xFF000000)));
    }

    static bool HasBits(Register a) { return _mm_movemask_epi8(_mm_cmpeq_epi32(a, _mm_setzero_si128())) != 0xFFFF; }

    static Register MinBytes(Register a, Register b) { return _mm_min_epu8(a, b); }
    static Register MaxBytes(Register a, Register b) { return _mm_max_epu8(a, b); }

    static Register Add8(Register a, Register b) { return _mm_add_epi8(a, b); }
    static Register Subtract8(Register a, Register b) { return _mm_sub_epi8(a, b); }
    static Register Greater8(Register a, Register b) { return _mm_cmpgt_epi8(a, b); }
    static void StoreInTurns8(void* to, Register a, Register b) {
        auto* const bytes = static_cast<char*>(to);
        Store(bytes, InterleaveLow8(a, b));
        Store(bytes + sizeof(Register), InterleaveHigh8(a, b));
    }
    static Register Equal8(Register a, Register b) { return _mm_cmpeq_epi8(a, b); }
    static Register Select8(Register mask, Register a, Register b) { return Select32(mask, a, b); }

    static Register Add32(Register a, Register b) { return _mm_add_epi32(a, b); }
    static Register Subtract32(Register a, Register b) { return _mm_sub_epi32(a, b); }
    static Register Multiply32(Register a, Register b) {
        const __m128i even = _mm_mul_epu32(a, b);
        const __m128i odd = _mm_mul_epu32(_mm_srli_epi64(a, 32), _mm_srli_epi64(b, 32));
        return _mm_unpacklo_epi32(_mm_shuffle_epi32(even, _MM_SHUFFLE(3, 1, 2, 0)),
                                  _mm_shuffle_epi32(odd, _MM_SHUFFLE(3, 1, 2, 0)));
    }
    static Mask32 Less32(Register a, Register b) { return _mm_cmplt_epi32(a, b); }
    static Mask32 Equal32(Register a, Register b) { return _mm_cmpeq_epi32(a, b); }
    template <int bits> static Register ShiftLeft32(Register a) { return _mm_slli_epi32(a, bits); }
    template <int bits> static Register ShiftRight32(Register a) { return _mm_srli_epi32(a, bits); }

    template <int bits> static Register ShiftRightSigned32(Register a) { return _mm_srai_epi32(a, bits); }

    static Register Add16(Register a, Register b) { return _mm_add_epi16(a, b); }
    static Register Subtract16(Register a, Register b) { return _mm_sub_epi16(a, b); }
    static Register Multiply16(Register a, Register b) { return _mm_mullo_epi16(a, b); }
    static Register MultiplyHigh16(Register a, Register b) { return _mm_mulhi_epu16(a, b); }
    static Register ShiftRight16(Register a, int bits) { return _mm_srl_epi16(a, _mm_cvtsi32_si128(bits)); }
    static Register AddSaturated16(Register a, Register b) { return _mm_adds_epi16(a, b); }
    static Register Signs16(Register a) { return _mm_srai_epi16(a, 15); }
    static Register OneMoreUnlessLess16(Register count, Register a, Register b) {
        return Add16(Add16(count, All16(1)), _mm_cmpgt_epi16(b, a));
    }
    static Register WeightedPairs8(Register weights, Register pairs) {
        const Register first = _mm_srai_epi16(_mm_slli_epi16(pairs, 8), 8);
        const Register second = _mm_srai_epi16(pairs, 8);
        const Register firstWeights = _mm_and_si128(weights, All16(255));
        return Add16(Multiply16(first, firstWeights), Multiply16(second, _mm_srli_epi16(weights, 8)));
    }
    static Register PairSums16(Register a, Register b) { return _mm_madd_epi16(a, b); }

    static Register Quotients32(Register a, Register b) {
        return _mm_cvttps_epi32(_mm_div_ps(_mm_cvtepi32_ps(a), _mm_cvtepi32_ps(b)));
    }

    static Floats AllFloats(float value) { return _mm_set1_ps(value); }
    static Floats FloatsOf(Register a) { return _mm_cvtepi32_ps(a); }
    static Floats AddFloats(Floats a, Floats b) { return _mm_add_ps(a, b); }
    static Floats MultiplyFloats(Floats a, Floats b) { return _mm_mul_ps(a, b); }
    static Register Truncated(Floats a) { return _mm_cvttps_epi32(a); }

    static Register WidenLow(Register a) { return _mm_unpacklo_epi8(a, _mm_setzero_si128()); }
    static Register WidenHigh(Register a) { return _mm_unpackhi_epi8(a, _mm_setzero_si128()); }
    static Register Narrow(Register low, Register high) { return _mm_packus_epi16(low, high); }
    static Register InterleaveLow8(Register a, Register b) { return _mm_unpacklo_epi8(a, b); }
    static Register InterleaveHigh8(Register a, Register b) { return _mm_unpackhi_epi8(a, b); }
    static Register InterleaveLow16(Register a, Register b) { return _mm_unpacklo_epi16(a, b); }
    static Register InterleaveHigh16(Register a, Register b) { return _mm_unpackhi_epi16(a, b); }
    static Register InterleaveLow32(Register a, Register b) { return _mm_unpacklo_epi32(a, b); }
    static Register InterleaveHigh32(Register a, Register b) { return _mm_unpackhi_epi32(a, b); }
    static Register NarrowSigned(Register low, Register high) { return _mm_packs_epi16(low, high); }
    static Register Narrow32(Register low, Register high) { return _mm_packs_epi32(low, high); }
    template <int word> static Register SpreadWord32(Register a) { return _mm_shuffle_epi32(a, word * 0x55); }
    static Register SpreadFourth32(Register a) { return _mm_shuffle_epi32(a, 0xFF); }
    static Register AlphaPairsLow(Register a) { return SpreadFourth16(InterleaveLow8(a, a)); }
    static Register AlphaPairsHigh(Register a) { return SpreadFourth16(InterleaveHigh8(a, a)); }
    static Register SpreadAlphaLow(Register a) { return SpreadFourth16(WidenLow(a)); }
    static Register SpreadAlphaHigh(Register a) { return SpreadFourth16(WidenHigh(a)); }

private:
    static Register SpreadFourth16(Register a) {
        constexpr int kFourth = _MM_SHUFFLE(3, 3, 3, 3);
        return _mm_shufflehi_epi16(_mm_shufflelo_epi16(a, kFourth), kFourth);
    }
};

} // namespace tn::baseline
