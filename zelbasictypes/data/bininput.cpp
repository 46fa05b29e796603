// SPDX-License-Identifier: Apache-2.0
// Typed numbers out of a device of bytes.
#include "zelbasictypes/data/bininput.h"

#include <algorithm>

namespace {

template <class T>
void decode(T* dest, const std::uint8_t* from, unsigned width, std::uint64_t count) {
    if (width == sizeof(T)) return bigendian::copyRun(dest, from, width, count);
    for (std::uint64_t i = 0; i < count; ++i) dest[i] = bigendian::load<T>(from + i * width, width);
}

} // namespace

std::uint64_t BinInput::takeHeld(void* buffer, std::uint64_t count) {
    const std::uint64_t taken = std::min(count, heldBytes());
    if (taken > 0) std::memcpy(buffer, held_, taken);
    held_ += taken;
    return taken;
}

std::uint64_t BinInput::readBytes(void* buffer, std::uint64_t count) {
    if (!binio::installedScrambler) return readRaw(buffer, count);
    const std::int64_t position = tell();
    const std::uint64_t got = readRaw(buffer, count);
    binio::installedScrambler->unscramble(buffer, position, got);
    return got;
}

std::uint64_t BinInput::readStaged(const std::uint8_t** staged, std::uint64_t count) {
    *staged = buffer_;
    return readBytes(buffer_, std::min(count, stageBytes));
}

std::int32_t BinInput::peekInt() {
    std::int32_t value = 0;
    if (!read(&value, 1)) return -1;
    seek(tell() - 4, true);
    return value;
}

bool BinInput::decideLength(std::int32_t bits) {
    if (lengthWidth_ != 0) return false;
    lengthWidth_ = bits;
    return true;
}

/// Whole elements out of what is held.
template <class T>
std::uint64_t BinInput::takeElements(T* dest, unsigned width, std::uint64_t count) {
    const std::uint64_t taken = std::min(count, reachableBytes() / width);
    decode(dest, held_, width, taken);
    held_ += taken * width;
    return taken;
}

bool BinInput::completeElement(std::uint8_t* element, std::uint64_t have, unsigned width) {
    while (have < width) {
        const std::uint64_t got = readBytes(element + have, width - have);
        if (got == 0) return false;
        have += got;
    }
    return true;
}

template <class T> bool BinInput::readElements(T* dest, unsigned width, std::uint64_t count) {
    if (width < 1 || width > 8) return count == 0;
    while (count > 0) {
        const std::uint64_t taken = takeElements(dest, width, count);
        dest += taken;
        count -= taken;
        if (count == 0) break;
        const std::uint8_t* staged = nullptr;
        const std::uint64_t got = readStaged(&staged, std::min(count, stageBytes) * width);
        if (got == 0) return false;
        const std::uint64_t whole = got / width;
        decode(dest, staged, width, whole);
        dest += whole;
        count -= whole;
        const std::uint64_t part = got % width;
        if (part == 0) continue;
        std::uint8_t element[8];
        std::memcpy(element, staged + whole * width, part);
        if (!completeElement(element, part, width)) return false;
        decode(dest++, element, width, 1);
        --count;
    }
    return true;
}

template bool BinInput::readElements(char*, unsigned, std::uint64_t);
template bool BinInput::readElements(signed char*, unsigned, std::uint64_t);
template bool BinInput::readElements(unsigned char*, unsigned, std::uint64_t);
template bool BinInput::readElements(std::int16_t*, unsigned, std::uint64_t);
template bool BinInput::readElements(std::uint16_t*, unsigned, std::uint64_t);
template bool BinInput::readElements(char16_t*, unsigned, std::uint64_t);
template bool BinInput::readElements(std::int32_t*, unsigned, std::uint64_t);
template bool BinInput::readElements(std::uint32_t*, unsigned, std::uint64_t);
template bool BinInput::readElements(std::int64_t*, unsigned, std::uint64_t);
template bool BinInput::readElements(std::uint64_t*, unsigned, std::uint64_t);
template bool BinInput::readElements(float*, unsigned, std::uint64_t);
template bool BinInput::readElements(double*, unsigned, std::uint64_t);
