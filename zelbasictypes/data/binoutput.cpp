// SPDX-License-Identifier: Apache-2.0
// Typed numbers into a device of bytes.
#include "zelbasictypes/data/binoutput.h"

#include <algorithm>

namespace {

template <class T>
void encode(std::uint8_t* to, const T* source, unsigned width, std::uint64_t count) {
    if (width == sizeof(T)) return bigendian::copyRun(to, source, width, count);
    for (std::uint64_t i = 0; i < count; ++i) bigendian::store<T>(to + i * width, width, source[i]);
}

} // namespace

bool BinOutput::flushBuffer() {
    const std::uint64_t count = pending();
    if (count == 0) return true;
    if (binio::installedScrambler) {
        binio::installedScrambler->scramble(stage_, tellRaw(), count);
    }
    next_ = stage_;
    return writeRaw(stage_, count) != 0;
}

void BinOutput::takeStageBack() {
    const std::uint64_t count = pending();
    if (count > 0 && stage_ != buffer_) std::memcpy(buffer_, stage_, count);
    stage_ = buffer_;
    next_ = buffer_ + count;
}

template <class T>
bool BinOutput::writeElements(const T* source, unsigned width, std::uint64_t count) {
    if (width < 1 || width > 8) return count == 0;
    while (count > 0) {
        makeHeadroom();
        const std::uint64_t fitting = std::min(count, room() / width);
        encode(next_, source, width, fitting);
        next_ += fitting * width;
        source += fitting;
        count -= fitting;
        if (room() == 0 && !flushBuffer()) return false;
    }
    return true;
}

template bool BinOutput::writeElements(const char*, unsigned, std::uint64_t);
template bool BinOutput::writeElements(const signed char*, unsigned, std::uint64_t);
template bool BinOutput::writeElements(const unsigned char*, unsigned, std::uint64_t);
template bool BinOutput::writeElements(const std::int16_t*, unsigned, std::uint64_t);
template bool BinOutput::writeElements(const std::uint16_t*, unsigned, std::uint64_t);
template bool BinOutput::writeElements(const char16_t*, unsigned, std::uint64_t);
template bool BinOutput::writeElements(const std::int32_t*, unsigned, std::uint64_t);
template bool BinOutput::writeElements(const std::uint32_t*, unsigned, std::uint64_t);
template bool BinOutput::writeElements(const std::int64_t*, unsigned, std::uint64_t);
template bool BinOutput::writeElements(const std::uint64_t*, unsigned, std::uint64_t);
template bool BinOutput::writeElements(const float*, unsigned, std::uint64_t);
template bool BinOutput::writeElements(const double*, unsigned, std::uint64_t);

bool BinOutput::writeBytes(const void* source, std::uint64_t count) {
    const auto* from = static_cast<const std::uint8_t*>(source);
    while (count > 0) {
        const std::uint64_t fitting = std::min(count, room());
        std::memcpy(next_, from, fitting);
        next_ += fitting;
        from += fitting;
        count -= fitting;
        if (room() == 0 && !flushBuffer()) return false;
    }
    return true;
}

std::uint64_t BinOutput::reserve(std::uint8_t** room, std::uint64_t count) {
    makeHeadroom();
    *room = next_;
    return std::min(count, this->room());
}

bool BinOutput::commit(std::uint64_t count) {
    next_ += std::min(count, room());
    return room() > 0 || flushBuffer();
}

std::uint64_t BinOutput::readBack(void* buffer, std::uint64_t count) {
    if (!flushBuffer()) return 0;
    if (!binio::installedScrambler) return readRaw(buffer, count);
    const std::int64_t position = tellRaw();
    const std::uint64_t got = readRaw(buffer, count);
    binio::installedScrambler->unscramble(buffer, position, got);
    return got;
}

bool BinOutput::seek(std::int64_t offset, bool fromStart) {
    flushBuffer();
    return seekRaw(offset, fromStart);
}

bool BinOutput::close() {
    const bool flushed = flushBuffer();
    return closeRaw() && flushed;
}
