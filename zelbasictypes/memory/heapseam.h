// SPDX-License-Identifier: Apache-2.0
/// @file
/// The heap and the end of the process as the allocators reach them, so that a test can stand in
/// for a machine without memory.
#pragma once

#include <cstddef>

struct ZelHeap {
    void* (*allocate)(std::size_t bytes);
    void* (*reallocate)(void* block, std::size_t bytes);
    void (*release)(void* block);
    /// Not expected to return.
    void (*exitProcess)(int status);
    /// Zeros, in pages that the system gives when they are touched, where there are many.
    void* (*allocateZeroed)(std::size_t bytes) = nullptr;
};

/// The table in use: at first the runtime library's malloc, realloc, free, exit and calloc.
const ZelHeap& zelHeap();

/// Replaces the table, for all threads; null entries mean the runtime library's. Beside an
/// `allocate` of its own a table without `allocateZeroed` has its blocks cleared.
void zelSetHeap(const ZelHeap& heap);
