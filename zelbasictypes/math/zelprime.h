// SPDX-License-Identifier: Apache-2.0
/// @file
/// Primes by trial division, with a count of the work.
#pragma once

#include <cstdint>

/// Counters of this module since it was loaded; both wrap around at 2³². No lock guards them: when
/// several threads search, some of the work isn't counted.
struct PrimeStatistics {
    std::uint32_t tests;     ///< numbers tested
    std::uint32_t divisions; ///< trial divisions, one each for 2, 3 and 5
};

/// Also true for 1, 0 and every negative number.
bool zelIsPrime(std::int32_t n);

/// The smallest prime above `n`, 2 for any below 2. There is none for 2147483647: the result is 0.
std::int32_t zelPrimeAbove(std::int32_t n);

/// The counters up to this call, in one object that all calls share. Never null.
const PrimeStatistics* zelPrimeStatistics();
