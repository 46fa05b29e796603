// SPDX-License-Identifier: Apache-2.0
// The kernels in AVX2. Each function carries its own target, so that the rest of the library runs
// on any machine. Vectors stay in registers: no stack of the target system is aligned for them.
#include "zelbasictypes/sets/wordkernels.h"

#if defined(__x86_64__)

#include <immintrin.h>

#define ZEL_AVX2 __attribute__((target("avx2,popcnt")))

namespace zelsets {

namespace {

constexpr std::size_t vectorWords = 8;

ZEL_AVX2 inline __m256i load(const std::uint32_t* words) {
    return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(words));
}

ZEL_AVX2 inline void store(std::uint32_t* words, __m256i value) {
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(words), value);
}

struct And {
    ZEL_AVX2 static __m256i of(__m256i a, __m256i b) { return _mm256_and_si256(a, b); }
    static std::uint32_t of(std::uint32_t a, std::uint32_t b) { return a & b; }
};

struct Or {
    ZEL_AVX2 static __m256i of(__m256i a, __m256i b) { return _mm256_or_si256(a, b); }
    static std::uint32_t of(std::uint32_t a, std::uint32_t b) { return a | b; }
};

struct Xor {
    ZEL_AVX2 static __m256i of(__m256i a, __m256i b) { return _mm256_xor_si256(a, b); }
    static std::uint32_t of(std::uint32_t a, std::uint32_t b) { return a ^ b; }
};

struct Minus {
    ZEL_AVX2 static __m256i of(__m256i a, __m256i b) { return _mm256_andnot_si256(b, a); }
    static std::uint32_t of(std::uint32_t a, std::uint32_t b) { return a & ~b; }
};

template <class Operation>
ZEL_AVX2 inline void combineVector(std::uint32_t* to, const std::uint32_t* from) {
    store(to, Operation::of(load(to), load(from)));
}

template <class Operation>
ZEL_AVX2 void combine(std::uint32_t* to, const std::uint32_t* from, std::size_t count) {
    std::size_t i = 0;
    for (; i + 4 * vectorWords <= count; i += 4 * vectorWords) {
        combineVector<Operation>(to + i, from + i);
        combineVector<Operation>(to + i + vectorWords, from + i + vectorWords);
        combineVector<Operation>(to + i + 2 * vectorWords, from + i + 2 * vectorWords);
        combineVector<Operation>(to + i + 3 * vectorWords, from + i + 3 * vectorWords);
    }
    for (; i + vectorWords <= count; i += vectorWords) combineVector<Operation>(to + i, from + i);
    for (; i < count; ++i) to[i] = Operation::of(to[i], from[i]);
}

/// Whether the operation finds no bit in any pair of words.
template <class Stray>
ZEL_AVX2 bool hasNone(const std::uint32_t* a, const std::uint32_t* b, std::size_t count) {
    std::size_t i = 0;
    for (; i + 4 * vectorWords <= count; i += 4 * vectorWords) {
        const __m256i low =
            _mm256_or_si256(Stray::of(load(a + i), load(b + i)),
                            Stray::of(load(a + i + vectorWords), load(b + i + vectorWords)));
        const __m256i high = _mm256_or_si256(
            Stray::of(load(a + i + 2 * vectorWords), load(b + i + 2 * vectorWords)),
            Stray::of(load(a + i + 3 * vectorWords), load(b + i + 3 * vectorWords)));
        const __m256i all = _mm256_or_si256(low, high);
        if (!_mm256_testz_si256(all, all)) return false;
    }
    for (; i + vectorWords <= count; i += vectorWords) {
        const __m256i all = Stray::of(load(a + i), load(b + i));
        if (!_mm256_testz_si256(all, all)) return false;
    }
    for (; i < count; ++i)
        if (Stray::of(a[i], b[i])) return false;
    return true;
}

/// Adds three vectors bit by bit: what stays is the sum, what comes out is the carry.
ZEL_AVX2 inline __m256i carry(__m256i& sum, __m256i a, __m256i b) {
    const __m256i half = _mm256_xor_si256(sum, a);
    const __m256i out = _mm256_or_si256(_mm256_and_si256(sum, a), _mm256_and_si256(half, b));
    sum = _mm256_xor_si256(half, b);
    return out;
}

/// The set bits of each quarter of a vector, by a table of half bytes.
ZEL_AVX2 inline __m256i quarterCounts(__m256i vector) {
    const __m256i table =
        _mm256_broadcastsi128_si256(_mm_setr_epi8(0, 1, 1, 2, 1, 2, 2, 3, 1, 2, 2, 3, 2, 3, 3, 4));
    const __m256i half = _mm256_set1_epi8(0x0F);
    const __m256i low = _mm256_shuffle_epi8(table, _mm256_and_si256(vector, half));
    const __m256i high =
        _mm256_shuffle_epi8(table, _mm256_and_si256(_mm256_srli_epi16(vector, 4), half));
    return _mm256_sad_epu8(_mm256_add_epi8(low, high), _mm256_setzero_si256());
}

ZEL_AVX2 inline std::int64_t sumOfQuarters(__m256i vector) {
    const __m128i pair =
        _mm_add_epi64(_mm256_castsi256_si128(vector), _mm256_extracti128_si256(vector, 1));
    return _mm_cvtsi128_si64(pair) + _mm_extract_epi64(pair, 1);
}

/// What four vectors carry into the fours.
ZEL_AVX2 inline __m256i addFour(__m256i& ones, __m256i& twos, const std::uint32_t* words) {
    const __m256i first = carry(ones, load(words), load(words + vectorWords));
    const __m256i second =
        carry(ones, load(words + 2 * vectorWords), load(words + 3 * vectorWords));
    return carry(twos, first, second);
}

ZEL_AVX2 void invert(std::uint32_t* to, std::size_t count) {
    const __m256i ones = _mm256_set1_epi32(-1);
    std::size_t i = 0;
    for (; i + vectorWords <= count; i += vectorWords)
        store(to + i, _mm256_xor_si256(load(to + i), ones));
    for (; i < count; ++i) to[i] = ~to[i];
}

/// After Harley and Seal: sixteen vectors become one of sixteens by carries, and only that one and
/// what is left at the end are counted.
ZEL_AVX2 std::int64_t countAll(const std::uint32_t* words, std::size_t count) {
    __m256i total = _mm256_setzero_si256();
    __m256i ones = total, twos = total, fours = total, eights = total;
    std::size_t i = 0;
    for (; i + 16 * vectorWords <= count; i += 16 * vectorWords) {
        const std::uint32_t* at = words + i;
        const __m256i first = addFour(ones, twos, at);
        const __m256i second = addFour(ones, twos, at + 4 * vectorWords);
        const __m256i low = carry(fours, first, second);
        const __m256i third = addFour(ones, twos, at + 8 * vectorWords);
        const __m256i fourth = addFour(ones, twos, at + 12 * vectorWords);
        const __m256i high = carry(fours, third, fourth);
        total = _mm256_add_epi64(total, quarterCounts(carry(eights, low, high)));
    }
    total = _mm256_slli_epi64(total, 4);
    total = _mm256_add_epi64(total, _mm256_slli_epi64(quarterCounts(eights), 3));
    total = _mm256_add_epi64(total, _mm256_slli_epi64(quarterCounts(fours), 2));
    total = _mm256_add_epi64(total, _mm256_slli_epi64(quarterCounts(twos), 1));
    total = _mm256_add_epi64(total, quarterCounts(ones));
    for (; i + vectorWords <= count; i += vectorWords)
        total = _mm256_add_epi64(total, quarterCounts(load(words + i)));
    std::int64_t bits = sumOfQuarters(total);
    for (; i < count; ++i) bits += __builtin_popcount(words[i]);
    return bits;
}

ZEL_AVX2 bool isZero(const std::uint32_t* words, std::size_t count) {
    return hasNone<Or>(words, words, count);
}

constexpr WordKernels kernels = {combine<And>, combine<Or>, combine<Xor>, combine<Minus>,
                                 invert,       countAll,    hasNone<Xor>, hasNone<Minus>,
                                 hasNone<And>, isZero};

} // namespace

const WordKernels* avx2Kernels() {
    __builtin_cpu_init();
    return __builtin_cpu_supports("avx2") && __builtin_cpu_supports("popcnt") ? &kernels : nullptr;
}

} // namespace zelsets

#else

const zelsets::WordKernels* zelsets::avx2Kernels() { return nullptr; }

#endif
