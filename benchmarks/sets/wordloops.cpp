// SPDX-License-Identifier: Apache-2.0
// Each loop is compiled for several machines, and the program takes the one that fits.
#include "benchmarks/sets/wordloops.h"

#include <cstring>

#define FOR_THIS_MACHINE __attribute__((target_clones("default", "avx2")))
namespace wordloops {

namespace {

__attribute__((always_inline)) inline std::int64_t countInAny(const Words& words) {
    const std::uint32_t* from = words.data();
    std::int64_t bits = 0;
    std::size_t i = 0;
    for (const std::size_t count = words.size() / 2; i < count; ++i) {
        std::uint64_t pair;
        std::memcpy(&pair, from + 2 * i, sizeof pair);
        bits += __builtin_popcountll(pair);
    }
    return words.size() % 2 ? bits + __builtin_popcount(from[2 * i]) : bits;
}

__attribute__((target("popcnt"))) std::int64_t countInPairs(const Words& words) {
    return countInAny(words);
}

__attribute__((target("popcnt,avx512f,avx512vpopcntdq"))) std::int64_t
countInVectors(const Words& words) {
    return countInAny(words);
}

} // namespace

FOR_THIS_MACHINE void andWords(Words& to, const Words& from) {
    std::uint32_t* __restrict target = to.data();
    const std::uint32_t* __restrict source = from.data();
    for (std::size_t i = 0, count = to.size(); i < count; ++i) target[i] &= source[i];
}

FOR_THIS_MACHINE void orWords(Words& to, const Words& from) {
    std::uint32_t* __restrict target = to.data();
    const std::uint32_t* __restrict source = from.data();
    for (std::size_t i = 0, count = to.size(); i < count; ++i) target[i] |= source[i];
}

FOR_THIS_MACHINE void xorWords(Words& to, const Words& from) {
    std::uint32_t* __restrict target = to.data();
    const std::uint32_t* __restrict source = from.data();
    for (std::size_t i = 0, count = to.size(); i < count; ++i) target[i] ^= source[i];
}

FOR_THIS_MACHINE void minusWords(Words& to, const Words& from) {
    std::uint32_t* __restrict target = to.data();
    const std::uint32_t* __restrict source = from.data();
    for (std::size_t i = 0, count = to.size(); i < count; ++i) target[i] &= ~source[i];
}

/// The runtime library's comparison is such a loop, and a better one than the compiler's.
bool areEqual(const Words& a, const Words& b) {
    return std::memcmp(a.data(), b.data(), a.size() * sizeof(std::uint32_t)) == 0;
}

std::int64_t countBits(const Words& words) {
    if (__builtin_cpu_supports("avx512vpopcntdq")) return countInVectors(words);
    return __builtin_cpu_supports("popcnt") ? countInPairs(words) : countInAny(words);
}

} // namespace wordloops
