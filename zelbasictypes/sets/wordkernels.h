// SPDX-License-Identifier: Apache-2.0
/// @file
/// Loops over runs of 32-bit words, with the widest instructions that the machine has.
///
/// They are chosen once at run time, so that no compiler flag is needed. Runs need no alignment and
/// may be empty. Two runs may be the same but must not overlap otherwise.
#pragma once

#include <cstddef>
#include <cstdint>

namespace zelsets {

/// Two runs to be combined after the present ones, at least as long; null when unknown. They are
/// prefetched meanwhile, since the processor's own prefetching ends with a block.
struct NextWords {
    /// The first word of a run.
    /// @{
    const std::uint32_t* to = nullptr;
    const std::uint32_t* from = nullptr;
    /// @}
};

/// Changes `to` by `from`.
using CombineWords = void (*)(std::uint32_t* to, const std::uint32_t* from, std::size_t count,
                              NextWords next);
/// Compares two runs.
using CompareWords = bool (*)(const std::uint32_t* a, const std::uint32_t* b, std::size_t count);

/// One set of loops; see the functions of the same names.
struct WordKernels {
    /// The loop of that name.
    /// @{
    CombineWords andWords, orWords, xorWords, minusWords;
    void (*invertWords)(std::uint32_t* to, std::size_t count);
    std::int64_t (*countBits)(const std::uint32_t* words, std::size_t count);
    CompareWords areEqual, isSubset, areDisjoint;
    bool (*areZero)(const std::uint32_t* words, std::size_t count);
    /// @}
};

/// The loops for any machine.
extern const WordKernels plainKernels;
/// The loops for machines with AVX2, and for those with AVX-512 and its vector population count.
/// Null when this machine lacks the instructions.
/// @{
const WordKernels* avx2Kernels();
const WordKernels* avx512Kernels();
/// @}

/// The best loops for this machine; before static initialisation, those for any machine.
extern constinit const WordKernels* wordKernels;
/// The best loops for pairs of long runs with different offsets within the cache lines.
extern constinit const WordKernels* wordKernelsAcross;

/// Chooses the loops for a pair of runs. A vector as long as a cache line straddles two lines
/// throughout a run that starts inside a line. The nearer caches hide that, but it costs more than
/// shorter vectors do when the words come from farther away.
inline const WordKernels& kernelsFor(const std::uint32_t* a, const std::uint32_t* b,
                                     std::size_t count) {
    constexpr std::size_t longRun = 0x40000, lineBytes = 64;
    const auto difference =
        reinterpret_cast<std::uintptr_t>(a) ^ reinterpret_cast<std::uintptr_t>(b);
    return count >= longRun && difference % lineBytes != 0 ? *wordKernelsAcross : *wordKernels;
}

/// Combines `to` with `from`, bit by bit.
/// @{
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
/// @}

/// Clears in `to` the bits that are set in `from`.
inline void minusWords(std::uint32_t* to, const std::uint32_t* from, std::size_t count,
                       NextWords next = {}) {
    kernelsFor(to, from, count).minusWords(to, from, count, next);
}

/// Inverts every bit.
inline void invertWords(std::uint32_t* to, std::size_t count) {
    wordKernels->invertWords(to, count);
}

/// The number of set bits.
inline std::int64_t countBits(const std::uint32_t* words, std::size_t count) {
    return wordKernels->countBits(words, count);
}

/// Whether all words agree.
inline bool areEqual(const std::uint32_t* a, const std::uint32_t* b, std::size_t count) {
    return kernelsFor(a, b, count).areEqual(a, b, count);
}

/// Whether every bit of `part` is set in `whole`.
inline bool isSubset(const std::uint32_t* part, const std::uint32_t* whole, std::size_t count) {
    return kernelsFor(part, whole, count).isSubset(part, whole, count);
}

/// Whether no bit is set in both.
inline bool areDisjoint(const std::uint32_t* a, const std::uint32_t* b, std::size_t count) {
    return kernelsFor(a, b, count).areDisjoint(a, b, count);
}

/// Whether no bit is set.
inline bool areZero(const std::uint32_t* words, std::size_t count) {
    return wordKernels->areZero(words, count);
}

} // namespace zelsets
