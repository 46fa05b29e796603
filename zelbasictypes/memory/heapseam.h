// SPDX-License-Identifier: Apache-2.0
/// @file
/// The heap and the process exit as the allocators use them, replaceable so that a test can stand
/// in for a machine without memory.
#pragma once

#include <cstddef>

/// The functions that the allocators call.
struct ZelHeap {
    /// As malloc, realloc and free.
    /// @{
    void* (*allocate)(std::size_t bytes);
    void* (*reallocate)(void* block, std::size_t bytes);
    void (*release)(void* block);
    /// @}
    void (*exitProcess)(int status); ///< not expected to return
    /// As calloc: for a large block the system supplies pages when they are touched.
    void* (*allocateZeroed)(std::size_t bytes) = nullptr;
};

/// The functions in use, at first the runtime library's malloc, realloc, free, exit and calloc.
const ZelHeap& zelHeap();

/// Replaces the functions for all threads; a null entry means the runtime library's. If there is an
/// `allocate` but no `allocateZeroed`, its blocks are cleared.
void zelSetHeap(const ZelHeap& heap);
