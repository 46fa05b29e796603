// SPDX-License-Identifier: Apache-2.0
// Streams on memory.
#include "zelbasictypes/data/binmemory.h"

#include <algorithm>
#include <exception>
#include <limits>

namespace {

/// What an empty source points at, so that it counts as open.
constexpr std::uint8_t nothing[1] = {};

/// A position counted from the start or from behind the last byte; negative where there is none.
std::int64_t position(std::int64_t offset, bool fromStart, std::uint64_t size) {
    constexpr std::int64_t greatest = std::numeric_limits<std::int64_t>::max();
    const auto end = static_cast<std::int64_t>(size);
    if (fromStart) return offset;
    return offset > greatest - end ? greatest : end + offset;
}

} // namespace

BinInputMemory::BinInputMemory(const void* bytes, std::uint64_t count)
    : bytes_(count > 0 ? static_cast<const std::uint8_t*>(bytes) : nothing) {
    size_ = count;
    held_ = bytes_;
    heldEnd_ = bytes_ + count;
}

std::uint64_t BinInputMemory::readRaw(void* buffer, std::uint64_t count) {
    return takeHeld(buffer, count);
}

std::int64_t BinInputMemory::tell() const { return bytes_ ? held_ - bytes_ + beyond_ : 0; }

bool BinInputMemory::seek(std::int64_t offset, bool fromStart) {
    if (!bytes_) return false;
    const auto length = static_cast<std::int64_t>(size_);
    const std::int64_t target = position(offset, fromStart, size_);
    if (target < 0) return true;
    beyond_ = std::max<std::int64_t>(target - length, 0);
    held_ = bytes_ + (target - beyond_);
    return true;
}

bool BinInputMemory::close() {
    bytes_ = held_ = heldEnd_ = nullptr;
    return true;
}

std::uint64_t BinOutputMemory::writeRaw(const void* buffer, std::uint64_t count) {
    if (!open_ || !makeRoom(at_ + count)) return 0;
    if (count > 0) std::memcpy(bytes_.data() + at_, buffer, count);
    at_ += count;
    return count;
}

/// A seek may have gone anywhere; where no memory is, nothing is written.
bool BinOutputMemory::makeRoom(std::uint64_t size) {
    if (size <= bytes_.size()) return true;
    try {
        bytes_.resize(size);
    } catch (const std::exception&) {
        return false;
    }
    return true;
}

std::uint64_t BinOutputMemory::readRaw(void* buffer, std::uint64_t count) {
    if (!open_ || at_ >= bytes_.size()) return 0;
    const std::uint64_t got = std::min<std::uint64_t>(count, bytes_.size() - at_);
    if (got > 0) std::memcpy(buffer, bytes_.data() + at_, got);
    at_ += got;
    return got;
}

bool BinOutputMemory::seekRaw(std::int64_t offset, bool fromStart) {
    if (!open_) return false;
    const std::int64_t target = position(offset, fromStart, bytes_.size());
    if (target >= 0) at_ = static_cast<std::uint64_t>(target);
    return true;
}

bool BinOutputMemory::closeRaw() {
    open_ = false;
    return true;
}
