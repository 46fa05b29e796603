// SPDX-License-Identifier: Apache-2.0
/// @file
/// Loops over runs of 32-bit words, in the widest instructions that the machine has.
///
/// The choice is made once at run time, so that nobody needs a special compiler flag. Runs need no
/// alignment, may be empty, and may be the same run; they don't overlap otherwise.
#pragma once

#include <cstddef>
#include <cstdint>

namespace zelsets {

/// Two runs that will be combined after the ones in work, at least as long as these; both null
/// where nothing is known to follow. They are asked for meanwhile, since what the processor fetches
/// on its own ends with a block.
struct NextWords {
    const std::uint32_t* to = nullptr;
    const std::uint32_t* from = nullptr;
};

using CombineWords = void (*)(std::uint32_t* to, const std::uint32_t* from, std::size_t count,
                              NextWords next);
using CompareWords = bool (*)(const std::uint32_t* a, const std::uint32_t* b, std::size_t count);

/// What each set of kernels offers.
struct WordKernels {
    CombineWords andWords, orWords, xorWords, minusWords;
    void (*invertWords)(std::uint32_t* to, std::size_t count);
    std::int64_t (*countBits)(const std::uint32_t* words, std::size_t count);
    CompareWords areEqual, isSubset, areDisjoint;
    bool (*areZero)(const std::uint32_t* words, std::size_t count);
};

/// For any machine.
extern const WordKernels plainKernels;
/// For machines with AVX2; for those with AVX-512 and its population count of vectors. Null where
/// this machine isn't one.
const WordKernels* avx2Kernels();
const WordKernels* avx512Kernels();

/// The best of them; until static initialisation came by, those for any machine.
extern constinit const WordKernels* wordKernels;
/// The best for pairs of long runs that lie differently within the lines of the cache.
extern constinit const WordKernels* wordKernelsAcross;

/// A vector as long as a line lies across two for all of a run that begins inside a line. That is
/// hidden by the nearer caches, and costs more than shorter vectors where the words come from
/// behind them.
inline const WordKernels& kernelsFor(const std::uint32_t* a, const std::uint32_t* b,
                                     std::size_t count) {
    constexpr std::size_t longRun = 0x40000, lineBytes = 64;
    const auto difference =
        reinterpret_cast<std::uintptr_t>(a) ^ reinterpret_cast<std::uintptr_t>(b);
    return count >= longRun && difference % lineBytes != 0 ? *wordKernelsAcross : *wordKernels;
}

inline void andWords(std::uint32_t* to, const std::uint32_t* from, std::size_t count,
                     NextWords next = {}) {
    kernelsFor(to, from, count).andWords(to, from, count, next);
}

inline void orWords(std::uint32_t* to, const std::uint32_t* from, std::size_t count,
                    NextWords next = {}) {
    kernelsFor(to, from, count).orWords(to, from, count, next);
}

inline void xorWords(std::uint32_t* to, const std::uint32_t* from, std::size_t count,
                     NextWords next = {}) {
    kernelsFor(to, from, count).xorWords(to, from, count, next);
}

/// Takes the bits of `from` out of `to`.
inline void minusWords(std::uint32_t* to, const std::uint32_t* from, std::size_t count,
                       NextWords next = {}) {
    kernelsFor(to, from, count).minusWords(to, from, count, next);
}

inline void invertWords(std::uint32_t* to, std::size_t count) {
    wordKernels->invertWords(to, count);
}

inline std::int64_t countBits(const std::uint32_t* words, std::size_t count) {
    return wordKernels->countBits(words, count);
}

inline bool areEqual(const std::uint32_t* a, const std::uint32_t* b, std::size_t count) {
    return kernelsFor(a, b, count).areEqual(a, b, count);
}

/// Whether no bit of `part` is clear in `whole`.
inline bool isSubset(const std::uint32_t* part, const std::uint32_t* whole, std::size_t count) {
    return kernelsFor(part, whole, count).isSubset(part, whole, count);
}

inline bool areDisjoint(const std::uint32_t* a, const std::uint32_t* b, std::size_t count) {
    return kernelsFor(a, b, count).areDisjoint(a, b, count);
}

inline bool areZero(const std::uint32_t* words, std::size_t count) {
    return wordKernels->areZero(words, count);
}

} // namespace zelsets
