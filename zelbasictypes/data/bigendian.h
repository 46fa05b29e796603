// SPDX-License-Identifier: Apache-2.0
/// @file
/// Numbers as streams store them: most significant byte first, on every machine.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <type_traits>

namespace bigendian {

/// The unsigned integer of so many bytes.
template <std::size_t bytes> struct Unsigned;
template <> struct Unsigned<1> { using Type = std::uint8_t; };
template <> struct Unsigned<2> { using Type = std::uint16_t; };
template <> struct Unsigned<4> { using Type = std::uint32_t; };
template <> struct Unsigned<8> { using Type = std::uint64_t; };
/// The unsigned integer that holds the bits of an arithmetic type.
template <class T> using Bits = typename Unsigned<sizeof(T)>::Type;

/// The bytes of a number in reverse order.
/// @{
constexpr std::uint8_t swapped(std::uint8_t value) { return value; }
constexpr std::uint16_t swapped(std::uint16_t value) { return __builtin_bswap16(value); }
constexpr std::uint32_t swapped(std::uint32_t value) { return __builtin_bswap32(value); }
constexpr std::uint64_t swapped(std::uint64_t value) { return __builtin_bswap64(value); }
/// @}

/// Reads or writes a number in as many bytes as its type has; nothing needs to be aligned.
/// @{
template <class T> T load(const std::uint8_t* from) {
    Bits<T> bits;
    std::memcpy(&bits, from, sizeof bits);
    if constexpr (std::endian::native == std::endian::little) bits = swapped(bits);
    return std::bit_cast<T>(bits);
}

template <class T> void store(std::uint8_t* to, T value) {
    auto bits = std::bit_cast<Bits<T>>(value);
    if constexpr (std::endian::native == std::endian::little) bits = swapped(bits);
    std::memcpy(to, &bits, sizeof bits);
}
/// @}

/// Copies `count` words of 2, 4 or 8 bytes and reverses the bytes of each where this machine is
/// little-endian. Nothing needs to be aligned.
void copyRun(void* to, const void* from, unsigned wordBytes, std::size_t count);

/// Reads a number from `width` bytes, 1 to 8. A wider number is cut to its low bits; a narrower one
/// is extended, with its sign when the type is signed.
template <class T> T load(const std::uint8_t* from, unsigned width) {
    constexpr bool carriesSign = std::is_integral_v<T> && std::is_signed_v<T>;
    std::uint64_t bits = carriesSign && (from[0] & 0x80) ? ~std::uint64_t{0} : 0;
    for (unsigned i = 0; i < width; ++i) bits = bits << 8 | from[i];
    return std::bit_cast<T>(static_cast<Bits<T>>(bits));
}

/// Writes the low `width` bytes, 1 to 8, of a number; a signed integer is extended with its sign.
template <class T> void store(std::uint8_t* to, unsigned width, T value) {
    std::uint64_t bits;
    if constexpr (std::is_integral_v<T> && std::is_signed_v<T>) {
        bits = static_cast<std::uint64_t>(std::int64_t{value});
    } else {
        bits = std::bit_cast<Bits<T>>(value);
    }
    for (unsigned i = width; i-- > 0; bits >>= 8) to[i] = static_cast<std::uint8_t>(bits);
}

} // namespace bigendian
