// SPDX-License-Identifier: Apache-2.0
// Blocks and their headers.
#include "zelbasictypes/memory/memoryblock.h"

#include "zelbasictypes/diagnostics/outofmemory.h"
#include "zelbasictypes/memory/korrealloc.h"

#include <limits>
#include <new>

namespace {

struct Header {
    BucketMemoryAllocator* allocator;
};
constexpr std::int32_t headerBytes = 8;
static_assert(sizeof(Header) <= headerBytes);

/// The heap has a lock of its own. Taking the pool lock here as well would let two modules wait for
/// each other when one clears the blocks of the other.
class HeapAllocator : public BucketMemoryAllocator {
public:
    void freeBlock(void* header) override { zelFreeBlock(header); }
};

/// Never destroyed: blocks may outlive all static objects.
BucketMemoryAllocator* ownAllocator() {
    alignas(HeapAllocator) static unsigned char room[sizeof(HeapAllocator)];
    static BucketMemoryAllocator* const allocator = new (room) HeapAllocator;
    return allocator;
}

} // namespace

void* zelNewBlock(std::int32_t size) {
    if (size > std::numeric_limits<std::int32_t>::max() - headerBytes) zelReportOutOfMemory(size);
    void* start = nullptr;
    korMalloc(&start, 1, size + headerBytes);
    static_cast<Header*>(start)->allocator = ownAllocator();
    return static_cast<char*>(start) + headerBytes;
}

void zelReleaseBlock(void* block) {
    void* start = static_cast<char*>(block) - headerBytes;
    static_cast<Header*>(start)->allocator->freeBlock(start);
}
