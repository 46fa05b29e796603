// SPDX-License-Identifier: Apache-2.0
// The table of heap calls.
#include "zelbasictypes/memory/heapseam.h"

#include <cstdlib>

namespace {

constinit ZelHeap heapInUse{std::malloc, std::realloc, std::free, std::exit};

} // namespace

const ZelHeap& zelHeap() { return heapInUse; }

void zelSetHeap(const ZelHeap& heap) {
    heapInUse.allocate = heap.allocate ? heap.allocate : std::malloc;
    heapInUse.reallocate = heap.reallocate ? heap.reallocate : std::realloc;
    heapInUse.release = heap.release ? heap.release : std::free;
    heapInUse.exitProcess = heap.exitProcess ? heap.exitProcess : std::exit;
}
