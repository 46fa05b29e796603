// SPDX-License-Identifier: Apache-2.0
// The sizes that hash tables take, and quick remainders by them.
#pragma once

#include <cstdint>

/// The first prime above n of a fixed table whose entries about double from 2 to 2147483659; the
/// last entry when n is not below it.
std::uint32_t zelNextPrime(std::uint32_t n);

/// A size of 2 or more with its reciprocal, by which two multiplications stand in for a division:
/// the low 64 bits of n times 2^64 / size, rounded up, are the fraction that remains, which the
/// size scales back to the remainder. That is exact for every 32-bit n.
class PrimeSize {
public:
    explicit PrimeSize(std::uint32_t size) : value(size), reciprocal(UINT64_MAX / size + 1) {}

    std::uint32_t prime() const { return value; }
    std::uint32_t remainder(std::uint32_t n) const {
        const std::uint64_t fraction = reciprocal * n;
        const std::uint64_t low = (fraction & 0xFFFFFFFF) * value;
        return static_cast<std::uint32_t>(((fraction >> 32) * value + (low >> 32)) >> 32);
    }

private:
    std::uint32_t value;
    std::uint64_t reciprocal;
};
