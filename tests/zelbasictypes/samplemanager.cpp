// SPDX-License-Identifier: Apache-2.0
// Chunks from the heap, counted.
#include "tests/zelbasictypes/samplemanager.h"

#include "component/objects/iptr.h"

#include <cstdlib>
#include <cstring>

void* SampleManager::allocateChunk(std::int32_t bytes, bool zeroFill) {
    if (refusals > 0 && refusals--) return nullptr;
    chunkBytes = bytes;
    void* chunk = std::malloc(static_cast<std::size_t>(bytes));
    std::memset(chunk, zeroFill ? 0 : 0xEE, static_cast<std::size_t>(bytes));
    return *inUse.insert(chunk).first;
}

void SampleManager::freeChunk(void* chunk) {
    nullsFreed += chunk == nullptr;
    if (inUse.erase(chunk)) std::free(chunk);
}

bool SampleManager::reclaim() {
    ++asked;
    if (left == 0) return false;
    if (--left == 0 && onLast) onLast();
    return true;
}

void SampleManager::reset() {
    chunkBytes = nullsFreed = refusals = asked = left = 0;
    onLast = nullptr;
}

SampleManager& sampleManager() {
    static auto* const one = new IPtr<SampleManager>(new SampleManager);
    return *one->iface;
}
