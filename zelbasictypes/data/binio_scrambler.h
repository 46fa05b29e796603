// SPDX-License-Identifier: Apache-2.0
/// @file
/// A hook for every byte that streams move to and from their devices.
#pragma once

#include <cstdint>

/// Transforms bytes in place. `position` is the device offset of the first of `count` bytes.
/// `unscramble` must undo what `scramble` did, for the same range and for any part of it; the
/// position is all that connects a byte with its place in the file. Both are called with a count of
/// 0 when a device had nothing more to give, and on the thread of the stream.
class BinIO_Scrambler {
public:
    virtual ~BinIO_Scrambler() = default;
    /// Transforms `count` bytes on their way to the device, or back.
    /// @{
    virtual void scramble(void* buffer, std::int64_t position, std::uint64_t count) = 0;
    virtual void unscramble(void* buffer, std::int64_t position, std::uint64_t count) = 0;
    /// @}
};

/// Installs `scrambler` for all streams of the process and takes ownership. The previous one is
/// deleted; null installs none. There is no lock: call it before streams are in use.
void setScrambler(BinIO_Scrambler* scrambler);

namespace binio {

/// The scrambler in use, borrowed; null for none.
extern BinIO_Scrambler* installedScrambler;

} // namespace binio
