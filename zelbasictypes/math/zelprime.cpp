// SPDX-License-Identifier: Apache-2.0
// Trial division on a wheel of 30, counted by where it ends.
#include "zelbasictypes/math/zelprime.h"

#include <limits>

namespace {

/// Of the numbers on the wheel that may divide, by their place behind the start of a turn, which is
/// 7 and then 30 more each time.
constexpr std::uint32_t spokes[] = {0, 4, 6, 10, 12, 16, 22, 24};

PrimeStatistics counted;

struct Verdict {
    bool isPrime;
    std::uint32_t divisions;
};

Verdict turnTheWheel(std::uint32_t n) {
    std::uint32_t divisions = 3;
    for (std::uint32_t d = 7;; d += 30) {
        for (const std::uint32_t spoke : spokes) {
            ++divisions;
            if (n % (d + spoke) == 0) return {false, divisions};
        }
        const std::uint64_t next = d + 30;
        if (next * next > n) return {true, divisions};
    }
}

Verdict test(std::uint32_t n) {
    if (n < 3) return {true, 0};
    if (n % 2 == 0) return {false, 1};
    if (n < 4) return {true, 1};
    if (n % 3 == 0) return {false, 2};
    if (n < 6) return {true, 2};
    if (n % 5 == 0) return {false, 3};
    if (n < 49) return {true, 3};
    return turnTheWheel(n);
}

bool countedTest(std::uint32_t n) {
    const Verdict verdict = test(n);
    ++counted.tests;
    counted.divisions += verdict.divisions;
    return verdict.isPrime;
}

} // namespace

bool zelIsPrime(std::int32_t n) { return countedTest(n < 0 ? 0 : static_cast<std::uint32_t>(n)); }

std::int32_t zelPrimeAbove(std::int32_t n) {
    if (n < 2) return 2;
    if (n == std::numeric_limits<std::int32_t>::max()) return 0;
    std::uint32_t candidate = static_cast<std::uint32_t>(n + 1) | 1;
    while (!countedTest(candidate)) candidate += 2;
    return static_cast<std::int32_t>(candidate);
}

const PrimeStatistics* zelPrimeStatistics() {
    static PrimeStatistics copy;
    copy = counted;
    return &copy;
}
