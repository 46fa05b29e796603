// SPDX-License-Identifier: Apache-2.0
// The table of heap calls.
#include "zelbasictypes/memory/heapseam.h"

#include <cstdlib>
#include <cstring>

namespace {

void* freshZeros(std::size_t bytes) { return std::calloc(1, bytes); }

constinit ZelHeap heapInUse{std::malloc, std::realloc, std::free, std::exit, freshZeros};

void* allocateAndClear(std::size_t bytes) {
    void* block = heapInUse.allocate(bytes);
    return block ? std::memset(block, 0, bytes) : nullptr;
}

} // namespace

const ZelHeap& zelHeap() { return heapInUse; }

void zelSetHeap(const ZelHeap& heap) {
    heapInUse.allocate = heap.allocate ? heap.allocate : std::malloc;
    heapInUse.reallocate = heap.reallocate ? heap.reallocate : std::realloc;
    heapInUse.release = heap.release ? heap.release : std::free;
    heapInUse.allocateZeroed = heap.allocateZeroed ? heap.allocateZeroed
                               : heap.allocate     ? allocateAndClear
                                                   : freshZeros;
    heapInUse.exitProcess = heap.exitProcess ? heap.exitProcess : std::exit;
}
