// SPDX-License-Identifier: Apache-2.0
/// @file
/// Objects and arrays whose allocation never fails: without memory the process ends, as with
/// korMalloc(), where the language's own allocation would throw.
#pragma once

#include "zelbasictypes/diagnostics/outofmemory.h"
#include "zelbasictypes/memory/heapseam.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <new>
#include <string>
#include <utility>
#include <vector>

/// A new object, to be deleted by `delete`.
template <class T, class... Args> T* zelNew(Args&&... args) {
    T* object = new (std::nothrow) T(std::forward<Args>(args)...);
    if (!object) zelReportOutOfMemory(sizeof(T));
    return object;
}

/// An allocator for standard containers. It has no state.
template <class T> struct ZelAllocator {
    /// As the standard requires of an allocator.
    /// @{
    using value_type = T;

    ZelAllocator() = default;
    template <class Other> ZelAllocator(const ZelAllocator<Other>&) {}

    T* allocate(std::size_t count) {
        constexpr std::size_t most = std::numeric_limits<std::ptrdiff_t>::max() / sizeof(T);
        void* block = count <= most ? zelHeap().allocate(count * sizeof(T)) : nullptr;
        if (!block) zelReportOutOfMemory(static_cast<std::int64_t>(count * sizeof(T)));
        return static_cast<T*>(block);
    }
    void deallocate(T* block, std::size_t) { zelHeap().release(block); }

    template <class Other> bool operator==(const ZelAllocator<Other>&) const { return true; }
    /// @}
};

/// Containers for use inside the library's functions.
/// @{
template <class T> using ZelVector = std::vector<T, ZelAllocator<T>>;
template <class Unit>
using ZelText = std::basic_string<Unit, std::char_traits<Unit>, ZelAllocator<Unit>>;
/// @}
