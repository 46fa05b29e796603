// SPDX-License-Identifier: Apache-2.0
// The sizes that hash tables take.
#include "component/primesize.h"

#include <algorithm>
#include <iterator>

namespace {

constexpr std::uint32_t primes[] = {
    2,        3,        5,        11,        17,        37,        67,         131,
    257,      521,      1031,     2053,      4099,      8209,      16411,      32771,
    65537,    131101,   262147,   524309,    1048583,   2097169,   4194319,    8388617,
    16777259, 33554467, 67108879, 134217757, 268435459, 536870923, 1073741827, 2147483659};

} // namespace

std::uint32_t zelNextPrime(std::uint32_t n) {
    const auto* found = std::upper_bound(std::begin(primes), std::end(primes), n);
    return found == std::end(primes) ? *std::prev(found) : *found;
}
