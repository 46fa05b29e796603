// SPDX-License-Identifier: Apache-2.0
// Reading a count, then what it counts.
#include "client/framereader.h"

#include "cadimport/framelimits.h"

#include <algorithm>
#include <array>

namespace {

std::int32_t countIn(const std::array<unsigned char, 4>& bytes) {
    std::uint32_t count = 0;
    for (const unsigned char byte : bytes) count = count << 8 | byte;
    return static_cast<std::int32_t>(count);
}

} // namespace

bool FrameReader::fail(std::int32_t reason) {
    size_ = 0;
    failure_ = reason;
    return false;
}

bool FrameReader::fill(char* bytes, std::int32_t length) {
    while (length > 0) {
        const std::int32_t count = socket.receive(bytes, length);
        if (count <= 0) return fail(count);
        bytes += count;
        length -= count;
    }
    return true;
}

bool FrameReader::readPayload() {
    for (std::int32_t got = 0; got < size_;) {
        const std::int32_t step = std::min(size_ - got, CADImport::frameStepBytes);
        const auto needed = static_cast<std::size_t>(got + step);
        if (buffer.size() < needed) buffer.resize(needed);
        if (!fill(buffer.data() + got, step)) return false;
        got += step;
    }
    return true;
}

bool FrameReader::read() {
    std::array<unsigned char, 4> count{};
    if (!fill(reinterpret_cast<char*>(count.data()), 4)) return false;
    size_ = countIn(count);
    if (size_ < 0 || size_ > CADImport::longestFrameBytes) {
        return fail(-platform::socket_error::messageTooLong());
    }
    return readPayload();
}
