// SPDX-License-Identifier: Apache-2.0
// Takes frames from a connection: a count of bytes, 32 bits, the most significant first, and as
// many bytes behind it.
#pragma once

#include "client/tcpsocket.h"

#include <vector>

/// Room is made as the bytes arrive, not as the count promises, and kept for the next frame.
class FrameReader {
public:
    /// The socket outlives the reader.
    explicit FrameReader(TcpSocket& source) : socket(source) {}

    /// Waits for the next frame, without a limit. False when none can come any more, and then
    /// failure() tells why.
    bool read();

    /// Of the frame that was read last, without its count. Valid until the next one is read.
    const char* data() const { return buffer.data(); }
    std::int32_t size() const { return size_; }

    /// 0 when the peer has closed the connection, wherever in a frame; otherwise negative: the
    /// negated number of the system's failure, that of a message too long for a count that is
    /// noise.
    std::int32_t failure() const { return failure_; }

private:
    bool fill(char* bytes, std::int32_t length);
    bool readPayload();
    bool fail(std::int32_t reason);

    TcpSocket& socket;
    std::vector<char> buffer;
    std::int32_t size_ = 0;
    std::int32_t failure_ = 0;
};
