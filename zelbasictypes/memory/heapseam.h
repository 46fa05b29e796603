// SPDX-License-Identifier: Apache-2.0
// The heap and the end of the process as the allocators reach them, so that a test can stand in
// for a machine without memory.
#pragma once

#include <cstddef>

struct ZelHeap {
    void* (*allocate)(std::size_t bytes);
    void* (*reallocate)(void* block, std::size_t bytes);
    void (*release)(void* block);
    /// Not expected to return.
    void (*exitProcess)(int status);
};

/// The table in use: at first the runtime library's malloc, realloc, free and exit.
const ZelHeap& zelHeap();

/// Replaces the table, for all threads; null entries mean the runtime library's.
void zelSetHeap(const ZelHeap& heap);
