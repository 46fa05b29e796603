// SPDX-License-Identifier: Apache-2.0
// The table of chunks, its growth, and the chunks' coming and going.
#include "zelbasictypes/memory/arraybase.h"

#include "zelbasictypes/diagnostics/outofmemory.h"
#include "zelbasictypes/memory/korrealloc.h"
#include "zelbasictypes/memory/memorymanager.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <utility>

namespace ZelMM {
namespace {

constexpr std::uint64_t mebibyte = 0x100000;

std::uint64_t growthStep(std::uint64_t bytes) {
    if (bytes < 4 * mebibyte) return bytes;
    if (bytes < 32 * mebibyte) return bytes / 2;
    return bytes < 256 * mebibyte ? bytes / 4 : bytes / 8;
}

void* heapChunk(std::uint32_t bytes, bool zero) {
    void* chunk = nullptr;
    korMalloc(&chunk, 1, static_cast<std::int32_t>(bytes));
    if (zero) std::memset(chunk, 0, bytes);
    return chunk;
}

} // namespace

ArrayBase::ArrayBase(std::uint32_t size, std::uint32_t elementSize, std::uint32_t chunkElements,
                     std::uint32_t chunkBytes)
    : manager_(zelMemoryManager()), size_(size), elementSize_(elementSize),
      chunkElements_(chunkElements), chunkBytes_(chunkBytes) {
    const std::uint32_t count = std::max(chunkCount(), 1u);
    reserveTable(count);
    chunks_.used = count;
}

ArrayBase::~ArrayBase() {
    for (std::uint32_t i = chunks_.used; i > 0; --i) freeChunk(i - 1);
    zelFreeBlock(chunks_.items);
}

std::uint32_t ArrayBase::chunksFor(std::uint32_t elements) const {
    return static_cast<std::uint32_t>((std::uint64_t{elements} + chunkElements_ - 1) /
                                      chunkElements_);
}

bool ArrayBase::allChunksPresent() const {
    void** const end = chunks_.items + chunks_.used;
    return std::find(chunks_.items, end, nullptr) == end;
}

void ArrayBase::resize(std::uint32_t newSize, bool keepTail) {
    const std::uint32_t oldSize = size_;
    const std::uint32_t oldChunks = chunkCount();
    const std::uint32_t newChunks = chunksFor(newSize);
    for (std::uint32_t i = newChunks; i < chunks_.used; ++i) freeChunk(i);
    if (newChunks != oldChunks || oldSize == 0) setTable(newChunks);
    size_ = newChunks * chunkElements_;
    if (!keepTail || newSize <= oldSize || oldSize % chunkElements_ == 0) return;
    if (void* last = oldChunks <= chunks_.used ? chunk(oldChunks - 1) : nullptr) {
        const std::uint32_t kept = oldSize % chunkElements_ * elementSize_;
        std::memset(static_cast<char*>(last) + kept, 0, chunkElements_ * elementSize_ - kept);
    }
}

void ArrayBase::assign(const ArrayBase& other, std::uint32_t size) {
    resize(size, false);
    for (std::uint32_t i = 0; i < chunkCount(); ++i) {
        const void* source = i < other.chunks_.used ? other.chunk(i) : nullptr;
        if (source) {
            std::memcpy(makeChunk(i, false), source, chunkBytes_);
        } else {
            freeChunk(i);
        }
    }
}

void ArrayBase::clearRange(std::uint32_t from, std::uint32_t to) {
    to = std::min(to, size_);
    for (std::uint32_t i = from / chunkElements_; from < to; ++i) {
        const std::uint32_t count = std::min(to - from, chunkElements_);
        if (chunk(i)) std::memset(chunk(i), 0, std::size_t{count} * elementSize_);
        from += count;
    }
}

void ArrayBase::allocateAll(bool zero) {
    for (std::uint32_t i = 0; i < chunks_.used; ++i) makeChunk(i, zero);
}

void ArrayBase::swapChunks(ArrayBase& other) { std::swap(chunks_, other.chunks_); }

void ArrayBase::growTarget(std::uint32_t index, std::uint32_t& size, std::uint32_t elementSize) {
    std::uint64_t current = std::uint64_t{std::max(size, 1u)} * elementSize;
    const std::uint64_t needed = std::uint64_t{index} * elementSize;
    while (needed >= current) current += growthStep(current);
    size = static_cast<std::uint32_t>(
        std::min<std::uint64_t>(current / elementSize, std::numeric_limits<std::uint32_t>::max()));
}

void ArrayBase::roundUpToChunks() {
    setTable(std::max(chunkCount(), 1u));
    size_ = chunkCount() * chunkElements_;
}

void* ArrayBase::makeChunk(std::uint32_t index, bool zero) {
    void*& place = chunks_.items[index];
    if (!place) place = newChunk(zero);
    return place;
}

void* ArrayBase::newChunk(bool zero) const {
    if (!manager_) return heapChunk(chunkBytes_, zero);
    const auto bytes = static_cast<std::int32_t>(chunkBytes_);
    void* chunk = manager_->allocateChunk(bytes, zero);
    while (!chunk && manager_->reclaim()) chunk = manager_->allocateChunk(bytes, zero);
    if (!chunk) zelReportOutOfMemory(bytes);
    return chunk;
}

void ArrayBase::freeChunk(std::uint32_t index) {
    void* chunk = std::exchange(chunks_.items[index], nullptr);
    if (manager_) {
        manager_->freeChunk(chunk);
    } else {
        zelFreeBlock(chunk);
    }
}

/// Entries above the count are null, so that the table may grow into them as it is.
void ArrayBase::setTable(std::uint32_t count) {
    std::uint64_t capacity = chunks_.capacity;
    while (capacity < count) capacity += std::max<std::uint64_t>(capacity * 2 / 5, 1);
    reserveTable(static_cast<std::uint32_t>(capacity));
    chunks_.used = count;
}

void ArrayBase::reserveTable(std::uint32_t capacity) {
    if (capacity <= chunks_.capacity) return;
    void* items = chunks_.items;
    korRealloc(&items, sizeof(void*), static_cast<std::int32_t>(chunks_.capacity),
               static_cast<std::int32_t>(capacity));
    chunks_.items = static_cast<void**>(items);
    std::fill(chunks_.items + chunks_.capacity, chunks_.items + capacity, nullptr);
    chunks_.capacity = capacity;
}

} // namespace ZelMM
