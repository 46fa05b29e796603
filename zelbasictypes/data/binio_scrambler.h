// SPDX-License-Identifier: Apache-2.0
/// @file
/// A hook on every byte that streams move to and from their devices.
#pragma once

#include <cstdint>

/// Alters `count` bytes in place; `position` is the device offset of the first. What `scramble` did
/// to a range, `unscramble` undoes for the same range and for any part of it: the position is the
/// only link between bytes and their place in a file. Called with a count of 0 where a device had
/// nothing more to give.
class BinIO_Scrambler {
public:
    virtual ~BinIO_Scrambler() = default;
    virtual void scramble(void* buffer, std::int64_t position, std::uint64_t count) = 0;
    virtual void unscramble(void* buffer, std::int64_t position, std::uint64_t count) = 0;
};

/// Installs and owns `scrambler` for all streams of the process, in place of the one before, which
/// is deleted; null for none. No lock: install it before streams are in use.
void setScrambler(BinIO_Scrambler* scrambler);

namespace binio {

/// Borrowed; null for none.
extern BinIO_Scrambler* installedScrambler;

} // namespace binio
