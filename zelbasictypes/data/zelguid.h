// SPDX-License-Identifier: Apache-2.0
/// @file
/// ZelGuid, the 16-byte identifier of classes, components and stored object blocks.
#pragma once

#include <compare>
#include <cstdint>

class BinInput;
class BinOutput;
class KorCString;

/// A plain value; all zero is nil. Its two texts are the brace form
/// "{01234567-89ab-cdef-0123-456789abcdef}" and the list form, which stands in source text as the
/// initialiser of the fields: "0x1234567, 0x89ab, 0xcdef, 0x1, 0x23, ..."
class ZelGuid {
public:
    /// A new value that no other machine or moment makes; false, and unchanged, when the system
    /// has none to give.
    bool generate();
    bool isValid() const { return *this != ZelGuid(); }

    void toText(KorCString& out) const;
    /// Nil for a text that isn't 38 characters long or has a field that doesn't start with a
    /// hexadecimal digit. Braces and separators are not looked at.
    void fromText(const KorCString& text);
    void toList(KorCString& out) const;
    /// Keeps the fields in front of the first that is missing or bad, the others are 0. What lies
    /// behind the first 150 characters is not read.
    void fromList(const KorCString& text);

    /// 16 bytes, the fields in turn with their most significant byte first.
    bool write(BinOutput& stream) const;
    /// False, and unchanged, when the bytes don't all arrive.
    bool read(BinInput& stream);

    /// By the fields in turn, as unsigned numbers.
    auto operator<=>(const ZelGuid&) const = default;
    static bool equals(const ZelGuid& a, const ZelGuid& b) { return a == b; }
    static bool less(const ZelGuid& a, const ZelGuid& b) { return a < b; }

    std::uint32_t data1 = 0;
    std::uint16_t data2 = 0;
    std::uint16_t data3 = 0;
    std::uint8_t data4[8] = {};
};

/// Orders identifiers as the keys of a standard map.
struct ZelGuidLess {
    bool operator()(const ZelGuid& a, const ZelGuid& b) const { return ZelGuid::less(a, b); }
};

/// The hash of class tables.
struct ZelGuidHash {
    std::uint32_t operator()(const ZelGuid& id) const { return id.data1; }
};
