// SPDX-License-Identifier: Apache-2.0
/// @file
/// The word by which stored objects say what they are: a 24-bit tag and an 8-bit version.
#pragma once

#include <cstdint>
#include <iosfwd>

class BinInput;
class BinOutput;

/// One signed 32-bit number, the tag in its high bits. A negative one isn't taken apart: its tag
/// and its version are -1, and so are those of a tag of more than 23 bits.
class BinIO_Magic {
public:
    BinIO_Magic(std::int32_t word = 0) : magic_(word) {}
    /// A negative tag is the word itself.
    BinIO_Magic(std::int32_t tag, std::int32_t version) : magic_(wordOf(tag, version)) {}

    std::int32_t tag() const { return magic_ < 0 ? -1 : magic_ >> 8; }
    std::int32_t version() const { return magic_ < 0 ? -1 : magic_ & 0xFF; }
    bool operator==(const BinIO_Magic&) const = default;

    bool write(BinOutput& stream) const;
    /// These keep the word read, or -1 when there is none to read. The first asserts that it is
    /// `magic`; the second tells whether it is; the third whether its tag is the one held before,
    /// whatever the version.
    void readExact(BinInput& stream, BinIO_Magic magic);
    bool readIs(BinInput& stream, BinIO_Magic expected);
    bool readSameTag(BinInput& stream);

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

/// The tag, one blank and the version.
std::ostream& operator<<(std::ostream& stream, const BinIO_Magic& magic);
