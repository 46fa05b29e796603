// SPDX-License-Identifier: Apache-2.0
// All forms of the operator for which a program may have its own, but those for wider alignment.
#include "tests/support/refusingnew.h"

#include <atomic>
#include <cstdlib>
#include <limits>
#include <new>

namespace {

constexpr std::size_t all = std::numeric_limits<std::size_t>::max();

constinit std::atomic<std::size_t> refusedFrom{all};

void* allocate(std::size_t bytes) noexcept {
    return bytes < refusedFrom ? std::malloc(bytes > 0 ? bytes : 1) : nullptr;
}

void* allocateOrThrow(std::size_t bytes) {
    void* block = allocate(bytes);
    if (!block) throw std::bad_alloc();
    return block;
}

} // namespace

void* operator new(std::size_t bytes) { return allocateOrThrow(bytes); }
void* operator new[](std::size_t bytes) { return allocateOrThrow(bytes); }
void* operator new(std::size_t bytes, const std::nothrow_t&) noexcept { return allocate(bytes); }
void* operator new[](std::size_t bytes, const std::nothrow_t&) noexcept { return allocate(bytes); }
void operator delete(void* block) noexcept { std::free(block); }
void operator delete[](void* block) noexcept { std::free(block); }
void operator delete(void* block, std::size_t) noexcept { std::free(block); }
void operator delete[](void* block, std::size_t) noexcept { std::free(block); }

namespace testsupport {

RefusingNew::RefusingNew(std::size_t least) { refusedFrom = least; }

RefusingNew::~RefusingNew() { refusedFrom = all; }

} // namespace testsupport
