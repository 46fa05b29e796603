// SPDX-License-Identifier: Apache-2.0
// What counting costs: the prime search raced against the same wheel of 30 that counts nothing,
// from small numbers, where most of the time is in the call, up to the greatest.
#include "benchmarks/math/primes.h"

#include "benchmarks/support/race.h"
#include "zelbasictypes/math/zelprime.h"

#include <cstdint>
#include <string>

namespace {

bool isPrimeUncounted(std::uint32_t n) {
    if (n < 3) return true;
    if (n % 2 == 0) return false;
    if (n < 4) return true;
    if (n % 3 == 0) return false;
    if (n < 6) return true;
    if (n % 5 == 0) return false;
    if (n < 49) return true;
    for (std::uint32_t d = 7;; d += 30) {
        if (n % d == 0 || n % (d + 4) == 0 || n % (d + 6) == 0 || n % (d + 10) == 0 ||
            n % (d + 12) == 0 || n % (d + 16) == 0 || n % (d + 22) == 0 || n % (d + 24) == 0)
            return false;
        const std::uint64_t next = d + 30;
        if (next * next > n) return true;
    }
}

std::int32_t primeAboveUncounted(std::int32_t n) {
    std::uint32_t candidate = static_cast<std::uint32_t>(n + 1) | 1;
    while (!isPrimeUncounted(candidate)) candidate += 2;
    return static_cast<std::int32_t>(candidate);
}

template <auto search> void walk(benchmark::State& state, std::int32_t first) {
    for (auto _ : state) {
        std::int32_t prime = first;
        for (int i = 0; i < 20; ++i) prime = search(prime);
        benchmark::DoNotOptimize(prime);
    }
}

} // namespace

void addPrimes() {
    for (const std::int32_t first : {1000, 1'000'000, 2'147'480'000}) {
        const std::string job = "20 primes above " + std::to_string(first);
        race::add(job, "zelPrimeAbove",
                  [first](benchmark::State& state) { walk<zelPrimeAbove>(state, first); });
        race::add(job, "wheel without counters",
                  [first](benchmark::State& state) { walk<primeAboveUncounted>(state, first); });
    }
}
