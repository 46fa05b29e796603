// SPDX-License-Identifier: Apache-2.0
// The kernels in AVX-512, for machines that also count the bits of whole vectors.
#include "zelbasictypes/sets/wordkernels.h"

#if defined(__x86_64__)

#include <immintrin.h>
#include <iterator>
#include <numeric>

#define ZEL_KERNEL __attribute__((target("avx512f,avx512vpopcntdq")))
#include "zelbasictypes/sets/wordkernelloops.h"

namespace zelsets {

namespace {

struct Avx512 {
    static constexpr std::size_t words = 16;

    ZEL_KERNEL static __m512i load(const std::uint32_t* from) { return _mm512_loadu_si512(from); }
    ZEL_KERNEL static void store(std::uint32_t* to, __m512i value) {
        _mm512_storeu_si512(to, value);
    }
    ZEL_KERNEL static __m512i loadSome(const std::uint32_t* from, std::size_t count) {
        return _mm512_maskz_loadu_epi32(first(count), from);
    }
    ZEL_KERNEL static void storeSome(std::uint32_t* to, __m512i value, std::size_t count) {
        _mm512_mask_storeu_epi32(to, first(count), value);
    }
    ZEL_KERNEL static bool isAnySet(__m512i vector) {
        return _mm512_test_epi32_mask(vector, vector) != 0;
    }
    ZEL_KERNEL static std::int64_t countBits(const std::uint32_t* from, std::size_t count);

private:
    ZEL_KERNEL static __mmask16 first(std::size_t count) {
        return static_cast<__mmask16>((1U << count) - 1);
    }
    ZEL_KERNEL static __m512i countsOf(const std::uint32_t* from) {
        return _mm512_popcnt_epi64(load(from));
    }
};

ZEL_KERNEL std::int64_t Avx512::countBits(const std::uint32_t* from, std::size_t count) {
    __m512i even = _mm512_setzero_si512(), odd = even;
    std::size_t i = 0;
    for (; i + 4 * words <= count; i += 4 * words) {
        even = _mm512_add_epi64(even, countsOf(from + i));
        odd = _mm512_add_epi64(odd, countsOf(from + i + words));
        even = _mm512_add_epi64(even, countsOf(from + i + 2 * words));
        odd = _mm512_add_epi64(odd, countsOf(from + i + 3 * words));
    }
    for (; i < count; i += words) {
        const __m512i rest = loadSome(from + i, upToVector<Avx512>(count - i));
        even = _mm512_add_epi64(even, _mm512_popcnt_epi64(rest));
    }
    std::int64_t parts[8];
    _mm512_storeu_si512(parts, _mm512_add_epi64(even, odd));
    return std::accumulate(std::begin(parts), std::end(parts), std::int64_t{0});
}

} // namespace

const WordKernels* avx512Kernels() {
    __builtin_cpu_init();
    return __builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512vpopcntdq")
               ? &kernelsOf<Avx512>
               : nullptr;
}

} // namespace zelsets

#else

const zelsets::WordKernels* zelsets::avx512Kernels() { return nullptr; }

#endif
