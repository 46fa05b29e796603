// SPDX-License-Identifier: Apache-2.0
// Chunks from the heap, with their sizes kept aside.
#include "host/services/chunkmanager.h"

#include "component/objects/queryinterface.h"

#include <cstdlib>
#include <cstring>

namespace host {
namespace {

constexpr std::size_t size(std::int32_t bytes) { return static_cast<std::size_t>(bytes); }

} // namespace

ChunkManager::~ChunkManager() {
    dropKept();
    for (const auto& entry : sizes_) std::free(entry.first);
}

void ChunkManager::qi(const char* name, void** result, std::int32_t) {
    zelAnswerQuery<IZelMManager>(this, className(), name, result);
}

void* ChunkManager::allocateChunk(std::int32_t bytes, bool zeroFill) {
    if (bytes < 1) return nullptr;
    const std::lock_guard lock(mutex_);
    void* chunk = takeKept(bytes);
    if (!chunk) chunk = allocateNew(bytes);
    if (!chunk) return nullptr;
    sizes_[chunk] = bytes;
    if (zeroFill) std::memset(chunk, 0, size(bytes));
    return chunk;
}

void ChunkManager::freeChunk(void* chunk) {
    const std::lock_guard lock(mutex_);
    const auto found = sizes_.find(chunk);
    if (found == sizes_.end()) return;
    const std::int32_t bytes = found->second;
    sizes_.erase(found);
    if (bytes == usualChunkBytes) return kept_.push_back(chunk);
    bytesNow_ -= bytes;
    std::free(chunk);
}

bool ChunkManager::reclaim() {
    const std::lock_guard lock(mutex_);
    return dropKept();
}

std::int32_t ChunkManager::coreNow() {
    const std::lock_guard lock(mutex_);
    return static_cast<std::int32_t>((bytesNow_ + unitBytes - 1) / unitBytes);
}

void* ChunkManager::takeKept(std::int32_t bytes) {
    if (bytes != usualChunkBytes || kept_.empty()) return nullptr;
    void* chunk = kept_.back();
    kept_.pop_back();
    return chunk;
}

/// What is kept gives way before a request is refused.
void* ChunkManager::allocateNew(std::int32_t bytes) {
    if (!hasRoom(bytes) && (!dropKept() || !hasRoom(bytes))) return nullptr;
    void* chunk = std::malloc(size(bytes));
    if (chunk) bytesNow_ += bytes;
    return chunk;
}

bool ChunkManager::hasRoom(std::int32_t bytes) const {
    return bytesNow_ + bytes <= std::int64_t(limitUnits_) * unitBytes;
}

bool ChunkManager::dropKept() {
    if (kept_.empty()) return false;
    bytesNow_ -= static_cast<std::int64_t>(kept_.size()) * usualChunkBytes;
    for (void* chunk : kept_) std::free(chunk);
    kept_.clear();
    return true;
}

} // namespace host
