// SPDX-License-Identifier: Apache-2.0
/// @file
/// ZelGuid, the 16-byte identifier of classes, components and stored object blocks.
#pragma once

#include <compare>
#include <cstdint>

class BinInput;
class BinOutput;
class KorCString;

/// A plain value; all zero is nil. It has two text forms: the brace form
/// "{01234567-89ab-cdef-0123-456789abcdef}", and the list form, which initialises the fields in
/// source code: "0x1234567, 0x89ab, 0xcdef, 0x1, 0x23, ..."
class ZelGuid {
public:
    /// Takes a new, globally unique value. False, with nothing changed, when the system has none to
    /// give.
    [[nodiscard]] bool generate();
    /// False for nil.
    bool isValid() const { return *this != ZelGuid(); }

    /// The brace form.
    void toText(KorCString& out) const;
    /// Reads the brace form. Nil for a text that isn't 38 characters long or has a field that
    /// doesn't begin with a hexadecimal digit. Braces and separators aren't checked.
    void fromText(const KorCString& text);
    /// The list form.
    void toList(KorCString& out) const;
    /// Reads the list form. Fields from the first missing or malformed one on are 0. Only the first
    /// 150 characters are read.
    void fromList(const KorCString& text);

    /// Writes 16 bytes: the fields in turn, most significant byte first.
    bool write(BinOutput& stream) const;
    /// False, and unchanged, when the bytes don't all arrive.
    bool read(BinInput& stream);

    /// Compares the fields in turn, as unsigned numbers.
    /// @{
    std::strong_ordering operator<=>(const ZelGuid& other) const;
    bool operator==(const ZelGuid&) const = default;
    static bool equals(const ZelGuid& a, const ZelGuid& b) { return a == b; }
    static bool less(const ZelGuid& a, const ZelGuid& b) { return a < b; }
    /// @}

    /// The fields, with data1 to data3 in the byte order of the machine.
    /// @{
    std::uint32_t data1 = 0;
    std::uint16_t data2 = 0;
    std::uint16_t data3 = 0;
    std::uint8_t data4[8] = {};
    /// @}
};

/// The order of identifiers as keys of a standard map.
struct ZelGuidLess {
    /// As ZelGuid::less().
    bool operator()(const ZelGuid& a, const ZelGuid& b) const { return ZelGuid::less(a, b); }
};

/// The hash function of class tables.
struct ZelGuidHash {
    /// The first field.
    std::uint32_t operator()(const ZelGuid& id) const { return id.data1; }
};
