// SPDX-License-Identifier: Apache-2.0
// The allocators that the pool is raced against, each by the address of its own two calls.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

struct AllocatorCalls {
    void* (*allocate)(std::size_t bytes);
    void (*release)(void* block);
};

struct AllocatorPeer {
    std::string name;
    AllocatorCalls calls;
};

/// The C library's, mimalloc and jemalloc; one that this machine doesn't have is left out, and
/// standard error says so.
std::vector<AllocatorPeer> allocatorPeers();
