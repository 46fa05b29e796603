// SPDX-License-Identifier: Apache-2.0
// Loops over runs of 32-bit words, in the widest instructions that the machine has.
//
// The choice is made once at run time, so that nobody needs a special compiler flag. Runs need no
// alignment, may be empty, and may be the same run; they don't overlap otherwise.
#pragma once

#include <cstddef>
#include <cstdint>

namespace zelsets {

/// What both sets of kernels offer.
struct PlainKernels {
    static void andWords(std::uint32_t* to, const std::uint32_t* from, std::size_t count);
    static void orWords(std::uint32_t* to, const std::uint32_t* from, std::size_t count);
    static void xorWords(std::uint32_t* to, const std::uint32_t* from, std::size_t count);
    static void minusWords(std::uint32_t* to, const std::uint32_t* from, std::size_t count);
    static void invertWords(std::uint32_t* to, std::size_t count);
    static std::int64_t countBits(const std::uint32_t* words, std::size_t count);
    static bool areEqual(const std::uint32_t* a, const std::uint32_t* b, std::size_t count);
    static bool isSubset(const std::uint32_t* part, const std::uint32_t* whole, std::size_t count);
    static bool areDisjoint(const std::uint32_t* a, const std::uint32_t* b, std::size_t count);
    static bool areZero(const std::uint32_t* words, std::size_t count);
};

#if defined(__x86_64__)

/// Only for machines with AVX2 and the population count.
struct Avx2Kernels {
    static void andWords(std::uint32_t* to, const std::uint32_t* from, std::size_t count);
    static void orWords(std::uint32_t* to, const std::uint32_t* from, std::size_t count);
    static void xorWords(std::uint32_t* to, const std::uint32_t* from, std::size_t count);
    static void minusWords(std::uint32_t* to, const std::uint32_t* from, std::size_t count);
    static void invertWords(std::uint32_t* to, std::size_t count);
    static std::int64_t countBits(const std::uint32_t* words, std::size_t count);
    static bool areEqual(const std::uint32_t* a, const std::uint32_t* b, std::size_t count);
    static bool isSubset(const std::uint32_t* part, const std::uint32_t* whole, std::size_t count);
    static bool areDisjoint(const std::uint32_t* a, const std::uint32_t* b, std::size_t count);
    static bool areZero(const std::uint32_t* words, std::size_t count);
};

/// Whether this machine runs Avx2Kernels; false until static initialisation came by, when the plain
/// kernels do the work.
extern const bool hasWideWords;

#else

using Avx2Kernels = PlainKernels;
constexpr bool hasWideWords = false;

#endif

inline void andWords(std::uint32_t* to, const std::uint32_t* from, std::size_t count) {
    hasWideWords ? Avx2Kernels::andWords(to, from, count) : PlainKernels::andWords(to, from, count);
}

inline void orWords(std::uint32_t* to, const std::uint32_t* from, std::size_t count) {
    hasWideWords ? Avx2Kernels::orWords(to, from, count) : PlainKernels::orWords(to, from, count);
}

inline void xorWords(std::uint32_t* to, const std::uint32_t* from, std::size_t count) {
    hasWideWords ? Avx2Kernels::xorWords(to, from, count) : PlainKernels::xorWords(to, from, count);
}

/// Takes the bits of `from` out of `to`.
inline void minusWords(std::uint32_t* to, const std::uint32_t* from, std::size_t count) {
    hasWideWords ? Avx2Kernels::minusWords(to, from, count)
                 : PlainKernels::minusWords(to, from, count);
}

inline void invertWords(std::uint32_t* to, std::size_t count) {
    hasWideWords ? Avx2Kernels::invertWords(to, count) : PlainKernels::invertWords(to, count);
}

inline std::int64_t countBits(const std::uint32_t* words, std::size_t count) {
    return hasWideWords ? Avx2Kernels::countBits(words, count)
                        : PlainKernels::countBits(words, count);
}

inline bool areEqual(const std::uint32_t* a, const std::uint32_t* b, std::size_t count) {
    return hasWideWords ? Avx2Kernels::areEqual(a, b, count) : PlainKernels::areEqual(a, b, count);
}

/// Whether no bit of `part` is clear in `whole`.
inline bool isSubset(const std::uint32_t* part, const std::uint32_t* whole, std::size_t count) {
    return hasWideWords ? Avx2Kernels::isSubset(part, whole, count)
                        : PlainKernels::isSubset(part, whole, count);
}

inline bool areDisjoint(const std::uint32_t* a, const std::uint32_t* b, std::size_t count) {
    return hasWideWords ? Avx2Kernels::areDisjoint(a, b, count)
                        : PlainKernels::areDisjoint(a, b, count);
}

inline bool areZero(const std::uint32_t* words, std::size_t count) {
    return hasWideWords ? Avx2Kernels::areZero(words, count) : PlainKernels::areZero(words, count);
}

} // namespace zelsets
