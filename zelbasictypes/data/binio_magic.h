// SPDX-License-Identifier: Apache-2.0
/// @file
/// The magic word by which stored objects identify themselves: a 24-bit tag and an 8-bit version.
#pragma once

#include <cstdint>
#include <iosfwd>

class BinInput;
class BinOutput;

/// One signed 32-bit number with the tag in its high bits; a plain value. A negative word isn't
/// taken apart: its tag and its version are -1. A tag of more than 23 bits makes the word negative.
class BinIO_Magic {
public:
    /// A whole word.
    BinIO_Magic(std::int32_t word = 0) : magic_(word) {}
    /// A negative tag is the word itself. A tag above 24 bits gives the word -1.
    BinIO_Magic(std::int32_t tag, std::int32_t version) : magic_(wordOf(tag, version)) {}

    /// The parts of the word; -1 when it is negative.
    /// @{
    std::int32_t tag() const { return magic_ < 0 ? -1 : magic_ >> 8; }
    std::int32_t version() const { return magic_ < 0 ? -1 : magic_ & 0xFF; }
    /// @}
    /// Compares the words.
    bool operator==(const BinIO_Magic&) const = default;

    /// False when the stream took nothing.
    bool write(BinOutput& stream) const;
    /// Read a word and keep it, or -1 when the stream has none. The first asserts that it is
    /// `magic`; the second returns whether it is `expected`; the third returns whether its tag is
    /// the one held before, whatever the version.
    /// @{
    void readExact(BinInput& stream, BinIO_Magic magic);
    bool readIs(BinInput& stream, BinIO_Magic expected);
    bool readSameTag(BinInput& stream);
    /// @}

private:
    static constexpr std::int32_t greatestTag = 0xFFFFFF;

    static constexpr std::int32_t wordOf(std::int32_t tag, std::int32_t version) {
        if (tag < 0) return tag;
        if (tag > greatestTag) return -1;
        return static_cast<std::int32_t>(static_cast<std::uint32_t>(tag) << 8 |
                                         static_cast<std::uint32_t>(version));
    }

    bool readWord(BinInput& stream);

    std::int32_t magic_;
};

/// Prints the tag, one blank and the version.
std::ostream& operator<<(std::ostream& stream, const BinIO_Magic& magic);
