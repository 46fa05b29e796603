// SPDX-License-Identifier: Apache-2.0
// Primes against sieves, and the counters against what the least divisor says.
#include "zelbasictypes/math/zelprime.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace {

constexpr std::int64_t greatest = 2147483647;

/// Whether each number from `first` to `last` is prime; 1 and 0 aren't.
std::vector<bool> sieve(std::int64_t first, std::int64_t last) {
    std::vector<bool> prime(static_cast<std::size_t>(last - first + 1), true);
    for (std::int64_t d = 2; d * d <= last; ++d)
        for (std::int64_t n = std::max(d * d, (first + d - 1) / d * d); n <= last; n += d)
            prime[static_cast<std::size_t>(n - first)] = false;
    return prime;
}

bool isPrime(std::int64_t n) { return zelIsPrime(static_cast<std::int32_t>(n)); }

void expectAsSieved(std::int64_t first, std::int64_t last) {
    const std::vector<bool> prime = sieve(first, last);
    for (std::int64_t n = first; n <= last; ++n)
        ASSERT_EQ(isPrime(n), prime[static_cast<std::size_t>(n - first)]) << n;
}

/// Divisions by definition: by 2, 3 and 5, then by what has none of these up to the least divisor,
/// or to the end of the turn of 30 behind which the squares are greater.
std::uint32_t divisions(std::uint32_t n) {
    if (n < 3) return 0;
    std::uint32_t count = 0;
    for (const std::uint32_t d : {2u, 3u, 5u}) {
        ++count;
        if (n % d == 0 || (d < 5 && n < 2 * d)) return count;
    }
    std::uint64_t end = n < 49 ? 7 : 37;
    while (end > 7 && end * end <= n) end += 30;
    for (std::uint32_t d = 7; d < end; ++d) {
        if (d % 2 == 0 || d % 3 == 0 || d % 5 == 0) continue;
        ++count;
        if (n % d == 0) return count;
    }
    return count;
}

/// What has been counted since the last call.
PrimeStatistics counted() {
    static PrimeStatistics before = *zelPrimeStatistics();
    const PrimeStatistics now = *zelPrimeStatistics();
    const PrimeStatistics since{now.tests - before.tests, now.divisions - before.divisions};
    before = now;
    return since;
}

} // namespace

TEST(ZelPrime, AgreesWithASieveAtBothEnds) {
    expectAsSieved(3, 10'000'000);
    expectAsSieved(greatest - 100'000, greatest);
}

TEST(ZelPrime, TakesWhatIsBelowThreeForPrime) {
    for (const std::int32_t n : {2, 1, 0, -1, -4, -7, -2147483647 - 1}) EXPECT_TRUE(zelIsPrime(n));
}

TEST(ZelPrimeAbove, FindsEveryPrimeInItsTurn) {
    for (const std::int64_t first : {std::int64_t{3}, greatest - 50'000}) {
        const std::vector<bool> prime = sieve(first, std::min(first + 100'000, greatest));
        std::int64_t next = 0;
        for (std::size_t i = prime.size(); i-- > 1;) {
            if (prime[i]) next = first + static_cast<std::int64_t>(i);
            if (next == 0) continue;
            ASSERT_EQ(zelPrimeAbove(static_cast<std::int32_t>(first + i) - 1), next);
        }
    }
}

TEST(ZelPrimeAbove, StartsAtTwoAndEndsWithTheGreatestNumber) {
    for (const std::int32_t n : {1, 0, -1, -2147483647 - 1}) EXPECT_EQ(zelPrimeAbove(n), 2);
    EXPECT_EQ(zelPrimeAbove(2), 3);
    EXPECT_EQ(zelPrimeAbove(2147483646), 2147483647);
    EXPECT_EQ(zelPrimeAbove(2147483647), 0);
}

TEST(ZelPrimeStatistics, CountEveryDivision) {
    counted();
    for (std::uint32_t n = 0; n < 100'000; ++n) {
        zelIsPrime(static_cast<std::int32_t>(n));
        const PrimeStatistics since = counted();
        ASSERT_EQ(since.tests, 1u);
        ASSERT_EQ(since.divisions, divisions(n)) << n;
    }
    zelIsPrime(-5);
    zelIsPrime(2147483647);
    const PrimeStatistics since = counted();
    EXPECT_EQ(since.tests, 2u);
    EXPECT_EQ(since.divisions, divisions(2147483647));
}

TEST(ZelPrimeStatistics, CountEveryCandidateOfASearch) {
    counted();
    zelPrimeAbove(1);
    EXPECT_EQ(counted().tests, 0u);
    zelPrimeAbove(113); // 115, 117 and so on up to 127
    const PrimeStatistics since = counted();
    EXPECT_EQ(since.tests, 7u);
    std::uint32_t expected = 0;
    for (std::uint32_t n = 115; n <= 127; n += 2) expected += divisions(n);
    EXPECT_EQ(since.divisions, expected);
}

TEST(ZelPrimeStatistics, AreACopyAtEachCall) {
    const PrimeStatistics* const statistics = zelPrimeStatistics();
    const std::uint32_t before = statistics->tests;
    zelIsPrime(7);
    EXPECT_EQ(statistics->tests, before);
    EXPECT_EQ(zelPrimeStatistics(), statistics);
    EXPECT_EQ(statistics->tests, before + 1);
}
