// SPDX-License-Identifier: Apache-2.0
/// @file
/// The sizes of hash tables, and fast remainders by them.
#pragma once

#include <cstdint>

/// The first prime above `n` in a fixed table whose entries roughly double, from 2 to 2147483659.
/// The last entry when `n` isn't below it.
std::uint32_t zelNextPrime(std::uint32_t n);

/// A divisor of 2 or more with its reciprocal, so that two multiplications replace a division. The
/// low 64 bits of n times 2^64 / size, rounded up, are the fraction of the quotient; scaled by the
/// size they give the remainder. This is exact for every 32-bit n.
class PrimeSize {
public:
    /// `size` is the divisor, 2 or more.
    explicit PrimeSize(std::uint32_t size) : value(size), reciprocal(UINT64_MAX / size + 1) {}

    /// The divisor.
    std::uint32_t prime() const { return value; }
    /// The remainder of `n` by the divisor.
    std::uint32_t remainder(std::uint32_t n) const {
        const std::uint64_t fraction = reciprocal * n;
        const std::uint64_t low = (fraction & 0xFFFFFFFF) * value;
        return static_cast<std::uint32_t>(((fraction >> 32) * value + (low >> 32)) >> 32);
    }

private:
    std::uint32_t value;
    std::uint64_t reciprocal;
};
