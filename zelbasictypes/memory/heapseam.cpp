// SPDX-License-Identifier: Apache-2.0
// The table of heap calls.
#include "zelbasictypes/memory/heapseam.h"

#include <cstdlib>

namespace {

constinit ZelHeap current{std::malloc, std::realloc, std::free, std::exit};

} // namespace

const ZelHeap& zelHeap() { return current; }

void zelSetHeap(const ZelHeap& heap) {
    current.allocate = heap.allocate ? heap.allocate : std::malloc;
    current.reallocate = heap.reallocate ? heap.reallocate : std::realloc;
    current.release = heap.release ? heap.release : std::free;
    current.exitProcess = heap.exitProcess ? heap.exitProcess : std::exit;
}
